/// Cards: how they come into the model, what they are, and how they leave.
#include "chassis.h"

#include <QThread>

namespace Quorix::Tests {

using Cards = Chassis;

TEST_F(Cards, AreClassifiedByTheirSlot) {
    const std::tuple<quint8, quint16, CardType> rows[] = {
        {0, kQuadDvi, CardType::_INPUT},     {5, kAuxCard, CardType::_INPUT}, {6, kQuadDvi, CardType::_OUTPUT},
        {11, 30535, CardType::_OUTPUT},      {12, kAuxCard, CardType::_AUX},  {13, 30592, CardType::_EXP},
        {14, kAuxCard, CardType::Undefined},
    };
    for (const auto &[slot, model, type] : rows)
        EXPECT_EQ(device->cardType(slot, model), type) << "slot " << int(slot);
    EXPECT_EQ(Device(65535).cardType(0, kQuadDvi), CardType::Undefined);
}

TEST_F(Cards, AreBuiltFromModelIdsAlone) {
    device->initSubCards({{3, kQuad4k}, {1, 1}, {12, kAuxCard}, {0, kQuadDvi}});
    EXPECT_EQ(heard(), "SubCardAdded(?) SubCardAdded(?) SubCardAdded(?)");
    QList<int> slots;
    for (const auto &card : device->subcards())
        slots.append(card.lock()->slotId());
    EXPECT_THAT(slots, ElementsAre(0, 3, 12));
    EXPECT_FALSE(device->containsSlot(1) || device->isExistSlot(1)); // no file knows the model: the slot stays empty
    EXPECT_EQ(device->onlineSubcardCount(CardType::_INPUT), 2);

    Body body;
    ASSERT_TRUE(device->protoSlot(3, body));
    EXPECT_EQ(body.modelId, kQuad4k);
    ASSERT_EQ(body.connectors.size(), 4U);
    EXPECT_EQ(body.connectors[3], (Record{.id = 3, .type = 5}));
    const auto connector = device->findConnectorModel(3, 3).lock();
    ASSERT_NE(connector, nullptr);
    EXPECT_EQ(std::tuple(connector->cardConnector().BackupPos, connector->getFrameRate(), connector->getRefreshRate()),
              std::tuple(2, QSize(1920, 1080), 60.0F));

    device->initSubCards({{2, kQuadDvi}});
    EXPECT_EQ(heard(), "SubCardAdded(?)");
    EXPECT_EQ(device->subcards().size() * 10 + int(device->protoSubcards().size()), 11);
}

TEST_F(Cards, CanBePutInWithoutConnectors) {
    device->addSubcard(7, CardType::_MVR, 30535);
    EXPECT_EQ(heard(), "SubCardAdded(?)");
    const auto card = device->slot(7).lock();
    ASSERT_NE(card, nullptr);
    EXPECT_TRUE(card->cardType() == CardType::_MVR && card->cardComponentType() == ComponentType::OutputCard);
    EXPECT_TRUE(device->isOnline({7, 0, 0}));
    device->addSubcard(263, CardType::_MVR, 30535); // 263 is 7 in 8 bits
    device->addSubcard(std::shared_ptr<Subcard>());
    EXPECT_EQ(device->subcards().size(), 1);
    const auto built = std::make_shared<Subcard>(uint8_t{8}, uint8_t{3});
    built->addConnector(std::make_shared<Connector>(uint8_t{0})); // before the card has a device
    device->addSubcard(built);
    log.name(built.get(), "built");
    log.take();
    built->connector(0).lock()->setActived(true);
    EXPECT_EQ(heard(), "ConnectorSignalChanged(built, ?)");
}

TEST_F(Cards, FollowAReport) {
    Body body = oneBig();
    body.connectors.push_back({.id = 1, .type = 5, .capacityMode = 7});
    body.connectors.push_back({.id = 258, .type = 5});
    const auto card = reported(body);
    EXPECT_EQ(heard(), "");
    ASSERT_EQ(card->connectors().size(), 1); // the others have no entry in the file
    const auto connector = card->connector(0).lock();
    EXPECT_EQ(connector->cardConnector().Connector, body.connectors.front());
    EXPECT_TRUE(connector->cardConnector().Step == 8 && connector->cardConnector().NameOnMaxCapacity == "HDMI 2.0");
    EXPECT_TRUE(card->capacityMode() == CapacityMode::_4K && device->subCardCapacity(1) == CapacityMode::_4K);
    EXPECT_EQ(device->subCardCapacity(2), CapacityMode::invaild);
    EXPECT_THAT(device->findSubcardBoardIdByModelId(kQuad4k), ElementsAre(6));
}

TEST_F(Cards, KeepTheirConnectorsThroughALayoutChange) {
    const auto card = reported(singleLinks());
    const auto before = card->connectors();
    ASSERT_EQ(before.size(), 4);
    reported(oneBig());
    EXPECT_EQ(card->connector(0).lock(), before[0].lock());
    EXPECT_EQ(before[0].lock()->capacityMode(), CapacityMode::_4K);
    ASSERT_EQ(card->connectors().size(), 4);
    const auto left = before[3].lock();
    EXPECT_EQ(std::tuple(left->type(), left->workMode(), left->capacityMode()),
              std::tuple(ConnectorType::INVALID, WorkMode::NoOutput, CapacityMode::invaild));
    EXPECT_EQ(device->connectorWorkMode({1, 3, 0}) * 10 + device->connectorType({1, 3, 0}), 20);

    reported(singleLinks());
    EXPECT_TRUE(card->connector(3).lock() == left && left->capacityMode() == CapacityMode::_SL);
    EXPECT_TRUE(card->cardConnectors().value(0).Step == -1 && device->subcards().size() == 1);
}

TEST_F(Cards, TellTheirConnectorGroup) {
    Body body{.slotId = 1, .modelId = kQuadDvi, .cardType = 2, .connectors = {}};
    body.connectors = {{0, 3, kNoCopy, 0, 1}, {2, 2, kNoCopy, 0, 0}, {3, 2, kNoCopy, 0, 0}};
    const auto card = reported(body);
    EXPECT_EQ(card->interfaceGroup(0), 1); // one dual link and two single links; group 0 has two dual links
    card->connector(3).lock()->setWorkMode(WorkMode::Backup);
    EXPECT_EQ(card->interfaceGroup(0), 0);
    EXPECT_TRUE(card->capacityMode(0) == CapacityMode::_DL && card->capacityMode(1) == CapacityMode::invaild);
}

TEST_F(Cards, TakeAnotherModel) {
    device->addSubcard(12, CardType::_EXP, 30592);
    const auto card = device->slot(12).lock();
    card->setOnlineStatus(3);
    EXPECT_FALSE(device->isOnline({12, 0, 0}));
    card->setModelId(kAuxCard);
    EXPECT_EQ(card->cardType(), CardType::_AUX);
    EXPECT_TRUE(device->isOnline({12, 0, 0}));
    card->setModelId(65536U + kAuxCard); // not the AUX card, although the low 16 bits are its own
    EXPECT_EQ(card->cardType(), CardType::_EXP);

    for (const auto slot : QList<quint8>{12, 13}) // an unknown model refills what is there, and adds nothing elsewhere
        device->initProtoConnector(slot, 1);
    EXPECT_TRUE(card->modelId() == 1 && !device->containsSlot(13));
    device->initProtoConnector(13, kAuxCard);
    Body body;
    EXPECT_TRUE(device->subcard({13, 0, 0}, body) && body.connectors.size() == 4U);
}

TEST_F(Cards, AreNeutralWithoutADeviceOrARecord) {
    Subcard alone(9, 2);
    alone.setModelId(kQuadDvi);
    alone.setOnlineStatus(1);
    alone.initCardConnector(singleLinks().connectors);
    EXPECT_EQ(std::tuple(alone.modelId(), alone.cardType(), alone.onlineStatus(), alone.interfaceGroup(0),
                         alone.connectors().size()),
              std::tuple(-1, CardType::Undefined, 0, 0, 0));
    alone.setOwerDevice(device);
    EXPECT_EQ(alone.modelId(), -1);
}

TEST_F(Cards, LeaveWithObjectAndRecord) {
    const auto card = reported(singleLinks());
    card->clearAll();
    EXPECT_TRUE(card->connectors().isEmpty() && device->subCardCapacity(1) == CapacityMode::invaild);
    for (int i = 0; i < 2; ++i)
        device->removeSubCard(1);
    EXPECT_EQ(heard(), "SubCardRemoved(card)");
    EXPECT_FALSE(device->containsSlot(1) || device->isExistSlot(1));
}

TEST_F(Cards, RefuseNumbersThatOnlyLookLikeASlot) {
    reported(singleLinks());
    for (const int slot : {-255, 257, 65537, 2147483647}) {
        Body body = singleLinks();
        body.slotId = slot;
        EXPECT_EQ(device->createSubCard(body), nullptr) << slot;
        device->initModelConnector(body);
        EXPECT_FALSE(device->isExistSlot(slot) || device->isOnline({slot, 0, 0})) << slot;
        EXPECT_EQ(device->getConnector({slot, 0, 0}), nullptr) << slot;
    }
    EXPECT_EQ(device->getConnector({1, 256, 0}), nullptr);
    EXPECT_EQ(device->subcards().size(), 1);
}

TEST_F(Cards, SayWhatIsWrong) {
    // 1 is a card in order, 8 is no status; the texts of the others stand in the order of their numbers.
    const auto texts = QString("This sub card has been offline||Sub card online failed|The current device|The current "
                               "slot|Hardware data error|Failed to obtain|The configuration|")
                           .split('|');
    for (uint8_t status = 0; status < texts.size(); ++status) {
        const auto description = Device::slotErrorDescription(status);
        EXPECT_EQ(description.left(texts[status].size()), texts[status]);
        EXPECT_EQ(description.isEmpty(), texts[status].isEmpty());
    }
}

TEST_F(Cards, AreReadWhileAReportArrives) {
    reported(singleLinks());
    const auto report = [this](const Body &body) {
        device->initProtoConnector(body);
        device->initModelConnector(body);
    };
    const auto reports = [&] {
        Body added = oneBig();
        added.slotId = 2;
        report(added);
        for (int round = 0; round < 200; ++round) {
            report(round % 2 == 0 ? oneBig() : singleLinks());
            device->setConnectorCapacity(1, 0, CapacityMode::_DL);
            device->setConnectorActived(1, 0, round % 3 == 0);
        }
    };
    runBeside(reports, [this] {
        for (const auto &reference : device->subcards()) {
            const auto card = reference.lock();
            const int ports = card->slotId() == 1 ? 4 : 1;
            EXPECT_TRUE(card->cardConnectors().size() == ports && card->connectors().size() == ports);
            EXPECT_NE(card->capacityMode(), CapacityMode::invaild);
        }
    });
    const auto card = device->slot(2).lock(); // made by the other thread, it lives on this one
    EXPECT_EQ(card->thread(), QThread::currentThread());
    EXPECT_EQ(card->connector(0).lock()->thread(), QThread::currentThread());
}

} // namespace Quorix::Tests
