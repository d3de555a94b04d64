/// The mirror of one processor: everything that it has and reports, for as long as the application knows it.
#ifndef QUORIXBIZMODEL_DEVICE_H
#define QUORIXBIZMODEL_DEVICE_H

#include <quorix_export.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/guards.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixprotomodel/auxiliary.h>
#include <quorixprotomodel/device.h>
#include <quorixprotomodel/devicebaseinfo.h>
#include <quorixprotomodel/interface.h>
#include <quorixprotomodel/screen.h>

#include <QGraphicsView>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>

#include <atomic>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace Quorix::BizModel {

struct s_DeviceConfig;
using DeviceConfig = s_DeviceConfig;

/// One processor: its identity and status, and the owner of its cards, inputs, outputs, screens and files. Always held
/// by a shared pointer; DeviceList relays its signals.
///
/// Threads. A device lives on the thread of the QCoreApplication. Whatever has a lock may be called from any thread;
/// the rest belongs to that thread, as the fields below say. No lock is held when a signal goes out, so a slot may call
/// back into the device; all locks are non-recursive.
///
/// Capability. Accessors that read the capability record give 0, false or an empty text for a device without one (model
/// id 65535), unless they say otherwise.
class QUORIX_EXPORT Device : public QObject, public std::enable_shared_from_this<Device> {
    Q_OBJECT

public:
    /// Makes an empty, offline device of a model and looks its capability record up. @p parent isn't used: shared
    /// references own a device.
    explicit Device(quint16 modelId, QObject *parent = nullptr);
    ~Device() override;
    Q_DISABLE_COPY_MOVE(Device)

    // Construction and configuration (device.cpp)

    /// Finds the capability record of the model id, or makes a default one; there is none for 65535.
    void initDeviceConfig();
    /// Requires: there is a record.
    [[nodiscard]] const DeviceConfig &deviceConfig() const { return *m_pDeviceConfig; }
    [[nodiscard]] DeviceConfig &deviceConfig() { return *m_pDeviceConfig; }
    [[nodiscard]] quint16 modelId() const;
    /// Another id empties the device, as clearAll(false) does, and changes the capability record.
    void setModelId(quint16 id);
    QString typeString();
    [[nodiscard]] QString typeName() const;

    // Identity (device.cpp)

    QString name();
    void setName(const QString &name);
    /// Serial number, 16 upper-case hexadecimal digits.
    QString sn();
    /// MAC address, 12 upper-case hexadecimal digits.
    QString MAC();
    /// Of the first network port; empty without one.
    QString IPAddress();
    QString gateWay();
    QString netMask();
    /// These make the first network port if there is none, and always signal. The first keeps the old address.
    void setIPAddress(const QString &ip);
    void setGateWay(const QString &gateway);
    void setNetMask(const QString &mask);
    /// Address, MAC and serial number joined by "_".
    QString ipMacSn();
    /// The same with the address before the last change.
    QString preIPMacSn();
    void setPreDeviceIPAddress(const QString &ip);
    QString preDeviceIPAddress();
    /// "N/A" if it isn't known.
    QString mainControlVersion();
    uint16_t localCtrlPort();
    uint16_t tcpProtocolVersion();
    uint16_t udpProtocolVersion();
    /// Bytes.
    uint32_t maxDataLengthPerPacket();
    QString localIp();
    /// Empty while the device is offline.
    std::list<ProtoModel::DeviceClientInfo> clientControlList();
    /// True if this client is the master of the device.
    bool isMasterControl();
    void updateDeviceBaseInfo(ProtoModel::DeviceBaseInfo info);
    /// A line for lists of devices; empty without a network port.
    QString deviceInfo();

    // Status (device_status.cpp)

