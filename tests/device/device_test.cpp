/// A device's identity, status, take flag, capability answers and emptying.
#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <support/builders.h>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using testing::ElementsAre;
using testing::IsEmpty;

struct DeviceCore : testing::Test {
    std::shared_ptr<Device> device = std::make_shared<Device>(29958);
    EventLog log{device.get()};
};

/// What discovery tells of a device whose one client is this station, allowed to control or not.
Quorix::ProtoModel::DeviceBaseInfo discovered(bool isAllowed) {
    Quorix::ProtoModel::DeviceBaseInfo info;
    info.SN[0] = 0xAB;
    info.MAC[5] = 0x0C;
    info.MainControlVersion = 0x01020304;
    info.LocalIp = "10.0.0.7";
    info.LocalCtrlPort = 5000;
    const std::uint8_t allowed = isAllowed ? 1 : 0;
    info.ClientIps = {{.ip4 = 7, .ip3 = 0, .ip2 = 0, .ip1 = 10, .localPort = 5000, .ClinentControlAllowed = allowed}};
    return info;
}

TEST_F(DeviceCore, NamesItself) {
    EXPECT_EQ(device->name() + device->ipMacSn(), "N/A_000000000000_0000000000000000");
    device->setName("Wand");
    device->setName("Wand");
    EXPECT_THAT(log.take(), ElementsAre("signalNameChanged()"));
    device->setName("墙");
    device->setIPAddress("10.0.0.1");
    EXPECT_EQ(device->preDeviceIPAddress(), QString());
    for (int i = 0; i < 2; ++i)
        device->setIPAddress("10.0.0.2");
    EXPECT_EQ(log.take().count("signalNetWorkChanged()"), 3);
    EXPECT_EQ(device->netMask() + ' ' + device->gateWay(), "255.255.255.0 192.168.0.1");
    device->setGateWay("10.0.0.254");
    device->setNetMask("255.0.0.0");
    EXPECT_EQ(device->netMask() + ' ' + device->gateWay(), "255.0.0.0 10.0.0.254");
    device->updateDeviceBaseInfo(discovered(false));
    EXPECT_EQ(device->ipMacSn(), "10.0.0.2_00000000000C_AB00000000000000");
    device->setPreDeviceIPAddress("10.0.0.1");
    EXPECT_EQ(device->preIPMacSn(), "10.0.0.1_00000000000C_AB00000000000000");
    device->deviceConfig().Name = "Larch";
    EXPECT_EQ(device->deviceInfo(), "[offline]       Larch  墙  10.0.0.2");
    device->deviceConfig().Name.clear();
}

TEST_F(DeviceCore, TellsWhoControlsIt) {
    const MessageLog messages;
    device->updateDeviceBaseInfo(discovered(true));
    device->updateDeviceBaseInfo(discovered(true));
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceMasterControlStatusChanged()"));
    EXPECT_THAT(MessageLog::take(),
                ElementsAre("info: _00000000000C_AB00000000000000 device master control status changed,last  false Cur "
                            "status true"));
    EXPECT_TRUE(device->isMasterControl() && device->mainControlVersion() == "V1.2.3.4");
    EXPECT_THAT(device->clientControlList(), IsEmpty());
    device->setDeviceOnlineFlag(true);
    EXPECT_EQ(device->clientControlList().size(), 1U);
}

TEST_F(DeviceCore, GoesOfflineWithEverythingResetBeforeTheLastSignal) {
    const MessageLog messages;
    device->setDeviceOnlineFlag(false);
    EXPECT_TRUE(log.take().isEmpty() && MessageLog::take().size() == 1);
    device->setDeviceOnlineFlag(true);
    device->setOperationStatus(Enum::Device::OperationStatus::Updating);
    device->setGenlockOnStatus({.extSignalIn = 1, .status = 2});
    device->setDeviceTotalProcess(40);
    device->setCurrentLoadIndex(3);
    device->setCurrentLoadIndex(3);
    device->setDeviceLoadFileTotalNum(9);
    device->setSyncDataSuccess(true);
    EXPECT_THAT(log.take(),
                ElementsAre("signalOnlineChanged()", "signalOperationStatusChanged()", "signalGenlockSignalChanged()",
                            "signalDeviceLoadProcessChanged()", "signalDeviceLoadProcessChanged()"));
    auto &d = *device;
    QObject::connect(&d, &Device::signalGenlockSignalChanged, &log, [&] { EXPECT_FALSE(d.onlineFlag()); });
    QObject::connect(&d, &Device::signalOnlineChanged, &log, [&] { EXPECT_FALSE(d.isSyncDataSuccess()); });
    device->setDeviceOnlineFlag(false);
    EXPECT_EQ(log.take().join(' '),
              "signalOperationStatusChanged() signalGenlockSignalChanged() signalOnlineChanged()");
    EXPECT_EQ(d.operationStatus(), Enum::Device::OperationStatus::Ready);
    EXPECT_EQ(d.deviceTotalProgress() + d.currentLoadIndex() + d.loadFileTotalNum(), 0);
}

