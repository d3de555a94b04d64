/// Inputs and outputs: how they enter and leave a device, how they are found, and an output around a screen.
#include "interfaces.h"

#include <quorixbizmodel/capability/quorixbizstruct.h>

namespace Quorix::Tests {

using namespace BizModel;
using Enum::Interface::ConnectorType;
using Enum::Interface::InterfaceType;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Packed ids divided by 256: slot times 256 plus connector.
template <class T>
QList<int> places(const QList<std::weak_ptr<T>> &references) {
    QList<int> ids;
    for (const auto &reference : references)
        ids.append(static_cast<int>(reference.lock()->interfaceId() >> 8U));
    return ids;
}

} // namespace

struct InputsOutputs : Chassis {
    QString error;

    void add(int slot, int connector, int type) {
        EXPECT_TRUE(device->addInterface(detailOf(slot, connector, type), error)) << slot << '-' << connector;
    }
};

TEST_F(InputsOutputs, RefuseWhatIsNoInterface) {
    for (const int type : {-4, 0, 1, 30}) {
        EXPECT_FALSE(device->addInterface(detailOf(1, 0, type), error));
        EXPECT_EQ(error, QStringLiteral("type is error,type is:%1").arg(type));
    }
    EXPECT_FALSE(device->addInterface(detailOf(257, 0, 2), error));
    EXPECT_EQ(error, QStringLiteral("interface id is error,interface id is:257-0-0"));
    EXPECT_FALSE(device->addInterface(detailOf(1, -1, 4), error));
    EXPECT_TRUE(device->interfaces().isEmpty());
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(InputsOutputs, StandInTheOrderOfTheirIds) {
    reported(singleLinks());
    reported(outputCard());
    add(2, 0, 2);
    add(1, 3, 2);
    add(1, 0, 2);
    add(7, 0, 8);
    add(6, 1, 16);
    add(6, 0, 4);
    EXPECT_THAT(log.take(), ElementsAre("signalInputAdded(device, ?)", "signalInputAdded(device, ?)",
                                        "signalInputAdded(device, ?)"));
    EXPECT_THAT(places(device->inputs()), ElementsAre(256, 259, 512));
    EXPECT_THAT(places(device->outputs()), ElementsAre(1536, 1537, 1792));
    EXPECT_THAT(places(device->interfaces()), ElementsAre(256, 259, 512, 1536, 1537, 1792));
    EXPECT_THAT(places(device->interfaces(1)), ElementsAre(256, 259));
    EXPECT_THAT(places(device->outputs(28)), ElementsAre(1536, 1537, 1792));
    EXPECT_THAT(places(device->outputs(8)), ElementsAre(1792));
    EXPECT_THAT(places(device->outputs(20)), ElementsAre(1536, 1537));
    EXPECT_THAT(places(device->findOutputs(InterfaceType::MVROutput)), ElementsAre(1537));
    EXPECT_EQ(device->validMainOutputConnectors(), 1U);
    EXPECT_EQ(device->validAuxOutputConnectors(), 1U);

    EXPECT_EQ(device->findInput(65536U).lock(), device->findInput(1, 0).lock());
    EXPECT_EQ(device->findOutput(6U << 16U).lock(), device->findOutput(6, 0).lock());
    EXPECT_TRUE(device->findInput(6, 0).expired());
    EXPECT_EQ(device->interface(6, 1).lock(), device->findOutput(6, 1).lock());
    EXPECT_EQ(device->findInterface({1, 3, 9}).lock(), device->findInput(1, 3).lock());
    EXPECT_TRUE(device->interface(7, 0).expired()); // no record of the slot
    EXPECT_TRUE(device->findInterface({257, 0, 0}).expired());

    Body off = singleLinks(2);
    off.connectors[0].workMode = 2;
    reported(off); // position 0 shows nothing, position 3 has gone; slot 2 never had a record
    EXPECT_THAT(places(device->validInputs()), IsEmpty());
    off.connectors.push_back({.id = 3, .type = 5});
    reported(off);
    EXPECT_THAT(places(device->validInputs()), ElementsAre(259));

    device->findOutput(6, 0).lock()->setName(QStringLiteral("Wall"));
    EXPECT_EQ(device->findOutput(QStringLiteral("Wall")).lock(), device->findOutput(6, 0).lock());
    EXPECT_FALSE(device->isOutputNameExist(QStringLiteral("wall")));

    auto list = device->outputs();
    list = {list[2], {}, list[0]};
    Device::outputsInOrder(list);
    EXPECT_EQ(list[0].lock(), device->findOutput(6, 0).lock());
    EXPECT_EQ(list[1].lock(), device->findOutput(7, 0).lock());
}

TEST_F(InputsOutputs, FollowALayoutChangeStepByStep) {
    reported(singleLinks());
    for (int id = 0; id < 4; ++id)
        add(1, id, 2);
    const auto kept = device->findInput(1, 0).lock();
    log.take();
    reported(oneBig());
    kept->setInterfaceDetail(detailOf(1, 0));
    log.take();
    for (int id = 1; id < 4; ++id)
        device->removeInterface(2, 1, id);
    EXPECT_THAT(log.take(), IsEmpty()); // they leave in silence
    EXPECT_THAT(places(device->inputs()), ElementsAre(256));
    EXPECT_EQ(kept->capacity(), Enum::Interface::CapacityMode::_4K);

    reported(singleLinks());
    for (int id = 1; id < 4; ++id)
        add(1, id, 2);
    EXPECT_EQ(device->findInput(1, 0).lock(), kept);
    EXPECT_EQ(device->inputs().size(), 4);
    EXPECT_EQ(kept->capacity(), Enum::Interface::CapacityMode::_SL);
}

TEST_F(InputsOutputs, AreMadeFromTheLayoutOnce) {
    device->initSubCards({{0, kQuad4k}, {6, 30533}, {13, 30592}});
    log.take();
    // A listener's change reaches the hub only if the relays are joined by then.
    QObject::connect(device.get(), &Device::signalInputAdded, device.get(),
                     [](const std::weak_ptr<Input> &added) { added.lock()->setName(QStringLiteral("Renamed")); });
    device->createInput();
    EXPECT_EQ(log.take().count(QStringLiteral("signalInterfaceNameChanged(device, ?)")), 0);
    device->createOutput();
    device->createInput();
    device->createOutput(device->slot(6));
    device->createOutput(device->slot(0));
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_THAT(places(device->inputs()), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(places(device->outputs()), ElementsAre(1536, 1537)); // the fiber ports are none
    add(1, 0, 2);
    EXPECT_EQ(log.take().count(QStringLiteral("signalInterfaceNameChanged(device, ?)")), 1);
    device->slot(6).lock()->setOnlineStatus(2);
    device->removeInterface(6);
    device->createOutput();
    EXPECT_TRUE(device->outputs().isEmpty());
}

TEST_F(InputsOutputs, Leave) {
    reported(singleLinks());
    reported(outputCard());
    for (int id = 0; id < 2; ++id) {
        add(1, id, 2);
        add(6, id, 4);
    }
    const auto input = device->findInput(1, 0).lock();
    const auto output = device->findOutput(6, 0).lock();
    log.name(input.get(), QStringLiteral("input"));
    log.name(output.get(), QStringLiteral("output"));
    log.take();
    device->removeInterface(4, 1, 0);   // not an output
    device->removeInterface(2, 257, 0); // not slot 1
    device->removeInput(6, 0);
    device->removeInput(1, 0);
    device->removeOutput(6, 0);
    device->removeOutput(6, 0);
    EXPECT_THAT(log.take(),
                ElementsAre("signalInputRemoved(device, input)", "signalDeviceOutputRemoved(device, output)"));
    device->removeInterface(1);
    device->removeInterface(6);
    device->removeInterface(9);
    EXPECT_THAT(log.take(), ElementsAre("signalInputRemoved(device, ?)", "signalDeviceOutputRemoved(device, ?)"));
    EXPECT_TRUE(device->interfaces().isEmpty());
}

TEST_F(InputsOutputs, AreCountedForTheChassis) {
    using OpenState = s_MVRScreenConfigs::eOpenState;
    auto &config = device->deviceConfig();
    const auto saved = config;
    config.OutputSlotCount = 2;
    config.MaxConnectorCountOfSingleCard = 3;
    const struct {
        bool isSupported;
        OpenState state;
        bool isManual;
        int max;
        int count;
    } rows[] = {
        {true, OpenState::Closed, false, 6, 6},        {true, OpenState::SoftAutoOpened, false, 3, 2},
        {true, OpenState::HardAutoOpened, true, 6, 6}, {false, OpenState::HardAutoOpened, false, 6, 6},
        {true, OpenState::OpenStateCnt, false, 6, 2},
    };
    for (const auto &row : rows) {
        config.MVRScreensCfg.IsSupport = row.isSupported;
        config.MVRScreensCfg.OpenState = row.state;
        config.MVRScreensCfg.IsManualSwitch = row.isManual;
        EXPECT_EQ(device->maxMainOutputCount(), row.max);
        EXPECT_EQ(device->outputInterfaceCount(InterfaceType::MainOutput, ConnectorType::VGA, false), row.count);
    }
    config = saved;

    reported(outputCard());
    add(6, 0, 8);
    add(6, 1, 4);
    const auto count = [&](ConnectorType type, bool isMvr) {
        return device->outputInterfaceCount(InterfaceType::AUXOutput, type, isMvr);
    };
    EXPECT_EQ(count(ConnectorType::Single_Link_DVI, false), 1);
    EXPECT_EQ(count(ConnectorType::VGA, false), 0);
    EXPECT_EQ(count(ConnectorType::VGA, true), 0);
    device->initSubCards({{11, 30535}});
    EXPECT_EQ(count(ConnectorType::VGA, true), 1);
}

TEST_F(InputsOutputs, CarryTheirCopyPartnerAlongAroundAScreen) {
    reported(outputCard());
    add(6, 0, 4);
    add(6, 1, 4);
    const auto output = device->findOutput(6, 0).lock();
    const auto partner = device->findOutput(6, 1).lock();
    EXPECT_EQ(device->findCopyInterface({6, 0, 0}).lock(), partner);
    EXPECT_TRUE(device->findCopyInterface({6, 1, 0}).expired());
    EXPECT_TRUE(device->findCopyInterface({9, 0, 0}).expired());

    output->setPresetTiming(fullHd());
    output->setColorDepth({8, 10});
    output->setFormatMapping(Enum::Interface::FormatMapping::Level_B);
    output->backupParaBeforeAdd2Screen();
    output->setPresetTiming(ultraHd());
    output->setColorDepth({8, 12});
    output->setTestPattern({.enable = 1, .type = 3});
    partner->setTestPattern({.enable = 1, .type = 3});
    auto hdr = output->hdr();
    hdr.colorGamut.presetColorGamut = 3;
    hdr.dynamicRange.presetDynamicRange.type = 2;
    output->setHDR(hdr);
    output->reloadParaBeforeAdd2Screen();
    output->resetParamAfterRemovedByScreen();
    for (const auto &reset : {output, partner}) {
        EXPECT_EQ(reset->presetTiming(), fullHd());
        EXPECT_EQ(reset->colorDepth().presetColorDepth, 10);
        EXPECT_EQ(toInt(reset->formatMapping()), 2);
        EXPECT_EQ(reset->testPattern(), ProtoModel::s_TestPatternBody());
        EXPECT_EQ(reset->imageQuality().gamma, 100);
        EXPECT_EQ(toInt(reset->presetColorGamut()), 1);
        EXPECT_EQ(toInt(reset->presetDynamicRange()), 0);
    }
    partner->reloadParaBeforeAdd2Screen(); // nothing was saved
    EXPECT_EQ(partner->presetTiming(), Timing());
}

TEST_F(InputsOutputs, DifferInTheirDefaults) {
    const Output output;
    EXPECT_EQ(toInt(output.presetColorGamut()), 1);
    EXPECT_EQ(toInt(output.presetDynamicRange()), 0);
    Input input;
    EXPECT_EQ(toInt(input.presetColorGamut()), 255);
    EXPECT_EQ(toInt(input.presetDynamicRange()), 255);

    input.setInterfaceId({1, 0, 0});
    input.setPickPoint({3, 4});
    input.setCropLocked(true);
    input.setOwerDevice(device);
    const Input copy(input);
    EXPECT_EQ(copy.state().m_pickUpPoint, (ProtoModel::s_Pos{3, 4}));
    EXPECT_TRUE(copy.state().m_cropLocked);
    EXPECT_EQ(copy.state().m_detail.interfaceId.slotId, 1);
    EXPECT_EQ(copy.interfaceId(), 65536U);
    EXPECT_EQ(copy.owerDevice().lock(), device);
}

TEST_F(InputsOutputs, AllowAnEdidOnDigitalPorts) {
    Input input;
    input.setOwerDevice(device);
    input.setInterfaceId({1, 0, 0});
    Body body = singleLinks(1);
    QList<int> refused;
    for (int type = 0; type < toInt(ConnectorType::ConnectorTypeCnt); ++type) {
        body.connectors[0].type = type;
        device->initProtoConnector(body);
        if (!input.isAllowSetEDID())
            refused.append(type);
    }
    EXPECT_THAT(refused, ElementsAre(9, 10, 11, 13, 14, 15)); // 3G-SDI, VGA, CVBS, 12G-SDI, 6G-SDI, USB
}

} // namespace Quorix::Tests
