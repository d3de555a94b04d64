/// A screen as a mosaic of outputs: what happens in which order when outputs come, go, move and change, what they are
/// given, and how pixels become physical units.
#include "wall.h"

namespace Quorix::Tests {

using ProtoModel::Screen::s_FeatherArray;

namespace {

/// An id whose packed form is that of slot 7, port 0.
constexpr ProtoModel::s_InterfaceID kFar{.slotId = 263, .connectorId = 0, .splitId = 0};

} // namespace

struct Mosaic : Wall {
    std::string heard() { return events().join(' ').toStdString(); }
    bool add(std::size_t number, int x, int y) { return regular->addOutput(outputs.at(number), {x, y}, false); }
};

TEST_F(Mosaic, TellsItsEventsInOrder) {
    const std::string moved = "ScreenPhysicalSizeChanged() ScreenMosaicWindowRectChanged()";
    EXPECT_TRUE(add(0, 0, 0));
    EXPECT_FALSE(add(0, 5, 5) || regular->addOutput({}, {}, false) || Screen().addOutput(outputs[0], {}, false));
    EXPECT_EQ(heard(), "OutputAdded(output0)"); // the stored window is that rectangle already
    EXPECT_TRUE(add(1, 1920, 0) && add(2, 960, 0));
    EXPECT_EQ(heard(), moved + " OutputAdded(output1) OutputAdded(output2)");
    for (int i = 0; i < 2; ++i)
        regular->setOutputsPos(outputs[2], {9, 0}, "view");
    regular->setOutputsPos(outputs[3], {9, 9}, "view");
    EXPECT_EQ(heard(), "ScreenOutputPosChanged(output2, \"view\")");
    regular->setPhysicalSize(QSize(3840, 2160));
    regular->setOutputsPos(outputs[1], {1920, 1080}, {}); // makes it that size
    EXPECT_EQ(heard(), "ScreenPhysicalSizeChanged() ScreenOutputPosChanged(output1, \"\") "
                       "ScreenMosaicWindowRectChanged()");
    regular->setOutputAOI({{outputs[1], {10, 20, 100, 50}}, {outputs[3], {}}, {{}, {}}, {outputs[2], {1, 1, 9, 9}}});
    EXPECT_EQ(heard(), "ScreenOutputAOIChanged(output1) ScreenOutputPosChanged(output1, \"\") " + moved +
                           " ScreenOutputAOIChanged(output2) ScreenOutputPosChanged(output2, \"\")");
    EXPECT_TRUE(regular->switchOutput(outputs[1], outputs[3], false));
    EXPECT_EQ(heard(), "ScreenOutputRemoved(output1) OutputAdded(output3)");
    EXPECT_EQ(regular->mosaicRect(outputs[3]), QRectF(1930, 1100, 100, 50));
    EXPECT_TRUE(regular->removeOutput(outputs[3]));
    EXPECT_FALSE(regular->removeOutput(outputs[3]) || regular->removeOutput({}));
    EXPECT_EQ(heard(), "InterfaceImageQualityChanged(device, output3) InterfacePresetColorGamutChanged(device, "
                       "output3) InterfacePresetDynamicRangeChanged(device, output3) " +
                           moved + " ScreenOutputRemoved(output3)");
    regular->setGrid({2, 2}, false);
    regular->setGrid({2, 3}, true);
    for (const bool isGiven : {true, true, false, false})
        regular->setActivedOutput(isGiven ? outputs[0] : nullptr);
    EXPECT_EQ(heard(), "ScreenSpliceGridChanged() ScreenActivedOutputChanged(output0) "
                       "ScreenActivedOutputChanged(null) ScreenActivedOutputChanged(null)");

    EXPECT_TRUE(regular->removeOutput(outputs[0]) && regular->mosaicWindowRect() == QRect(10, 1, 9, 9));
    EXPECT_TRUE(regular->removeOutput(outputs[2]) && regular->mosaicWindowRect().isNull());
    EXPECT_TRUE(regular->physicalQSize().isNull() && !regular->physicalEnable() && regular->subCards().isEmpty());
    EXPECT_EQ(regular->physicalMosaicSizeRate(), qMakePair(1.0, 1.0));
}

TEST_F(Mosaic, GivesOutputsAndTwinsItsPicture) {
    place(*regular, {1});
    auto pattern = regular->testPattern();
    pattern.enable = 1;
    regular->setTestPattern(pattern);
    regular->setImageQuality({{}, {}, 5});
    auto hdr = regular->hdr();
    hdr.colorGamut.presetColorGamut = 3;
    regular->setHDR(hdr);
    outputs[0]->setPresetTiming(ultraHd());
    log.take();
    EXPECT_TRUE(regular->addOutput(outputs[0], {1920, 0}, true));
    const QString given("InterfaceImageQualityChanged(%1) InterfaceTestPatternChanged(%1) "
                        "InterfacePresetColorGamutChanged(%1) InterfacePresetDynamicRangeChanged(%1) ");
    EXPECT_EQ(events().join(' '), given.arg("device, output0") +
                                      "PresetFrameTimingChanged(device, output0) InterfaceCropChanged(device, "
                                      "output0, \"\") " +
                                      given.arg("device, twin") +
                                      "ScreenPhysicalSizeChanged() "
                                      "ScreenMosaicWindowRectChanged() OutputAdded(output0)");
    EXPECT_EQ(regular->outputAOI({6, 0, 0}), QRect(0, 0, 1920, 1080)); // of the timing that it was given
    EXPECT_EQ(twin->hdr(), hdr);

    regular->setPresetColorSpace(ColorSpace::YCbCr_4_2_2);
    regular->setImageQuality({{}, {}, 7});
    EXPECT_TRUE(regular->switchOutput(outputs[0], outputs[2], true) && outputs[2]->hdr() == hdr);
    for (const auto &output : {outputs[1], outputs[2]})
        EXPECT_TRUE(output->imageQuality().hue == 7 && output->presetColorSpace() == ColorSpace::YCbCr_4_2_2);
    EXPECT_TRUE(outputs[0]->imageQuality().hue == 0 && twin->hdr() != hdr);
    EXPECT_TRUE(regular->pos(outputs[2]) == QPoint(1920, 0) && regular->subCards().size() == 1);
    EXPECT_EQ(regular->screenRefOutputType(), outputs[1]->connectorType());

    // The first output is never given a reference; a slot may add the output that is on its way.
    outputs[3]->setPresetTiming(ultraHd());
    QObject::connect(outputs[3].get(), &Interface::signalInterfaceImageQualityChanged,
                     [&] { EXPECT_TRUE(aux->addOutput(outputs[3], {}, false)); });
    aux->setImageQuality({{}, {}, 9});
    EXPECT_FALSE(aux->addOutput(outputs[3], {1, 1}, true));
    EXPECT_TRUE(aux->mosaicRect(outputs[3]) == QRectF(0, 0, 3840, 2160) && aux->outputs().size() == 1);
}

TEST_F(Mosaic, RefusesASwitchWithAReason) {
    EXPECT_FALSE(Screen().switchOutput(outputs[0], {}, true) || regular->switchOutput(outputs[0], {}, true) ||
                 regular->switchOutput({}, outputs[0], true) || regular->switchOutput(outputs[1], outputs[0], true));
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: Switch output error: new output is null",
                                                "warning: Switch output error: old output is null",
                                                "warning: Switch output error: old output is not found"));
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(Mosaic, IsReplacedAsAWhole) {
    place(*regular, {0, 1});
    EXPECT_FALSE(regular->updateOutputs({}, {3, 3}) || regular->updateOutputs({{{}, {}}, {outputs[0], {}}}, {3, 3}));
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_TRUE(regular->outputs().isEmpty() && regular->grid() == qMakePair(1, 1));
    EXPECT_EQ(regular->screenMosaic().mosaic.window.width, 3840); // the old one, until an output comes
    // The second entry of an output moves it.
    EXPECT_TRUE(regular->updateOutputs({{outputs[2], {0, 0}}, {{}, {}}, {outputs[2], {7, 0}}}, {1, 2}));
    const std::string all = heard();
    EXPECT_EQ(all.substr(all.find("ScreenPhysicalSizeChanged()")),
              "ScreenPhysicalSizeChanged() ScreenMosaicWindowRectChanged() OutputAdded(output2) "
              "ScreenOutputPosChanged(output2, \"\") ScreenMosaicWindowRectChanged() ScreenSpliceGridChanged()");
    EXPECT_EQ(regular->mosaicWindowRect(), QRect(7, 0, 1920, 1080));
}

