#include <quorixbizmodel/capability/configxml_p.h>
#include <quorixbizmodel/capability/quorixbizstruct.h>

#include <QDebug>

#include <algorithm>

namespace Quorix::BizModel {

namespace {

/// The first entry whose member has that value; null if none has it.
template <class Record, class Value, class Wanted>
const Record *findBy(const QList<Record> &list, Value Record::*member, const Wanted &wanted) {
    const auto found = std::find_if(list.cbegin(), list.cend(), [&](const Record &r) { return r.*member == wanted; });
    return found == list.cend() ? nullptr : &*found;
}

void appendCard(QList<s_SubCardConfig> &list, const s_SubCardConfig &card) {
    if (findBy(list, &s_SubCardConfig::m_ModelID, card.m_ModelID) != nullptr)
        qWarning() << "The card is in the list already, modelId:" << card.m_ModelID;
    else
        list.append(card);
}

template <class Position>
void appendPosition(QList<Position> &list, const Position &position) {
    if (list.contains(position))
        qWarning() << "The screen position is in the list already, slot:" << position.SlotIndex
                   << "connector:" << position.ConnectorIndex;
    else
        list.append(position);
}

} // namespace

QString s_SubCardConfig::CardName() const { return ConfigXml::nameIn(m_LanguageForName, QString()); }

void s_MVRScreenConfigs::appendMVRScreenConfig(const s_MVRScreenConfig &config) {
    appendPosition(mvrScreenCfgs, config);
}
void s_AuxScreenConfigs::appendAuxScreenConfig(const s_AuxScreenConfig &config) {
    appendPosition(auxScreenCfgs, config);
}

void s_DeviceConfig::appendInputCards(const s_SubCardConfig &card) { appendCard(inputCards, card); }
void s_DeviceConfig::appendOutputCards(const s_SubCardConfig &card) { appendCard(outputCards, card); }
void s_DeviceConfig::appendExpCards(const s_SubCardConfig &card) { appendCard(expCards, card); }
void s_DeviceConfig::appendAuxCards(const s_SubCardConfig &card) { appendCard(auxCards, card); }
void s_DeviceConfig::appendMvrCards(const s_SubCardConfig &card) { appendCard(mvrCards, card); }

const s_SubCardConfig *s_DeviceConfig::findSubCardByModelId(const QList<s_SubCardConfig> &list, quint16 modelId) {
    return findBy(list, &s_SubCardConfig::m_ModelID, modelId);
}

QString s_DeviceConfig::findSectionNameByCode(int code) const {
    const s_UpgradeCfg *section = findBy(upgradeCfgs, &s_UpgradeCfg::sectionCode, code);
    return section != nullptr ? section->sectionName : QString();
}

int s_DeviceConfig::findCodeBySectionName(const QString &sectionName) const {
    const s_UpgradeCfg *section = findBy(upgradeCfgs, &s_UpgradeCfg::sectionName, sectionName);
    return section != nullptr ? section->sectionCode : -1;
}

std::uint32_t s_DeviceConfig::findTimeOutByBcAndFc(int baseCode, int functionCode) const {
    const auto found = std::find_if(Timeoutcfg.cbegin(), Timeoutcfg.cend(), [&](const s_TimeOutConfig &t) {
        return t.BaseCode == baseCode && t.FunctionCode == functionCode;
    });
    return found != Timeoutcfg.cend() ? found->TimeOut : DefaultTimeOut;
}

} // namespace Quorix::BizModel
