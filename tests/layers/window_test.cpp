/// Identity, record, window and ratio of a layer, and the sizes that each kind allows.
#include "layers.h"

namespace Quorix::Tests {

using Windows = Layers;

TEST_F(Windows, GoOutBeforeTheirRatio) {
    EXPECT_EQ(layer->widthHeightRatioStr(), "");
    const char *const kRatio = "LayerWindowWHTypeChanged(layer) LayerWindowWHRatioChanged(layer)";
    const char *const kWindow = "LayerWindowRectChanged(layer, \"ui\") WindowRectChanged(layer, ";
    const std::tuple<QRect, bool, QString, const char *> rows[] = {
        {{0, 0, 1920, 1080}, true, kRatio, "16:9"},
        {{0, 0, 1920, 1080}, true, "", "16:9"},
        {{5, 6, 1921, 1080}, true, QString(kWindow) + "1920x1080+0+0, 1921x1080+5+6) " + kRatio, "Custom"},
        {{5, 6, 1024, 640}, false, QString(kWindow) + "1921x1080+5+6, 1024x640+5+6)", "Custom"},
        {{5, 6, 1024, 640}, true, kRatio, "16:10"},
        {{5, 6, 125, 0}, true, QString(kWindow) + "1024x640+5+6, 125x0+5+6)", "16:10"},
    };
    for (const auto &[rect, isChangeRatio, events, text] : rows) {
        layer->setWindowRect(rect, "ui", isChangeRatio);
        EXPECT_EQ(heard(), events);
        EXPECT_EQ(layer->widthHeightRatioStr(), text);
        EXPECT_EQ(layer->windowRect(), rect);
    }
    layer->setWindowWHRatioLocked(true);
    layer->setWindowRect({5, 6, 100, 100}, {}, true);
    EXPECT_EQ(layer->widthHeightRatio(), 1.6);
    layer->setWindowWHRatio(1.5); // the lock binds the window's way alone
    EXPECT_EQ(layer->widthHeightRatioStr(), "3:2");
    layer->setWindowWHRatio(std::numeric_limits<double>::infinity());
    EXPECT_EQ(layer->widthHeightRatio(), 1.5);
}

TEST_F(Windows, TakeAnyRectangle) {
    const std::pair<QRect, QSize> rows[] = {
        {{0, 0, 64, 511}, {31, 255}},
        {{0, 0, 512, 4000}, {255, 255}},
        {QRect(QPoint(kLowest, kLowest), QPoint(kHighest, kHighest)), {0, 0}},
        {QRect(QPoint(0, 0), QPoint(kHighest, -2)), {-1073741824, -1}},
    };
    for (const auto &[window, border] : rows) {
        layer->setWindowRect(window, {}, true);
        EXPECT_EQ(layer->maxBorderSize(), border);
        layer->updateMaskRect({0, 0, 64, 64}, window);
        EXPECT_EQ(layer->windowRect(), window);
    }
}

TEST_F(Windows, ComeWithARecordInSilence) {
    Layer::Detail detail;
    detail.window.width = detail.window.height = 500;
    detail.selected = 1;
    detail.zorder = 300;
    detail.source.general = sourceOf(*second);
    EventLog own{layer.get()};
    QString error;
    EXPECT_TRUE(layer->initModelData(regular, detail, error));
    EXPECT_THAT(own.take() + log.take(), ElementsAre());
    // The ratio of a square is that of a new record: nothing has looked its name up.
    EXPECT_EQ(layer->widthHeightRatioStr(), "");
    EXPECT_EQ(layer->state().m_detail, detail);
    EXPECT_TRUE(layer->zOrder() == 44 && layer->state().m_enumCapacity == Layer::Capacity::_SL);
    layer->unserailize(regular);
    EXPECT_EQ(layer->widthHeightRatioStr(), "1:1");
    EXPECT_TRUE(regular->selectedLayers().size() == 1 && device->activedScreen().lock() == regular);
    EXPECT_TRUE(heard().contains("SelectedLayersChanged"));

    const RegularLayer copy(static_cast<RegularLayer &>(*layer));
    EXPECT_EQ(copy.layerFullDetailStruct(true), layer->layerFullDetailStruct(true));
    layer->clearAll();
    EXPECT_EQ(layer->screenLayerId(), ProtoModel::s_ScreenLayerId{});
    EXPECT_TRUE(layer->testColor().R == 50 && Layer().testColor().R == 0); // another than in a new one
}

TEST_F(Windows, FollowAReportFieldByField) {
    Layer::Detail detail = layer->layerDetail();
    detail.zorder = 258;
    detail.general = Layer::layerGeneral("b", 1, 1, 0, 0, 2);
    detail.window.width = 960;
    layer->updateEnableInfos(detail);
    EXPECT_EQ(heard(), "LayerZorderChanged(layer) LayerNameChanged(layer) LayerBackgroundChanged(layer) "
                       "LayerFreezeChanged(layer) LayerFlipTypeChanged(layer) LayerSourceChanged(layer) "
                       "LayerCropChanged(layer, \"\") LayerWindowRectChanged(layer, \"\") "
                       "WindowRectChanged(layer, 1920x1080+0+0, 960x1080+0+0) "
                       "LayerWindowWHTypeChanged(layer) LayerWindowWHRatioChanged(layer)");
    EXPECT_THAT(MessageLog::take(), ElementsAre(QStringLiteral("debug: SetZorder: layer name:  \"N/A\"   zorder:  2  "
                                                               "layer type:  2  layer id:  0")));
}

TEST_F(Windows, OfACutFollowTheFill) {
    const auto cut = added(LayerType::Cut, "cut");
    EXPECT_TRUE(layer->cutLayer().lock() == cut && cut->fillLayer().lock() == layer);
    EXPECT_TRUE(cut->cutLayer().expired() && layer->fillLayer().expired());
    layer->setName("a");
    EXPECT_EQ(cut->name(), "N/A");
    layer->setWindowRect({1, 2, 300, 200}, {}, false);
    log.take();
    layer->setCutAndFill({true, true});
    cut->setCutAndFill({true, true});
    EXPECT_EQ(heard(), "CutAndFillChanged(layer) CutAndFillChanged(cut) LayerWindowRectChanged(cut, \"\") "
                       "WindowRectChanged(cut, 1920x1080+0+0, 300x200+1+2) LayerWindowWHTypeChanged(cut) "
                       "LayerWindowWHRatioChanged(cut)");
    cut->setCutAndFill({true, true});
    layer->setName("b");
    EXPECT_EQ(heard(), "LayerNameChanged(layer) LayerNameChanged(cut)");
    cut->setCutAndFill({false, true});
    EXPECT_FALSE(cut->isFillBindingCut());
}

TEST_F(Windows, HaveSizesByKind) {
    const std::tuple<std::shared_ptr<Layer>, LayerType, QSize, QSize, QSize> rows[] = {
        {std::make_shared<RegularLayer>(), LayerType::Regular, {64, 64}, {11520, 3240}, {64, 64}},
        {std::make_shared<CutLayer>(), LayerType::Cut, {64, 64}, {11520, 3240}, {64, 64}},
        {std::make_shared<AUXLayer>(), LayerType::AUX, {3840, 1080}, {3840, 1080}, {3840, 1080}},
        {std::make_shared<BKGLayer>(), LayerType::BKG, {64, 64}, {64, 64}, {960, 540}},
        {std::make_shared<LogoLayer>(), LayerType::Logo, {64, 64}, {64, 64}, {960, 540}},
        {std::make_shared<MVRLayer>(), LayerType::MVR, {64, 64}, {3840, 1080}, {960, 540}},
    };
    for (const auto &[kind, type, min, max, normal] : rows) {
        EXPECT_EQ(kind->layerType(), type);
        const bool isMvr = type == LayerType::MVR;
        const bool isFixed = type == LayerType::BKG || type == LayerType::Logo;
        EXPECT_EQ(kind->maxWindowSize(), isMvr ? QSize(-1, -1) : QSize(64, 64));
        EXPECT_EQ(kind->defaultWindowSize(), isMvr || isFixed ? QSize(960, 540) : QSize(64, 64));
        kind->setOwnerScreen(regular);
        EXPECT_EQ(kind->minWindowSize(), min);
        EXPECT_EQ(kind->maxWindowSize(), max);
        EXPECT_EQ(kind->defaultWindowSize(), normal);
    }
}

TEST_F(Windows, OfRegularLayersGoByBorderAndSource) {
    const std::tuple<bool, QSize, QSize> rows[] = {
        {true, {40, 10}, {81, 64}},
        {true, {10, 40}, {64, 81}},
        {false, {40, 40}, {64, 64}},
        {true, {kHighest, -kHighest}, {kHighest, 64}},
    };
    for (const auto &[isEnabled, border, min] : rows) {
        layer->setBorderEnabled(isEnabled);
        layer->setBorderSize(border, {});
        EXPECT_EQ(layer->minWindowSize(), min);
    }
    layer->setSource(sourceOf(SourceType::NoSource, 0));
    EXPECT_EQ(layer->defaultWindowSize(), QSize(960, 540));
    second->setPresetTiming({0, 6000, {1921}, {1081}});
    layer->setSource(sourceOf(*second));
    EXPECT_EQ(layer->defaultWindowSize(), QSize(961, 541));
    layer->setSource(sourceOf(SourceType::Input, 77));
    EXPECT_EQ(layer->defaultWindowSize(), QSize(64, 64));
}

TEST_F(Windows, OfTheMultiviewerGoByTheirSource) {
    EXPECT_EQ(MVRLayer::layerMinimumSize(QSize(3840, 2160)), QSize(64, 64));
    EXPECT_EQ(MVRLayer::layerMinimumSize(QSize(7680, 4320)), QSize(121, 69));
    const QSize largest = second->connectorInfo().m_sizeMaxResolution;
    ASSERT_FALSE(largest.isEmpty());
    EXPECT_EQ(MVRLayer::layerMinimumSize(second), QSize(largest.width() / 64, largest.height() / 64));
    EXPECT_EQ(MVRLayer::layerMinimumSize(std::make_shared<Input>()), QSize(64, 64));
    EXPECT_TRUE(MessageLog::take().join('|').contains("critical:  no found connectorInfo ,ConnectorType: "));
    const auto small = addedScreen<RegularScreen>("small", 1);
    place(*small, {2});
    MVRLayer window;
    window.setOwnerScreen(regular);
    window.setSource(sourceOf(SourceType::PGM, 1));
    EXPECT_EQ(window.maxWindowSize(), QSize(1920, 1080));
    EXPECT_EQ(window.name(), "small-PGM");
    EXPECT_EQ(Layer::defaultBorderColor(LayerType::MVR, SourceType::PGM), QColor(192, 36, 37, 100));
    EXPECT_EQ(Layer::defaultBorderColor(LayerType::Regular, SourceType::PGM), QColor(50, 50, 50, 100));
}

} // namespace Quorix::Tests
