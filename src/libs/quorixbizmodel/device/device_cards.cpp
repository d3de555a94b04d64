/// Cards and connectors of a device: the records of m_detail.subcards, and the live objects beside them.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/capability/slotrange.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/device/device_p.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixbizmodel/topology/subcard.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <QDebug>

#include <algorithm>
#include <utility>

namespace Quorix::BizModel {

namespace {

using Enum::Device::CardType;
using Enum::Device::SlotStatusType;
using Enum::Interface::CapacityMode;
using Enum::Interface::ConnectorType;
using Enum::Interface::InterfaceType;
using Enum::Interface::WorkMode;
using Body = ProtoModel::Device::s_subcardBody;
using ConnectorRecord = ProtoModel::Device::s_Connectors;

constexpr int kNormal = toInt(SlotStatusType::Normal);

struct SlotErrorText {
    SlotStatusType status;
    const char *text;
};

constexpr SlotErrorText kSlotErrors[] = {
    {SlotStatusType::Offline,
     QT_TRANSLATE_NOOP("Quorix::BizModel::Device", "This sub card has been offline, please synchronize the data.")},
    {SlotStatusType::CommunicationFailure,
     QT_TRANSLATE_NOOP("Quorix::BizModel::Device", "Sub card online failed, please restart the device.")},
    {SlotStatusType::TypeError,
     QT_TRANSLATE_NOOP("Quorix::BizModel::Device",
                       "The current device does not support this sub card, please replace it.")},
    {SlotStatusType::TypeMixed,
     QT_TRANSLATE_NOOP("Quorix::BizModel::Device",
                       "The current slot does not support this sub card, please replace it.")},
    {SlotStatusType::ProtoTypeCnt,
     QT_TRANSLATE_NOOP("Quorix::BizModel::Device", "Hardware data error, please contact technical support.")},
    {SlotStatusType::ConfigInfoMiss,
     QT_TRANSLATE_NOOP("Quorix::BizModel::Device",
                       "Failed to obtain the configuration information of this sub card. Please replace it.")},
    {SlotStatusType::ConfigInfoError,
     QT_TRANSLATE_NOOP("Quorix::BizModel::Device",
                       "The configuration information of this sub card is wrong, please replace it.")},
};

/// Connectors of a card model as the capability file lays them out, by position; none for an unknown model.
std::vector<ConnectorRecord> connectorsOfModel(quint16 modelId) {
    std::vector<ConnectorRecord> connectors;
    if (const auto *card = InterfaceConfig::instance()->findSubCardByModelId(modelId))
        for (const auto &entry : card->getCardConnector())
            connectors.push_back(entry.Connector);
    return connectors;
}

void fillRecord(Body &body, int slotId, int modelId, CardType type, const std::vector<ConnectorRecord> &connectors) {
    body.slotId = slotId;
    body.modelId = modelId;
    body.cardType = toInt(type);
    for (const auto &connector : connectors) {
        if (auto *present = connectorRecord(body, connector.id))
            *present = connector;
        else
            body.connectors.push_back(connector);
    }
}

template <class T>
bool copyFound(const T *found, T &copy) {
    if (found != nullptr)
        copy = *found;
    return found != nullptr;
}

CapacityMode firstCapacity(const std::vector<ConnectorRecord> &connectors) {
    const auto found = std::find_if(connectors.begin(), connectors.end(), [](const ConnectorRecord &connector) {
        return connector.capacityMode != toInt(CapacityMode::invaild);
    });
    return found == connectors.end() ? CapacityMode::invaild : static_cast<CapacityMode>(found->capacityMode);
}

bool isWithin(int slotId, int start, int count) { return SlotRange{start, count}.contains(slotId); }

InterfaceType directionOf(CardType type) {
    switch (type) {
    case CardType::_INPUT:
        return InterfaceType::Input;
    case CardType::_OUTPUT:
        return InterfaceType::Output;
    default:
        return InterfaceType::Invalid;
    }
}

} // namespace

Body *Device::findSlotById(uint8_t slotId) { return slotRecord(m_detail.subcards, slotId); }

bool Device::protoSlot(const uint8_t &slotId, Body &body) {
    const ReadGuard guard(m_detailRWLock);
    return copyFound(slotRecord(m_detail.subcards, slotId), body);
}

QList<Body> Device::protoSubcards() {
    const ReadGuard guard(m_detailRWLock);
    return {m_detail.subcards.begin(), m_detail.subcards.end()};
}

bool Device::subcard(const ProtoModel::s_InterfaceID &interfaceId, Body &body) {
    const ReadGuard guard(m_detailRWLock);
    return copyFound(slotRecord(m_detail.subcards, interfaceId.slotId), body);
}

bool Device::containsSlot(const uint8_t &slotId) {
    const ReadGuard guard(m_detailRWLock);
    return slotRecord(m_detail.subcards, slotId) != nullptr;
}

std::optional<std::int32_t> Device::slotValue(int slotId, std::int32_t Body::*field) {
    const ReadGuard guard(m_detailRWLock);
    const auto *body = slotRecord(m_detail.subcards, slotId);
    return body == nullptr ? std::nullopt : std::optional(body->*field);
}

void Device::setSlotValues(int slotId, std::initializer_list<std::pair<std::int32_t Body::*, std::int32_t>> values) {
    const WriteGuard guard(m_detailRWLock);
    auto *body = slotRecord(m_detail.subcards, slotId);
    if (body == nullptr)
        return;
    for (const auto &[field, value] : values)
        body->*field = value;
}

void Device::clearProtoConnectors(int slotId) {
    const WriteGuard guard(m_detailRWLock);
    if (auto *body = slotRecord(m_detail.subcards, slotId))
        body->connectors.clear();
}

bool Device::isOnline(const ProtoModel::s_InterfaceID &interfaceId) {
    return slotValue(interfaceId.slotId, &Body::online) == kNormal;
}

int Device::onlineSubcardCount(CardType cardType) {
    const ReadGuard guard(m_detailRWLock);
    return static_cast<int>(std::count_if(m_detail.subcards.begin(), m_detail.subcards.end(), [&](const Body &body) {
        return body.cardType == toInt(cardType) && body.online == kNormal;
    }));
}

CapacityMode Device::subCardCapacity(uint8_t slotId) {
    const ReadGuard guard(m_detailRWLock);
    const auto *body = slotRecord(m_detail.subcards, slotId);
    return body == nullptr ? CapacityMode::invaild : firstCapacity(body->connectors);
}

int Device::findSubcardBoardId(const uint8_t &slotId) { return slotValue(slotId, &Body::boardId).value_or(0); }

QList<int> Device::findSubcardBoardIdByModelId(int modelId) {
    QList<int> boards;
    const ReadGuard guard(m_detailRWLock);
    for (const auto &body : m_detail.subcards)
        if (body.modelId == modelId)
            boards.append(body.boardId);
    return boards;
}

CardType Device::cardType(const quint8 &nSubcardIndex, const quint16 &nSubcradModelId) {
    if (m_pDeviceConfig == nullptr)
        return CardType::Undefined;
    const auto &config = *m_pDeviceConfig;
    if (isWithin(nSubcardIndex, config.InputSlotStartIndex, config.InputSlotCount))
        return CardType::_INPUT;
    if (isWithin(nSubcardIndex, config.OutputSlotStartIndex, config.OutputSlotCount)) {
        const auto &mvr = config.MVRScreensCfg;
        return isWithin(nSubcardIndex, mvr.StartSlotIndex, mvr.SlotCount) && mvrEnabled() ? CardType::_MVR
                                                                                          : CardType::_OUTPUT;
    }
    if (!isWithin(nSubcardIndex, config.ExpSlotStartIndex, config.ExpSlotCount))
        return CardType::Undefined;
    const auto &auxCards = InterfaceConfig::instance()->getAuxCards();
    const bool isAux = std::any_of(auxCards.begin(), auxCards.end(),
                                   [&](const auto &card) { return card.m_ModelID == nSubcradModelId; });
    return isAux ? CardType::_AUX : CardType::_EXP;
}

QString Device::slotErrorDescription(const uint8_t &onlineType) {
    for (const auto &row : kSlotErrors)
        if (toInt(row.status) == onlineType)
            return tr(row.text);
    return {};
}

QList<std::weak_ptr<Subcard>> Device::subcards() { return weakReferences(m_subcardsRWLock, m_subcards); }

std::shared_ptr<Subcard> Device::cardAt(int slotId) {
    const ReadGuard guard(m_subcardsRWLock);
    return findFirst(m_subcards, [slotId](const Subcard &card) { return card.slotId() == slotId; });
}

std::weak_ptr<Subcard> Device::slot(const uint8_t &slotId) { return cardAt(slotId); }

std::weak_ptr<Subcard> Device::findSubcardBySlotId(const uint8_t &slotId) { return cardAt(slotId); }

bool Device::isExistSlot(int slotId) { return cardAt(slotId) != nullptr; }

std::shared_ptr<Subcard> Device::generalSubCard(quint8 nSlotIndex, quint16 /*nSlotModelId*/) {
    auto card = std::make_shared<Subcard>();
    card->setSlotId(nSlotIndex);
    card->setOwerDevice(weak_from_this());
    return card;
}

void Device::generalProtoSubCard(quint8 nSlotIndex, quint16 nSlotModelId, Body &subCardBody) {
    fillRecord(subCardBody, nSlotIndex, nSlotModelId, cardType(nSlotIndex, nSlotModelId),
               connectorsOfModel(nSlotModelId));
}

void Device::appendProtoSubcard(Body body) {
    const WriteGuard guard(m_detailRWLock);
    m_detail.subcards.push_back(std::move(body));
}

void Device::appendModelSubcard(const std::shared_ptr<Subcard> &card) {
    moveToModelThread(*card);
    {
        const WriteGuard guard(m_subcardsRWLock);
        m_subcards.push_back(card);
    }
    sortSlots();
}

void Device::addSubcard(quint8 nSlotIndex, quint16 nSlotModelId) {
    Body body;
    generalProtoSubCard(nSlotIndex, nSlotModelId, body);
    if (body.connectors.empty())
        return;
    appendProtoSubcard(std::move(body));
    const auto card = generalSubCard(nSlotIndex, nSlotModelId);
    card->initCardConnector(nSlotModelId);
    appendModelSubcard(card);
    Q_EMIT signalSubCardAdded(card);
}

void Device::addSubcard(int slotPos, CardType type, const quint16 &subModelId) {
    if (!isId(slotPos))
        return;
    Body body;
    fillRecord(body, slotPos, subModelId, type, {});
    appendProtoSubcard(std::move(body));
    addSubcard(generalSubCard(static_cast<quint8>(slotPos), subModelId));
}

void Device::addSubcard(const std::shared_ptr<Subcard> &pSubcard) {
    if (pSubcard == nullptr)
        return;
    if (!containsSlot(pSubcard->slotId())) {
        Body body;
        fillRecord(body, pSubcard->slotId(), pSubcard->modelId(), pSubcard->cardType(), {});
        appendProtoSubcard(std::move(body));
    }
    // Owner and relays: connectors that the card brings along have joined the hub without this device.
    pSubcard->unserailize(weak_from_this());
    appendModelSubcard(pSubcard);
    Q_EMIT signalSubCardAdded(pSubcard);
}

void Device::initSubCards(const QMap<unsigned char, unsigned short> &slotIdForModelId) {
    {
        const WriteGuard guard(m_detailRWLock);
        m_detail.subcards.clear();
    }
    decltype(m_subcards) dropped;
    {
        const WriteGuard guard(m_subcardsRWLock);
        dropped.swap(m_subcards);
    }
    dropped.clear();
    // An own map: a listener may change the caller's.
    const auto models = QMap<unsigned char, unsigned short>(slotIdForModelId);
    for (auto entry = models.begin(); entry != models.end(); ++entry)
        addSubcard(entry.key(), entry.value());
}

std::shared_ptr<Subcard> Device::createSubCard(const Body &subCardInfo) {
    // A slot beyond 8 bits must not pass for another one.
    if (!isId(subCardInfo.slotId))
        return {};
    auto card = generalSubCard(static_cast<quint8>(subCardInfo.slotId), {});
    card->initCardConnector(subCardInfo.connectors);
    appendModelSubcard(card);
    return card;
}

void Device::createSubCard(const std::vector<Body> &subCardInfos) {
    for (const auto &body : subCardInfos)
        createSubCard(body);
}

void Device::sortSlots() {
    const WriteGuard guard(m_subcardsRWLock);
    sortByKey(m_subcards, [](const auto &card) { return card == nullptr ? uint8_t{0} : card->slotId(); });
}

void Device::removeSubCard(uint8_t slotId) {
    removeModelSubCard(slotId);
    removeProtoSubCard(slotId);
}

void Device::removeModelSubCard(uint8_t slotId) {
    const auto removed = takePointer(m_subcardsRWLock, m_subcards, cardAt(slotId).get());
    if (removed != nullptr)
        Q_EMIT signalSubCardRemoved(removed);
}

void Device::removeProtoSubCard(uint8_t slotId) {
    const WriteGuard guard(m_detailRWLock);
    if (const auto *body = slotRecord(m_detail.subcards, slotId))
        m_detail.subcards.erase(m_detail.subcards.begin() + (body - m_detail.subcards.data()));
}

ConnectorRecord *Device::findConnector(uint8_t slotId, uint8_t connectorId) {
    return connectorRecord(m_detail.subcards, slotId, connectorId);
}

ConnectorRecord *Device::findConnector(const Body &body, uint8_t connectorId) {
    // The result is as writable as the caller's record is.
    return connectorRecord(const_cast<Body &>(body), connectorId);
}

ConnectorRecord *Device::findConnector(const std::weak_ptr<Subcard> &subcard,
                                       const std::weak_ptr<Connector> &connector) {
    const auto card = subcard.lock();
    const auto port = connector.lock();
    return card == nullptr || port == nullptr ? nullptr : findConnector(card->slotId(), port->id());
}

ConnectorRecord *Device::getConnector(const ProtoModel::s_InterfaceID &interfaceId) {
    return connectorRecord(m_detail.subcards, interfaceId.slotId, interfaceId.connectorId);
}

bool Device::protoConnector(int slotId, int connectorId, ConnectorRecord &connector) {
    const ReadGuard guard(m_detailRWLock);
    return copyFound(connectorRecord(m_detail.subcards, slotId, connectorId), connector);
}

std::optional<std::int32_t> Device::exchangeConnectorValue(int slotId, int connectorId,
                                                           std::int32_t ConnectorRecord::*field, std::int32_t value) {
    const WriteGuard guard(m_detailRWLock);
    auto *connector = connectorRecord(m_detail.subcards, slotId, connectorId);
    return connector == nullptr ? std::nullopt : std::optional(std::exchange(connector->*field, value));
}

int Device::connectorWorkMode(const ProtoModel::s_InterfaceID &interfaceId) {
    ConnectorRecord connector;
    return protoConnector(interfaceId.slotId, interfaceId.connectorId, connector) ? connector.workMode
                                                                                  : toInt(WorkMode::NoOutput);
}

int Device::connectorType(const ProtoModel::s_InterfaceID &interfaceId) {
    ConnectorRecord connector;
    return protoConnector(interfaceId.slotId, interfaceId.connectorId, connector) ? connector.type
                                                                                  : toInt(ConnectorType::INVALID);
}

std::shared_ptr<Connector> Device::connectorAt(int slotId, int connectorId) {
    const auto card = cardAt(slotId);
    return card == nullptr ? nullptr : card->connector(connectorId).lock();
}

std::weak_ptr<Connector> Device::findConnectorModel(uint8_t slotId, uint8_t connectorId) {
    return connectorAt(slotId, connectorId);
}

void Device::setConnectorCapacity(int slotId, int connectorId, CapacityMode capacity) {
    if (const auto connector = connectorAt(slotId, connectorId))
        connector->setCapacityMode(capacity);
}

void Device::setConnectorActived(int slotId, int connectorId, bool isActived) {
    if (const auto connector = connectorAt(slotId, connectorId))
        connector->setActived(isActived);
}

void Device::setConnectorOverLoad(int slotId, int connectorId, bool isOverLoad) {
    if (const auto connector = connectorAt(slotId, connectorId))
        connector->setOverLoad(isOverLoad);
}

void Device::initConnectorData(int nSlotIndex, int nConnectorIndex, int type, int workMode, int capacityMode) {
    const auto connector = connectorAt(nSlotIndex, nConnectorIndex);
    if (connector == nullptr) {
        qWarning() << "The connector is null";
        return;
    }
    connector->setType(static_cast<ConnectorType>(type));
    connector->setWorkMode(static_cast<WorkMode>(workMode));
    connector->setCapacityMode(static_cast<CapacityMode>(capacityMode));
}

void Device::initProtoConnector(const Body &subCardBody) {
    const WriteGuard guard(m_detailRWLock);
    if (auto *present = slotRecord(m_detail.subcards, subCardBody.slotId))
        *present = subCardBody;
    else
        m_detail.subcards.push_back(subCardBody);
}

void Device::initProtoConnector(quint8 nSlotIndex, quint16 nSlotModelId) {
    // Both before the lock: the type depends on the screens.
    const auto type = cardType(nSlotIndex, nSlotModelId);
    const auto connectors = connectorsOfModel(nSlotModelId);
    const WriteGuard guard(m_detailRWLock);
    if (auto *present = slotRecord(m_detail.subcards, nSlotIndex))
        fillRecord(*present, nSlotIndex, nSlotModelId, type, connectors);
    else if (!connectors.empty())
        fillRecord(m_detail.subcards.emplace_back(), nSlotIndex, nSlotModelId, type, connectors);
}

void Device::initModelConnector(const Body &subCardBody) {
    if (const auto card = cardAt(subCardBody.slotId))
        card->initCardConnector(subCardBody.connectors);
    else
        createSubCard(subCardBody);
}

void Device::setInterfaceInfo(const quint8 &nSubcardIndex,
                              const QMap<unsigned char, InterfaceConfig::s_ConnectorInfo> &posForCardConnector,
                              const QMap<unsigned char, InterfaceConfig::s_CardConnector> &cardConnector) {
    // Own maps: a listener to the capacity signal may change the caller's.
    const auto infos = QMap<unsigned char, InterfaceConfig::s_ConnectorInfo>(posForCardConnector);
    const auto entries = QMap<unsigned char, InterfaceConfig::s_CardConnector>(cardConnector);
    for (auto position = infos.begin(); position != infos.end(); ++position) {
        // Looked up each time: a listener to the capacity signal may take the card away.
        const auto card = cardAt(nSubcardIndex);
        if (card == nullptr)
            continue;
        const int id = position.key();
        const auto entry = entries.value(position.key());
        const auto type = position->m_eType;
        const auto capacity = entries.contains(position.key()) ? static_cast<CapacityMode>(entry.Connector.capacityMode)
                                                               : CapacityMode::invaild;
        const auto workMode = static_cast<WorkMode>(entry.Connector.workMode);
        auto connector = card->connector(id).lock();
        if (connector == nullptr) {
            connector =
                card->addConnector(id, id, type, capacity, workMode, entry.Margin, entry.PrintKeyNo, entry.Visible);
        } else {
            connector->setCapacityMode(capacity);
            connector->setWorkMode(workMode);
            connector->setType(type);
            connector->setEnabled(entry.Enable);
            connector->setPrintKeyNo(entry.PrintKeyNo);
            connector->setVisible(entry.Visible);
        }
        InterfaceConfig::ConnectorInfo info;
        if (InterfaceConfig::instance()->findConnectorInfo(capacity, directionOf(card->cardType()), type, info)) {
            connector->setFrameRate(info.m_sizeDefaultResolution);
            connector->setRefreshRate(info.m_fDefaultRefreshRate);
        }
        connector->setOwerSubcard(card);
    }
}

} // namespace Quorix::BizModel
