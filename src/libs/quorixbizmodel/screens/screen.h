/// One screen of a device: a mosaic of outputs that shows the layers of two scenes.
#ifndef QUORIXBIZMODEL_SCREEN_H
#define QUORIXBIZMODEL_SCREEN_H

#include <quorix_export.h>
#include <quorixbizmodel/common/guards.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixbizmodel/hub/relay.h>
#include <quorixprotomodel/layer.h>
#include <quorixprotomodel/screen.h>

#include <QList>
#include <QObject>
#include <QPair>
#include <QPoint>
#include <QRect>
#include <QSet>
#include <QSize>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace Quorix::BizModel {

class RegularLayer;
class AUXLayer;
class BKGLayer;
class LogoLayer;
struct s_DeviceConfig;

/// What is stored of a screen beside its layers, under the keys of the document.
struct ScreenState {
    ProtoModel::Screen::s_ScreenFullDetail m_detail;
    std::int32_t m_iZOrder = 0;
    std::int32_t m_screenState = 0;        ///< Enum::Screen::State
    std::int32_t m_lastScreenState = 0;    ///< Enum::Screen::State
    std::int32_t m_curOperationTarget = 4; ///< Enum::Layer::SceneType
};

/// A mosaic of outputs, and the layers of the preview scene (PVW) and the programme scene (PGM) on it. Its device owns
/// it; whoever holds it holds a weak reference. Positions and sizes are in pixels of the mosaic, y downwards, unless an
/// operation says physical; a physical size is in its own unit, and its pixels stand to those of the mosaic by
/// physicalMosaicSizeRate().
///
/// Setters store a value that differs and signal afterwards; an equal value changes nothing. What hangs on a reference
/// that has gone gives false, an empty value or a null rectangle, and changes nothing.
///
/// Threads. Lives on the application's thread. Reading is safe from any thread; the operations that edit are for the
/// one thread that drives the model, as are the fields marked so below. No lock is held when a signal goes out, so a
/// slot may call back. Locks are taken in the order list of layers, then a layer; never a layer's before a screen's.
class QUORIX_EXPORT Screen : public QObject, public std::enable_shared_from_this<Screen> {
    Q_OBJECT

public:
    using LayerType = Enum::Layer::LayerType;
    using PhysicalUnitType = Enum::Screen::PhysicalUnitType;
    using SceneType = Enum::Layer::SceneType;
    using ScreenSpliceMode = Enum::Screen::ScreenSpliceMode;
    using ScreenType = Enum::Screen::ScreenType;
    using SourceType = Enum::Layer::SourceType;
    using State = Enum::Screen::State;
    using SwitchEffectType = Enum::Screen::SwitchEffectType;
    using Detail = ProtoModel::Screen::s_ScreenFullDetail;

    explicit Screen(QObject *parent = nullptr);
    /// A copy has the source's parent and nothing else of it; assigning copies nothing. A screen is duplicated through
    /// its record.
    Screen(const Screen &other);
    Screen &operator=(const Screen &other);
    ~Screen() override;

    // What the kinds of screen answer each in their own way.

    /// Whether PGM may be edited directly.
    [[nodiscard]] virtual bool PGMEdit() const;
    /// Whether the mosaic has all the outputs that it needs.
    [[nodiscard]] virtual bool isComplete() const;
    /// For each layer the rectangle that a full-screen command gives it: the union of the outputs under it.
    [[nodiscard]] virtual QList<QPair<std::weak_ptr<Layer>, QRect>>
    layerFullScreenRect(QList<std::weak_ptr<Layer>> layers) const;
    [[nodiscard]] virtual bool isSupportVirtualScreen() const;
    [[nodiscard]] virtual bool isSupportOutputZOrder() const;
    [[nodiscard]] virtual bool isSupportProjectionFusion() const;
    [[nodiscard]] virtual bool isSupportOutputAOI() const;
    [[nodiscard]] virtual bool isSupportIncompleteSplicing() const;
    /// Joins the signals to the hub, with @p device and this screen in front. Joining again for the same device does
    /// nothing. (screen_connects.cpp)
    virtual void createConnects(std::weak_ptr<Device> device);
    /// Takes a whole record over in silence. Always true; @p errMsg is for derived classes.
    virtual bool initModelData(std::weak_ptr<Device> device, const Detail &detail, QString &errMsg);
    /// Back to a default record without owner, layers and selection, in silence.
    virtual void clearAll();
    /// The range in which a layer may lie; null if there is none.
    [[nodiscard]] virtual QRect layerValidRangeWindowRect() const;

