/// Interfaces: setters and their signals, preset against actual values, crops, names, reports.
#include "interfaces.h"

#include <support/messagelog.h>

#include <atomic>
#include <limits>
#include <thread>

namespace Quorix::Tests {

using namespace BizModel;
using Enum::Interface::CapacityMode;
using Enum::Interface::ColorDepth;
using Enum::Interface::ColorSpace;
using Enum::Interface::FormatMapping;
using Enum::Interface::HDCPType;
using Enum::Interface::InterfaceType;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Events of the hub for the input: "NameChanged" stands for signalInterfaceNameChanged.
QStringList heard(std::initializer_list<const char *> names) {
    QStringList events;
    for (const char *name : names)
        events += QStringLiteral("signalInterface%1(device, input)").arg(name);
    return events;
}

} // namespace

TEST_F(Interfaces, SignalChangesOnly) {
    const auto set = [this](auto field, auto &&value, auto read, auto write) {
        auto record = (input.get()->*read)();
        record.*field = value;
        (input.get()->*write)(record);
    };
    input->setName("Camera");
    input->setName("Camera");
    EXPECT_EQ(log.take(), heard({"NameChanged"}));
    set(&ProtoModel::Interface::s_InterfaceGeneralBody::type, 0, &Interface::general, &Interface::setGeneral);
    EXPECT_EQ(log.take(), heard({}));
    input->setColorDepth({.actualColorDepth = 10, .presetColorDepth = 12});
    EXPECT_EQ(log.take(), heard({"PresetColorDepthChanged", "ColorDepthChanged"}));
    input->setPresetColorDepth(ColorDepth::_8_);
    input->setActualColorDepth(ColorDepth::_8_);
    EXPECT_EQ(log.take(), heard({"PresetColorDepthChanged", "ColorDepthChanged"}));
    input->setColorSpace({.actualColorSpace = 1, .presetColorSpace = 255});
    input->setPresetColorSpace(ColorSpace::YCbCr_4_2_0);
    EXPECT_EQ(log.take(), heard({"ColorSpaceChanged", "PresetColorSpaceChanged"}));
    input->setColorRange({.actualColorRange = 1, .presetColorRange = 0});
    EXPECT_EQ(log.take(), heard({"PresetColorRangeChanged", "ColorRangeChanged"}));

    auto hdr = input->hdr();
    hdr.dynamicRange.actualDynamicRange.HDR10.toneMapping = true; // stored in silence
    input->setHDR(hdr);
    EXPECT_EQ(log.take(), heard({}));
    EXPECT_EQ(input->hdr(), hdr);
    hdr.colorGamut.presetColorGamut = 3;
    input->setHDR(hdr);
    EXPECT_EQ(log.take(), heard({"PresetColorGamutChanged"}));
    hdr.colorGamut = {.actualColorGamut = 1, .presetColorGamut = 2};
    for (auto *range : {&hdr.dynamicRange.presetDynamicRange, &hdr.dynamicRange.actualDynamicRange})
        range->type = range->HDR10.pqMaxCll = 1;
    input->setHDR(hdr);
    EXPECT_EQ(log.take(), heard({"PresetColorGamutChanged", "ActualColorGamutChanged", "PresetDynamicRangeChanged",
                                 "ActualDynamicRangeChanged", "PresetPqMaxCllChanged", "ActualPqMaxCllChanged"}));
    input->setTestPattern({.enable = 1});
    set(&ProtoModel::s_ImageQualityBody::hue, 5, &Interface::imageQuality, &Interface::setImageQuality);
    input->setCutoutRGB({50, 50, 50}); // the present one
    input->setCutoutRGB({1, 2, 3});
    EXPECT_EQ(log.take(), heard({"TestPatternChanged", "ImageQualityChanged", "CutoutRGBReported", "CutoutRGBReported",
                                 "CutoutRGBChanged"}));
    input->unserailize(device); // the relays are joined already
    input->setHDCPEnable(true);
    input->setHDCPPresetType(HDCPType::HDCP_2_2);
    input->setHDCPActualType(HDCPType::HDCP_1_4); // the present one
    input->setLssuedFailedUpdate(device);
    EXPECT_THAT(log.take(), ElementsAre("signalHDCPInfoChanged(device, input)", "signalHDCPInfoChanged(device, input)",
                                        "signalLssuedFailedUpDateInput(device, input)"));

    EventLog own(input.get()); // what the hub has no signal for
    input->setFormatMapping(FormatMapping::Level_B);
    set(&ProtoModel::Interface::s_CutoutGeneralBody::enable, 2, &Interface::cutoutGeneral,
        &Interface::setCutoutGeneral);
    input->setCutoutEnable(true); // 2 is on already
    input->setCutoutEnable(false);
    input->setCutoutPos({.enable = 1, .type = 0, .id = 0, .pos = {}});
    input->setInterfaceId({1, 1, 1});
    EXPECT_THAT(own.take(), ElementsAre("signalInterfaceFormatMappingChanged()", "signalCutoutInfoChanged()",
                                        "signalCutoutInfoChanged()", "signalInterfaceIDChanged()"));
    EXPECT_EQ(log.take(), heard({}));
    EXPECT_EQ(device->findInput(1, 1).lock(), input);
}

