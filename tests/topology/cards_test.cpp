/// Cards: how they come into the model, what they are, and how they leave.
#include "chassis.h"

#include <quorixbizmodel/common/enumtools.h>

#include <QThread>

#include <atomic>
#include <thread>

namespace Quorix::Tests {

using namespace BizModel;
using Enum::Device::CardType;
using Enum::Interface::CapacityMode;
using testing::ElementsAre;
using testing::IsEmpty;

using Cards = Chassis;

TEST_F(Cards, AreClassifiedByTheirSlot) {
    const struct {
        quint8 slot;
        quint16 model;
        CardType type;
    } rows[] = {
        {0, kQuadDvi, CardType::_INPUT},     {5, kAuxCard, CardType::_INPUT}, {6, kQuadDvi, CardType::_OUTPUT},
        {11, 30535, CardType::_OUTPUT},      {12, kAuxCard, CardType::_AUX},  {13, 30592, CardType::_EXP},
        {14, kAuxCard, CardType::Undefined},
    };
    for (const auto &row : rows)
        EXPECT_EQ(device->cardType(row.slot, row.model), row.type) << "slot " << int(row.slot);
    EXPECT_EQ(Device(65535).cardType(0, kQuadDvi), CardType::Undefined);
}

TEST_F(Cards, AreBuiltFromModelIdsAlone) {
    device->initSubCards({{3, kQuad4k}, {1, 1}, {12, kAuxCard}, {0, kQuadDvi}});
    EXPECT_THAT(log.take(), ElementsAre("signalSubCardAdded(device, ?)", "signalSubCardAdded(device, ?)",
                                        "signalSubCardAdded(device, ?)"));
    QList<int> slots;
    for (const auto &card : device->subcards())
        slots.append(card.lock()->slotId());
    EXPECT_THAT(slots, ElementsAre(0, 3, 12));
    EXPECT_FALSE(device->containsSlot(1)); // a model that no file knows leaves the slot empty
    EXPECT_FALSE(device->isExistSlot(1));
    EXPECT_EQ(device->onlineSubcardCount(CardType::_INPUT), 2);

    Body body;
    ASSERT_TRUE(device->protoSlot(3, body));
    EXPECT_EQ(body.modelId, kQuad4k);
    ASSERT_EQ(body.connectors.size(), 4U);
    EXPECT_EQ(body.connectors[3], (Record{.id = 3, .type = 5, .copyId = kNoCopy, .workMode = 0, .capacityMode = 0}));
    const auto connector = device->findConnectorModel(3, 3).lock();
    ASSERT_NE(connector, nullptr);
    EXPECT_EQ(connector->cardConnector().BackupPos, 2);
    EXPECT_EQ(connector->getFrameRate(), QSize(1920, 1080));
    EXPECT_FLOAT_EQ(connector->getRefreshRate(), 60.0F);

    device->initSubCards({{2, kQuadDvi}});
    EXPECT_THAT(log.take(), ElementsAre("signalSubCardAdded(device, ?)"));
    EXPECT_EQ(device->subcards().size(), 1);
    EXPECT_EQ(device->protoSubcards().size(), 1);
}

TEST_F(Cards, CanBePutInWithoutConnectors) {
    device->addSubcard(7, CardType::_MVR, 30535);
    EXPECT_THAT(log.take(), ElementsAre("signalSubCardAdded(device, ?)"));
    const auto card = device->slot(7).lock();
    ASSERT_NE(card, nullptr);
    EXPECT_EQ(card->cardType(), CardType::_MVR);
    EXPECT_EQ(card->cardComponentType(), Enum::Device::ComponentType::OutputCard);
    EXPECT_TRUE(device->isOnline({7, 0, 0}));
    device->addSubcard(263, CardType::_MVR, 30535); // 263 is 7 in 8 bits
    device->addSubcard(std::shared_ptr<Subcard>());
    EXPECT_EQ(device->subcards().size(), 1);
    const auto built = std::make_shared<Subcard>(uint8_t{8}, uint8_t{3});
    built->addConnector(std::make_shared<Connector>(uint8_t{0})); // before the card has a device
    device->addSubcard(built);
    log.name(built.get(), QStringLiteral("built"));
    log.take();
    built->connector(0).lock()->setActived(true);
    EXPECT_THAT(log.take(), ElementsAre("signalConnectorSignalChanged(device, built, ?)"));
}

TEST_F(Cards, FollowAReport) {
    Body body = oneBig();
    body.connectors.push_back({.id = 1, .type = 5, .copyId = kNoCopy, .workMode = 0, .capacityMode = 7});
    body.connectors.push_back({.id = 258, .type = 5, .copyId = kNoCopy, .workMode = 0, .capacityMode = 0});
    const auto card = reported(body);
    EXPECT_THAT(log.take(), IsEmpty());
    ASSERT_EQ(card->connectors().size(), 1); // the others have no entry in the file
    const auto connector = card->connector(0).lock();
    EXPECT_EQ(connector->cardConnector().Connector, body.connectors.front());
    EXPECT_EQ(connector->cardConnector().Step, 8);
    EXPECT_EQ(connector->cardConnector().NameOnMaxCapacity, QStringLiteral("HDMI 2.0"));
    EXPECT_EQ(card->capacityMode(), CapacityMode::_4K);
    EXPECT_EQ(device->subCardCapacity(1), CapacityMode::_4K);
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
    EXPECT_EQ(left->type(), Enum::Interface::ConnectorType::INVALID);
    EXPECT_EQ(left->workMode(), Enum::Interface::WorkMode::NoOutput);
    EXPECT_EQ(left->capacityMode(), CapacityMode::invaild);
    EXPECT_EQ(device->connectorWorkMode({1, 3, 0}), 2);
    EXPECT_EQ(device->connectorType({1, 3, 0}), 0);

    reported(singleLinks());
    EXPECT_EQ(card->connector(3).lock(), left);
    EXPECT_EQ(left->capacityMode(), CapacityMode::_SL);
    EXPECT_EQ(card->cardConnectors().value(0).Step, -1);
    EXPECT_EQ(device->subcards().size(), 1);
}

TEST_F(Cards, TellTheirConnectorGroup) {
    Body body{.slotId = 1, .modelId = kQuadDvi, .boardId = 0, .cardType = 2, .online = 1, .connectors = {}};
    body.connectors = {{0, 3, kNoCopy, 0, 1}, {2, 2, kNoCopy, 0, 0}, {3, 2, kNoCopy, 0, 0}};
    const auto card = reported(body);
    EXPECT_EQ(card->interfaceGroup(0), 1); // one dual link and two single links; group 0 has two dual links
    card->connector(3).lock()->setWorkMode(Enum::Interface::WorkMode::Backup);
    EXPECT_EQ(card->interfaceGroup(0), 0);
    EXPECT_EQ(card->capacityMode(0), CapacityMode::_DL);
    EXPECT_EQ(card->capacityMode(1), CapacityMode::invaild);
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

    device->initProtoConnector(12, 1); // an unknown model refills what is there, and adds nothing elsewhere
    EXPECT_EQ(card->modelId(), 1);
    device->initProtoConnector(13, 1);
    EXPECT_FALSE(device->containsSlot(13));
    device->initProtoConnector(13, kAuxCard);
    Body body;
    ASSERT_TRUE(device->subcard({13, 0, 0}, body));
    EXPECT_EQ(body.connectors.size(), 4U);
}

TEST_F(Cards, AreNeutralWithoutADeviceOrARecord) {
    Subcard alone(9, 2);
    alone.setModelId(kQuadDvi);
    alone.setOnlineStatus(1);
    alone.initCardConnector(singleLinks().connectors);
    EXPECT_EQ(alone.modelId(), -1);
    EXPECT_EQ(alone.cardType(), CardType::Undefined);
    EXPECT_EQ(alone.onlineStatus(), 0);
    EXPECT_EQ(alone.interfaceGroup(0), 0);
    EXPECT_TRUE(alone.connectors().isEmpty());
    alone.setOwerDevice(device);
    EXPECT_EQ(alone.modelId(), -1);
}

TEST_F(Cards, LeaveWithObjectAndRecord) {
    const auto card = reported(singleLinks());
    card->clearAll();
    EXPECT_TRUE(card->connectors().isEmpty());
    EXPECT_EQ(device->subCardCapacity(1), CapacityMode::invaild);
    device->removeSubCard(1);
    EXPECT_THAT(log.take(), ElementsAre("signalSubCardRemoved(device, card)"));
    EXPECT_FALSE(device->containsSlot(1));
    EXPECT_FALSE(device->isExistSlot(1));
    device->removeSubCard(1);
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(Cards, RefuseNumbersThatOnlyLookLikeASlot) {
    reported(singleLinks());
    for (const int slot : {-255, 257, 65537, 2147483647}) {
        Body body = singleLinks();
        body.slotId = slot;
        EXPECT_EQ(device->createSubCard(body), nullptr) << slot;
        device->initModelConnector(body);
        EXPECT_FALSE(device->isExistSlot(slot)) << slot;
        EXPECT_FALSE(device->isOnline({slot, 0, 0})) << slot;
        EXPECT_EQ(device->getConnector({slot, 0, 0}), nullptr) << slot;
    }
    EXPECT_EQ(device->getConnector({1, 256, 0}), nullptr);
    EXPECT_EQ(device->subcards().size(), 1);
}

TEST_F(Cards, SayWhatIsWrong) {
    // 1 is a card in order, 8 is no status; the texts of the others stand in the order of their numbers.
    const char *const texts[] = {"This sub card has been offline",
                                 "",
                                 "Sub card online failed",
                                 "The current device",
                                 "The current slot",
                                 "Hardware data error",
                                 "Failed to obtain",
                                 "The configuration",
                                 ""};
    uint8_t status = 0;
    for (const char *text : texts) {
        const auto description = Device::slotErrorDescription(status++);
        EXPECT_EQ(description.left(int(qstrlen(text))), QLatin1String(text));
        EXPECT_EQ(description.isEmpty(), qstrlen(text) == 0);
    }
}

TEST_F(Cards, AreReadWhileAReportArrives) {
    reported(singleLinks());
    std::atomic<bool> isDone = false;
    std::thread protocol([&] {
        Body added = oneBig();
        added.slotId = 2;
        device->initProtoConnector(added);
        device->initModelConnector(added);
        for (int round = 0; round < 200; ++round) {
            const Body body = round % 2 == 0 ? oneBig() : singleLinks();
            device->initProtoConnector(body);
            device->initModelConnector(body);
            device->setConnectorCapacity(1, 0, CapacityMode::_DL);
            device->setConnectorActived(1, 0, round % 3 == 0);
        }
        isDone = true;
    });
    while (!isDone)
        for (const auto &reference : device->subcards()) {
            const auto card = reference.lock();
            const int ports = card->slotId() == 1 ? 4 : 1;
            EXPECT_EQ(card->cardConnectors().size(), ports);
            EXPECT_EQ(card->connectors().size(), ports);
            EXPECT_NE(card->capacityMode(), CapacityMode::invaild);
        }
    protocol.join();
    const auto card = device->slot(2).lock(); // made by the other thread, it lives on this one
    EXPECT_EQ(card->thread(), QThread::currentThread());
    EXPECT_EQ(card->connector(0).lock()->thread(), QThread::currentThread());
}

} // namespace Quorix::Tests