    /// Going offline resets progress and genlock signal first; signalOnlineChanged is the last signal.
    void setDeviceOnlineFlag(const bool &bIsOnline);
    [[nodiscard]] bool onlineFlag() const;
    void setOperationStatus(Enum::Device::OperationStatus status);
    Enum::Device::OperationStatus operationStatus();
    void setDeviceTotalProcess(int process);
    int deviceTotalProgress();
    void setDeviceLoadFileTotalNum(int number);
    int loadFileTotalNum();
    void setCurrentLoadIndex(int index);
    int currentLoadIndex();
    /// Brackets of a take. False if an online device is taking already, or isn't; an offline one always agrees.
    bool startTake();
    bool endTake();
    bool isTaking();
    bool isSyncDataSuccess();
    void setSyncDataSuccess(bool isSuccess);
    bool autoSyncDataEnabled();
    void setAutoSyncDataEnabled(bool isEnabled);
    bool isDeviceUpgrading();
    void setIsDeviceUpgrading(bool isUpgrading);
    bool isNeedRepaintPreset();
    void setIsNeedRepaintPreset(bool isNeeded);
    bool isMultiScreens();
    void setMultiScreens(bool isMultiple);
    void setLayerScreenViewDragMode(QGraphicsView::DragMode mode);
    QGraphicsView::DragMode layerScreenViewDragMode();
    Enum::Device::DevicResetOrder deviceResetOrder();
    void restoreDefLayout();

    // Capability (device_capability.cpp)

    [[nodiscard]] quint8 maxRegulerLayerCnt() const;
    [[nodiscard]] quint8 maxAUXLayerCnt() const;
    /// @param type mask of Enum::Screen::ScreenType; sums wrap at 8 bits.
    [[nodiscard]] quint8 maxLayerCnt(int type) const;
    [[nodiscard]] quint8 maxScreenCnt(int type) const;
    [[nodiscard]] int maxAuxOutputCount() const;
    [[nodiscard]] int maxAuxScreenCount() const;
    int maxMainOutputCount();
    /// 240 without a record.
    [[nodiscard]] uint16_t maxPresetCount() const;
    int subcardMaxResources();
    int subcardResources(Enum::Device::CardType type);
    int subcardResources(int type);
    bool isScreenLimited(Enum::Screen::ScreenType type);
    /// True without a record.
    bool isLayerLimited(Enum::Layer::SceneType scene);
    bool mvrEnabled();
    /// True if there is at least one MVR screen.
    bool isOpenedMVR();
    /// Name of a slot, from 0.
    QString subCardDescription(int position, bool isOpenedMVR);

    // Cards (device_cards.cpp): the records, which are the truth about identity and status, and the live objects.
    // No slot or connector that isn't there is an error: what can't be found changes nothing.

    /// All cards by slot.
    QList<std::weak_ptr<Subcard>> subcards();
    std::weak_ptr<Subcard> slot(const uint8_t &slotId);
    std::weak_ptr<Subcard> findSubcardBySlotId(const uint8_t &slotId);
    bool isExistSlot(int slotId);
    /// A pointer into the record that any report replaces. Requires: no report is under way. protoSlot() gives a copy.
    ProtoModel::Device::s_subcardBody *findSlotById(uint8_t slotId);
    /// Copies a record; false if there is none.
    bool protoSlot(const uint8_t &slotId, ProtoModel::Device::s_subcardBody &body);
    bool subcard(const ProtoModel::s_InterfaceID &interfaceId, ProtoModel::Device::s_subcardBody &body);
    QList<ProtoModel::Device::s_subcardBody> protoSubcards();
    bool containsSlot(const uint8_t &slotId);
    bool isOnline(const ProtoModel::s_InterfaceID &interfaceId);
    int onlineSubcardCount(Enum::Device::CardType cardType);
    /// Of the first connector of the record that has one; `invaild` if none has.
    Enum::Interface::CapacityMode subCardCapacity(uint8_t slotId);
    /// 0 without a record.
    int findSubcardBoardId(const uint8_t &slotId);
    QList<int> findSubcardBoardIdByModelId(int modelId);
    /// What a card model is in a slot: the slot decides, in the expansion range the list of AUX cards, too.
    Enum::Device::CardType cardType(const quint8 &nSubcardIndex, const quint16 &nSubcradModelId);
    /// What is wrong with a card, translated; empty for a normal one. @param onlineType Enum::Device::SlotStatusType
    static QString slotErrorDescription(const uint8_t &onlineType);