    /// Restores owner, selection, layers and relays after a load from disk.
    void unserailize(std::weak_ptr<Device> device);
    /// A copy of what is stored. Fields under different locks are copied one after the other.
    [[nodiscard]] ScreenState storedState() const;

    // Identity and plain properties (screen.cpp)

    [[nodiscard]] uint8_t screenId() const;
    void setScreenId(uint8_t id);
    [[nodiscard]] ScreenType screenType() const;
    void setScreenType(ScreenType type);
    [[nodiscard]] ProtoModel::s_ScreenId screenIdentity() const;
    /// The same.
    [[nodiscard]] ProtoModel::s_ScreenId screenIdenti() const;
    [[nodiscard]] QString name() const;
    /// Also writes the name in GBK, as upper-case hexadecimal digits, where the station has that codec.
    void setName(const QString &name);
    /// Position in the user's list.
    [[nodiscard]] int index() const;
    void setIndex(int index);
    [[nodiscard]] ProtoModel::Screen::s_GeneralBody screenGeneral() const;
    void setScreenGeneral(const ProtoModel::Screen::s_GeneralBody &general);
    [[nodiscard]] int zOrder() const;
    void setZOrder(int zOrder);
    [[nodiscard]] ProtoModel::s_RGB backGroundColor() const;
    void setBackGroundColor(const ProtoModel::s_RGB &color);
    [[nodiscard]] ProtoModel::Screen::s_ScreenNoVS screenNovs() const;
    [[nodiscard]] bool screenNovsEnable() const;
    void setScreenNovs(const ProtoModel::Screen::s_ScreenNoVS &novs);
    /// Place of the screen on the user's canvas. No signal.
    void setLayoutPos(const ProtoModel::s_Pos &pos);
    void setLayoutPos(const QPoint &pos);
    [[nodiscard]] ProtoModel::s_Pos layoutSPos() const;
    [[nodiscard]] QPoint layoutQPos() const;
    /// The stored number: any but 0 is selected.
    [[nodiscard]] int selected() const;
    void setSelected(bool isSelected);
    /// Marks of the user interface, without a signal.
    void setIsAllSelected(bool isAllSelected);
    [[nodiscard]] bool isAllSelected() const;
    void setUiScreenIndex(int index);
    [[nodiscard]] int getUiScreenIndex() const;
    void setOwerDevice(std::weak_ptr<Device> device);
    [[nodiscard]] std::weak_ptr<Device> owerDevice() const;
    /// The output marked in the user interface. An empty reference is always stored and signalled.
    void setActivedOutput(const std::weak_ptr<Output> &output);
    [[nodiscard]] std::weak_ptr<Output> activedOutput() const;

    // Splice grid (screen_mosaic.cpp)

    [[nodiscard]] ScreenSpliceMode spliceMode() const;
    void setSpliceMode(ScreenSpliceMode mode);
    /// Rows, then columns.
    [[nodiscard]] QPair<int, int> grid() const;
    void setGrid(QPair<int, int> grid, bool bSendSignal);
    /// grid(), whatever the output.
    [[nodiscard]] QPair<int, int> order(const std::weak_ptr<Output> &output) const;

    // Outputs of the mosaic (screen_outputs.cpp), in the order in which they came

