/// Whether the cards of a device can carry its layers.
#ifndef QUORIXBIZMODEL_RESOURCESCHECK_H
#define QUORIXBIZMODEL_RESOURCESCHECK_H

#include <quorix_export.h>
#include <quorixbizmodel/common/modelreferences.h>
#include <quorixbizmodel/common/quorixbizenum.h>
#include <quorixprotomodel/device.h>

#include <QList>
#include <QMap>
#include <QPair>
#include <QRect>

#include <memory>

namespace Quorix::BizModel {

/// What a card carries is counted in units, against a budget of units by its type. On a regular screen a layer is cut
/// into the strips of its input's capacity; each strip that meets an output of a card costs that card two units, one in
/// `Single` mode. On an AUX screen a layer costs 1, 2 or 4 units by capacity on each card where it shows. Other screens
/// that share a card are charged with the larger of their scenes. ResourceExplanation tells a check in full.
///
/// A proposal names layers and the rectangles that they are to have, in pixels of the mosaic; a layer that isn't on the
/// screen yet has the id 255. Rectangles are taken as they are: limits of sizes play no part. Coordinates and sizes
/// past 2^26 count as 2^26.
///
/// Static functions only. They change nothing in the model; references that have gone count nothing. The result of the
/// last check is kept in one place for all callers, without a lock: checks are for the thread that edits the model.
class QUORIX_EXPORT ResourceCheck {
public:
    using CapacityMode = Enum::Interface::CapacityMode;
    using LayerMode = Enum::Layer::LayerMode;
    using SceneType = Enum::Layer::SceneType;
    using LayerRects = QList<QPair<std::weak_ptr<Layer>, QRect>>;

    ResourceCheck() = delete;

    // Checks (resourcecheck_operations.cpp)

    /// Whether every card of a regular screen can carry a proposal; the smallest budget of them holds for all.
    /// @param invalidOutputs of the cards that can't, the outputs under the proposed rectangles; emptied first, but for
    /// an empty proposal
    /// @param switchLayer a layer that the operation replaces: it costs nothing
    static bool CheckOperationResources(const std::weak_ptr<RegularScreen> &wScreen, const LayerRects &layerRects,
                                        QList<std::weak_ptr<Output>> &invalidOutputs, SceneType sceneType,
                                        const std::weak_ptr<Layer> &switchLayer);
    /// The same for an AUX screen, each card by its own budget. Ends at the first output whose card can't, which is
    /// appended to @p invalidOutputs.
    static bool CheckAuxOperationResources(const std::weak_ptr<AuxScreen> &wScreen, const LayerRects &layerRects,
                                           QList<std::weak_ptr<Output>> &invalidOutputs, SceneType sceneType);
    /// Checks by the kind of the screen. Slot to what its card would carry: half its units, a number of layers, on
    /// regular screens, units on AUX screens. Another kind isn't checked and gives what the last check has left.
    static QMap<int, int> outputPreoccupationResources(const std::weak_ptr<Screen> &wScreen,
                                                       const LayerRects &layerRects,
                                                       QList<std::weak_ptr<Output>> &invalidOutputs,
                                                       SceneType sceneType, const std::weak_ptr<Layer> &switchLayer);
    /// The same figures for what the cards carry now.
    static QMap<int, int> outputAllocedResources(const std::weak_ptr<Screen> &wScreen, SceneType sceneType);
    /// Of an AUX screen alone.
    static QMap<int, int> auxAllocedResources(const std::weak_ptr<Screen> &wScreen, SceneType sceneType);

    // Costs on regular screens, in units (resourcecheck.cpp)

    /// Of a layer at @p rect on the card @p subcard. A layer without a source costs one strip wherever it lies.
    static int calcResourcesOfRectEx(const std::weak_ptr<Screen> &wScreen,
                                     const ProtoModel::Device::s_subcardBody &subcard, const QRect &rect,
                                     LayerMode mode, CapacityMode capacity, const std::weak_ptr<Layer> &wLayer,
                                     const std::weak_ptr<Layer> &switchLayer);
    /// In use on a card: of @p wScreen the scene asked for, of other screens the larger one.
    /// @param isContain whether @p wScreen itself counts
    static int calcAllocedResourcesOfSlot(const ProtoModel::Device::s_subcardBody &subcard,
                                          const std::weak_ptr<Screen> &wScreen, SceneType sceneType, bool isContain,
                                          const std::weak_ptr<Layer> &switchLayer);
    /// The slots that a layer at @p rect would use, in the order of the outputs. The mode plays no part.
    static QList<int> findLayerSourceInSlot(const std::weak_ptr<Screen> &wScreen, const QRect &rect, LayerMode mode,
                                            CapacityMode capacity, const std::weak_ptr<Layer> &wLayer);

    // Costs on AUX screens, in units (resourcecheck.cpp)

    /// 0 for `invaild`.
    static int getResOfAUXLayerCapacity(CapacityMode capacity);
    /// Of a layer that shows the programme of a regular screen: that screen's outputs, scaled into the layer's stored
    /// window, as far as they fall on @p auxScreenOutputs, each by its capacity.
    static int getResOfPGMLayer(const std::weak_ptr<Layer> &wAUXLayer,
                                const QList<std::weak_ptr<Output>> &auxScreenOutputs);
    /// Of a layer on a set of outputs, however many they are; 0 for what is neither input nor programme.
    static int getResOfOutputAlloced2Layer(const std::weak_ptr<Layer> &wAUXLayer,
                                           const QList<std::weak_ptr<Output>> &outputs);
    /// Of a layer at @p layerWindowRect on a card.
    static int getResOfSlotAlloced2Layer(const std::weak_ptr<AuxScreen> &wAUXScreen,
                                         const std::weak_ptr<Subcard> &wSubcard, const std::weak_ptr<Layer> &wLayer,
                                         const QRect &layerWindowRect);
    /// In use on a card by AUX screens, without the layers of a proposal: of @p wAUXScreen the scene asked for, of
    /// others the larger one.
    static int getResOfSlotAlloced(const std::weak_ptr<AuxScreen> &wAUXScreen, SceneType sceneType,
                                   const std::weak_ptr<Subcard> &wSubcard, const LayerRects &layerRects);
};

/// An estimate for a layer at @p rect that leaves out where its strips lie: what its capacity costs at most, 0 if it
/// meets no output of the card.
QUORIX_EXPORT int calcResourcesOfRect(const std::weak_ptr<Screen> &wScreen,
                                      const ProtoModel::Device::s_subcardBody &subcard, const QRect &rect,
                                      Enum::Layer::LayerMode mode, Enum::Interface::CapacityMode capacity);

} // namespace Quorix::BizModel

#endif
