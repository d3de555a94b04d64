#include "labels.h"

#include <algorithm>

namespace quorixctl {

std::optional<Area> LabelPlan::place(const Area &within, double width, double height, const std::vector<Area> &covers,
                                     Corner corner) {
    constexpr double kGap = 5;
    constexpr double kStep = 4;
    const Area room = within.shrunk(kGap, kGap);
    std::vector<Area> obstacles;
    for (const std::vector<Area> *list : {&covers, static_cast<const std::vector<Area> *>(&m_taken)})
        std::copy_if(list->begin(), list->end(), std::back_inserter(obstacles),
                     [&](const Area &area) { return area.meets(room); });
    for (double down = 0; down + height <= room.height; down += kStep) {
        const double y = corner == Corner::TopLeft ? room.y + down : room.bottom() - height - down;
        Area label{room.x, y, width, height};
        const Area *obstacle = nullptr;
        do {
            const auto hit = std::find_if(obstacles.begin(), obstacles.end(),
                                          [&](const Area &area) { return area.meets(label.shrunk(-2, -2)); });
            obstacle = hit == obstacles.end() ? nullptr : &*hit;
            if (obstacle != nullptr)
                label.x = obstacle->right() + kGap;
        } while (obstacle != nullptr && label.right() <= room.right());
        if (label.right() <= room.right()) {
            m_taken.push_back(label);
            return label;
        }
    }
    return std::nullopt;
}

} // namespace quorixctl
