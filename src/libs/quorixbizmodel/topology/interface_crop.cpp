#include <quorixbizmodel/topology/interface.h>

#include <quorixbizmodel/common/crop.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>

#include <tuple>

namespace Quorix::BizModel {

template <class Change>
void Interface::changeCrop(Change change, const QString &sender) {
    {
        // Read, changed and stored in one go: the user's crop and a report's new frame may come at the same time.
        const WriteGuard guard(m_detailRWLock);
        auto changed = m_detail.crop;
        change(changed);
        if (!assign(m_detail.crop, changed))
            return;
    }
    Q_EMIT signalInterfaceCropChanged(sender);
}

void Interface::setCrop(const ProtoModel::s_CropDetailBody &crop, const QString &sender) {
    changeCrop([&](auto &present) { present = crop; }, sender);
}

ProtoModel::s_CropDetailBody Interface::crop() const { return copyOf(m_detailRWLock, m_detail.crop); }

ProtoModel::s_CropDetailBody Interface::cropDetailBody() const { return crop(); }

void Interface::setCropEnable(bool isEnabled) {
    const auto change = [isEnabled](auto &present) {
        // A reported 2 is on, as 1 is.
        if (Helper::int2Bool(present.enable) != isEnabled)
            present.enable = Helper::bool2Int(isEnabled);
    };
    changeCrop(change, {});
}

bool Interface::cropEnable() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.crop.enable)); }

QRect Interface::cropRect() const { return Helper::sRect2QRect(cropProtoRect()); }

ProtoModel::s_Rect Interface::cropProtoRect() const { return crop(); }

void Interface::setCropRect(const QRect &rect, const QString &sender) {
    const QSize frame = validSizeUnderActive();
    changeCrop([&](auto &present) { placeCrop(present, rect, frame); }, sender);
}

void Interface::setCropLocked(bool isLocked) { std::ignore = assign(m_detailRWLock, m_cropLocked, isLocked); }

bool Interface::isCropLocked() const { return copyOf(m_detailRWLock, m_cropLocked); }

QRect Interface::calcInterceptRatio(const QRect &rect, const QSize &size) const { return cropRatioOf(rect, size); }

void Interface::updateCrop() {
    const QSize frame = validSizeUnderActive();
    changeCrop([&](auto &present) { fitCrop(present, frame); }, {});
}

QRect Interface::validRectUnderCrop() const {
    const auto present = crop();
    return Helper::int2Bool(present.enable) ? Helper::sRect2QRect(present) : frameRect(validSizeUnderActive());
}

template <class Action>
void Interface::forShowingLayers(Action action) {
    const auto device = owerDevice().lock();
    if (device == nullptr || type() != toInt(InterfaceType::Input))
        return;
    const auto layers = device->layersBySource(interfaceId(), Enum::Layer::SourceType::Input,
                                               toInt(Enum::Screen::ScreenType::AllScreenType),
                                               toInt(Enum::Layer::LayerType::AllLayerType));
    for (const auto &entry : layers)
        if (const auto layer = entry.lock())
            action(*layer);
}

void Interface::updateLayerInputCrop() {
    const QSize frame = validSizeUnderActive();
    forShowingLayers([&](Layer &layer) { layer.updateLayerCropRatio(interfaceId(), frame); });
}

void Interface::resetLayerInputCrop() {
    forShowingLayers([&](Layer &layer) {
        if (layer.souceCropEnable())
            layer.resetLayerCropRatio(weak_from_this());
    });
}

} // namespace Quorix::BizModel
