/// What belongs to the processor as a whole: setters and their signals, lists that are compared by rules of their own.
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/topology/input.h>
#include <support/builders.h>
#include <support/eventlog.h>
#include <support/messagelog.h>

#include <gmock/gmock.h>

#include <thread>

namespace {

using namespace Quorix::ProtoModel::Device;
using namespace Quorix::Tests;
using Quorix::BizModel::Device;
using LoadStatus = Quorix::BizModel::Enum::Device::LoadToPGMStatus;
using Pattern = Quorix::BizModel::Enum::Auxiliary::TestPatternType;
using Quorix::BizModel::toInt;
using Quorix::ProtoModel::s_TestPatternBody;
using Quorix::ProtoModel::Screen::s_ScreenGenlockBody;
using Quorix::ProtoModel::Screen::s_ScreenGenlockBodyArray;

s_InterfaceMapping mapping(int s_TestPatternBody::*field, int value) {
    s_InterfaceMapping changed = s_DeviceDetail().interfaceMapping;
    changed.testPattern.*field = value;
    return changed;
}

s_ScreenGenlockBody screen(std::uint8_t id, int type, int status) {
    s_ScreenGenlockBody body;
    body.screenId = id;
    body.screenType = type;
    body.genlockSignal.status = status;
    return body;
}

struct DeviceSettings : testing::Test {
    std::shared_ptr<Device> device = std::make_shared<Device>(29958);
    EventLog log{device.get()};
    MessageLog messages;
};

/// Rows run on one device in this order, each twice: the second time must be silent.
TEST_F(DeviceSettings, SignalChangesOnly) {
    const struct {
        const char *event; ///< empty: none
        void (*act)(Device &);
    } rows[] = {
        {"GenlockConfig", [](Device &d) { d.setGenlockInfo({.type = 1}); }},
        {"GenlockConfig", [](Device &d) { d.setGenlockInfo({.type = 1, .interfaceId = 7}); }},
        {"GenlockSignal", [](Device &d) { d.setGenlockOnStatus({.extSignalIn = 3, .status = 3}); }},
        {"SwapStatus", [](Device &d) { d.setSwapEnable(false); }},
        {"DeviceNovsStatus", [](Device &d) { d.setDeviceNovsStatus(true); }},
        {"LoadToPGMStatus", [](Device &d) { d.setLoadToPGMEnable(static_cast<LoadStatus>(2)); }},
        {"DynamicRangConversion", [](Device &d) { d.setDynamicRangConversion({.enable = 0, .type = 2}); }},
        {"InterfaceMapping", [](Device &d) { d.setInterfaceMapping(mapping(&s_TestPatternBody::gridType, 1)); }},
        {"InterfaceMapping", [](Device &d) { d.setInterfaceMapping(mapping(&s_TestPatternBody::enable, 2)); }},
        {"", [](Device &d) { d.setOutputMappingStatus(true); }}, // as is 2
        {"OutputMappingStatus", [](Device &d) { d.setOutputMappingStatus(false); }},
        {"OutputMappingType", [](Device &d) { d.setOutputMappingType(Pattern::Red); }},
    };
    // Hangs if a lock is still held.
    const auto readBack = [this] { EXPECT_EQ(device->interfaceMapping(), device->outputMapping()); };
    for (const auto signal : {&Device::signalGenlockConfigChanged, &Device::signalInterfaceMappingChanged,
                              &Device::signalOutputMappingStatusChanged})
        QObject::connect(device.get(), signal, &log, readBack);
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        row.act(*device);
        row.act(*device);
        EXPECT_EQ(log.take().join(' '), *row.event == 0 ? QString() : QString("signal%1Changed()").arg(row.event));
    }
    EXPECT_TRUE(device->genlockEnable() && device->genlockInterfaceId() == 7 && device->isGenlockSyncFailure());
    EXPECT_EQ(toInt(device->genlockOnEnum()), 1);
    EXPECT_TRUE(!device->swapEnable() && device->deviceNovsStatus() && !device->outputMappingStatus());
    EXPECT_EQ(toInt(device->loadToPGMEnable()), 1);
    EXPECT_EQ(device->outputMappingType(), Pattern::Red);
}

/// Lists follow each other on one device.
TEST_F(DeviceSettings, CompareListsByTheirIds) {
    const struct {
        s_ScreenGenlockBodyArray list;
        bool isChange;
    } screens[] = {
        {{screen(0, 2, 1), screen(1, 2, 2)}, true},  // more than there were
        {{screen(1, 2, 2), screen(0, 2, 1)}, false}, // another order
        {{screen(0, 4, 1), screen(1, 2, 2)}, true},  // a screen of another type
        {{screen(1, 2, 3), screen(0, 4, 1)}, true},  // another status
    };
    for (const auto &row : screens) {
        device->setScreenGenlocks(row.list);
        EXPECT_EQ(log.take().size(), row.isChange ? 1 : 0) << &row - screens;
        EXPECT_EQ(device->screenGenlocks() == row.list, row.isChange) << &row - screens;
    }
    const struct {
        s_PowerBodyArray list;
        bool isChange;
    } powers[] = {
        {{{1, 0, 0}}, false}, {{{1, 0, 1}, {2, 0, 0}}, true}, {{{2, 0, 0}}, false}, {{{2, 1, 0}, {2, 0, 0}}, true}};
    for (const auto &row : powers) {
        device->setPower(row.list);
        EXPECT_EQ(log.take().size(), row.isChange ? 1 : 0) << &row - powers;
    }
    EXPECT_EQ(device->power(1), s_PowerBody());
    EXPECT_EQ(device->power(2).iSignal, 1);
}

