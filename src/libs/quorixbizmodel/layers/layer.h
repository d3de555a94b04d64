/// One picture window on a screen.
#ifndef QUORIXBIZMODEL_LAYER_H
#define QUORIXBIZMODEL_LAYER_H

#include <quorix_export.h>
#include <quorixbizmodel/common/guards.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixbizmodel/hub/relay.h>
#include <quorixprotomodel/layer.h>

#include <QColor>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <cstdint>
#include <memory>
#include <string>

namespace Quorix::BizModel {

/// The texts that the user interface draws into a window (UMD). Nothing of it is stored.
struct s_UMDData {
    bool UMDEnabled = true;
    QString SourceName;
    QRect SourceNameRect;
    QString AUXTip;
    QRect AUXTipRect;
    QString SourceFrameRate;
    QRect SourceFrameRateRect;
    QColor ForegroundColor;
    bool operator==(const s_UMDData &) const = default;
};

/// What is stored of a layer, under the keys of the document.
struct LayerState {
    ProtoModel::Layer::s_LayerFullDetail m_detail;
    Enum::Interface::CapacityMode m_enumCapacity = Enum::Interface::CapacityMode::invaild;
    double m_bWindowWHRatio = 1.0;
    Enum::Layer::AspectRatioType m_eAspectRatioType = Enum::Layer::AspectRatioType::_Invalid;
    bool m_bWindowWHRatioLockd = false;
    double m_dBorderWHRatio = 1.0;
    bool m_bBorderWHRatioLockd = false;
    ProtoModel::s_RGB m_uiBorderColor;
};

/// A rectangle in the mosaic of a screen that shows a source, in one scene. Its screen owns it. Rectangles are in
/// pixels of the mosaic, crops in pixels of the source. The window is stored as it is given: the limits are published,
/// and the caller applies them.
///
/// Setters store a value that differs and signal afterwards; an equal value changes nothing, unless an operation says
/// otherwise. The text that goes with a signal is the sender's name, so that a view can tell its own change. Whatever
/// needs the owner, its device or an input that has gone gives the negative answer and changes nothing.
///
/// Threads. Lives on the application's thread. What stands in the record may be read from any thread; edits come from
/// the one thread that drives the model. No lock is held when a signal goes out, so a slot may call back.
class QUORIX_EXPORT Layer : public QObject, public std::enable_shared_from_this<Layer>, private LayerState {
    Q_OBJECT

public:
    using AspectRatioType = Enum::Layer::AspectRatioType;
    using BorderType = Enum::Layer::BorderType;
    using Capacity = Enum::Interface::CapacityMode;
    using FlipType = Enum::Layer::FlipType;
    using LayerType = Enum::Layer::LayerType;
    using SceneType = Enum::Layer::SceneType;
    using SourceType = Enum::Layer::SourceType;
    using UMDData = s_UMDData;
    using Crop = ProtoModel::s_CropDetailBody;
    using Detail = ProtoModel::Layer::s_LayerFullDetail;

    explicit Layer(QObject *parent = nullptr);
    /// A copy has the values and the owner of the source; it is in no list and not joined to the hub.
    Layer(const Layer &other);
    Layer &operator=(const Layer &other);
    ~Layer() override;

    // What the kinds of layer answer each in their own way (layer.cpp).

    [[nodiscard]] virtual QSize minWindowSize() const;
    [[nodiscard]] virtual QSize maxWindowSize() const;
    [[nodiscard]] virtual QSize defaultWindowSize() const;
    /// Half the window on each axis, at most 255.
    [[nodiscard]] virtual QSize maxBorderSize() const;
    [[nodiscard]] virtual QSize minBorderSize() const;
    /// Whether owner and device are there; logged if one isn't.
    [[nodiscard]] virtual bool checkData() const;
    /// Restores owner, selection, ratio and relays after a load from disk.
    virtual void unserailize(std::weak_ptr<Screen> screen);
    [[nodiscard]] virtual QString name() const;
    /// Takes a whole record over in silence. Always true; @p errMsg isn't used.
    virtual bool initModelData(std::weak_ptr<Screen> screen, const Detail &detail, QString &errMsg);
    /// Back to a default record without an owner, in silence.
    virtual void clearAll();

    // Identity and flags (layer.cpp)

