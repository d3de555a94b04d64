/// What every connector type can carry and how each card lays out its ports, read from the interface capability file.
#ifndef QUORIXBIZMODEL_INTERFACECONFIG_H
#define QUORIXBIZMODEL_INTERFACECONFIG_H

#include <quorix_export.h>
#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixprotomodel/device.h>

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QSize>
#include <QString>
#include <QVector>

#include <atomic>
#include <cstdint>
#include <mutex>

namespace Quorix::BizModel {

/// Process-wide tree of connector types and cards. The application calls readConfig() once, before it makes a device;
/// later the tree is read only. It has no lock: any thread may ask once the read is over.
///
/// Cards keep their addresses until destroyInstance(). The lists of connector types and cards are not sharable:
/// copying one copies its records. Sizes are in pixels, refresh rates in hertz, bandwidths in pixels per second.
///
/// A card has a tree of alternative layouts: capacity groups, in each capacities, in each connector groups, in each
/// connectors by position. The direction of a question is an InterfaceType; `Input` asks the file's entries for
/// inputs, every other value those for outputs.
class QUORIX_EXPORT InterfaceConfig : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(InterfaceConfig)

public:
    using ConnectorType = Enum::Interface::ConnectorType;
    using InterfaceType = Enum::Interface::InterfaceType;
    using CapacityMode = Enum::Interface::CapacityMode;

    enum class SignalType : std::int32_t { Unknown = 0, DigitalSignal = 1, AnalogSignal = 2, SignalTypeCnt = 3 };

    /// Capacities that a timing holds for; bits, compared as a threshold.
    enum class CapacitySupportResolution : std::int32_t { None = 0, _SL = 1, _DL = 2, _4K = 4, SLToDL = 3, SLTo4K = 7 };

    /// An HDCP version that a connector offers.
    struct s_HDCPType {
        int hdcpType = 0; ///< a value of Enum::Interface::HDCPType
        QString nameOnMaxCapacity;
    };

    /// HDCP of a connector type in one direction.
    struct s_CardAttribute {
        int cardType = 0; ///< a value of Enum::Interface::ConfigInterfaceType
        bool HDCPSwitch = false;
        int currentHDCP = 0; ///< a value of Enum::Interface::HDCPType, as is the next
        int currentHDCPOnMaxCapacity = 0;
        QList<s_HDCPType> m_listPredefinedHDCPType;
    };

    /// Whether a connector type carries HDR in one direction at one capacity.
    struct s_HDRBodyAttribute {
        int cardType = 1;
        int capacityMode = 255;
        bool isSupportHDR = false;
    };

    /// Limits of a connector type at one capacity.
    struct s_ConnectorCapacity {
        int capacity = 0; ///< a value of Enum::Interface::CapacityMode
        int step = 0;     ///< horizontal step of resolutions
        quint32 maxBandwidth = 0;
        quint32 minBandwidth = 0;
        QSize sizeDefaultResolution{0, 0};
        float defaultRefreshRate = 0.0F;
        QSize sizeMaxResolution{0, 0};
        float maxRefreshRate = 0.0F;
        QSize sizeMinResolution{0, 0};
        float minRefreshRate = 0.0F;
    };

    /// Limits of a connector type in one direction.
    struct s_ConnectorCapacityMode {
        int cardType = 0;
        QList<s_ConnectorCapacity> m_listConnectorCapacity;
    };

    /// A standard timing that a connector type offers.
    struct s_VESAResolutionRatio {
        QSize PixelFormat{0, 0};
        float RefreshRate = 0.0F;
        QString SymbolName;
        int iCardType = 0; ///< 0 both directions, else a value of Enum::Interface::ConfigInterfaceType
        int iCapacity = 0; ///< a capacity offers the timing if its CapacitySupportResolution is not less
        int iInterlaced = 0;
        int iFormatMapping = 0; ///< a value of Enum::Interface::FormatMapping
    };

    struct s_ResolutionRangeInfo {
        QSize m_sizeMaxResolution{0, 0};
        float m_fMaxRefreshRate = 0.0F;
        QSize m_sizeMinResolution{0, 0};
        float m_fMinRefreshRate = 0.0F;
    };

