/// Connectors: their two copies of type, work mode and capacity, their signals, and layouts put on by hand.
#include "chassis.h"

#include <quorixbizmodel/common/enumtools.h>
#include <support/messagelog.h>

namespace Quorix::Tests {

using namespace BizModel;
using Enum::Interface::CapacityMode;
using Enum::Interface::ConnectorType;
using Enum::Interface::WorkMode;
using testing::ElementsAre;
using testing::IsEmpty;

struct Connectors : Chassis {
    std::shared_ptr<Subcard> card;
    std::shared_ptr<Connector> connector;

    void SetUp() override {
        Chassis::SetUp();
        card = reported(singleLinks());
        connector = card->connector(0).lock();
        log.name(connector.get(), QStringLiteral("connector"));
        log.take();
    }
};

TEST_F(Connectors, SignalChangesOnly) {
    const struct {
        const char *what;
        void (*act)(Device &device, Connector &connector);
        QStringList events;
    } rows[] = {
        {"the present capacity", [](Device &, Connector &c) { c.setCapacityMode(CapacityMode::_SL); }, {}},
        {"another capacity",
         [](Device &d, Connector &) { d.setConnectorCapacity(1, 0, CapacityMode::_4K); },
         {"signalConnectorCapacityChanged(device, card, connector)"}},
        {"a capacity that the record has already, but not the entry",
         [](Device &, Connector &c) {
             auto entry = c.cardConnector();
             entry.Connector.capacityMode = 1;
             c.setCardConnector(entry);
             c.setCapacityMode(CapacityMode::_4K);
         },
         {"signalConnectorCapacityChanged(device, card, connector)"}},
        {"a capacity without a connector",
         [](Device &d, Connector &) { d.setConnectorCapacity(1, 9, CapacityMode::_4K); },
         {}},
        {"a signal, twice",
         [](Device &d, Connector &c) {
             d.setConnectorActived(1, 0, true);
             c.setActived(true);
         },
         {"signalConnectorSignalChanged(device, card, connector)"}},
        {"an overload, twice",
         [](Device &d, Connector &c) {
             d.setConnectorOverLoad(1, 0, true);
             c.setOverLoad(true);
         },
         {"signalConnectorOverLoadChanged(device, card, connector)"}},
        {"relays joined again",
         [](Device &, Connector &c) {
             c.unserailize(c.owerSubcard());
             c.setOverLoad(false);
         },
         {"signalConnectorOverLoadChanged(device, card, connector)"}},
    };
    for (const auto &row : rows) {
        row.act(*device, *connector);
        EXPECT_EQ(log.take(), row.events) << row.what;
    }
}

TEST_F(Connectors, WriteRecordAndEntry) {
    device->initConnectorData(1, 0, toInt(ConnectorType::HDMI_2_0), toInt(WorkMode::Backup), toInt(CapacityMode::_DL));
    const Record expected{.id = 0, .type = 6, .copyId = kNoCopy, .workMode = 1, .capacityMode = 1};
    EXPECT_EQ(connector->cardConnector().Connector, expected);
    Record record;
    ASSERT_TRUE(device->protoConnector(1, 0, record));
    EXPECT_EQ(record, expected);
    EXPECT_EQ(connector->type(), ConnectorType::HDMI_2_0);

    EXPECT_EQ(device->findConnector(1, 0), device->getConnector({1, 0, 0}));
    EXPECT_EQ(device->findConnector(1, 0), device->findConnector(card, connector));
    EXPECT_EQ(device->findConnector(1, 0), Device::findConnector(*device->findSlotById(1), 0));
    EXPECT_EQ(device->findConnector(card, {}), nullptr);

    const MessageLog messages;
    device->initConnectorData(1, 4, 5, 0, 0);
    EXPECT_THAT(messages.take(), ElementsAre("warning: The connector is null"));
}

TEST_F(Connectors, DoNothingWithoutARecord) {
    reported(oneBig());
    const auto left = card->connector(2).lock();
    const auto entry = left->cardConnector();
    left->setType(ConnectorType::DP_1_2);
    left->setWorkMode(WorkMode::Backup);
    left->setCapacityMode(CapacityMode::_DL);
    EXPECT_EQ(left->cardConnector().Connector, entry.Connector);
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(Connectors, LoseTheSignalWithTheEntryAndCompareRates) {
    const auto entry = connector->cardConnector();
    connector->setActived(true);
    EXPECT_TRUE(connector->cardConnector().Signal);
    connector->setCardConnector(entry);
    EXPECT_FALSE(connector->cardConnector().Signal);

    connector->setRefreshRate(0.5F);
    connector->setRefreshRate(0.5F + 0.0000005F);
    EXPECT_EQ(connector->getRefreshRate(), 0.5F);
    connector->setRefreshRate(0.5F + 0.000002F);
    EXPECT_EQ(connector->getRefreshRate(), 0.5F + 0.000002F);
}

TEST_F(Connectors, AreAddedWithAnEntryEvenWithoutARecord) {
    const auto added = card->addConnector(7, 3, ConnectorType::VGA, CapacityMode::_DL, WorkMode::Backup, 20, 8, false);
    ASSERT_NE(added, nullptr);
    log.name(added.get(), QStringLiteral("added"));
    EXPECT_EQ(added->cardConnector().Connector, (Record{.id = 7, .type = 10, .workMode = 1, .capacityMode = 1}));
    EXPECT_EQ(added->type(), ConnectorType::INVALID);
    const auto state = added->state();
    EXPECT_EQ(state.m_connectorId, 7);
    EXPECT_EQ(state.m_iIndex, 3);
    EXPECT_EQ(state.m_cardConnectorInfo.PrintKeyNo, 8);
    EXPECT_FALSE(state.m_cardConnectorInfo.Visible);
    added->setActived(true);
    EXPECT_THAT(log.take(), ElementsAre("signalConnectorSignalChanged(device, card, added)"));
    EXPECT_EQ(card->addConnector(256, ConnectorType::VGA), nullptr);
    EXPECT_EQ(card->connectors().size(), 5);
}

TEST_F(Connectors, TakeALayoutOfTheFile) {
    const auto *config = InterfaceConfig::instance();
    const auto infos = config->findSubCardByModelId(kQuad4k)->getPostionForConnectorInfo();
    const auto big = config->getSubCardCardConnectors(kQuad4k, 0, 2, 0);
    connector->setPrintKeyNo(9);
    device->setInterfaceInfo(1, infos, big);
    EXPECT_EQ(connector->capacityMode(), CapacityMode::_4K);
    EXPECT_EQ(connector->printKeyNo(), 0);
    EXPECT_EQ(connector->getFrameRate(), infos[0].m_sizeDefaultResolution);
    const auto other = card->connector(2).lock(); // not in the layout
    EXPECT_EQ(other->capacityMode(), CapacityMode::invaild);
    EXPECT_EQ(other->workMode(), WorkMode::Master);

    device->addSubcard(2, Enum::Device::CardType::_INPUT, kQuad4k); // a card without connectors gets them
    device->setInterfaceInfo(2, infos, big);
    const auto made = device->findConnectorModel(2, 0).lock();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->cardConnector().Connector.capacityMode, toInt(CapacityMode::_4K));
    EXPECT_EQ(made->getIndex(), 0);
    EXPECT_FLOAT_EQ(made->getRefreshRate(), infos[0].m_fDefaultRefreshRate);
    EXPECT_EQ(device->slot(2).lock()->connectors().size(), infos.size());

    device->setInterfaceInfo(3, infos, big);
    EXPECT_FALSE(device->isExistSlot(3));
}

} // namespace Quorix::Tests
