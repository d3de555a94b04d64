#include <quorixbizmodel/topology/interface.h>

#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/device/device.h>

namespace Quorix::BizModel {

namespace {

using Timing = ProtoModel::s_TimingDetailBody;

QSize frameSize(const Timing &timing) { return {timing.horizontal.addTime, timing.vertical.addTime}; }
QSize totalSize(const Timing &timing) { return {timing.horizontal.totalTime, timing.vertical.totalTime}; }
float rate(const Timing &timing) { return Helper::protoRate2ModelRate(timing.refresh); }
bool isInterlaced(const Timing &timing) { return Helper::int2Bool(timing.interlaced); }

} // namespace

void Interface::setPresetTiming(Timing timing) {
    if (!assign(m_detailRWLock, m_detail.presetTiming, timing))
        return;
    Q_EMIT signalPresetFrameTimingChanged();
    updateCrop();
    updateLayerInputCrop();
}

void Interface::setPresetTiming(int width, int height, float rate) {
    Timing timing;
    if (!Helper::calcTimingbyModel(&timing, width, height, rate))
        return;
    timing.refresh = Helper::modelRate2ProtoRate(rate);
    setPresetTiming(timing);
}

Interface::Timing Interface::presetTiming() const { return copyOf(m_detailRWLock, m_detail.presetTiming); }
QSize Interface::presetFrameRate() const { return frameSize(presetTiming()); }
QSize Interface::presetTotalFrameRate() const { return totalSize(presetTiming()); }
float Interface::presetRefreshRate() const { return rate(presetTiming()); }
bool Interface::presetInterlacing() const { return isInterlaced(presetTiming()); }

void Interface::setActualTiming(Timing timing) {
    const auto old = exchanged(m_detailRWLock, m_detail.actualTiming, timing);
    if (!old)
        return;
    setOverLoad();
    tellConnector();
    // A change of format between two signals is none: an input that shows a picture goes on showing one.
    if (isSignal(*old) != isSignal(timing))
        Q_EMIT signalInterfaceSignalChanged();
    updateCrop();
    updateLayerInputCrop();
    // Last, so that its listeners find the crop that fits the new frame.
    Q_EMIT signalInterfaceActualTimingChanged();
}

Interface::Timing Interface::actualTiming() const { return copyOf(m_detailRWLock, m_detail.actualTiming); }
QSize Interface::getFrameRate() const { return frameSize(actualTiming()); }
QSize Interface::actualTimingTotalFrameRate() const { return totalSize(actualTiming()); }
float Interface::getRefreshRate() const { return rate(actualTiming()); }
bool Interface::actualInterlacing() const { return isInterlaced(actualTiming()); }

QSize Interface::validSizeUnderActive() const { return frameSize(valid(m_detail.actualTiming, m_detail.presetTiming)); }

QSize Interface::validTotalSizeUnderActive() const {
    return totalSize(valid(m_detail.actualTiming, m_detail.presetTiming));
}

float Interface::validRateUnderActive() const { return rate(valid(m_detail.actualTiming, m_detail.presetTiming)); }

bool Interface::validInterlaced() const { return isInterlaced(valid(m_detail.actualTiming, m_detail.presetTiming)); }

void Interface::setOverLoad() {
    const bool isOverLoad = checkOverLoadStatus();
    if (assign(m_detailRWLock, m_bOverLoad, isOverLoad))
        Q_EMIT signalInterfaceOverLoadChanged();
}

bool Interface::isOverLoad() const { return copyOf(m_detailRWLock, m_bOverLoad); }

void Interface::tellConnector() {
    const auto device = owerDevice().lock();
    if (device == nullptr)
        return;
    const auto id = interfaceFullId();
    device->setConnectorActived(id.slotId, id.connectorId, isActive());
    device->setConnectorOverLoad(id.slotId, id.connectorId, isOverLoad());
}

} // namespace Quorix::BizModel