TEST_F(Interfaces, TellAnActualTimingInOrder) {
    const QString live = QStringLiteral("signalConnectorSignalChanged(device, card, connector)");
    const QString overload = QStringLiteral("signalConnectorOverLoadChanged(device, card, connector)");
    const QString crop = QStringLiteral("signalInterfaceCropChanged(device, input, \"\")");
    const QString signal = heard({"SignalChanged"}).first();
    const QString interfaceOverload = heard({"OverLoadChanged"}).first();
    const QString last = heard({"ActualTimingChanged"}).first();

    input->setActualTiming(fullHd(10000)); // 247.5 MHz on a single link
    EXPECT_THAT(log.take(), ElementsAre(interfaceOverload, live, overload, signal, crop, last));
    EXPECT_TRUE(input->isActive());
    EXPECT_TRUE(input->isOverLoad());
    EXPECT_EQ(input->validSizeUnderActive(), QSize(1920, 1080));
    EXPECT_EQ(input->validTotalSizeUnderActive(), QSize(2200, 1125));
    EXPECT_FLOAT_EQ(input->validRateUnderActive(), 100.0F);
    EXPECT_EQ(input->cropRect(), QRect(0, 0, 1920, 1080));
    input->setActualTiming(fullHd(10000));
    EXPECT_THAT(log.take(), IsEmpty());
    input->setActualTiming(fullHd());
    EXPECT_THAT(log.take(), ElementsAre(interfaceOverload, overload, last));
    input->setActualTiming(fullHd(0)); // a size alone is no signal
    EXPECT_THAT(log.take(), ElementsAre(live, signal, crop, last));
    EXPECT_EQ(input->validSizeUnderActive(), QSize(3840, 2160));
    input->setPresetTiming(1920, 1080, 60.0F);
    EXPECT_THAT(log.take(), ElementsAre("signalPresetFrameTimingChanged(device, input)", crop));
    EXPECT_EQ(input->presetTiming(), fullHd());
}

TEST_F(Interfaces, LoseTheirSignalWithTheDevice) {
    input->setColorDepth({.actualColorDepth = 10, .presetColorDepth = 8});
    input->setActualTiming(fullHd());
    EXPECT_EQ(input->validColorDepth(), ColorDepth::_10_);
    log.take();
    device->setDeviceOnlineFlag(false);
    const auto events = log.take();
    EXPECT_THAT(events, testing::Contains("signalInterfaceActualTimingChanged(device, input)"));
    EXPECT_EQ(events.last(), QStringLiteral("signalDeviceOnlineStatusChanged(device)"));
    EXPECT_EQ(input->actualTiming(), Timing());
    input->setActualTiming(fullHd());
    EXPECT_FALSE(input->isActive()); // still offline
    EXPECT_EQ(input->validColorDepth(), ColorDepth::_8_);
    EXPECT_FALSE(card->connector(0).lock()->cardConnector().Signal);
}