    /// Appends an output, its area of interest being its whole preset frame. The first is the reference for the others.
    /// @param modifyOutput push the screen's picture parameters to the output and the port that mirrors it
    bool addOutput(const std::weak_ptr<Output> &output, QPoint pos, bool modifyOutput);
    bool removeOutput(const std::weak_ptr<Output> &output);
    /// Puts @p newOutput in the place of @p oldOutput; position, area of interest and feathers of the place stay.
    /// Requires: @p newOutput isn't in the mosaic. @param modifyOutput push parameters, and reset the old output
    bool switchOutput(const std::weak_ptr<Output> &oldOutput, const std::weak_ptr<Output> &newOutput,
                      bool modifyOutput);
    /// Replaces the whole mosaic. An empty list, or a first output that has gone, leaves it empty, in silence.
    bool updateOutputs(const QList<QPair<std::weak_ptr<Output>, QPoint>> &outputs, QPair<int, int> grid);
    /// One entry for each output of the record, empty for one that the device doesn't have.
    [[nodiscard]] QList<std::weak_ptr<Output>> outputs() const;
    [[nodiscard]] ProtoModel::Screen::s_OutputDetailArray outputDetailArry() const;
    [[nodiscard]] bool isExistOutput(const ProtoModel::s_InterfaceID &id) const;
    [[nodiscard]] std::weak_ptr<Output> output(const ProtoModel::s_InterfaceID &id) const;
    [[nodiscard]] QPoint pos(const std::weak_ptr<Output> &output) const;
    /// The area of interest in the mosaic.
    [[nodiscard]] QRectF mosaicRect(const std::weak_ptr<Output> &output) const;
    /// @p senderName goes out with the signal, so that a view can tell its own change.
    void setOutputsPos(const std::weak_ptr<Output> &output, const QPoint &pos, const QString &senderName);
    /// The area of interest: the part of an output's own frame that belongs to the mosaic.
    [[nodiscard]] QRect outputAOI(const ProtoModel::s_InterfaceID &id) const;
    void setOutputAOI(const QList<QPair<std::weak_ptr<Output>, QRect>> &areas);
    bool outputFeathers(const std::weak_ptr<Output> &output, ProtoModel::Screen::s_FeatherArray &feathers) const;
    [[nodiscard]] ProtoModel::Screen::s_FeatherArray outputFeatherArr(const std::weak_ptr<Output> &output) const;
    /// Stores and signals without comparing.
    void setOutputFeathers(const std::weak_ptr<Output> &output, const ProtoModel::Screen::s_FeatherArray &feathers,
                           const QString &senderName);
    /// Stores and signals a set of four that holds others than the stored four; their order counts for nothing.
    void setOutputsFeather(const std::weak_ptr<Output> &output, const ProtoModel::Screen::s_FeatherArray &feathers,
                           const QString &senderName);
    /// No feathers: top, left, right, bottom.
    [[nodiscard]] static ProtoModel::Screen::s_FeatherArray defultOutputFeatherArr();
    /// The cards that carry the outputs, in the order of the outputs.
    [[nodiscard]] QList<std::weak_ptr<Subcard>> subCards() const;
    [[nodiscard]] ProtoModel::Screen::s_ScreenRefOutputPara screenRefOutputPara() const;
    /// Connector type of the first output.
    [[nodiscard]] Enum::Interface::ConnectorType screenRefOutputType() const;

    // Mosaic and size (screen_mosaic.cpp)

