/// The way of a screen from one scene to the other, its plain properties, a reported record, and what the kinds answer.
#include "wall.h"

#include <quorixbizmodel/capability/quorixbizstruct.h>

namespace Quorix::Tests {

using Scenes = Wall;

TEST_F(Scenes, GoByTheirBrackets) {
    const std::tuple<bool (Screen::*)(), State, State> rows[] = {
        {&Screen::startTake, State::Normal, State::Taking},      {&Screen::endTake, State::Taking, State::Normal},
        {&Screen::startCut, State::Normal, State::Cut},          {&Screen::endCut, State::Cut, State::Normal},
        {&Screen::startTBar, State::Normal, State::Tbar_taking}, {&Screen::endTBar, State::Tbar_taking, State::Normal},
    };
    for (const auto &[step, start, to] : rows)
        for (const auto from : {State::Normal, State::Taking, State::Resource_out, State::Tbar_taking, State::Cut}) {
            SCOPED_TRACE(testing::Message() << toInt(start) << '-' << toInt(to) << " from " << toInt(from));
            regular->setState(from);
            log.take();
            const bool isAllowed = from == start;
            EXPECT_EQ((regular.get()->*step)(), isAllowed);
            EXPECT_EQ(regular->state(), isAllowed ? to : from);
            EXPECT_EQ(events().join(' '), isAllowed ? "ScreenStateChanged()" : "");
            EXPECT_TRUE(!isAllowed || regular->lastState() == from);
        }
}

/// Each row twice: the second time must be silent.
TEST_F(Scenes, SignalChangesOnly) {
    EventLog own{regular.get()};
    const struct {
        const char *events; ///< of the screen, without "signal"
        std::function<void(Screen &)> act;
        const char *hub = nullptr; ///< where it isn't "Screen" and the same
    } rows[] = {
        {"ScreenNameChanged()", call(&Screen::setName, QString::fromUtf8("屏幕1"))},
        {"ScreenIndexChanged()", call(&Screen::setIndex, 4)},
        {"ScreenNameChanged() ScreenIndexChanged()", call(&Screen::setScreenGeneral, {"b", "62", 5})},
        {"", call(&Screen::setScreenGeneral, {"b", "63", 5})},
        {"BackGroundColorChanged()", call(&Screen::setBackGroundColor, {1, 2, 3}), "MVRScreenBackgroundColorChanged()"},
        {"ScreenNovsStatusChanged()", call(&Screen::setScreenNovs, {.enable = 0, .status = 1})},
        {"SelectedChanged()", call(&Screen::setSelected, true), ""},
        {"ZOrderchanged()", call(&Screen::setZOrder, -3), ""},
        {"SpliceModeChanged()", call(&Screen::setSpliceMode, Screen::ScreenSpliceMode::AnyShapedSplice),
         "ScreenSpliceModeChanged()"},
        {"TBarChanged()", [](Screen &s) { s.setTBar(50); }, ""},
        {"SwitchEffectchanged()", [](Screen &s) { s.setSwitchEffect(1.25); }, "ScreenEffectChanged()"},
        {"", [](Screen &s) { s.setSwitchEffect(1.29); }},
        {"SwitchEffectchanged()", [](Screen &s) { s.setSwitchEffect(Screen::SwitchEffectType::Ease2Center); },
         "ScreenEffectChanged()"},
        {"FTBchanged()", [](Screen &s) { s.setFTB({.enable = 2, .time = 0}); }, "ScreenFTBChanged()"},
        {"", [](Screen &s) { s.setFTB(true); }},
        {"FreezeChanged()", call(&Screen::setFreeze, true), "ScreenPGMFreezeChanged()"},
        {"PGMEditEnableChanged()", call(&Screen::setPGMEdit, true), "ScreenPGMEditChanged()"},
        {"OperationTargetChanged()", call(&Screen::setOperationTarget, SceneType::PGM),
         "ScreenOperationTargetChanged()"},
        {"PhysicalUnitChanged()", call(&Screen::setPhysicalUnit, Screen::PhysicalUnitType::Meter), ""},
    };
    for (const auto &[heardOfScreen, act, hub] : rows) {
        act(*regular), act(*regular);
        EXPECT_EQ(own.take().join(' ').remove("signal"), heardOfScreen);
        EXPECT_EQ(events().join(' '), hub == nullptr ? heardOfScreen : hub) << heardOfScreen;
    }
    regular->setName(QString::fromUtf8("屏幕1"));
    EXPECT_EQ(regular->screenGeneral().nameGB2312, "C6C1C4BB31");
    EXPECT_DOUBLE_EQ(regular->switchEffectTime() + regular->TBarProcess(), 1.2 + 0.5);
}

TEST_F(Scenes, ComeWithARecordInSilence) {
    EventLog own{regular.get()};
    auto detail = regular->storedState().m_detail;
    detail.selected = 1;
    QString error;
    for (const auto &[percent, state] : {qMakePair(37, State::Tbar_taking), qMakePair(100, State::Normal)}) {
        detail.tbar.percent = percent;
        EXPECT_TRUE(regular->initModelData(device, detail, error));
        EXPECT_TRUE(regular->state() == state && regular->lastState() == State::Normal);
        EXPECT_EQ(regular->storedState().m_detail, detail);
    }
    log.take();
    regular->unserailize(device);
    EXPECT_TRUE(device->selectedScreen(2).size() == 1 && own.take().isEmpty());
    regular->setIndex(3); // joined once
    EXPECT_THAT(events().filter("Index"), ElementsAre("ScreenIndexChanged()"));
    own.take();
    regular->clearAll();
    EXPECT_TRUE(own.take().isEmpty() && regular->owerDevice().expired());
    EXPECT_EQ(regular->storedState().m_detail, Screen::Detail()); // without what a new screen sets beside it
}

TEST_F(Scenes, AnswerByKind) {
    auto &main = device->deviceConfig().MainScreenCfg;
    const auto kept = main;
    regular->setGrid({2, 2}, false);
    place(*regular, {0, 1, 2});
    for (const bool isSupported : {true, false}) {
        main.IsSupportIncompleteSplicing = isSupported;
        EXPECT_TRUE(regular->isComplete() == isSupported && regular->isSupportIncompleteSplicing() == isSupported);
    }
    regular->setSpliceMode(Screen::ScreenSpliceMode::AnyShapedSplice);
    EXPECT_TRUE(regular->isComplete() && regular->isSupportIncompleteSplicing() && regular->isSupportOutputZOrder());
    main = kept;

    EXPECT_FALSE(aux->isComplete());
    place(*aux, {3});
    EXPECT_TRUE(aux->isComplete() && aux->PGMEdit() && !aux->isSupportOutputAOI() && !regular->PGMEdit());
    aux->setOwerDevice({});
    EXPECT_FALSE(aux->isComplete() || aux->isSupportVirtualScreen() || aux->isSupportProjectionFusion());

    QObject parent;
    const EchoScreen echo(&parent);
    EXPECT_TRUE(EchoScreen(echo).parent() == &parent && toInt(EchoScreen(echo).screenType()) == 16);
    EXPECT_EQ(Screen(*regular).storedState().m_detail, Screen().storedState().m_detail);
}

TEST_F(Scenes, PushLayersIntoTheValidRange) {
    place(*regular, {0});
    EXPECT_EQ(regular->layerValidRangeWindowRect(), QRect(-1920, -1080, 5760, 3240));
    const std::pair<QRect, QRect> rows[] = {
        {{10, 20, 30, 40}, {10, 20, 30, 40}},
        {{-5000, 0, 100, 50}, {-1920, 0, 100, 50}},
        {{3800, 2150, 100, 50}, {3740, 2110, 100, 50}},
        {{-1, -1, 5760, 9000}, {-1920, -1080, 5760, 3240}},
        {{0, 0, 5761, 3241}, {-1920, -1080, 5760, 3240}},
    };
    for (const auto &[given, pushed] : rows)
        EXPECT_EQ(regular->recalcLayerValidWindowRect(given), pushed);
}

} // namespace Quorix::Tests
