/// What the sources of a layer share among themselves and with the screen.
#ifndef QUORIXBIZMODEL_LAYER_P_H
#define QUORIXBIZMODEL_LAYER_P_H

#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixprotomodel/layer.h>

#include <QString>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>

namespace Quorix::BizModel {

/// Whether @p ratio is a number, and another one than @p stored.
inline bool isOtherRatio(double stored, double ratio) {
    return std::isfinite(ratio) && std::abs(stored - ratio) > 1e-6;
}

/// The name of an input, or of a regular screen with the scene behind it; nothing for another source and where there is
/// none.
std::optional<QString> nameOfSource(const std::shared_ptr<Device> &device, Enum::Layer::SourceType type, uint32_t id);

/// The regular screen whose scene is a source; null for another source and where there is none.
std::shared_ptr<Screen> screenOfSource(const std::shared_ptr<Device> &device, Enum::Layer::SourceType type,
                                       uint32_t id);

/// The entry of a source in a list of crops, null if there is none.
template <class List>
auto *cropEntry(List &crops, const ProtoModel::Layer::s_LayerSourceGeneral &source) {
    const auto found = std::find_if(crops.begin(), crops.end(),
                                    [&](const auto &crop) { return crop.id == source.id && crop.type == source.type; });
    return found == crops.end() ? nullptr : &*found;
}

/// The whole of a source, switched off.
inline ProtoModel::s_CropDetailBody newCropEntry(const ProtoModel::Layer::s_LayerSourceGeneral &source) {
    ProtoModel::s_CropDetailBody crop;
    crop.id = source.id;
    crop.type = source.type;
    return crop;
}

} // namespace Quorix::BizModel

#endif