    /// The union of the areas of interest, worked out from the outputs; null without any.
    [[nodiscard]] QRect mosaicWindowRect() const;
    [[nodiscard]] QPoint mosaicWindowPos() const;
    [[nodiscard]] QSize mosaicWindowSize() const;
    [[nodiscard]] static QRect calcMosaicWindowRect(const ProtoModel::Screen::s_OutputDetailArray &outputs);
    [[nodiscard]] static QSize calcMosaicWindowSize(const ProtoModel::Screen::s_OutputDetailArray &outputs);
    /// Sets the stored window. A change overwrites the physical size that the user has set.
    void setMosaicWindowRect(const QRect &rect);
    void updateScreenMosaicWindowRectAfterModifyOutput();
    void setPhysicalSize(const QSize &size);
    /// Compares width and height alone, and stores all four fields if they differ.
    void setPhysicalSize(const ProtoModel::Screen::s_PhysicalSizeBody &size);
    [[nodiscard]] ProtoModel::Screen::s_PhysicalSizeBody physicalSize() const;
    [[nodiscard]] QSize physicalQSize() const;
    void setPhysicalUnit(PhysicalUnitType unit);
    [[nodiscard]] PhysicalUnitType physicalUnit() const;
    /// Whether the physical size differs from the stored window, or isn't in pixels.
    [[nodiscard]] bool physicalEnable() const;
    /// No effect: the state is derived.
    void setPhysicalEnable(bool isEnabled);
    /// The mosaic's window with the physical size, where that is in force.
    [[nodiscard]] QRect realRect() const;
    /// Physical units to one pixel of the mosaic, across and down.
    [[nodiscard]] QPair<double, double> physicalMosaicSizeRate() const;
    [[nodiscard]] QSize mosaicSize2PhysicalSize(const QSize &size) const;
    [[nodiscard]] QPoint mosaicPoint2PhysicalPoint(const QPoint &point) const;
    /// Rectangles stay relative to the mosaic's own corner.
    [[nodiscard]] QRect mosaicRect2PhysicalRect(const QRect &rect) const;
    [[nodiscard]] QSize physicalSize2MosaicSize(const QSize &size) const;
    [[nodiscard]] QPoint physicalPoint2MosaicPoint(const QPoint &point) const;
    /// Offsets are cut toward zero.
    [[nodiscard]] QRect physicalRect2MosaicRect(const QRect &rect) const;
    /// Takes the mosaic of a record over if it differs: type, grid, window, reference and outputs.
    void setScreenMosaic(const ProtoModel::Screen::s_Enable &enable);
    /// The record that opens the screen, without its place on the canvas.
    [[nodiscard]] ProtoModel::Screen::s_Enable screenMosaic() const;
    /// The same with its place on the canvas.
    [[nodiscard]] ProtoModel::Screen::s_Enable screenEnableStruct() const;

    // Picture parameters that the screen imposes on its outputs (screen_outputs.cpp)

    void setImageQuality(const ProtoModel::s_ImageQualityBody &quality);
    [[nodiscard]] ProtoModel::s_ImageQualityBody imageQuality() const;
    void setTestPattern(const ProtoModel::s_TestPatternBody &pattern);
    [[nodiscard]] ProtoModel::s_TestPatternBody testPattern() const;
    /// The next three have no signal.
    void setHDR(const ProtoModel::s_HDRBody &hdr);
    [[nodiscard]] ProtoModel::s_HDRBody hdr() const;
    void setPresetColorDepth(Enum::Interface::ColorDepth depth);
    [[nodiscard]] ProtoModel::s_ColorDepthBody colorDepth() const;
    void setPresetColorSpace(Enum::Interface::ColorSpace space);
    [[nodiscard]] ProtoModel::s_ColorSpaceBody colorSpace() const;

    // Scenes (screen_scenes.cpp)

    void setState(State state);
    [[nodiscard]] State state() const;
    /// The state before the last change.
    [[nodiscard]] State lastState() const;
    /// Brackets of the three ways from PVW to PGM. False, and no change, from any state but the one that each needs.
    bool startTake();
    bool endTake();
    bool startCut();
    bool endCut();
    bool startTBar();
    bool endTBar();
    /// Position of the T-bar, percent.
    void setTBar(int percent);
    void setTBar(const ProtoModel::Screen::s_TbarBody &tbar);
    [[nodiscard]] ProtoModel::Screen::s_TbarBody TBar() const;
    /// Position of the T-bar, 0 to 1.
    [[nodiscard]] qreal TBarProcess() const;
    void setSwitchEffect(const ProtoModel::Screen::s_SwitchEffectBody &effect);
    [[nodiscard]] ProtoModel::Screen::s_SwitchEffectBody switchEffect() const;
    /// Seconds; stored in tenths, cut.
    void setSwitchEffect(qreal time);
    [[nodiscard]] qreal switchEffectTime() const;
    void setSwitchEffect(SwitchEffectType type);
    [[nodiscard]] SwitchEffectType switchEffectType() const;
    /// Fade to black.
    void setFTB(const ProtoModel::Screen::s_FTBBody &ftb);
    void setFTB(bool isEnabled);
    [[nodiscard]] ProtoModel::Screen::s_FTBBody FTB() const;
    [[nodiscard]] bool FTBEnable() const;
    void setFreeze(bool isFrozen);
    [[nodiscard]] bool freeze() const;
    void setPGMEdit(bool isEnabled);
    /// The scene that edits go to.
    void setOperationTarget(SceneType scene);
    [[nodiscard]] SceneType operationTarget() const;

