/// How reports enter a device, follow each other and leave it: order of events, what stays, what must not live on, and
/// listeners that call back from any signal.
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <screens/wall.h>
#include <support/report.h>

#include <set>

namespace Quorix::Tests {

namespace {

/// The names of events, runs of one name as "name xN".
QStringList summary(const QStringList &events) {
    QStringList names;
    for (int i = 0, run = 1; i < events.size(); ++i, ++run)
        if (const QString name = events[i].section('(', 0, 0); events.value(i + 1).section('(', 0, 0) != name) {
            names += run == 1 ? name : QString("%1 x%2").arg(name).arg(run);
            run = 0;
        }
    return names;
}

/// Weak references to everything that a device owns.
void gather(Device &device, std::vector<std::weak_ptr<QObject>> &all) {
    const auto add = [&](const auto &list) { all.insert(all.end(), list.begin(), list.end()); };
    for (const auto &card : device.subcards())
        add(card.lock()->connectors());
    add(device.subcards());
    add(device.interfaces());
    add(device.screens(30));
    for (const auto &screen : device.screens(30))
        add(screen.lock()->layers(6, 126));
}

/// Asks a device for what any thread may ask.
void read(Device &device) {
    device.deviceInfo();
    device.interfaces();
    device.subcards();
    device.selectedScreen(30);
    device.viewingScreen();
    device.layersBySource(0, SourceType::Input, 30, 126);
    DeviceList::instance()->groupDevices(device.groupId(), true, true);
    DeviceList::instance()->findDevice(device.IPAddress(), device.MAC(), device.sn());
    for (const auto &screen : device.screens(30))
        if (const auto alive = screen.lock())
            for (const auto &layer : alive->layers(6, 126))
                if (const auto shown = layer.lock())
                    std::ignore = shown->sourceValidSize();
}

} // namespace

struct Sync : Chassis {
    Report report = readReport("alder");
    QString error;
    const MessageLog messages;
};

TEST_F(Sync, FeedsInOrderOfTheReport) {
    report.feed(*device);
    EXPECT_THAT(summary(log.take()), ElementsAre("signalDeviceGroupInfoChanged", "signalInputAdded x20",
                                                 "signalScreenAdded x6", "signalViewingScreensChanged"));
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(summary(log.take()), ElementsAre("signalActivedScreenChanged"));
    EXPECT_EQ(device->groupId() + device->groupName() + device->name(), "1StudiosStudio A");
    const auto wall = device->findScreen(2, 0).lock();
    EXPECT_TRUE(device->activedScreen().lock() == wall && device->isScreenSelected(wall) && !device->isMultiScreens());
    EXPECT_TRUE(wall->state() == Screen::State::Tbar_taking && wall->layers(6, 126).size() == 7);
    // A second report of the device record replaces the cards, without a word.
    const std::weak_ptr<Subcard> before = device->subcards().front();
    report.detail.groupInfos = {{.groupName = "Foyer", .groupId = ""}};
    report.detail.subcards.pop_back();
    device->initModelData(report.detail, error);
    EXPECT_THAT(summary(log.take()), Contains("signalDeviceGroupInfoChanged"));
    EXPECT_TRUE(before.expired() && device->subcards().size() == 12);
    EXPECT_EQ(device->groupId() + device->groupName(), "0Foyer");
}

TEST_F(Sync, SelectsAndActivatesByTheReport) {
    for (auto &screen : report.screens)
        screen.selected = screen.screenId == 0 && screen.screenType != 4 ? 1 : 0;
    report.screens.push_back(report.screens[1]);
    report.screens.back().screenType = 16; // no kind that a device keeps
    EXPECT_TRUE(device->initModelData(report.screens, error));
    EXPECT_TRUE(!device->isMultiScreens() && device->screens(30).size() == 6); // a regular one and the multiviewer
    EXPECT_THAT(log.take(), Contains("signalActivedMVRScreenChanged(device, ?)"));
    device->clearAll(false);
    report.screens[1].selected = 1;
    for (auto &layer : report.layers)
        layer.selected = layer.layerIdenti.screenType != 8 ? 1 : 0;
    report.layers.front().layerIdenti.screenId = 77;
    EXPECT_TRUE(device->initModelData(report.screens, error) && device->isMultiScreens());
    EXPECT_TRUE(device->initModelData(report.layers, error));
    EXPECT_EQ(device->activedScreen().lock(), device->findScreen(4, 1).lock()); // the last by type, then id
    EXPECT_EQ(device->findScreen(2, 0).lock()->layers(6, 126).size(), 6);       // one was for no screen
}

TEST_F(Sync, FollowsReportsOfCardsAndInterfaces) {
    report.feed(*device);
    log.take();
    ProtoModel::Device::s_subcards named{.subcards = {report.detail.subcards[0]}};
    EXPECT_TRUE(device->updateSlotModelData(named, report.detail, error));
    EXPECT_THAT(summary(log.take()), ElementsAre("signalSubCardInfoChanged x13", "signalSubCardAdded"));
    auto &card = report.detail.subcards[0];
    card.online = 0;
    card.boardId = card.cardType = 77;
    report.detail.general.name = "Studio B";
    report.detail.subcards.push_back({.slotId = 9, .modelId = 30529, .cardType = 3, .connectors = {}});
    report.detail.subcards.push_back({.slotId = 300, .connectors = {}}); // no slot: neither 44 nor announced
    named.subcards = {report.detail.subcards[13], {.slotId = 14, .connectors = {}}};
    device->updateSlotModelData(named, report.detail, error);
    EXPECT_THAT(summary(log.take()), ElementsAre("signalDeviceNameChanged", "signalInterfaceRelationPairsChanged",
                                                 "signalSubCardInfoChanged x13", "signalSubCardAdded x2"));
    ProtoModel::Device::s_subcardBody stored;
    EXPECT_TRUE(device->protoSlot(0, stored) && device->isExistSlot(9) && !device->isExistSlot(44));
    EXPECT_TRUE(stored.online == 0 && stored.boardId != 77 && stored.cardType == 2);

    const auto kept = device->findInput(0, 1).lock();
    Detail changed = report.interfaces[1]; // of that input
    changed.general.name = "Camera";
    device->updateModelData({changed, detailOf(0, 3), detailOf(14, 0), detailOf(1, 0)});
    EXPECT_EQ(kept->name(), "Camera");
    // The report names two of slot 0; slot 1 stands in it behind a slot without a card.
    EXPECT_TRUE(device->interfaces(0).size() == 2 && device->interfaces(1).size() == 4);
}

TEST_F(Sync, ClearingKeepsWhatIsNotOfTheReport) {
    device->setDeviceOnlineFlag(true);
    report.feed(*device);
    device->setOutputMappingStatus(true);
    QCoreApplication::sendPostedEvents();
    log.take();
    device->clearAll(true);
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_EQ(device->name() + device->IPAddress(), "Studio A192.168.0.12");
    EXPECT_TRUE(device->onlineFlag() && device->deviceGroupStatus() && device->groupId() == "0");
    EXPECT_TRUE(device->screens(30).isEmpty() && device->interfaces().isEmpty() && device->subcards().isEmpty() &&
                device->selectedScreen(30).isEmpty() && device->viewingScreen().isEmpty());
    EXPECT_FALSE(device->outputMappingStatus() || device->activedScreen().lock() || device->isExistSlot(0));
    device->clearAll(false);
    EXPECT_EQ(device->name() + device->IPAddress(), "N/A192.168.0.10");
}

TEST_F(Sync, LeavesNothingBehind) {
    std::vector<std::weak_ptr<QObject>> all;
    for (int round = 0; round < 100; ++round) {
        report.feed(*device);
        if (round % 10 == 0)
            report.feed(*device); // a report on a filled device adds to it
        gather(*device, all);
        QCoreApplication::sendPostedEvents();
        round % 2 == 0 ? device->clearAll(round % 4 == 0) : device->setModelId(round % 4 == 1 ? 29954 : kChassis);
        ASSERT_TRUE(std::all_of(all.begin(), all.end(), [](const auto &object) { return object.expired(); })) << round;
    }
    EXPECT_GT(all.size(), 10000U);
}

TEST_F(Sync, MayComeFromAnotherThread) {
    const auto feed = [this] {
        for (int round = 0; round < 5; ++round) {
            device->clearAll(round % 2 == 0);
            report.feed(*device);
        }
    };
    runBeside(feed, [this] { read(*device); });
    std::vector<std::weak_ptr<QObject>> all;
    gather(*device, all);
    for (const auto &object : all)
        EXPECT_EQ(object.lock()->thread(), QCoreApplication::instance()->thread());
}

TEST_F(Sync, FinishesADeviceFromDisk) {
    for (auto &screen : report.screens)
        screen.selected = 0;
    device->initModelData(report.screens, error);
    device->unserailize();
    EXPECT_EQ(device->activedScreen().lock(), device->findScreen(2, 0).lock());
    EXPECT_EQ(device->activedMVRScreen().lock(), device->findScreen(8, 0).lock());
    device->removeScreens(device->screens(2 | 4));
    device->setActivedMVRScreen({});
    device->unserailize();
    EXPECT_TRUE(device->activedScreen().expired() && !device->activedMVRScreen().expired());
}

TEST_F(Sync, LayersOfTheSourcesScaleFollowTheSource) {
    report.feed(*device);
    const auto mvr = device->findScreen(8, 0).lock();
    const auto input = device->findInput(0, 0).lock();
    const auto onInput = device->layersBySource(0, SourceType::Input, 8, 8).front().lock();
    const auto onScreen = device->layersBySource(1, SourceType::PGM, 8, 8).front().lock();
    for (const auto &layer : {onInput, onScreen})
        layer->setWidthHeightRatioType(Layer::AspectRatioType::_SourceScale);
    log.name(onInput.get(), "onInput"), log.name(input.get(), "input"), log.name(mvr.get(), "mvr");
    log.take();
    input->setPresetTiming(1000, 1000, 60.0F);
    const QString events = heard();
    EXPECT_GE(events.indexOf("LayerWindowWHTypeChanged(mvr, onInput)"), 0);
    EXPECT_LT(events.indexOf("LayerWindowWHTypeChanged(mvr, onInput)"),
              events.indexOf("PresetFrameTimingChanged(input)"));
    EXPECT_EQ(onScreen->widthHeightRatioType(), Layer::AspectRatioType::_SourceScale);
    device->findScreen(2, 1).lock()->setMosaicWindowRect({0, 0, 700, 300});
    EXPECT_NE(onScreen->widthHeightRatioType(), Layer::AspectRatioType::_SourceScale);
}

/// Calls back into the model from every signal of an object.
class CallingBack : public EventLog {
public:
    CallingBack(QObject *source, Device &device) : EventLog(source), m_device(device) {}

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override {
        const int left = EventLog::qt_metacall(call, id, arguments);
        // Two levels deep: an edit in a slot is heard by slots again.
        if (call == QMetaObject::InvokeMetaMethod && depth < 2) {
            ++depth;
            read(m_device);
            edit();
            --depth;
        }
        return left;
    }

private:
    void edit() {
        const QString text = QString::number(++edits % 5);
        m_device.setName(text);
        m_device.setMultiScreens(edits % 2 == 0);
        const auto screen = m_device.screens(30).value(edits % 6).lock();
        if (screen == nullptr)
            return;
        screen->setName(text);
        m_device.setActivedScreen(screen);
        m_device.appendSelectedScreen(screen, true, true);
        m_device.removeSelectedScreen({m_device.screens(30).value(0)}, edits % 2 == 0);
        screen->setOperationTarget(edits % 2 == 0 ? Screen::SceneType::PGM : Screen::SceneType::PVW);
        const auto layer = screen->layers(6, 126).value(0).lock();
        if (layer == nullptr)
            return;
        layer->setName(text);
        layer->setWindowRect({edits % 7, 0, 640, 360}, text, true);
        screen->appendSelectedLayer({layer}, true);
        screen->clearSelectedLayers(edits % 3 == 0);
    }

