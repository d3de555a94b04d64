/// The registry of devices and the library's event stream.
#ifndef QUORIXBIZMODEL_DEVICELIST_H
#define QUORIXBIZMODEL_DEVICELIST_H

#include <quorix_export.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixprotomodel/file.h>

#include <QList>
#include <QMessageBox>
#include <QMutex>
#include <QObject>
#include <QRect>
#include <QString>

#include <atomic>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace Quorix::BizModel {

class SaveDeviceDataThread;

/// The one hub of the process: which devices there are, which of them is activated, and every change of any of them,
/// repeated with the owning device (and screen, subcard, layer, where there is one) in front of the arguments.
///
/// Threads. The first call of instance() belongs to the application's main thread and comes before any model signal
/// crosses threads. Appending, removing, clearing and activating belong to that thread, too; deviceList(), devices(),
/// count() and the lookups may be called from any. Family 1 reaches a listener on the main thread, a change made on
/// another thread as a queued call. All other families run at once on the thread that made the change: a listener to
/// them must not assume the main thread.
///
/// References. An added object travels as a weak reference, a removed one as a shared reference. A relay never keeps an
/// object alive. A queued call whose sender has gone is dropped.
class QUORIX_EXPORT DeviceList : public QObject {
    Q_OBJECT

public:
    /// Where an input stands in a device's echo frame of 1920 by 1080 pixels; an empty rectangle without a place.
    using GetEchoVideoRectCallback = std::function<QRect(const quint8 &)>;

    /// The hub, made by the first call and destroyed at the end of the process.
    static DeviceList *instance();
    ~DeviceList() override;
    Q_DISABLE_COPY_MOVE(DeviceList)

    // Registry (devicelist.cpp)

    /// Adds a device at the end, emits signalDeviceAppended and then joins the relays of family 1. A device that is
    /// there already, or null, changes nothing. Doesn't activate the device.
    std::weak_ptr<Device> append(const std::shared_ptr<Device> &pDevice);
    /// Makes no device: the result is empty, the id isn't used.
    std::weak_ptr<Device> append(const quint16 &nModelID);
    /// Takes a device out and emits signalDeviceRemoved; if it is the activated one afterwards, the first device left
    /// is activated. Its relays stay: a device that the application keeps goes on reaching the hub.
    void remove(const std::shared_ptr<Device> &pDevice);
    /// Takes all devices out and lets them go, then emits signalDeviceCleared and nothing else.
    void clear();
    [[nodiscard]] std::list<std::shared_ptr<Device>> deviceList() const;
    [[nodiscard]] QList<std::weak_ptr<Device>> devices() const;
    [[nodiscard]] uint8_t count() const;

    // Lookups (devicelist.cpp): the first match in the order of appending, or an empty reference. Exact comparison.

    std::weak_ptr<Device> findDevice(const QString &ip, const QString &sn);
    /// By MAC and SN; the address counts only when both are blank.
    std::weak_ptr<Device> findDevice(const QString &ip, const QString &mac, const QString &sn);
    std::weak_ptr<Device> findDeviceByIpMacSn(const QString &ip, const QString &mac, const QString &sn);
    std::weak_ptr<Device> findDeviceByIP(const QString &ip);
    std::weak_ptr<Device> findDeviceByName(const QString &name);
    bool isDeviceIPExist(const QString &ip);
    bool isDeviceNameExist(const QString &name);

    // Groups (device_groups.cpp): the devices that report one group id.

    /// Members by numeric address. @param isIncludeControled also online devices that another client controls
    /// @param isIncludeValidGroup also devices whose group status is false
    QList<std::weak_ptr<Device>> groupDevices(const QString &groupID, bool isIncludeControled,
                                              bool isIncludeValidGroup);
    /// The group of a device; the device alone if it is in none, whatever the flags.
    QList<std::weak_ptr<Device>> groupDevices(const std::weak_ptr<Device> &wDevice, bool isIncludeControled,
                                              bool isIncludeValidGroup);
    /// Devices in no group, by address as text.
    QList<std::weak_ptr<Device>> unGroupDevices();
    /// The preset with that file id of each device of the group that this client controls.
    QList<std::weak_ptr<Preset>> findGroupPresets(const std::weak_ptr<Device> &wDevice, uint8_t fileId);