    /// A card object of this device, in no list yet.
    std::shared_ptr<Subcard> generalSubCard(quint8 nSlotIndex, quint16 nSlotModelId);
    /// Fills a record from the capability files; the connectors of an unknown model stay as they were.
    void generalProtoSubCard(quint8 nSlotIndex, quint16 nSlotModelId, ProtoModel::Device::s_subcardBody &subCardBody);
    /// Puts a card into a slot, laid out by the capability file; one without connectors there leaves the slot empty.
    void addSubcard(quint8 nSlotIndex, quint16 nSlotModelId);
    /// Puts a card without connectors into a slot; a slot beyond 8 bits is refused.
    void addSubcard(int slotPos, Enum::Device::CardType type, const quint16 &subModelId);
    /// Takes a card over; a slot without a record gets one with what the card says of itself.
    void addSubcard(const std::shared_ptr<Subcard> &pSubcard);
    /// Replaces all cards by those of slot to model id, without a signal for the old ones.
    void initSubCards(const QMap<unsigned char, unsigned short> &slotIdForModelId);
    /// Makes the card of a reported record, without a signal; the record must stand in the device already. Null for a
    /// slot beyond 8 bits.
    std::shared_ptr<Subcard> createSubCard(const ProtoModel::Device::s_subcardBody &subCardInfo);
    void createSubCard(const std::vector<ProtoModel::Device::s_subcardBody> &subCardInfos);
    void sortSlots();
    /// Removes object and record; interfaces of the slot leave on their own.
    void removeSubCard(uint8_t slotId);
    void removeModelSubCard(uint8_t slotId);
    void removeProtoSubCard(uint8_t slotId);

    // Connectors (device_cards.cpp)

    /// Pointers into the record, as findSlotById() gives; the second into the record that is passed.
    /// protoConnector() gives a copy.
    ProtoModel::Device::s_Connectors *findConnector(uint8_t slotId, uint8_t connectorId);
    static ProtoModel::Device::s_Connectors *findConnector(const ProtoModel::Device::s_subcardBody &body,
                                                           uint8_t connectorId);
    ProtoModel::Device::s_Connectors *findConnector(const std::weak_ptr<Subcard> &subcard,
                                                    const std::weak_ptr<Connector> &connector);
    ProtoModel::Device::s_Connectors *getConnector(const ProtoModel::s_InterfaceID &interfaceId);
    /// Copies the record of a connector; false if there is none.
    bool protoConnector(int slotId, int connectorId, ProtoModel::Device::s_Connectors &connector);
    /// Enum::Interface::WorkMode; `NoOutput` without a record.
    int connectorWorkMode(const ProtoModel::s_InterfaceID &interfaceId);
    /// Enum::Interface::ConnectorType; 0 without a record.
    int connectorType(const ProtoModel::s_InterfaceID &interfaceId);
    std::weak_ptr<Connector> findConnectorModel(uint8_t slotId, uint8_t connectorId);
    void setConnectorCapacity(int slotId, int connectorId, Enum::Interface::CapacityMode capacity);
    void setConnectorActived(int slotId, int connectorId, bool isActived);
    void setConnectorOverLoad(int slotId, int connectorId, bool isOverLoad);
    /// Enum::Interface::ConnectorType, WorkMode, CapacityMode.
    void initConnectorData(int nSlotIndex, int nConnectorIndex, int type, int workMode, int capacityMode);
    /// Replaces the record of a slot, or adds it.
    void initProtoConnector(const ProtoModel::Device::s_subcardBody &subCardBody);
    /// Refills the record of a slot from the capability files; adds one only for a model that has connectors.
    void initProtoConnector(quint8 nSlotIndex, quint16 nSlotModelId);
    /// Lets the card of a slot follow a record, or makes it.
    void initModelConnector(const ProtoModel::Device::s_subcardBody &subCardBody);
    /// Applies a layout of the capability file to the card of a slot, without a device. Both maps by position.
    void setInterfaceInfo(const quint8 &nSubcardIndex,
                          const QMap<unsigned char, InterfaceConfig::s_ConnectorInfo> &posForCardConnector,
                          const QMap<unsigned char, InterfaceConfig::s_CardConnector> &cardConnector);

