/// A signal path on a connector.
#ifndef QUORIXBIZMODEL_INTERFACE_H
#define QUORIXBIZMODEL_INTERFACE_H

#include <quorix_export.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/guards.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixbizmodel/hub/relay.h>
#include <quorixprotomodel/auxiliary.h>
#include <quorixprotomodel/interface.h>

#include <QObject>
#include <QRect>
#include <QSize>
#include <QString>

#include <atomic>
#include <cstdint>
#include <memory>

namespace Quorix::BizModel {

/// What is stored of an interface, under the keys of the document.
struct InterfaceState {
    ProtoModel::Interface::s_InterfaceDetail m_detail;
    bool m_cropLocked = false;
    ProtoModel::Auxiliary::s_CutoutPos m_cutoutPosInfo;
    bool m_bOverLoad = false;
};

/// The signal path on one connector: name, timing, colour, HDR, HDCP, crop, cutout, test pattern. Nearly every property
/// has a preset value, what the user asked for, and an actual one, what the device reports; the `valid` accessors give
/// the actual one while a signal is there (isActive()), else the preset. Sizes are in pixels, refresh rates in hertz.
///
/// Setters store a value that differs and signal afterwards; an equal value changes nothing. What a device reports is
/// stored as it comes. Without an owner accessors give the neutral values that they name.
///
/// Threads. Lives on the application's thread; all operations may be called from any thread, createConnects() and
/// unserailize() from one at a time. No lock is held when a signal goes out, so a slot may call back.
class QUORIX_EXPORT Interface : public QObject, public std::enable_shared_from_this<Interface> {
    Q_OBJECT

public:
    using CapacityMode = Enum::Interface::CapacityMode;
    using CardType = Enum::Device::CardType;
    using ColorDepth = Enum::Interface::ColorDepth;
    using ColorGamut = Enum::Interface::ColorGamut;
    using ColorRange = Enum::Interface::ColorRange;
    using ColorSpace = Enum::Interface::ColorSpace;
    using ConnectorType = Enum::Interface::ConnectorType;
    using DynamicRange = Enum::Interface::DynamicRange;
    using FormatMapping = Enum::Interface::FormatMapping;
    using HDCPType = Enum::Interface::HDCPType;
    using InterfaceType = Enum::Interface::InterfaceType;
    using Detail = ProtoModel::Interface::s_InterfaceDetail;
    using Timing = ProtoModel::s_TimingDetailBody;

    /// An interface with a default record. @p parent isn't used: shared references own an interface.
    explicit Interface(QObject *parent = nullptr);
    /// The interface that the capability files imply on a connector of @p device; see initInterfaceData().
    Interface(std::weak_ptr<Device> device, uint8_t slotId, uint8_t connectorId);
    /// A copy has the same owner and values; it isn't joined to the hub.
    Interface(const Interface &other);
    Interface &operator=(const Interface &other);
    ~Interface() override;
    /// Restores owner and relays after a load from disk.
    virtual void unserailize(std::weak_ptr<Device> device);

    // Bandwidth (bandwidth.cpp). An answer of true means: out of limits.

    /// Whether a timing is beyond the limits of the connector; the reason for the user in @p error.
    /// @param hTotal,vTotal pixels and lines of a frame, blanking included   @param refreshRate hertz
    /// @param bitDepth 255: the actual depth while a signal is there, else 8 (inputs); 8 (outputs)
    virtual bool isBandwidthExceeded(int hTotal, int vTotal, float refreshRate, ColorSpace colorSpace,
                                     ColorDepth bitDepth, QString &error);
    /// Limits of an input's pixel clock in hertz; without them both arguments stay as they are.
    void interfaceMaxMinBandWidth(quint64 &nCurrentMaxBandWidth, quint64 &nCurrentMinBandWidth);
    /// Words a refusal, in @p unit, which is @p ratio of the bandwidths' own. The minimum is asked first, a bandwidth
    /// at a limit passes, and a ratio of 0 refuses nothing.
    bool bandwidthErrorMsg(const quint64 &nCurrentMaxBandWidth, const quint64 &nCurrentMinBandWidth,
                           const quint64 &currentBand, QString &error, const QString &unit, qreal ratio);
    /// Whether the reported signal of an input is beyond its limits, on a card that tells overloads; computed anew.
    bool checkOverLoadStatus();

    // Identity (interface.cpp)

