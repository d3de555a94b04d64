/// The label of a layer: z-order, name, source and crop, as much of it as there is room for.
#ifndef QUORIXCTL_LAYERCARD_H
#define QUORIXCTL_LAYERCARD_H

#include "screenview.h"

namespace quorixctl {

/// Short: without the size of the source.
enum class CardSize { Full, Short, Name, Badge };

class LayerCard {
public:
    /// Free space that a card keeps to the edges of its window.
    static constexpr double kMargin = 5;

    /// @param room width that the texts are cut to
    LayerCard(const LayerView &layer, CardSize size, double room);
    [[nodiscard]] double width() const { return m_width; }
    [[nodiscard]] double height() const { return m_height; }
    void draw(const Area &place, std::vector<Mark> &marks) const;

private:
    const LayerView &m_layer;
    QString m_badge;
    QString m_name;
    QString m_source;
    QString m_crop;
    double m_badgeWidth = 0;
    double m_width = 0;
    double m_height = 0;
};

} // namespace quorixctl

#endif
