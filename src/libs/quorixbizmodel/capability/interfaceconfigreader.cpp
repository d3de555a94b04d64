/// The interface capability file: one table for each element.
#include <quorixbizmodel/capability/configxml_p.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/enumtools.h>

#include <QDebug>
#include <QDomDocument>
#include <QFile>

#include <algorithm>

namespace Quorix::BizModel {

using namespace ConfigXml;

namespace {

using Config = InterfaceConfig;

QString invalidNode(const char *tag) { return InterfaceConfig::tr("Invalid [%1] node.").arg(QLatin1String(tag)); }

struct Context {
    QString &errMsg;
    const QList<Config::s_ConnectorInfo> &types; ///< the connector types read so far
    QString detail = {};                         ///< why an element failed
    quint8 capacityGroup = 0;                    ///< value of the group being read
    void missing(const char *tag) { detail = invalidNode(tag); }
};

template <class Record>
using Attribute = AttributeRow<Record>;
template <class Record>
using Child = ChildRow<Record, Context>;
using Info = Config::s_ConnectorInfo;
using Limits = Config::s_ConnectorCapacity;
using Timing = Config::s_VESAResolutionRatio;
using Card = Config::s_SubCard;
using Port = Config::s_CardConnector;
using Link = ProtoModel::Device::s_Connectors;

template <auto Size>
void putWidth(RecordOf<Size> &record, const QString &text) {
    (record.*Size).setWidth(fromText<int>(text));
}

template <auto Size>
void putHeight(RecordOf<Size> &record, const QString &text) {
    (record.*Size).setHeight(fromText<int>(text));
}

/// Stores a text's value in the record that a port hands to the protocol.
template <auto Member>
bool linkText(Port &port, const QDomElement &element, Context &) {
    put<Member>(port.Connector, element.text());
    return true;
}

constexpr Attribute<Config::s_CardAttribute> kHdcpAttributes[] = {
    {"Value", "0", put<&Config::s_CardAttribute::cardType>},
    {"CurrentHDCP", "0", put<&Config::s_CardAttribute::currentHDCP>},
    {"HDCPSwitch", "0", put<&Config::s_CardAttribute::HDCPSwitch>},
    {"CurrentHDCPOnMaxCapacity", "0", put<&Config::s_CardAttribute::currentHDCPOnMaxCapacity>},
};

constexpr Attribute<Config::s_HDCPType> kHdcpTypeAttributes[] = {
    {"Value", "0", put<&Config::s_HDCPType::hdcpType>},
    {"NameOnMaxCapacity", "", put<&Config::s_HDCPType::nameOnMaxCapacity>},
};

constexpr Attribute<Limits> kLimitAttributes[] = {
    {"Value", "0", put<&Limits::capacity>},
    {"Step", "0", put<&Limits::step>},
    {"MinBandWidth", "0", put<&Limits::minBandwidth>},
    {"MaxBandWidth", "0", put<&Limits::maxBandwidth>},
    {"Width", "0", putWidth<&Limits::sizeDefaultResolution>},
    {"Height", "0", putHeight<&Limits::sizeDefaultResolution>},
    {"RefreshRate", "0", put<&Limits::defaultRefreshRate>},
    {"MaxWidth", "0", putWidth<&Limits::sizeMaxResolution>},
    {"MaxHeight", "0", putHeight<&Limits::sizeMaxResolution>},
    {"MaxRefreshRate", "0", put<&Limits::maxRefreshRate>},
    {"MinWidth", "0", putWidth<&Limits::sizeMinResolution>},
    {"MinHeight", "0", putHeight<&Limits::sizeMinResolution>},
    {"MinRefreshRate", "0", put<&Limits::minRefreshRate>},
};

constexpr Attribute<Info> kInputRangeAttributes[] = {
    {"MaxWidth", "0", putWidth<&Info::m_sizeMaxResolution>},
    {"MaxHeight", "0", putHeight<&Info::m_sizeMaxResolution>},
    {"MaxRefreshRate", "0", put<&Info::m_fMaxRefreshRate>},
    {"MinWidth", "0", putWidth<&Info::m_sizeMinResolution>},
    {"MinHeight", "0", putHeight<&Info::m_sizeMinResolution>},
    {"MinRefreshRate", "0", put<&Info::m_fMinRefreshRate>},
};

/// An absent one leaves what the range of inputs says.
constexpr Attribute<Info> kOutputRangeAttributes[] = {
    {"OutputMaxWidth", nullptr, putWidth<&Info::m_sizeMaxOutResolution>},
    {"OutputMaxHeight", nullptr, putHeight<&Info::m_sizeMaxOutResolution>},
    {"OutputMaxRefreshRate", nullptr, put<&Info::m_fMaxOutRefreshRate>},
    {"OutputMinWidth", nullptr, putWidth<&Info::m_sizeMinOutResolution>},
    {"OutputMinHeight", nullptr, putHeight<&Info::m_sizeMinOutResolution>},
    {"OutputMinRefreshRate", nullptr, put<&Info::m_fMinOutRefreshRate>},
};

constexpr Attribute<Timing> kTimingAttributes[] = {
    {"Symbol", "", put<&Timing::SymbolName>},
    {"Interlaced", "0", put<&Timing::iInterlaced>},
    {"FormatMapping", "0", put<&Timing::iFormatMapping>},
    {"CardType", "0", put<&Timing::iCardType>},
    {"Capacity", "0", put<&Timing::iCapacity>},
};

constexpr Attribute<s_UpgradeCfg> kSectionAttributes[] = {
    {"Name", "", put<&s_UpgradeCfg::sectionName>},
    {"Type", "0", put<&s_UpgradeCfg::type>},
    {"Code", "0", put<&s_UpgradeCfg::sectionCode>},
    {"CompatibilityCode", "0", put<&s_UpgradeCfg::compatibilityCode>},
};

constexpr Attribute<Config::s_CapacityGroup> kCapacityGroupAttributes[] = {
    {"Value", "0", put<&Config::s_CapacityGroup::Value>},
    {"SeparatorMargin", "0", put<&Config::s_CapacityGroup::SeparatorMargin>},
};

constexpr Attribute<Config::s_Capacity> kCapacityAttributes[] = {
    {"Name", "0", put<&Config::s_Capacity::Name>},
    {"Value", "0", put<&Config::s_Capacity::Value>},
    {"Enable", "0", put<&Config::s_Capacity::Enable>},
};

constexpr Attribute<Config::s_ConnectorGroup> kConnectorGroupAttributes[] = {
    {"Name", "0", put<&Config::s_ConnectorGroup::Name>},
    {"Value", "0", put<&Config::s_ConnectorGroup::Value>},
    {"Enable", "0", put<&Config::s_ConnectorGroup::Enable>},
};

/// Resolution and rate of a timing, which have to be there and to parse.
bool readTiming(const QDomElement &element, QSize &size, float &rate, Context &context) {
    const auto fail = [&context](const char *name) {
        context.detail = InterfaceConfig::tr("Invalid [%1] attribute.").arg(QLatin1String(name));
        return false;
    };
    qint64 number = 0;
    if (!parseInteger(element.attribute(QStringLiteral("Width")), number))
        return fail("Width");
    size.setWidth(static_cast<int>(number));
    if (!parseInteger(element.attribute(QStringLiteral("Height")), number))
        return fail("Height");
    size.setHeight(static_cast<int>(number));
    return parseReal(element.attribute(QStringLiteral("RefreshRate")), rate) || fail("RefreshRate");
}

bool readHdcp(Info &info, const QDomElement &element, Context &) {
    return forEachChild(element, [&](const QDomElement &child) {
        Config::s_CardAttribute direction;
        readAttributes(direction, child, kHdcpAttributes);
        forEachChild(child, [&](const QDomElement &grandchild) {
            Config::s_HDCPType type;
            readAttributes(type, grandchild, kHdcpTypeAttributes);
            direction.m_listPredefinedHDCPType.append(type);
            return true;
        });
        info.m_listCardSort.append(direction);
        return true;
    });
}

bool readHdr(Info &info, const QDomElement &element, Context &) {
    return forEachChild(element, [&](const QDomElement &child) {
        return forEachChild(child, [&](const QDomElement &grandchild) {
            info.m_listHDR.append({attribute<int>(child, "Value"), attribute<int>(grandchild, "Value"),
                                   fromText<bool>(grandchild.firstChildElement().text())});
            return true;
        });
    });
}

bool readLimits(Info &info, const QDomElement &element, Context &) {
    return forEachChild(element, [&](const QDomElement &child) {
        Config::s_ConnectorCapacityMode direction;
        direction.cardType = attribute<int>(child, "Value");
        forEachChild(child, [&](const QDomElement &grandchild) {
            Limits limits;
            readAttributes(limits, grandchild, kLimitAttributes);
            direction.m_listConnectorCapacity.append(limits);
            return true;
        });
        info.m_listCapacityMode.append(direction);
        return true;
    });
}

bool gatherTimings(Info &info, const QDomElement &element, Context &context) {
    if (!readTiming(element, info.m_sizeDefaultResolution, info.m_fDefaultRefreshRate, context))
        return false;
    readAttributes(info, element, kInputRangeAttributes);
    info.m_sizeMaxOutResolution = info.m_sizeMaxResolution;
    info.m_fMaxOutRefreshRate = info.m_fMaxRefreshRate;
    info.m_sizeMinOutResolution = info.m_sizeMinResolution;
    info.m_fMinOutRefreshRate = info.m_fMinRefreshRate;
    for (const Attribute<Info> &row : kOutputRangeAttributes)
        if (element.hasAttribute(QLatin1String(row.name)))
            row.store(info, element.attribute(QLatin1String(row.name)));
    return forEachChild(element, [&](const QDomElement &child) {
        Timing timing;
        if (!readTiming(child, timing.PixelFormat, timing.RefreshRate, context))
            return false;
        readAttributes(timing, child, kTimingAttributes);
        info.m_listPredefinedResolutionRatio.append(timing);
        return true;
    });
}

/// A connector type with a bad timing stays usable with what was gathered; the caller is told all the same.
bool readTimings(Info &info, const QDomElement &element, Context &context) {
    if (!gatherTimings(info, element, context))
        context.errMsg = context.detail;
    return true;
}

constexpr Child<Info> kConnectorChildren[] = {
    {"Type", Presence::Required, text<&Info::m_eType>},
    {"Name", Presence::Required, text<&Info::m_strName>},
    {"ShortName", Presence::Required, text<&Info::m_strShortName>},
    {"ColorSpace", Presence::Required, text<&Info::m_colorSpace>},
    {"ColorDepth", Presence::Required, text<&Info::m_colorDepth>},
    {"CardSort", Presence::Required, readHdcp},
    {"HDR", Presence::Optional, readHdr},
    {"CapacityMode", Presence::Required, readLimits},
    {"SignalType", Presence::Required, text<&Info::m_eSignalType>},
    {"ResolutionRatios", Presence::Required, readTimings},
    {"MinBandWidth", Presence::Optional, text<&Info::m_nMinBandwidth>},
    {"MaxBandWidth", Presence::Optional, text<&Info::m_nMaxBandwidth>},
};

bool readPosition(Port &port, const QDomElement &element, Context &) {
    port.Connector.id = fromText<int>(element.text());
    port.PrintKeyNo = port.Connector.id;
    return true;
}

bool readPortType(Port &port, const QDomElement &element, Context &context) {
    port.Connector.type = fromText<int>(element.text());
    const bool isKnown = std::any_of(context.types.cbegin(), context.types.cend(),
                                     [&](const Info &info) { return toInt(info.m_eType) == port.Connector.type; });
    if (!isKnown)
        context.detail =
            InterfaceConfig::tr("The Sub card contains an invalid Connector type [%1].").arg(element.text());
    return isKnown;
}

constexpr Child<Port> kPortChildren[] = {
    {"Position", Presence::Required, readPosition},
    {"Type", Presence::Required, readPortType},
    {"Capacity", Presence::Required, linkText<&Link::capacityMode>},
    {"WorkMode", Presence::Required, linkText<&Link::workMode>},
    {"Enable", Presence::Required, text<&Port::Enable>},
    {"Visible", Presence::Optional, text<&Port::Visible>},
    {"BackupPos", Presence::Required, text<&Port::BackupPos>},
    {"PrintKeyNo", Presence::Optional, text<&Port::PrintKeyNo>},
    {"NameOnMaxCapacity", Presence::Optional, text<&Port::NameOnMaxCapacity>},
    {"OriginType", Presence::Optional, text<&Port::OriginType>},
    {"Step", Presence::Optional, text<&Port::Step>},
};

bool readConnectorGroup(Config::s_Capacity &capacity, const QDomElement &element, Context &context) {
    Config::s_ConnectorGroup group;
    readAttributes(group, element, kConnectorGroupAttributes);
    const bool isRead = forEachChild(element, [&](const QDomElement &child) {
        Port port;
        port.ValueGroup = context.capacityGroup;
        port.Margin = attribute<quint32>(child, "Margin");
        const bool isPortRead = readChildren(port, child, context, kPortChildren);
        group.CardConnectors.insert(static_cast<unsigned char>(port.Connector.id), port);
        return isPortRead;
    });
    capacity.ConnectorGroups.insert(group.Value, group);
    return isRead;
}

bool readCapacity(Config::s_CapacityGroup &capacityGroup, const QDomElement &element, Context &context) {
    Config::s_Capacity capacity;
    readAttributes(capacity, element, kCapacityAttributes);
    const bool isRead =
        forEachChild(element, [&](const QDomElement &child) { return readConnectorGroup(capacity, child, context); });
    capacityGroup.Capacitys.insert(capacity.Value, capacity);
    return isRead;
}

bool readCapacityGroups(Card &card, const QDomElement &element, Context &context) {
    const bool isRead = forEachChild(element, [&](const QDomElement &child) {
        Config::s_CapacityGroup group;
        readAttributes(group, child, kCapacityGroupAttributes);
        context.capacityGroup = group.Value;
        const bool isGroupRead = forEachChild(
            child, [&](const QDomElement &grandchild) { return readCapacity(group, grandchild, context); });
        card.CapacityGroups.append(group);
        return isGroupRead;
    });
    // Groups of one margin keep the order of the file.
    std::stable_sort(card.CapacityGroups.begin(), card.CapacityGroups.end(),
                     [](const auto &a, const auto &b) { return a.SeparatorMargin < b.SeparatorMargin; });
    return isRead;
}

bool readCardName(Card &card, const QDomElement &element, Context &) {
    card.m_LanguageForName = readNames(element);
    return true;
}

bool readSections(Card &card, const QDomElement &element, Context &) {
    return forEachChild(element, [&](const QDomElement &child) {
        QList<s_UpgradeCfg> sections;
        forEachChild(child, [&](const QDomElement &grandchild) {
            s_UpgradeCfg section;
            readAttributes(section, grandchild, kSectionAttributes);
            sections.append(section);
            return true;
        });
        card.m_upgradeCfgs.insert(attribute<unsigned char>(child, "Value"), sections);
        return true;
    });
}

constexpr Child<Card> kCardChildren[] = {
    {"Name", Presence::Required, readCardName},
    {"Sections", Presence::Optional, readSections},
    {"Enable", Presence::Required, text<&Card::m_bEnable>},
    {"IsSupportOverLoad", Presence::Required, text<&Card::m_isSupportOverLoad>},
    {"IsSupportCustomEdid", Presence::Required, text<&Card::m_bSupportCustomEdid>},
    {"IsSupportColorSpace", Presence::Required, text<&Card::m_bSupportColorSpace>},
    {"IsSupportColorDepth", Presence::Required, text<&Card::m_bSupportColorDepth>},
    {"IsSupportCopyMode", Presence::Required, text<&Card::m_bSupportCopyMode>},
    {"IsSupportCapacityDownward", Presence::Optional, text<&Card::m_bSupportCapacityDownward>},
    {"IsSupportFormatMapping", Presence::Optional, text<&Card::m_bSupportFormatMapping>},
    {"CapacitySwitchMode", Presence::Optional, text<&Card::m_capacitySwitchMode>},
    {"CapacityGroups", Presence::Required, readCapacityGroups},
};

} // namespace

/// Fills the lists of the tree, one element at a time.
class InterfaceConfig::Reader {
public:
    explicit Reader(InterfaceConfig &config) : m_config(config) {}

