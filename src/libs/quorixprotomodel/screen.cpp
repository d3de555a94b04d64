#include <quorixprotomodel/screen.h>

#include <algorithm>

namespace Quorix::ProtoModel::Screen {

bool s_OutputDetail::operator==(const s_OutputDetail &other) const {
    constexpr std::size_t edges = 4;
    if (feather.size() != edges || other.feather.size() != edges)
        return false;
    const auto isInOther = [&](const s_Feather &edge) {
        return std::find(other.feather.begin(), other.feather.end(), edge) != other.feather.end();
    };
    return interfaceId == other.interfaceId && pos == other.pos && crop == other.crop &&
           std::all_of(feather.begin(), feather.end(), isInOther);
}

} // namespace Quorix::ProtoModel::Screen
