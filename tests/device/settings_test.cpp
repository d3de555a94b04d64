/// What belongs to the processor as a whole: setters and their signals, lists that are compared by rules of their own.
#include <quorixbizmodel/topology/input.h>
#include <topology/interfaces.h>

namespace Quorix::Tests {

namespace Proto = ProtoModel::Device;
using ProtoModel::s_TestPatternBody;
using ProtoModel::Screen::s_ScreenGenlockBodyArray;

namespace {

Proto::s_InterfaceMapping mapping(int s_TestPatternBody::*field, int value) {
    auto changed = Proto::s_DeviceDetail().interfaceMapping;
    changed.testPattern.*field = value;
    return changed;
}

s_ScreenGenlockBodyArray::value_type screen(std::uint8_t id, int type, int status) {
    s_ScreenGenlockBodyArray::value_type body;
    body.screenId = id;
    body.screenType = type;
    body.genlockSignal.status = status;
    return body;
}

} // namespace

struct DeviceSettings : testing::Test {
    std::shared_ptr<Device> device = std::make_shared<Device>(29958);
    EventLog log{device.get()};
    MessageLog messages;
};

/// Rows run on one device in this order, each twice: the second time must be silent.
TEST_F(DeviceSettings, SignalChangesOnly) {
    const std::pair<QString, void (*)(Device &)> rows[] = {
        {"GenlockConfig", [](Device &d) { d.setGenlockInfo({.type = 1}); }},
        {"GenlockConfig", [](Device &d) { d.setGenlockInfo({.type = 1, .interfaceId = 7}); }},
        {"GenlockSignal", [](Device &d) { d.setGenlockOnStatus({.extSignalIn = 3, .status = 3}); }},
        {"SwapStatus", [](Device &d) { d.setSwapEnable(false); }},
        {"DeviceNovsStatus", [](Device &d) { d.setDeviceNovsStatus(true); }},
        {"LoadToPGMStatus", [](Device &d) { d.setLoadToPGMEnable(LoadToPGMStatus(2)); }},
        {"DynamicRangConversion", [](Device &d) { d.setDynamicRangConversion({.enable = 0, .type = 2}); }},
        {"InterfaceMapping", [](Device &d) { d.setInterfaceMapping(mapping(&s_TestPatternBody::gridType, 1)); }},
        {"InterfaceMapping", [](Device &d) { d.setInterfaceMapping(mapping(&s_TestPatternBody::enable, 2)); }},
        {"", [](Device &d) { d.setOutputMappingStatus(true); }}, // as is 2
        {"OutputMappingStatus", [](Device &d) { d.setOutputMappingStatus(false); }},
        {"OutputMappingType", [](Device &d) { d.setOutputMappingType(Enum::Auxiliary::TestPatternType::Red); }},
    };
    // Hangs if a lock is still held.
    const auto readBack = [this] { EXPECT_EQ(device->interfaceMapping(), device->outputMapping()); };
    for (const auto signal : {&Device::signalGenlockConfigChanged, &Device::signalInterfaceMappingChanged,
                              &Device::signalOutputMappingStatusChanged})
        QObject::connect(device.get(), signal, &log, readBack);
    for (const auto &[event, act] : rows) {
        act(*device);
        act(*device);
        EXPECT_EQ(log.take().join(' '), event.isEmpty() ? event : "signal" + event + "Changed()");
    }
    EXPECT_TRUE(device->genlockEnable() && device->genlockInterfaceId() == 7 && device->isGenlockSyncFailure());
    EXPECT_TRUE(!device->swapEnable() && device->deviceNovsStatus() && !device->outputMappingStatus());
    EXPECT_TRUE(toInt(device->genlockOnEnum()) == 1 && toInt(device->loadToPGMEnable()) == 1);
    EXPECT_EQ(device->outputMappingType(), Enum::Auxiliary::TestPatternType::Red);
}

/// Lists follow each other on one device.
TEST_F(DeviceSettings, CompareListsByTheirIds) {
    const std::pair<s_ScreenGenlockBodyArray, bool> screens[] = {
        {{screen(0, 2, 1), screen(1, 2, 2)}, true},  // more than there were
        {{screen(1, 2, 2), screen(0, 2, 1)}, false}, // another order
        {{screen(0, 4, 1), screen(1, 2, 2)}, true},  // a screen of another type
        {{screen(1, 2, 3), screen(0, 4, 1)}, true},  // another status
    };
    for (const auto &[list, isChange] : screens) {
        device->setScreenGenlocks(list);
        EXPECT_EQ(log.take().size(), isChange ? 1 : 0) << list.size();
        EXPECT_EQ(device->screenGenlocks() == list, isChange) << list.size();
    }
    const std::pair<Proto::s_PowerBodyArray, bool> powers[] = {
        {{{1, 0, 0}}, false}, {{{1, 0, 1}, {2, 0, 0}}, true}, {{{2, 0, 0}}, false}, {{{2, 1, 0}, {2, 0, 0}}, true}};
    for (const auto &[list, isChange] : powers) {
        device->setPower(list);
        EXPECT_EQ(log.take().size(), isChange ? 1 : 0) << list.size();
    }
    EXPECT_EQ(device->power(1), Proto::s_PowerBody());
    EXPECT_EQ(device->power(2).iSignal, 1);
}

TEST_F(DeviceSettings, NameTheGenlockSource) {
    Detail detail = detailOf(1, 2);
    detail.general.name = "Camera";
    detail.actualTiming.refresh = 5994;
    addedInterface(*device, detail);
    constexpr std::uint32_t kCamera = 0x010200;
    constexpr std::uint32_t kGone = 0x010300;
    // Online, type, input, status; its text, the source, its rate, the warnings.
    const std::tuple<bool, int, std::uint32_t, int, const char *, const char *, int, int> rows[] = {
        {true, 1, kCamera, 0, "Off", "null", 3, 0},
        {true, 1, kCamera, 1, "Synchronizing", "Genlock", 3, 0},
        {true, 2, kCamera, 2, "Synchronization", "Camera", 5994, 0},
        {true, 2, kCamera, 0, "Off", "null", 5994, 0},
        {true, 2, kGone, 3, "SynchronizeFailure", "null", 0, 2},
        {true, 3, kCamera, 4, "", "null", 0, 0},
        {false, 2, kGone, 2, "Off", "null", 0, 2},
    };
    for (const auto &[isOnline, type, id, status, text, source, rate, warnings] : rows) {
        SCOPED_TRACE(testing::Message() << isOnline << type << status);
        device->setDeviceOnlineFlag(isOnline);
        device->setGenlockInfo({.type = type, .interfaceId = id});
        device->setGenlockOnStatus({.extSignalIn = 3, .status = status});
        MessageLog::take();
        EXPECT_EQ(device->genlockStatusStr() + '|' + device->genlockSyncSource(), QString(text) + '|' + source);
        EXPECT_EQ(device->genlockSyncFrameRate(), rate);
        EXPECT_EQ(MessageLog::take().filter("Can not find the input. slotId:  1  connectorId: 3").size(), warnings);
    }
}

TEST_F(DeviceSettings, KeepTheAddressBeforeAnyChangeOfTheNetwork) {
    device->setNetWorkConfigs({});
    device->setNetworks({});
    EXPECT_EQ(MessageLog::take().join('|'),
              "warning: The netConfig networks size is zero|warning: The networks size is zero");
    Proto::s_NetworkBody network;
    const auto set = [&](const char *before) {
        device->setNetworks({network, {.ip = "of no interest"}});
        device->setNetWorkInfo(network);
        EXPECT_THAT(log.take(), ElementsAre("signalNetWorkChanged()"));
        EXPECT_EQ(device->gateWay().toStdString(), network.gateway);
        EXPECT_EQ(device->preDeviceIPAddress(), before);
    };
    set(""); // the first one is a change, though it is the default
    network.ip = "10.0.0.2", set("192.168.0.10");
    network.gateway = "10.0.0.1", set("10.0.0.2");
}

TEST_F(DeviceSettings, CountTheFilesOfAJob) {
    const std::pair<std::vector<std::uint8_t>, int> rows[] = {
        {{100, 100, 40}, 3}, {{100, 100, 100}, 3}, {{40, 100, 0}, 2}, {{}, 0}};
    for (const auto &[percents, index] : rows) {
        ProtoModel::Auxiliary::s_DeviceProcess job{.status = 2, .totalProcess = 50, .processDetails = {}};
        for (const auto percent : percents)
            job.processDetails.push_back({.process = percent});
        device->setDeviceProcess(job);
        EXPECT_EQ(device->currentLoadIndex(), index);
        EXPECT_EQ(device->loadFileTotalNum(), static_cast<int>(percents.size()));
    }
    EXPECT_EQ(log.take().mid(0, 2).join(' '), "signalOperationStatusChanged() signalDeviceLoadProcessChanged()");
    EXPECT_EQ(device->deviceTotalProgress(), 50);
}

} // namespace Quorix::Tests
