/// Connectors: their two copies of type, work mode and capacity, their signals, and layouts put on by hand.
#include "chassis.h"

namespace Quorix::Tests {

struct Connectors : Chassis {
    std::shared_ptr<Subcard> card;
    std::shared_ptr<Connector> connector;

    void SetUp() override {
        Chassis::SetUp();
        card = reported(singleLinks());
        connector = card->connector(0).lock();
        log.name(connector.get(), "connector");
        log.take();
    }
};

TEST_F(Connectors, SignalChangesOnly) {
    const char *const capacity = "ConnectorCapacityChanged(card, connector)";
    const char *const overload = "ConnectorOverLoadChanged(card, connector)";
    connector->setCapacityMode(CapacityMode::_SL); // the present one
    device->setConnectorCapacity(1, 9, CapacityMode::_4K);
    EXPECT_EQ(heard(), "");
    device->setConnectorCapacity(1, 0, CapacityMode::_4K);
    EXPECT_EQ(heard(), capacity);
    auto entry = connector->cardConnector();
    entry.Connector.capacityMode = 1;
    connector->setCardConnector(entry);
    connector->setCapacityMode(CapacityMode::_4K); // the record has it already, the entry hasn't
    EXPECT_EQ(heard(), capacity);
    device->setConnectorActived(1, 0, true);
    connector->setActived(true);
    EXPECT_EQ(heard(), "ConnectorSignalChanged(card, connector)");
    device->setConnectorOverLoad(1, 0, true);
    connector->setOverLoad(true);
    EXPECT_EQ(heard(), overload);
    connector->unserailize(connector->owerSubcard()); // relays joined again
    connector->setOverLoad(false);
    EXPECT_EQ(heard(), overload);
}

TEST_F(Connectors, WriteRecordAndEntry) {
    device->initConnectorData(1, 0, toInt(ConnectorType::HDMI_2_0), toInt(WorkMode::Backup), toInt(CapacityMode::_DL));
    EXPECT_EQ(heard(), "ConnectorCapacityChanged(card, connector)");
    const Record expected{.id = 0, .type = 6, .workMode = 1, .capacityMode = 1};
    EXPECT_EQ(connector->cardConnector().Connector, expected);
    Record record;
    EXPECT_TRUE(device->protoConnector(1, 0, record) && record == expected);

    EXPECT_EQ(device->findConnector(1, 0), device->getConnector({1, 0, 0}));
    EXPECT_EQ(device->findConnector(1, 0), device->findConnector(card, connector));
    EXPECT_EQ(device->findConnector(1, 0), Device::findConnector(*device->findSlotById(1), 0));
    EXPECT_EQ(device->findConnector(card, {}), nullptr);

    const MessageLog messages;
    device->initConnectorData(1, 4, 5, 0, 0);
    EXPECT_THAT(messages.take(), ElementsAre("warning: The connector is null"));

    reported(oneBig()); // without a record nothing happens
    const auto left = card->connector(2).lock();
    const auto entry = left->cardConnector();
    left->setType(ConnectorType::DP_1_2);
    left->setWorkMode(WorkMode::Backup);
    left->setCapacityMode(CapacityMode::_DL);
    EXPECT_EQ(left->cardConnector().Connector, entry.Connector);
    EXPECT_EQ(heard(), "");
}

TEST_F(Connectors, LoseTheSignalWithTheEntryAndCompareRates) {
    const auto entry = connector->cardConnector();
    connector->setActived(true);
    EXPECT_TRUE(connector->cardConnector().Signal);
    connector->setCardConnector(entry);
    EXPECT_FALSE(connector->cardConnector().Signal);
    for (const auto &[rate, kept] :
         {std::pair(0.5F, 0.5F), {0.5F + 0.0000005F, 0.5F}, {0.5F + 0.000002F, 0.5F + 0.000002F}}) {
        connector->setRefreshRate(rate);
        EXPECT_EQ(connector->getRefreshRate(), kept);
    }
}

TEST_F(Connectors, AreAddedWithAnEntryEvenWithoutARecord) {
    const auto added = card->addConnector(7, 3, ConnectorType::VGA, CapacityMode::_DL, WorkMode::Backup, 20, 8, false);
    ASSERT_NE(added, nullptr);
    log.name(added.get(), "added");
    EXPECT_EQ(added->cardConnector().Connector, (Record{.id = 7, .type = 10, .workMode = 1, .capacityMode = 1}));
    EXPECT_EQ(added->type(), ConnectorType::INVALID);
    const auto state = added->state();
    const auto &info = state.m_cardConnectorInfo;
    EXPECT_TRUE(state.m_connectorId == 7 && state.m_iIndex == 3 && info.PrintKeyNo == 8 && !info.Visible);
    added->setActived(true);
    EXPECT_EQ(heard(), "ConnectorSignalChanged(card, added)");
    EXPECT_EQ(card->addConnector(256, ConnectorType::VGA), nullptr);
    EXPECT_EQ(card->connectors().size(), 5);
}

TEST_F(Connectors, TakeALayoutOfTheFile) {
    const auto *config = InterfaceConfig::instance();
    const auto infos = config->findSubCardByModelId(kQuad4k)->getPostionForConnectorInfo();
    const auto big = config->getSubCardCardConnectors(kQuad4k, 0, 2, 0);
    connector->setPrintKeyNo(9);
    device->setInterfaceInfo(1, infos, big);
    EXPECT_TRUE(connector->capacityMode() == CapacityMode::_4K && connector->printKeyNo() == 0);
    const auto other = card->connector(2).lock(); // not in the layout
    EXPECT_TRUE(other->capacityMode() == CapacityMode::invaild && other->workMode() == WorkMode::Master);

    device->addSubcard(2, CardType::_INPUT, kQuad4k); // a card without connectors gets them
    device->setInterfaceInfo(2, infos, big);
    const auto made = device->findConnectorModel(2, 0).lock();
    ASSERT_NE(made, nullptr);
    EXPECT_TRUE(made->cardConnector().Connector.capacityMode == toInt(CapacityMode::_4K) && made->getIndex() == 0);
    EXPECT_FLOAT_EQ(made->getRefreshRate(), infos[0].m_fDefaultRefreshRate);
    EXPECT_EQ(device->slot(2).lock()->connectors().size(), infos.size());

    device->setInterfaceInfo(3, infos, big);
    EXPECT_FALSE(device->isExistSlot(3));
}

} // namespace Quorix::Tests