    void setInterfaceId(ProtoModel::s_InterfaceID id);
    /// A copy, so that a report on another thread can't change it under the reader's hands.
    [[nodiscard]] ProtoModel::s_InterfaceID interfaceFullId() const;
    /// The packed id, the sort key of inputs and outputs.
    [[nodiscard]] uint32_t interfaceId() const { return m_packedId; }
    void setOwerDevice(std::weak_ptr<Device> device);
    [[nodiscard]] std::weak_ptr<Device> owerDevice() const;
    /// A value of Enum::Interface::InterfaceType.
    [[nodiscard]] int type() const;
    void setType(InterfaceType type);
    /// Place of the interface in the echo frame; 255 without an owner.
    [[nodiscard]] uint8_t echoVideoId() const;
    /// Capacity and type of the connector, from the device's record; `invaild` and `INVALID` without one.
    [[nodiscard]] CapacityMode capacity() const;
    [[nodiscard]] ConnectorType connectorType() const;
    /// What the capability file says of the connector type; a default record for an unknown one.
    [[nodiscard]] InterfaceConfig::ConnectorInfo connectorInfo() const;
    [[nodiscard]] QString connectorShortType() const;
    [[nodiscard]] QString connectorTypeName() const;
    /// `Undefined` without a card.
    [[nodiscard]] CardType cardType() const;
    /// Number printed on the rear panel, in the layout that is in force by the capability file; -1 if there is none.
    [[nodiscard]] int printKeyNo() const;
    /// Whether a signal is there: the device is online and the actual timing has a size and a rate.
    [[nodiscard]] bool isActive() const;
    /// Tells the application that a setting could not be issued to the device.
    void setLssuedFailedUpdate(const std::weak_ptr<Device> &device);

    /// Joins the signals to the hub, with @p device and this interface in front. Joining again for the same device does
    /// nothing.
    void createConnects(std::weak_ptr<Device> device);

    // Names (interface_names.cpp). The numbers in them count from 1.

    [[nodiscard]] QString name() const;
    void setName(const QString &name);
    /// The name of a new interface; empty for a type that is none of `Input`, `MainOutput`, `AUXOutput`.
    [[nodiscard]] QString nextInterfaceName(uint8_t slotId, InterfaceType type) const;
    /// By position; "N/A" without an owner.
    [[nodiscard]] QString nextInputInterfaceName(uint8_t slotId) const;
    [[nodiscard]] QString nextOutputInterfaceName(uint8_t slotId) const;
    /// The first that no output of the device has.
    [[nodiscard]] QString nextAuxInterfaceName() const;
    /// Where the interface stands: "In1-2"; "N/A" for a place that has no label.
    [[nodiscard]] QString positionName() const;

    // Colour, HDR and HDCP (interface_colour.cpp). 255 (`AUTO`) stands for a value that isn't set.

    void setColorDepth(ProtoModel::s_ColorDepthBody depth);
    [[nodiscard]] ProtoModel::s_ColorDepthBody colorDepth() const;
    void setPresetColorDepth(ColorDepth depth);
    [[nodiscard]] ColorDepth presetColorDepth() const;
    void setActualColorDepth(ColorDepth depth);
    [[nodiscard]] ColorDepth actualColorDepth() const;
    [[nodiscard]] ColorDepth validColorDepth() const;
    void setColorSpace(ProtoModel::s_ColorSpaceBody space);
    [[nodiscard]] ProtoModel::s_ColorSpaceBody colorSpace() const;
    void setPresetColorSpace(ColorSpace space);
    [[nodiscard]] ColorSpace presetColorSpace() const;
    void setActualColorSpace(ColorSpace space);
    [[nodiscard]] ColorSpace actualColorSpace() const;
    [[nodiscard]] ColorSpace validColorSpace() const;
    void setColorRange(ProtoModel::s_ColorRangeBody range);
    [[nodiscard]] ProtoModel::s_ColorRangeBody colorRange() const;
    [[nodiscard]] ColorRange presetColorRange() const;
    [[nodiscard]] ColorRange actualColorRange() const;
    [[nodiscard]] ColorRange validColorRange() const;
    /// Signals gamut, type of dynamic range and content light level, each by itself; other changes are silent.
    void setHDR(ProtoModel::s_HDRBody hdr);
    [[nodiscard]] ProtoModel::s_HDRBody hdr() const;
    [[nodiscard]] ColorGamut presetColorGamut() const;
    [[nodiscard]] ColorGamut actualColorGamut() const;
    [[nodiscard]] DynamicRange presetDynamicRange() const;
    [[nodiscard]] DynamicRange actualDynamicRange() const;
    /// Maximum content light level, in candela per square metre.
    [[nodiscard]] int presetPqMaxCll() const;
    [[nodiscard]] int actualPqMaxCll() const;
    void setHDCPEnable(bool isEnabled);
    void setHDCPPresetType(HDCPType type);
    void setHDCPActualType(HDCPType type);
    [[nodiscard]] ProtoModel::Interface::s_HDCPBody HDCP() const;
    [[nodiscard]] HDCPType presetHDCPType() const;
    [[nodiscard]] HDCPType actualHDCPType() const;
    /// Without @p bShowDetailType only on and off are told apart.
    [[nodiscard]] QString presetHDCPTypeQString(bool bShowDetailType) const;
    [[nodiscard]] QString actualHDCPTypeQString(bool bShowDetailType) const;

