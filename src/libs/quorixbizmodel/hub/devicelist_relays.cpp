#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/hub/devicelist.h>

#include <functional>

namespace Quorix::BizModel {

namespace {

/// The preset that a file is, or an empty reference.
std::shared_ptr<Preset> asPreset(const std::shared_ptr<File> &file) { return std::dynamic_pointer_cast<Preset>(file); }

/// Joins signals of a device to slots of the hub, one row for each; a pair that is joined already stays single.
struct Joiner {
    const Device &device;
    const DeviceList &hub;

    template <class Signal, class Slot>
    void operator()(Signal signal, Slot slot, Qt::ConnectionType type = Qt::AutoConnection) const {
        QObject::connect(&device, signal, &hub, slot, static_cast<Qt::ConnectionType>(type | Qt::UniqueConnection));
    }
};

} // namespace

std::weak_ptr<Device> DeviceList::sendingDevice() const {
    auto *device = qobject_cast<Device *>(sender());
    return device == nullptr ? std::weak_ptr<Device>() : device->weak_from_this();
}

template <class... H, class... A>
void DeviceList::repeat(void (DeviceList::*signal)(const std::weak_ptr<Device> &, H...), const A &...arguments) {
    if (const auto device = sendingDevice(); !device.expired())
        Q_EMIT std::invoke(signal, this, device, arguments...);
}

void DeviceList::repeat(void (DeviceList::*signal)()) {
    if (!sendingDevice().expired())
        Q_EMIT std::invoke(signal, this);
}

void DeviceList::slotDeviceModelIdChanged() { repeat(&DeviceList::signalDeviceModelIdChanged); }
void DeviceList::slotDeviceNetWorkChanged() { repeat(&DeviceList::signalDeviceIPChanged); }
void DeviceList::slotDeviceMasterControlStatusChanged() { repeat(&DeviceList::signalDeviceMasterControlStatusChanged); }
void DeviceList::slotDeviceNameChanged() { repeat(&DeviceList::signalDeviceNameChanged); }
void DeviceList::slotDeviceOnlineChanged() { repeat(&DeviceList::signalDeviceOnlineStatusChanged); }
void DeviceList::slotGenlockSignalChanged() { repeat(&DeviceList::signalGenlockSignalChanged); }
void DeviceList::slotScreenGenlockSignalChanged() { repeat(&DeviceList::signalScreenGenlockSignalChanged); }
void DeviceList::slotGenlockConfigChanged() { repeat(&DeviceList::signalGenlockConfigChanged); }
void DeviceList::slotOperationStatusChanged() { repeat(&DeviceList::signalOperationStatusChanged); }
void DeviceList::slotDeviceLoadProcessChanged() { repeat(&DeviceList::signalDeviceLoadProcessChanged); }
void DeviceList::slotSubCardAdded(const std::weak_ptr<Subcard> &subcard) {
    repeat(&DeviceList::signalSubCardAdded, subcard);
}
void DeviceList::slotSubCardRemoved(const std::shared_ptr<Subcard> &subcard) {
    repeat(&DeviceList::signalSubCardRemoved, subcard);
}
void DeviceList::slotSubCardInfoChanged(int slotId) { repeat(&DeviceList::signalSubCardInfoChanged, slotId); }
void DeviceList::slotMVRStatusChanged() { repeat(&DeviceList::signalMVRStatusChanged); }
void DeviceList::slotSelectedScreenChanged() { repeat(&DeviceList::signalSelectedScreensChanged); }
void DeviceList::slotOutputMappingStatusChanged() { repeat(&DeviceList::signalOutputMappingStatusChanged); }
void DeviceList::slotOutputMappingTypeChanged() { repeat(&DeviceList::signalOutputMappingTypeChanged); }
void DeviceList::slotDeviceGroupInfoChanged() { repeat(&DeviceList::signalDeviceGroupInfoChanged); }
void DeviceList::slotDeviceNovsStatusChanged() { repeat(&DeviceList::signalDeviceNovsStatusChanged); }
void DeviceList::slotInterfaceRelationEnableChanged() { repeat(&DeviceList::signalInterfaceRelationEnableChanged); }
void DeviceList::slotInterfaceRelationPairsChanged() { repeat(&DeviceList::signalInterfaceRelationPairsChanged); }
void DeviceList::slotInputAdded(const std::weak_ptr<Input> &input) { repeat(&DeviceList::signalInputAdded, input); }
void DeviceList::slotInputRemoved(const std::shared_ptr<Input> &input) {
    repeat(&DeviceList::signalInputRemoved, input);
}
void DeviceList::slotSelectedInputChanged() { repeat(&DeviceList::signalSelectedInputChanged); }
void DeviceList::slotOutputRemoved(const std::shared_ptr<Output> &output) {
    repeat(&DeviceList::signalDeviceOutputRemoved, output);
}
void DeviceList::slotSelectedOutputChanged() { repeat(&DeviceList::signalSelectedOutputChanged); }
void DeviceList::sloScreenAdded(const std::weak_ptr<Screen> &screen) { repeat(&DeviceList::signalScreenAdded, screen); }
void DeviceList::sloScreenMoved(const std::weak_ptr<Screen> &source, const std::weak_ptr<Screen> &destination) {
    repeat(&DeviceList::signalScreenMoved, source, destination);
}
void DeviceList::sloScreenRemoved(const std::shared_ptr<Screen> &screen) {
    repeat(&DeviceList::signalScreenRemoved, screen);
}
void DeviceList::sloActivedScreenChanged(const std::weak_ptr<Screen> &screen) {
    repeat(&DeviceList::signalActivedScreenChanged, screen);
}
void DeviceList::sloScreenMultilStateChanged() { repeat(&DeviceList::signalScreenMultilStateChanged); }
void DeviceList::slotViewScreenChanged() { repeat(&DeviceList::signalViewingScreensChanged); }
void DeviceList::slotSwapStatusChanged() { repeat(&DeviceList::signalSwapStateChanged); }
void DeviceList::slotRestoreDefLayout() { repeat(&DeviceList::signalRestoreDefLayout); }
void DeviceList::slotLoatToPGMStatusChanged() { repeat(&DeviceList::signalLoadToPGMStateChanged); }
void DeviceList::slotSelectedRegularScreenChanged() { repeat(&DeviceList::signalSelectedRegularScreensChanged); }
void DeviceList::slotSelectedAuxScreenChanged() { repeat(&DeviceList::signalSelectedAUXScreensChanged); }
void DeviceList::slotActivedMVRScreenChanged(const std::weak_ptr<MVRScreen> &screen) {
    repeat(&DeviceList::signalActivedMVRScreenChanged, screen);
}
void DeviceList::slotSelectedMvrScreenChanged() { repeat(&DeviceList::signalSelectedMVRScreensChanged); }
void DeviceList::slotPresetAdded(const std::weak_ptr<File> &file) {
    repeat(&DeviceList::signalPresetAdded, std::weak_ptr<Preset>(asPreset(file.lock())));
}
void DeviceList::slotPresetRemoved(const std::shared_ptr<File> &file) {
    repeat(&DeviceList::signalPresetRemoved, asPreset(file));
}
void DeviceList::slotPresetCleared() { repeat(&DeviceList::signalPresetCleared); }
void DeviceList::slotActivedPresetChanged(const std::weak_ptr<Preset> &preset) {
    repeat(&DeviceList::signalActivedPresetChanged, preset);
}
void DeviceList::slotActivedPresetKeyNoChanged() { repeat(&DeviceList::signalActivedPresetKeyNoChanged); }
void DeviceList::slotKeypadChanged(const std::weak_ptr<File> &file) { repeat(&DeviceList::signalKeypadChanged, file); }
void DeviceList::slotBKGAdded(const std::weak_ptr<Image> &image) { repeat(&DeviceList::signalBKGAdded, image); }
void DeviceList::slotBKGRemoved(const std::shared_ptr<Image> &image) { repeat(&DeviceList::signalBKGRemoved, image); }
void DeviceList::slotLogoAdded(const std::weak_ptr<Image> &image) { repeat(&DeviceList::signalLogoAdded, image); }
void DeviceList::slotLogoRemoved(const std::shared_ptr<Image> &image) { repeat(&DeviceList::signalLogoRemoved, image); }
void DeviceList::slotUserKeyChanged(const std::weak_ptr<File> &file) {
    repeat(&DeviceList::signalUserKeyChanged, file);
}
void DeviceList::slotModifyUserKeyChanged(const std::weak_ptr<File> &file) {
    repeat(&DeviceList::signalModifyUserKeyChanged, file);
}
void DeviceList::slotClearUserKey() { repeat(&DeviceList::signalClearUserKey); }
void DeviceList::slotDeleteUserKey(const std::weak_ptr<File> &file) { repeat(&DeviceList::signalDeleteUserKey, file); }
void DeviceList::slotScreenNovsStatusChanged(const std::weak_ptr<Screen> &screen) {
    repeat(&DeviceList::signalScreenNovsStatusChanged, screen);
}
void DeviceList::slotPageChanged(int page) { Q_EMIT signalPageChanged(page); }

void DeviceList::createConnects(const Device &device) {
    createDeviceConnects(device);
    createInputConnects(device);
    createOutputConnects(device);
    createScreenConnects(device);
    createRegularScreenConnects(device);
    createAuxScreenConnects(device);
    createMvrScreenConnects(device);
    createPresetConnects(device);
    createKeypadConnects(device);
    createImageConnects(device);
    createUserKeyConnects(device);
}

void DeviceList::createDeviceConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalDeviceModelIdChanged, &DeviceList::slotDeviceModelIdChanged);
    join(&Device::signalNetWorkChanged, &DeviceList::slotDeviceNetWorkChanged);
    join(&Device::signalDeviceMasterControlStatusChanged, &DeviceList::slotDeviceMasterControlStatusChanged);
    join(&Device::signalNameChanged, &DeviceList::slotDeviceNameChanged);
    join(&Device::signalOnlineChanged, &DeviceList::slotDeviceOnlineChanged);
    join(&Device::signalGenlockSignalChanged, &DeviceList::slotGenlockSignalChanged);
    join(&Device::signalScreenGenlockSignalChanged, &DeviceList::slotScreenGenlockSignalChanged);
    join(&Device::signalGenlockConfigChanged, &DeviceList::slotGenlockConfigChanged);
    join(&Device::signalOperationStatusChanged, &DeviceList::slotOperationStatusChanged);
    join(&Device::signalDeviceLoadProcessChanged, &DeviceList::slotDeviceLoadProcessChanged);
    join(&Device::signalSubCardAdded, &DeviceList::slotSubCardAdded);
    join(&Device::signalSubCardRemoved, &DeviceList::slotSubCardRemoved);
    join(&Device::signalSubCardInfoChanged, &DeviceList::slotSubCardInfoChanged);
    join(&Device::signalMVRStatusChanged, &DeviceList::slotMVRStatusChanged);
    join(&Device::signalSelectedScreenChanged, &DeviceList::slotSelectedScreenChanged);
    createPowerConnect(device);
    join(&Device::signalOutputMappingStatusChanged, &DeviceList::slotOutputMappingStatusChanged);
    join(&Device::signalOutputMappingTypeChanged, &DeviceList::slotOutputMappingTypeChanged);
    join(&Device::signalDeviceGroupInfoChanged, &DeviceList::slotDeviceGroupInfoChanged);
    join(&Device::signalDeviceNovsStatusChanged, &DeviceList::slotDeviceNovsStatusChanged);
    join(&Device::signalInterfaceRelationEnableChanged, &DeviceList::slotInterfaceRelationEnableChanged);
    join(&Device::signalInterfaceRelationPairsChanged, &DeviceList::slotInterfaceRelationPairsChanged);
}

