#include "command.h"
#include "table.h"

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

#include <QFileInfo>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;

/// The word of a number; "-" for one behind the words.
template <std::size_t N>
QString wordAt(const char *const (&words)[N], int number) {
    return number >= 0 && number < static_cast<int>(N) ? QString::fromLatin1(words[number]) : QStringLiteral("-");
}

QString yesNo(bool value) { return value ? QStringLiteral("yes") : QStringLiteral("no"); }

/// "2-9" for eight slots from 2 on, "-" for none.
QString slotRange(int first, int count) {
    return count == 0 ? QStringLiteral("-") : QStringLiteral("%1-%2").arg(first).arg(first + count - 1);
}

void addCards(Table &table, const DeviceConfig &config, const QString &kind, const QList<s_SubCardConfig> &cards) {
    for (const s_SubCardConfig &card : cards)
        table.addRow({config.Name, kind, QString::number(card.m_ModelID), card.CardName(), yesNo(card.m_bEnable)});
}

QStringList flagNames(const InterfaceConfig::SubCard &card) {
    const std::pair<bool, const char *> flags[] = {
        {card.m_isSupportOverLoad, "overload"},           {card.m_bSupportCustomEdid, "custom EDID"},
        {card.m_bSupportColorSpace, "colour space"},      {card.m_bSupportColorDepth, "colour depth"},
        {card.m_bSupportCopyMode, "copy mode"},           {card.m_bSupportCapacityDownward, "capacity downward"},
        {card.m_bSupportFormatMapping, "format mapping"},
    };
    QStringList names;
    for (const auto &[set, name] : flags)
        if (set)
            names << QLatin1String(name);
    return names;
}

void printConnectors(QTextStream &out, const QMap<unsigned char, InterfaceConfig::CardConnector> &connectors) {
    Table table({QStringLiteral("pos"), QStringLiteral("key"), QStringLiteral("type"), QStringLiteral("capacity"),
                 QStringLiteral("work"), QStringLiteral("backup"), QStringLiteral("enabled"), QStringLiteral("note")});
    static const char *const kCapacities[] = {"SL", "DL", "4K"};
    for (auto it = connectors.begin(); it != connectors.end(); ++it) {
        const InterfaceConfig::CardConnector &connector = *it;
        table.addRow({QString::number(it.key()), QString::number(connector.PrintKeyNo),
                      connectorTypeName(static_cast<Enum::Interface::ConnectorType>(connector.Connector.type)),
                      wordAt(kCapacities, connector.Connector.capacityMode), workModeName(connector.Connector.workMode),
                      connector.BackupPos == 255 ? QStringLiteral("-") : QString::number(connector.BackupPos),
                      yesNo(connector.Enable), connector.NameOnMaxCapacity});
    }
    table.print(out, 8);
}

void printLayout(QTextStream &out, const InterfaceConfig::SubCard &card) {
    for (const InterfaceConfig::s_CapacityGroup &group : card.CapacityGroups) {
        out << "  capacity group " << group.Value << " (margin " << group.SeparatorMargin << ")\n";
        for (const InterfaceConfig::s_Capacity &capacity : group.Capacitys) {
            out << "    capacity " << capacity.Value << " \"" << capacity.Name << '"'
                << (capacity.Enable ? "" : ", disabled") << '\n';
            for (const InterfaceConfig::s_ConnectorGroup &connectors : capacity.ConnectorGroups) {
                out << "      connector group " << connectors.Value << " \"" << connectors.Name << '"'
                    << (connectors.Enable ? "" : ", disabled") << '\n';
                printConnectors(out, connectors.CardConnectors);
            }
        }
    }
}

} // namespace

QString workModeName(int mode) {
    static const char *const kWorkModes[] = {"master", "backup", "no output"};
    return wordAt(kWorkModes, mode);
}

QString connectorTypeName(Enum::Interface::ConnectorType type) {
    for (const InterfaceConfig::ConnectorInfo &info : InterfaceConfig::instance()->connectorInfos())
        if (info.m_eType == type)
            return info.m_strShortName;
    return QString::number(toInt(type));
}

