/// The device file and the time-out file: one table for each element.
#include <quorixbizmodel/capability/configxml_p.h>
#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

#include <QDomDocument>

namespace Quorix::BizModel {

using namespace ConfigXml;

namespace {

QString invalidNode(const char *tag) { return DeviceConfigManager::tr("Invalid [%1] node.").arg(QLatin1String(tag)); }

struct Context {
    QString &errMsg;
    QString prefix; ///< model or file name; stands with a blank in front of what is said about a missing element
    void missing(const char *tag) { errMsg = prefix + QLatin1Char(' ') + invalidNode(tag); }
};

template <auto Member>
void putInverse(RecordOf<Member> &record, const QString &text) {
    record.*Member = !fromText<bool>(text);
}

template <class Record>
using Attribute = AttributeRow<Record>;
using Child = ChildRow<s_DeviceConfig, Context>;

constexpr Attribute<s_DeviceConfig> kModelAttributes[] = {
    {"IsSupportCancelProcess", "0", put<&s_DeviceConfig::IsSupportCancelProcess>},
    {"IsSupportPeripheral", "0", put<&s_DeviceConfig::IsSupportPeripheral>},
    {"IsSupportCutFill", "0", put<&s_DeviceConfig::IsSupportCutFill>},
    {"IsRestoreKeepUserData", "0", put<&s_DeviceConfig::IsRestoreKeepUserData>},
    {"IsSupportSoftShutdown", "0", put<&s_DeviceConfig::IsSupportSoftShutdown>},
    {"IsSupportSoftRestart", "0", put<&s_DeviceConfig::IsSupportSoftRestart>},
    {"IsSupportDeviceSelfTest", "0", put<&s_DeviceConfig::IsSupportDeviceSelfTest>},
    {"IsSupportProjectFile", "0", put<&s_DeviceConfig::IsSupportProjectFile>},
    {"IsSupportEDIDImportExport", "0", put<&s_DeviceConfig::IsSupportEDIDImportExport>},
    {"IsSupportPresetLoadToPGM", "0", put<&s_DeviceConfig::IsSupportPresetLoadToPGM>},
    {"ProjectFileType", "0", put<&s_DeviceConfig::ProjectFileType>},
    {"IsSupportFactoryResetAutoRestart", "0", put<&s_DeviceConfig::IsSupportFactoryResetAutoRestart>},
    {"UpgradeType", "0", put<&s_DeviceConfig::UpgradeType>},
    {"CPUType", "0", put<&s_DeviceConfig::CPUType>},
    {"Ethernet", "0", put<&s_DeviceConfig::EthernetType>},
};

constexpr Attribute<s_UpgradeCfg> kSectionAttributes[] = {
    {"Name", "", put<&s_UpgradeCfg::sectionName>},  {"Type", "0", put<&s_UpgradeCfg::type>},
    {"Code", "0", put<&s_UpgradeCfg::sectionCode>}, {"CompatibilityCode", "0", put<&s_UpgradeCfg::compatibilityCode>},
    {"Visible", "0", put<&s_UpgradeCfg::visible>},
};

constexpr Attribute<s_SubCardConfig> kCardAttributes[] = {
    {"ModelID", "65535", put<&s_SubCardConfig::m_ModelID>},
    {"Enable", "0", put<&s_SubCardConfig::m_bEnable>},
};

constexpr Attribute<s_DeviceConfig> kInputSlotAttributes[] = {
    {"SlotCount", "0", put<&s_DeviceConfig::InputSlotCount>},
    {"StartSlotIndex", "255", put<&s_DeviceConfig::InputSlotStartIndex>},
};

constexpr Attribute<s_DeviceConfig> kOutputSlotAttributes[] = {
    {"SlotCount", "0", put<&s_DeviceConfig::OutputSlotCount>},
    {"StartSlotIndex", "255", put<&s_DeviceConfig::OutputSlotStartIndex>},
};

constexpr Attribute<s_DeviceConfig> kExpSlotAttributes[] = {
    {"SlotCount", "0", put<&s_DeviceConfig::ExpSlotCount>},
    {"StartSlotIndex", "255", put<&s_DeviceConfig::ExpSlotStartIndex>},
};

constexpr Attribute<s_MainScreenConfigs> kMainScreenAttributes[] = {
    {"MaxScreenCount", "0", put<&s_MainScreenConfigs::MaxScreenCount>},
    {"MaxLayerCount", "0", put<&s_MainScreenConfigs::MaxLayerCount>},
    {"PGMLayerOffset", "0", put<&s_MainScreenConfigs::PGMLayerOffset>},
    {"IsSupportPGMFreeze", "0", put<&s_MainScreenConfigs::IsSupportPGMFreeze>},
    {"IsSupportProjectionFusion", "0", put<&s_MainScreenConfigs::IsSupportProjectionFusion>},
    {"IsSupportVirtualScreen", "0", put<&s_MainScreenConfigs::IsSupportVirtualScreen>},
    {"IsSupportOutputZOrder", "0", put<&s_MainScreenConfigs::IsSupportOutputZOrder>},
    {"IsSupportIncompleteSplicing", "0", put<&s_MainScreenConfigs::IsSupportIncompleteSplicing>},
    {"SpliceMode", "2", put<&s_MainScreenConfigs::ScreenSpliceMode>},
};

constexpr Attribute<s_MainLayerConfig> kMainLayerAttributes[] = {
    {"IsSupportMonoColor", "0", put<&s_MainLayerConfig::IsSupportMonoColor>},
    {"IsSupportReverseColor", "0", put<&s_MainLayerConfig::IsSupportReverseColor>},
    {"IsSupportFlip", "0", put<&s_MainLayerConfig::IsSupportFlip>},
    {"IsSupportMask", "0", put<&s_MainLayerConfig::IsSupportMask>},
    {"IsSupportIntercept", "0", put<&s_MainLayerConfig::IsSupportIntercept>},
    {"IsSupportFreeze", "0", put<&s_MainLayerConfig::IsSupportFreeze>},
    {"IsSupportBroder", "0", put<&s_MainLayerConfig::IsSupportBorder>}, // spelled so in the files
};

constexpr Attribute<s_MVRScreenConfigs> kMvrScreensAttributes[] = {
    {"IsSupport", "0", put<&s_MVRScreenConfigs::IsSupport>},
    {"IsManualSwitch", "1", putInverse<&s_MVRScreenConfigs::IsManualSwitch>},
    {"OpenState", "0", put<&s_MVRScreenConfigs::OpenState>},
    {"SlotCount", "0", put<&s_MVRScreenConfigs::SlotCount>},
    {"StartSlotIndex", "255", put<&s_MVRScreenConfigs::StartSlotIndex>},
    {"IsSupportIncompleteSplicing", "0", put<&s_MVRScreenConfigs::IsSupportIncompleteSplicing>},
    {"SpliceMode", "2", put<&s_MVRScreenConfigs::ScreenSpliceMode>},
};

constexpr Attribute<s_MVRScreenConfig> kMvrPositionAttributes[] = {
    {"ConnectorIndex", "255", put<&s_MVRScreenConfig::ConnectorIndex>},
    {"SlotIndex", "255", put<&s_MVRScreenConfig::SlotIndex>},
};

constexpr Attribute<s_AuxScreenConfigs> kAuxScreensAttributes[] = {
    {"IsSupport", "0", put<&s_AuxScreenConfigs::IsSupport>},
    {"IsManualSwitch", "1", putInverse<&s_AuxScreenConfigs::IsManualSwitch>},
    {"OpenState", "0", put<&s_AuxScreenConfigs::OpenState>},
    {"SlotCount", "0", put<&s_AuxScreenConfigs::SlotCount>},
    {"StartSlotIndex", "255", put<&s_AuxScreenConfigs::StartSlotIndex>},
    {"IsSupportIncompleteSplicing", "0", put<&s_AuxScreenConfigs::IsSupportIncompleteSplicing>},
    {"SpliceMode", "2", put<&s_AuxScreenConfigs::ScreenSpliceMode>},
    {"MaxAUXLayerCount", "0", put<&s_AuxScreenConfigs::MaxAUXLayerCount>},
    {"MaxAUXScreenCount", "0", put<&s_AuxScreenConfigs::MaxAUXScreenCount>},
    {"IsEXPSlotSupport", "0", put<&s_AuxScreenConfigs::IsEXPSlotSupport>},
};

constexpr Attribute<s_AuxScreenConfig> kAuxPositionAttributes[] = {
    {"ConnectorIndex", "255", put<&s_AuxScreenConfig::ConnectorIndex>},
    {"SlotIndex", "255", put<&s_AuxScreenConfig::SlotIndex>},
};

constexpr Attribute<s_EchoVideoConfig> kEchoVideoAttributes[] = {
    {"PCVideoType", "0", put<&s_EchoVideoConfig::PCVideoSourceType>},
    {"ECVideoType", "0", put<&s_EchoVideoConfig::ECVideoSourceType>},
    {"RemotePort", "0", put<&s_EchoVideoConfig::RemotePort>},
    {"SlotIndex", "0", put<&s_EchoVideoConfig::SlotIndex>},
    {"ConnectorIndex", "0", put<&s_EchoVideoConfig::ConnectorIndex>},
    {"FPS", "15", put<&s_EchoVideoConfig::FPS>},
};

constexpr Attribute<s_InputConfig> kInputAttributes[] = {
    {"IsSupportCutout", "0", put<&s_InputConfig::IsSupportCutout>},
    {"IsSupportHDCP", "0", put<&s_InputConfig::IsSupportHDCP>},
};

constexpr Attribute<s_MvrLayerConfig> kMvrLayerAttributes[] = {
    {"AntishakeOffset", "0", put<&s_MvrLayerConfig::AntishakeOffset>},
};

constexpr Attribute<s_OutputConfig> kOutputAttributes[] = {
    {"IsSupportVPU", "0", put<&s_OutputConfig::IsSupportVPU>},
    {"IsSupportAOI", "0", put<&s_OutputConfig::IsSupportAOI>},
    {"IsSupportHDCP", "0", put<&s_OutputConfig::IsSupportHDCP>},
};

constexpr Attribute<s_TimeOutConfig> kTimeOutAttributes[] = {
    {Constants::BASE_CODE, "0", put<&s_TimeOutConfig::BaseCode>},
    {Constants::FUNCTION_CODE, "0", put<&s_TimeOutConfig::FunctionCode>},
};

/// An element that is read into a record within the device's: attributes alone.
template <auto Member, const auto &Rows>
bool attributes(s_DeviceConfig &config, const QDomElement &element, Context &) {
    readAttributes(config.*Member, element, Rows);
    return true;
}

bool readModel(s_DeviceConfig &config, const QDomElement &element, Context &) {
    config.ModelID = fromText<quint16>(element.text());
    readAttributes(config, element, kModelAttributes);
    return true;
}

bool readSections(s_DeviceConfig &config, const QDomElement &element, Context &) {
    return forEachChild(element, [&](const QDomElement &child) {
        s_UpgradeCfg section;
        readAttributes(section, child, kSectionAttributes);
        config.upgradeCfgs.append(section);
        return true;
    });
}

bool readUpgradeVersions(s_DeviceConfig &config, const QDomElement &element, Context &) {
    return forEachChild(element, [&](const QDomElement &child) {
        config.UpgradeVersions.insert(child.attribute(QStringLiteral("Version")),
                                      attribute<unsigned char>(child, "Type"));
        return true;
    });
}

template <auto Append>
bool readCards(s_DeviceConfig &config, const QDomElement &element, Context &context) {
    return forEachChild(element, [&](const QDomElement &child) {
        s_SubCardConfig card;
        readAttributes(card, child, kCardAttributes);
        const QDomElement name = child.firstChildElement(QStringLiteral("Name"));
        if (name.isNull()) {
            context.errMsg = invalidNode("Name");
            return false;
        }
        card.m_LanguageForName = readNames(name);
        (config.*Append)(card);
        return true;
    });
}

template <const auto &SlotRows, auto Append>
bool readSlots(s_DeviceConfig &config, const QDomElement &element, Context &context) {
    readAttributes(config, element, SlotRows);
    return readCards<Append>(config, element, context);
}

bool readMainScreens(s_DeviceConfig &config, const QDomElement &element, Context &) {
    readAttributes(config.MainScreenCfg, element, kMainScreenAttributes);
    const QDomElement layer = element.firstChildElement(QStringLiteral("Layer"));
    if (!layer.isNull())
        readAttributes(config.MainScreenCfg.MainLayerCfg, layer, kMainLayerAttributes);
    return true;
}

bool readMvrScreens(s_DeviceConfig &config, const QDomElement &element, Context &) {
    readAttributes(config.MVRScreensCfg, element, kMvrScreensAttributes);
    return forEachChild(element, [&](const QDomElement &child) {
        s_MVRScreenConfig position;
        readAttributes(position, child, kMvrPositionAttributes);
        config.MVRScreensCfg.appendMVRScreenConfig(position);
        return true;
    });
}

bool readAuxScreens(s_DeviceConfig &config, const QDomElement &element, Context &) {
    readAttributes(config.AuxSceensCfg, element, kAuxScreensAttributes);
    return forEachChild(element, [&](const QDomElement &child) {
        s_AuxScreenConfig position;
        readAttributes(position, child, kAuxPositionAttributes);
        config.AuxSceensCfg.appendAuxScreenConfig(position);
        return true;
    });
}

constexpr Child kScreensChildren[] = {
    {"MainScreens", Presence::Required, readMainScreens},
    {"MvrScreens", Presence::Required, readMvrScreens},
    {"AuxScreens", Presence::Required, readAuxScreens},
};

bool readScreens(s_DeviceConfig &config, const QDomElement &element, Context &context) {
    return readChildren(config, element, context, kScreensChildren);
}

/// Read in this order, which decides the reason that a file with several mistakes gives.
constexpr Child kDeviceChildren[] = {
    {"ModelID", Presence::Required, readModel},
    {"BackplaneModelId", Presence::Required, text<&s_DeviceConfig::BackplaneModelId>},
    {"Sections", Presence::Optional, readSections},
    {"UpgradeVersions", Presence::Optional, readUpgradeVersions},
    {"SubCardDirection", Presence::Optional, text<&s_DeviceConfig::SubCardDirection>},
    {"InputCards", Presence::Required, readSlots<kInputSlotAttributes, &s_DeviceConfig::appendInputCards>},
    {"OutputCards", Presence::Required, readSlots<kOutputSlotAttributes, &s_DeviceConfig::appendOutputCards>},
    {"ExpCards", Presence::Optional, readSlots<kExpSlotAttributes, &s_DeviceConfig::appendExpCards>},
    {"MvrCards", Presence::Optional, readCards<&s_DeviceConfig::appendMvrCards>},
    {"Screens", Presence::Required, readScreens},
    {"EchoVideo", Presence::Optional, attributes<&s_DeviceConfig::EchoVideoCfg, kEchoVideoAttributes>},
    {"Input", Presence::Optional, attributes<&s_DeviceConfig::InputCfg, kInputAttributes>},
    {"MvrLayer", Presence::Optional, attributes<&s_DeviceConfig::MvrLayerCfg, kMvrLayerAttributes>},
    {"Output", Presence::Optional, attributes<&s_DeviceConfig::OutputCfg, kOutputAttributes>},
};

/// Parses a file and checks its root.
bool open(const QByteArray &xml, QDomDocument &document, QString &errMsg) {
    ParseError error;
    if (!parse(xml, document, error)) {
        errMsg = DeviceConfigManager::tr("Parse error at line %1, column %2:\n%3")
                     .arg(QString::number(error.line), QString::number(error.column), error.text);
        return false;
    }
    const QDomElement root = document.documentElement();
    if (root.tagName() != QLatin1String("Quorix")) {
        errMsg = DeviceConfigManager::tr("The file is not a valid configuration file for device.");
        return false;
    }
    if (!isVersion1(root)) {
        errMsg = DeviceConfigManager::tr("The file is not a valid configuration file of version 1.0 for device.");
        return false;
    }
    return true;
}

} // namespace

bool DeviceConfigManager::readDeviceConfig(const QByteArray &xml, QString &errMsg) {
    QDomDocument document;
    if (!open(xml, document, errMsg))
        return false;
    const QDomElement root = document.documentElement();
    const QDomElement name = root.firstChildElement(QStringLiteral("Name"));
    const QDomElement english = name.firstChildElement(QLatin1String(Constants::LANGUAGE_EN));
    if (english.isNull()) {
        errMsg = invalidNode(Constants::LANGUAGE_EN);
        return false;
    }
    s_DeviceConfig config;
    config.Name = english.text();
    config.IconName = name.attribute(QStringLiteral("Icon"), config.Name);
    config.SlotCount = attribute<quint8>(name, "SlotCount");
    Context context{errMsg, config.Name};
    if (!readChildren(config, root, context, kDeviceChildren))
        return false;
    m_listDeviceConfig.append(config);
    return true;
}

bool DeviceConfigManager::readTimeOutConfig(const QByteArray &xml, const QString &fileName, QString &errMsg) {
    QDomDocument document;
    if (!open(xml, document, errMsg))
        return false;
    const QDomElement root = document.documentElement();
    Context context{errMsg, fileName};
    const QDomElement model = root.firstChildElement(QStringLiteral("ModelID"));
    if (model.isNull()) {
        context.missing("ModelID");
        return false;
    }
    const auto modelId = fromText<quint16>(model.text());
    DeviceConfig *config = findDeviceConfigByID(modelId);
    if (config == nullptr) {
        errMsg =
            tr("DeviceConfig Not Find ") + tr("From %1:%2").arg(QStringLiteral("ModelID"), QString::number(modelId));
        return false;
    }
    const QDomElement defaultTimeOut = root.firstChildElement(QLatin1String(Constants::DEFAULT_TIME_OUT));
    if (defaultTimeOut.isNull()) {
        context.missing(Constants::DEFAULT_TIME_OUT);
        return false;
    }
    config->DefaultTimeOut = fromText<std::uint32_t>(defaultTimeOut.text());
    return forEachChild(root.firstChildElement(QLatin1String(Constants::TIME_OUT)), [&](const QDomElement &child) {
        s_TimeOutConfig timeOut;
        readAttributes(timeOut, child, kTimeOutAttributes);
        timeOut.TimeOut = fromText<std::uint32_t>(child.text());
        config->Timeoutcfg.append(timeOut);
        return true;
    });
}

} // namespace Quorix::BizModel
