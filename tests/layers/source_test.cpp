/// Sources of a layer and the crops that it remembers.
#include "layers.h"

#include <quorixbizmodel/files/image.h>

namespace Quorix::Tests {

struct Sources : Layers {
    std::vector<Layer::Crop> crops() { return layer->layerSource().source.crop; }
};

/// Pixels, then ratios, then the switch.
std::vector<int> numbers(const Layer::Crop &crop) {
    return {crop.x,      crop.y,          crop.width,       crop.height, crop.xRatio,
            crop.yRatio, crop.widthRatio, crop.heightRatio, crop.enable};
}

TEST_F(Sources, ComeBackWithTheirCrops) {
    second->setCropRect({480, 0, 960, 540}, {});
    second->setCropEnable(true);
    log.take();
    EXPECT_TRUE(layer->setSource(sourceOf(*input)));
    EXPECT_FALSE(layer->setSource(sourceOf(*input)));
    EXPECT_TRUE(layer->setSource(sourceOf(*second)));
    EXPECT_EQ(heard(), "LayerSourceChanged(layer) LayerSourceChanged(layer)");
    ASSERT_EQ(crops().size(), 2U);
    EXPECT_EQ(numbers(crops()[1]), (std::vector{480, 0, 960, 540, 25000, 0, 50000, 50000, 0}));
    EXPECT_EQ(layer->cropRectOfLayer(), QRect(480, 0, 960, 540)); // the input's own
    EXPECT_TRUE(layer->setSource(sourceOf(SourceType::PGM, 7)));
    EXPECT_EQ(numbers(crops()[2]), numbers({}));
    second->setCropRect({0, 0, 64, 64}, {});
    layer->setSource(sourceOf(*second));
    EXPECT_TRUE(crops().size() == 3U && crops()[1].width == 960);
}

TEST_F(Sources, AreReportedInTwoHalves) {
    ProtoModel::Layer::s_LayerSource report = layer->layerSource();
    report.source.general = sourceOf(*second);
    EXPECT_TRUE(layer->setSource(report));
    EXPECT_EQ(heard(), "LayerSourceChanged(layer)");
    EXPECT_TRUE(crops().empty());
    report.source.crop.resize(2);
    report.source.crop[1].height = 5;
    EXPECT_TRUE(layer->setSource(report) && layer->setSource(report) && layer->setSourceCropRatio(report));
    EXPECT_EQ(heard(), "LayerCropChanged(layer, \"\")");
    std::swap(report.source.crop[0], report.source.crop[1]);
    EXPECT_TRUE(layer->setSourceCropRatio(report));
    EXPECT_TRUE(layer->setSource(report.source));
    EXPECT_EQ(heard(), "LayerCropChanged(layer, \"\") LayerSourceChanged(layer) LayerCropChanged(layer, \"\")");
    layer->setSouceCrop(report.source.crop[1]); // takes the place of the first with that key
    EXPECT_EQ(crops()[0].height, 1080);
}

TEST_F(Sources, AreCropped) {
    EXPECT_FALSE(layer->setSourceCropRect({0, 0, 64, 64}, "ui"));
    layer->setSource(sourceOf(*second));
    log.take();
    for (int again = 0; again < 2; ++again)
        EXPECT_TRUE(layer->setSourceCropRect({-1, 9, 1, 540}, "ui"));
    EXPECT_EQ(heard(), "LayerCropChanged(layer, \"ui\")");
    EXPECT_EQ(numbers(crops()[0]), (std::vector{-1, 9, 1, 540, -52, 833, 52, 50000, 0}));
    EXPECT_EQ(layer->cropRectOfLayer(), QRect(0, 0, 1920, 1080)); // the crop is off
    second->setPresetTiming({0, 6000, {1920}, {0}});
    EXPECT_TRUE(layer->setSourceCropRect({3, 4, 5, 6}, {}));
    EXPECT_EQ(numbers(crops()[0]), (std::vector{3, 4, 5, 6, 0, 0, 0, 0, 0}));
}

TEST_F(Sources, KeepTheirPlaceInANewFrame) {
    layer->setSource(sourceOf(*second));
    layer->setSourceCropRect({480, 0, 960, 540}, {});
    const auto other = added(LayerType::AUX, "other");
    other->setSource(sourceOf(*second));
    other->setSource(sourceOf(*input));
    log.take();
    second->setPresetTiming(ultraHd());
    EXPECT_EQ(log.take().filter("LayerCrop").join(' '), "signalLayerCropChanged(device, regular, layer, \"\")");
    EXPECT_EQ(layer->souceCropRect(), QRect(960, 0, 1920, 1080));
    EXPECT_EQ(other->souceCropRect(second), QRect(0, 0, 1920, 1080)); // not shown: stays behind
    second->setActualTiming(fullHd());
    EXPECT_EQ(log.take().mid(3).join(' '), "signalLayerCropChanged(device, regular, layer, \"\") "
                                           "signalInterfaceActualTimingChanged(device, second)");
    second->setCropRect({0, 0, 64, 64}, {});
    second->resetLayerInputCrop(); // the layer's own is off
    EXPECT_EQ(layer->souceCropRect(), QRect(480, 0, 960, 540));
    auto crop = crops()[0];
    crop.enable = 2;
    layer->setSouceCrop(crop);
    log.take();
    second->resetLayerInputCrop();
    EXPECT_EQ(heard(), "LayerCropChanged(layer, \"\")");
    EXPECT_EQ(numbers(crops()[0]), (std::vector{0, 0, 64, 64, 0, 0, 3333, 5926, 2}));
}

TEST_F(Sources, AreWorkedOutFromARecord) {
    second->setPresetTiming({0, 6000, {32000}, {1080}});
    Layer::Crop gone;
    gone.type = toInt(SourceType::Input), gone.id = 77;
    Layer::Crop known = gone;
    known.id = second->interfaceId();
    known.widthRatio = 90001; // times 32000 is past 31 bits
    layer->setSourceCropRatio(ProtoModel::Layer::s_LayerSourceBody{{}, {gone, known}});
    MessageLog::take();
    log.take();
    layer->setLayerCrop();
    EXPECT_EQ(heard(), "LayerCropChanged(layer, \"\")");
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: input is nullptr. 77"));
    EXPECT_TRUE(crops()[0] == gone && crops()[1].width == 28800);
}

TEST_F(Sources, HaveNamesAndSizes) {
    const auto five = addedScreen<RegularScreen>("five", 5);
    const std::tuple<SourceType, uint32_t, const char *, QSize> rows[] = {
        {SourceType::Input, second->interfaceId(), "second", {1920, 1080}},
        {SourceType::Input, 77, "N/A", {-1, -1}},
        {SourceType::PGM, 0, "regular-PGM", {3840, 1080}},
        {SourceType::PVW, 5, "five-PVW", five->mosaicWindowSize()},
        {SourceType::PGM, 261, "N/A", {-1, -1}},
        {SourceType::NoSource, second->interfaceId(), "N/A", {-1, -1}},
    };
    for (const auto &[type, id, name, size] : rows) {
        layer->setSource(sourceOf(type, id));
        EXPECT_EQ(layer->sourceName(), name);
        EXPECT_EQ(layer->sourceValidSize(), size);
    }
    EXPECT_EQ(layer->sourceRectOfInput(), QRect(0, 0, 1920, 1080)); // of `NoSource`, too
}

TEST_F(Sources, SizeALayerByItsLogo) {
    const auto logo = std::make_shared<Logo>();
    logo->setFileId(7);
    logo->setSize({300, 200});
    device->addFile({logo});
    layer->setWindowRect({-5, 6, 100, 100}, {}, false);
    log.take();
    layer->setSource(sourceOf(SourceType::LOGO, 263)); // a number of a file is a byte: not 7
    layer->setSource(sourceOf(SourceType::LOGO, 7));
    EXPECT_EQ(heard(), "LayerSourceChanged(layer) LayerWindowRectChanged(layer, \"\") "
                       "WindowRectChanged(layer, 100x100+-5+6, 300x200+-5+6) LayerWindowWHTypeChanged(layer) "
                       "LayerWindowWHRatioChanged(layer) LayerSourceChanged(layer)");
}

TEST_F(Sources, GiveTheCapacityOfTheirConnector) {
    layer->setCapacity(Layer::Capacity::_4K);
    layer->setSource(sourceOf(SourceType::Input, 77));
    EXPECT_EQ(layer->capacityString(), "4K");
    layer->setSource(sourceOf(SourceType::BKG, second->interfaceId()));
    EXPECT_EQ(layer->capacityString(), "SL");
    const auto cut = added(LayerType::Cut, "cut");
    EXPECT_EQ(cut->capacityString(), "");
    cut->setSource(sourceOf(SourceType::Input, 77));
    EXPECT_EQ(cut->capacity(), Layer::Capacity::_SL);
}

TEST_F(Sources, AreProposedAside) {
    second->setCropRect({480, 0, 960, 540}, {});
    second->setCropEnable(true);
    const auto proposed = layer->constructSourceStruct(second);
    EXPECT_EQ(proposed.source.general, sourceOf(*second));
    ASSERT_EQ(proposed.source.crop.size(), 1U);
    EXPECT_EQ(numbers(proposed.source.crop[0]), (std::vector{480, 0, 960, 540, 0, 0, 100000, 100000, 0}));
    EXPECT_TRUE(layer->constructSourceStruct(second->interfaceId(), 3).source.crop.empty() && crops().empty());
}

TEST_F(Sources, NeedAnOwner) {
    const auto alone = std::make_shared<RegularScreen>();
    const auto lost = std::make_shared<RegularLayer>();
    lost->setSource(ProtoModel::Layer::s_LayerSourceBody{sourceOf(*second), {}});
    for (const bool isOnScreen : {false, true}) {
        EXPECT_FALSE(lost->setSource(sourceOf(*input)) || lost->setSourceCropRect({}, {}) || lost->checkData());
        lost->setLayerCrop();
        lost->updateLayerCropRatio(second);
        const QStringList lines = isOnScreen
                                      ? QStringList{"critical: device is nullptr", "warning: device is nullptr."}
                                      : QStringList{"critical: Screen is nullptr", "warning: screen is nullptr."};
        EXPECT_THAT(MessageLog::take(), ElementsAre(lines[0], lines[1], lines[1]));
        EXPECT_EQ(lost->constructSourceStruct(second).source.crop.size(), 0U);
        EXPECT_TRUE(lost->cropRectOfLayer().isNull() && lost->cutLayer().expired());
        lost->setOwnerScreen(alone);
    }
}

} // namespace Quorix::Tests
