/// The sizes that each kind of layer allows.
#include "layers.h"

namespace Quorix::Tests {

struct Kinds : Layers {};

TEST_F(Kinds, AllowSizes) {
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

TEST_F(Kinds, RegularGoByBorderAndSource) {
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
    Timing odd = fullHd();
    odd.horizontal.addTime = 1921;
    odd.vertical.addTime = 1081;
    second->setPresetTiming(odd);
    layer->setSource(sourceOf(*second));
    EXPECT_EQ(layer->defaultWindowSize(), QSize(961, 541));
    layer->setSource(sourceOf(SourceType::Input, 77));
    EXPECT_EQ(layer->defaultWindowSize(), QSize(64, 64));
}

TEST_F(Kinds, OfTheMultiviewerGoByTheirSource) {
    EXPECT_EQ(MVRLayer::layerMinimumSize(QSize(3840, 2160)), QSize(64, 64));
    EXPECT_EQ(MVRLayer::layerMinimumSize(QSize(7680, 4320)), QSize(121, 69));
    const QSize largest = second->connectorInfo().m_sizeMaxResolution;
    ASSERT_FALSE(largest.isEmpty());
    EXPECT_EQ(MVRLayer::layerMinimumSize(second), QSize(largest.width() / 64, largest.height() / 64));
    EXPECT_EQ(MVRLayer::layerMinimumSize(std::make_shared<Input>()), QSize(64, 64));
    EXPECT_TRUE(MessageLog::take().join('|').contains("critical:  no found connectorInfo ,ConnectorType: "));
    const auto small = addedScreen<RegularScreen>(QStringLiteral("small"), 1);
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