    /// A connector type.
    struct s_ConnectorInfo {
        QString m_strName;
        QString m_strShortName;
        ConnectorType m_eType = ConnectorType::INVALID;
        SignalType m_eSignalType = SignalType::Unknown;
        QList<s_CardAttribute> m_listCardSort;
        QList<s_HDRBodyAttribute> m_listHDR;
        QList<s_ConnectorCapacityMode> m_listCapacityMode;
        int m_colorSpace = 0; ///< a value of Enum::Interface::ColorSpace
        int m_colorDepth = 8; ///< bits
        QSize m_sizeDefaultResolution{0, 0};
        float m_fDefaultRefreshRate = 0.0F;
        QSize m_sizeMaxResolution{0, 0}; ///< range of inputs
        float m_fMaxRefreshRate = 0.0F;
        QSize m_sizeMinResolution{0, 0};
        float m_fMinRefreshRate = 0.0F;
        quint32 m_nMaxBandwidth = 0;
        quint32 m_nMinBandwidth = 0;
        quint32 m_index = 0; ///< position on a card, in the records of s_SubCard::getPostionForConnectorInfo() alone
        QList<s_VESAResolutionRatio> m_listPredefinedResolutionRatio;
        QString m_strIconName;
        QSize m_sizeMaxOutResolution{0, 0}; ///< range of outputs
        float m_fMaxOutRefreshRate = 0.0F;
        QSize m_sizeMinOutResolution{0, 0};
        float m_fMinOutRefreshRate = 0.0F;
    };

    /// A connector at a position of a layout.
    struct s_CardConnector {
        ProtoModel::Device::s_Connectors Connector; ///< id: the position; the copy id has no source in the file
        bool Enable = true;
        quint8 BackupPos = 255; ///< position of the hot-backup partner
        quint32 Margin = 0;     ///< spacing on the drawing of the rear panel
        bool Signal = false;
        int Status = 0;
        int PrintKeyNo = -1; ///< number printed on the rear panel; the position unless the file says otherwise
        bool Visible = true;
        QString NameOnMaxCapacity;
        int OriginType = -1;   ///< connector type that the position had originally
        int Step = -1;         ///< stands for the step of the capacity record when set
        quint8 ValueGroup = 0; ///< value of the enclosing capacity group
    };

    struct s_ConnectorGroup {
        QString Name;
        quint8 Value = 0;
        bool Enable = false;
        QMap<unsigned char, s_CardConnector> CardConnectors; ///< by position
    };

    struct s_Capacity {
        QString Name;
        quint8 Value = 0;
        bool Enable = false;
        QMap<unsigned char, s_ConnectorGroup> ConnectorGroups; ///< by value
    };

    struct s_CapacityGroup {
        quint8 Value = 0;
        quint16 SeparatorMargin = 0;
        QMap<unsigned char, s_Capacity> Capacitys; ///< by value
    };

    /// A card: its functions and its layouts.
    struct QUORIX_EXPORT s_SubCard {
        QMap<QString, QString> m_LanguageForName; ///< language key to card name
        quint32 m_ModelID = 65535;
        bool m_bEnable = false;
        bool m_isSupportOverLoad = false;
        bool m_bSupportCustomEdid = true;
        bool m_bSupportColorSpace = true;
        bool m_bSupportColorDepth = true;
        bool m_bSupportCopyMode = false;
        bool m_bSupportCapacityDownward = true;
        bool m_bSupportFormatMapping = true;
        Enum::CapacitySwitchMode m_capacitySwitchMode = Enum::CapacitySwitchMode::Connector;
        QVector<s_CapacityGroup> CapacityGroups;                ///< by ascending SeparatorMargin
        QMap<unsigned char, QList<s_UpgradeCfg>> m_upgradeCfgs; ///< firmware sections by board id

        /// The name in @p language, else the English one, else empty. An empty language means the application's
        /// property "quorix_locale"; a key that holds an empty text gives the empty text.
        QString CardName(const QString &language) const;
        /// The connectors of all enabled capacities and connector groups by position; later ones win.
        QMap<unsigned char, s_CardConnector> getCardConnector() const;
        /// The types of those connectors by position, with m_index set; a connector of an unknown type adds nothing.
        QMap<unsigned char, s_ConnectorInfo> getPostionForConnectorInfo() const;
    };

