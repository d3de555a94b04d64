/// The registry: who is in it, who is found, who is activated, and which events tell so.
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <support/builders.h>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using testing::ElementsAre;

struct Registry : testing::Test {
    HubScope scope;
    DeviceList *hub = DeviceList::instance();
    EventLog log{hub};
    QObject listener;

    /// "signalX(a)" as "X(a)", all in one line.
    QString heard() { return log.take().join(' ').remove("signal"); }
    std::shared_ptr<Device> make(const QString &name) { return make(Identity{.name = name}); }
    std::shared_ptr<Device> make(const Identity &identity) {
        auto device = appendedDevice(identity);
        log.name(device.get(), identity.name);
        log.take();
        return device;
    }
};

TEST_F(Registry, TakesADeviceOnce) {
    auto left = make("left");
    EXPECT_EQ(hub->append(left).lock(), left);
    for (const auto &refused : {hub->append(nullptr), hub->append(29958), hub->activedDevice()})
        EXPECT_EQ(refused.lock(), nullptr);
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(hub->count(), 1);
}

TEST_F(Registry, AnnouncesBeforeItJoinsTheRelays) {
    auto left = std::make_shared<Device>(29958);
    log.name(left.get(), "left");
    QObject::connect(hub, &DeviceList::signalDeviceAppended, &listener, [this](const std::weak_ptr<Device> &device) {
        hub->setActivtedDevice(device, false);
        device.lock()->setDeviceOnlineFlag(true);
    });
    hub->append(left);
    left->setDeviceOnlineFlag(false);
    EXPECT_EQ(heard(), "DeviceAppended(left) ActivedDeviceChanged() DeviceOnlineStatusChanged(left)");
    EXPECT_EQ(hub->activedDevice().lock(), left);
}

TEST_F(Registry, RemovesAndActivatesTheFirstOneLeft) {
    const auto left = make("left"), middle = make("middle"), right = make("right");
    hub->setActivtedDevice(right, false);
    log.take();
    hub->remove(right);
    EXPECT_EQ(heard(), "DeviceRemoved(right) ActivedDeviceChanged()");
    EXPECT_EQ(hub->activedDevice().lock(), left);
    for (const auto &removed : {middle, right, std::shared_ptr<Device>(), left})
        hub->remove(removed);
    EXPECT_EQ(heard(), "DeviceRemoved(middle) DeviceRemoved(left) ActivedDeviceChanged()");
    EXPECT_EQ(hub->activedDevice().lock(), nullptr);
    right->setName("still heard");
    EXPECT_EQ(heard(), "DeviceNameChanged(right)");
}

TEST_F(Registry, AListenersChoiceAtRemovalStands) {
    const auto left = make("left"), middle = make("middle"), right = make("right");
    hub->setActivtedDevice(left, false);
    QObject::connect(hub, &DeviceList::signalDeviceRemoved, &listener, [&] { hub->setActivtedDevice(right, false); });
    hub->remove(left);
    EXPECT_EQ(hub->activedDevice().lock(), right);
}

TEST_F(Registry, ClearsWithOneSignalAndLetsGoFirst) {
    auto kept = make("kept");
    const std::weak_ptr<Device> dropped = make("dropped");
    hub->setActivtedDevice(kept, false);
    log.take();
    QObject::connect(hub, &DeviceList::signalDeviceCleared, &listener, [&] {
        EXPECT_EQ(hub->count(), 0);
        EXPECT_TRUE(dropped.expired());
    });
    hub->clear();
    hub->clear();
    EXPECT_EQ(heard(), "DeviceCleared()");
    EXPECT_EQ(hub->activedDevice().lock(), kept);
    kept.reset();
    EXPECT_EQ(hub->activedDevice().lock(), nullptr);
}

TEST_F(Registry, ActivatesAndMarksForRepainting) {
    const auto left = make("left"), right = make("right");
    const auto preset = std::make_shared<Preset>();
    left->addPreset(preset);
    log.take();
    const std::tuple<std::shared_ptr<Device>, bool, int> rows[] = {
        {nullptr, false, 0}, {nullptr, true, 1}, {left, false, 1},   {left, false, 0},
        {left, true, 1},     {right, true, 1},   {nullptr, false, 1}};
    for (const auto &row : rows) {
        const auto &[device, isEmit, events] = row;
        if (device != nullptr)
            device->setIsNeedRepaintPreset(false);
        preset->setIsNeedRepaint(false);
        hub->setActivtedDevice(device, isEmit);
        EXPECT_EQ(log.take().size(), events);
        EXPECT_EQ(hub->activedDevice().lock(), device);
        EXPECT_TRUE(device == nullptr || device->isNeedRepaintPreset());
        EXPECT_EQ(preset->isNeedRepaint(), &row == &rows[2]); // where its device becomes the activated one
    }
}

