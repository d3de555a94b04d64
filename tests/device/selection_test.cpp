/// What the operator has picked: which signals a change of it gives, in which order.
#include <quorixbizmodel/screens/mvrscreen.h>
#include <screens/wall.h>

namespace Quorix::Tests {

struct Selection : Wall {
    std::shared_ptr<RegularScreen> second;
    std::shared_ptr<MVRScreen> mvr;
    std::shared_ptr<MVRScreen> mvr2;
    std::shared_ptr<Preset> preset = standIn<Preset>();
    std::unique_ptr<EventLog> own; ///< hears the device

    void SetUp() override {
        Wall::SetUp();
        second = addedScreen<RegularScreen>("second", 1);
        mvr = addedScreen<MVRScreen>("mvr");
        mvr2 = addedScreen<MVRScreen>("mvr2", 1);
        own = std::make_unique<EventLog>(device.get());
        for (const auto &screen : device->screens(30))
            own->name(screen.lock().get(), screen.lock()->name());
        own->name(preset.get(), "preset");
    }

    /// Compares what the device signals at a step.
    void step(const char *events, const std::function<void()> &act) {
        act();
        EXPECT_EQ(own->take().join(' ').remove("signal").remove("Changed").remove("()"), events);
    }
};

TEST_F(Selection, OfScreensSignalsInOrder) {
    using Screens = QList<std::weak_ptr<Screen>>;
    using Regulars = QList<std::weak_ptr<RegularScreen>>;
    auto &d = *device;
    step("SelectedRegularScreen ViewScreen SelectedScreen",
         [&] { EXPECT_TRUE(d.appendSelectedScreen(regular, true, true)); });
    for (const auto &refused : {regular, std::make_shared<RegularScreen>()})
        step("", [&] { EXPECT_FALSE(d.appendSelectedScreen(refused, true, true)); });
    step("ViewScreen ActivedMVRScreen(mvr)", [&] { d.appendSelectedScreen({aux, mvr, {}}, false, true); });
    step("SelectedMVRScreen", [&] { d.appendSelectedScreen(mvr2, true, true); });
    EXPECT_EQ(d.selectedScreen(30).size() * 10 + d.viewingScreen().size(), 42);
    step("ActivedMVRScreen(mvr2) SelectedMVRScreen SelectedScreen", [&] { d.removeSelectedScreen({mvr}, false); });
    step("SelectedMVRScreen SelectedScreen", [&] { d.appendSelectedScreen(Screens{mvr}, true, true); });
    step("SelectedScreen", [&] { d.appendSelectedScreen(Screens(), true, true); });
    step("", [&] { d.appendViewingScreen(second, false), d.removeSelectedScreen({second}, false); });
    step("ViewScreen", [&] { d.removeSelectedScreen({second}, true); });
    step("ViewScreen SelectedRegularScreen SelectedScreen", [&] { d.clearSelectedRegularScreenList(true); });
    step("", [&] { d.clearSelectedRegularScreenList(true), d.clearSelectedAuxScreenList(false); });
    step("ViewScreen", [&] { d.clearViewingScreen(true); });
    step("ViewScreen ViewScreen", [&] { d.appendViewingScreen({regular, second, regular}); });
    step("ViewScreen", [&] { d.clearViewingScreen(Regulars{second, second}, true); });
    step("", [&] { d.clearViewingScreen(QList<std::weak_ptr<AuxScreen>>{aux}, true); });
    EXPECT_EQ(regular->selected() + second->selected() + aux->selected(), 0);
    EXPECT_TRUE(device->isScreenSelected(mvr) && device->containsSelectedScreen(ScreenType::MVRScreen, 1));
    EXPECT_FALSE(device->isScreenSelected({}) || device->containsSelectedScreen(ScreenType::AllScreenType, 1));
}

TEST_F(Selection, OfScreensTakesAScreenOnceThoughAListenerIsFaster) {
    QObject::connect(regular.get(), &Screen::signalSelectedChanged, regular.get(),
                     [this] { device->appendSelectedScreen(regular, true, true); });
    device->appendSelectedScreen(regular, true, true);
    EXPECT_EQ(device->selectedScreen(2).size(), 1);
}

TEST_F(Selection, OfPortsSignalsInOrder) {
    auto &d = *device;
    QString error;
    const auto twinOf = [&](std::size_t number) { return std::make_shared<Output>(*outputs[number]); };
    step("", [&] { EXPECT_FALSE(d.updateCutoutRGB({}, error)); });
    step("SelectedInput", [&] { d.appendSelectedInput({}); });
    step("SelectedInput", [&] { d.appendSelectedInput({input, {}, input}); });
    step("", [&] { EXPECT_TRUE(d.updateCutoutRGB({}, error) && (d.removeSelectedInput(1, 1), true)); });
    EXPECT_EQ(d.selectedInterfaces(2 | 4).size(), 1);
    step("SelectedInput", [&] { d.removeSelectedInput(1, 0); });
    step("SelectedInput", [&] { d.removeSelectedInput({input}); });
    step("SelectedOutput", [&] { d.appendSelectedOutput(outputs[0]); });
    step("", [&] { d.appendSelectedOutput(twinOf(0)), d.removeSelectedOutput(outputs[1]); });
    step("SelectedOutput", [&] { d.removeSelectedOutput(twinOf(0)); });
    step("", [&] { d.appendSelectedOutput({}); });
    step("SelectedOutput", [&] { d.clearSelectedOutputs(true); });
    step("ActivedOutput", [&] { d.setActivedOutput({}); });
    step("ActivedOutput", [&] { d.setActivedOutput(outputs[0]); });
    step("", [&] { d.setActivedOutput(twinOf(0)); });
    step("ActivedPreset(preset) ActivedPresetKeyNo", [&] { d.setActivedPreset(preset, 7); });
    step("ActivedPresetKeyNo", [&] { d.setActivedPreset(preset, 8); });
    EXPECT_EQ(d.activedLastPresetKeyNo() * 10 + d.activedPresetKeyNo(), 78);
}

TEST_F(Selection, ActivatesWithTheSceneSetBefore) {
    regular->setOperationTarget(SceneType::AllSceneType);
    log.take();
    device->setActivedScreen(mvr);
    device->setActivedScreen(regular);
    device->setActivedScreen(regular);
    EXPECT_EQ(heard(), "ActivedMVRScreenChanged(mvr) ScreenOperationTargetChanged(regular)");
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(heard(), "ActivedScreenChanged(regular)");
    EXPECT_EQ(regular->operationTarget(), SceneType::PVW);
    EXPECT_TRUE(device->activedScreen().lock() == regular && device->activedMVRScreen().lock() == mvr);
}

} // namespace Quorix::Tests
