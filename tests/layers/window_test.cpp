/// Identity, record, window and ratio of a layer.
#include "layers.h"

namespace Quorix::Tests {

struct Windows : Layers {};

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
        layer->setWindowRect(rect, QStringLiteral("ui"), isChangeRatio);
        EXPECT_EQ(heard(), events);
        EXPECT_EQ(layer->widthHeightRatioStr(), text);
        EXPECT_EQ(layer->windowRect(), rect);
    }
    layer->setWindowWHRatioLocked(true);
    EXPECT_EQ(heard(), "WindowWHRatioLockedStateChanged(layer, \"\")");
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
    EXPECT_EQ(layer->zOrder(), 44);
    EXPECT_EQ(layer->state().m_detail, detail);
    EXPECT_EQ(layer->state().m_enumCapacity, Layer::Capacity::_SL);
    layer->unserailize(regular);
    EXPECT_EQ(layer->widthHeightRatioStr(), "1:1");
    EXPECT_EQ(regular->selectedLayers().size(), 1);
    EXPECT_EQ(device->activedScreen().lock(), regular);
    EXPECT_TRUE(heard().contains(QStringLiteral("SelectedLayersChanged")));

    const RegularLayer copy(static_cast<RegularLayer &>(*layer));
    EXPECT_EQ(copy.layerFullDetailStruct(true), layer->layerFullDetailStruct(true));
    layer->clearAll();
    EXPECT_EQ(layer->screenLayerId(), ProtoModel::s_ScreenLayerId{});
    EXPECT_EQ(layer->testColor().R, 50); // 0 in a new one
    EXPECT_EQ(Layer().testColor().R, 0);
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
    const auto cut = added(LayerType::Cut, QStringLiteral("cut"));
    EXPECT_EQ(layer->cutLayer().lock(), cut);
    EXPECT_EQ(cut->fillLayer().lock(), layer);
    EXPECT_TRUE(cut->cutLayer().expired() && layer->fillLayer().expired());
    layer->setName(QStringLiteral("a"));
    EXPECT_EQ(cut->name(), "N/A");
    layer->setWindowRect({1, 2, 300, 200}, {}, false);
    log.take();
    layer->setCutAndFill({true, true});
    cut->setCutAndFill({true, true});
    EXPECT_EQ(heard(), "CutAndFillChanged(layer) CutAndFillChanged(cut) LayerWindowRectChanged(cut, \"\") "
                       "WindowRectChanged(cut, 1920x1080+0+0, 300x200+1+2) LayerWindowWHTypeChanged(cut) "
                       "LayerWindowWHRatioChanged(cut)");
    cut->setCutAndFill({true, true});
    layer->setName(QStringLiteral("b"));
    EXPECT_EQ(heard(), "LayerNameChanged(layer) LayerNameChanged(cut)");
    cut->setCutAndFill({false, true});
    EXPECT_FALSE(cut->isFillBindingCut());
}

} // namespace Quorix::Tests
