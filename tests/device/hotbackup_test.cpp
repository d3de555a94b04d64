/// Hot backup: which changes of the pairs signal, which layers follow the interface in force, what an editor is told.
#include <layers/layers.h>
#include <quorixbizmodel/topology/connector.h>

namespace Quorix::Tests {

namespace {

using Relation = ProtoModel::Device::s_Relation;
constexpr int kFirst = 65536;  ///< "input"
constexpr int kSecond = 65792; ///< "second"
constexpr int kSlot2 = 131072; ///< port 0; packed without care, port 256 of slot 1 would be the same
constexpr Relation kPair{.type = 0, .interfaceA = kFirst, .interfaceB = kSecond, .actualInterface = kFirst};
constexpr Relation kOther{.type = 0, .interfaceA = kSlot2, .interfaceB = kSlot2 + 256, .actualInterface = kSlot2};

} // namespace

struct HotBackup : Layers {
    QString heard() { return log.take().join(' ').remove("signal").remove("InterfaceRelation").remove("(device)"); }
};

TEST_F(HotBackup, ChangesOfPairsSignal) {
    const struct {
        const char *events;
        std::function<void(Device &)> change;
        int enable, partner, uses;
    } steps[] = {
        {"EnableChanged PairsChanged", call(&Device::setInterfaceRelation, {1, {kPair}}), 1, kSecond, 10},
        {"", call(&Device::setInterfaceRelation, {1, {kPair}}), 1, kSecond, 10},
        {"PairsChanged", call(&Device::setInterfaceRelation, {1, {kPair, kOther}}), 1, kSecond, 11},
        {"EnableChanged", call(&Device::setInterfaceRelation, {2, {kPair, kOther}}), 2, kSecond, 11},
        {"", call(&Device::setInterfaceRelationEnable, true), 2, kSecond, 11},
        {"EnableChanged", call(&Device::setInterfaceRelationEnable, false), 0, kSecond, 0},
        {"EnableChanged", call(&Device::setInterfaceRelationEnable, true), 1, kSecond, 11},
        {"", call(&Device::removeInterfaceRelation, 1, 2), 1, kSecond, 11},
        {"PairsChanged", call(&Device::removeInterfaceRelation, 1, 1), 1, -1, 1},
        {"", call(&Device::removeInterfaceRelationBySlotId, 1), 1, -1, 1},
        {"PairsChanged", call(&Device::removeInterfaceRelationBySlotId, 2), 1, -1, 0},
    };
    for (const auto &[events, change, enable, partner, uses] : steps) {
        change(*device);
        EXPECT_EQ(heard(), events);
        EXPECT_EQ(device->interfaceRelation().enable, enable);
        EXPECT_EQ(device->getInterfaceRelation(kFirst), partner);
        EXPECT_EQ(device->isUsedForHotBack(1, 1) * 10 + device->isUsedForHotBack(2, 0), uses);
    }
}

TEST_F(HotBackup, LayersFollowTheReport) {
    device->setInterfaceRelation({1, {kPair, kOther}});
    layer->setSource(sourceOf(*second));
    const auto onAux = addedLayer(*aux, LayerType::AUX, SceneType::PGM, SourceType::Input, kSecond);
    log.take();
    MessageLog::take();
    // Turned round, told twice, and with a pair that the device doesn't have.
    device->updateInterfaceRelation({{0, kSecond, kFirst, kFirst}, {0, kFirst, kSecond, kSecond}, {0, 1, 2, 1}});
    EXPECT_EQ(heard(), "LayerSourceChanged(device, regular, layer) LayerCropChanged(device, regular, layer, \"\") "
                       "LayerSourceChanged(device, aux, ?) LayerCropChanged(device, aux, ?, \"\") PairsChanged");
    EXPECT_EQ(layer->sourceId() + onAux->sourceId(), 2 * kFirst);
    EXPECT_EQ(device->interfaceRelation().relation.size(), 2U);
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: reported hotback pair isn't exist in interface relation."));

    device->updateInterfaceRelation({{0, kFirst, kSecond, kFirst}});  // as it stands
    device->updateInterfaceRelation({{1, kFirst, kSecond, kSecond}}); // another type
    device->updateInterfaceRelation({{0, kFirst, kSecond, 77}});
    EXPECT_EQ(heard(), "PairsChanged PairsChanged");
    EXPECT_EQ(device->interfaceRelation().relation[0].actualInterface, 77);

    ProtoModel::Device::s_RelationArray report{{0, kFirst, kSecond, kSecond}};
    const auto drop = [&] { report = ProtoModel::Device::s_RelationArray(); };
    QObject::connect(layer.get(), &Layer::signalSourceInfoChanged, layer.get(), drop);
    device->updateInterfaceRelation(report);
    EXPECT_EQ(device->interfaceRelation().relation[0].actualInterface, kSecond);
}

TEST_F(HotBackup, AnEditorIsToldWhatItMayChange) {
    device->setInterfaceRelation({1, {kPair, kOther}});
    EXPECT_TRUE(device->isUsedForHotBack(2, 0) && !device->isUsedForHotBack(1, 256));
    device->setAllowEditedHotBackupConnectors({{1, 1}, {1, 2}, {257, 1}});
    for (const auto &[slot, port] : {std::pair(1, 1), {1, 0}, {1, 2}, {257, 1}})
        EXPECT_EQ(device->isAllowEditedHotBackupConnector(slot, port), slot == 1 && port == 1) << slot << port;
    const auto offer = [&](int port, bool isChosen) {
        device->updateAvailableInterface(1, port, isChosen);
        QString offered;
        for (const auto &connector : card->connectors())
            offered += connector.lock()->isHotBackForSameCapacity() ? '1' : '0';
        return offered;
    };
    device->setConnectorCapacity(1, 2, Enum::Interface::CapacityMode::_DL);
    EXPECT_EQ(offer(2, true), "0010");
    EXPECT_EQ(offer(9, true), "0010"); // no such port: as before
    EXPECT_EQ(offer(2, false) + offer(0, true), "11111101");

    Body recordOnly = singleLinks();
    recordOnly.slotId = 3;
    device->initProtoConnector(recordOnly);
    EXPECT_TRUE(device->isUsedForHotBack(1, 1, 0, 2)); // port 1 with 4K
    EXPECT_FALSE(device->isUsedForHotBack(1, 2, 0, 0) || device->isUsedForHotBack(1, 0, 0, 9));
    EXPECT_FALSE(device->isUsedForHotBack(260, 0, 0, 0) || device->isUsedForHotBack(3, 0, 0, 0));
    EXPECT_THAT(MessageLog::take(), ElementsAre("warning: The connector is null", "warning: Not find slot: 260",
                                                "warning: Can not find the card, card index is  3"));
}

} // namespace Quorix::Tests
