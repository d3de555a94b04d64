/// What the classes of the hardware tree share.
#ifndef QUORIXBIZMODEL_TOPOLOGY_P_H
#define QUORIXBIZMODEL_TOPOLOGY_P_H

#include <quorixbizmodel/common/quorixbizconstants.h>

#include <quorixprotomodel/screen.h>

#include <QtGlobal>

namespace Quorix::BizModel {

class Interface;

/// The id under which the capability file may know a card; one that doesn't fit its 16 bits must not pass for another.
constexpr quint16 fileModelId(qint64 modelId) {
    return modelId < 0 || modelId > Constants::invalidId_16 ? Constants::invalidId_16 : static_cast<quint16>(modelId);
}

/// Whether a number from outside can be a slot or a connector.
constexpr bool isId(int id) { return id >= 0 && id <= 255; }

/// The adjustment that leaves a picture as it is; its gamma isn't that of a new record.
inline ProtoModel::s_ImageQualityBody neutralImageQuality() {
    ProtoModel::s_ImageQualityBody quality;
    quality.hue = Constants::Interface::defaultHue;
    quality.saturation = Constants::Interface::defaultSaturation;
    quality.gamma = static_cast<int>(Constants::Interface::defultGamma * Constants::gammaRatio);
    return quality;
}

/// What the outputs of a screen share, as @p interface has it. (interface.cpp)
ProtoModel::Screen::s_ScreenRefOutputPara referenceOf(const Interface &interface);
/// Sets it: timing, colour depth, space and range, format mapping.
void pushReference(Interface &interface, const ProtoModel::Screen::s_ScreenRefOutputPara &reference);

} // namespace Quorix::BizModel

#endif