    [[nodiscard]] uint8_t layerId() const;
    void setLayerId(const uint8_t &id);
    /// The kind of the layer, whatever its class.
    [[nodiscard]] LayerType layerType() const;
    void setLayerType(LayerType type);
    [[nodiscard]] SceneType sceneType() const;
    void setSceneType(SceneType scene);
    [[nodiscard]] uint8_t zOrder() const;
    void setZOrder(uint8_t zOrder);
    [[nodiscard]] bool selected() const;
    void setSelected(bool isSelected);
    /// Renames the cut partner, too, where that is switched on.
    void setName(const QString &name);
    void setOwnerScreen(const std::weak_ptr<Screen> &screen);
    [[nodiscard]] std::weak_ptr<Screen> ownerScreen() const;
    /// The identity on the living owner; all zero without one.
    [[nodiscard]] ProtoModel::s_ScreenLayerId screenLayerId() const;
    [[nodiscard]] Detail layerDetail() const;
    /// A copy of what is stored.
    [[nodiscard]] LayerState state() const;
    [[nodiscard]] ProtoModel::Layer::s_LayerGeneralBody layerGeneral() const;
    /// Builds a record from its parts.
    [[nodiscard]] static ProtoModel::Layer::s_LayerGeneralBody
    layerGeneral(std::string name, int isBackground, int isFreeze, int isMonochrome, int isInverse, int flipType);
    /// Field by field, each with its own signal.
    void setGeneralInfo(const ProtoModel::Layer::s_LayerGeneralBody &general);
    void updateEnableInfo(const ProtoModel::Layer::s_LayerEnable &info);
    void updateEnableInfos(const Detail &detail);
    /// Records as they are sent; @p enable has no effect.
    [[nodiscard]] ProtoModel::Layer::s_LayerEnable layerEnableStruct(bool enable) const;
    [[nodiscard]] Detail layerFullDetailStruct(bool enable) const;
    /// Joins the signals to the hub, with device, @p screen and this layer in front. Joining again for the same ones
    /// does nothing. (layer_connects.cpp)
    void createConnects(std::weak_ptr<Screen> screen);

    // Window and ratio (layer_window.cpp)

    [[nodiscard]] QPoint pos() const;
    [[nodiscard]] QRect windowRect() const;
    /// @param isChangeRatio let the stored ratio follow, unless it is locked; also for an equal rectangle
    void setWindowRect(const QRect &rect, const QString &senderName, bool isChangeRatio = true);
    /// Width divided by height.
    [[nodiscard]] double widthHeightRatio() const;
    void setWindowWHRatio(double ratio);
    /// A rectangle without height changes nothing, nor does a ratio that isn't finite.
    void setWindowWHRatio(QRect rect);
    [[nodiscard]] AspectRatioType widthHeightRatioType() const;
    /// Always signals.
    void setWidthHeightRatioType(AspectRatioType type);
    /// Looks up the name of the stored ratio; always signals.
    void updateWidthHeightRatioType();
    [[nodiscard]] QString widthHeightRatioStr() const;
    /// A locked ratio doesn't follow the window.
    void setWindowWHRatioLocked(bool isLocked);
    [[nodiscard]] bool windowWHRatioLockd() const;
    /// Half the frame of an input.
    [[nodiscard]] QSize defulatSize(const std::weak_ptr<Input> &input) const;

    // Capacity (layer.cpp)

    /// Capacity mode of the source's connector.
    [[nodiscard]] Capacity capacity() const;
    void setCapacity(Capacity capacity);
    /// Reads it from the connector of the input with the source's id; a cut layer is always `_SL`.
    void updataCapacity();
    [[nodiscard]] QString capacityString() const;
    [[nodiscard]] Enum::Layer::LayerMode layerMode() const;
    [[nodiscard]] bool shapeEnabled() const;

    // Source (layer_source.cpp)

    [[nodiscard]] SourceType sourceType() const;
    /// A packed interface id, a screen id or a file id, by the type.
    [[nodiscard]] uint32_t sourceId() const;
    /// For the thread that edits.
    [[nodiscard]] const ProtoModel::Layer::s_LayerSourceGeneral &currentLayerSource() const;
    [[nodiscard]] ProtoModel::Layer::s_LayerSource layerSource() const;
    [[nodiscard]] QString sourceName() const;
    [[nodiscard]] QRect sourceRectOfInput() const;
    /// (-1, -1) where there is none.
    [[nodiscard]] QSize sourceValidSize() const;
    [[nodiscard]] bool sourceCutoutEnable() const;
    /// The user's choice of a source. A source that the layer hasn't shown yet starts with the crop of the input. False
    /// for the present one.
    bool setSource(const ProtoModel::Layer::s_LayerSourceGeneral &source);
    /// A reported source with its crops; signals what differs.
    bool setSource(const ProtoModel::Layer::s_LayerSource &source);
    /// Stores and signals without comparing.
    bool setSource(const ProtoModel::Layer::s_LayerSourceBody &source);
    /// Proposals; the layer stays as it is.
    [[nodiscard]] ProtoModel::Layer::s_LayerSource constructSourceStruct(uint32_t sourceId, int sourceType) const;
    [[nodiscard]] ProtoModel::Layer::s_LayerSource constructSourceStruct(const std::weak_ptr<Input> &input) const;
    /// A logo layer takes the size of its picture.
    void updataWindowRectAfterSwitchLogoSource();

