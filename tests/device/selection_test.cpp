/// What the operator has picked: which signals a change of it gives, in which order.
#include <quorixbizmodel/screens/mvrscreen.h>
#include <screens/wall.h>

namespace Quorix::Tests {

using namespace BizModel;
using Enum::Screen::ScreenType;
using testing::ElementsAre;

struct Selection : Wall {
    std::shared_ptr<RegularScreen> second;
    std::shared_ptr<MVRScreen> mvr;
    std::shared_ptr<MVRScreen> mvr2;
    std::shared_ptr<Preset> preset = standIn<Preset>();
    std::unique_ptr<EventLog> own; ///< hears the device

    void SetUp() override {
        Wall::SetUp();
        second = addedScreen<RegularScreen>(QStringLiteral("second"), 1);
        mvr = addedScreen<MVRScreen>(QStringLiteral("mvr"));
        mvr2 = addedScreen<MVRScreen>(QStringLiteral("mvr2"), 1);
        own = std::make_unique<EventLog>(device.get());
        own->name(mvr.get(), QStringLiteral("mvr"));
        own->name(mvr2.get(), QStringLiteral("mvr2"));
        own->name(regular.get(), QStringLiteral("regular"));
        own->name(preset.get(), QStringLiteral("preset"));
    }

    /// Performs steps and compares what the device signals at each.
    struct Step {
        const char *events;
        void (*act)(Selection &, Device &);
    };
    template <std::size_t count>
    void run(const Step (&steps)[count]) {
        for (std::size_t i = 0; i < count; ++i) {
            steps[i].act(*this, *device);
            auto heard = own->take().join(' ').remove(QStringLiteral("signal")).remove(QStringLiteral("()"));
            EXPECT_EQ(heard, QString::fromLatin1(steps[i].events)) << "step " << i;
        }
    }
};

TEST_F(Selection, OfScreensSignalsInOrder) {
    static const Step steps[] = {
        {"SelectedRegularScreenChanged ViewScreenChanged SelectedScreenChanged",
         [](auto &s, auto &d) { EXPECT_TRUE(d.appendSelectedScreen(s.regular, true, true)); }},
        {"", [](auto &s, auto &d) { EXPECT_FALSE(d.appendSelectedScreen(s.regular, true, true)); }},
        {"",
         [](auto &, auto &d) { EXPECT_FALSE(d.appendSelectedScreen(std::make_shared<RegularScreen>(), true, true)); }},
        {"ViewScreenChanged ActivedMVRScreenChanged(mvr)",
         [](auto &s, auto &d) {
             d.appendSelectedScreen({s.aux, s.mvr, std::weak_ptr<Screen>()}, false, true);
         }},
        {"SelectedMVRScreenChanged", [](auto &s, auto &d) { d.appendSelectedScreen(s.mvr2, true, true); }},
        {"", [](auto &, auto &d) { EXPECT_EQ(d.selectedScreen(30).size() * 10 + d.viewingScreen().size(), 42); }},
        {"ActivedMVRScreenChanged(mvr2) SelectedMVRScreenChanged SelectedScreenChanged",
         [](auto &s, auto &d) { d.removeSelectedScreen({s.mvr}, false); }},
        {"SelectedMVRScreenChanged SelectedScreenChanged",
         [](auto &s, auto &d) { d.appendSelectedScreen(QList<std::weak_ptr<Screen>>{s.mvr}, true, true); }},
        {"SelectedScreenChanged",
         [](auto &, auto &d) { d.appendSelectedScreen(QList<std::weak_ptr<Screen>>(), true, true); }},
        {"", [](auto &s, auto &d) { d.appendViewingScreen(s.second, false); }},
        {"", [](auto &s, auto &d) { d.removeSelectedScreen({s.second}, false); }},
        {"ViewScreenChanged", [](auto &s, auto &d) { d.removeSelectedScreen({s.second}, true); }},
        {"ViewScreenChanged SelectedRegularScreenChanged SelectedScreenChanged",
         [](auto &, auto &d) { d.clearSelectedRegularScreenList(true); }},
        {"", [](auto &, auto &d) { d.clearSelectedRegularScreenList(true); }},
        {"", [](auto &, auto &d) { d.clearSelectedAuxScreenList(false); }},
        {"ViewScreenChanged", [](auto &, auto &d) { d.clearViewingScreen(true); }},
        {"ViewScreenChanged ViewScreenChanged",
         [](auto &s, auto &d) {
             d.appendViewingScreen({s.regular, s.second, s.regular});
         }},
        {"ViewScreenChanged",
         [](auto &s, auto &d) {
             d.clearViewingScreen(QList<std::weak_ptr<RegularScreen>>{s.second, s.second}, true);
         }},
        {"", [](auto &s, auto &d) { d.clearViewingScreen(QList<std::weak_ptr<AuxScreen>>{s.aux}, true); }},
    };
    run(steps);
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
    static const Step steps[] = {
        {"",
         [](auto &, auto &d) {
             QString error;
             EXPECT_FALSE(d.updateCutoutRGB({}, error));
         }},
        {"SelectedInputChanged", [](auto &, auto &d) { d.appendSelectedInput({}); }},
        {"SelectedInputChanged",
         [](auto &s, auto &d) {
             d.appendSelectedInput({s.input, std::weak_ptr<Input>(), s.input});
         }},
        {"",
         [](auto &, auto &d) {
             QString error;
             EXPECT_TRUE(d.updateCutoutRGB({}, error));
         }},
        {"", [](auto &, auto &d) { d.removeSelectedInput(1, 1); }},
        {"", [](auto &, auto &d) { EXPECT_EQ(d.selectedInterfaces(2 | 4).size(), 1); }},
        {"SelectedInputChanged", [](auto &, auto &d) { d.removeSelectedInput(1, 0); }},
        {"SelectedInputChanged", [](auto &s, auto &d) { d.removeSelectedInput({s.input}); }},
        {"SelectedOutputChanged", [](auto &s, auto &d) { d.appendSelectedOutput(s.outputs[0]); }},
        {"", [](auto &s, auto &d) { d.appendSelectedOutput(std::make_shared<Output>(*s.outputs[0])); }},
        {"", [](auto &s, auto &d) { d.removeSelectedOutput(s.outputs[1]); }},
        {"SelectedOutputChanged",
         [](auto &s, auto &d) { d.removeSelectedOutput(std::make_shared<Output>(*s.outputs[0])); }},
        {"", [](auto &, auto &d) { d.appendSelectedOutput({}); }},
        {"SelectedOutputChanged", [](auto &, auto &d) { d.clearSelectedOutputs(true); }},
        {"ActivedOutputChanged", [](auto &, auto &d) { d.setActivedOutput({}); }},
        {"ActivedOutputChanged", [](auto &s, auto &d) { d.setActivedOutput(s.outputs[0]); }},
        {"", [](auto &s, auto &d) { d.setActivedOutput(std::make_shared<Output>(*s.outputs[0])); }},
        {"ActivedPresetChanged(preset) ActivedPresetKeyNoChanged",
         [](auto &s, auto &d) { d.setActivedPreset(s.preset, 7); }},
        {"ActivedPresetKeyNoChanged", [](auto &s, auto &d) { d.setActivedPreset(s.preset, 8); }},
        {"", [](auto &, auto &d) { EXPECT_EQ(d.activedLastPresetKeyNo() * 10 + d.activedPresetKeyNo(), 78); }},
    };
    run(steps);
}

TEST_F(Selection, ActivatesWithTheSceneSetBefore) {
    regular->setOperationTarget(Enum::Layer::SceneType::AllSceneType);
    log.take();
    device->setActivedScreen(mvr);
    device->setActivedScreen(regular);
    device->setActivedScreen(regular);
    EXPECT_THAT(log.take(), ElementsAre(QStringLiteral("signalActivedMVRScreenChanged(device, mvr)"),
                                        QStringLiteral("signalScreenOperationTargetChanged(device, regular)")));
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(log.take(), ElementsAre(QStringLiteral("signalActivedScreenChanged(device, regular)")));
    EXPECT_EQ(regular->operationTarget(), Enum::Layer::SceneType::PVW);
    EXPECT_TRUE(device->activedScreen().lock() == regular && device->activedMVRScreen().lock() == mvr);
}

} // namespace Quorix::Tests
