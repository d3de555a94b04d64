/// A device's identity, status, take flag, capability answers and emptying.
#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <support/builders.h>
#include <support/eventlog.h>
#include <support/messagelog.h>

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using testing::ElementsAre;
using testing::IsEmpty;

QString operator""_q(const char *text, std::size_t size) { return QString::fromUtf8(text, static_cast<int>(size)); }

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
    Quorix::ProtoModel::DeviceClientInfo client;
    client.ip1 = 10;
    client.ip4 = 7;
    client.localPort = 5000;
    client.ClinentControlAllowed = isAllowed ? 1 : 0;
    info.ClientIps = {client};
    return info;
}

TEST_F(DeviceCore, StartsEmptyAndOffline) {
    EXPECT_EQ(device->name(), "N/A"_q);
    EXPECT_EQ(device->IPAddress() + device->gateWay() + device->netMask() + device->deviceInfo(), QString());
    EXPECT_EQ(device->ipMacSn(), "_000000000000_0000000000000000"_q);
    EXPECT_EQ(device->operationStatus(), Enum::Device::OperationStatus::Ready);
    EXPECT_FALSE(device->onlineFlag());
    EXPECT_TRUE(device->autoSyncDataEnabled());
    EXPECT_TRUE(device->isNeedRepaintPreset());
}

TEST_F(DeviceCore, NamesItself) {
    device->setName("Wand"_q);
    device->setName("Wand"_q);
    EXPECT_THAT(log.take(), ElementsAre("signalNameChanged()"_q));
    device->setName("墙"_q);
    device->setIPAddress("10.0.0.1"_q);
    EXPECT_EQ(device->preDeviceIPAddress(), QString());
    device->setIPAddress("10.0.0.2"_q);
    device->setIPAddress("10.0.0.2"_q);
    EXPECT_EQ(log.take().count("signalNetWorkChanged()"_q), 3);
    EXPECT_EQ(device->netMask() + ' ' + device->gateWay(), "255.255.255.0 192.168.0.1"_q);
    device->setGateWay("10.0.0.254"_q);
    device->setNetMask("255.0.0.0"_q);
    EXPECT_EQ(device->netMask() + ' ' + device->gateWay(), "255.0.0.0 10.0.0.254"_q);
    device->updateDeviceBaseInfo(discovered(false));
    EXPECT_EQ(device->ipMacSn(), "10.0.0.2_00000000000C_AB00000000000000"_q);
    device->setPreDeviceIPAddress("10.0.0.1"_q);
    EXPECT_EQ(device->preIPMacSn(), "10.0.0.1_00000000000C_AB00000000000000"_q);
    device->deviceConfig().Name = "Larch"_q;
    EXPECT_EQ(device->deviceInfo(), "[offline]       Larch  墙  10.0.0.2"_q);
    device->deviceConfig().Name.clear();
}

TEST_F(DeviceCore, TellsWhoControlsIt) {
    const MessageLog messages;
    device->updateDeviceBaseInfo(discovered(true));
    device->updateDeviceBaseInfo(discovered(true));
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceMasterControlStatusChanged()"_q));
    EXPECT_THAT(MessageLog::take(),
                ElementsAre("info: _00000000000C_AB00000000000000 device master control status changed,last  false Cur "
                            "status true"_q));
    EXPECT_TRUE(device->isMasterControl());
    EXPECT_EQ(device->mainControlVersion(), "V1.2.3.4"_q);
    EXPECT_THAT(device->clientControlList(), IsEmpty());
    device->setDeviceOnlineFlag(true);
    EXPECT_EQ(device->clientControlList().size(), 1U);
}