    struct s_InputCard : s_SubCard {};
    struct s_OutputCard : s_SubCard {};
    struct s_ExpCard : s_SubCard {};
    struct s_AuxCard : s_SubCard {};

    using HDCPType = s_HDCPType;
    using CardAttribute = s_CardAttribute;
    using HDRBodyAttribute = s_HDRBodyAttribute;
    using ConnectorCapacity = s_ConnectorCapacity;
    using ConnectorCapacityMode = s_ConnectorCapacityMode;
    using VESAResolutionRatio = s_VESAResolutionRatio;
    using ResolutionRangeInfo = s_ResolutionRangeInfo;
    using ConnectorInfo = s_ConnectorInfo;
    using CardConnector = s_CardConnector;
    using ConnectorGroup = s_ConnectorGroup;
    using Capacity = s_Capacity;
    using CapacityGroup = s_CapacityGroup;
    using SubCard = s_SubCard;
    using InputCard = s_InputCard;
    using OutputCard = s_OutputCard;
    using ExpCard = s_ExpCard;
    using AuxCard = s_AuxCard;

    /// The one tree, made at the first call. May be called from any thread.
    static InterfaceConfig *instance();
    /// Destroys the tree; every pointer into it dangles.
    static void destroyInstance();

    // Reading (interfaceconfigreader.cpp)

    /// Reads the file @p cfgFullPath; adds to what is there already.
    /// @return false at the first failure, with the reason in @p errMsg; what was read before stays. A mistake in the
    /// timings of a connector type doesn't fail the read: it ends that list and leaves its reason in @p errMsg.
    bool readConfig(const QString &cfgFullPath, QString &errMsg);
    /// Reads the file's content; part of readConfig().
    bool readConfigData(const QByteArray &xml, QString &errMsg);

    const QList<s_ConnectorInfo> &connectorInfos() const { return m_listConnectorInfo; }
    const QList<s_InputCard> &getInputCards() const { return m_listInputCard; }
    const QList<s_OutputCard> &getOutputCards() const { return m_listOutputCard; }
    const QList<s_ExpCard> &getExpCards() const { return m_listExpCard; }
    const QList<s_AuxCard> &getAuxCards() const { return m_listAuxCard; }
    /// All cards, in the order in which they were read: input, output, expansion, AUX cards of a file.
    const QList<s_SubCard *> &getSubCards() const { return m_listSubCard; }

    // Questions about a card, by its model id (interfaceconfig_cards.cpp)

    /// The first card with that id, null if there is none. Treat it as read only.
    SubCard *findSubCardByModelId(const quint16 &nSubCardModelId) const;

    /// Functions of a card; false for one that isn't there.
    bool isSupportOverLoad(const quint16 &nSubCardModelId) const;
    bool isSupportCustomEdid(const quint16 &nSubCardModelId) const;
    bool IsSupportColorSpace(const quint16 &nSubCardModelId) const;
    bool IsSupportColorDepth(const quint16 &nSubCardModelId) const;
    bool IsSupportCopyMode(const quint16 &nSubCardModelId) const;
    bool IsSupportCapacityDownward(const quint16 &nSubCardModelId) const;
    bool IsSupportFormatMapping(const quint16 &nSubCardModelId) const;
    /// `Connector` for a card that isn't there.
    Enum::CapacitySwitchMode capacitySwitchMode(const quint16 &nSubCardModelId) const;

    /// Questions about the first connector at position @p connectorId under the capacity @p capacityType, whether
    /// enabled or not. The first three take only a connector whose own capacity is @p capacityType.
    /// @return -1, empty or false if there is none
    int connectorBackupPos(const quint16 &nSubCardModelId, int capacityType, int connectorId) const;
    int connectorOriginType(const quint16 &nSubCardModelId, int capacityType, int connectorId) const;
    QString connectorNameOnMaxCapacity(const quint16 &nSubCardModelId, int capacityType, int connectorId) const;
    bool connectors(const quint16 &nSubCardModelId, int capacityType, int connectorId,
                    ProtoModel::Device::s_Connectors &connector) const;