    // Crops (layer_crop.cpp): one entry for each source that the layer has shown; ratios of 1/100000 are what stays
    // when the frame of the input changes.

    bool souceCropRatio(Crop &crop) const;
    bool souceCropRatio(const std::weak_ptr<Input> &input, Crop &crop) const;
    [[nodiscard]] bool souceCropEnable() const;
    [[nodiscard]] bool souceCropEnable(const std::weak_ptr<Input> &input) const;
    [[nodiscard]] QRect souceCropRect() const;
    [[nodiscard]] QRect souceCropRect(const std::weak_ptr<Input> &input) const;
    /// What of the source the layer shows.
    [[nodiscard]] QRect cropRectOfLayer() const;
    bool setSourceCropRatio(const ProtoModel::Layer::s_LayerSource &source);
    bool setSourceCropRatio(const ProtoModel::Layer::s_LayerSourceBody &source);
    bool setSouceCrop(const Crop &crop);
    bool setSourceCropRect(const QRect &cropRect, const QString &senderName);
    /// Works the pixels of all input crops out from their ratios.
    void setLayerCrop();
    void updateLayerCropRatio(const uint32_t &inputId, const QSize &size);
    void updateLayerCropRatio(const std::weak_ptr<Interface> &interface);
    /// Takes the crop of the input itself.
    void resetLayerCropRatio(const std::weak_ptr<Interface> &interface);

    // Looks (layer_looks.cpp)

    void setBackgroundEnable(bool isEnabled);
    [[nodiscard]] bool backgroundEnable() const;
    void setFrezzeEnable(bool isEnabled);
    [[nodiscard]] bool frezzeEnable() const;
    void setMonochromeEnable(bool isEnabled);
    [[nodiscard]] bool monochromeEnable() const;
    void setInverseEnable(bool isEnabled);
    [[nodiscard]] bool inverseEnable() const;
    void setFlipType(FlipType type);
    [[nodiscard]] FlipType flipType() const;
    /// The present flip, mirrored once more.
    [[nodiscard]] FlipType verImageFlipType() const;
    void setMask(const ProtoModel::Layer::s_LayerMaskBody &mask, const QString &sender);
    [[nodiscard]] ProtoModel::Layer::s_LayerMaskBody mask() const;
    [[nodiscard]] bool maskEnable() const;
    /// Scales the mask as the window went from @p oldRect to @p newRect; an empty @p oldRect changes nothing.
    void updateMaskRect(const QRect &newRect, const QRect &oldRect);
    void setTestColor(const ProtoModel::s_ColorEnableRGB &color);
    [[nodiscard]] ProtoModel::s_ColorEnableRGB testColor() const;
    [[nodiscard]] QColor testQColor() const;
    /// Percent.
    void setOpacity(uint8_t opacity, const QString &sender);
    [[nodiscard]] uint8_t opacity() const;
    [[nodiscard]] ProtoModel::Layer::s_LayerShadowBody shadow() const;
    /// Signals saturation, hue, brightness and contrast, each if it differs; a gamma alone is silent.
    void setImageQuality(const ProtoModel::s_ImageQualityBody &quality, const QString &sender);
    /// For the thread that edits.
    [[nodiscard]] const ProtoModel::s_ImageQualityBody &imageQuality() const;

    // Border (layer_border.cpp)

    [[nodiscard]] bool borderEnable() const;
    /// Silent.
    void setBorderEnabled(bool isEnabled);
    [[nodiscard]] QSize borderSize() const;
    void setBorderSize(const QSize &size, const QString &sender);
    /// Opaque; the opacity is apart.
    [[nodiscard]] QColor borderColor() const;
    [[nodiscard]] int borderColorOpacity() const;
    void setBorderColor(const QColor &color, const QString &sender);
    [[nodiscard]] BorderType borderType() const;
    /// Any type but `Invalid` switches the border on.
    void setBorderType(BorderType type);
    [[nodiscard]] static QColor defaultBorderColor(LayerType type, SourceType source);
    [[nodiscard]] static bool defaultBorderEnabled(LayerType type);
    /// The rest is for the user interface alone: no signal.
    void setBorderWHRatioLocked(bool isLocked);
    [[nodiscard]] bool borderWHRatioLockd() const;
    void setBorderWHRatio(qreal ratio);
    [[nodiscard]] qreal borderWHRatio() const;
    /// The frame that the user interface draws; stored without its alpha.
    void setBorderForUIColor(const QColor &color);
    [[nodiscard]] QColor borderForUIColor() const;

