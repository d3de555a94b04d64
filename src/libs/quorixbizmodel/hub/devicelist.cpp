#include <quorixbizmodel/hub/devicelist.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/persistence/savedevicedatathread.h>
#include <quorixbizmodel/screens/screen.h>

#include <QDebug>

#include <algorithm>

namespace Quorix::BizModel {

namespace {

constexpr quint16 model(Enum::Device::Type type) { return static_cast<quint16>(toInt(type)); }

constexpr quint8 echoInputCount = 32;

/// Tile @p place of a frame with @p columns tiles to a row.
QRect tile(int place, int columns, const QSize &size) {
    return {QPoint(size.width() * (place % columns), size.height() * (place / columns)), size};
}

template <Enum::Device::Type>
QRect getEchoVideoRect(const quint8 &nInputIndex);

template <>
QRect getEchoVideoRect<Enum::Device::Type::Larch>(const quint8 &nInputIndex) {
    return nInputIndex < echoInputCount ? tile(nInputIndex, 8, {240, 270}) : QRect();
}

template <>
QRect getEchoVideoRect<Enum::Device::Type::AlderMax>(const quint8 &nInputIndex) {
    // The row of inputs 24 to 27 stays short: 28 to 31 stand together in the last one.
    constexpr int lastRowFirstInput = 28;
    constexpr int lastRowFirstPlace = 30;
    const int place =
        nInputIndex < lastRowFirstInput ? nInputIndex : nInputIndex - lastRowFirstInput + lastRowFirstPlace;
    return nInputIndex < echoInputCount ? tile(place, 6, {320, 180}) : QRect();
}

/// True if the first screen is alive and belongs to @p device; a screen without an owner belongs to nobody.
bool belongTo(const std::shared_ptr<Device> &device, const QList<std::weak_ptr<Screen>> &screens) {
    const auto first = screens.isEmpty() ? nullptr : screens.front().lock();
    return first != nullptr && device != nullptr && first->owerDevice().lock() == device;
}

} // namespace

DeviceList *DeviceList::instance() {
    static DeviceList hub;
    return &hub;
}

DeviceList::DeviceList()
    : m_modelIdForGetEchoVideoRectCB{
          {model(Enum::Device::Type::Larch), getEchoVideoRect<Enum::Device::Type::Larch>},
          {model(Enum::Device::Type::BirchMini), getEchoVideoRect<Enum::Device::Type::Larch>},
          {model(Enum::Device::Type::AlderMax), getEchoVideoRect<Enum::Device::Type::AlderMax>},
          {model(Enum::Device::Type::Birch), getEchoVideoRect<Enum::Device::Type::AlderMax>},
      } {
    registerMetaTypes();
}

DeviceList::~DeviceList() {
    // A save that still runs needs the registry.
    m_pSaveDeviceDataThread.reset();
}

std::weak_ptr<Device> DeviceList::append(const std::shared_ptr<Device> &pDevice) {
    if (pDevice == nullptr)
        return {};
    moveToModelThread(*pDevice);
    // The hub's own reference: a listener may change the caller's.
    std::shared_ptr<Device> device;
    {
        const std::scoped_lock guard(m_listDeviceMutex);
        if (std::find(m_listDevice.begin(), m_listDevice.end(), pDevice) != m_listDevice.end())
            return pDevice;
        m_listDevice.push_back(pDevice);
        device = m_listDevice.back();
    }
    Q_EMIT signalDeviceAppended(device);
    createConnects(*device);
    return device;
}

std::weak_ptr<Device> DeviceList::append(const quint16 & /*nModelID*/) { return append(nullptr); }

void DeviceList::remove(const std::shared_ptr<Device> &pDevice) {
    std::shared_ptr<Device> device;
    {
        const std::scoped_lock guard(m_listDeviceMutex);
        device = takePointer(m_listDevice, pDevice.get());
    }
    if (device == nullptr)
        return;
    Q_EMIT signalDeviceRemoved(device);
    // Asked only now: a listener that has activated another device keeps its choice.
    if (m_pActivedDevice.lock() != device)
        return;
    const auto left = deviceList();
    setActivtedDevice(left.empty() ? nullptr : left.front(), false);
}

void DeviceList::clear() {
    std::list<std::shared_ptr<Device>> dropped;
    {
        const std::scoped_lock guard(m_listDeviceMutex);
        dropped.swap(m_listDevice);
    }
    if (dropped.empty())
        return;
    dropped.clear();
    Q_EMIT signalDeviceCleared();
}

std::list<std::shared_ptr<Device>> DeviceList::deviceList() const {
    const std::scoped_lock guard(m_listDeviceMutex);
    return m_listDevice;
}

QList<std::weak_ptr<Device>> DeviceList::devices() const { return weakReferences(deviceList()); }

uint8_t DeviceList::count() const {
    const std::scoped_lock guard(m_listDeviceMutex);
    return static_cast<uint8_t>(m_listDevice.size());
}

std::weak_ptr<Device> DeviceList::findDevice(const QString &ip, const QString &sn) {
    return findFirst(deviceList(), [&](Device &device) { return device.IPAddress() == ip && device.sn() == sn; });
}

std::weak_ptr<Device> DeviceList::findDevice(const QString &ip, const QString &mac, const QString &sn) {
    if (Helper::isEmptyMac(mac) && Helper::isEmptySn(sn))
        return findDeviceByIpMacSn(ip, mac, sn);
    return findFirst(deviceList(), [&](Device &device) { return device.MAC() == mac && device.sn() == sn; });
}

std::weak_ptr<Device> DeviceList::findDeviceByIpMacSn(const QString &ip, const QString &mac, const QString &sn) {
    return findFirst(deviceList(), [&](Device &device) {
        return device.MAC() == mac && device.sn() == sn && device.IPAddress() == ip;
    });
}

std::weak_ptr<Device> DeviceList::findDeviceByIP(const QString &ip) {
    return findFirst(deviceList(), [&](Device &device) { return device.IPAddress() == ip; });
}

std::weak_ptr<Device> DeviceList::findDeviceByName(const QString &name) {
    return findFirst(deviceList(), [&](Device &device) { return device.name() == name; });
}

bool DeviceList::isDeviceIPExist(const QString &ip) { return !findDeviceByIP(ip).expired(); }

bool DeviceList::isDeviceNameExist(const QString &name) { return !findDeviceByName(name).expired(); }

void DeviceList::setActivtedDevice(const std::weak_ptr<Device> &pDevice, bool isEmit) {
    const auto device = pDevice.lock();
    const bool isOther = device != m_pActivedDevice.lock();
    if (isOther)
        m_pActivedDevice = device;
    if (device != nullptr)
        device->setIsNeedRepaintPreset(true);
    if (isOther && device != nullptr)
        for (const auto &file : livingReferences(device->presets()))
            static_cast<Preset &>(*file).setIsNeedRepaint(true);
    if (isOther || isEmit)
        Q_EMIT signalActivedDeviceChanged();
}

std::weak_ptr<Device> DeviceList::activedDevice() { return m_pActivedDevice; }

void DeviceList::appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType type) {
    const MutexGuard guard(m_screenUpdateTypeMutex);
    m_screenUpdateType = maskOf(m_screenUpdateType, type);
}