TEST_F(DeviceCore, GoesOfflineWithEverythingResetBeforeTheLastSignal) {
    const MessageLog messages;
    device->setDeviceOnlineFlag(false);
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_EQ(MessageLog::take().size(), 1);
    device->setDeviceOnlineFlag(true);
    device->setOperationStatus(Enum::Device::OperationStatus::Updating);
    device->setGenlockOnStatus({.extSignalIn = 1, .status = 2});
    device->setDeviceTotalProcess(40);
    device->setCurrentLoadIndex(3);
    device->setCurrentLoadIndex(3);
    device->setDeviceLoadFileTotalNum(9);
    device->setSyncDataSuccess(true);
    EXPECT_THAT(log.take(), ElementsAre("signalOnlineChanged()"_q, "signalOperationStatusChanged()"_q,
                                        "signalGenlockSignalChanged()"_q, "signalDeviceLoadProcessChanged()"_q,
                                        "signalDeviceLoadProcessChanged()"_q));
    QObject listener;
    QObject::connect(device.get(), &Device::signalGenlockSignalChanged, &listener,
                     [&] { EXPECT_FALSE(device->onlineFlag()); });
    QObject::connect(device.get(), &Device::signalOnlineChanged, &listener,
                     [&] { EXPECT_FALSE(device->isSyncDataSuccess()); });
    device->setDeviceOnlineFlag(false);
    EXPECT_THAT(log.take(), ElementsAre("signalOperationStatusChanged()"_q, "signalGenlockSignalChanged()"_q,
                                        "signalOnlineChanged()"_q));
    EXPECT_EQ(device->operationStatus(), Enum::Device::OperationStatus::Ready);
    EXPECT_EQ(device->deviceTotalProgress() + device->currentLoadIndex() + device->loadFileTotalNum(), 0);
}

TEST_F(DeviceCore, TakesOneAtATime) {
    EXPECT_TRUE(device->startTake() && device->endTake() && device->endTake());
    EXPECT_FALSE(device->isTaking());
    device->setDeviceOnlineFlag(true);
    EXPECT_FALSE(device->isTaking()); // the takes above left no mark
    EXPECT_TRUE(device->startTake());
    EXPECT_FALSE(device->startTake());
    EXPECT_TRUE(device->isTaking());
    device->setDeviceOnlineFlag(false);
    EXPECT_FALSE(device->isTaking());
    device->setDeviceOnlineFlag(true);
    EXPECT_TRUE(device->endTake());
    EXPECT_FALSE(device->endTake());
}

TEST_F(DeviceCore, EmptiesWithoutASignal) {
    device->setName("wall"_q);
    device->setIPAddress("10.0.0.1"_q);
    device->setDeviceOnlineFlag(true);
    device->startTake();
    device->setMultiScreens(true);
    log.take();
    device->clearAll(true);
    EXPECT_EQ(device->name() + ' ' + device->IPAddress(), "wall 10.0.0.1"_q);
    EXPECT_FALSE(device->isMultiScreens() || device->isTaking());
    device->clearAll(false);
    EXPECT_EQ(device->name() + ' ' + device->IPAddress(), "N/A 192.168.0.10"_q);
    EXPECT_TRUE(device->onlineFlag());
    EXPECT_THAT(log.take(), IsEmpty());
    device->setName("wall"_q);
    device->setModelId(29958);
    device->setModelId(29959);
    EXPECT_THAT(log.take(), ElementsAre("signalNameChanged()"_q, "signalDeviceModelIdChanged()"_q));
    EXPECT_EQ(device->name(), "N/A"_q);
    EXPECT_EQ(device->modelId(), 29959);
}

