/// Every setter of a layer with a signal: what the hub hears, once and again, and who may call back.
#include "layers.h"

namespace Quorix::Tests {

struct Signals : Layers {};
using Corner = ProtoModel::Layer::s_LayerUMDBody;

/// Reads and writes the layer on each of its signals.
struct Caller : EventLog {
    explicit Caller(Layer &source) : EventLog(&source), m_layer(source) {}
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override {
        m_layer.setSelected(!m_layer.selected());
        return EventLog::qt_metacall(call, id, arguments);
    }
    Layer &m_layer;
};

TEST_F(Signals, ReachTheHub) {
    using Ratio = Layer::AspectRatioType;
    Caller caller{*layer};
    layer->setUMDData({{}, {}});
    log.take();
    enum class Again { No, Yes };
    const struct {
        const char *events;
        std::function<void(Layer &)> act;
        Again again = Again::No;
    } rows[] = {
        {"LayerZorderChanged(layer)", call(&Layer::setZOrder, 3)},
        {"LayerNameChanged(layer)", call(&Layer::setName, "b")},
        {"LayerBackgroundChanged(layer)", call(&Layer::setBackgroundEnable, true)},
        {"LayerFreezeChanged(layer)", call(&Layer::setFrezzeEnable, true)},
        {"LayerMonochromeChanged(layer)", call(&Layer::setMonochromeEnable, true)},
        {"LayerInverseChanged(layer)", call(&Layer::setInverseEnable, true)},
        {"LayerFlipTypeChanged(layer)", call(&Layer::setFlipType, Layer::FlipType::VerImage)},
        {"LayerMaskChanged(layer, \"m\")", call(&Layer::setMask, {1, 10, 20, 10, 25}, "m")},
        {"LayerColorChanged(layer)", call(&Layer::setTestColor, {{1, 2, 3}, 1})},
        {"LayerOpacityChanged(layer, \"o\")", call(&Layer::setOpacity, 40, "o")},
        {"WindowWHRatioLockedStateChanged(layer, \"\")", call(&Layer::setWindowWHRatioLocked, true)},
        {"LayerWindowWHTypeChanged(layer)", call(&Layer::setWidthHeightRatioType, Ratio::_SourceScale), Again::Yes},
        {"", call(&Layer::setBorderEnabled, false)},
        {"", call(&Layer::setBorderType, Layer::BorderType::Hard_in)}, // the type that it has, though it switches on
        {"LayerBorderChanged(layer, \"\")", call(&Layer::setBorderType, Layer::BorderType::Invalid)},
        {"LayerBorderChanged(layer, \"b\")", call(&Layer::setBorderSize, {4, 5}, "b")},
        {"LayerBorderColorChanged(layer, \"c\")", call(&Layer::setBorderColor, {1, 2, 3, 51}, "c")},
        {"LayerUMDEnableChanged(layer)", call(&Layer::setUMDEnable, true), Again::Yes},
        {"LayerUMDColorChanged(layer)", call(&Layer::setUMDColor, {{7, 8, 9}, 30}), Again::Yes},
        {"LayerUMDChanged(layer)", call(&Layer::setUMDData, {}), Again::Yes},
        {"LayerHueChanged(layer, \"q\") LayerContrastChanged(layer, \"q\")",
         call(&Layer::setImageQuality, {{{1}}, {}, 7}, "q")},
        {"LayerSaturationChanged(layer, \"q\") LayerHueChanged(layer, \"q\") LayerBrightnessChanged(layer, \"q\")",
         call(&Layer::setImageQuality, {{{1}}, {{}, 9}, 9, 9}, "q")},
        {"", call(&Layer::setImageQuality, {{{1}}, {{}, 9}, 9, 9, 100}, "q")},
        {"CutAndFillChanged(layer)", call(&Layer::setCutAndFill, {true, true})},
    };
    for (const auto &row : rows) {
        row.act(*layer);
        EXPECT_EQ(heard(), row.events);
        row.act(*layer);
        EXPECT_EQ(heard(), row.again == Again::Yes ? row.events : "") << row.events;
    }
    EXPECT_TRUE(layer->borderColor() == QColor(1, 2, 3) && layer->borderColorOpacity() == 20 && !layer->borderEnable());
    EXPECT_EQ(layer->imageQuality().gamma, 100);
    EXPECT_EQ(layer->verImageFlipType(), Layer::FlipType::DiagonalImage);
}

TEST_F(Signals, OfAMaskThatFollowsTheWindow) {
    layer->setMask({1, 10, 20, 10, 25}, {});
    for (const QRect &empty : {QRect(), QRect(0, 0, -5, 10)})
        layer->updateMaskRect({0, 0, 10, 10}, empty);
    layer->updateMaskRect({9, 9, 150, 50}, {0, 0, 100, 100});
    EXPECT_EQ(heard(), "LayerMaskChanged(layer, \"\") LayerMaskChanged(layer, \"\")");
    EXPECT_EQ(layer->mask(), (ProtoModel::Layer::s_LayerMaskBody{1, 15, 30, 5, 13}));
}

TEST_F(Signals, AnswerWithoutCorners) {
    layer->setUMDEnable(false);
    layer->setUMDColor({{7, 8, 9}, 30});
    EXPECT_EQ(heard(), "LayerUMDEnableChanged(layer) LayerUMDColorChanged(layer)");
    EXPECT_TRUE(layer->umdEnabled());
    EXPECT_EQ(layer->umdColor(), ProtoModel::s_RGBO{});
    Layer::UMDData content;
    content.AUXTip = content.SourceFrameRate = "text";
    layer->setUMDContent(content);
    ProtoModel::Layer::s_LayerUMDBodyArray corners(1);
    layer->generateLayerUMD(0, 0, corners);
    layer->setUMDData({{0, 0, {{{1, 2, 3}, 4}, {}}}});
    layer->generateLayerUMD(0, 0, corners);
    EXPECT_THAT(corners, testing::ElementsAre(corners[0], Corner{1, 1, {{{178, 178, 178}}, {{0, 0, 0}}}},
                                              Corner{2, 1, {{{178, 178, 178}}, {{0, 0, 0}}}},
                                              Corner{1, 0, {{{1, 2, 3}}, {{0, 0, 0}}}},
                                              Corner{2, 0, {{{1, 2, 3}}, {{0, 0, 0}}}}));
}

} // namespace Quorix::Tests