void readCapabilities(const QString &dataDirectory) {
    static QString readFrom;
    if (readFrom == dataDirectory && !readFrom.isEmpty())
        return;
    // The reader makes a missing folder; a host that mistypes its path wants to be told instead.
    const QString devices = dataDirectory + QLatin1Char('/') + QString(DEVICECONFIG_FOLDER);
    if (!QFileInfo(devices).isDir())
        throw Failure(QStringLiteral("%1: no such folder").arg(devices));
    DeviceConfigManager::destroyInstance();
    InterfaceConfig::destroyInstance();
    QString error;
    if (!DeviceConfigManager::instance()->readConfig(devices, error))
        throw Failure(QStringLiteral("%1: %2").arg(devices, error));
    const QString interfaces = dataDirectory + QLatin1Char('/') + QString(INTERFACE_CONFIG_FILE);
    if (!InterfaceConfig::instance()->readConfig(interfaces, error))
        throw Failure(QStringLiteral("%1: %2").arg(interfaces, error));
    readFrom = dataDirectory;
}

void runModels(const Invocation &call) {
    readCapabilities(call.dataDirectory);
    Table chassis({QStringLiteral("id"), QStringLiteral("name"), QStringLiteral("slots"), QStringLiteral("in"),
                   QStringLiteral("out"), QStringLiteral("exp"), QStringLiteral("screens"), QStringLiteral("layers"),
                   QStringLiteral("aux"), QStringLiteral("aux layers"), QStringLiteral("mvr"),
                   QStringLiteral("presets")});
    Table cards({QStringLiteral("chassis"), QStringLiteral("kind"), QStringLiteral("card"), QStringLiteral("name"),
                 QStringLiteral("enabled")});
    for (const DeviceConfig &config : DeviceConfigManager::instance()->DeviceConfigs()) {
        chassis.addRow({QString::number(config.ModelID), config.Name, QString::number(config.SlotCount),
                        slotRange(config.InputSlotStartIndex, config.InputSlotCount),
                        slotRange(config.OutputSlotStartIndex, config.OutputSlotCount),
                        slotRange(config.ExpSlotStartIndex, config.ExpSlotCount),
                        QString::number(config.MainScreenCfg.MaxScreenCount),
                        QString::number(config.MainScreenCfg.MaxLayerCount),
                        config.AuxSceensCfg.IsSupport ? QString::number(config.AuxSceensCfg.MaxAUXScreenCount)
                                                      : QStringLiteral("-"),
                        QString::number(config.AuxSceensCfg.MaxAUXLayerCount), yesNo(config.MVRScreensCfg.IsSupport),
                        QString::number(config.MaxPresetCount)});
        addCards(cards, config, QStringLiteral("input"), config.InputCards());
        addCards(cards, config, QStringLiteral("output"), config.OutputCards());
        addCards(cards, config, QStringLiteral("expansion"), config.ExpCards());
        addCards(cards, config, QStringLiteral("multiviewer"), config.MvrCards());
    }
    chassis.print(call.out);
    call.out << '\n';
    cards.print(call.out);
}

void runCard(const Invocation &call) {
    bool isNumber = false;
    const quint16 id = call.arguments[0].toUShort(&isNumber);
    if (!isNumber)
        throw UsageError(QStringLiteral("not a card model id: %1").arg(call.arguments[0]));
    readCapabilities(call.dataDirectory);
    const InterfaceConfig::SubCard *card = InterfaceConfig::instance()->findSubCardByModelId(id);
    if (!card)
        throw Failure(QStringLiteral("no card %1 in %2").arg(id).arg(QString(INTERFACE_CONFIG_FILE)));
    call.out << card->m_ModelID << ' ' << card->CardName(QString()) << (card->m_bEnable ? "" : " (disabled)") << '\n'
             << "  " << flagNames(*card).join(QStringLiteral(", ")) << '\n'
             << "  capacity is chosen for "
             << (card->m_capacitySwitchMode == Enum::CapacitySwitchMode::SubCard ? "the whole card" : "each connector")
             << '\n';
    printLayout(call.out, *card);
}

} // namespace quorixctl