    // Activation (devicelist.cpp)

    /// Makes a device (or none) the activated one and marks it for repainting; if it is another one, its presets, too.
    /// signalActivedDeviceChanged follows when the device is another one, and for the same one if @p isEmit is true.
    void setActivtedDevice(const std::weak_ptr<Device> &pDevice, bool isEmit);
    std::weak_ptr<Device> activedDevice();

    // Batches of layer changes (devicelist.cpp): callers gather what kind of change there was, and ask for one
    // notification of a whole set of screens.

    void appendDeviceScreenLayersChangedType(Enum::Screen::UpdateType type);
    void clearDeviceScreenLayersChangedType();
    /// Only if the first screen is alive and belongs to the activated device; otherwise the gathered bits stay.
    void notifyDeviceScreenLayersChanged(const QList<std::weak_ptr<Screen>> &screens);
    void notifyDeviceScreenLayersUpdate(const QList<std::weak_ptr<Screen>> &screens);
    void emitDeviceScreenLayersChanged(const QList<std::weak_ptr<Screen>> &screens);
    void emitDeviceScreenLayersUpdate(const QList<std::weak_ptr<Screen>> &screens);

    // Values kept for the user interface (devicelist.cpp); the library doesn't consult them.

    void setPresetOperateMode(Enum::Preset::PresetOptMode mode);
    Enum::Preset::PresetOptMode presetOperateMode();
    void updateResourceShow(bool isVisible);
    bool resourceShowStatus();
    void setIsCompatibleUpgrading(bool isUpgrading);
    bool isCompatibleUpgrading();

    /// Rectangle of input @p nInputIndex, from 0, in the echo frame of a model, in pixels; an empty rectangle for a
    /// model without an echo frame (with a warning) and above input 31.
    QRect echoVideoRect(quint16 eDeviceModelId, const quint8 &nInputIndex);

    // The saver (devicelist.cpp)

    /// Makes the saver for a root folder, see Serailizer; the first call alone does. The hub stops it at its end.
    void initSaveDeviceDataThread(QString filePath);
    /// Null before that.
    SaveDeviceDataThread *saveDeviceDataThread();

Q_SIGNALS:
    // The hub itself.
    void signalDeviceAppended(const std::weak_ptr<Device> &device);
    void signalDeviceRemoved(const std::shared_ptr<Device> &device);
    void signalDeviceCleared();
    void signalActivedDeviceChanged();
    void signalDeviceScreenLayersChanged(const QList<std::weak_ptr<Screen>> &screens, int updateType);
    void signalDeviceScreenLayersUpdate(const QList<std::weak_ptr<Screen>> &screens, int updateType);
    void signalResourceShowStatusChanged();

