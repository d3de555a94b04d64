#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>

#include <QDebug>

namespace Quorix::BizModel {

void Device::setDeviceOnlineFlag(const bool &bIsOnline) {
    const bool isOnline = bIsOnline;
    qDebug().noquote() << QStringLiteral("%1 device online status changed,last ").arg(ipMacSn()) << m_bIsOnline.load()
                       << "Cur status" << isOnline;
    if (m_bIsOnline.exchange(isOnline) == isOnline)
        return;
    if (!isOnline) {
        resetDeviceParam();
        updateInterfaceStatus();
        m_bIsSyncSucess = false;
    }
    Q_EMIT signalOnlineChanged();
}

bool Device::onlineFlag() const { return m_bIsOnline; }

void Device::setOperationStatus(Enum::Device::OperationStatus status) {
    if (assign(m_detailRWLock, m_detail.general.status, toInt(status)))
        Q_EMIT signalOperationStatusChanged();
}

Enum::Device::OperationStatus Device::operationStatus() {
    return static_cast<Enum::Device::OperationStatus>(copyOf(m_detailRWLock, m_detail.general.status));
}

void Device::setDeviceTotalProcess(int process) {
    if (assign(m_iDeviceTotalProcess, process))
        Q_EMIT signalDeviceLoadProcessChanged();
}

int Device::deviceTotalProgress() { return m_iDeviceTotalProcess; }

void Device::setDeviceLoadFileTotalNum(int number) { m_iLoadFileTotalNum = number; }

int Device::loadFileTotalNum() { return m_iLoadFileTotalNum; }

void Device::setCurrentLoadIndex(int index) {
    if (assign(m_iCurrentIndex, index))
        Q_EMIT signalDeviceLoadProcessChanged();
}

int Device::currentLoadIndex() { return m_iCurrentIndex; }

bool Device::startTake() {
    const std::scoped_lock guard(m_bIsTakingMutex);
    if (!m_bIsOnline)
        return true;
    const bool isStarted = !m_bIsTaking;
    m_bIsTaking = true;
    return isStarted;
}

bool Device::endTake() {
    const std::scoped_lock guard(m_bIsTakingMutex);
    const bool isEnded = m_bIsTaking || !m_bIsOnline;
    m_bIsTaking = false;
    return isEnded;
}

bool Device::isTaking() {
    const std::scoped_lock guard(m_bIsTakingMutex);
    return m_bIsOnline && m_bIsTaking;
}

bool Device::isSyncDataSuccess() { return m_bIsSyncSucess; }

void Device::setSyncDataSuccess(bool isSuccess) { m_bIsSyncSucess = isSuccess; }

bool Device::autoSyncDataEnabled() { return m_autoSyncDataEnable; }

void Device::setAutoSyncDataEnabled(bool isEnabled) { m_autoSyncDataEnable = isEnabled; }

bool Device::isDeviceUpgrading() { return m_isDeviceUpgrading; }

void Device::setIsDeviceUpgrading(bool isUpgrading) { m_isDeviceUpgrading = isUpgrading; }

bool Device::isNeedRepaintPreset() { return m_isNeedRepaintPreset; }

void Device::setIsNeedRepaintPreset(bool isNeeded) { m_isNeedRepaintPreset = isNeeded; }

bool Device::isMultiScreens() { return copyOf(m_detailRWLock, m_bIsMuliScreens); }

void Device::setMultiScreens(bool isMultiple) {
    if (assign(m_detailRWLock, m_bIsMuliScreens, isMultiple))
        Q_EMIT signalScreenMultilStateChanged();
}

void Device::setLayerScreenViewDragMode(QGraphicsView::DragMode mode) { m_dragMode = mode; }

QGraphicsView::DragMode Device::layerScreenViewDragMode() { return m_dragMode; }

Enum::Device::DevicResetOrder Device::deviceResetOrder() { return m_restOrder; }

void Device::restoreDefLayout() { Q_EMIT signalRestoreDefLayout(); }

} // namespace Quorix::BizModel
