/// Interfaces: setters and their signals, preset against actual values, crops, names, reports.
#include "interfaces.h"

#include <limits>

namespace Quorix::Tests {

TEST_F(Interfaces, SignalChangesOnly) {
    input->unserailize(device); // the relays are joined already
    auto hdr = input->hdr();
    const auto setHdr = [&hdr](auto change) { return [&hdr, change](Interface &i) { change(hdr), i.setHDR(hdr); }; };
    // Each row twice: the second time must be silent.
    const std::pair<const char *, std::function<void(Interface &)>> rows[] = {
        {"Name", call(&Interface::setName, "Camera")},
        {"PresetColorDepth ColorDepth", call(&Interface::setColorDepth, {10, 12})},
        {"PresetColorDepth", call(&Interface::setPresetColorDepth, ColorDepth::_8_)},
        {"ColorDepth", call(&Interface::setActualColorDepth, ColorDepth::_8_)},
        {"ColorSpace", call(&Interface::setColorSpace, {1, 255})},
        {"PresetColorSpace", call(&Interface::setPresetColorSpace, ColorSpace::YCbCr_4_2_0)},
        {"PresetColorRange ColorRange", call(&Interface::setColorRange, {1, 0})},
        {"", setHdr([](auto &h) { h.dynamicRange.actualDynamicRange.HDR10.toneMapping = true; })}, // stored in silence
        {"PresetColorGamut", setHdr([](auto &h) { h.colorGamut.presetColorGamut = 3; })},
        {"PresetColorGamut ActualColorGamut PresetDynamicRange ActualDynamicRange PresetPqMaxCll ActualPqMaxCll",
         setHdr([](auto &h) {
             h.colorGamut = {1, 2};
             for (auto *range : {&h.dynamicRange.presetDynamicRange, &h.dynamicRange.actualDynamicRange})
                 range->type = range->HDR10.pqMaxCll = 1;
         })},
        {"TestPattern", call(&Interface::setTestPattern, {.enable = 1})},
        {"ImageQuality", call(&Interface::setImageQuality, {{}, {}, 5})},
        {"HDCPInfo", call(&Interface::setHDCPEnable, true)},
        {"HDCPInfo", call(&Interface::setHDCPPresetType, HDCPType::HDCP_2_2)},
        {"", call(&Interface::setHDCPActualType, HDCPType::HDCP_1_4)}, // the present one
    };
    for (const auto &[events, act] : rows) {
        act(*input), act(*input);
        EXPECT_EQ(heard().remove("Interface").remove("Changed(input)"), events);
    }
    EXPECT_EQ(input->hdr(), hdr);
    auto general = input->general();
    general.type = 0; // in silence
    input->setGeneral(general);
    input->setCutoutRGB({50, 50, 50}); // the present one
    input->setCutoutRGB({1, 2, 3});
    input->setLssuedFailedUpdate(device);
    EXPECT_EQ(heard(), "InterfaceCutoutRGBReported(input) InterfaceCutoutRGBReported(input) "
                       "InterfaceCutoutRGBChanged(input) LssuedFailedUpDateInput(input)");

    EventLog own(input.get()); // what the hub has no signal for
    input->setFormatMapping(FormatMapping::Level_B);
    input->setCutoutGeneral({2, 0, {}, {}});
    input->setCutoutEnable(true); // 2 is on already
    input->setCutoutEnable(false);
    input->setCutoutPos({.enable = 1, .type = 0, .id = 0, .pos = {}});
    input->setInterfaceId({1, 1, 1});
    EXPECT_THAT(own.take(), ElementsAre("signalInterfaceFormatMappingChanged()", "signalCutoutInfoChanged()",
                                        "signalCutoutInfoChanged()", "signalInterfaceIDChanged()"));
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(device->findInput(1, 1).lock(), input);
}

TEST_F(Interfaces, TellAnActualTimingInOrder) {
    const QString live = "ConnectorSignalChanged(card, connector) ";
    const QString overload = "ConnectorOverLoadChanged(card, connector) ";
    const QString crop = "InterfaceCropChanged(input, \"\")";
    const QString signal = "InterfaceSignalChanged(input) " + crop + ' ';
    const QString last = "InterfaceActualTimingChanged(input)";
    input->setActualTiming(fullHd(10000)); // 247.5 MHz on a single link
    EXPECT_EQ(heard(), "InterfaceOverLoadChanged(input) " + live + overload + signal + last);
    EXPECT_TRUE(input->isActive() && input->isOverLoad() && input->cropRect() == QRect(0, 0, 1920, 1080));
    EXPECT_EQ(
        std::tuple(input->validSizeUnderActive(), input->validTotalSizeUnderActive(), input->validRateUnderActive()),
        std::tuple(QSize(1920, 1080), QSize(2200, 1125), 100.0F));
    input->setActualTiming(fullHd(10000)); // again: silent
    input->setActualTiming(fullHd());
    EXPECT_EQ(heard(), "InterfaceOverLoadChanged(input) " + overload + last);
    input->setActualTiming(fullHd(0)); // a size alone is no signal
    EXPECT_TRUE(heard() == live + signal + last && input->validSizeUnderActive() == QSize(3840, 2160));
    input->setPresetTiming(1920, 1080, 60.0F);
    EXPECT_TRUE(heard() == "PresetFrameTimingChanged(input) " + crop && input->presetTiming() == fullHd());

    // The signal is lost with the device.
    input->setColorDepth({.actualColorDepth = 10, .presetColorDepth = 8});
    input->setActualTiming(fullHd());
    EXPECT_EQ(input->validColorDepth(), ColorDepth::_10_);
    log.take();
    device->setDeviceOnlineFlag(false);
    const QString events = heard();
    EXPECT_TRUE(events.contains(last) && events.endsWith(" DeviceOnlineStatusChanged(device)")) << events.toStdString();
    EXPECT_EQ(input->actualTiming(), Timing());
    input->setActualTiming(fullHd());
    EXPECT_TRUE(!input->isActive() && input->validColorDepth() == ColorDepth::_8_); // still offline
    EXPECT_FALSE(card->connector(0).lock()->cardConnector().Signal);
}

TEST_F(Interfaces, KeepACropThroughAChangeOfTheFrame) {
    input->setActualTiming(fullHd());
    log.take();
    input->setCropRect({0, 0, 960, 540}, "panel");
    EXPECT_EQ(heard(), "InterfaceCropChanged(input, \"panel\")");
    EXPECT_TRUE(input->crop().widthRatio == 50000 && input->crop().heightRatio == 50000);
    EXPECT_EQ(input->validRectUnderCrop(), QRect(0, 0, 1920, 1080));
    input->setCropEnable(true);
    EXPECT_EQ(input->validRectUnderCrop(), QRect(0, 0, 960, 540));
    input->setActualTiming(ultraHd());
    EXPECT_EQ(input->cropRect(), QRect(0, 0, 1920, 1080));

    const std::tuple<QRect, QSize, QRect> rows[] = {
        {{1, 2, 2, 1}, {3, 3}, {33333, 66667, 66667, 33333}},
        {{-1, 1, 3, 5}, {200000, 200000}, {-1, 1, 2, 3}}, // halves go away from zero
        {{5, 5, 5, 5}, {0, 1080}, {0, 0, 100000, 100000}},
        {{5, 5, 5, 5}, {1920, -1}, {0, 0, 100000, 100000}},
    };
    for (const auto &[rect, frame, ratio] : rows)
        EXPECT_EQ(input->calcInterceptRatio(rect, frame), ratio);

    Timing wild = ultraHd();
    wild.horizontal.addTime = 2147483647;
    auto crop = input->crop();
    crop.xRatio = 2147483647, crop.widthRatio = -2147483647;
    input->setActualTiming(wild);
    input->setCrop(crop, {});
    input->updateCrop();
    // What doesn't fit ends at the limit.
    EXPECT_EQ(std::tuple(input->crop().x, input->crop().width, input->cropRect().x()),
              std::tuple(2147483647, std::numeric_limits<int>::min(), 2147483647));
    wild.horizontal.addTime = std::numeric_limits<int>::min();
    input->setCropEnable(false);
    input->setActualTiming(wild);
    EXPECT_EQ(input->validRectUnderCrop().topLeft(), QPoint(0, 0)); // no size overflows
}

TEST_F(Interfaces, FollowAReportButForIdAndHdr) {
    Detail detail = detailOf(1, 2);
    detail.actualTiming = fullHd(10000);
    const auto other = addedInterface(*device, detail);
    log.name(other.get(), "other"), log.name(card->connector(2).lock().get(), "port");
    EXPECT_EQ(log.take().first(), "signalConnectorSignalChanged(device, card, ?)");
    EXPECT_FALSE(other->isOverLoad()); // a load raises none; the next report does, even an equal one
    other->setInterfaceDetail(other->interfaceDetail());
    EXPECT_EQ(heard(), "InterfaceOverLoadChanged(other) ConnectorOverLoadChanged(card, port)");

    detail = other->interfaceDetail();
    detail.interfaceId.slotId = 5, detail.HDR.colorGamut.presetColorGamut = 3;
    other->setInterfaceDetail(detail);
    EXPECT_EQ(heard(), "");
    detail.general.name = "Camera", detail.formatMapping = 1, detail.HDCP.enable = true;
    detail.crop.widthRatio = 50000, detail.actualTiming.refresh = 6000;
    other->setInterfaceDetail(detail);
    EXPECT_EQ(heard(), "InterfaceNameChanged(other) HDCPInfoChanged(other) InterfaceOverLoadChanged(other) "
                       "ConnectorOverLoadChanged(card, port) InterfaceActualTimingChanged(other) "
                       "InterfaceCropChanged(other, \"\") InterfaceCropChanged(other, \"\")"); // and its pixels
    EXPECT_TRUE(other->interfaceFullId().slotId == 1 && toInt(other->presetColorGamut()) == 255);
    EXPECT_EQ(other->cropRect(), QRect(0, 0, 960, 1080));
}

TEST_F(Interfaces, AreFilledFromTheCapabilityFiles) {
    device->initSubCards({{0, 30471}, {1, kQuad4k}, {6, 30533}, {12, kAuxCard}, {13, 30592}});
    device->createInput();
    device->createOutput();
    const auto made = device->findInput(1, 1).lock();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(
        std::tuple(made->presetTiming(), made->presetColorDepth(), made->presetHDCPType(), made->imageQuality().gamma),
        std::tuple(fullHd(), ColorDepth::_8_, HDCPType::HDCP_1_4, 100));
    EXPECT_EQ(made->connectorTypeName() + '|' + made->connectorShortType(), "HDMI 1.4|HDMI");

    reported(oneBig());
    const Input big(device, 1, 0);
    EXPECT_TRUE(big.capacity() == CapacityMode::_4K && big.presetHDCPType() == HDCPType::HDCP_2_2);
    EXPECT_TRUE(big.presetFrameRate() == QSize(3840, 2160) && big.connectorTypeName() == "HDMI 2.0");

    const std::tuple<std::shared_ptr<Interface>, const char *, int> rows[] = {
        {device->findInput(0, 1).lock(), "Input 1-3|In1-3", 2}, // printed as port 3
        {made, "Input 2-2|In2-2", 2},
        {device->findOutput(6, 1).lock(), "Output 1-2|Out1-2", 4},
        {device->findOutput(12, 0).lock(), "AUX 1|EXP-1", 8},
        {device->findOutput(12, 2).lock(), "AUX 3|EXP-3", 8},
    };
    for (const auto &[interface, names, type] : rows) {
        ASSERT_NE(interface, nullptr) << names;
        EXPECT_EQ(interface->name() + '|' + interface->positionName(), names);
        EXPECT_EQ(interface->type(), type) << names;
    }
    device->findOutput(12, 1).lock()->setName("Stage");
    EXPECT_EQ(device->findOutput(12, 0).lock()->nextAuxInterfaceName(), "AUX 2");
    EXPECT_EQ(made->nextInterfaceName(1, InterfaceType::MVROutput), QString());
    for (const int slot : {14, 1}) {
        made->setInterfaceId({slot, 7, 0}); // no such port
        EXPECT_EQ(made->positionName(), "N/A");
    }
    EXPECT_EQ(made->nextInputInterfaceName(1), "Input 2-0");
    made->setInterfaceId({2, 1, 0});
    EXPECT_EQ(made->echoVideoId(), 9);
    const Output expansion(device, 13, 0); // neither an input nor an output card
    EXPECT_TRUE(expansion.type() == 0 && expansion.name().isEmpty());
}

TEST_F(Interfaces, AreNeutralWithoutAnOwner) {
    const MessageLog messages;
    Interface alone;
    alone.initInterfaceData(1, 0);
    EXPECT_TRUE(alone.echoVideoId() == 255 && alone.printKeyNo() == -1);
    EXPECT_EQ(messages.take().join('|'),
              "warning: The device is null|warning: device is null.|warning: Device is null");
    EXPECT_EQ(alone.capacity(), CapacityMode::invaild);
    for (const QString &name : {alone.nextInputInterfaceName(1), alone.nextAuxInterfaceName(), alone.positionName()})
        EXPECT_EQ(name, "N/A");
    alone.setOwerDevice(device);
    alone.initInterfaceData(3, 0);
    alone.initInterfaceData(1, 9);
    EXPECT_THAT(messages.take(), ElementsAre("warning: The subcard is null", "warning: The connector is null"));
}

TEST_F(Interfaces, AreReadWhileReportsArrive) {
    const auto reports = [this] {
        QString error;
        Detail detail = input->interfaceDetail();
        for (int round = 0; round < 150; ++round) {
            detail.general.name = "Camera " + std::to_string(round);
            detail.actualTiming = round % 2 == 0 ? ultraHd() : fullHd(round % 4 == 1 ? 10000 : 6000);
            input->setInterfaceDetail(detail);
            device->addInterface(detailOf(1, 3), error);
            device->addInterface(detailOf(6, 1, 4), error);
            device->removeInterface(2, 1, 3);
            device->removeOutput(6, 1);
        }
    };
    runBeside(reports, [this] {
        for (const auto &reference : device->interfaces())
            if (const auto interface = reference.lock()) {
                const QSize frame = interface->validSizeUnderActive();
                EXPECT_TRUE(frame.width() == 0 || frame.width() >= 1920);
                EXPECT_FALSE(interface->name().isEmpty());
            }
        EXPECT_GE(input->state().m_detail.crop.width, 1920);
        EXPECT_TRUE(device->findInput(65536U).lock() == input && !device->validInputs().isEmpty());
        input->setCropEnable(!input->cropEnable());
    });
}

} // namespace Quorix::Tests