    // Picture (interface.cpp)

    void setGeneral(const ProtoModel::Interface::s_InterfaceGeneralBody &general);
    [[nodiscard]] ProtoModel::Interface::s_InterfaceGeneralBody general() const;
    void setTestPattern(ProtoModel::s_TestPatternBody pattern);
    [[nodiscard]] ProtoModel::s_TestPatternBody testPattern() const;
    void setImageQuality(ProtoModel::s_ImageQualityBody quality);
    [[nodiscard]] ProtoModel::s_ImageQualityBody imageQuality() const;
    void setFormatMapping(FormatMapping mapping);
    [[nodiscard]] FormatMapping formatMapping() const;
    void setCutoutGeneral(ProtoModel::Interface::s_CutoutGeneralBody cutout);
    [[nodiscard]] ProtoModel::Interface::s_CutoutGeneralBody cutoutGeneral() const;
    void setCutoutEnable(bool isEnabled);
    [[nodiscard]] bool cutoutEnable() const;
    /// Takes the key colour that a device has picked; that it answered is signalled even for the present colour.
    void setCutoutRGB(const ProtoModel::s_RGB &color);
    [[nodiscard]] ProtoModel::s_RGB cutoutRGB() const;
    void setCutoutPos(ProtoModel::Auxiliary::s_CutoutPos pos);
    [[nodiscard]] ProtoModel::Auxiliary::s_CutoutPos cutoutPos() const;

    // Timing (interface_timing.cpp). Frame sizes are visible pixels, total sizes have the blanking in them.

    void setPresetTiming(Timing timing);
    /// Works the timing out by the mode tables or CVT; interlacing and polarities are 0.
    void setPresetTiming(int width, int height, float rate);
    [[nodiscard]] Timing presetTiming() const;
    [[nodiscard]] QSize presetFrameRate() const;
    [[nodiscard]] QSize presetTotalFrameRate() const;
    [[nodiscard]] float presetRefreshRate() const;
    [[nodiscard]] bool presetInterlacing() const;
    /// What the device reports; overload, connector, signal and crop follow it, signalInterfaceActualTimingChanged
    /// last.
    void setActualTiming(Timing timing);
    [[nodiscard]] Timing actualTiming() const;
    [[nodiscard]] QSize getFrameRate() const;
    [[nodiscard]] QSize actualTimingTotalFrameRate() const;
    [[nodiscard]] float getRefreshRate() const;
    [[nodiscard]] bool actualInterlacing() const;
    [[nodiscard]] QSize validSizeUnderActive() const;
    [[nodiscard]] QSize validTotalSizeUnderActive() const;
    [[nodiscard]] float validRateUnderActive() const;
    [[nodiscard]] bool validInterlaced() const;
    /// Checks the reported signal and signals a change of the answer.
    void setOverLoad();
    /// The answer of the last check.
    [[nodiscard]] bool isOverLoad() const;

    // Crop (interface_crop.cpp): a rectangle of the frame, in pixels and as ratios of 1/100000 of the frame. The ratios
    // are what stays when the frame changes. Layers have crops of their own.

    void setCrop(const ProtoModel::s_CropDetailBody &crop, const QString &sender);
    [[nodiscard]] ProtoModel::s_CropDetailBody crop() const;
    [[nodiscard]] ProtoModel::s_CropDetailBody cropDetailBody() const;
    void setCropEnable(bool isEnabled);
    [[nodiscard]] bool cropEnable() const;
    [[nodiscard]] QRect cropRect() const;
    [[nodiscard]] ProtoModel::s_Rect cropProtoRect() const;
    /// Sets the rectangle, in pixels of validSizeUnderActive(), and its ratios.
    void setCropRect(const QRect &rect, const QString &sender);
    /// A mark for those who edit crops; nothing here obeys it.
    void setCropLocked(bool isLocked);
    [[nodiscard]] bool isCropLocked() const;
    /// @p rect as ratios of a frame; the whole for a frame without an area.
    [[nodiscard]] QRect calcInterceptRatio(const QRect &rect, const QSize &size) const;
    /// Works the pixels out anew from the ratios.
    void updateCrop();
    /// The crop if it is enabled, else the whole frame.
    [[nodiscard]] QRect validRectUnderCrop() const;
    /// Of an input: the layers that show it work the pixels of their crops out anew.
    void updateLayerInputCrop();
    /// Of an input: the layers that show it, and whose own crop is on, take its crop. For whoever has changed it.
    void resetLayerInputCrop();