TEST_F(DeviceSettings, NameTheGenlockSource) {
    Quorix::ProtoModel::Interface::s_InterfaceDetail detail;
    detail.interfaceId = {.slotId = 1, .connectorId = 2, .splitId = 0};
    detail.general.type = 2;
    detail.general.name = "Camera";
    detail.actualTiming.refresh = 5994;
    QString error;
    ASSERT_TRUE(device->addInterface(detail, error));
    constexpr std::uint32_t kCamera = 0x010200;
    constexpr std::uint32_t kGone = 0x010300;
    const struct {
        bool isOnline;
        int type;
        std::uint32_t interfaceId;
        int status;
        const char *statusText, *source;
        int rate, warnings;
    } rows[] = {
        {true, 1, kCamera, 0, "Off", "null", 3, 0},
        {true, 1, kCamera, 1, "Synchronizing", "Genlock", 3, 0},
        {true, 2, kCamera, 2, "Synchronization", "Camera", 5994, 0},
        {true, 2, kCamera, 0, "Off", "null", 5994, 0},
        {true, 2, kGone, 3, "SynchronizeFailure", "null", 0, 2},
        {true, 3, kCamera, 4, "", "null", 0, 0},
        {false, 2, kGone, 2, "Off", "null", 0, 2},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        device->setDeviceOnlineFlag(row.isOnline);
        device->setGenlockInfo({.type = row.type, .interfaceId = row.interfaceId});
        device->setGenlockOnStatus({.extSignalIn = 3, .status = row.status});
        MessageLog::take();
        EXPECT_EQ(device->genlockStatusStr(), row.statusText);
        EXPECT_EQ(device->genlockSyncSource(), row.source);
        EXPECT_EQ(device->genlockSyncFrameRate(), row.rate);
        const QStringList warnings = MessageLog::take();
        EXPECT_EQ(warnings.filter("Can not find the input. slotId:  1  connectorId: 3").size(), row.warnings);
    }
}

TEST_F(DeviceSettings, KeepTheAddressBeforeAnyChangeOfTheNetwork) {
    device->setNetWorkConfigs({});
    device->setNetworks({});
    EXPECT_THAT(MessageLog::take(), testing::ElementsAre("warning: The netConfig networks size is zero",
                                                         "warning: The networks size is zero"));
    s_NetworkBody network;
    const auto set = [&](const char *before) {
        device->setNetworks({network, {.ip = "of no interest"}});
        device->setNetWorkInfo(network);
        EXPECT_THAT(log.take(), testing::ElementsAre("signalNetWorkChanged()"));
        EXPECT_EQ(device->gateWay().toStdString(), network.gateway);
        EXPECT_EQ(device->preDeviceIPAddress(), before);
    };
    set(""); // the first one is a change, though it is the default
    network.ip = "10.0.0.2";
    set("192.168.0.10");
    network.gateway = "10.0.0.1";
    set("10.0.0.2");
}

TEST_F(DeviceSettings, CountTheFilesOfAJob) {
    const struct {
        std::vector<std::uint8_t> percent;
        int index;
    } rows[] = {{{100, 100, 40}, 3}, {{100, 100, 100}, 3}, {{40, 100, 0}, 2}, {{}, 0}};
    for (const auto &row : rows) {
        Quorix::ProtoModel::Auxiliary::s_DeviceProcess job{.status = 2, .totalProcess = 50, .processDetails = {}};
        for (const auto percent : row.percent)
            job.processDetails.push_back({.process = percent});
        device->setDeviceProcess(job);
        EXPECT_EQ(device->currentLoadIndex(), row.index);
        EXPECT_EQ(device->loadFileTotalNum(), static_cast<int>(row.percent.size()));
    }
    EXPECT_EQ(log.take().mid(0, 2).join(' '), "signalOperationStatusChanged() signalDeviceLoadProcessChanged()");
    EXPECT_EQ(device->deviceTotalProgress(), 50);
}

/// The mapping has two locks: for the thread sanitizer.
TEST_F(DeviceSettings, AreReadWhileAReportArrives) {
    std::thread feeder([this] {
        for (int i = 1; i <= 200; ++i) {
            device->setOutputMappingStatus(i % 2 != 0);
            device->setInterfaceMapping(mapping(&s_TestPatternBody::grid, i));
        }
    });
    while (device->interfaceMapping().testPattern.grid != 200)
        EXPECT_EQ(device->outputMapping().testPattern.bright, 2);
    feeder.join();
}

} // namespace