    // Family 1, a device: its own state and its cards.
    void signalDeviceModelIdChanged(const std::weak_ptr<Device> &device);
    void signalDeviceIPChanged(const std::weak_ptr<Device> &device);
    void signalDeviceMasterControlStatusChanged(const std::weak_ptr<Device> &device);
    void signalDeviceNameChanged(const std::weak_ptr<Device> &device);
    void signalDeviceOnlineStatusChanged(const std::weak_ptr<Device> &device);
    void signalGenlockSignalChanged(const std::weak_ptr<Device> &device);
    void signalScreenGenlockSignalChanged(const std::weak_ptr<Device> &device);
    void signalGenlockConfigChanged(const std::weak_ptr<Device> &device);
    void signalOperationStatusChanged(const std::weak_ptr<Device> &device);
    void signalDeviceLoadProcessChanged(const std::weak_ptr<Device> &device);
    void signalSubCardAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Subcard> &subcard);
    void signalSubCardRemoved(const std::weak_ptr<Device> &device, const std::shared_ptr<Subcard> &subcard);
    void signalSubCardInfoChanged(const std::weak_ptr<Device> &device, int slotId);
    void signalMVRStatusChanged(const std::weak_ptr<Device> &device);
    void signalSelectedScreensChanged(const std::weak_ptr<Device> &device);
    void signalPowerStatusChanged(const std::weak_ptr<Device> &device);
    void signalOutputMappingStatusChanged(const std::weak_ptr<Device> &device);
    void signalOutputMappingTypeChanged(const std::weak_ptr<Device> &device);
    void signalDeviceGroupInfoChanged(const std::weak_ptr<Device> &device);
    void signalDeviceNovsStatusChanged(const std::weak_ptr<Device> &device);
    void signalInterfaceRelationEnableChanged(const std::weak_ptr<Device> &device);
    void signalInterfaceRelationPairsChanged(const std::weak_ptr<Device> &device);

    // Inputs.
    void signalInputAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Input> &input);
    void signalInputRemoved(const std::weak_ptr<Device> &device, const std::shared_ptr<Input> &input);
    void signalSelectedInputChanged(const std::weak_ptr<Device> &device);

    // Outputs.
    void signalDeviceOutputRemoved(const std::weak_ptr<Device> &device, const std::shared_ptr<Output> &output);
    void signalSelectedOutputChanged(const std::weak_ptr<Device> &device);

    // Screens.
    void signalScreenAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenMoved(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &source,
                           const std::weak_ptr<Screen> &destination);
    void signalScreenRemoved(const std::weak_ptr<Device> &device, const std::shared_ptr<Screen> &screen);
    void signalActivedScreenChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenMultilStateChanged(const std::weak_ptr<Device> &device);
    void signalViewingScreensChanged(const std::weak_ptr<Device> &device);
    void signalSwapStateChanged(const std::weak_ptr<Device> &device);
    void signalRestoreDefLayout();
    void signalLoadToPGMStateChanged(const std::weak_ptr<Device> &device);

    // Screens by kind.
    void signalSelectedRegularScreensChanged(const std::weak_ptr<Device> &device);
    void signalSelectedAUXScreensChanged(const std::weak_ptr<Device> &device);
    void signalActivedMVRScreenChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<MVRScreen> &screen);
    void signalSelectedMVRScreensChanged(const std::weak_ptr<Device> &device);

    // Presets.
    void signalPresetAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Preset> &preset);
    void signalPresetRemoved(const std::weak_ptr<Device> &device, const std::shared_ptr<Preset> &preset);
    void signalPresetCleared(const std::weak_ptr<Device> &device);
    void signalActivedPresetChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Preset> &preset);
    void signalActivedPresetKeyNoChanged(const std::weak_ptr<Device> &device);

    // Keypads.
    void signalKeypadChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<File> &file);

    // Images.
    void signalBKGAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Image> &image);
    void signalBKGRemoved(const std::weak_ptr<Device> &device, const std::shared_ptr<Image> &image);
    void signalLogoAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Image> &image);
    void signalLogoRemoved(const std::weak_ptr<Device> &device, const std::shared_ptr<Image> &image);

    // User keys.
    void signalUserKeyChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<File> &file);
    void signalModifyUserKeyChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<File> &file);
    void signalClearUserKey();
    void signalDeleteUserKey(const std::weak_ptr<Device> &device, const std::weak_ptr<File> &file);

    // Family 2, a screen.
    void signalScreenNameChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenIndexChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalOutputAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                           const std::weak_ptr<Output> &output);
    void signalScreenOutputRemoved(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                   const std::weak_ptr<Output> &output);
    void signalScreenOutputBorderFuseChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                             const std::weak_ptr<Output> &output, const QString &sender);
    void signalScreenOutputAOIChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                      const std::weak_ptr<Output> &output);
    void signalScreenOutputPosChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                      const std::weak_ptr<Output> &output, const QString &sender);
    void signalScreenMosaicWindowRectChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenActivedOutputChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                          const std::weak_ptr<Output> &output);
    void signalScreenPhysicalSizeChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenPGMFreezeChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenSpliceGridChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenSpliceModeChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenFTBChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenEffectChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenPGMEditChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenStateChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalPVWLayerAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                             const std::weak_ptr<Layer> &layer);
    void signalPGMLayerAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                             const std::weak_ptr<Layer> &layer);
    void signalLayerAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                          const std::weak_ptr<Layer> &layer);
    void signalSelectedLayersChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                     bool isToHardware);
    void signalLayerRemoved(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                            const std::shared_ptr<Layer> &layer);
    void signalPVWLayerRemoved(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                               const std::shared_ptr<Layer> &layer);
    void signalPGMLayerRemoved(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                               const std::shared_ptr<Layer> &layer);
    void signalMVRScreenBackgroundColorChanged(const std::weak_ptr<Device> &device,
                                               const std::weak_ptr<Screen> &screen);
    void signalScreenOperationTargetChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenNovsStatusChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalMVRScreenRowColSpanChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<MVRScreen> &screen);

    // Family 3, a layer.
    void signalLayerWindowRectChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                      const std::weak_ptr<Layer> &layer, const QString &sender);
    void signalWindowRectChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                 const std::weak_ptr<Layer> &layer, const QRect &before, const QRect &after);
    void signalLayerSourceChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                  const std::weak_ptr<Layer> &layer);
    void signalLayerZorderChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                  const std::weak_ptr<Layer> &layer);
    void signalLayerNameChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                const std::weak_ptr<Layer> &layer);
    void signalLayerBackgroundChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                      const std::weak_ptr<Layer> &layer);
    void signalLayerFreezeChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                  const std::weak_ptr<Layer> &layer);
    void signalLayerMonochromeChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                      const std::weak_ptr<Layer> &layer);
    void signalLayerInverseChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                   const std::weak_ptr<Layer> &layer);
    void signalLayerFlipTypeChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                    const std::weak_ptr<Layer> &layer);
    void signalLayerCropChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                const std::weak_ptr<Layer> &layer, const QString &sender);
    void signalLayerUMDChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                               const std::weak_ptr<Layer> &layer);
    void signalLayerMaskChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                const std::weak_ptr<Layer> &layer, const QString &sender);
    void signalLayerColorChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                 const std::weak_ptr<Layer> &layer);
    void signalLayerOpacityChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                   const std::weak_ptr<Layer> &layer, const QString &sender);
    void signalWindowWHRatioLockedStateChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                               const std::weak_ptr<Layer> &layer, const QString &sender);
    void signalLayerWindowWHRatioChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                         const std::weak_ptr<Layer> &layer);
    void signalLayerWindowWHTypeChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                        const std::weak_ptr<Layer> &layer);
    void signalLayerBorderChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                  const std::weak_ptr<Layer> &layer, const QString &sender);
    void signalLayerBorderColorChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                       const std::weak_ptr<Layer> &layer, const QString &sender);
    void signalLayerUMDEnableChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                     const std::weak_ptr<Layer> &layer);
    void signalLayerUMDColorChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                    const std::weak_ptr<Layer> &layer);
    void signalCutAndFillChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                 const std::weak_ptr<Layer> &layer);
    void signalLayerSaturationChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                      const std::weak_ptr<Layer> &layer, const QString &sender);
    void signalLayerHueChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                               const std::weak_ptr<Layer> &layer, const QString &sender);
    void signalLayerBrightnessChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                      const std::weak_ptr<Layer> &layer, const QString &sender);
    void signalLayerContrastChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                    const std::weak_ptr<Layer> &layer, const QString &sender);

    // Family 4, an interface.
    void signalInterfaceNameChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Interface> &interface);
    void signalInterfaceSignalChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Interface> &interface);
    void signalPresetFrameTimingChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Interface> &interface);
    void signalInterfaceCropChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Interface> &interface,
                                    const QString &sender);
    void signalInterfaceTestPatternChanged(const std::weak_ptr<Device> &device,
                                           const std::weak_ptr<Interface> &interface);
    void signalInterfaceCutoutRGBChanged(const std::weak_ptr<Device> &device,
                                         const std::weak_ptr<Interface> &interface);
    void signalInterfaceCutoutRGBReported(const std::weak_ptr<Device> &device,
                                          const std::weak_ptr<Interface> &interface);
    void signalInterfaceActualTimingChanged(const std::weak_ptr<Device> &device,
                                            const std::weak_ptr<Interface> &interface);
    void signalInterfaceColorSpaceChanged(const std::weak_ptr<Device> &device,
                                          const std::weak_ptr<Interface> &interface);
    void signalInterfaceColorRangeChanged(const std::weak_ptr<Device> &device,
                                          const std::weak_ptr<Interface> &interface);
    void signalInterfaceColorDepthChanged(const std::weak_ptr<Device> &device,
                                          const std::weak_ptr<Interface> &interface);
    void signalInterfacePresetColorSpaceChanged(const std::weak_ptr<Device> &device,
                                                const std::weak_ptr<Interface> &interface);
    void signalInterfacePresetColorRangeChanged(const std::weak_ptr<Device> &device,
                                                const std::weak_ptr<Interface> &interface);
    void signalInterfacePresetColorDepthChanged(const std::weak_ptr<Device> &device,
                                                const std::weak_ptr<Interface> &interface);
    void signalInterfaceOverLoadChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Interface> &interface);
    void signalHDCPInfoChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Interface> &interface);
    void signalInterfaceImageQualityChanged(const std::weak_ptr<Device> &device,
                                            const std::weak_ptr<Interface> &interface);
    void signalInterfacePresetColorGamutChanged(const std::weak_ptr<Device> &device,
                                                const std::weak_ptr<Interface> &interface);
    void signalInterfacePresetDynamicRangeChanged(const std::weak_ptr<Device> &device,
                                                  const std::weak_ptr<Interface> &interface);
    void signalInterfacePresetPqMaxCllChanged(const std::weak_ptr<Device> &device,
                                              const std::weak_ptr<Interface> &interface);
    void signalInterfaceActualColorGamutChanged(const std::weak_ptr<Device> &device,
                                                const std::weak_ptr<Interface> &interface);
    void signalInterfaceActualDynamicRangeChanged(const std::weak_ptr<Device> &device,
                                                  const std::weak_ptr<Interface> &interface);
    void signalInterfaceActualPqMaxCllChanged(const std::weak_ptr<Device> &device,
                                              const std::weak_ptr<Interface> &interface);

    // Called by an interface itself.
    void signalLssuedFailedUpDateInput(const std::weak_ptr<Device> &device, const std::weak_ptr<Interface> &interface);

    // Family 5, a file.
    void signalNameChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<File> &file);
    void signalFileTypeChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<File> &file);
    void signalFileTransferProgressChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<File> &file);
    void signalFileContentChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<File> &file);

    // Family 6, a connector.
    void signalConnectorSignalChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Subcard> &subcard,
                                      const std::weak_ptr<Connector> &connector);
    void signalConnectorOverLoadChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Subcard> &subcard,
                                        const std::weak_ptr<Connector> &connector);
    void signalConnectorCapacityChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Subcard> &subcard,
                                        const std::weak_ptr<Connector> &connector);

    // Requests of the application to its user interface. The library never emits these and those that follow.
    void signalShowStatusBarMsg(Enum::StatusBarMsgType type, const QString &text, int);
    int signalShowFramelessMessageBoxMsg(Enum::FramelessMessageBoxMsgType type, const QString &text);
    void signalFramelessMessageBoxClosed(QMessageBox::StandardButton button);
    void signalShowWaitingDialog(const QString &text);
    void signalHideWaitingDialog();

    // Progress.
    void signalUpdateOperatorProcess(const QString &text);
    void signalReadDataFromHWProgressChanged(qreal progress);
    void signalSendData2HWProgressChanged(qreal progress);
    void signalFilesTransferProgressChanged(const std::weak_ptr<Device> &device,
                                            const ProtoModel::File::s_FileTransPercentArray &progress);

    // News without a source in the library.
    void signalDeviceSNChanged(const std::weak_ptr<Device> &, const std::weak_ptr<Device> &);
    void signalInputNameChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Input> &input);
    void signalDeviceOutputAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Output> &output);
    void signalScreenMultilSelectedChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalSelectedRegularLayersChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalSelectedAUXLayersChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalSelectedMVRLayersChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen);
    void signalScreenPVWRefrenceCountChanged(const std::weak_ptr<Device> &device, quint8, quint8);
    void signalScreenPGMRefrenceCountChanged(const std::weak_ptr<Device> &device, quint8, quint8);
    void signalBKGLayerAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                             const std::weak_ptr<Layer> &layer);
    void signalLogoLayerAdded(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                              const std::weak_ptr<Layer> &layer);
    void signalBKGLayerRemoved(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                               const std::shared_ptr<Layer> &layer);
    void signalLogoLayerRemoved(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                const std::shared_ptr<Layer> &layer);
    void signalPresetCovered(const std::weak_ptr<Device> &device, const std::weak_ptr<Preset> &preset);
    void signalPresetKeyNoChanged(const std::weak_ptr<Device> &device, const uint16_t &keyNo);
    void signalFileSizeChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<File> &file);
    void signalResouceOverFlowStatusChanged(const std::weak_ptr<Device> &device, const std::weak_ptr<Screen> &screen,
                                            bool isOverflow);
    void signalCaptureImage(const ProtoModel::File::s_CreateImageFile &image);
    void signalUpdateInputThumbbail(const QRect &rect);
    void signalPageChanged(int page);