    // Reported state (interface_report.cpp)

    /// Fills a fresh interface from the capability files, without a report. Owner, card and connector must be there.
    void initInterfaceData(uint8_t slotId, uint8_t connectorId);
    /// Takes a whole record over in silence and tells the connector. Always true; @p errMsg isn't used.
    bool initModelData(std::weak_ptr<Device> device, const Detail &detail, QString &errMsg);
    /// Follows a report, setter by setter. The id stays, and so does HDR, which has a message of its own.
    void setInterfaceDetail(const Detail &detail);
    /// A copy of the stored record.
    [[nodiscard]] Detail interfaceDetail() const;

Q_SIGNALS:
    void signalInterfaceNameChanged();
    void signalInterfaceCropChanged(const QString &sender);
    void signalInterfaceTestPatternChanged();
    void signalInterfaceImageQualityChanged();
    void signalCutoutInfoChanged();
    void signalInterfaceSignalChanged();
    void signalPresetFrameTimingChanged();
    void signalHDCPInfoChanged();
    void signalInterfaceIDChanged();
    void signalInterfaceCutoutRGBChanged();
    void signalInterfaceCutoutRGBReported();
    void signalInterfaceOverLoadChanged();
    void signalInterfaceActualTimingChanged();
    void signalInterfaceActualColorSpaceChanged();
    void signalInterfaceActualColorRangeChanged();
    void signalInterfaceActualColorDepthChanged();
    void signalInterfacePresetColorSpaceChanged();
    void signalInterfacePresetColorRangeChanged();
    void signalInterfacePresetColorDepthChanged();
    void signalInterfacePresetColorGamutChanged();
    void signalInterfacePresetDynamicRangeChanged();
    void signalInterfacePresetPqMaxCllChanged();
    void signalInterfaceAcualColorGamutChanged();
    void signalInterfaceAcualDynamicRangeChanged();
    void signalInterfaceAcualPqMaxCllChanged();
    void signalInterfaceFormatMappingChanged();

protected:
    /// Whether a timing is that of a signal: it has a size and a rate.
    [[nodiscard]] static bool isSignal(const Timing &timing) {
        return timing.horizontal.addTime != 0 && timing.vertical.addTime != 0 && timing.refresh != 0;
    }
    /// Direction in the capability files: `Input` on an input card, else `MainOutput`.
    [[nodiscard]] InterfaceType direction() const;
    /// The device's record of the connector; false without one.
    bool connectorRecord(ProtoModel::Device::s_Connectors &record) const;
    /// A copy of what is stored. Requires: m_detailRWLock is held.
    [[nodiscard]] InterfaceState stateWhileLocked() const;

    Detail m_detail;
    mutable QReadWriteLock m_detailRWLock; ///< guards all fields, also those of the derived classes

private:
    friend class ModelArchive;
    /// The actual value while a signal is there, else the preset; both are fields of m_detail.
    template <class T>
    [[nodiscard]] T valid(const T &actual, const T &preset) const {
        const bool isOnline = isOwnerOnline();
        const ReadGuard guard(m_detailRWLock);
        return isOnline && isSignal(m_detail.actualTiming) ? actual : preset;
    }
    [[nodiscard]] bool isOwnerOnline() const;
    void storeIdWhileLocked(const ProtoModel::s_InterfaceID &id);
    /// Tells the device whether the connector has a signal and is overloaded.
    void tellConnector();
    /// Changes a copy of the crop, stores it if it differs, and signals.
    template <class Change>
    void changeCrop(Change change, const QString &sender);
    /// Of an input: calls @p action for each layer that shows it.
    template <class Action>
    void forShowingLayers(Action action);

    bool m_cropLocked = false;
    std::weak_ptr<Device> m_pOwnerDevice;
    ProtoModel::Auxiliary::s_CutoutPos m_cutoutPosInfo;
    bool m_bOverLoad = false;
    /// The packed form of m_detail.interfaceId, written together with it, so that lists are searched without the lock
    /// of each entry.
    std::atomic<uint32_t> m_packedId = 0;
    RelaySet m_relays;
};

} // namespace Quorix::BizModel

#endif