    bool connector(const QDomElement &element, Context &context) {
        s_ConnectorInfo info;
        info.m_strIconName = element.attribute(QStringLiteral("Icon"));
        if (!readChildren(info, element, context, kConnectorChildren))
            return false;
        m_config.m_listConnectorInfo.append(info);
        return true;
    }

    template <auto List>
    bool card(const QDomElement &element, Context &context) {
        auto &list = m_config.*List;
        typename std::decay_t<decltype(list)>::value_type card;
        card.m_ModelID = attribute<quint32>(element, "ModelID");
        if (!readChildren<Card>(card, element, context, kCardChildren))
            return false;
        list.append(card);
        m_config.m_listSubCard.append(&list.last());
        return true;
    }

    bool read(const QDomElement &root, QString &errMsg);

private:
    InterfaceConfig &m_config;
};

bool InterfaceConfig::Reader::read(const QDomElement &root, QString &errMsg) {
    static constexpr struct {
        const char *tag;
        Presence presence;
        const char *failure; ///< named when a child fails; null: the failure ends this section alone
        bool (Reader::*read)(const QDomElement &, Context &);
    } rows[] = {
        {"Connectors", Presence::Required, "Connector", &Reader::connector},
        {"InputCards", Presence::Required, "InputCard", &Reader::card<&InterfaceConfig::m_listInputCard>},
        {"OutputCards", Presence::Required, "OutputCard", &Reader::card<&InterfaceConfig::m_listOutputCard>},
        {"ExpCards", Presence::Optional, nullptr, &Reader::card<&InterfaceConfig::m_listExpCard>},
        {"AuxCards", Presence::Optional, "AuxCards", &Reader::card<&InterfaceConfig::m_listAuxCard>},
    };
    Context context{errMsg, m_config.m_listConnectorInfo};
    for (const auto &row : rows) {
        const QDomElement section = root.firstChildElement(QLatin1String(row.tag));
        if (section.isNull() && row.presence == Presence::Required) {
            errMsg = invalidNode(row.tag);
            return false;
        }
        if (forEachChild(section, [&](const QDomElement &child) { return (this->*row.read)(child, context); }))
            continue;
        qWarning().noquote() << context.detail;
        if (row.failure != nullptr) {
            errMsg = invalidNode(row.failure);
            return false;
        }
    }
    return true;
}

bool InterfaceConfig::readConfig(const QString &cfgFullPath, QString &errMsg) {
    if (cfgFullPath.isEmpty()) {
        errMsg = tr("Invalid file path!");
        return false;
    }
    QFile file(cfgFullPath);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning().noquote() << file.errorString();
        errMsg = tr("Fail to open file [%1]!").arg(cfgFullPath);
        return false;
    }
    return readConfigData(file.readAll(), errMsg);
}

bool InterfaceConfig::readConfigData(const QByteArray &xml, QString &errMsg) {
    QDomDocument document;
    ParseError error;
    if (!parse(xml, document, error)) {
        errMsg = tr("Parse error at line %1, column %2:\n%3")
                     .arg(QString::number(error.line), QString::number(error.column), error.text);
        return false;
    }
    const QDomElement root = document.documentElement();
    if (root.tagName() != QLatin1String("Quorix")) {
        errMsg = tr("This file is not a valid configuration file.");
        return false;
    }
    if (!isVersion1(root)) {
        errMsg = tr("This file is not a valid configuration file of version 1.0 .");
        return false;
    }
    return Reader(*this).read(root, errMsg);
}

} // namespace Quorix::BizModel