TEST_F(DeviceCore, TakesOneAtATime) {
    EXPECT_TRUE(device->startTake() && device->endTake() && device->endTake());
    EXPECT_FALSE(device->isTaking());
    device->setDeviceOnlineFlag(true);
    EXPECT_FALSE(device->isTaking()); // the takes above left no mark
    EXPECT_TRUE(device->startTake() && !device->startTake() && device->isTaking());
    device->setDeviceOnlineFlag(false);
    EXPECT_FALSE(device->isTaking());
    device->setDeviceOnlineFlag(true);
    EXPECT_TRUE(device->endTake() && !device->endTake());
}

TEST_F(DeviceCore, EmptiesWithoutASignal) {
    device->setName("wall");
    device->setIPAddress("10.0.0.1");
    device->setDeviceOnlineFlag(true);
    device->startTake();
    device->setMultiScreens(true);
    log.take();
    device->clearAll(true);
    EXPECT_EQ(device->name() + ' ' + device->IPAddress(), "wall 10.0.0.1");
    EXPECT_FALSE(device->isMultiScreens() || device->isTaking());
    device->clearAll(false);
    EXPECT_EQ(device->name() + ' ' + device->IPAddress(), "N/A 192.168.0.10");
    EXPECT_TRUE(device->onlineFlag() && log.take().isEmpty());
    device->setName("wall");
    device->setModelId(29958);
    device->setModelId(29959);
    EXPECT_THAT(log.take(), ElementsAre("signalNameChanged()", "signalDeviceModelIdChanged()"));
    EXPECT_TRUE(device->name() == "N/A" && device->modelId() == 29959);
}

TEST_F(DeviceCore, CountsByItsCapabilityRecord) {
    Device chassis(41001);
    auto &config = chassis.deviceConfig();
    config.Name = "Chassis";
    config.OutputSlotCount = 8;
    config.ExpSlotCount = 2;
    config.MainScreenCfg.MaxLayerCount = 200;
    config.AuxSceensCfg.MaxAUXLayerCount = 100;
    EXPECT_EQ(chassis.maxScreenCnt(6), 32); // no AUX support yet
    config.AuxSceensCfg.IsSupport = true;
    for (quint8 connector = 0; connector < 4; ++connector)
        config.AuxSceensCfg.appendAuxScreenConfig({connector, 9});
    EXPECT_EQ(chassis.maxScreenCnt(6), 36);
    config.AuxSceensCfg.IsEXPSlotSupport = true;
    EXPECT_EQ(chassis.maxAuxOutputCount(), 4 + 2 * 4);
    EXPECT_TRUE(chassis.maxLayerCnt(6) == (200 + 100) % 256 && chassis.maxLayerCnt(4 + 8) == 100);
    EXPECT_EQ(chassis.maxPresetCount(), 240);
    EXPECT_FALSE(chassis.isScreenLimited(Enum::Screen::ScreenType::RegularScreen) ||
                 chassis.isLayerLimited(Enum::Layer::SceneType::PVW));
    EXPECT_EQ(chassis.subcardResources(5) * 100 + chassis.subcardResources(99), 416);

    Device none(65535); // no capability record
    EXPECT_EQ(none.typeString() + none.subCardDescription(0, true), QString());
    EXPECT_EQ(none.maxLayerCnt(6) + none.maxScreenCnt(6) + none.maxAuxScreenCount() + none.maxMainOutputCount(), 0);
    EXPECT_TRUE(none.maxPresetCount() == 240 && !none.isScreenLimited(Enum::Screen::ScreenType::RegularScreen) &&
                none.isLayerLimited(Enum::Layer::SceneType::PGM));
}

TEST_F(DeviceCore, MayBeFedFromAnotherThread) {
    const MessageLog messages;
    const auto feed = [this] {
        for (int i = 0; i < 200; ++i) {
            device->setName(QString::number(i));
            device->setIPAddress(QString("10.0.0.%1").arg(i));
            device->setGenlockOnStatus({.extSignalIn = i, .status = 0});
            device->updateDeviceBaseInfo(discovered(i % 2 == 0));
            device->startTake();
            device->setMultiScreens(i % 2 == 0);
            device->setOutputMappingStatus(i % 2 != 0);
            device->setInterfaceMapping({.general = {}, .testPattern = {.grid = i}}); // under a lock of its own
        }
    };
    runBeside(feed, [this] {
        EXPECT_FALSE(
            (device->deviceInfo() + device->ipMacSn() + device->preIPMacSn() + device->mainControlVersion()).isEmpty());
        EXPECT_TRUE(device->modelId() == 29958 && !device->isTaking() &&
                    device->outputMapping().testPattern.bright == 2);
    });
    EXPECT_EQ(device->preIPMacSn(), "10.0.0.198_00000000000C_AB00000000000000");
}

TEST(DeviceThread, IsTheApplicationsWhoeverMakesIt) {
    std::shared_ptr<Device> device;
    std::thread([&] { device = std::make_shared<Device>(29958); }).join();
    EXPECT_EQ(device->thread(), QCoreApplication::instance()->thread());
}

} // namespace
