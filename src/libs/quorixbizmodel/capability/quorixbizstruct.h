/// Capability records of a device model: what its device file says about chassis, cards, screens and functions.
#ifndef QUORIXBIZSTRUCT_H
#define QUORIXBIZSTRUCT_H

#include <quorix_export.h>

#include <QList>
#include <QMap>
#include <QString>

#include <cstdint>

namespace Quorix::BizModel {

/// Order in which the slots follow each other on the rear panel.
enum class SubCardDirectionType : std::int32_t {
    FromTopToBottom = 0,
    FromBottomToTop = 1,
    FromLeftToRight = 2,
    FromRightToLeft = 3
};

/// Kind of the control processor.
enum class eCPUType : std::int32_t { MCU = 0, ARM = 1 };

/// Road that firmware takes to the device.
enum class eTransportType : std::int32_t { TCP_Register = 0, HTTP_Quorix = 1 };

/// Ways in which outputs may be joined to a screen; bits.
enum class eScreenSpliceMode : std::int32_t {
    StandardRectSplice = 2,
    StandardShapedSplice = 4,
    AnyShapedSplice = 8,
    ShapedSpliceAction = 12
};

/// A card that a slot range of the chassis accepts.
struct s_SubCardConfig {
    QMap<QString, QString> m_LanguageForName; ///< language key ("en", "zh_CN") to card name
    quint16 m_ModelID = 65535;                ///< 65535: not given
    bool m_bEnable = false;

    /// The name in the language of the application's property "quorix_locale", else the English one, else empty.
    /// A key that holds an empty text gives the empty text.
    QUORIX_EXPORT QString CardName() const;
};

/// A firmware section of a device or of a board.
struct s_UpgradeCfg {
    QString sectionName;
    quint8 type = 0;
    quint16 sectionCode = 0;
    quint16 compatibilityCode = 0;
    bool visible = true;
};

/// Time-out of one command of the device protocol, in the unit of `s_DeviceConfig::DefaultTimeOut`.
struct s_TimeOutConfig {
    std::uint16_t BaseCode = 0;
    std::uint16_t FunctionCode = 0;
    std::uint32_t TimeOut = 0;
};

/// Functions of the layers of main screens.
struct s_MainLayerConfig {
    bool IsSupportReverseColor = false;
    bool IsSupportMonoColor = false;
    bool IsSupportFlip = false;
    bool IsSupportMask = false;
    bool IsSupportIntercept = false;
    bool IsSupportFreeze = false;
    bool IsSupportBorder = false;
};

/// Limits and functions of main screens.
struct s_MainScreenConfigs {
    quint8 MaxScreenCount = 0;
    quint8 MaxLayerCount = 0;
    quint8 PGMLayerOffset = 0;
    bool IsSupportPGMFreeze = false;
    s_MainLayerConfig MainLayerCfg;
    bool IsSupportProjectionFusion = false;
    bool IsSupportVirtualScreen = false;
    bool IsSupportOutputZOrder = false;
    bool IsSupportIncompleteSplicing = false;
    eScreenSpliceMode ScreenSpliceMode = eScreenSpliceMode::ShapedSpliceAction;
};

/// Position of a multiviewer screen: an output connector of a slot.
struct s_MVRScreenConfig {
    quint8 ConnectorIndex = 255;
    quint8 SlotIndex = 255;
    bool operator==(const s_MVRScreenConfig &) const = default;
};

/// Position of an AUX screen: an output connector of a slot.
struct s_AuxScreenConfig {
    quint8 ConnectorIndex = 255;
    quint8 SlotIndex = 255;
    bool operator==(const s_AuxScreenConfig &) const = default;
};

/// Slots and functions of multiviewer screens.
struct s_MVRScreenConfigs {
    enum class eOpenState : std::int32_t { Closed = 0, SoftAutoOpened = 1, HardAutoOpened = 2, OpenStateCnt = 3 };

