/// The registry: who is in it, who is found, who is activated, and which events tell so.
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/screens/screenkinds.h>
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

struct Registry : testing::Test {
    HubScope scope;
    DeviceList *hub = DeviceList::instance();
    EventLog log{hub};
    QObject listener;

    std::shared_ptr<Device> make(const Identity &identity) {
        auto device = appendedDevice(identity);
        log.name(device.get(), identity.name);
        log.take();
        return device;
    }
};

TEST_F(Registry, TakesADeviceOnce) {
    auto left = make({.name = "left"_q});
    EXPECT_EQ(hub->append(left).lock(), left);
    EXPECT_EQ(hub->append(nullptr).lock(), nullptr);
    EXPECT_EQ(hub->append(29958).lock(), nullptr);
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_EQ(hub->count(), 1);
    EXPECT_EQ(hub->activedDevice().lock(), nullptr);
}

TEST_F(Registry, AnnouncesBeforeItJoinsTheRelays) {
    auto left = std::make_shared<Device>(29958);
    log.name(left.get(), "left"_q);
    QObject::connect(hub, &DeviceList::signalDeviceAppended, &listener, [this](const std::weak_ptr<Device> &device) {
        hub->setActivtedDevice(device, false);
        device.lock()->setDeviceOnlineFlag(true);
    });
    hub->append(left);
    left->setDeviceOnlineFlag(false);
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceAppended(left)"_q, "signalActivedDeviceChanged()"_q,
                                        "signalDeviceOnlineStatusChanged(left)"_q));
    EXPECT_EQ(hub->activedDevice().lock(), left);
}

TEST_F(Registry, RemovesAndActivatesTheFirstOneLeft) {
    auto left = make({.name = "left"_q});
    auto middle = make({.name = "middle"_q});
    auto right = make({.name = "right"_q});
    hub->setActivtedDevice(right, false);
    log.take();
    hub->remove(right);
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceRemoved(right)"_q, "signalActivedDeviceChanged()"_q));
    EXPECT_EQ(hub->activedDevice().lock(), left);
    hub->remove(middle);
    hub->remove(right);
    hub->remove(nullptr);
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceRemoved(middle)"_q));
    hub->remove(left);
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceRemoved(left)"_q, "signalActivedDeviceChanged()"_q));
    EXPECT_EQ(hub->activedDevice().lock(), nullptr);
    right->setName("still heard"_q);
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceNameChanged(right)"_q));
}

TEST_F(Registry, AListenersChoiceAtRemovalStands) {
    auto left = make({.name = "left"_q});
    auto middle = make({.name = "middle"_q});
    auto right = make({.name = "right"_q});
    hub->setActivtedDevice(left, false);
    QObject::connect(hub, &DeviceList::signalDeviceRemoved, &listener, [&] { hub->setActivtedDevice(right, false); });
    hub->remove(left);
    EXPECT_EQ(hub->activedDevice().lock(), right);
}

TEST_F(Registry, ClearsWithOneSignalAndLetsGoFirst) {
    auto kept = make({.name = "kept"_q});
    const std::weak_ptr<Device> dropped = make({.name = "dropped"_q});
    hub->setActivtedDevice(kept, false);
    log.take();
    QObject::connect(hub, &DeviceList::signalDeviceCleared, &listener, [&] {
        EXPECT_EQ(hub->count(), 0);
        EXPECT_TRUE(dropped.expired());
    });
    hub->clear();
    hub->clear();
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceCleared()"_q));
    EXPECT_EQ(hub->activedDevice().lock(), kept);
    kept.reset();
    EXPECT_EQ(hub->activedDevice().lock(), nullptr);
}

TEST_F(Registry, ActivatesAndMarksForRepainting) {
    auto left = make({.name = "left"_q});
    auto right = make({.name = "right"_q});
    const auto preset = std::make_shared<Preset>();
    left->addPreset(preset);
    log.take();
    const struct {
        std::shared_ptr<Device> device;
        bool isEmit;
        int events;
    } rows[] = {{nullptr, false, 0}, {nullptr, true, 1}, {left, false, 1},   {left, false, 0},
                {left, true, 1},     {right, true, 1},   {nullptr, false, 1}};
    for (const auto &row : rows) {
        if (row.device != nullptr)
            row.device->setIsNeedRepaintPreset(false);
        preset->setIsNeedRepaint(false);
        hub->setActivtedDevice(row.device, row.isEmit);
        EXPECT_EQ(log.take().size(), row.events);
        EXPECT_EQ(hub->activedDevice().lock(), row.device);
        EXPECT_TRUE(row.device == nullptr || row.device->isNeedRepaintPreset());
        EXPECT_EQ(preset->isNeedRepaint(), &row == &rows[2]); // where its device becomes the activated one
    }
}