    // Inputs and outputs (device_interfaces.cpp), in the order of their packed ids; a search that finds nothing gives
    // an empty reference. Lists are copies, to be walked without a lock.

    std::weak_ptr<Input> findInput(const uint32_t &id);
    std::weak_ptr<Input> findInput(const uint8_t &slot, const uint8_t &connector);
    std::weak_ptr<Output> findOutput(const uint32_t &id);
    std::weak_ptr<Output> findOutput(const uint8_t &slot, const uint8_t &connector);
    std::weak_ptr<Output> findOutput(const QString &name);
    QList<std::weak_ptr<Input>> inputs();
    QList<std::weak_ptr<Output>> outputs();
    /// Those of a kind that the mask @p interfaceType holds.
    QList<std::weak_ptr<Output>> outputs(int interfaceType);
    /// Those of exactly this kind.
    QList<std::weak_ptr<Output>> findOutputs(Enum::Interface::InterfaceType type);
    /// Inputs whose connector the record lists with a work mode other than `NoOutput`.
    QList<std::weak_ptr<Input>> validInputs();
    /// Inputs first.
    QList<std::weak_ptr<Interface>> interfaces();
    QList<std::weak_ptr<Interface>> interfaces(const int &slot);
    /// The input at a place, else the output; empty for a slot without a record.
    std::weak_ptr<Interface> interface(const uint8_t &slot, const uint8_t &connector);
    std::weak_ptr<Interface> findInterface(const ProtoModel::s_InterfaceID &id);
    /// The partner that mirrors a port: on its card, in backup with the copy id of the port.
    std::weak_ptr<Interface> findCopyInterface(const ProtoModel::s_InterfaceID &id);
    bool isInputNameExist(const QString &name);
    bool isOutputNameExist(const QString &name);
    quint32 validMainOutputConnectors();
    quint32 validAuxOutputConnectors();
    /// Outputs that the chassis has room for, or, of AUX outputs, those of a connector type that are there.
    /// @param bMvrAux of AUX outputs: 1 if a card stands in the first AUX position, else 0
    int outputInterfaceCount(Enum::Interface::InterfaceType outputType, Enum::Interface::ConnectorType connectorType,
                             bool bMvrAux);
    /// Sort a list; entries that have gone come last.
    static void outputsInOrder(QList<std::weak_ptr<Output>> &outputs);
    static void outputsInOrder(std::vector<std::shared_ptr<Output>> &outputs);

    /// Make the inputs and outputs that the card layouts imply, where there are none yet, without a report.
    void createInput();
    void createOutput(const std::weak_ptr<Subcard> &subcard);
    void createOutput();
    /// An empty Input or Output, in no list; null for another type. @param type Enum::Interface::InterfaceType
    static std::shared_ptr<Interface> createInterface(int type);
    /// Makes a reported interface. A type that is neither `Input` nor within `Output`, or an id beyond 8 bits, is
    /// refused with a reason in @p errMsg.
    bool addInterface(const ProtoModel::Interface::s_InterfaceDetail &detail, QString &errMsg);
    /// Drops the backup pairs of the input, too.
    void removeInput(const uint8_t &slot, const uint8_t &connector);
    void removeOutput(const uint8_t &slot, const uint8_t &connector);
    /// Removes, and deselects, the interfaces of a card that leaves; its record must still be there.
    void removeInterface(const uint8_t &slot);
    /// Removes what a report no longer names, without a signal; pairs and selection stay.
    void removeInterface(int type, int slot, int connector);
    /// Drops the backup pairs of one connector.
    void removeInterfaceRelation(const uint8_t &nSlotId, const uint8_t &nInterfaceId);