public Q_SLOTS:
    // Slots of family 1 (devicelist_relays.cpp): each repeats a device's signal with the sending device in front, and
    // does nothing without a sender or without a shared owner of it.
    void slotDeviceModelIdChanged();
    void slotDeviceNetWorkChanged();
    void slotDeviceMasterControlStatusChanged();
    void slotDeviceNameChanged();
    void slotDeviceOnlineChanged();
    void slotGenlockSignalChanged();
    void slotScreenGenlockSignalChanged();
    void slotGenlockConfigChanged();
    void slotOperationStatusChanged();
    void slotDeviceLoadProcessChanged();
    void slotSubCardAdded(const std::weak_ptr<Subcard> &subcard);
    void slotSubCardRemoved(const std::shared_ptr<Subcard> &subcard);
    void slotSubCardInfoChanged(int slotId);
    void slotMVRStatusChanged();
    void slotSelectedScreenChanged();
    void slotOutputMappingStatusChanged();
    void slotOutputMappingTypeChanged();
    void slotDeviceGroupInfoChanged();
    void slotDeviceNovsStatusChanged();
    void slotInterfaceRelationEnableChanged();
    void slotInterfaceRelationPairsChanged();
    void slotInputAdded(const std::weak_ptr<Input> &input);
    void slotInputRemoved(const std::shared_ptr<Input> &input);
    void slotSelectedInputChanged();
    void slotOutputRemoved(const std::shared_ptr<Output> &output);
    void slotSelectedOutputChanged();
    void sloScreenAdded(const std::weak_ptr<Screen> &screen);
    void sloScreenMoved(const std::weak_ptr<Screen> &source, const std::weak_ptr<Screen> &destination);
    void sloScreenRemoved(const std::shared_ptr<Screen> &screen);
    void sloActivedScreenChanged(const std::weak_ptr<Screen> &screen);
    void sloScreenMultilStateChanged();
    void slotViewScreenChanged();
    void slotSwapStatusChanged();
    void slotRestoreDefLayout();
    void slotLoatToPGMStatusChanged();
    void slotSelectedRegularScreenChanged();
    void slotSelectedAuxScreenChanged();
    void slotActivedMVRScreenChanged(const std::weak_ptr<MVRScreen> &screen);
    void slotSelectedMvrScreenChanged();
    void slotPresetAdded(const std::weak_ptr<File> &file);
    void slotPresetRemoved(const std::shared_ptr<File> &file);
    void slotPresetCleared();
    void slotActivedPresetChanged(const std::weak_ptr<Preset> &preset);
    void slotActivedPresetKeyNoChanged();
    void slotKeypadChanged(const std::weak_ptr<File> &file);
    void slotBKGAdded(const std::weak_ptr<Image> &image);
    void slotBKGRemoved(const std::shared_ptr<Image> &image);
    void slotLogoAdded(const std::weak_ptr<Image> &image);
    void slotLogoRemoved(const std::shared_ptr<Image> &image);
    void slotUserKeyChanged(const std::weak_ptr<File> &file);
    void slotModifyUserKeyChanged(const std::weak_ptr<File> &file);
    void slotClearUserKey();
    void slotDeleteUserKey(const std::weak_ptr<File> &file);
    // For whoever connects them; the library doesn't.
    void slotScreenNovsStatusChanged(const std::weak_ptr<Screen> &screen);
    void slotPageChanged(int page);