TEST_F(Registry, FindsTheFirstMatch) {
    const auto a = make({.name = "wall"_q, .ip = "10.0.0.1"_q, .mac = 0x0A, .sn = 1});
    const auto b = make({.name = "wall"_q, .ip = "10.0.0.2"_q, .mac = 0x0B, .sn = 1});
    const auto blank1 = make({.name = "Wall"_q, .ip = "10.0.0.3"_q});
    const auto blank2 = make({.name = "spare"_q, .ip = "10.0.0.4"_q});
    const auto macB = "00000000000B"_q;
    const auto sn1 = "0000000000000001"_q;
    const auto noMac = "000000000000"_q;
    const auto noSn = "0000000000000000"_q;
    EXPECT_EQ(hub->findDevice("10.0.0.2"_q, sn1).lock(), b);
    EXPECT_EQ(hub->findDevice("10.0.0.9"_q, macB, sn1).lock(), b);
    EXPECT_EQ(hub->findDevice("10.0.0.4"_q, noMac, noSn).lock(), blank2);
    EXPECT_EQ(hub->findDevice("10.0.0.9"_q, noMac, noSn).lock(), nullptr);
    EXPECT_EQ(hub->findDevice("10.0.0.3"_q, QString(), QString()).lock(), nullptr);
    EXPECT_EQ(hub->findDeviceByIpMacSn("10.0.0.9"_q, macB, sn1).lock(), nullptr);
    EXPECT_EQ(hub->findDeviceByIpMacSn("10.0.0.2"_q, macB, sn1).lock(), b);
    EXPECT_EQ(hub->findDeviceByIP("10.0.0.3"_q).lock(), blank1);
    EXPECT_EQ(hub->findDeviceByName("wall"_q).lock(), a);
    EXPECT_TRUE(hub->isDeviceNameExist("Wall"_q));
    EXPECT_FALSE(hub->isDeviceNameExist("WALL"_q));
    EXPECT_FALSE(hub->isDeviceIPExist(QString()));
}

TEST_F(Registry, HandsOutCopiesWhileItChanges) {
    std::atomic<bool> isDone = false;
    std::atomic<int> seen = 0;
    std::thread reader([&] {
        while (!isDone) {
            for (const auto &device : hub->devices())
                if (const auto alive = device.lock())
                    seen += alive->name().size();
            hub->findDeviceByName("nobody"_q);
        }
    });
    for (int i = 0; i < 50; ++i) {
        const auto device = appendedDevice({.name = QString::number(i)});
        device->setName("renamed"_q);
        i % 10 == 9 ? hub->clear() : hub->remove(i % 2 == 0 ? device : nullptr);
    }
    isDone = true;
    reader.join();
    EXPECT_EQ(hub->count(), 0);
}

TEST_F(Registry, NotifiesOncePerBatchOfLayerChanges) {
    const MessageLog messages;
    const auto screen = standIn<Screen>();
    log.name(screen.get(), "screen"_q);
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::PVW);
    hub->notifyDeviceScreenLayersChanged({});
    hub->notifyDeviceScreenLayersUpdate({std::weak_ptr<Screen>()});
    hub->notifyDeviceScreenLayersChanged({screen}); // has no owner, and nothing is activated
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::PGM);
    hub->emitDeviceScreenLayersChanged({screen, {}});
    hub->emitDeviceScreenLayersUpdate({screen});
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceScreenLayersChanged([screen, null], 3)"_q));
    EXPECT_THAT(MessageLog::take(), ElementsAre("debug: Notify to update the layer interface 3"_q,
                                                "warning: Notify to update the layer interface failed 0"_q));
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::Preset);
    hub->emitDeviceScreenLayersUpdate({});
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceScreenLayersUpdate([], 4)"_q));
}

TEST_F(Registry, NotifiesForScreensOfTheActivatedDevice) {
    const MessageLog messages;
    auto left = make({.name = "left"_q});
    auto right = make({.name = "right"_q});
    const auto screen = std::make_shared<RegularScreen>();
    screen->setOwerDevice(right);
    log.name(screen.get(), "screen"_q);
    hub->setActivtedDevice(left, false);
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::PVW);
    log.take();
    hub->notifyDeviceScreenLayersChanged({screen});
    EXPECT_THAT(log.take(), IsEmpty());
    hub->setActivtedDevice(right, false);
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::PGM);
    log.take();
    hub->notifyDeviceScreenLayersUpdate({screen, std::weak_ptr<Screen>()});
    hub->appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType::Preset);
    hub->notifyDeviceScreenLayersChanged({screen});
    EXPECT_THAT(log.take(), ElementsAre("signalDeviceScreenLayersUpdate([screen, null], 3)"_q,
                                        "signalDeviceScreenLayersChanged([screen], 4)"_q));
}

TEST_F(Registry, SignalsOnlyAChangeOfTheResourceDisplay) {
    EXPECT_TRUE(hub->resourceShowStatus());
    hub->updateResourceShow(true);
    hub->updateResourceShow(false);
    hub->updateResourceShow(true);
    EXPECT_THAT(log.take(), ElementsAre("signalResourceShowStatusChanged()"_q, "signalResourceShowStatusChanged()"_q));
}

TEST(EchoFrame, PlacesInputs) {
    const struct {
        quint16 model;
        quint8 input;
        QRect place;
    } rows[] = {
        {29958, 9, {240, 270, 240, 270}},
        {29964, 31, {1680, 810, 240, 270}},
        {29959, 5, {1600, 0, 320, 180}},
        {29954, 27, {960, 720, 320, 180}},
        {29959, 28, {0, 900, 320, 180}},
        {29959, 29, {320, 900, 320, 180}},
        {29959, 31, {960, 900, 320, 180}},
        {29958, 32, {}},
        {29954, 32, {}},
    };
    for (const auto &[model, input, place] : rows)
        EXPECT_EQ(DeviceList::instance()->echoVideoRect(model, input), place) << model << ' ' << int(input);
    const MessageLog messages;
    EXPECT_EQ(DeviceList::instance()->echoVideoRect(29955, 0), QRect());
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: Get echo input video rect has failed! The device modelId= "
                                                "29955  dosn't support."_q));
}

} // namespace