void DeviceList::createPowerConnect(const Device &device) {
    std::erase_if(m_powerRelays, [](const auto &relay) { return !relay.second; });
    auto &relay = m_powerRelays[&device];
    if (!relay)
        relay = connect(&device, &Device::signalPowerChanged, this,
                        [this] { repeat(&DeviceList::signalPowerStatusChanged); });
}

void DeviceList::createInputConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalInputAdded, &DeviceList::slotInputAdded);
    join(&Device::signalInputRemoved, &DeviceList::slotInputRemoved);
    join(&Device::signalSelectedInputChanged, &DeviceList::slotSelectedInputChanged);
}

void DeviceList::createOutputConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalOutputRemoved, &DeviceList::slotOutputRemoved);
    join(&Device::signalSelectedOutputChanged, &DeviceList::slotSelectedOutputChanged);
}

void DeviceList::createScreenConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalScreenAddded, &DeviceList::sloScreenAdded);
    join(&Device::signalScreenMoved, &DeviceList::sloScreenMoved);
    join(&Device::signalScreenRemoved, &DeviceList::sloScreenRemoved);
    join(&Device::signalActivedScreenChanged, &DeviceList::sloActivedScreenChanged, Qt::QueuedConnection);
    join(&Device::signalScreenMultilStateChanged, &DeviceList::sloScreenMultilStateChanged);
    join(&Device::signalViewScreenChanged, &DeviceList::slotViewScreenChanged);
    join(&Device::signalSwapStatusChanged, &DeviceList::slotSwapStatusChanged);
    join(&Device::signalRestoreDefLayout, &DeviceList::slotRestoreDefLayout);
    join(&Device::signalLoadToPGMStatusChanged, &DeviceList::slotLoatToPGMStatusChanged);
}