TEST_F(Registry, FindsTheFirstMatch) {
    const auto a = make({.name = "wall", .ip = "10.0.0.1", .mac = 0x0A, .sn = 1});
    const auto b = make({.name = "wall", .ip = "10.0.0.2", .mac = 0x0B, .sn = 1});
    const auto blank1 = make({.name = "Wall", .ip = "10.0.0.3"});
    const auto blank2 = make({.name = "spare", .ip = "10.0.0.4"});
    const QString macB = "00000000000B", sn1 = "0000000000000001", noMac = "000000000000", noSn = "0000000000000000";
    EXPECT_EQ(hub->findDevice("10.0.0.2", sn1).lock(), b);
    EXPECT_EQ(hub->findDevice("10.0.0.9", macB, sn1).lock(), b);
    EXPECT_EQ(hub->findDevice("10.0.0.4", noMac, noSn).lock(), blank2);
    EXPECT_EQ(hub->findDevice("10.0.0.9", noMac, noSn).lock(), nullptr);
    EXPECT_EQ(hub->findDevice("10.0.0.3", QString(), QString()).lock(), nullptr);
    EXPECT_EQ(hub->findDeviceByIpMacSn("10.0.0.9", macB, sn1).lock(), nullptr);
    EXPECT_EQ(hub->findDeviceByIpMacSn("10.0.0.2", macB, sn1).lock(), b);
    EXPECT_EQ(hub->findDeviceByIP("10.0.0.3").lock(), blank1);
    EXPECT_EQ(hub->findDeviceByName("wall").lock(), a);
    EXPECT_TRUE(hub->isDeviceNameExist("Wall"));
    EXPECT_FALSE(hub->isDeviceNameExist("WALL") || hub->isDeviceIPExist(QString()));
}

TEST_F(Registry, HandsOutCopiesWhileItChanges) {
    const auto change = [this] {
        for (int i = 0; i < 50; ++i) {
            const auto device = appendedDevice({.name = QString::number(i)});
            device->setName("renamed");
            i % 10 == 9 ? hub->clear() : hub->remove(i % 2 == 0 ? device : nullptr);
        }
    };
    const auto read = [this] {
        for (const auto &device : hub->devices())
            if (const auto alive = device.lock()) {
                EXPECT_FALSE(alive->name().isEmpty());
            }
        hub->findDeviceByName("nobody");
    };
    runBeside(change, read);
    EXPECT_EQ(hub->count(), 0);
}

TEST_F(Registry, NotifiesOncePerBatchOfLayerChanges) {
    const MessageLog messages;
    const auto screen = standIn<Screen>();
    log.name(screen.get(), "screen");
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::PVW);
    hub->notifyDeviceScreenLayersChanged({});
    hub->notifyDeviceScreenLayersUpdate({std::weak_ptr<Screen>()});
    hub->notifyDeviceScreenLayersChanged({screen}); // has no owner, and nothing is activated
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::PGM);
    hub->emitDeviceScreenLayersChanged({screen, {}});
    hub->emitDeviceScreenLayersUpdate({screen});
    EXPECT_EQ(heard(), "DeviceScreenLayersChanged([screen, null], 3)");
    EXPECT_THAT(MessageLog::take(), ElementsAre("debug: Notify to update the layer interface 3",
                                                "warning: Notify to update the layer interface failed 0"));
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::Preset);
    hub->emitDeviceScreenLayersUpdate({});
    EXPECT_EQ(heard(), "DeviceScreenLayersUpdate([], 4)");
}

TEST_F(Registry, NotifiesForScreensOfTheActivatedDevice) {
    const MessageLog messages;
    const auto left = make("left"), right = make("right");
    const auto screen = std::make_shared<RegularScreen>();
    screen->setOwerDevice(right);
    log.name(screen.get(), "screen");
    hub->setActivtedDevice(left, false);
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::PVW);
    log.take();
    hub->notifyDeviceScreenLayersChanged({screen});
    EXPECT_EQ(heard(), "");
    hub->setActivtedDevice(right, false);
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::PGM);
    log.take();
    hub->notifyDeviceScreenLayersUpdate({screen, std::weak_ptr<Screen>()});
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::Preset);
    hub->notifyDeviceScreenLayersChanged({screen});
    EXPECT_EQ(heard(), "DeviceScreenLayersUpdate([screen, null], 3) DeviceScreenLayersChanged([screen], 4)");
}

TEST_F(Registry, SignalsOnlyAChangeOfTheResourceDisplay) {
    EXPECT_TRUE(hub->resourceShowStatus());
    for (const bool isShown : {true, false, true})
        hub->updateResourceShow(isShown);
    EXPECT_EQ(heard(), "ResourceShowStatusChanged() ResourceShowStatusChanged()");
}

TEST_F(Registry, PlacesInputsInTheEchoFrame) {
    const std::tuple<quint16, quint8, int, int, int, int> rows[] = {
        {29958, 9, 240, 270, 240, 270},  {29964, 31, 1680, 810, 240, 270}, {29959, 5, 1600, 0, 320, 180},
        {29954, 27, 960, 720, 320, 180}, {29959, 28, 0, 900, 320, 180},    {29959, 29, 320, 900, 320, 180},
        {29959, 31, 960, 900, 320, 180}, {29958, 32, 0, 0, 0, 0},          {29954, 32, 0, 0, 0, 0},
    };
    for (const auto &[model, input, x, y, width, height] : rows)
        EXPECT_EQ(hub->echoVideoRect(model, input), QRect(x, y, width, height)) << model << ' ' << int(input);
    const MessageLog messages;
    EXPECT_EQ(hub->echoVideoRect(29955, 0), QRect());
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: Get echo input video rect has failed! The device modelId= "
                                                "29955  dosn't support."));
}

} // namespace
