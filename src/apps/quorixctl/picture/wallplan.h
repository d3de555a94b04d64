/// The wall itself, to scale.
#ifndef QUORIXCTL_WALLPLAN_H
#define QUORIXCTL_WALLPLAN_H

#include "labels.h"
#include "screenview.h"

namespace quorixctl {

/// Draws outputs and layers of a screen; marks go to @p marks in the order of calls.
class WallPlan {
public:
    /// Everything drawn fits into @p room, which is in pixels of the picture.
    WallPlan(const ScreenView &view, const Area &room, std::vector<Mark> &marks);

    /// The wall on the paper.
    [[nodiscard]] const Area &place() const { return m_place; }
    void draw();

private:
    /// From pixels of the mosaic to whole pixels of the picture.
    [[nodiscard]] Area onPaper(const Area &area) const;
    /// The same of one edge.
    [[nodiscard]] double across(double x) const;
    [[nodiscard]] double down(double y) const;
    void drawGround();
    void drawRulers();
    void drawLayer(const LayerView &layer);
    void drawBorder(const LayerView &layer, const Area &window);
    void drawFeathers(const OutputView &output);
    void drawCells();
    void drawSelection(const Area &window);
    void drawOutputTags();
    void drawLayerCards();
    void add(Mark mark) { m_marks.push_back(std::move(mark)); }

    const ScreenView &m_view;
    Area m_extent; ///< what is shown, in pixels of the mosaic
    double m_scale = 1;
    Area m_place;
    LabelPlan m_labels;
    std::vector<Mark> &m_marks;
};

} // namespace quorixctl

#endif