private:
    DeviceList();

    // Relays of family 1 (devicelist_relays.cpp). Joining twice changes nothing.
    void createConnects(const Device &device);
    void createDeviceConnects(const Device &device);
    void createPowerConnect(const Device &device);
    void createInputConnects(const Device &device);
    void createOutputConnects(const Device &device);
    void createScreenConnects(const Device &device);
    void createRegularScreenConnects(const Device &device);
    void createAuxScreenConnects(const Device &device);
    void createMvrScreenConnects(const Device &device);
    void createPresetConnects(const Device &device);
    void createKeypadConnects(const Device &device);
    void createImageConnects(const Device &device);
    void createUserKeyConnects(const Device &device);
    [[nodiscard]] std::weak_ptr<Device> sendingDevice() const;
    template <class... H, class... A>
    void repeat(void (DeviceList::*signal)(const std::weak_ptr<Device> &, H...), const A &...arguments);
    void repeat(void (DeviceList::*signal)());

    // Meta-types (devicelist_metatypes.cpp)
    static void registerMetaTypes();

    int takeScreenUpdateType();
    void emitGathered(void (DeviceList::*signal)(const QList<std::weak_ptr<Screen>> &, int),
                      const QList<std::weak_ptr<Screen>> &screens);

    /// Guards the list alone, never held across a signal, a look at a device, or the end of one.
    mutable std::mutex m_listDeviceMutex;
    std::list<std::shared_ptr<Device>> m_listDevice;
    std::weak_ptr<Device> m_pActivedDevice;
    std::map<quint16, GetEchoVideoRectCallback> m_modelIdForGetEchoVideoRectCB;
    /// Guards m_screenUpdateType.
    QMutex m_screenUpdateTypeMutex;
    int m_screenUpdateType = 0;
    Enum::Preset::PresetOptMode m_PresetOperateMode = Enum::Preset::PresetOptMode::Noting;
    std::atomic<bool> m_compatibleUpgrading = false;
    bool m_bResourceShow = true;
    /// The one relay that is a function object, by device: Qt can't tell whether it is joined already.
    std::map<const Device *, QMetaObject::Connection> m_powerRelays;
    std::unique_ptr<SaveDeviceDataThread> m_pSaveDeviceDataThread; ///< main thread
};

} // namespace Quorix::BizModel

Q_DECLARE_METATYPE(Quorix::BizModel::Enum::FramelessMessageBoxMsgType)
Q_DECLARE_METATYPE(Quorix::BizModel::Enum::StatusBarMsgType)
Q_DECLARE_METATYPE(Quorix::BizModel::Enum::Device::OperationStatus)
Q_DECLARE_METATYPE(QMessageBox::StandardButton)
Q_DECLARE_METATYPE(Quorix::ProtoModel::File::s_CreateImageFile)
Q_DECLARE_METATYPE(Quorix::ProtoModel::File::s_FileTransPercentArray)

#endif
