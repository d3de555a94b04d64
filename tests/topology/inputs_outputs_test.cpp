/// Inputs and outputs: how they enter and leave a device, how they are found, and an output around a screen.
#include "interfaces.h"

#include <quorixbizmodel/capability/quorixbizstruct.h>

namespace Quorix::Tests {

/// Packed ids divided by 256: slot times 256 plus connector.
template <class T>
QList<int> places(const QList<std::weak_ptr<T>> &references) {
    QList<int> ids;
    for (const auto &reference : references)
        ids.append(static_cast<int>(reference.lock()->interfaceId() >> 8U));
    return ids;
}

struct InputsOutputs : Chassis {
    QString error;

    /// In silence.
    std::shared_ptr<Interface> add(int slot, int connector, int type) {
        auto interface = addedInterface(*device, detailOf(slot, connector, type));
        return log.take(), interface;
    }
};

TEST_F(InputsOutputs, RefuseWhatIsNoInterface) {
    for (const int type : {-4, 0, 1, 30}) {
        EXPECT_FALSE(device->addInterface(detailOf(1, 0, type), error));
        EXPECT_EQ(error, QString("type is error,type is:%1").arg(type));
    }
    EXPECT_FALSE(device->addInterface(detailOf(1, -1, 4), error) || device->addInterface(detailOf(257, 0, 2), error));
    EXPECT_EQ(error, "interface id is error,interface id is:257-0-0");
    EXPECT_TRUE(device->interfaces().isEmpty() && log.take().isEmpty());
}

TEST_F(InputsOutputs, StandInTheOrderOfTheirIds) {
    reported(singleLinks());
    reported(outputCard());
    const std::tuple<int, int, int> ports[] = {{2, 0, 2}, {1, 3, 2}, {1, 0, 2}, {7, 0, 8}, {6, 1, 16}, {6, 0, 4}};
    for (const auto &[slot, connector, type] : ports)
        addedInterface(*device, detailOf(slot, connector, type));
    EXPECT_EQ(heard(), "InputAdded(?) InputAdded(?) InputAdded(?)");
    EXPECT_THAT(places(device->inputs()), ElementsAre(256, 259, 512));
    EXPECT_THAT(places(device->outputs()), ElementsAre(1536, 1537, 1792));
    EXPECT_THAT(places(device->interfaces()), ElementsAre(256, 259, 512, 1536, 1537, 1792));
    EXPECT_THAT(places(device->interfaces(1)), ElementsAre(256, 259));
    EXPECT_THAT(places(device->outputs(28)), ElementsAre(1536, 1537, 1792));
    EXPECT_THAT(places(device->outputs(8)), ElementsAre(1792));
    EXPECT_THAT(places(device->outputs(20)), ElementsAre(1536, 1537));
    EXPECT_THAT(places(device->findOutputs(InterfaceType::MVROutput)), ElementsAre(1537));
    EXPECT_TRUE(device->validMainOutputConnectors() == 1 && device->validAuxOutputConnectors() == 1);

    EXPECT_EQ(device->findInput(65536U).lock(), device->findInput(1, 0).lock());
    EXPECT_EQ(device->findOutput(6U << 16U).lock(), device->findOutput(6, 0).lock());
    EXPECT_EQ(device->interface(6, 1).lock(), device->findOutput(6, 1).lock());
    EXPECT_EQ(device->findInterface({1, 3, 9}).lock(), device->findInput(1, 3).lock());
    // An output; a slot without a record; what only looks like slot 1.
    EXPECT_TRUE(device->findInput(6, 0).expired() && device->interface(7, 0).expired() &&
                device->findInterface({257, 0, 0}).expired());

    Body off = singleLinks(2);
    off.connectors[0].workMode = 2;
    reported(off); // position 0 shows nothing, position 3 has gone; slot 2 never had a record
    EXPECT_TRUE(device->validInputs().isEmpty());
    off.connectors.push_back({.id = 3, .type = 5});
    reported(off);
    EXPECT_THAT(places(device->validInputs()), ElementsAre(259));

    device->findOutput(6, 0).lock()->setName("Wall");
    EXPECT_EQ(device->findOutput("Wall").lock(), device->findOutput(6, 0).lock());
    EXPECT_FALSE(device->isOutputNameExist("wall"));

    auto list = device->outputs();
    list = {list[2], {}, list[0]};
    Device::outputsInOrder(list);
    EXPECT_THAT(places(list.mid(0, 2)), ElementsAre(1536, 1792));
}

TEST_F(InputsOutputs, FollowALayoutChangeStepByStep) {
    reported(singleLinks());
    const auto kept = add(1, 0, 2);
    for (int id = 1; id < 4; ++id)
        add(1, id, 2);
    reported(oneBig());
    kept->setInterfaceDetail(detailOf(1, 0));
    log.take();
    for (int id = 1; id < 4; ++id)
        device->removeInterface(2, 1, id);
    EXPECT_EQ(heard(), ""); // they leave in silence
    EXPECT_THAT(places(device->inputs()), ElementsAre(256));
    EXPECT_EQ(kept->capacity(), CapacityMode::_4K);

    reported(singleLinks());
    for (int id = 1; id < 4; ++id)
        add(1, id, 2);
    EXPECT_TRUE(device->findInput(1, 0).lock() == kept && kept->capacity() == CapacityMode::_SL);
    EXPECT_EQ(device->inputs().size(), 4);
}

TEST_F(InputsOutputs, AreMadeFromTheLayoutOnce) {
    device->initSubCards({{0, kQuad4k}, {6, 30533}, {13, 30592}});
    log.take();
    // A listener's change reaches the hub only if the relays are joined by then.
    QObject::connect(device.get(), &Device::signalInputAdded, device.get(),
                     [](const std::weak_ptr<Input> &added) { added.lock()->setName("Renamed"); });
    device->createInput();
    EXPECT_EQ(log.take().count("signalInterfaceNameChanged(device, ?)"), 0);
    device->createOutput();
    device->createInput();
    device->createOutput(device->slot(6));
    device->createOutput(device->slot(0));
    EXPECT_EQ(heard(), "");
    EXPECT_THAT(places(device->inputs()), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(places(device->outputs()), ElementsAre(1536, 1537)); // the fiber ports are none
    addedInterface(*device, detailOf(1, 0));
    EXPECT_EQ(log.take().count("signalInterfaceNameChanged(device, ?)"), 1);
    device->slot(6).lock()->setOnlineStatus(2);
    device->removeInterface(6);
    device->createOutput();
    EXPECT_TRUE(device->outputs().isEmpty());
}

TEST_F(InputsOutputs, Leave) {
    reported(singleLinks());
    reported(outputCard());
    log.name(add(1, 0, 2).get(), "input");
    log.name(add(6, 0, 4).get(), "output");
    add(1, 1, 2);
    add(6, 1, 4);
    device->removeInterface(4, 1, 0);   // not an output
    device->removeInterface(2, 257, 0); // not slot 1
    device->removeInput(6, 0);
    device->removeInput(1, 0);
    device->removeOutput(6, 0);
    device->removeOutput(6, 0);
    EXPECT_EQ(heard(), "InputRemoved(input) DeviceOutputRemoved(output)");
    for (const auto slot : QList<quint8>{1, 6, 9})
        device->removeInterface(slot);
    EXPECT_TRUE(heard() == "InputRemoved(?) DeviceOutputRemoved(?)" && device->interfaces().isEmpty());
}

TEST_F(InputsOutputs, AreCountedForTheChassis) {
    using OpenState = s_MVRScreenConfigs::eOpenState;
    auto &config = device->deviceConfig();
    const auto saved = config;
    config.OutputSlotCount = 2, config.MaxConnectorCountOfSingleCard = 3;
    const std::tuple<bool, OpenState, bool, int, int> rows[] = {
        {true, OpenState::Closed, false, 6, 6},          {true, OpenState::SoftAutoOpened, false, 3, 2},
        {true, OpenState::HardAutoOpened, true, 6, 6},   {true, OpenState::HardAutoOpened, false, 3, 2},
        {false, OpenState::HardAutoOpened, false, 6, 6}, {true, OpenState::OpenStateCnt, false, 6, 2},
    };
    auto &mvr = config.MVRScreensCfg;
    for (const auto &[isSupported, state, isManual, max, count] : rows) {
        mvr.IsSupport = isSupported, mvr.OpenState = state, mvr.IsManualSwitch = isManual;
        EXPECT_EQ(device->maxMainOutputCount(), max);
        EXPECT_EQ(device->outputInterfaceCount(InterfaceType::MainOutput, ConnectorType::VGA, false), count);
    }
    config = saved;

    reported(outputCard());
    add(6, 0, 8);
    add(6, 1, 4);
    const auto count = [&](ConnectorType type, bool isMvr) {
        return device->outputInterfaceCount(InterfaceType::AUXOutput, type, isMvr);
    };
    using Type = ConnectorType;
    EXPECT_EQ(count(Type::Single_Link_DVI, false) * 100 + count(Type::VGA, false) * 10 + count(Type::VGA, true), 100);
    device->initSubCards({{11, 30535}});
    EXPECT_EQ(count(Type::VGA, true), 1);
}

TEST_F(InputsOutputs, CarryTheirCopyPartnerAlongAroundAScreen) {
    reported(outputCard());
    const auto output = std::dynamic_pointer_cast<Output>(add(6, 0, 4));
    const auto partner = std::dynamic_pointer_cast<Output>(add(6, 1, 4));
    EXPECT_EQ(device->findCopyInterface({6, 0, 0}).lock(), partner);
    for (const auto slot : QList<quint8>{6, 9})
        EXPECT_TRUE(device->findCopyInterface({slot, 1, 0}).expired());

    output->setPresetTiming(fullHd()), output->setColorDepth({8, 10});
    output->setFormatMapping(FormatMapping::Level_B);
    output->backupParaBeforeAdd2Screen();
    output->setPresetTiming(ultraHd()), output->setColorDepth({8, 12});
    for (const auto &tested : {output, partner})
        tested->setTestPattern({.enable = 1, .type = 3});
    auto hdr = output->hdr();
    hdr.colorGamut.presetColorGamut = 3, hdr.dynamicRange.presetDynamicRange.type = 2;
    output->setHDR(hdr);
    output->reloadParaBeforeAdd2Screen();
    output->resetParamAfterRemovedByScreen();
    for (const auto &reset : {output, partner}) {
        EXPECT_EQ(reset->presetTiming(), fullHd());
        EXPECT_EQ(reset->testPattern(), ProtoModel::s_TestPatternBody());
        EXPECT_TRUE(reset->colorDepth().presetColorDepth == 10 && reset->formatMapping() == FormatMapping::Level_B);
        EXPECT_EQ(reset->imageQuality().gamma, 100);
        EXPECT_TRUE(toInt(reset->presetColorGamut()) == 1 && toInt(reset->presetDynamicRange()) == 0);
    }
    partner->reloadParaBeforeAdd2Screen(); // nothing was saved
    EXPECT_EQ(partner->presetTiming(), Timing());
}

TEST_F(InputsOutputs, DifferInTheirDefaults) {
    const Output output;
    EXPECT_TRUE(toInt(output.presetColorGamut()) == 1 && toInt(output.presetDynamicRange()) == 0);
    Input input;
    EXPECT_TRUE(toInt(input.presetColorGamut()) == 255 && toInt(input.presetDynamicRange()) == 255);

    input.setInterfaceId({1, 0, 0});
    input.setPickPoint({3, 4});
    input.setCropLocked(true);
    input.setOwerDevice(device);
    const Input copy(input);
    EXPECT_TRUE(copy.state().m_pickUpPoint == (ProtoModel::s_Pos{3, 4}) && copy.state().m_cropLocked);
    EXPECT_TRUE(copy.interfaceId() == 65536U && copy.owerDevice().lock() == device);
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
