/// Questions about cards: functions, layouts, positions, firmware sections.
#include <quorixbizmodel/capability/configxml_p.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/enumtools.h>

#include <QDebug>

#include <algorithm>
#include <limits>

namespace Quorix::BizModel {

namespace {

using Config = InterfaceConfig;

/// The entry of a key; null for a key that isn't there or that no byte holds.
template <class T>
const T *at(const QMap<unsigned char, T> &map, int key) {
    if (key < 0 || key > std::numeric_limits<unsigned char>::max())
        return nullptr;
    const auto found = map.constFind(static_cast<unsigned char>(key));
    return found != map.constEnd() ? &*found : nullptr;
}

/// Calls @p visit with each capacity and each of its connector groups, in the order of the tree, until it returns true.
template <class Visit>
bool walk(const Config::SubCard &card, Visit visit) {
    for (const Config::s_CapacityGroup &capacityGroup : card.CapacityGroups)
        for (const Config::s_Capacity &capacity : capacityGroup.Capacitys)
            for (const Config::s_ConnectorGroup &group : capacity.ConnectorGroups)
                if (visit(capacity, group))
                    return true;
    return false;
}

/// Calls @p visit with position and connector of all enabled capacities and connector groups, in the tree's order.
template <class Visit>
void walkEnabled(const Config::SubCard &card, Visit visit) {
    walk(card, [&](const Config::s_Capacity &capacity, const Config::s_ConnectorGroup &group) {
        if (capacity.Enable && group.Enable)
            for (auto it = group.CardConnectors.constBegin(); it != group.CardConnectors.constEnd(); ++it)
                visit(it.key(), *it);
        return false;
    });
}

/// The first connector at a position under a capacity that @p takes agrees with; null if there is none.
template <class Takes>
const Config::s_CardConnector *connectorAt(const Config::SubCard &card, int capacityType, int position, Takes takes) {
    const Config::s_CardConnector *found = nullptr;
    const bool stopped = walk(card, [&](const Config::s_Capacity &capacity, const Config::s_ConnectorGroup &group) {
        found = capacity.Value == capacityType ? at(group.CardConnectors, position) : nullptr;
        return found != nullptr && takes(*found);
    });
    return stopped ? found : nullptr;
}

/// A field of the first connector at a position whose own capacity is the one asked for.
template <auto Member, class Value>
Value connectorField(const Config &config, quint16 modelId, int capacityType, int position, Value none) {
    const Config::SubCard *card = config.findSubCardByModelId(modelId);
    if (card == nullptr) {
        qWarning() << "The subCard is null";
        return none;
    }
    const auto hasCapacity = [&](const auto &c) { return c.Connector.capacityMode == capacityType; };
    const Config::s_CardConnector *found = connectorAt(*card, capacityType, position, hasCapacity);
    return found != nullptr ? found->*Member : none;
}

/// A field of a card; @p none, with a log line, for a card that isn't there.
template <auto Member>
auto field(const Config &config, quint16 modelId, ConfigXml::ValueOf<Member> none = {}) {
    if (const Config::SubCard *card = config.findSubCardByModelId(modelId))
        return card->*Member;
    qDebug() << "The pSubCard is null";
    return none;
}

/// The first connector at a position with that capacity, by the capacity and the group in which it stands; both null if
/// there is none. Needs the map of one capacity group.
struct Place {
    const Config::s_Capacity *capacity = nullptr;
    const Config::s_ConnectorGroup *group = nullptr;
};
Place placeOf(const QMap<unsigned char, Config::s_Capacity> &capacitys, int connectorCapacity, int position) {
    for (const Config::s_Capacity &capacity : capacitys)
        for (const Config::s_ConnectorGroup &group : capacity.ConnectorGroups)
            if (const auto *found = at(group.CardConnectors, position);
                found != nullptr && found->Connector.capacityMode == connectorCapacity)
                return {&capacity, &group};
    return {};
}

/// The firmware sections that answer for a board; null if the card has none.
const QList<s_UpgradeCfg> *sectionsOf(const Config &config, int modelId, int boardId) {
    if (modelId < 0 || modelId > std::numeric_limits<quint16>::max())
        return nullptr;
    const Config::SubCard *card = config.findSubCardByModelId(static_cast<quint16>(modelId));
    if (card == nullptr || card->m_upgradeCfgs.isEmpty())
        return nullptr;
    const QList<s_UpgradeCfg> *own = at(card->m_upgradeCfgs, boardId);
    return own != nullptr ? own : &*card->m_upgradeCfgs.constBegin();
}

} // namespace

QString Config::s_SubCard::CardName(const QString &language) const {
    return ConfigXml::nameIn(m_LanguageForName, language);
}

QMap<unsigned char, Config::s_CardConnector> Config::s_SubCard::getCardConnector() const {
    QMap<unsigned char, s_CardConnector> connectors;
    walkEnabled(*this,
                [&](unsigned char position, const s_CardConnector &entry) { connectors.insert(position, entry); });
    return connectors;
}

QMap<unsigned char, Config::s_ConnectorInfo> Config::s_SubCard::getPostionForConnectorInfo() const {
    const QList<s_ConnectorInfo> &types = instance()->connectorInfos();
    QMap<unsigned char, s_ConnectorInfo> infos;
    walkEnabled(*this, [&](unsigned char position, const s_CardConnector &entry) {
        const auto type = std::find_if(types.cbegin(), types.cend(), [&](const s_ConnectorInfo &info) {
            return toInt(info.m_eType) == entry.Connector.type;
        });
        if (type != types.cend())
            infos.insert(position, *type)->m_index = position;
    });
    return infos;
}

Config::SubCard *Config::findSubCardByModelId(const quint16 &nSubCardModelId) const {
    for (SubCard *card : m_listSubCard)
        if (card->m_ModelID == nSubCardModelId)
            return card;
    return nullptr;
}

bool Config::isSupportOverLoad(const quint16 &nSubCardModelId) const {
    const SubCard *card = findSubCardByModelId(nSubCardModelId);
    return card != nullptr && card->m_isSupportOverLoad;
}

bool Config::isSupportCustomEdid(const quint16 &id) const { return field<&SubCard::m_bSupportCustomEdid>(*this, id); }
bool Config::IsSupportColorSpace(const quint16 &id) const { return field<&SubCard::m_bSupportColorSpace>(*this, id); }
bool Config::IsSupportColorDepth(const quint16 &id) const { return field<&SubCard::m_bSupportColorDepth>(*this, id); }
bool Config::IsSupportCopyMode(const quint16 &id) const { return field<&SubCard::m_bSupportCopyMode>(*this, id); }
bool Config::IsSupportCapacityDownward(const quint16 &id) const {
    return field<&SubCard::m_bSupportCapacityDownward>(*this, id);
}
bool Config::IsSupportFormatMapping(const quint16 &id) const {
    return field<&SubCard::m_bSupportFormatMapping>(*this, id);
}

Enum::CapacitySwitchMode Config::capacitySwitchMode(const quint16 &nSubCardModelId) const {
    return field<&SubCard::m_capacitySwitchMode>(*this, nSubCardModelId, Enum::CapacitySwitchMode::Connector);
}

int Config::connectorBackupPos(const quint16 &nSubCardModelId, int capacityType, int connectorId) const {
    return connectorField<&CardConnector::BackupPos>(*this, nSubCardModelId, capacityType, connectorId, -1);
}

int Config::connectorOriginType(const quint16 &nSubCardModelId, int capacityType, int connectorId) const {
    return connectorField<&CardConnector::OriginType>(*this, nSubCardModelId, capacityType, connectorId, -1);
}

QString Config::connectorNameOnMaxCapacity(const quint16 &nSubCardModelId, int capacityType, int connectorId) const {
    return connectorField<&CardConnector::NameOnMaxCapacity>(*this, nSubCardModelId, capacityType, connectorId,
                                                             QString());
}

bool Config::connectors(const quint16 &nSubCardModelId, int capacityType, int connectorId,
                        ProtoModel::Device::s_Connectors &connector) const {
    const SubCard *card = findSubCardByModelId(nSubCardModelId);
    if (card == nullptr) {
        qWarning() << "The subcard is null. subCardModelId is " << nSubCardModelId;
        return false;
    }
    const CardConnector *found = connectorAt(*card, capacityType, connectorId, [](const auto &) { return true; });
    if (found != nullptr)
        connector = found->Connector;
    return found != nullptr;
}

QVector<Config::s_CapacityGroup> Config::getCapacityGroup(const quint16 &nSubCardModelId) const {
    const SubCard *card = findSubCardByModelId(nSubCardModelId);
    return card != nullptr ? card->CapacityGroups : QVector<s_CapacityGroup>();
}

QMap<unsigned char, Config::s_Capacity> Config::getSubCardCapacitys(const quint16 &nSubCardModelId,
                                                                    int capacityGroupValue) const {
    QMap<unsigned char, s_Capacity> capacitys;
    const auto groups = getCapacityGroup(nSubCardModelId);
    for (const s_CapacityGroup &group : groups)
        if (group.Value == capacityGroupValue)
            for (auto it = group.Capacitys.constBegin(); it != group.Capacitys.constEnd(); ++it)
                if (!capacitys.contains(it.key()))
                    capacitys.insert(it.key(), *it);
    return capacitys;
}

QMap<unsigned char, Config::s_ConnectorGroup>
Config::getSubCardConnectorGroup(const quint16 &nSubCardModelId, int capacityGroupValue, int capacity) const {
    const auto capacitys = getSubCardCapacitys(nSubCardModelId, capacityGroupValue);
    const s_Capacity *found = at(capacitys, capacity);
    return found != nullptr ? found->ConnectorGroups : QMap<unsigned char, s_ConnectorGroup>();
}

QMap<unsigned char, Config::s_CardConnector> Config::getSubCardCardConnectors(const quint16 &nSubCardModelId,
                                                                              int capacityGroup, int capacity,
                                                                              int connectorGroup) const {
    const auto groups = getSubCardConnectorGroup(nSubCardModelId, capacityGroup, capacity);
    const s_ConnectorGroup *found = at(groups, connectorGroup);
    return found != nullptr ? found->CardConnectors : QMap<unsigned char, s_CardConnector>();
}

quint8 Config::getSubCardCapacity(const quint16 &nSubCardModelId, int capacityGroupValue, int connectorCapacity,
                                  const quint8 &connectorIndex) const {
    const auto capacitys = getSubCardCapacitys(nSubCardModelId, capacityGroupValue);
    const Place place = placeOf(capacitys, connectorCapacity, connectorIndex);
    return place.capacity != nullptr ? place.capacity->Value : quint8{255};
}

quint8 Config::getSubCardConnectorGroup(const quint16 &nSubCardModelId, int capacityGroupValue, int connectorCapacity,
                                        const quint8 &connectorIndex) const {
    const auto capacitys = getSubCardCapacitys(nSubCardModelId, capacityGroupValue);
    const Place place = placeOf(capacitys, connectorCapacity, connectorIndex);
    return place.group != nullptr ? place.group->Value : quint8{0};
}

QString Config::getCapacityStr(const quint16 &nSubCardModelId, int capValue) const {
    const auto groups = getCapacityGroup(nSubCardModelId);
    for (const s_CapacityGroup &group : groups)
        if (const s_Capacity *capacity = at(group.Capacitys, capValue))
            return capacity->Name;
    return {};
}

QString Config::getConnectorGroupStr(const quint16 &nSubCardModelId, int connectorGroupValue) const {
    QString name;
    if (const SubCard *card = findSubCardByModelId(nSubCardModelId))
        walk(*card, [&](const s_Capacity &, const s_ConnectorGroup &group) {
            if (group.Value == connectorGroupValue)
                name = group.Name;
            return group.Value == connectorGroupValue;
        });
    return name;
}

bool Config::CardConnectorInfo(const quint16 &nSubCardModelId,
                               const ProtoModel::Device::s_Connectors &protoCardConnector,
                               CardConnector &connectorInfo) const {
    const SubCard *card = findSubCardByModelId(nSubCardModelId);
    return card != nullptr && walk(*card, [&](const s_Capacity &, const s_ConnectorGroup &group) {
               for (const s_CardConnector &entry : group.CardConnectors) {
                   const ProtoModel::Device::s_Connectors &own = entry.Connector;
                   if (own.id == protoCardConnector.id && own.type == protoCardConnector.type &&
                       own.capacityMode == protoCardConnector.capacityMode) {
                       connectorInfo = entry;
                       return true;
                   }
               }
               return false;
           });
}

bool Config::isShowConnectorCapacity(const quint16 &nSubCardModelId) const {
    const auto groups = getCapacityGroup(nSubCardModelId);
    return groups.size() == 1 && groups.first().Capacitys.size() > 1;
}

bool Config::isShowConnectorGroup(const quint16 &nSubCardModelId) const {
    const auto groups = getCapacityGroup(nSubCardModelId);
    return groups.size() == 1 && groups.first().Capacitys.size() == 1 &&
           groups.first().Capacitys.first().ConnectorGroups.size() > 1;
}

bool Config::isSubCardSwitch(const quint16 &nSubCardModelId) const {
    const SubCard *card = findSubCardByModelId(nSubCardModelId);
    return card != nullptr &&
           std::any_of(card->CapacityGroups.cbegin(), card->CapacityGroups.cend(), [&](const s_CapacityGroup &group) {
               const auto &capacitys = group.Capacitys;
               return capacitys.size() > 1 || (capacitys.size() == 1 && (capacitys.first().ConnectorGroups.size() > 1 ||
                                                                         card->m_bSupportCopyMode));
           });
}

QString Config::findSectionNameByCode(int modelId, int code, int boardId) const {
    if (const QList<s_UpgradeCfg> *sections = sectionsOf(*this, modelId, boardId))
        for (const s_UpgradeCfg &section : *sections)
            if (section.sectionCode == code)
                return section.sectionName;
    return {};
}

int Config::findCodeBySectionName(int modelId, const QString &sectionName, int boardId) const {
    if (const QList<s_UpgradeCfg> *sections = sectionsOf(*this, modelId, boardId))
        for (const s_UpgradeCfg &section : *sections)
            if (section.sectionName == sectionName)
                return section.sectionCode;
    return -1;
}

QList<s_UpgradeCfg> Config::findUpgradeCfgByBoardId(int modelId, int boardId) const {
    const QList<s_UpgradeCfg> *sections = sectionsOf(*this, modelId, boardId);
    return sections != nullptr ? *sections : QList<s_UpgradeCfg>();
}

} // namespace Quorix::BizModel