    Device &m_device;
    static inline int depth = 0;
    static inline int edits = 0;
};

TEST_F(Sync, ListenersMayCallBackFromAnySignal) {
    std::vector<std::unique_ptr<CallingBack>> listeners;
    std::set<const QObject *> heard;
    const auto hear = [&](QObject *object) {
        if (object != nullptr && heard.insert(object).second)
            listeners.push_back(std::make_unique<CallingBack>(object, *device));
    };
    const auto hearAll = [&] {
        for (const auto &interface : device->interfaces())
            hear(interface.lock().get());
        for (const auto &reference : device->screens(30)) {
            const auto screen = reference.lock();
            hear(screen.get());
            for (const auto &layer : screen->layers(6, 126))
                hear(layer.lock().get());
        }
    };
    hear(DeviceList::instance());
    hear(device.get());
    report.feed(*device);
    hearAll();
    device->setDeviceOnlineFlag(true);
    device->updateModelData(report.interfaces);
    device->updateSlotModelData({.subcards = report.detail.subcards}, report.detail, error);
    device->initModelData(report.layers, error);
    hearAll();
    const auto wall = device->findScreen(2, 0).lock();
    wall->removeLayer(wall->layers(6, 126));
    wall->initPVWLayerData(report.layers, error, true);
    hearAll();
    wall->startCut();
    wall->setGrid({3, 3}, true);
    for (const auto &output : wall->outputs())
        wall->removeOutput(output);
    device->addScreens({device->createDefaultScreen(ScreenType::AUXScreen, 1, 1)});
    device->removeScreens(device->screens(30));
    device->clearAll(false);
    QObject::connect(device.get(), &Device::signalNetWorkChanged, device.get(), [this] { device->clearAll(true); });
    device->setIPAddress("192.168.0.11");
    device->setOperationStatus(OperationStatus::Loading);
    device->setDeviceOnlineFlag(false);
    device->setModelId(29959);
    QCoreApplication::sendPostedEvents();
    std::set<QString> kinds;
    for (const auto &listener : listeners)
        for (const auto &event : listener->take())
            kinds.insert(event.section('(', 0, 0));
    EXPECT_GT(kinds.size(), 45U);
}

} // namespace Quorix::Tests
