/// Hot backup: pairs of interfaces of which one is in force, and what an editor of pairs asks.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixbizmodel/topology/subcard.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <QDebug>

#include <algorithm>
#include <utility>

namespace Quorix::BizModel {

namespace {

using Pair = ProtoModel::Device::s_Relation;
using Pairs = ProtoModel::Device::s_RelationArray;

bool isMember(const Pair &pair, std::int32_t id) { return pair.interfaceA == id || pair.interfaceB == id; }

/// The same two interfaces in either order.
bool isSamePair(const Pair &left, const Pair &right) {
    return left.type == right.type &&
           std::minmax(left.interfaceA, left.interfaceB) == std::minmax(right.interfaceA, right.interfaceB);
}

/// Packed id of a place; split 0.
std::int32_t idOf(int slot, int connector) {
    const ProtoModel::s_InterfaceID place{.slotId = slot, .connectorId = connector, .splitId = 0};
    return static_cast<std::int32_t>(place.id());
}

bool isIn(const ProtoModel::Device::s_InterfaceRelation &relation, int slot, int connector) {
    return relation.enable != 0 && isId(slot) && isId(connector) &&
           std::any_of(relation.relation.begin(), relation.relation.end(),
                       [id = idOf(slot, connector)](const Pair &pair) { return isMember(pair, id); });
}

} // namespace

void Device::setInterfaceRelation(const ProtoModel::Device::s_InterfaceRelation &relation) {
    const auto old = exchanged(m_detailRWLock, m_detail.interfaceRelation, relation);
    // Compared before the first signal: a listener may change the caller's record.
    const bool arePairsChanged = old && old->relation != relation.relation;
    if (old && old->enable != relation.enable)
        Q_EMIT signalInterfaceRelationEnableChanged();
    if (arePairsChanged)
        Q_EMIT signalInterfaceRelationPairsChanged();
}

void Device::setInterfaceRelationEnable(const bool &isEnabled) {
    if (assignSwitch(m_detailRWLock, m_detail.interfaceRelation.enable, isEnabled))
        Q_EMIT signalInterfaceRelationEnableChanged();
}

bool Device::interfaceRelationEnable() { return copyOf(m_detailRWLock, m_detail.interfaceRelation.enable) != 0; }

ProtoModel::Device::s_InterfaceRelation Device::interfaceRelation() {
    return copyOf(m_detailRWLock, m_detail.interfaceRelation);
}

int Device::getInterfaceRelation(int interfaceId) {
    const ReadGuard guard(m_detailRWLock);
    const auto &pairs = m_detail.interfaceRelation.relation;
    const auto pair = std::find_if(pairs.begin(), pairs.end(),
                                   [interfaceId](const Pair &entry) { return isMember(entry, interfaceId); });
    if (pair == pairs.end())
        return -1;
    return pair->interfaceA == interfaceId ? pair->interfaceB : pair->interfaceA;
}

void Device::updateInterfaceRelation(const Pairs &relations) {
    auto pairs = copyOf(m_detailRWLock, m_detail.interfaceRelation.relation);
    bool isAnyReported = false;
    for (auto &pair : pairs) {
        const auto reported = std::find_if(relations.begin(), relations.end(),
                                           [&](const Pair &entry) { return isSamePair(entry, pair); });
        if (reported == relations.end()) {
            qWarning() << "reported hotback pair isn't exist in interface relation.";
            continue;
        }
        // Read before the layers signal: a listener may change the caller's list.
        const int actual = reported->actualInterface;
        updateLayerInputSource(pair, actual);
        pair.actualInterface = actual;
        isAnyReported = true;
    }
    if (!isAnyReported)
        return;
    {
        const WriteGuard guard(m_detailRWLock);
        m_detail.interfaceRelation.relation = std::move(pairs);
    }
    Q_EMIT signalInterfaceRelationPairsChanged();
}

void Device::updateLayerInputSource(const Pair &relation, int actualInterface) {
    if (!isMember(relation, actualInterface))
        return;
    const int failed = actualInterface == relation.interfaceA ? relation.interfaceB : relation.interfaceA;
    const auto layers = layersBySource(static_cast<uint32_t>(failed), Enum::Layer::SourceType::Input,
                                       toInt(Enum::Screen::ScreenType::AllScreenType),
                                       maskOf(Enum::Layer::LayerType::Regular, Enum::Layer::LayerType::Cut));
    for (const auto &reference : layers)
        if (const auto layer = reference.lock())
            layer->setSource(
                layer->constructSourceStruct(static_cast<uint32_t>(actualInterface), toInt(layer->sourceType())));
}

template <class Matches>
void Device::removeRelationsIf(Matches matches) {
    std::size_t erased = 0;
    {
        const WriteGuard guard(m_detailRWLock);
        erased = std::erase_if(m_detail.interfaceRelation.relation,
                               [&](const Pair &pair) { return matches(pair.interfaceA) || matches(pair.interfaceB); });
    }
    if (erased != 0)
        Q_EMIT signalInterfaceRelationPairsChanged();
}

void Device::removeInterfaceRelation(const uint8_t &nSlotId, const uint8_t &nInterfaceId) {
    removeRelationsIf([id = idOf(nSlotId, nInterfaceId)](std::int32_t interface) { return interface == id; });
}

void Device::removeInterfaceRelationBySlotId(const uint8_t &nSlotId) {
    removeRelationsIf(
        [slot = nSlotId](std::int32_t interface) { return (static_cast<uint32_t>(interface) >> 16U & 255U) == slot; });
}

bool Device::isUsedForHotBack(int slotId, int connectorId) {
    const ReadGuard guard(m_detailRWLock);
    return isIn(m_detail.interfaceRelation, slotId, connectorId);
}

bool Device::isUsedForHotBack(const int &slotId, const int &capacityGroup, const int &connectorGroup,
                              const int &capacity) {
    QMap<unsigned char, InterfaceConfig::s_CardConnector> connectors;
    if (!connectorsOfLayout(slotId, capacityGroup, connectorGroup, capacity, connectors))
        return false;
    const auto relation = interfaceRelation();
    return std::any_of(connectors.begin(), connectors.end(),
                       [&](const auto &entry) { return isIn(relation, slotId, entry.Connector.id); });
}

void Device::setAllowEditedHotBackupConnectors(std::list<std::pair<int, int>> connectors) {
    const WriteGuard guard(m_allowEditedRWLock);
    connectors.remove_if([this](const auto &place) { return !isUsedForHotBack(place.first, place.second); });
    m_allowEditedHotBackupConnectors = std::move(connectors);
}

bool Device::isAllowEditedHotBackupConnector(const int &slotId, const int &connectorId) {
    const ReadGuard guard(m_allowEditedRWLock);
    const auto &places = m_allowEditedHotBackupConnectors;
    return std::find(places.begin(), places.end(), std::pair(slotId, connectorId)) != places.end();
}

template <class Visit>
void Device::visitConnectors(Visit visit) {
    for (const auto &card : presentEntries(m_subcardsRWLock, m_subcards))
        for (const auto &reference : card->connectors())
            if (const auto connector = reference.lock())
                visit(*connector);
}

void Device::updateAvailableInterface(const int &slotId, const int &connectorId, const bool &isHasSelectConnetors) {
    if (!isHasSelectConnetors) {
        resetHotBackForSameCapacity();
        return;
    }
    ProtoModel::Device::s_Connectors record;
    if (!protoConnector(slotId, connectorId, record)) {
        qWarning() << "The connector is null";
        return;
    }
    visitConnectors([&](Connector &connector) {
        connector.setHotBackForSameCapacity(toInt(connector.capacityMode()) == record.capacityMode);
    });
}

void Device::resetHotBackForSameCapacity() {
    visitConnectors([](Connector &connector) { connector.setHotBackForSameCapacity(true); });
}

} // namespace Quorix::BizModel