    // Selection: for the application's thread.

    void removeSelectedInput(const uint8_t &nSlotId, const uint8_t &nInterfaceId);
    void removeSelectedOutput(const uint8_t &nSlotId, const uint8_t &nInterfaceId);

    // Reported state (device_sync.cpp)

    /// Empties the model without a signal. Online flag, model id, base info and previous address stay; with
    /// @p bKeepDeviceGenernal name and networks, too.
    void clearAll(bool bKeepDeviceGenernal);
    /// Resets what a device that goes offline no longer tells: status, progress, genlock signal.
    void resetDeviceParam();
    /// Clears the actual timing of every interface (device_interfaces.cpp).
    void updateInterfaceStatus();

    // Settings (device_settings.cpp): a setter signals a change, an equal value is none. Switches are reported as
    // numbers and compared as truth values: 2 and true are equal.

    void setGenlockInfo(const ProtoModel::Device::s_GenlockBody &genlock);
    ProtoModel::Device::s_GenlockBody genlockInfo();
    Enum::Device::GenLockEnum genlockType();
    bool genlockEnable();
    /// Packed id of the source.
    uint32_t genlockInterfaceId();
    void setGenlockOnStatus(const ProtoModel::Device::s_GenlockSignalBody &signal);
    /// Whether there is a signal, not where: `GenLockInOn` for each of the connectors.
    Enum::Device::GenLockEnable genlockOnEnum();
    Enum::Device::GenLockStatus genlockStatus();
    bool isGenlockSyncFailure();
    /// Translated; "Off" for an offline device, empty for an unknown status.
    QString genlockStatusStr();
    /// "Genlock", the name of an input, or "null".
    QString genlockSyncSource();
    /// Refresh rate of the source in hundredths of a hertz if it is an input, but for `GenLock` the signal's
    /// `extSignalIn` as reported, Enum::Device::GenLockEnable; 0 if there is no source.
    int genlockSyncFrameRate();
    /// Replaces the list if its length, its screens or one status differs; the order counts for nothing. Like its
    /// reader for the application's thread.
    void setScreenGenlocks(const ProtoModel::Screen::s_ScreenGenlockBodyArray &genlocks);
    ProtoModel::Screen::s_ScreenGenlockBodyArray screenGenlocks();

    /// Always replaces the list, and signals if a supply that was there before has changed.
    void setPower(const ProtoModel::Device::s_PowerBodyArray &powers);
    /// The first record of that id, a default one if there is none.
    ProtoModel::Device::s_PowerBody power(uint8_t id);

    /// Replaces the first network port, which is made if there is none. A change of any field keeps the old address.
    void setNetWorkInfo(const ProtoModel::Device::s_NetworkBody &body);
    /// These take the first entry; an empty list changes nothing.
    void setNetWorkConfigs(const ProtoModel::Device::s_Networks &networks);
    void setNetworks(const ProtoModel::Device::s_NetworksBodyArray &networks);

    void setSwapEnable(bool isEnabled);
    bool swapEnable();
    void setLoadToPGMEnable(Enum::Device::LoadToPGMStatus status);
    /// `LoadToPGM` for any number but 0.
    Enum::Device::LoadToPGMStatus loadToPGMEnable();
    void setDynamicRangConversion(const ProtoModel::Device::s_DynamicRangConversion &conversion);
    ProtoModel::Device::s_DynamicRangConversion dynamicRangConversion();
    void setDeviceNovsStatus(bool isEnabled);
    bool deviceNovsStatus();