TEST_F(DeviceCore, CountsByItsCapabilityRecord) {
    Device chassis(41001);
    auto &config = chassis.deviceConfig();
    config.Name = "Chassis"_q;
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
    EXPECT_EQ(chassis.maxLayerCnt(6), (200 + 100) % 256);
    EXPECT_EQ(chassis.maxLayerCnt(4 + 8), 100);
    EXPECT_EQ(chassis.maxPresetCount(), 240);
    EXPECT_FALSE(chassis.isScreenLimited(Enum::Screen::ScreenType::RegularScreen));
    EXPECT_FALSE(chassis.isLayerLimited(Enum::Layer::SceneType::PVW));

    using OpenState = s_MVRScreenConfigs::eOpenState;
    const struct {
        bool isSupported;
        OpenState state;
        bool isManual;
        int outputs;
    } rows[] = {{false, OpenState::HardAutoOpened, false, 32}, {true, OpenState::Closed, false, 32},
                {true, OpenState::SoftAutoOpened, false, 28},  {true, OpenState::HardAutoOpened, false, 28},
                {true, OpenState::HardAutoOpened, true, 32},   {true, OpenState::OpenStateCnt, false, 32}};
    for (const auto &row : rows) {
        config.MVRScreensCfg.IsSupport = row.isSupported;
        config.MVRScreensCfg.OpenState = row.state;
        config.MVRScreensCfg.IsManualSwitch = row.isManual;
        EXPECT_EQ(chassis.maxMainOutputCount(), row.outputs);
    }
    EXPECT_EQ(chassis.subcardResources(5), 4);
    EXPECT_EQ(chassis.subcardResources(99), 16);
}

TEST_F(DeviceCore, NamesItsSlots) {
    Device chassis(41002);
    auto &config = chassis.deviceConfig();
    config.InputSlotStartIndex = 0;
    config.InputSlotCount = 4;
    config.OutputSlotStartIndex = 4;
    config.OutputSlotCount = 3;
    config.ExpSlotStartIndex = 7;
    config.ExpSlotCount = 1;
    config.MVRScreensCfg.StartSlotIndex = 6;
    config.MVRScreensCfg.SlotCount = 1;
    const char *const names[] = {"In1", "In2", "In3", "In4", "Out1", "Out2", "MVR", "Exp", "Invalid slot pos [8]"};
    for (int slot = 0; slot <= 8; ++slot)
        EXPECT_EQ(chassis.subCardDescription(slot, true), QString::fromLatin1(names[slot]));
    EXPECT_EQ(chassis.subCardDescription(6, false), "Out3"_q);
    EXPECT_EQ(chassis.subCardDescription(-1, false), "Invalid slot pos [-1]"_q);
}

TEST_F(DeviceCore, AnswersWithoutACapabilityRecord) {
    device->setModelId(65535);
    EXPECT_EQ(device->typeString() + device->subCardDescription(0, true), QString());
    EXPECT_EQ(device->maxLayerCnt(6) + device->maxScreenCnt(6) + device->maxAuxScreenCount() +
                  device->maxMainOutputCount(),
              0);
    EXPECT_EQ(device->maxPresetCount(), 240);
    EXPECT_FALSE(device->isScreenLimited(Enum::Screen::ScreenType::RegularScreen));
    EXPECT_TRUE(device->isLayerLimited(Enum::Layer::SceneType::PGM));
}

TEST_F(DeviceCore, MayBeFedFromAnotherThread) {
    const MessageLog messages;
    std::atomic<bool> isDone = false;
    std::thread feeder([&] {
        for (int i = 0; i < 200; ++i) {
            device->setName(QString::number(i));
            device->setIPAddress("10.0.0.%1"_q.arg(i));
            device->setGenlockOnStatus({.extSignalIn = i, .status = 0});
            device->updateDeviceBaseInfo(discovered(i % 2 == 0));
            device->startTake();
            device->setMultiScreens(i % 2 == 0);
        }
        isDone = true;
    });
    while (!isDone)
        EXPECT_TRUE(
            (device->deviceInfo() + device->ipMacSn() + device->preIPMacSn() + device->mainControlVersion()).size() >
                0 &&
            device->modelId() == 29958 && !device->isTaking());
    feeder.join();
    EXPECT_EQ(device->preIPMacSn(), "10.0.0.198_00000000000C_AB00000000000000"_q);
}

TEST(DeviceThread, IsTheApplicationsWhoeverMakesIt) {
    std::shared_ptr<Device> device;
    std::thread([&] { device = std::make_shared<Device>(29958); }).join();
    EXPECT_EQ(device->thread(), QCoreApplication::instance()->thread());
}

} // namespace
