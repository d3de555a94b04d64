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
#include <quorixprotomodel/file.h>
#include <quorixprotomodel/interface.h>
#include <quorixprotomodel/layer.h>
#include <quorixprotomodel/screen.h>

#include <QGraphicsView>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QVector>

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

    // Screens (device_screens.cpp): kept by id within a kind. Types are masks of Enum::Screen::ScreenType.

    /// A screen of this device, in no list; null for a type that is no kind, and for `EchoScreen`.
    std::shared_ptr<Screen> creatScreen(Enum::Screen::ScreenType type);
    /// The same with the next id, index, name and place, in silence.
    std::shared_ptr<Screen> createDefaultScreen(Enum::Screen::ScreenType type, int row, int column);
    /// Makes a screen of a record; nothing if type and id exist.
    void addScreen(const ProtoModel::Screen::s_Enable &enable);
    void addScreens(const std::vector<ProtoModel::Screen::s_Enable> &enables);
    /// Takes screens over, and pushes their picture parameters to their outputs.
    void addScreens(const QList<std::shared_ptr<Screen>> &screens);
    /// Only puts it into its list, and signals.
    void appendScreen(const std::shared_ptr<Screen> &screen);
    void modifyScreen(const std::weak_ptr<Screen> &screen, ProtoModel::Screen::s_Enable &enable);
    /// Removes the layers elsewhere that show the screen, the screen, and its selection.
    void removeScreen(const std::weak_ptr<Screen> &screen);
    /// Only takes it out of its list, and signals.
    void removeScreen(const std::shared_ptr<Screen> &screen);
    void removeScreens(const QList<std::weak_ptr<Screen>> &screens);
    /// By index, then within a kind by id, else by kind.
    QList<std::weak_ptr<Screen>> screens(int screenType);
    QList<std::weak_ptr<Screen>> regulerScreens();
    std::weak_ptr<Screen> findScreen(Enum::Screen::ScreenType type, const uint8_t &id);
    std::weak_ptr<Screen> findScreen(int type, uint8_t id);
    std::weak_ptr<Screen> findScreen(Enum::Screen::ScreenType type, const std::weak_ptr<Output> &output);
    std::weak_ptr<Screen> findScreen(const QString &name);
    std::weak_ptr<AuxScreen> findAuxScreen(const ProtoModel::s_ScreenId &id);
    std::weak_ptr<AuxScreen> findAuxScreen(const QString &name);
    bool containsAuxScreen(const ProtoModel::s_ScreenId &id);
    bool containsAuxScreen(const QString &name);
    bool containsScreen(const std::weak_ptr<Screen> &screen);
    bool containsScreen(Enum::Screen::ScreenType type, uint8_t id);
    /// True if every regular screen handles a missing source, also if there is none.
    bool screensNovsStatusEnable();
    /// -255 without a screen.
    int getMaxScreenZOrder();
    /// The lowest free id of a kind; 255 when 0 to 254 are taken.
    uint8_t nextScreenId(Enum::Screen::ScreenType type);
    /// The number of regular and AUX screens.
    int nextScreenIndex();
    /// Names are unique over all kinds.
    QString nextScreenName(Enum::Screen::ScreenType type);
    QString nextRegulerScreenName();
    QString nextAuxScreenName();
    QString nextMVRScreenName();
    /// A name that doesn't stand in @p names either.
    QString nextMVRScreenName(const QVector<QString> &names);
    /// The first free place on the diagonal of the user's canvas.
    QPoint nextScreenLayoutPos();
    /// What the screens @p screenType show of a source; @p layerType doesn't narrow it.
    QList<std::weak_ptr<Layer>> layersBySource(uint32_t sourceId, EnumSourceType souceType, int screenType,
                                               int layerType);
    /// The records of the cards that carry a screen's outputs, in the order of the outputs.
    QList<ProtoModel::Device::s_subcardBody> protoSubcards(const std::weak_ptr<Screen> &screen);

    // Hot backup (device_hotbackup.cpp): pairs of interfaces by packed id, split 0, of which one is in force. A pair is
    // the same with its interfaces in either order.

    void setInterfaceRelation(const ProtoModel::Device::s_InterfaceRelation &relation);
    void setInterfaceRelationEnable(const bool &isEnabled);
    bool interfaceRelationEnable();
    ProtoModel::Device::s_InterfaceRelation interfaceRelation();
    /// The partner of an interface, also while hot backup is off; -1 if it is in no pair.
    int getInterfaceRelation(int interfaceId);
    /// Follows a report of who is in force: layers go to that interface. A report can't add a pair.
    void updateInterfaceRelation(const ProtoModel::Device::s_RelationArray &relations);
    /// Lets the layers that show the other interface of a pair show @p actualInterface.
    void updateLayerInputSource(const ProtoModel::Device::s_Relation &relation, int actualInterface);
    /// Drops the backup pairs of one connector.
    void removeInterfaceRelation(const uint8_t &nSlotId, const uint8_t &nInterfaceId);
    /// Drops the backup pairs of a card.
    void removeInterfaceRelationBySlotId(const uint8_t &nSlotId);
    /// False while hot backup is off.
    bool isUsedForHotBack(int slotId, int connectorId);
    /// Whether a connector that a layout of the card has is in a pair.
    bool isUsedForHotBack(const int &slotId, const int &capacityGroup, const int &connectorGroup, const int &capacity);
    /// What an open editor may change, as slot and connector; places in no pair are left out.
    void setAllowEditedHotBackupConnectors(std::list<std::pair<int, int>> connectors);
    bool isAllowEditedHotBackupConnector(const int &slotId, const int &connectorId);
    /// Offers the connectors with the capacity of this one as its partner, or all if none has been chosen.
    void updateAvailableInterface(const int &slotId, const int &connectorId, const bool &isHasSelectConnetors);
    void resetHotBackForSameCapacity();

    // Who uses what (device_usage.cpp). Nothing is changed; texts are translated. A gathered @p usedInfo isn't cleared
    // first, so that several questions can share one text.

    /// True if @p usedInfo ends up not empty: it gathers the names of the screens that show an input, and the genlock.
    bool isInputUsed(const uint32_t &id, QString &usedInfo);
    bool isInputUsedByGenlock(const uint32_t &id);
    /// Whether the input of a port, or the one that a change of capacity takes with it, is used.
    bool isInputOrRelatedCapacityInputUsed(const uint8_t &nSlotIndex, const uint8_t &nInputIndex, const int &capacity,
                                           QString &usedInfo);
    /// Whether an input of a layout of the card is used.
    bool isInputOrRelatedTypeInputUsed(const uint8_t &nSlotIndex, const int &capacityGroup,
                                       const uint8_t &nConnectorGroup, const int &capacity, QString &usedInfo);
    /// Of the input at a place, else of the output there.
    bool isInterfaceBusy(const uint8_t &slot, const uint8_t &connector, QString &usedInfo);
    bool isOutputUsed(const uint32_t &id);
    bool isOutputUsedByScreen(const ProtoModel::s_InterfaceID &id);
    bool isOutputUsedByAUXScreen(const ProtoModel::s_InterfaceID &id);
    /// The name of the first regular screen replaces @p usedInfo.
    bool isOutputUsedByScreen(const ProtoModel::s_InterfaceID &id, QString &usedInfo);
    bool isOutputUsed(const ProtoModel::s_InterfaceID &id, QString &usedInfo);
    /// Unused ones of a connector type.
    QList<std::weak_ptr<Output>> outputsBySameConnectorType(Enum::Interface::ConnectorType type);
    std::weak_ptr<Output> firstUnsedOutput(Enum::Interface::InterfaceType type);
    std::weak_ptr<Screen> findScreenOfUseOutput(const std::weak_ptr<Output> &wOutput);
    bool isSourceUsedByRegulerLayer(const uint32_t &id, EnumSourceType type);
    bool isSourceUsedByAux(const uint32_t &id, EnumSourceType type);
    /// The regular screens with a layer of that source.
    QList<std::weak_ptr<Screen>> findScreensUsedBKG(Enum::Layer::SourceType type, uint32_t id);
    /// Active inputs first, then by packed id; entries that have gone come last.
    void sortInputsBySource(QList<std::weak_ptr<Input>> &inputs);
    /// From the regular screens, with the signals of the layers.
    void removeAllLyaerBySource(uint8_t fileId, Enum::Layer::SourceType sourceType);
    bool isScreenUsedInAux(const std::weak_ptr<Screen> &wScreen);
    bool isScreenUsedInMvr(const std::weak_ptr<Screen> &wScreen);
    bool isScreenUsedInLayer(const std::weak_ptr<Screen> &wScreen);
    /// Whether a layer of any screen, or of a preset, shows a picture; pictures are the types `BKG` and `LOGO`.
    bool isFileUsed(const uint8_t &fileId, Enum::File::FileType type);
    /// Whether a layer of the type's kind exists, or a preset shows a picture of the device.
    bool isFileUsed(Enum::File::FileType type);
    /// Questions before one picture goes, and all of a type. Presets alone are no use.
    QString deleteCurrentBKGMessage(const std::weak_ptr<Image> &wImage);
    QString deleteAllBKGMessage(int fileType);
    /// Ids of the regular and AUX screens that share a card with a screen, its own among them.
    QList<int> findAssociatedScreens(const std::weak_ptr<Screen> &wScreen);
    /// Ids of the regular and AUX screens with an output in one of the slots.
    QList<int> findScreens(const QList<int> &slotList);
    /// What emptying a screen takes away, as a question; empty if nothing.
    QString clearScreenContentsTip(const std::weak_ptr<Screen> &wScreen);
    /// Empties the screen's layers in silence; those elsewhere that show it stay.
    void clearScreenContents(const std::weak_ptr<Screen> &wScreen);

    // Multiviewer (device_mvr.cpp)

    /// Makes the cards of the multiviewer's places match its screens. @param isBlockSignal keep the new timing of its
    /// outputs silent
    void updateMVRConnector(bool isBlockSignal);
    bool isOutputUsedByMVRScreen(const ProtoModel::s_InterfaceID &id);
    /// Whether a multiviewer shows a source.
    bool isSourceUsedByMVR(const uint32_t &sourceId, Enum::Layer::SourceType sourceType);
    /// Whether a card for a multiviewer is in place and free. @p errMsg tells why not; a card that is missing beside
    /// one that is in place leaves its text, too.
    bool isAllowOpenMVR(QString &errMsg);
    /// Whether the multiviewers are empty. @p errMsg: why not
    bool isAllowCloseMVR(QString &errMsg);
    /// Opens the multiviewer's screens, without asking; @p isSelected signals it.
    void openMVR(const ProtoModel::Screen::s_EnableArray &enableArray, bool isSelected);
    /// Makes the cards of the multiviewer's places output cards again, without asking; its screens stay.
    void closeMVR();

    // Files (device_files.cpp): a list for each kind, in the order in which they came. Ids may stand twice, the first
    // is found. Operations go by a file's type; one whose class isn't that of its type counts as dead.

    /// A file of that type, in no list and not joined to the hub; null for a type without a class.
    static std::shared_ptr<File> createFile(Enum::File::FileType type);
    /// The same for `BKG` and `LOGO`, null for any other type.
    static std::shared_ptr<Image> createImage(Enum::File::FileType type);
    /// Puts each file into the list of its type. Null, and a type without a list, are passed over.
    void addFile(const QList<std::shared_ptr<File>> &files);
    /// The two types of presets share a list. @param fileType Enum::File::FileType
    QList<std::weak_ptr<File>> files(int fileType);
    /// User keys aren't found by id.
    std::weak_ptr<File> findFile(const ProtoModel::s_FileIdentity &identity);
    std::weak_ptr<File> findFile(Enum::File::FileType type, int fileId);
    std::weak_ptr<BKG> findBKG(const uint8_t &id);
    std::weak_ptr<Logo> findLOGO(const uint8_t &id);
    std::weak_ptr<File> findUMD(const uint8_t &id);
    void removeFiles(const QList<std::weak_ptr<File>> &files);
    /// Empties the list of presets if their type is named; other kinds aren't cleared.
    void clearAllFiles(const QList<Enum::File::FileType> &types);
    /// The lowest id that no file of the type has. 255 may be taken, too: ask findFile().
    uint8_t nextFileId(Enum::File::FileType type);
    QString nextImageName(Enum::File::FileType type);
    /// Compares with case.
    bool isFileNameExist(Enum::File::FileType type, const QString &name);
    /// False, with a warning, for a file that has gone or is in the list.
    bool addUmdFile(const std::weak_ptr<File> &file);
    bool removeUmdFile(const std::weak_ptr<File> &file);

    // Presets (device_presets.cpp)

    /// The number of presets isn't tested, nor the id; of two presets of one id the later one in the list is stored.
    /// False, with a warning, for a file that has gone or is in the list.
    bool addPreset(const std::weak_ptr<File> &file);
    /// Removing the last one also signals that the list is empty.
    bool removePreset(const std::weak_ptr<File> &file);
    void clearPreset();
    QList<std::weak_ptr<File>> presets();
    std::weak_ptr<File> findPreset(const uint16_t &id);
    bool containsPreset(const uint16_t &id);
    /// Compares with case.
    bool containsPreset(const QString &name);
    /// Whether a layer of a preset shows a source.
    bool isSourceUsedByPreset(const uint32_t &id, EnumSourceType type);
    /// Whether the selected regular and AUX screens can be saved as a preset. @param strOperTips begins @p errMsg
    bool editPresetValidityCheck(const QString &strOperTips, QString &errMsg);

    // User keys and keypads (device_keys.cpp). The keys stand by ascending number, those of one number in the order in
    // which they came; nothing is replaced.

    bool addUserKeyFile(const std::weak_ptr<File> &file);
    /// The same for a key that has been edited; the caller removes the old one first.
    bool addModifyUserKeyFile(const std::weak_ptr<File> &file);
    /// Removing the last one also signals that the list is empty.
    bool removeUserKeyFile(const std::weak_ptr<File> &file);
    /// The same in silence.
    bool removeModifyUserKeyFile(const std::weak_ptr<File> &file);
    /// Empties the list if the first of the types is `UserKeyFile`; else false, and nothing changes.
    bool clearUserKeyFiles(const QList<Enum::File::FileType> &fileTypes);
    /// True if the number of @p a is greater than that of @p b.
    bool compareUserKey(const std::shared_ptr<UserKey> &a, const std::shared_ptr<UserKey> &b);
    /// By file id.
    std::weak_ptr<UserKey> findUserKey(const uint8_t &id);
    /// By name, compared with case.
    std::weak_ptr<File> findUserKey(const QString &name);
    /// The lowest file id from 1 on that no key has; 255 when 1 to 254 are taken.
    int nextUserKeyFileID();
    /// The same.
    int nextUserKeyID();
    QString nextUserKeyName();
    /// Takes the place of all keypads that were there.
    bool addKeypadFile(const std::weak_ptr<File> &file);
    /// No signal.
    bool removeKeypadFile(const std::weak_ptr<File> &file);
    std::weak_ptr<Keypad> findKeypad(const uint8_t &id);

    // Images (device_images.cpp)

    /// Neither capacity nor id are tested. Empty for an image that is neither background nor logo.
    std::weak_ptr<Image> addImage(const std::shared_ptr<Image> &image);
    /// Remove the layers of the regular screens that show the picture, then the picture; the store keeps it.
    bool removeBKG(const std::weak_ptr<File> &file);
    bool removeLogo(const std::weak_ptr<File> &file);
    /// Bytes; a background takes four for each pixel, its width rounded up to a multiple of 16.
    quint64 bkgUsedCapacity();
    quint64 remainingBKGCapacity();
    bool isBKGCapacityEnough(quint64 bytes);
    /// Slots that the logos take.
    int currentLogoCount();
    bool isLogoCapacityEnough(const QSize &size);
    /// Slots that a logo takes; 0 for an empty size.
    static int imageSize2ImageCount(const QSize &size);
    /// True for a store that is full.
    bool isImageCapacityEnough(Enum::File::FileType type);

    // Selection and viewing (device_selection.cpp): what the operator has picked. Screens by any thread, the rest by
    // the application's. Lists keep entries that have gone, as empty references.

    QList<std::weak_ptr<Input>> selectedInputs() const;
    QList<std::weak_ptr<Output>> selectedOutputs() const;
    std::weak_ptr<Input> firstSelectedInput() const;
    std::weak_ptr<Output> firstSelectedOutput() const;
    /// @param interfaceType mask of Enum::Interface::InterfaceType: `Input`, then `MainOutput`
    QList<std::weak_ptr<Interface>> selectedInterfaces(int interfaceType) const;
    /// Regular, then AUX, then MVR screens.
    QList<std::weak_ptr<Screen>> selectedScreen(const int &iScreenType);
    bool containsSelectedScreen(Enum::Screen::ScreenType type, uint8_t id);
    bool isScreenSelected(const std::weak_ptr<Screen> &wScreen);
    QList<std::weak_ptr<Screen>> viewingScreen();
    std::weak_ptr<Output> activedOutput() const;
    std::weak_ptr<Screen> activedScreen() const;
    std::weak_ptr<MVRScreen> activedMVRScreen() const;
    std::weak_ptr<MVRScreen> activedMVRScreen();
    std::weak_ptr<Preset> activedPreset() const;
    uint16_t activedPresetKeyNo() const;
    uint16_t activedLastPresetKeyNo() const;
    /// Announces that a screen has been moved onto another; changes nothing.
    void setSreenMoved(const std::weak_ptr<Screen> &srcScreen, const std::weak_ptr<Screen> &desScreen);
    /// Inputs are told apart by object, outputs by slot, connector and split. Those of inputs signal in any case.
    void appendSelectedInput(const QList<std::weak_ptr<Input>> &inputs);
    void removeSelectedInput(const QList<std::weak_ptr<Input>> &inputs);
    void removeSelectedInput(const uint8_t &nSlotId, const uint8_t &nInterfaceId);
    void clearSelectedInputs(bool isEmit);
    /// Hands a colour to the first selected input; false without one.
    bool updateCutoutRGB(const ProtoModel::s_RGB &rgb, QString &errMsg);
    void appendSelectedOutput(const std::weak_ptr<Output> &output);
    void removeSelectedOutput(const std::weak_ptr<Output> &output);
    void removeSelectedOutput(const uint8_t &nSlotId, const uint8_t &nInterfaceId);
    void clearSelectedOutputs(bool isEmit);
    /// False for a screen that has gone, isn't this device's, or is selected already. The first MVR screen is
    /// activated.
    bool appendSelectedScreen(const std::weak_ptr<Screen> &wScreen, bool isEmitSelectedSignal, bool isEmitViewSignal);
    void appendSelectedScreen(const QList<std::weak_ptr<Screen>> &screens, bool isEmitSelectedSignal,
                              bool isEmitViewSignal);
    void removeSelectedScreen(const QList<std::weak_ptr<Screen>> &screens, bool cancelViewStatus = true);
    void clearSelectedRegularScreenList(bool isEmit);
    void clearSelectedAuxScreenList(bool isEmit);
    void appendViewingScreen(const std::weak_ptr<Screen> &pScreen, bool bEmit);
    void appendViewingScreen(const QList<std::weak_ptr<Screen>> &screens);
    void removeViewingScreen(const QList<std::weak_ptr<Screen>> &screens);
    void clearViewingScreen(bool bEmit);
    void clearViewingScreen(const QList<std::weak_ptr<RegularScreen>> &regularScreens, bool bEmit);
    void clearViewingScreen(const QList<std::weak_ptr<AuxScreen>> &auxScreens, bool bEmit);
    /// An MVR screen goes to setActivedMVRScreen(). The signal reaches the hub queued.
    void setActivedScreen(const std::weak_ptr<Screen> &wScreen);
    /// Deselects the layers of the other MVR screens.
    void setActivedMVRScreen(const std::weak_ptr<MVRScreen> &wScreen);
    void setActivedOutput(const std::weak_ptr<Output> &output);
    void setActivedPreset(const std::weak_ptr<Preset> &preset, uint16_t keyNo);
    void setActivedPresetKeyNo(const uint16_t &keyNo);

    // Group (device_groups.cpp): a text id that the device reports; "0" is no group

    QString groupName();
    QString groupId();
    /// Whether the device counts as a member of its group.
    bool deviceGroupStatus();
    void setDeviceGroupName(const QString &groupName);
    void setDeviceGroupId(const QString &groupId);
    void setDeviceGroupStatus(bool status);
    /// A reported group: works the status out from the members that the hub knows.
    void updateDeviceGroupInfo(const ProtoModel::Device::s_DeviceGroupInfoBody &group);
    void updateDeviceGroupInfo(const ProtoModel::Device::s_DeviceGroupInfoBodyArray &groups);

    // Reported state (device_sync.cpp)

    // A full report enters in this order, after DeviceList::append(): device record, interfaces, screens, layers,
    // files, mapping. All but the first add to what is there, so that a filled device needs clearAll() first. A record
    // whose parent is missing is dropped. @p errMsg: why the last record failed.

    /// Replaces record and cards. Always true; signals the group alone.
    bool initModelData(const ProtoModel::Device::s_DeviceDetail &protoDetail, QString &errMsg);
    /// Always true.
    bool initModelData(const ProtoModel::Interface::s_InterfaceDetailArry &details, QString &errMsg);
    /// True if every screen took its record.
    bool initModelData(const ProtoModel::Screen::s_ScreenFullDetailArray &details, QString &errMsg);
    /// Replaces the layers of each screen that the records name. Always true.
    bool initModelData(const ProtoModel::Layer::s_LayerDetailArray &details, QString &errMsg);
    /// Adds a file of every record whose type has a class, also one that can't take its content (device_files.cpp).
    /// True if every file took its content.
    bool initModelData(const ProtoModel::File::s_FileDetailArray &details, QString &errMsg);
    /// Always true.
    bool initModelData(const ProtoModel::Device::s_InterfaceMapping &details, QString &errMsg);
    /// Follows a report of interfaces after a card change; what the report leaves out of a slot is removed. Ends at the
    /// first slot without a card.
    void updateModelData(const ProtoModel::Interface::s_InterfaceDetailArry &details);
    /// Follows a report of the device after a card change, and announces each named slot. Always true.
    bool updateSlotModelData(const ProtoModel::Device::s_subcards &slotMode,
                             const ProtoModel::Device::s_DeviceDetail &protoDetail, QString &errMsg);
    /// Follows reported cards; none is removed.
    void updateSubCard(const ProtoModel::Device::s_subcardBodyArray &subcards);
    /// Finishes a device that was read from disk, before it is appended. Events are handled while its pictures are
    /// loaded: nothing may start a save before all devices are back, or it would leave out those that aren't.
    void unserailize();
    /// Keep the multiviewer's layers of the source's scale in step with a source that has changed.
    void updateLayerAspectRatioType(const std::weak_ptr<Interface> &pInterface);
    void updateLayerAspectRatioType(const std::weak_ptr<Screen> &pScreen);
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
    friend class ModelArchive;
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

    /// Drops the backup pairs with an interface whose packed id @p matches accepts (device_hotbackup.cpp).
    template <class Matches>
    void removeRelationsIf(Matches matches);
    template <class Visit>
    void visitConnectors(Visit visit);
    /// What a layout of the capability file gives the card of a slot; false, with a warning, without record or card.
    bool connectorsOfLayout(int slotId, int capacityGroup, int connectorGroup, int capacity,
                            QMap<unsigned char, InterfaceConfig::s_CardConnector> &connectors);
    bool isInputUsedAt(const uint8_t &slot, int connector, QString &usedInfo);
    /// Whether a screen of a kind shows programme or preview of @p wScreen.
    bool isScreenUsedIn(Enum::Screen::ScreenType type, const std::weak_ptr<Screen> &wScreen);

    // Screens (device_screens.cpp)
    friend class Screen;
    friend class Layer;
    friend class ResourceReader; // which reads lists as shared references
    /// What screens() refers to, in its order.
    std::vector<std::shared_ptr<Screen>> screenList(int screenType);
    /// Calls @p visit with the list of a kind of screen; nothing for a number that is no kind.
    template <class Visit>
    void withScreensOf(int screenType, Visit visit);
    /// Removes a screen and the layers elsewhere that show it; the selection stays.
    void dropScreen(const std::shared_ptr<Screen> &screen);
    void deactivate(const std::shared_ptr<Screen> &screen);

    // Selection (device_selection.cpp)
    /// Calls @p visit with the selection of a kind of screen and the signal of its changes.
    template <class Visit>
    void withSelectionOf(int screenType, Visit visit);
    template <class Kind>
    void clearSelection(QList<std::weak_ptr<Kind>> &selected, void (Device::*signal)(), bool isEmit);
    template <class Kind>
    void clearViewing(const QList<std::weak_ptr<Kind>> &screens, Enum::Screen::ScreenType type, bool isEmit);

    /// Sets a text of the group, and signals a change (device_groups.cpp).
    void setGroupText(std::string ProtoModel::Device::s_DeviceGroupInfoBody::*field, const QString &text);

    /// Whether the card of a slot is one that the capability record allows for multiviewers; logged if not. Requires:
    /// there is such a record. (device_mvr.cpp)
    bool isMVRCard(uint8_t slotId);

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

    // Files (device_files.cpp)
    struct FileKind;
    static const FileKind *fileKind(Enum::File::FileType type);
    /// The list of a type without null entries; empty for a type without one.
    std::vector<std::shared_ptr<File>> sharedFiles(Enum::File::FileType type);
    /// Takes a user key into the sorted list; null, with a warning, for a file that is none (device_keys.cpp).
    std::shared_ptr<UserKey> keepUserKey(const std::weak_ptr<File> &file);
    /// The end of unserailize(). Slots may run meanwhile: pictures are loaded.
    void unserailizeFiles();

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
