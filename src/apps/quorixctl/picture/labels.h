/// Where labels go, so that none covers another and none lies on a window that hides its own.
#ifndef QUORIXCTL_LABELS_H
#define QUORIXCTL_LABELS_H

#include "drawing.h"

#include <optional>
#include <vector>

namespace quorixctl {

class LabelPlan {
public:
    enum class Corner { TopLeft, BottomLeft };

    /// Takes the free place next to a corner of an area. Empty if there is none of that size.
    /// @param covers what hides parts of the area
    std::optional<Area> place(const Area &within, double width, double height, const std::vector<Area> &covers,
                              Corner corner);

    /// No label is put there.
    void keepFree(const Area &area) { m_taken.push_back(area); }

private:
    std::vector<Area> m_taken;
};

} // namespace quorixctl

#endif