    quint8 SlotCount = 0;
    quint8 StartSlotIndex = 255; ///< 255: no slots
    bool IsSupport = false;
    eOpenState OpenState = eOpenState::Closed;
    bool IsManualSwitch = false;
    bool IsSupportProjectionFusion = false;
    bool IsSupportIncompleteSplicing = false;
    eScreenSpliceMode ScreenSpliceMode = eScreenSpliceMode::StandardRectSplice;
    QList<s_MVRScreenConfig> mvrScreenCfgs;

    const QList<s_MVRScreenConfig> &mvrScreenConfigs() const { return mvrScreenCfgs; }
    /// Adds a position; one that stands already is dropped with a log line.
    QUORIX_EXPORT void appendMVRScreenConfig(const s_MVRScreenConfig &config);
};

/// Slots, limits and functions of AUX screens.
struct s_AuxScreenConfigs {
    enum class eOpenState : std::int32_t { Closed = 0, SoftAutoOpened = 1, HardAutoOpened = 2, OpenStateCnt = 3 };

    quint8 SlotCount = 0;
    quint8 StartSlotIndex = 255; ///< 255: no slots
    bool IsSupport = false;
    eOpenState OpenState = eOpenState::Closed;
    bool IsManualSwitch = false;
    bool IsSupportProjectionFusion = false;
    bool IsSupportVirtualScreen = false;
    bool IsSupportIncompleteSplicing = false;
    bool IsEXPSlotSupport = false;
    eScreenSpliceMode ScreenSpliceMode = eScreenSpliceMode::StandardShapedSplice;
    quint8 MaxAUXScreenCount = 0;
    quint8 MaxAUXLayerCount = 0;
    QList<s_AuxScreenConfig> auxScreenCfgs;

    const QList<s_AuxScreenConfig> &auxScreenConfigs() const { return auxScreenCfgs; }
    /// Adds a position; one that stands already is dropped with a log line.
    QUORIX_EXPORT void appendAuxScreenConfig(const s_AuxScreenConfig &config);
};

/// The echo video of a device: where it enters and how it is fetched.
struct s_EchoVideoConfig {
    enum class eVideoSourceType : std::int32_t {
        Invalid = 0,
        LocalDVI = 1,
        LocalFile = 2,
        LocalTCP = 3,
        RemoteTCP = 4
    };

