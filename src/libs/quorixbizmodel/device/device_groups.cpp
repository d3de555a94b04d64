/// Device groups: what a device stores of its group, and which devices of the hub report the same one.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/hub/devicelist.h>

namespace Quorix::BizModel {

namespace {

using Group = ProtoModel::Device::s_DeviceGroupInfoBody;
using Devices = std::vector<std::shared_ptr<Device>>;

bool isInNoGroup(const QString &id) { return id == Constants::Device::defaultDeviceGroupId; }

/// The devices that @p matches accepts, in the order of a key.
template <class Matches, class Key>
QList<std::weak_ptr<Device>> devicesIf(Matches matches, Key key) {
    Devices devices;
    for (const auto &device : DeviceList::instance()->deviceList())
        if (matches(*device))
            devices.push_back(device);
    sortByKeyOnce(devices, [&](const auto &device) { return key(*device); });
    return weakReferences(devices);
}

} // namespace

QString Device::groupName() {
    return QString::fromStdString(copyOf(m_deviceGroupInfoRWLock, m_deviceGroupInfo.groupName));
}

QString Device::groupId() { return QString::fromStdString(copyOf(m_deviceGroupInfoRWLock, m_deviceGroupInfo.groupId)); }

bool Device::deviceGroupStatus() { return copyOf(m_deviceGroupInfoRWLock, m_deviceGroupStatus); }

void Device::setGroupText(std::string Group::*field, const QString &text) {
    {
        const WriteGuard guard(m_deviceGroupInfoRWLock);
        if (QString::fromStdString(m_deviceGroupInfo.*field) == text)
            return;
        m_deviceGroupInfo.*field = text.toStdString();
    }
    Q_EMIT signalDeviceGroupInfoChanged();
}

void Device::setDeviceGroupName(const QString &groupName) { setGroupText(&Group::groupName, groupName); }

void Device::setDeviceGroupId(const QString &groupId) { setGroupText(&Group::groupId, groupId); }

void Device::setDeviceGroupStatus(bool status) {
    if (assign(m_deviceGroupInfoRWLock, m_deviceGroupStatus, status))
        Q_EMIT signalDeviceGroupInfoChanged();
}

void Device::updateDeviceGroupInfo(const Group &group) {
    if (!assign(m_deviceGroupInfoRWLock, m_deviceGroupInfo, group))
        return;
    // Counted without the lock, which the count takes on this device, too. A device counts itself by its old status.
    const auto id = QString::fromStdString(group.groupId);
    const bool isMember = !isInNoGroup(id) && DeviceList::instance()->groupDevices(id, true, false).size() <
                                                  Constants::Device::groupDeviceMaxCount;
    {
        const WriteGuard guard(m_deviceGroupInfoRWLock);
        m_deviceGroupStatus = isMember;
    }
    Q_EMIT signalDeviceGroupInfoChanged();
}

void Device::updateDeviceGroupInfo(const ProtoModel::Device::s_DeviceGroupInfoBodyArray &groups) {
    updateDeviceGroupInfo(groups.empty() ? Group() : groups.front());
}

QList<std::weak_ptr<Device>> DeviceList::groupDevices(const QString &groupID, bool isIncludeControled,
                                                      bool isIncludeValidGroup) {
    const auto isMember = [&](Device &device) {
        return (isIncludeValidGroup || device.deviceGroupStatus()) &&
               (isIncludeControled || !device.onlineFlag() || device.isMasterControl()) && device.groupId() == groupID;
    };
    return devicesIf(isMember, [](Device &device) { return Helper::IPAddressToInt(device.IPAddress()); });
}

QList<std::weak_ptr<Device>> DeviceList::groupDevices(const std::weak_ptr<Device> &wDevice, bool isIncludeControled,
                                                      bool isIncludeValidGroup) {
    const auto device = wDevice.lock();
    if (device == nullptr)
        return {};
    const auto id = device->groupId();
    if (isInNoGroup(id) || !device->deviceGroupStatus())
        return {device};
    return groupDevices(id, isIncludeControled, isIncludeValidGroup);
}

QList<std::weak_ptr<Device>> DeviceList::unGroupDevices() {
    const auto isAlone = [](Device &device) {
        const auto id = device.groupId();
        return id.isEmpty() || isInNoGroup(id);
    };
    return devicesIf(isAlone, [](Device &device) { return device.IPAddress(); });
}

QList<std::weak_ptr<Preset>> DeviceList::findGroupPresets(const std::weak_ptr<Device> &wDevice, uint8_t fileId) {
    QList<std::weak_ptr<Preset>> presets;
    for (const auto &device : livingReferences(groupDevices(wDevice, false, false)))
        if (auto preset = std::dynamic_pointer_cast<Preset>(device->findPreset(fileId).lock()))
            presets.append(preset);
    return presets;
}

} // namespace Quorix::BizModel