    /// The card's layouts; empty for a card that isn't there.
    QVector<s_CapacityGroup> getCapacityGroup(const quint16 &nSubCardModelId) const;
    /// The capacities of all groups of that value; the first stands at an equal key.
    QMap<unsigned char, s_Capacity> getSubCardCapacitys(const quint16 &nSubCardModelId, int capacityGroupValue) const;
    QMap<unsigned char, s_ConnectorGroup> getSubCardConnectorGroup(const quint16 &nSubCardModelId,
                                                                   int capacityGroupValue, int capacity) const;
    QMap<unsigned char, s_CardConnector> getSubCardCardConnectors(const quint16 &nSubCardModelId, int capacityGroup,
                                                                  int capacity, int connectorGroup) const;
    /// The capacity under which the position has a connector of capacity @p connectorCapacity; 255 if there is none.
    quint8 getSubCardCapacity(const quint16 &nSubCardModelId, int capacityGroupValue, int connectorCapacity,
                              const quint8 &connectorIndex) const;
    /// The connector group of the same connector; 0 if there is none.
    quint8 getSubCardConnectorGroup(const quint16 &nSubCardModelId, int capacityGroupValue, int connectorCapacity,
                                    const quint8 &connectorIndex) const;
    /// Name of the first capacity of that value; empty if there is none.
    QString getCapacityStr(const quint16 &nSubCardModelId, int capValue) const;
    /// Name of the first connector group of that value; empty if there is none.
    QString getConnectorGroupStr(const quint16 &nSubCardModelId, int connectorGroupValue) const;
    /// The first connector with the id, type and capacity of @p protoCardConnector.
    /// @return false, and @p connectorInfo untouched, if there is none
    bool CardConnectorInfo(const quint16 &nSubCardModelId, const ProtoModel::Device::s_Connectors &protoCardConnector,
                           CardConnector &connectorInfo) const;

    /// What a user interface offers to choose; false for a card that isn't there.
    bool isShowConnectorCapacity(const quint16 &nSubCardModelId) const;
    bool isShowConnectorGroup(const quint16 &nSubCardModelId) const;
    bool isSubCardSwitch(const quint16 &nSubCardModelId) const;

    /// Firmware sections of a card's board. One board's list answers for every board id; of several lists the lowest
    /// board's answers for an id that has none.
    QString findSectionNameByCode(int modelId, int code, int boardId) const;
    /// -1 if no section has that name.
    int findCodeBySectionName(int modelId, const QString &sectionName, int boardId) const;
    QList<s_UpgradeCfg> findUpgradeCfgByBoardId(int modelId, int boardId) const;

    // Questions about a connector type (interfaceconfig_connectors.cpp)

    /// The connector type, with the timings of that direction and capacity alone.
    /// @return false if the type isn't there
    bool findConnectorInfo(CapacityMode capacityMode, InterfaceType cardtype, ConnectorType type,
                           ConnectorInfo &connectorInfo_out) const;
    /// The limits of a connector type in that direction and at that capacity.
    /// @return false if there are none
    bool findConnectorCapacity(CapacityMode capacity, InterfaceType cardtype, ConnectorType type,
                               ConnectorCapacity &connectorCapacity_out) const;
    bool isSupportHDR(InterfaceType cardtype, ConnectorType type, Enum::Interface::CapacityMode capacityMode) const;

private:
    class Reader;

    InterfaceConfig();
    ~InterfaceConfig() override = default;

    const s_ConnectorInfo *connectorInfo(ConnectorType type) const;

    static std::atomic<InterfaceConfig *> m_pInstance;
    static std::mutex m_muInterfaceConfig; ///< guards the making and destroying of m_pInstance

    QList<s_ConnectorInfo> m_listConnectorInfo; ///< never sharable, as are the four lists of cards
    QList<s_InputCard> m_listInputCard;
    QList<s_OutputCard> m_listOutputCard;
    QList<s_ExpCard> m_listExpCard;
    QList<s_AuxCard> m_listAuxCard;
    QList<s_SubCard *> m_listSubCard; ///< points into the four lists of cards
};

} // namespace Quorix::BizModel

#endif