void DeviceList::createRegularScreenConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalSelectedRegularScreenChanged, &DeviceList::slotSelectedRegularScreenChanged);
}

void DeviceList::createAuxScreenConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalSelectedAuxScreenChanged, &DeviceList::slotSelectedAuxScreenChanged);
}

void DeviceList::createMvrScreenConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalActivedMVRScreenChanged, &DeviceList::slotActivedMVRScreenChanged);
    join(&Device::signalSelectedMVRScreenChanged, &DeviceList::slotSelectedMvrScreenChanged);
}

void DeviceList::createPresetConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalPresetAdded, &DeviceList::slotPresetAdded);
    join(&Device::signalPresetRemoved, &DeviceList::slotPresetRemoved);
    join(&Device::signalPresetCleared, &DeviceList::slotPresetCleared);
    join(&Device::signalActivedPresetChanged, &DeviceList::slotActivedPresetChanged);
    join(&Device::signalActivedPresetKeyNoChanged, &DeviceList::slotActivedPresetKeyNoChanged);
}

void DeviceList::createKeypadConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalKeypadChanged, &DeviceList::slotKeypadChanged);
}

void DeviceList::createImageConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalBKGAdded, &DeviceList::slotBKGAdded);
    join(&Device::signalBKGRemoved, &DeviceList::slotBKGRemoved);
    join(&Device::signalLogoAdded, &DeviceList::slotLogoAdded);
    join(&Device::signalLogoRemoved, &DeviceList::slotLogoRemoved);
}

void DeviceList::createUserKeyConnects(const Device &device) {
    const Joiner join{device, *this};
    join(&Device::signalUserKeyChanged, &DeviceList::slotUserKeyChanged);
    join(&Device::signalModifyUserKeyChanged, &DeviceList::slotModifyUserKeyChanged);
    join(&Device::signalUserKeyClear, &DeviceList::slotClearUserKey);
    join(&Device::signalUserKeyRemoved, &DeviceList::slotDeleteUserKey);
}

} // namespace Quorix::BizModel
