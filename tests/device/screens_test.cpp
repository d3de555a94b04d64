/// How screens come to a device, are found in it and leave it, and what new ones are given.
#include <layers/layers.h>
#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/screens/mvrscreen.h>

namespace Quorix::Tests {

namespace {

QString names(const QList<std::weak_ptr<Screen>> &screens) {
    QStringList texts;
    for (const auto &screen : screens)
        texts += screen.lock()->name();
    return texts.join(' ');
}

} // namespace

using DeviceScreens = Wall;

TEST_F(DeviceScreens, StandByIndexThenKindThenId) {
    addedScreen<MVRScreen>("mvr");
    addedScreen<RegularScreen>("second", 2);
    const auto front = addedScreen<RegularScreen>("front", 9);
    front->setIndex(-1);
    EXPECT_EQ(names(device->screens(30)), "front regular second aux mvr");
    EXPECT_EQ(names(device->screens(4 | 8 | 16)), "aux mvr");
    EXPECT_EQ(device->findScreen(2, 9).lock(), front);
    EXPECT_TRUE(device->findScreen("aux").lock() == aux && device->findAuxScreen("aux").lock() == aux);
    EXPECT_FALSE(device->containsAuxScreen("Aux") || device->containsScreen(ScreenType::AUXScreen, 9) ||
                 device->containsScreen({}) || device->containsScreen(std::make_shared<RegularScreen>()));
    place(*aux, {1});
    EXPECT_EQ(device->findScreen(ScreenType::AUXScreen, std::weak_ptr<Output>(outputs[1])).lock(), aux);
    EXPECT_TRUE(device->findScreen(ScreenType::RegularScreen, std::weak_ptr<Output>(outputs[1])).expired());
}

TEST_F(DeviceScreens, NewOnesGetFreeNumbersNamesAndPlaces) {
    addedScreen<RegularScreen>("Screen 3", 2);
    regular->setName("Screen 1");
    EXPECT_EQ(device->nextScreenName(ScreenType::RegularScreen), "Screen 2");
    aux->setName("Screen 2"); // names are those of all kinds
    EXPECT_EQ(device->nextRegulerScreenName() + device->nextAuxScreenName() + device->nextMVRScreenName({"MVR 1"}) +
                  device->nextScreenName(ScreenType::EchoScreen),
              "Screen 4AuxScreen 1MVR 2N/A");
    regular->setLayoutPos(QPoint(240, 240));
    aux->setLayoutPos(QPoint(480, 481)); // not the point itself
    device->deviceConfig().MainScreenCfg.ScreenSpliceMode = eScreenSpliceMode::AnyShapedSplice;
    log.take();
    const auto made = device->createDefaultScreen(ScreenType::RegularScreen, 2, 3);
    EXPECT_EQ(made->screenIdentity(), (ProtoModel::s_ScreenId{.screenId = 1, .screenType = 2}));
    EXPECT_EQ(made->name() + QString::number(made->index()), "Screen 43");
    EXPECT_TRUE(made->layoutQPos() == QPoint(480, 480) && made->grid() == qMakePair(2, 3));
    EXPECT_TRUE(made->imageQuality().gamma == 100 && toInt(made->spliceMode()) == 8);
    EXPECT_EQ(toInt(device->createDefaultScreen(ScreenType::AUXScreen, 1, 1)->spliceMode()), 2);
    EXPECT_EQ(device->createDefaultScreen(ScreenType::EchoScreen, 1, 1), nullptr);
    EXPECT_FALSE(device->containsScreen(made) || made->signalsBlocked() || !log.take().isEmpty());
    ProtoModel::Screen::s_Enable enable;
    enable.screenType = 8;
    for (; enable.screenId < 255; ++enable.screenId)
        device->addScreen(enable);
    EXPECT_EQ(device->nextScreenId(ScreenType::MVRScreen), 255);
}

TEST_F(DeviceScreens, ComeFromRecordsOnce) {
    ProtoModel::Screen::s_Enable enable;
    enable.screenType = 4, enable.screenId = 3;
    enable.general = {.name = "Bühne", .nameGB2312 = "", .index = 6};
    enable.layout = {.x = 9, .y = 9};
    device->addScreens({enable, enable});
    EXPECT_EQ(heard(), "ScreenAdded(?)");
    const auto screen = device->findScreen(4, 3).lock();
    EXPECT_TRUE(screen->name() == "Bühne" && screen->index() == 6 && screen->layoutQPos() == QPoint(0, 0));
    for (const int type : {0, 6, 16, 99})
        enable.screenType = type, device->addScreen(enable);
    device->appendScreen(std::make_shared<EchoScreen>());
    device->appendScreen(nullptr);
    EXPECT_EQ(heard(), QString());
}

TEST_F(DeviceScreens, GiveTheirParametersToTheirOutputs) {
    auto fresh = device->createDefaultScreen(ScreenType::RegularScreen, 1, 2);
    log.name(fresh.get(), "fresh");
    place(*fresh, {3, 4});
    outputs[4]->setPresetTiming(ultraHd()), outputs[3]->setTestPattern({.enable = 1, .type = 3});
    log.take();
    device->addScreens(QList<std::shared_ptr<Screen>>{regular, nullptr, fresh});
    EXPECT_EQ(heard(), "InterfaceTestPatternChanged(output3) InterfaceImageQualityChanged(output3) "
                       "PresetFrameTimingChanged(output4) InterfaceCropChanged(output4, \"\") "
                       "InterfaceImageQualityChanged(output4) ScreenAdded(fresh)");
    auto enable = fresh->screenMosaic();
    enable.mosaic.refOutputPara.timing = ultraHd(), enable.mosaic.window.width = 1;
    device->modifyScreen(fresh, enable);
    EXPECT_EQ(outputs[3]->presetTiming(), ultraHd());
}

TEST_F(DeviceScreens, LeaveWithWhatShowsThem) {
    log.name(addedLayer(*aux, LayerType::AUX, SceneType::PGM, SourceType::PGM, 0).get(), "shown");
    addedLayer(*aux, LayerType::AUX, SceneType::PGM, SourceType::PGM, 256); // not this screen's id
    device->appendSelectedScreen(regular, false, false);
    device->setActivedScreen(regular);
    QCoreApplication::sendPostedEvents();
    log.take();
    device->removeScreen(std::weak_ptr<Screen>(regular));
    EXPECT_EQ(heard(), "PGMLayerRemoved(aux, shown) LayerRemoved(aux, shown) ScreenRemoved(regular) "
                       "SelectedRegularScreensChanged(device) SelectedScreensChanged(device) "
                       "ViewingScreensChanged(device)");
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(heard(), "ActivedScreenChanged(null)");
    device->removeScreen(std::shared_ptr<Screen>(regular));
    EXPECT_EQ(heard(), QString());
    const auto mvr = addedScreen<MVRScreen>("mvr");
    device->appendSelectedScreen({aux, mvr}, false, false);
    log.take();
    device->removeScreens({aux, std::weak_ptr<Screen>(), mvr});
    EXPECT_EQ(heard(), "SelectedAUXScreensChanged(device) SelectedMVRScreensChanged(device) "
                       "SelectedScreensChanged(device) ViewingScreensChanged(device) ScreenRemoved(aux) "
                       "ScreenRemoved(mvr) ActivedMVRScreenChanged(null)");
    EXPECT_EQ(device->getMaxScreenZOrder(), -255);
}

TEST_F(DeviceScreens, AreAskedForSourcesCardsAndLimits) {
    addedLayer(*aux, LayerType::AUX, SceneType::PGM, SourceType::Input, 65536);
    const auto first = addedLayer(*regular, LayerType::Regular, SceneType::PVW, SourceType::Input, 65536);
    const auto found = device->layersBySource(65536, SourceType::Input, 30, 64);
    EXPECT_TRUE(found.size() == 2 && found[0].lock() == first); // the kind of layer doesn't narrow
    device->deviceConfig().MainScreenCfg.MaxLayerCount = 1;
    EXPECT_TRUE(device->isLayerLimited(SceneType::PVW) && !device->isLayerLimited(SceneType::PGM));
    place(*regular, {1, 0, 2});
    const auto cards = device->protoSubcards(regular);
    EXPECT_TRUE(cards.size() == 2 && cards[0].slotId == 7 && cards[1].slotId == 6);
    device->removeProtoSubCard(7);
    EXPECT_EQ(device->protoSubcards(regular).size(), 1);
    EXPECT_FALSE(device->screensNovsStatusEnable());
    regular->setScreenNovs({.enable = 1, .status = 0});
    EXPECT_TRUE(device->screensNovsStatusEnable());
}

} // namespace Quorix::Tests
