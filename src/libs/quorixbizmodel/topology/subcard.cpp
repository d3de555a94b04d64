#include <quorixbizmodel/topology/subcard.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <algorithm>
#include <utility>

namespace Quorix::BizModel {

namespace {

using Body = ProtoModel::Device::s_subcardBody;

} // namespace

Subcard::Subcard(QObject * /*parent*/) { moveToModelThread(*this); }

Subcard::Subcard(uint8_t slotId, uint8_t /*cardType*/) : m_slotId(slotId) { moveToModelThread(*this); }

Subcard::Subcard(const Subcard &other) : Subcard(nullptr) { *this = other; }

Subcard &Subcard::operator=(const Subcard &other) {
    if (this == &other)
        return *this;
    auto device = other.owerDevice();
    auto connectors = copyOf(other.m_connectorsRWLock, other.m_connectors);
    {
        const WriteGuard guard(m_connectorsRWLock);
        m_pOwnerDevice.swap(device);
        m_connectors.swap(connectors);
    }
    setSlotId(other.slotId());
    setSelected(other.isSelected());
    return *this;
}

Subcard::~Subcard() = default;

std::weak_ptr<Device> Subcard::owerDevice() const { return copyOf(m_connectorsRWLock, m_pOwnerDevice); }

void Subcard::setOwerDevice(std::weak_ptr<Device> device) {
    const WriteGuard guard(m_connectorsRWLock);
    m_pOwnerDevice = std::move(device);
}

int Subcard::recordValue(std::int32_t Body::*field, int otherwise) const {
    const auto device = owerDevice().lock();
    return device == nullptr ? otherwise : device->slotValue(slotId(), field).value_or(otherwise);
}

int Subcard::modelId() const { return recordValue(&Body::modelId, -1); }

void Subcard::setModelId(uint32_t id) {
    const auto device = owerDevice().lock();
    if (device == nullptr)
        return;
    const auto type = device->cardType(slotId(), fileModelId(id));
    device->setSlotValues(slotId(), {{&Body::modelId, static_cast<std::int32_t>(id)},
                                     {&Body::online, toInt(Enum::Device::SlotStatusType::Normal)},
                                     {&Body::cardType, toInt(type)}});
}

Subcard::CardType Subcard::cardType() const {
    return static_cast<CardType>(recordValue(&Body::cardType, toInt(CardType::Undefined)));
}

void Subcard::setCardType(CardType type) {
    if (const auto device = owerDevice().lock())
        device->setSlotValues(slotId(), {{&Body::cardType, toInt(type)}});
}

int Subcard::onlineStatus() const { return recordValue(&Body::online, 0); }

void Subcard::setOnlineStatus(int status) {
    if (const auto device = owerDevice().lock())
        device->setSlotValues(slotId(), {{&Body::online, status}});
}

Enum::Device::ComponentType Subcard::cardComponentType() const {
    using Enum::Device::ComponentType;
    switch (cardType()) {
    case CardType::_INPUT:
        return ComponentType::InputCard;
    case CardType::_OUTPUT:
    case CardType::_MVR:
    case CardType::_AUX:
        return ComponentType::OutputCard;
    default:
        return ComponentType::InvalidType;
    }
}

std::vector<std::shared_ptr<Connector>> Subcard::connectorList() const {
    return presentEntries(m_connectorsRWLock, m_connectors);
}

Subcard::CapacityMode Subcard::capacityMode() const {
    for (const auto &connector : connectorList())
        if (const auto capacity = connector->capacityMode(); capacity != CapacityMode::invaild)
            return capacity;
    return CapacityMode::invaild;
}

Subcard::CapacityMode Subcard::capacityMode(int valueGroup) const {
    for (const auto &connector : connectorList()) {
        if (connector->cardConnector().ValueGroup != valueGroup)
            continue;
        if (const auto capacity = connector->capacityMode(); capacity != CapacityMode::invaild)
            return capacity;
    }
    return CapacityMode::invaild;
}

std::weak_ptr<Connector> Subcard::connector(int position) const {
    return findFirst(connectorList(), [position](const Connector &connector) { return connector.id() == position; });
}

QList<std::weak_ptr<Connector>> Subcard::connectors() const { return weakReferences(m_connectorsRWLock, m_connectors); }

QMap<unsigned char, InterfaceConfig::s_CardConnector> Subcard::cardConnectors() const {
    QMap<unsigned char, InterfaceConfig::s_CardConnector> entries;
    for (const auto &connector : connectorList())
        entries.insert(connector->id(), connector->cardConnector());
    return entries;
}

std::shared_ptr<Connector> Subcard::addConnector(std::shared_ptr<Connector> pConnector) {
    if (pConnector == nullptr)
        return {};
    pConnector->setOwerSubcard(weak_from_this());
    {
        const WriteGuard guard(m_connectorsRWLock);
        m_connectors.push_back(pConnector);
    }
    pConnector->createConnects(weak_from_this());
    return pConnector;
}

std::shared_ptr<Connector> Subcard::addConnector() { return addConnector(std::make_shared<Connector>()); }

std::shared_ptr<Connector> Subcard::addConnector(int pos, ConnectorType type) {
    if (!isId(pos))
        return {};
    Connector::CardConnector entry;
    entry.Connector.id = pos;
    entry.Connector.type = toInt(type);
    auto connector = makeConnector(pos, entry);
    connector->setType(type);
    return addConnector(std::move(connector));
}

std::shared_ptr<Connector> Subcard::addConnector(int id, int index, ConnectorType type, CapacityMode capacity,
                                                 WorkMode workMode, const quint32 &margin, int printKeyNo,
                                                 bool isVisible) {
    if (!isId(id) || !isId(index))
        return {};
    // The entry is filled first: a record that lists no such connector would leave it empty.
    Connector::CardConnector entry;
    entry.Connector.id = id;
    entry.Connector.type = toInt(type);
    entry.Connector.capacityMode = toInt(capacity);
    entry.Connector.workMode = toInt(workMode);
    entry.Margin = margin;
    entry.PrintKeyNo = printKeyNo;
    entry.Visible = isVisible;
    auto connector = makeConnector(id, entry);
    connector->setIndex(static_cast<quint8>(index));
    connector->setType(type);
    connector->setCapacityMode(capacity);
    connector->setWorkMode(workMode);
    return addConnector(std::move(connector));
}

std::shared_ptr<Connector> Subcard::makeConnector(int id, const Connector::CardConnector &entry) {
    auto connector = std::make_shared<Connector>(static_cast<uint8_t>(id));
    connector->setOwerSubcard(weak_from_this());
    connector->setCardConnector(entry);
    return connector;
}

std::shared_ptr<Connector> Subcard::placeConnector(int position, const Connector::CardConnector &entry) {
    auto present = connector(position).lock();
    if (present == nullptr)
        return addConnector(makeConnector(position, entry));
    present->setCardConnector(entry);
    return present;
}

void Subcard::initCardConnector(quint16 modelId) {
    const auto *card = InterfaceConfig::instance()->findSubCardByModelId(modelId);
    if (card == nullptr)
        return;
    const auto entries = card->getCardConnector();
    const auto infos = card->getPostionForConnectorInfo();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const auto info = infos.find(entry.key());
        if (info == infos.end())
            continue;
        const auto connector = placeConnector(entry.key(), *entry);
        connector->setFrameRate(info->m_sizeDefaultResolution);
        connector->setRefreshRate(info->m_fDefaultRefreshRate);
    }
}