    // Layers (screen_layers.cpp). Scenes and types are masks of Enum::Layer::SceneType and Enum::Layer::LayerType; the
    // kind of a layer is what its layerType() says.

    /// A new layer in no list; null for a mask or a number that is no kind.
    static std::shared_ptr<Layer> createLayer(LayerType type);
    /// Takes a layer in and joins it to the hub; one that is in already stays as it is.
    std::weak_ptr<Layer> addLayer(const std::shared_ptr<Layer> &layer);
    bool addLayers(const QList<std::shared_ptr<Layer>> &layers);
    /// Removes and deselects; cut layers go with their fill alone.
    void removeLayer(const QList<std::weak_ptr<Layer>> &layers);
    /// On an AUX or MVR screen: removes the layers that show the regular screen @p wSrcScreen.
    void removeLayer(const std::weak_ptr<Screen> &wSrcScreen);
    /// Empties all lists in silence.
    void clearLayer();

    /// Regular layers by id, then the cut layers, then AUX, MVR, background and logo layers by id.
    [[nodiscard]] QList<std::weak_ptr<Layer>> layers(int sceneType, int layertype) const;
    [[nodiscard]] QList<std::weak_ptr<Layer>> layers(SceneType scene) const;
    [[nodiscard]] QList<std::weak_ptr<Layer>> layers(SceneType scene, LayerType type) const;
    [[nodiscard]] QList<std::weak_ptr<Layer>> layers(SourceType source, LayerType type) const;
    [[nodiscard]] QList<std::weak_ptr<Layer>> layersBySource(SourceType source, uint32_t id) const;
    [[nodiscard]] bool isExistlayersBySource(SourceType source, uint32_t id) const;
    [[nodiscard]] QList<std::weak_ptr<Layer>> backgroundLayers(int sceneType, int layertype) const;
    [[nodiscard]] QList<std::weak_ptr<Layer>> PVWLayers(LayerType type) const;
    [[nodiscard]] QList<std::weak_ptr<Layer>> PGMLayers(LayerType type) const;
    [[nodiscard]] std::weak_ptr<Layer> layer(const ProtoModel::s_ScreenLayerId &id) const;
    [[nodiscard]] bool containsLayer(const std::weak_ptr<Layer> &layer) const;
    [[nodiscard]] bool containsLayer(const QString &name) const;
    [[nodiscard]] bool containsLayer(const ProtoModel::s_ScreenLayerId &id) const;
    [[nodiscard]] bool isExsitLayer(const QString &name, SceneType scene, LayerType type) const;
    /// Counts leave out cut layers that aren't switched on.
    [[nodiscard]] uint32_t layerCount(int sceneType, int layertype) const;
    [[nodiscard]] uint32_t layerCount(SceneType scene, LayerType type) const;
    [[nodiscard]] uint32_t PVWLayerCount(LayerType type) const;
    [[nodiscard]] uint32_t PVWLayerCount(int layertype) const;
    [[nodiscard]] uint32_t PGMLayerCount(int layertype) const;
    [[nodiscard]] uint32_t PGMLayerCount(LayerType type) const;
    [[nodiscard]] static uint32_t filterCutLayer(const QList<std::weak_ptr<Layer>> &layers);

    // For new layers (screen_newlayers.cpp)

    /// The lowest free id; 255 when 0 to 254 are taken.
    [[nodiscard]] uint8_t nextLayerId(SceneType scene, LayerType type) const;
    /// Up to that many free ids.
    [[nodiscard]] QList<uint8_t> nextLayerId(SceneType scene, LayerType type, int selectedLayerCount) const;
    [[nodiscard]] uint8_t nextZOrder(SceneType scene, LayerType type) const;
    /// Even positions for copies of the first @p count layers.
    [[nodiscard]] QList<uint8_t> nextZOrder(const QList<std::weak_ptr<Layer>> &layers, int count) const;
    [[nodiscard]] QString nextLayerName(uint32_t sourceId, SourceType source, SceneType scene, LayerType type) const;
    [[nodiscard]] QList<QString> nextLayerName(const QList<std::weak_ptr<Layer>> &selectLayers, SourceType source,
                                               int selectedLayerCount) const;