TEST_F(Mosaic, ComparesFeathersInAnyOrder) {
    place(*regular, {0});
    const s_FeatherArray plain = Screen::defultOutputFeatherArr();
    EXPECT_THAT(plain, ElementsAre(testing::FieldsAre(0, 0, 220, 0), testing::FieldsAre(0, 2, 220, 0),
                                   testing::FieldsAre(0, 3, 220, 0), testing::FieldsAre(0, 1, 220, 0)));
    s_FeatherArray wide = plain;
    wide[0].width = 40;
    const s_FeatherArray three(plain.begin(), plain.begin() + 3);
    const char *const event = "ScreenOutputBorderFuseChanged(output0, \"view\")";
    const auto guarded = [&](const s_FeatherArray &feathers) {
        return regular->setOutputsFeather(outputs[0], feathers, "view"), events();
    };
    EXPECT_THAT(guarded({plain.rbegin(), plain.rend()}) + guarded(three), IsEmpty());
    EXPECT_THAT(guarded(wide), ElementsAre(event));
    for (const auto &[number, feathers] :
         {std::pair(0U, wide), {0U, three}, {1U, three}}) // the last isn't in the mosaic
        regular->setOutputFeathers(outputs[number], feathers, "view");
    EXPECT_THAT(events(), ElementsAre(event, event));
    EXPECT_THAT(guarded(wide), IsEmpty()); // the stored set has three
    s_FeatherArray kept = wide;
    EXPECT_FALSE(regular->outputFeathers(outputs[1], kept) || kept != wide);
    EXPECT_EQ(regular->outputFeatherArr(outputs[0]), three);
}