    void setInterfaceMapping(const ProtoModel::Device::s_InterfaceMapping &mapping);
    /// The same record as outputMapping().
    ProtoModel::Device::s_InterfaceMapping interfaceMapping();
    void setOutputMappingStatus(bool isEnabled);
    bool outputMappingStatus();
    void setOutputMappingType(Enum::Auxiliary::TestPatternType type);
    Enum::Auxiliary::TestPatternType outputMappingType();
    ProtoModel::Device::s_InterfaceMapping outputMapping();

    /// Takes over status and progress of a long job; the current index is that of the file in work, from 1. For the
    /// application's thread, as are the self-check's operations.
    void setDeviceProcess(const ProtoModel::Auxiliary::s_DeviceProcess &process);
    /// No signal: the application reads a report when it has asked for one.
    void setDeviceSelfCheckDetail(ProtoModel::Auxiliary::s_DeviceSelfCheckDetail detail);
    ProtoModel::Auxiliary::s_DeviceSelfCheckDetail &deviceSelfCheckDetail();
    void clearDeviceSelfCheckData();

Q_SIGNALS:
    void signalDeviceModelIdChanged();
    void signalNameChanged();
    void signalGenlockConfigChanged();
    void signalGenlockSignalChanged();
    void signalScreenGenlockSignalChanged();
    void signalPowerChanged();
    void signalNetWorkChanged();
    void signalOperationStatusChanged();
    void signalOnlineChanged();
    void signalSubCardChanged();
    void signalSubCardInfoChanged(int slotId);
    void signalSubCardAdded(const std::weak_ptr<Subcard> &subcard);
    void signalSubCardRemoved(const std::shared_ptr<Subcard> &subcard);
    void signalInputAdded(const std::weak_ptr<Input> &input);
    void signalInputRemoved(const std::shared_ptr<Input> &input);
    void signalOutputRemoved(const std::shared_ptr<Output> &output);
    void signalBKGAdded(const std::weak_ptr<Image> &image);
    void signalLogoAdded(const std::weak_ptr<Image> &image);
    void signalBKGRemoved(const std::shared_ptr<Image> &image);
    void signalLogoRemoved(const std::shared_ptr<Image> &image);
    void signalScreenRemoved(const std::shared_ptr<Screen> &screen);
    void signalScreenAddded(const std::weak_ptr<Screen> &screen);
    void signalScreenMoved(const std::weak_ptr<Screen> &source, const std::weak_ptr<Screen> &destination);
    void signalInterfaceMappingChanged();
    void signalDynamicRangConversionChanged();
    void signalActivedScreenChanged(const std::weak_ptr<Screen> &screen);
    void signalSelectedScreenChanged();
    void signalSelectedRegularScreenChanged();
    void signalSelectedAuxScreenChanged();
    void signalSelectedMVRScreenChanged();
    void signalViewScreenChanged();
    void signalSwapStatusChanged();
    void signalLoadToPGMStatusChanged();
    void signalRestoreDefLayout();
    void signalActivedOutputChanged();
    void signalSelectedInputChanged();
    void signalSelectedOutputChanged();
    void signalActivedMVRScreenChanged(const std::weak_ptr<MVRScreen> &screen);
    void signalScreenMultilStateChanged();
    void signalUpdateOperatorProcess(const QString &text);
    void signalActivedPresetChanged(const std::weak_ptr<Preset> &preset);
    void signalActivedPresetKeyNoChanged();
    void signalPresetRemoved(const std::shared_ptr<File> &file);
    void signalPresetAdded(const std::weak_ptr<File> &file);
    void signalPresetCleared();
    void signalKeypadChanged(const std::weak_ptr<File> &file);
    void signalUserKeyChanged(const std::weak_ptr<File> &file);
    void signalModifyUserKeyChanged(const std::weak_ptr<File> &file);
    void signalUserKeyRemoved(const std::weak_ptr<File> &file);
    void signalUserKeyClear();
    void signalMVRStatusChanged();
    void signalDeviceLoadProcessChanged();
    void signalDeviceMasterControlStatusChanged();
    void signalOutputMappingStatusChanged();
    void signalOutputMappingTypeChanged();
    void signalDeviceGroupInfoChanged();
    void signalDeviceNovsStatusChanged();
    void signalInterfaceRelationEnableChanged();
    void signalInterfaceRelationPairsChanged();

private:
    /// What @p read gives for the base info, or for a default record where there is none.
    template <class Read>
    auto readBaseInfo(Read read);
    /// What @p read gives for the first network port, or an empty text.
    QString readFirstNetwork(std::string ProtoModel::Device::s_NetworkBody::*field);
    /// Sets a field of the first network port, which is made if there is none, and signals.
    void writeFirstNetwork(std::string ProtoModel::Device::s_NetworkBody::*field, const QString &value);
    /// Null for a device without a capability record.
    [[nodiscard]] const DeviceConfig *configRecord() const;
    QList<std::weak_ptr<Interface>> interfacesIf(const std::function<bool(const Interface &)> &matches);
    /// The input of a packed id, null with a warning if it isn't there.
    std::shared_ptr<Input> genlockInput(uint32_t interfaceId);