    // Selection (screen_selection.cpp): by id and type in, by object out. Entries that have gone may stand in it.

    void appendSelectedLayer(const QList<std::weak_ptr<Layer>> &layers, bool isEmit);
    void removeSelectedLayer(const QList<std::weak_ptr<Layer>> &layers, bool isToHardWare);
    void removeSelectedLayer(const QList<std::shared_ptr<Layer>> &layers, bool isToHardWare);
    void clearSelectedLayers(bool bEmitSignal);
    [[nodiscard]] QList<std::weak_ptr<Layer>> selectedLayers() const;
    [[nodiscard]] QList<std::weak_ptr<Layer>> selectedLayers(int layerType) const;

    // Geometry of layers (screen_newlayers.cpp)

    /// The outputs whose area of interest meets the layer's window.
    [[nodiscard]] QList<std::weak_ptr<Output>> outputsUnderLayer(const std::weak_ptr<Layer> &layer) const;
    /// Mirrors a rectangle left to right within the mosaic of @p wOwerScreen.
    [[nodiscard]] QRect calcLayerMirrorRect(const std::weak_ptr<Screen> &wOwerScreen, QRect layerRect) const;

    // Reported layers (screen_reported.cpp)

    /// Replaces all layers, in silence. False if one layer refused its record.
    bool initModelData(const ProtoModel::Layer::s_LayerDetailArray &details, QString &errMsg);
    /// Replace one scene, with the signals of layers that leave and come. Always true.
    bool initPVWLayerData(const ProtoModel::Layer::s_LayerDetailArray &details, QString &errMsg, bool emitLayerSignal);
    bool initPGMLayerData(const ProtoModel::Layer::s_LayerDetailArray &details, QString &errMsg, bool emitLayerSignal);

Q_SIGNALS:
    void signalOutputAdded(const std::weak_ptr<Output> &output);
    void signalOutputRemoved(const std::weak_ptr<Output> &output);
    void signalScreenNameChanged();
    void signalScreenIndexChanged();
    void signalScreenNovsStatusChanged();
    void signalActivedOutputChanged(const std::weak_ptr<Output> &output);
    void signalOutputBorderFuseChanged(const std::weak_ptr<Output> &output, const QString &sender);
    void signalOutputAOIChanged(const std::weak_ptr<Output> &output);
    void signalOutputPosChanged(const std::weak_ptr<Output> &output, const QString &sender);
    void signalMosaicWindowRectChanged();
    void signalBackGroundColorChanged();
    void signalPhysicalSizeChanged();
    void signalPhysicalUnitChanged();
    void signalSelectedChanged();
    void signalImageQualityChanged();
    void signalTestPatternChanged();
    void signalZOrderchanged();
    void signalSpliceModeChanged();
    void signalGridChanged();
    void signalLayoutPosChanged();
    void signalFreezeChanged();
    void signalFTBchanged();
    void signalSwitchEffectchanged();
    void signalTBarChanged();
    void signalPGMEditEnableChanged();
    void singalScreenStateChanged();
    void signalOperationTargetChanged();
    void signalLayerAdded(const std::weak_ptr<Layer> &layer);
    void signalPVWLayerAdded(const std::weak_ptr<Layer> &layer);
    void signalPGMLayerAdded(const std::weak_ptr<Layer> &layer);
    void signalLayerRemoved(const std::shared_ptr<Layer> &layer);
    void signalPVWLayerRemoved(const std::shared_ptr<Layer> &layer);
    void signalPGMLayerRemoved(const std::shared_ptr<Layer> &layer);
    void signalSelectedLayersChanged(bool isToHardWare);

protected:
    void removeLayer(const std::shared_ptr<Layer> &layer);
    /// What layers() refers to, in its order.
    [[nodiscard]] std::vector<std::shared_ptr<Layer>> layersOf(int sceneType, int layertype) const;
    /// The capability record of the owner; null without one. It outlives the owner.
    [[nodiscard]] const s_DeviceConfig *configRecord() const;
    /// Whether there is one output for each cell of the grid.
    [[nodiscard]] bool isGridFilled() const;
    /// Owners of relays that a derived class joins beside those of the base.
    RelaySet m_kindRelays;
    /// Guards m_detail, and the stored fields without a lock of their own: m_pOwnerDevice, m_iZOrder,
    /// m_curOperationTarget, those of derived classes.
    mutable QReadWriteLock m_detailRWLock;

private:
    using OutputDetail = ProtoModel::Screen::s_OutputDetail;