TEST_F(Mosaic, ConvertsToPhysicalUnits) {
    ASSERT_TRUE(regular->addOutput(outputs[0], {100, 50}, false));
    EXPECT_EQ(regular->mosaicRect2PhysicalRect({-3, 7, 11, 13}), QRect(-3, 7, 11, 13));
    regular->setPhysicalSize(QSize(3840, 540)); // 2 across, 0.5 down
    EXPECT_EQ(regular->realRect(), QRect(100, 50, 3840, 540));
    EXPECT_EQ(regular->mosaicSize2PhysicalSize({5, 5}), QSize(10, 3));
    EXPECT_EQ(regular->mosaicPoint2PhysicalPoint({-5, -5}), QPoint(-10, -2));           // halves up
    EXPECT_EQ(regular->mosaicRect2PhysicalRect({97, 47, 11, 5}), QRect(94, 48, 22, 3)); // halves away from zero
    EXPECT_EQ(regular->physicalSize2MosaicSize({5, 5}), QSize(3, 10));
    EXPECT_EQ(regular->physicalPoint2MosaicPoint({-5, 3}), QPoint(-2, 6));
    EXPECT_EQ(regular->physicalRect2MosaicRect({97, 47, 11, 5}), QRect(99, 44, 6, 10)); // corners toward zero

    regular->setPhysicalSize({{.width = 1920, .height = 1080}, 0, 0});
    EXPECT_FALSE(regular->physicalEnable());
    regular->setPhysicalUnit(Enum::Screen::PhysicalUnitType::Meter);
    regular->setPhysicalSize({{.width = 1920, .height = 1080}, 5, 0}); // an equal size loses the rest
    EXPECT_TRUE(regular->physicalEnable());
    regular->setPhysicalSize(QSize(0, kLowest));
    EXPECT_EQ(regular->physicalSize2MosaicSize({kHighest, kHighest}).width(), 0);
    for (const int end : {kLowest, kHighest}) { // nothing traps
        std::ignore = regular->mosaicRect2PhysicalRect({QPoint(end, kLowest), QPoint(kHighest, end)});
        std::ignore = regular->physicalRect2MosaicRect({QPoint(end, kLowest), QPoint(kHighest, end)});
        regular->setOutputsPos(outputs[0], {end, end}, {});
        regular->setOutputAOI({{outputs[0], {QPoint(end, 0), QPoint(kHighest, kHighest)}}});
        std::ignore = regular->recalcLayerValidWindowRect({QPoint(kLowest, end), QPoint(kHighest, kLowest)});
    }
}

TEST_F(Mosaic, TakesARecordOverIfItDiffers) {
    place(*regular, {0, 1});
    auto enable = regular->screenEnableStruct();
    std::swap(enable.mosaic.outputs[0], enable.mosaic.outputs[1]);
    enable.mosaic.refOutputPara.formatMapping = 1;
    enable.general.name = "other";
    regular->setScreenMosaic(enable); // of these only the order of the outputs is the mosaic's own
    EXPECT_THAT(events(), IsEmpty());
    EXPECT_EQ(regular->screenRefOutputPara().formatMapping, 0);
    enable.mosaic.outputs[0].interfaceId = kFar;
    regular->setScreenMosaic(enable);
    EXPECT_THAT(events(), ElementsAre("ScreenMosaicWindowRectChanged()"));
    EXPECT_TRUE(regular->name() == "regular" && regular->isExistOutput(kFar) && !regular->output({7, 0, 0}).lock());
    EXPECT_TRUE(regular->outputs().first().expired() && regular->output(kFar).expired());
    regular->setLayoutPos(QPoint(3, 4));
    EXPECT_TRUE(regular->screenEnableStruct().layout == (ProtoModel::s_Pos{3, 4}) &&
                regular->screenMosaic().layout == ProtoModel::s_Pos());
}

} // namespace Quorix::Tests