    // Cards and connectors (device_cards.cpp): one field of a record, read or written under the lock. Ids are any
    // numbers.
    friend class Subcard;
    friend class Connector;
    friend class Interface;
    std::optional<std::int32_t> slotValue(int slotId, std::int32_t ProtoModel::Device::s_subcardBody::*field);
    void setSlotValues(
        int slotId,
        std::initializer_list<std::pair<std::int32_t ProtoModel::Device::s_subcardBody::*, std::int32_t>> values);
    void clearProtoConnectors(int slotId);
    /// Gives the old value, nothing without a record.
    std::optional<std::int32_t> exchangeConnectorValue(int slotId, int connectorId,
                                                       std::int32_t ProtoModel::Device::s_Connectors::*field,
                                                       std::int32_t value);
    std::shared_ptr<Subcard> cardAt(int slotId);
    std::shared_ptr<Connector> connectorAt(int slotId, int connectorId);
    void appendProtoSubcard(ProtoModel::Device::s_subcardBody body);
    void appendModelSubcard(const std::shared_ptr<Subcard> &card);

    // "Main thread" marks a field without a lock.

    ProtoModel::Device::s_DeviceDetail m_detail;
    /// Guards m_detail, and the stored fields that have no lock of their own: m_modelId, m_bIsMuliScreens. Further
    /// m_preDeviceIPAddress, which changes together with the address.
    mutable QReadWriteLock m_detailRWLock;
    ProtoModel::Auxiliary::s_DeviceSelfCheckDetail m_selfCheckDetail; ///< main thread
    std::vector<std::shared_ptr<RegularScreen>> m_regularScreens;
    std::vector<std::shared_ptr<AuxScreen>> m_AUXScreens;
    std::vector<std::shared_ptr<MVRScreen>> m_MVRSscreens;
    QReadWriteLock m_screensRWLock; ///< guards the three lists above
    std::vector<std::shared_ptr<Logo>> m_logos;
    QReadWriteLock m_logosRWLock;
    std::vector<std::shared_ptr<BKG>> m_bkgs;
    QReadWriteLock m_bkgsRWLock;
    std::vector<std::shared_ptr<File>> m_umdFiles;
    QReadWriteLock m_umdsRWLock;
    std::vector<std::shared_ptr<Input>> m_inputs;
    QReadWriteLock m_inputsRWLock;
    std::vector<std::shared_ptr<Output>> m_outputs;
    QReadWriteLock m_outputsRWLock;
    uint32_t m_modelId; ///< m_detailRWLock
    std::vector<std::shared_ptr<Preset>> m_presets;
    QReadWriteLock m_presetsRWLock;
    std::vector<std::shared_ptr<Keypad>> m_keypads;
    QReadWriteLock m_keypadsRWLock;
    std::vector<std::shared_ptr<Subcard>> m_subcards;
    QReadWriteLock m_subcardsRWLock;
    std::vector<std::shared_ptr<UserKey>> m_userKey;
    QReadWriteLock m_userKeyRWLock;
    bool m_bIsMuliScreens = false; ///< m_detailRWLock
    std::atomic<bool> m_bIsOnline = false;
    QList<std::weak_ptr<Input>> m_selectedInputs;   ///< main thread
    QList<std::weak_ptr<Output>> m_selectedOutputs; ///< main thread
    std::weak_ptr<Output> m_pActivedOutput;         ///< main thread
    std::weak_ptr<Screen> m_pActivedScreen;         ///< main thread
    QList<std::weak_ptr<Screen>> m_viewingScreens;
    QReadWriteLock m_viewingScreensRWLock;
    std::weak_ptr<MVRScreen> m_pActivedMVRScreen; ///< main thread
    QList<std::weak_ptr<RegularScreen>> m_selectedRegularScreens;
    QList<std::weak_ptr<AuxScreen>> m_selectedAuxScreens;
    QList<std::weak_ptr<MVRScreen>> m_selectedMVRScreens;
    QReadWriteLock m_selectScreenRWLock;     ///< guards the three lists above
    DeviceConfig *m_pDeviceConfig = nullptr; ///< main thread; owned by DeviceConfigManager
    bool m_bIsSyncSucess = false;            ///< main thread
    bool m_autoSyncDataEnable = true;        ///< main thread
    bool m_isDeviceUpgrading = false;        ///< main thread
    uint16_t m_nActivedPresetKeyNo = 65535;  ///< main thread
    uint16_t m_nLastPresetKeyNo = 65535;     ///< main thread
    std::weak_ptr<Preset> m_pActivedPreset;  ///< main thread
    volatile bool m_bIsTaking = false;
    std::mutex m_bIsTakingMutex;
    Enum::Device::DevicResetOrder m_restOrder = Enum::Device::DevicResetOrder::Factory_IP; ///< main thread
    int m_iDeviceTotalProcess = 0;                                                         ///< main thread
    int m_iCurrentIndex = 0;                                                               ///< main thread
    int m_iLoadFileTotalNum = 0;                                                           ///< main thread
    QGraphicsView::DragMode m_dragMode = QGraphicsView::NoDrag;                            ///< main thread
    QString m_preDeviceIPAddress;                                                          ///< m_detailRWLock
    std::atomic<bool> m_bMasterControlDeviceStatus = true;
    std::shared_ptr<ProtoModel::DeviceBaseInfo> m_pDeviceBaseInfo = std::make_shared<ProtoModel::DeviceBaseInfo>();
    QReadWriteLock m_deviceBaseInfoRWLock;
    /// Guards the output mapping in m_detail as m_detailRWLock does: a reader holds either, a writer both, this one
    /// last.
    QReadWriteLock m_mappingRWLock;
    ProtoModel::Device::s_DeviceGroupInfoBody m_deviceGroupInfo;
    bool m_deviceGroupStatus = true;
    QReadWriteLock m_deviceGroupInfoRWLock; ///< guards the two fields above
    std::list<std::pair<int, int>> m_allowEditedHotBackupConnectors;
    QReadWriteLock m_allowEditedRWLock;                            ///< taken before m_detailRWLock
    ProtoModel::Screen::s_ScreenGenlockBodyArray m_screenGenlocks; ///< main thread
    bool m_isNeedRepaintPreset = true;                             ///< main thread
};

} // namespace Quorix::BizModel

#endif