    /// What @p read makes of the entry of an output, under the read lock; nothing without an entry.
    /// (screen_outputs.cpp)
    template <class Read>
    auto readEntry(const std::optional<ProtoModel::s_InterfaceID> &id, Read read) const;
    /// Lets @p change work on the entry of an output, under the write lock; true if there is one and it says so.
    template <class Change>
    bool changeEntry(const std::optional<ProtoModel::s_InterfaceID> &id, Change change);
    /// The area of interest in the mosaic. Coordinates beyond 32 bits wrap. (screen_outputs.cpp)
    [[nodiscard]] static QRect areaInMosaic(const OutputDetail &output);
    /// outputs() as shared references.
    [[nodiscard]] std::vector<std::shared_ptr<Output>> outputList() const;
    /// Calls @p push with each living output.
    template <class Push>
    void pushToOutputs(Push push) const;
    /// Sets what the screen itself says of the picture.
    void pushPicture(Interface &interface) const;
    /// Goes from one state to another; false from any other state. (screen_scenes.cpp)
    bool passState(State from, State to);

    // Layers
    friend class Device;
    friend class ResourceReader; // which reads lists as shared references
    friend class ModelArchive;
    /// Calls @p visit with the list that holds a kind of layer; nothing for a number that is no kind.
    template <class Self, class Visit>
    static void withListOf(Self &self, LayerType type, Visit visit);
    /// What layersBySource() refers to.
    [[nodiscard]] std::vector<std::shared_ptr<Layer>> layersOfSource(SourceType source, uint32_t id) const;
    /// Names of the layers of exactly this scene and kind.
    [[nodiscard]] QSet<QString> layerNames(SceneType scene, LayerType type) const;
    /// Makes a layer this screen's, and appends it.
    bool takeLayer(const std::shared_ptr<Layer> &layer);
    /// Puts a layer into the list of its kind, and signals; false, and nothing, if no list takes it.
    bool appendLayer(const std::shared_ptr<Layer> &layer);
    /// True if it wasn't selected yet.
    bool selectLayer(const std::shared_ptr<Layer> &layer);
    void initSceneData(SceneType scene, const ProtoModel::Layer::s_LayerDetailArray &details, QString &errMsg,
                       bool emitLayerSignal);

    Detail m_detail;
    std::vector<std::shared_ptr<RegularLayer>> m_regularLayerList; ///< cut layers, too
    std::vector<std::shared_ptr<AUXLayer>> m_auxLayerList;
    std::vector<std::shared_ptr<MVRLayer>> m_mvrLayerList;
    std::vector<std::shared_ptr<BKGLayer>> m_bkgLayerList;
    std::vector<std::shared_ptr<LogoLayer>> m_logoLayerList;
    mutable QReadWriteLock m_layerListRWLock; ///< guards the five lists above
    QList<std::weak_ptr<Layer>> m_selectedLayers;
    mutable QReadWriteLock m_selectedLayersRWLock;
    std::weak_ptr<Device> m_pOwnerDevice;       ///< m_detailRWLock
    std::int32_t m_iZOrder = 0;                 ///< m_detailRWLock
    std::int32_t m_screenState = 0;             ///< Enum::Screen::State
    mutable QReadWriteLock m_screenStateRWLock; ///< guards both states
    std::int32_t m_lastScreenState = 0;         ///< Enum::Screen::State
    std::int32_t m_curOperationTarget = 4;      ///< Enum::Layer::SceneType; m_detailRWLock
    std::weak_ptr<Output> m_pActivedOutput;     ///< editing thread
    bool m_isSelectedAll = false;               ///< editing thread
    int m_uiScreenIndex = -1;                   ///< editing thread
    RelaySet m_relays;
};

} // namespace Quorix::BizModel

#endif