void DeviceList::clearDeviceScreenLayersChangedType() { takeScreenUpdateType(); }

int DeviceList::takeScreenUpdateType() {
    const MutexGuard guard(m_screenUpdateTypeMutex);
    return std::exchange(m_screenUpdateType, 0);
}

void DeviceList::notifyDeviceScreenLayersChanged(const QList<std::weak_ptr<Screen>> &screens) {
    if (belongTo(m_pActivedDevice.lock(), screens))
        emitDeviceScreenLayersChanged(screens);
}

void DeviceList::notifyDeviceScreenLayersUpdate(const QList<std::weak_ptr<Screen>> &screens) {
    if (belongTo(m_pActivedDevice.lock(), screens))
        emitDeviceScreenLayersUpdate(screens);
}

void DeviceList::emitDeviceScreenLayersChanged(const QList<std::weak_ptr<Screen>> &screens) {
    emitGathered(&DeviceList::signalDeviceScreenLayersChanged, screens);
}

void DeviceList::emitDeviceScreenLayersUpdate(const QList<std::weak_ptr<Screen>> &screens) {
    emitGathered(&DeviceList::signalDeviceScreenLayersUpdate, screens);
}

void DeviceList::emitGathered(void (DeviceList::*signal)(const QList<std::weak_ptr<Screen>> &, int),
                              const QList<std::weak_ptr<Screen>> &screens) {
    const int updateType = takeScreenUpdateType();
    if (updateType == 0) {
        qWarning() << "Notify to update the layer interface failed" << updateType;
        return;
    }
    qDebug() << "Notify to update the layer interface" << updateType;
    Q_EMIT std::invoke(signal, this, screens, updateType);
}

void DeviceList::setPresetOperateMode(Enum::Preset::PresetOptMode mode) { m_PresetOperateMode = mode; }

Enum::Preset::PresetOptMode DeviceList::presetOperateMode() { return m_PresetOperateMode; }

void DeviceList::updateResourceShow(bool isVisible) {
    if (assign(m_bResourceShow, isVisible))
        Q_EMIT signalResourceShowStatusChanged();
}

bool DeviceList::resourceShowStatus() { return m_bResourceShow; }

void DeviceList::setIsCompatibleUpgrading(bool isUpgrading) {
    if (m_compatibleUpgrading != isUpgrading)
        m_compatibleUpgrading = isUpgrading;
}

bool DeviceList::isCompatibleUpgrading() { return m_compatibleUpgrading; }

void DeviceList::initSaveDeviceDataThread(QString filePath) {
    if (m_pSaveDeviceDataThread == nullptr)
        m_pSaveDeviceDataThread = std::make_unique<SaveDeviceDataThread>(std::move(filePath), nullptr);
}

SaveDeviceDataThread *DeviceList::saveDeviceDataThread() { return m_pSaveDeviceDataThread.get(); }

QRect DeviceList::echoVideoRect(quint16 eDeviceModelId, const quint8 &nInputIndex) {
    const auto row = m_modelIdForGetEchoVideoRectCB.find(eDeviceModelId);
    if (row == m_modelIdForGetEchoVideoRectCB.end()) {
        qWarning() << "Get echo input video rect has failed! The device modelId=" << eDeviceModelId
                   << " dosn't support.";
        return {};
    }
    return row->second(nInputIndex);
}

} // namespace Quorix::BizModel