    quint16 RemotePort = 0;
    eVideoSourceType ECVideoSourceType = eVideoSourceType::Invalid;
    eVideoSourceType PCVideoSourceType = eVideoSourceType::Invalid;
    quint8 ConnectorIndex = 255;
    quint8 SlotIndex = 255;
    QString VideoSourcePath; ///< has no source in the device file
    quint8 FPS = 15;         ///< frames per second
};

/// Functions of inputs.
struct s_InputConfig {
    bool IsSupportCutout = true;
    bool IsSupportHDCP = false;
};

/// Functions of outputs.
struct s_OutputConfig {
    bool IsSupportVPU = true;
    bool IsSupportAOI = false;
    bool IsSupportHDCP = false;
};

/// Options of multiviewer layers.
struct s_MvrLayerConfig {
    int AntishakeOffset = 0;
};

using MainLayerConfig = s_MainLayerConfig;
using MainScreenConfigs = s_MainScreenConfigs;
using MVRScreenConfig = s_MVRScreenConfig;
using MVRScreenConfigs = s_MVRScreenConfigs;
using AuxScreenConfig = s_AuxScreenConfig;
using AuxScreenConfigs = s_AuxScreenConfigs;
using EchoVideoConfig = s_EchoVideoConfig;
using InputConfig = s_InputConfig;
using OutputConfig = s_OutputConfig;
using MvrLayerConfig = s_MvrLayerConfig;

/// What a device model is and can do. A default record stands for a model that no device file describes.
/// A slot range runs from its start index up to, and without, start plus count; a start of 255 means no such slots.
struct s_DeviceConfig {
    QString Name;            ///< English model name
    QString IconName;        ///< icon key; the name when the file gives none
    quint16 ModelID = 65535; ///< a value of Enum::Device::Type
    quint16 BackplaneModelId = 65535;
    SubCardDirectionType SubCardDirection = SubCardDirectionType::FromTopToBottom;
    MVRScreenConfigs MVRScreensCfg;
    AuxScreenConfigs AuxSceensCfg;
    MainScreenConfigs MainScreenCfg;
    quint8 SlotCount = 0;
    quint8 InputSlotStartIndex = 255;
    quint8 InputSlotCount = 0;
    quint8 OutputSlotStartIndex = 255;
    quint8 OutputSlotCount = 0;
    quint8 ExpSlotStartIndex = 255;
    quint8 ExpSlotCount = 0;
    quint8 AuxSlotStartIndex = 255; ///< has no source in the device file, like its count
    quint8 AuxSlotCount = 0;
    quint8 MaxConnectorCountOfSingleCard = 4;
    EchoVideoConfig EchoVideoCfg;
    InputConfig InputCfg;
    OutputConfig OutputCfg;
    MvrLayerConfig MvrLayerCfg;
    bool IsSupportCancelProcess = true; ///< false after the read of a file that doesn't give it
    bool IsSupportSoftShutdown = false;
    bool IsSupportSoftRestart = false;
    bool IsSupportFactoryResetAutoRestart = false;
    bool IsSupportDeviceSelfTest = false;
    bool IsSupportProjectFile = false;
    bool IsSupportEDIDImportExport = false;
    bool IsSupportPresetLoadToPGM = false;
    bool ProjectFileType = false;
    bool IsSupportPeripheral = false;
    bool IsSupportCutFill = false;
    bool IsRestoreKeepUserData = false;
    eTransportType UpgradeType = eTransportType::TCP_Register;
    eCPUType CPUType = eCPUType::MCU;
    int EthernetType = 0;
    quint16 MaxPresetCount = 240;
    QList<s_UpgradeCfg> upgradeCfgs;
    QList<s_TimeOutConfig> Timeoutcfg;
    std::uint32_t DefaultTimeOut = 10000;         ///< time-out of every command that `Timeoutcfg` doesn't name
    QMap<QString, unsigned char> UpgradeVersions; ///< firmware version to type byte
    QList<s_SubCardConfig> inputCards;
    QList<s_SubCardConfig> outputCards;
    QList<s_SubCardConfig> expCards;
    QList<s_SubCardConfig> auxCards; ///< has no source in the device file
    QList<s_SubCardConfig> mvrCards;

    /// Each adds a card to its list; a model id that stands there already is dropped with a log line.
    QUORIX_EXPORT void appendInputCards(const s_SubCardConfig &card);
    QUORIX_EXPORT void appendOutputCards(const s_SubCardConfig &card);
    QUORIX_EXPORT void appendExpCards(const s_SubCardConfig &card);
    QUORIX_EXPORT void appendAuxCards(const s_SubCardConfig &card);
    QUORIX_EXPORT void appendMvrCards(const s_SubCardConfig &card);

    const QList<s_SubCardConfig> &InputCards() const { return inputCards; }
    const QList<s_SubCardConfig> &OutputCards() const { return outputCards; }
    const QList<s_SubCardConfig> &ExpCards() const { return expCards; }
    const QList<s_SubCardConfig> &AuxCards() const { return auxCards; }
    const QList<s_SubCardConfig> &MvrCards() const { return mvrCards; }

    /// The first card of @p list with that model id, a pointer into the list; null if none has it.
    QUORIX_EXPORT static const s_SubCardConfig *findSubCardByModelId(const QList<s_SubCardConfig> &list,
                                                                     quint16 modelId);

    /// Name of the first firmware section with that code; empty if none has it.
    QUORIX_EXPORT QString findSectionNameByCode(int code) const;
    /// Code of the first firmware section with that name; -1 if none has it.
    QUORIX_EXPORT int findCodeBySectionName(const QString &sectionName) const;
    /// Time-out of a command; `DefaultTimeOut` for one that has none of its own.
    QUORIX_EXPORT std::uint32_t findTimeOutByBcAndFc(int baseCode, int functionCode) const;
};

using DeviceConfig = s_DeviceConfig;

} // namespace Quorix::BizModel

#endif