void Subcard::initCardConnector(const std::vector<ProtoModel::Device::s_Connectors> &reported) {
    if (owerDevice().expired())
        return;
    const quint16 model = fileModelId(modelId());
    for (const auto &body : reported) {
        InterfaceConfig::CardConnector entry;
        if (!isId(body.id) || !InterfaceConfig::instance()->CardConnectorInfo(model, body, entry))
            continue;
        // Position, type and capacity agree by the match; copy partner and work mode come from the report.
        entry.Connector = body;
        placeConnector(body.id, entry);
    }
}

int Subcard::interfaceGroup(int capacityGroup) const {
    const auto groups = InterfaceConfig::instance()->getSubCardConnectorGroup(fileModelId(modelId()), capacityGroup,
                                                                              toInt(capacityMode(capacityGroup)));
    const auto isHere = [this](const InterfaceConfig::s_CardConnector &entry) {
        const auto present = connector(entry.Connector.id).lock();
        return present != nullptr && toInt(present->capacityMode()) == entry.Connector.capacityMode &&
               toInt(present->workMode()) == entry.Connector.workMode;
    };
    for (const auto &group : groups)
        if (std::all_of(group.CardConnectors.begin(), group.CardConnectors.end(), isHere))
            return group.Value;
    return 0;
}

void Subcard::clearAll() {
    decltype(m_connectors) dropped;
    {
        const WriteGuard guard(m_connectorsRWLock);
        dropped.swap(m_connectors);
    }
    if (const auto device = owerDevice().lock())
        device->clearProtoConnectors(slotId());
}

void Subcard::unserailize(std::weak_ptr<Device> device) {
    setOwerDevice(std::move(device));
    for (const auto &connector : connectorList())
        connector->unserailize(weak_from_this());
}

} // namespace Quorix::BizModel