    // UMD texts (layer_umd.cpp): what the device shows in the corners, and what the user interface draws

    /// Always signals, as do the switch and the colour.
    void setUMDData(const ProtoModel::Layer::s_LayerUMDBodyArray &umd);
    [[nodiscard]] ProtoModel::Layer::s_LayerUMDBodyArray layerUMD() const;
    [[nodiscard]] bool umdEnabled() const;
    void setUMDEnable(bool isEnabled);
    [[nodiscard]] ProtoModel::s_RGBO umdColor() const;
    void setUMDColor(const ProtoModel::s_RGBO &color);
    /// For the thread that edits.
    [[nodiscard]] const UMDData &UMDContent() const;
    void setUMDContent(const UMDData &content);
    /// Appends one record for each text that isn't empty. Always true; the file plays no part.
    bool generateLayerUMD(int fileId, int fileType, ProtoModel::Layer::s_LayerUMDBodyArray &arry) const;

    // Cut and fill (layer_cutfill.cpp): a cut layer and the regular layer with its id in its scene are a pair

    [[nodiscard]] ProtoModel::Layer::s_CutFillBody cutAndFill() const;
    [[nodiscard]] bool isCutLayer() const;
    [[nodiscard]] bool isCutLayerEnable() const;
    [[nodiscard]] bool isFillBindingCut() const;
    /// The partners; empty on a layer of that kind itself.
    [[nodiscard]] std::weak_ptr<Layer> cutLayer() const;
    [[nodiscard]] std::weak_ptr<Layer> fillLayer() const;
    /// Binding moves a cut layer to the window of its fill.
    void setCutAndFill(const ProtoModel::Layer::s_CutFillBody &body);

Q_SIGNALS:
    void signalZOrderChanged();
    void signalNameChanged();
    void signalBackgroundChanged();
    void signalFreezeStatusChanged();
    void signalMonochromeStatusChanged();
    void signalInverseStatusChanged();
    void signalFlipTypeChanged();
    void signalSourceCropChanged(const QString &sender);
    void signalSourceInfoChanged();
    void signalUMDChanged();
    void signalWindowRectChanged(const QString &sender);
    void signalLayerWindowRectChanged(const QRect &before, const QRect &after);
    void signalMaskChanged(const QString &sender);
    void signalTestColorChanged();
    void signalOpacityChanged(const QString &sender);
    void signalWindowWHRatioLockedStateChanged();
    void signalWidthHeightRatioChanged();
    void signalBorderChanged(const QString &sender);
    void signalBorderColorChanged(const QString &sender);
    void signalLayerContrastChanged(const QString &sender);
    void signalLayerBrightnessChanged(const QString &sender);
    void signalLayerHueChanged(const QString &sender);
    void signalLayerSaturationChanged(const QString &sender);
    void signalUMDEnableChanged();
    void signalUMDColorChanged();
    void signalCutAndFillChanged();
    void signalWidthHeightRatioTypeChanged();

protected:
    /// The device behind the owner; null without one.
    [[nodiscard]] std::shared_ptr<Device> ownerDevice() const;
    /// The input with the source's id, whatever the source's type; null without one.
    [[nodiscard]] std::shared_ptr<Input> sourceInput() const;
    /// The regular screen whose scene is the source; null for another source and where there is none.
    [[nodiscard]] std::shared_ptr<Screen> sourceScreen() const;

private:
    friend class Screen;
    friend class ModelArchive;
    /// Id, kind and scene, read under one lock.
    [[nodiscard]] ProtoModel::s_LayerId storedId() const {
        const ReadGuard guard(m_detailRWLock);
        return m_detail.layerIdenti;
    }
    /// The layer of another kind with the rest of this one's identity; empty on a layer of that kind.
    [[nodiscard]] std::weak_ptr<Layer> partner(LayerType type) const;
    /// Changes the entry of an input, if there is one, and signals if it is the one shown.
    template <class Change>
    void changeInputCrop(uint32_t inputId, Change change);

    mutable QReadWriteLock m_detailRWLock; ///< guards the base, LayerState, and the owner
    std::weak_ptr<Screen> m_pOwnerScreen;
    UMDData m_umdData; ///< editing thread
    RelaySet m_relays;
};

} // namespace Quorix::BizModel

#endif
