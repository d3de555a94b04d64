#include <quorixbizmodel/layers/layer.h>

#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/screens/screen.h>

namespace Quorix::BizModel {

void Layer::createConnects(std::weak_ptr<Screen> screen) {
    const auto owner = screen.lock();
    const auto device = owner == nullptr ? std::weak_ptr<Device>() : owner->owerDevice();
    if (device.expired())
        return;
    const Relay join(this, m_relays, device, screen, weak_from_this());
    // The names of these two cross: the sender goes out as the layer's window, the rectangles as the window.
    join(&Layer::signalWindowRectChanged, &DeviceList::signalLayerWindowRectChanged);
    join(&Layer::signalLayerWindowRectChanged, &DeviceList::signalWindowRectChanged);
    join(&Layer::signalSourceInfoChanged, &DeviceList::signalLayerSourceChanged);
    join(&Layer::signalZOrderChanged, &DeviceList::signalLayerZorderChanged);
    join(&Layer::signalNameChanged, &DeviceList::signalLayerNameChanged);
    join(&Layer::signalBackgroundChanged, &DeviceList::signalLayerBackgroundChanged);
    join(&Layer::signalFreezeStatusChanged, &DeviceList::signalLayerFreezeChanged);
    join(&Layer::signalMonochromeStatusChanged, &DeviceList::signalLayerMonochromeChanged);
    join(&Layer::signalInverseStatusChanged, &DeviceList::signalLayerInverseChanged);
    join(&Layer::signalFlipTypeChanged, &DeviceList::signalLayerFlipTypeChanged);
    join(&Layer::signalSourceCropChanged, &DeviceList::signalLayerCropChanged);
    join(&Layer::signalUMDChanged, &DeviceList::signalLayerUMDChanged);
    join(&Layer::signalMaskChanged, &DeviceList::signalLayerMaskChanged);
    join(&Layer::signalTestColorChanged, &DeviceList::signalLayerColorChanged);
    join(&Layer::signalOpacityChanged, &DeviceList::signalLayerOpacityChanged);
    // No sender is known, though the hub's signal has one.
    join.call(&Layer::signalWindowWHRatioLockedStateChanged, [](const auto &...owners) {
        Q_EMIT DeviceList::instance()->signalWindowWHRatioLockedStateChanged(owners..., {});
    });
    join(&Layer::signalWidthHeightRatioChanged, &DeviceList::signalLayerWindowWHRatioChanged);
    join(&Layer::signalWidthHeightRatioTypeChanged, &DeviceList::signalLayerWindowWHTypeChanged);
    join(&Layer::signalBorderChanged, &DeviceList::signalLayerBorderChanged);
    join(&Layer::signalBorderColorChanged, &DeviceList::signalLayerBorderColorChanged);
    join(&Layer::signalUMDEnableChanged, &DeviceList::signalLayerUMDEnableChanged);
    join(&Layer::signalUMDColorChanged, &DeviceList::signalLayerUMDColorChanged);
    join(&Layer::signalCutAndFillChanged, &DeviceList::signalCutAndFillChanged);
    join(&Layer::signalLayerSaturationChanged, &DeviceList::signalLayerSaturationChanged);
    join(&Layer::signalLayerHueChanged, &DeviceList::signalLayerHueChanged);
    join(&Layer::signalLayerBrightnessChanged, &DeviceList::signalLayerBrightnessChanged);
    join(&Layer::signalLayerContrastChanged, &DeviceList::signalLayerContrastChanged);
}

} // namespace Quorix::BizModel