TEST_F(Interfaces, KeepACropThroughAChangeOfTheFrame) {
    input->setActualTiming(fullHd());
    log.take();
    input->setCropRect({0, 0, 960, 540}, QStringLiteral("panel"));
    EXPECT_THAT(log.take(), ElementsAre("signalInterfaceCropChanged(device, input, \"panel\")"));
    EXPECT_EQ(input->crop().widthRatio, 50000);
    EXPECT_EQ(input->crop().heightRatio, 50000);
    EXPECT_EQ(input->validRectUnderCrop(), QRect(0, 0, 1920, 1080));
    input->setCropEnable(true);
    EXPECT_EQ(input->validRectUnderCrop(), QRect(0, 0, 960, 540));
    input->setActualTiming(ultraHd());
    EXPECT_EQ(input->cropRect(), QRect(0, 0, 1920, 1080));

    const struct {
        QRect rect;
        QSize frame;
        QRect ratio;
    } rows[] = {
        {{1, 2, 2, 1}, {3, 3}, {33333, 66667, 66667, 33333}},
        {{-1, 1, 3, 5}, {200000, 200000}, {-1, 1, 2, 3}}, // halves go away from zero
        {{5, 5, 5, 5}, {0, 1080}, {0, 0, 100000, 100000}},
        {{5, 5, 5, 5}, {1920, -1}, {0, 0, 100000, 100000}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(input->calcInterceptRatio(row.rect, row.frame), row.ratio);

    Timing wild = ultraHd();
    wild.horizontal.addTime = 2147483647;
    auto crop = input->crop();
    crop.xRatio = 2147483647;
    crop.widthRatio = -2147483647;
    input->setActualTiming(wild);
    input->setCrop(crop, {});
    input->updateCrop();
    EXPECT_EQ(input->crop().x, 2147483647); // what doesn't fit ends at the limit
    EXPECT_EQ(input->crop().width, std::numeric_limits<int>::min());
    EXPECT_EQ(input->cropRect().x(), 2147483647);
    wild.horizontal.addTime = std::numeric_limits<int>::min();
    input->setCropEnable(false);
    input->setActualTiming(wild);
    EXPECT_EQ(input->validRectUnderCrop().topLeft(), QPoint(0, 0)); // no size overflows
}

TEST_F(Interfaces, FollowAReportButForIdAndHdr) {
    Detail detail = detailOf(1, 2);
    detail.actualTiming = fullHd(10000);
    QString error;
    ASSERT_TRUE(device->addInterface(detail, error));
    const auto other = device->findInput(1, 2).lock();
    log.name(other.get(), QStringLiteral("other"));
    log.name(card->connector(2).lock().get(), QStringLiteral("port"));
    EXPECT_EQ(log.take().first(), QStringLiteral("signalConnectorSignalChanged(device, card, ?)"));
    EXPECT_FALSE(other->isOverLoad()); // a load raises none; the next report does, even an equal one
    other->setInterfaceDetail(other->interfaceDetail());
    EXPECT_THAT(log.take(), ElementsAre("signalInterfaceOverLoadChanged(device, other)",
                                        "signalConnectorOverLoadChanged(device, card, port)"));

    detail = other->interfaceDetail();
    detail.interfaceId.slotId = 5;
    detail.HDR.colorGamut.presetColorGamut = 3;
    other->setInterfaceDetail(detail);
    EXPECT_THAT(log.take(), IsEmpty());
    detail.general.name = "Camera";
    detail.formatMapping = 1;
    detail.HDCP.enable = true;
    detail.crop.widthRatio = 50000;
    detail.actualTiming.refresh = 6000;
    other->setInterfaceDetail(detail);
    EXPECT_THAT(log.take(),
                ElementsAre("signalInterfaceNameChanged(device, other)", "signalHDCPInfoChanged(device, other)",
                            "signalInterfaceOverLoadChanged(device, other)",
                            "signalConnectorOverLoadChanged(device, card, port)",
                            "signalInterfaceActualTimingChanged(device, other)",
                            "signalInterfaceCropChanged(device, other, \"\")",   // the record as it is
                            "signalInterfaceCropChanged(device, other, \"\")")); // and its pixels
    EXPECT_EQ(other->interfaceFullId().slotId, 1);
    EXPECT_EQ(toInt(other->presetColorGamut()), 255);
    EXPECT_EQ(other->cropRect(), QRect(0, 0, 960, 1080));
}

TEST_F(Interfaces, AreFilledFromTheCapabilityFiles) {
    device->initSubCards({{0, 30471}, {1, kQuad4k}, {6, 30533}, {12, kAuxCard}, {13, 30592}});
    device->createInput();
    device->createOutput();
    const auto made = device->findInput(1, 1).lock();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->presetTiming(), fullHd());
    EXPECT_EQ(made->presetColorDepth(), ColorDepth::_8_);
    EXPECT_EQ(made->presetHDCPType(), HDCPType::HDCP_1_4);
    EXPECT_EQ(made->imageQuality().gamma, 100);
    EXPECT_EQ(made->connectorTypeName(), QStringLiteral("HDMI 1.4"));
    EXPECT_EQ(made->connectorShortType(), QStringLiteral("HDMI"));

    reported(oneBig());
    const Input big(device, 1, 0);
    EXPECT_EQ(big.capacity(), CapacityMode::_4K);
    EXPECT_EQ(big.presetFrameRate(), QSize(3840, 2160));
    EXPECT_EQ(big.presetHDCPType(), HDCPType::HDCP_2_2);
    EXPECT_EQ(big.connectorTypeName(), QStringLiteral("HDMI 2.0"));

    const struct {
        std::shared_ptr<Interface> interface;
        const char *name;
        const char *position;
        int type;
    } rows[] = {
        {device->findInput(0, 1).lock(), "Input 1-3", "In1-3", 2}, // printed as port 3
        {made, "Input 2-2", "In2-2", 2},
        {device->findOutput(6, 1).lock(), "Output 1-2", "Out1-2", 4},
        {device->findOutput(12, 0).lock(), "AUX 1", "EXP-1", 8},
        {device->findOutput(12, 2).lock(), "AUX 3", "EXP-3", 8},
    };
    for (const auto &row : rows) {
        ASSERT_NE(row.interface, nullptr) << row.name;
        EXPECT_EQ(row.interface->name(), QString(row.name));
        EXPECT_EQ(row.interface->positionName(), QString(row.position));
        EXPECT_EQ(row.interface->type(), row.type) << row.name;
    }
    device->findOutput(12, 1).lock()->setName(QStringLiteral("Stage"));
    EXPECT_EQ(rows[3].interface->nextAuxInterfaceName(), QStringLiteral("AUX 2"));
    EXPECT_EQ(made->nextInterfaceName(1, InterfaceType::MVROutput), QString());
    made->setInterfaceId({1, 7, 0}); // no such port
    EXPECT_EQ(made->nextInputInterfaceName(1), QStringLiteral("Input 2-0"));
    EXPECT_EQ(made->positionName(), QStringLiteral("N/A"));
    made->setInterfaceId({14, 0, 0});
    EXPECT_EQ(made->positionName(), QStringLiteral("N/A"));
    made->setInterfaceId({2, 1, 0});
    EXPECT_EQ(made->echoVideoId(), 9);
    const Output expansion(device, 13, 0); // neither an input nor an output card
    EXPECT_EQ(expansion.type(), 0);
    EXPECT_EQ(expansion.name(), QString());
}

TEST_F(Interfaces, AreNeutralWithoutAnOwner) {
    const MessageLog messages;
    Interface alone;
    alone.initInterfaceData(1, 0);
    EXPECT_EQ(alone.echoVideoId(), 255);
    EXPECT_EQ(alone.printKeyNo(), -1);
    EXPECT_THAT(messages.take(),
                ElementsAre("warning: The device is null", "warning: device is null.", "warning: Device is null"));
    EXPECT_EQ(alone.capacity(), CapacityMode::invaild);
    for (const QString &name : {alone.nextInputInterfaceName(1), alone.nextAuxInterfaceName(), alone.positionName()})
        EXPECT_EQ(name, QStringLiteral("N/A"));
    alone.setOwerDevice(device);
    alone.initInterfaceData(3, 0);
    alone.initInterfaceData(1, 9);
    EXPECT_THAT(messages.take(), ElementsAre("warning: The subcard is null", "warning: The connector is null"));
}

TEST_F(Interfaces, AreReadWhileReportsArrive) {
    std::atomic<bool> isDone = false;
    std::thread protocol([&] {
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
        isDone = true;
    });
    while (!isDone) {
        for (const auto &reference : device->interfaces())
            if (const auto interface = reference.lock()) {
                const QSize frame = interface->validSizeUnderActive();
                EXPECT_TRUE(frame.width() == 0 || frame.width() >= 1920);
                EXPECT_FALSE(interface->name().isEmpty());
            }
        EXPECT_GE(input->state().m_detail.crop.width, 1920);
        EXPECT_EQ(device->findInput(65536U).lock(), input);
        EXPECT_GE(device->validInputs().size(), 1);
        input->setCropEnable(!input->cropEnable());
    }
    protocol.join();
}

} // namespace Quorix::Tests
