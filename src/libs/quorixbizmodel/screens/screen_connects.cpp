#include <quorixbizmodel/screens/screen.h>

#include <quorixbizmodel/device/device.h>

#include <QDebug>

#include <utility>

namespace Quorix::BizModel {

void Screen::createConnects(std::weak_ptr<Device> device) {
    if (device.expired())
        return;
    const Relay join(this, m_relays, std::move(device), weak_from_this());
    // No row for what is of no use beyond the screen: unit, selection, picture, test pattern, order, T-bar.
    join(&Screen::signalScreenNameChanged, &DeviceList::signalScreenNameChanged);
    join(&Screen::signalScreenIndexChanged, &DeviceList::signalScreenIndexChanged);
    join(&Screen::signalOutputAdded, &DeviceList::signalOutputAdded);
    join(&Screen::signalOutputRemoved, &DeviceList::signalScreenOutputRemoved);
    join(&Screen::signalOutputBorderFuseChanged, &DeviceList::signalScreenOutputBorderFuseChanged);
    join(&Screen::signalOutputAOIChanged, &DeviceList::signalScreenOutputAOIChanged);
    join(&Screen::signalOutputPosChanged, &DeviceList::signalScreenOutputPosChanged);
    // The layers of the multiviewer that show this screen follow its shape before anyone hears of it.
    join.call(&Screen::signalMosaicWindowRectChanged, [](const auto &owner, const auto &screen) {
        if (const auto living = owner.lock())
            living->updateLayerAspectRatioType(screen);
        Q_EMIT DeviceList::instance()->signalScreenMosaicWindowRectChanged(owner, screen);
    });
    join(&Screen::signalActivedOutputChanged, &DeviceList::signalScreenActivedOutputChanged);
    join(&Screen::signalPhysicalSizeChanged, &DeviceList::signalScreenPhysicalSizeChanged);
    join(&Screen::signalFreezeChanged, &DeviceList::signalScreenPGMFreezeChanged);
    join(&Screen::signalGridChanged, &DeviceList::signalScreenSpliceGridChanged);
    join(&Screen::signalSpliceModeChanged, &DeviceList::signalScreenSpliceModeChanged);
    join(&Screen::signalFTBchanged, &DeviceList::signalScreenFTBChanged);
    join(&Screen::signalSwitchEffectchanged, &DeviceList::signalScreenEffectChanged);
    join(&Screen::signalPGMEditEnableChanged, &DeviceList::signalScreenPGMEditChanged);
    join(&Screen::singalScreenStateChanged, &DeviceList::signalScreenStateChanged);
    join(&Screen::signalPVWLayerAdded, &DeviceList::signalPVWLayerAdded);
    join(&Screen::signalPGMLayerAdded, &DeviceList::signalPGMLayerAdded);
    join(&Screen::signalLayerAdded, &DeviceList::signalLayerAdded);
    join(&Screen::signalSelectedLayersChanged, &DeviceList::signalSelectedLayersChanged);
    // Removed layers are looked for in logs, so each one leaves a line.
    join.call(&Screen::signalLayerRemoved, [](const auto &owner, const auto &screen, const auto &layer) {
        qInfo() << " emit DeviceList::instance()->signalLayerRemoved";
        Q_EMIT DeviceList::instance()->signalLayerRemoved(owner, screen, layer);
    });
    join(&Screen::signalPVWLayerRemoved, &DeviceList::signalPVWLayerRemoved);
    join(&Screen::signalPGMLayerRemoved, &DeviceList::signalPGMLayerRemoved);
    join(&Screen::signalBackGroundColorChanged, &DeviceList::signalMVRScreenBackgroundColorChanged);
    join(&Screen::signalOperationTargetChanged, &DeviceList::signalScreenOperationTargetChanged);
    join(&Screen::signalScreenNovsStatusChanged, &DeviceList::signalScreenNovsStatusChanged);
}

} // namespace Quorix::BizModel
