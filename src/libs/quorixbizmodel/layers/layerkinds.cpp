#include <quorixbizmodel/layers/layerkinds.h>

#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/numbers.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/topology/input.h>

#include <algorithm>
#include <cmath>

namespace Quorix::BizModel {

RegularLayer::RegularLayer(QObject *parent) : Layer(parent) { setLayerType(LayerType::Regular); }
RegularLayer::RegularLayer(const RegularLayer &other) = default;
RegularLayer &RegularLayer::operator=(const RegularLayer &other) = default;

QSize RegularLayer::minWindowSize() const {
    const QSize least = Layer::minWindowSize();
    if (!borderEnable())
        return least;
    // A reported border has any width.
    const auto aroundBorder = [](int width) { return truncated(2.0 * width + 1.0); };
    const QSize border = borderSize();
    return least.expandedTo({aroundBorder(border.width()), aroundBorder(border.height())});
}

QSize RegularLayer::maxWindowSize() const {
    const auto screen = ownerScreen().lock();
    if (screen == nullptr)
        return Constants::Layer::minWindowSize;
    const QSize mosaic = screen->mosaicWindowSize();
    return {truncated(3.0 * mosaic.width()), truncated(3.0 * mosaic.height())};
}

QSize RegularLayer::defaultWindowSize() const {
    switch (sourceType()) {
    case SourceType::NoSource:
        return Constants::Layer::defaultWindowSize;
    case SourceType::Input:
        return defulatSize(sourceInput());
    default:
        return Constants::Layer::minWindowSize;
    }
}

CutLayer::CutLayer(QObject *parent) : RegularLayer(parent) { setLayerType(LayerType::Cut); }
CutLayer::CutLayer(const CutLayer &other) = default;
CutLayer &CutLayer::operator=(const CutLayer &other) = default;

AUXLayer::AUXLayer(QObject *parent) : Layer(parent) { setLayerType(LayerType::AUX); }
AUXLayer::AUXLayer(const AUXLayer &other) = default;
AUXLayer &AUXLayer::operator=(const AUXLayer &other) = default;

QSize AUXLayer::minWindowSize() const { return defaultWindowSize(); }
QSize AUXLayer::maxWindowSize() const { return defaultWindowSize(); }

QSize AUXLayer::defaultWindowSize() const {
    const auto screen = ownerScreen().lock();
    return screen == nullptr ? Constants::Layer::minWindowSize
                             : Helper::sSize2QSize(Helper::qRect2SRect(screen->realRect()));
}

BKGLayer::BKGLayer(QObject *parent) : Layer(parent) { setLayerType(LayerType::BKG); }
BKGLayer::BKGLayer(const BKGLayer &other) = default;
BKGLayer &BKGLayer::operator=(const BKGLayer &other) = default;

LogoLayer::LogoLayer(QObject *parent) : Layer(parent) { setLayerType(LayerType::Logo); }
LogoLayer::LogoLayer(const LogoLayer &other) = default;
LogoLayer &LogoLayer::operator=(const LogoLayer &other) = default;

MVRLayer::MVRLayer(QObject *parent) : Layer(parent) { setLayerType(LayerType::MVR); }
MVRLayer::MVRLayer(const MVRLayer &other) = default;
MVRLayer &MVRLayer::operator=(const MVRLayer &other) = default;

QSize MVRLayer::layerMinimumSize(QSize sourceVaildSize) {
    const auto least = [](int length) {
        return truncated(std::ceil(1.0 + (length - 1.0) / Constants::Layer::mvrLayerSizeRatio));
    };
    return Constants::Layer::minWindowSize.expandedTo(
        {least(sourceVaildSize.width()), least(sourceVaildSize.height())});
}

QSize MVRLayer::layerMinimumSize(const std::weak_ptr<Input> &wInput) {
    const auto input = wInput.lock();
    InterfaceConfig::ConnectorInfo info;
    // The lookup logs a type that isn't there.
    if (input == nullptr || !InterfaceConfig::instance()->findConnectorInfo(
                                input->capacity(), Enum::Interface::InterfaceType::Input, input->connectorType(), info))
        return Constants::Layer::minWindowSize;
    const QSize largest = info.m_sizeMaxResolution;
    return {largest.width() / Constants::Layer::mvrLayerSizeRatio,
            largest.height() / Constants::Layer::mvrLayerSizeRatio};
}

QSize MVRLayer::minWindowSize() const { return layerMinimumSize(sourceValidSize()); }

QSize MVRLayer::maxWindowSize() const {
    const auto screen = ownerScreen().lock();
    if (screen == nullptr || screen->owerDevice().expired())
        return {};
    const QSize window = screen->mosaicWindowSize();
    const auto shown = sourceScreen();
    return shown == nullptr ? window : window.boundedTo(shown->mosaicWindowSize());
}

QString MVRLayer::name() const { return sourceName(); }

} // namespace Quorix::BizModel
