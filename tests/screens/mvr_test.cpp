/// The multiviewer: its grid, its rules for dragging, and the card that carries it.
#include <layers/layers.h>
#include <quorixbizmodel/screens/mvrscreen.h>

namespace Quorix::Tests {

/// An MVR screen of 1920 by 1080 pixels; slot 11, the place of the multiviewer, is empty.
struct Mvr : Wall {
    std::shared_ptr<MVRScreen> mvr;

    void SetUp() override {
        Wall::SetUp();
        mvr = addedScreen<MVRScreen>("mvr");
        place(*mvr, {4});
    }

    std::shared_ptr<Layer> added(const QRect &window, int id) {
        auto layer = Screen::createLayer(LayerType::MVR);
        layer->setSceneType(SceneType::PGM);
        layer->setLayerId(static_cast<uint8_t>(id));
        layer->setWindowRect(window, {}, false);
        mvr->addLayer(layer);
        return layer;
    }

    /// A card with four single links and its outputs in slot 11.
    void fit(int online = 1, int model = 30535, int capacity = 0) {
        Body body{.slotId = 11, .modelId = model, .cardType = 3, .online = online, .connectors = {}};
        for (int id = 0; id < 4; ++id)
            body.connectors.push_back({.id = id, .type = 4, .capacityMode = capacity});
        reported(body);
        for (int id = 0; id < 4; ++id)
            addedInterface(*device, detailOf(11, id, 4));
    }
};

TEST_F(Mvr, HasAGrid) {
    EXPECT_EQ(mvr->gridCellRects().at(7), QRect(320, 180, 320, 180));
    EXPECT_EQ(mvr->gridUnitRect({319, 0, 2, 1}), QRect(0, 0, 640, 180));
    EXPECT_EQ(mvr->gridUnitRect({-5, 0, 5, 5}), QRect());
    const std::tuple<QSize, int, QRect> rows[] = {
        {{7, 1}, 7, {1644, 0, 274, 1080}},
        {{kLowest, 2}, 2, {0, 540, 1920, 540}},
        {{kHighest, kHighest}, 65536, {1785, 1020, 7, 4}},
    };
    for (const auto &[span, count, last] : rows) {
        mvr->setRowColSpan(span);
        EXPECT_THAT(events("mvr"), ElementsAre("MVRScreenRowColSpanChanged()"));
        EXPECT_EQ(mvr->gridCellRects().size(), count);
        EXPECT_EQ(mvr->gridCellRects().last(), last);
    }
    const MVRScreen copy(*mvr); // a new one
    EXPECT_TRUE(copy.rowColSpan() == QSize(6, 6) && copy.screenType() == mvr->screenType());
}

TEST_F(Mvr, KeepsRectanglesApart) {
    const QRect other(100, 100, 100, 100);
    // as given, dropped across and down, cut across and down
    const std::tuple<QRect, QRect, QRect, QRect, QRect> rows[] = {
        {{150, 150, 100, 100}, {200, 150, 100, 100}, {150, 200, 100, 100}, {200, 150, 50, 100}, {150, 200, 100, 50}},
        {{50, 50, 100, 100}, {0, 50, 100, 100}, {50, 0, 100, 100}, {50, 50, 50, 100}, {50, 50, 100, 50}},
        {{120, 120, 80, 80}, {200, 120, 80, 80}, {120, 20, 80, 80}, {120, 120, 80, 80}, {120, 120, 80, 80}},
    };
    for (const auto &[unit, dropAcross, dropDown, cutAcross, cutDown] : rows) {
        EXPECT_EQ(mvr->validDropRect(Qt::Horizontal, unit, other), dropAcross);
        EXPECT_EQ(mvr->validDropRect(Qt::Vertical, unit, other), dropDown);
        EXPECT_EQ(mvr->maxValidRect(Qt::Horizontal, unit, other), cutAcross);
        EXPECT_EQ(mvr->maxValidRect(Qt::Vertical, unit, other), cutDown);
    }

    const auto layer = std::dynamic_pointer_cast<MVRLayer>(added(other, 0));
    EXPECT_EQ(mvr->overLappedLayers({}, {199, 199, 5, 5}).size(), 1);
    EXPECT_THAT(mvr->overLappedLayers({}, QRect(200, 100, 5, 5)) + mvr->overLappedLayers(layer, other), IsEmpty());
    const QRect dragged(150, 150, 100, 100);
    EXPECT_EQ(mvr->vaildDragRect(dragged, {layer, {}}, {110, 300}), QRect(150, 200, 100, 50));
    EXPECT_EQ(mvr->vaildDragRect(dragged, {layer}, {110, 110}), QRect(200, 150, 50, 100));

    EXPECT_TRUE(mvr->checkItemRect({150, 150, 10, 10}, layer, true));
    EXPECT_TRUE(mvr->checkItemRect({199.5, 150, 10, 10}, {}, false)); // rounded to 200
    for (const QRectF &refused : {QRectF(199.4, 150, 10, 10), QRectF(1911, 0, 10, 10), QRectF(qQNaN(), 0, 10, 10)})
        EXPECT_FALSE(mvr->checkItemRect(refused, {}, false));
}

TEST_F(Mvr, FillsCellsOnFullScreen) {
    const auto layer = added({10, 10, 400, 100}, 0);
    const auto blocked = added({700, 10, 20, 20}, 1);
    added({900, 100, 100, 100}, 2);
    place(*regular, {0});
    regular->setOutputAOI({{outputs[0], {0, 0, 500, 100}}});
    layer->setSource(sourceOf(SourceType::PGM, 0));
    auto rects = mvr->layerFullScreenRect({layer, blocked, {}, Screen::createLayer(LayerType::MVR)});
    ASSERT_EQ(rects.size(), 2); // two cells are cut to the screen that is shown
    EXPECT_TRUE(rects[0].second == QRect(0, 0, 500, 100) && rects[1].second == QRect(700, 10, 20, 20));

    for (const auto &[id, name] : {std::pair(0U, "regular-PVW"), {256U, ""}})
        EXPECT_EQ(mvr->nextLayerName(id, SourceType::PVW, SceneType::PGM, LayerType::MVR), name);
    EXPECT_TRUE(device->isSourceUsedByMVR(0, SourceType::PGM));
    log.take();
    mvr->appendSelectedLayer({layer}, true);
    EXPECT_EQ(heard(), "ActivedMVRScreenChanged(mvr) SelectedLayersChanged(mvr, true)");
}

TEST_F(Mvr, OpensOnAFreeCard) {
    QString error;
    const auto refused = [&](const char *text) {
        error.clear();
        EXPECT_FALSE(device->isAllowOpenMVR(error));
        EXPECT_THAT(error.toStdString(), testing::HasSubstr(text));
    };
    refused("Out6 slot cannot find card,please insert card,such as:K_QuadPort.");
    EXPECT_EQ(MessageLog::take().count("warning: " + error), 1);
    fit(0);
    refused("Out6 slot cannot recognize the current card");
    for (const auto &[model, capacity] : {std::pair(30531, 0), {30535, 2}}) {
        fit(1, model, capacity);
        refused("Please switch the card or connector capacity and try again.");
    }
    fit();
    aux->addOutput(device->findOutput(11, 2), {0, 0}, false);
    refused("The output card is used by the screen.");
    aux->removeOutput(device->findOutput(11, 2));
    error = "before";
    EXPECT_TRUE(device->isAllowOpenMVR(error) && error == "before");
    EXPECT_FALSE(Device(65535).isAllowOpenMVR(error));
    EXPECT_EQ(error, "Unable to open MVR.No device configuration information found. The device ModelId is 65535.");
    EXPECT_FALSE(Device(29959 + 1000).isAllowOpenMVR(error)); // no file: a default record
    EXPECT_EQ(error, "Unable to open MVR.The device not support mvr.");
}

TEST_F(Mvr, ClaimsAndFreesItsCard) {
    fit();
    const auto state = [&] {
        QStringList texts;
        for (uint8_t id = 0; id < 4; ++id) {
            const auto port = device->findOutput(11, id).lock();
            texts +=
                QString("%1/%2 %3").arg(port->type()).arg(device->connectorWorkMode({11, id, 0})).arg(port->name());
        }
        return texts.join(", ");
    };
    device->closeMVR();
    const QString closed = "4/0 Output 6-1, 4/0 Output 6-2, 4/0 Output 6-3, 4/0 Output 6-4";
    EXPECT_EQ(state(), closed);
    ProtoModel::Screen::s_Enable enable;
    enable.screenId = 1, enable.screenType = toInt(ScreenType::MVRScreen);
    enable.mosaic.outputs.resize(1);
    enable.mosaic.outputs[0].interfaceId = {.slotId = 11, .connectorId = 0, .splitId = 0};
    log.take();
    device->openMVR({enable}, true);
    EXPECT_EQ(log.take().last(), "signalMVRStatusChanged(device)");
    EXPECT_EQ(state(), "16/0 Output 6-1, 16/2 Output 6-2, 8/0 AUX 1, 8/0 AUX 2"); // picture, echo, two free ones
    EXPECT_EQ(device->slot(11).lock()->cardType(), CardType::_MVR);
    EXPECT_TRUE(device->isOutputUsedByMVRScreen({11, 0, 0}));
    device->findOutput(11, 0).lock()->setPresetTiming(1280, 720, 60);
    log.take();
    device->updateMVRConnector(true);
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_EQ(device->findOutput(11, 0).lock()->presetFrameRate(), QSize(1920, 1080));

    QString error;
    const auto layer = added({0, 0, 64, 64}, 0);
    EXPECT_FALSE(device->isAllowCloseMVR(error) || error != "Unable to close MVR.The card is used.");
    mvr->removeLayer(mvr->layers(SceneType::PGM));
    EXPECT_TRUE(device->isAllowCloseMVR(error) && !Device(65535).isAllowCloseMVR(error));
    device->closeMVR();
    EXPECT_EQ(state(), closed);
    EXPECT_TRUE(device->isOpenedMVR()); // its screens are the caller's
}

} // namespace Quorix::Tests
