/// The accounts of the cards. What the model says of outputs and layers is read once into charges, which are then
/// summed for each card; checks and their explanations sum the same charges.
#ifndef QUORIXBIZMODEL_ACCOUNTING_P_H
#define QUORIXBIZMODEL_ACCOUNTING_P_H

#include <quorixbizmodel/resources/resourceexplanation.h>

#include <QVarLengthArray>

#include <optional>
#include <utility>
#include <vector>

namespace Quorix::BizModel {

/// Has the lists of the model as shared references: those that the public accessors hand out allocate each entry.
class ResourceReader {
public:
    static std::vector<std::shared_ptr<Screen>> screens(Device &device, Enum::Screen::ScreenType type);
    static std::vector<std::shared_ptr<Layer>> layers(const Screen &screen, Enum::Layer::SceneType scene,
                                                      Enum::Layer::LayerType type);
    /// Null for an output that the device doesn't have.
    static std::vector<std::shared_ptr<Output>> outputs(const Screen &screen);
    /// Whether one of the outputs, there or not, belongs in one of the slots.
    static bool usesAny(const Screen &screen, const std::vector<int> &slotIds);
};

namespace Accounting {

using CapacityMode = ResourceCheck::CapacityMode;
using LayerMode = ResourceCheck::LayerMode;
using LayerRects = ResourceCheck::LayerRects;
using SceneType = ResourceCheck::SceneType;
using Piece = ResourceExplanation::Piece;
using LayerCost = ResourceExplanation::LayerCost;
using ScreenCost = ResourceExplanation::ScreenCost;
using Card = ResourceExplanation::Card;
using Change = ResourceExplanation::Change;

/// Coordinates and sizes within 2^26, where no sum of the split rules overflows; what isn't a number is 0.
QRect bounded(const QRect &rect);
QRectF bounded(const QRectF &rect);

/// A living output where it stands in a mosaic.
struct Place {
    std::shared_ptr<Output> output;
    int slotId;
    QRectF rect;
    QRect pixels; ///< rounded
};
/// The outputs of a screen in their order.
using Mosaic = std::vector<Place>;

Mosaic mosaicOf(const Screen &screen);

/// The outputs of a mosaic on one card, which has eight ports at most.
using CardPlaces = QVarLengthArray<const Place *, 8>;

CardPlaces placesOn(const Mosaic &mosaic, int slotId);

/// The windows of the strips in which a layer at @p rect is carried, each once.
QVarLengthArray<QRect, 4> stripsOf(const Layer &layer, const QRect &rect, CapacityMode capacity);

/// The outputs of the regular screen whose programme a layer shows, scaled into its window; none without one.
std::vector<Piece> shownOutputs(const Layer &layer);

/// What a layer in a rectangle costs; asked for each card without a look at the model.
class Charge {
public:
    /// Costs nothing.
    Charge() = default;
    /// By the rule of regular screens.
    static Charge ofStrips(const Layer &layer, const QRect &rect, LayerMode mode, CapacityMode capacity);
    /// By the rule of AUX screens.
    static Charge ofWindow(const Screen &screen, const Layer &layer, const QRect &rect);

    /// Units on a card. @p pieces takes what they are made of.
    int on(const CardPlaces &places, std::vector<Piece> *pieces = nullptr) const;

private:
    enum class Rule { Everywhere, Strips, Window };
    [[nodiscard]] bool meets(const Place &place, const Piece &piece) const;

    Rule m_rule = Rule::Everywhere;
    QRect m_window;
    QVarLengthArray<Piece, 4> m_pieces;
    /// Where pieces are met if the layer isn't on the screen that asks.
    std::optional<Mosaic> m_ownerMosaic;
};

/// A layer with its charge.
struct LayerLoad {
    std::shared_ptr<Layer> layer;
    QRect rect;
    Charge charge;

    int on(const CardPlaces &places, LayerCost *cost = nullptr) const;
};

/// A screen with the scenes that may count: one of the screen asked about, both of another.
struct ScreenLoad {
    struct Scene {
        SceneType type;
        std::vector<LayerLoad> layers;
    };
    std::shared_ptr<Screen> screen;
    Mosaic mosaic;
    std::vector<Scene> scenes;

    /// Of the larger scene. @p costs takes the screen if it costs the card anything.
    int on(int slotId, std::vector<ScreenCost> *costs) const;
};
using Loads = std::vector<ScreenLoad>;

int unitsOn(const Loads &loads, int slotId, std::vector<ScreenCost> *costs = nullptr);

/// The regular screens with outputs on one of the cards. @param isContain whether @p screen itself counts
Loads regularLoads(Device &device, const std::vector<int> &slotIds, const Screen *screen, SceneType scene,
                   bool isContain, const Layer *switchLayer);
/// The AUX screens with outputs on one of the cards, of @p screen without the layers of the proposal.
Loads auxLoads(Device &device, const std::vector<int> &slotIds, const Screen *screen, SceneType scene,
               const LayerRects &layerRects);

/// What a check gives.
struct Outcome {
    QMap<int, int> &slotResources;
    QList<std::weak_ptr<Output>> &invalidOutputs;
    std::vector<Card> *cards; ///< null: not explained

    /// Where a detail is to be noted: nowhere if the check isn't explained.
    template <class T>
    [[nodiscard]] T *noted(T &detail) const {
        return cards == nullptr ? nullptr : &detail;
    }
    void note(Card &card, Change change) const {
        if (cards != nullptr)
            card.changes.push_back(std::move(change));
    }
    void note(Card card) const {
        if (cards != nullptr)
            cards->push_back(std::move(card));
    }
};

bool checkRegular(const std::shared_ptr<RegularScreen> &screen, const LayerRects &layerRects, SceneType scene,
                  const std::shared_ptr<Layer> &switchLayer, const Outcome &outcome);
bool checkAux(const std::shared_ptr<AuxScreen> &screen, const LayerRects &layerRects, SceneType scene,
              const Outcome &outcome);

} // namespace Accounting

} // namespace Quorix::BizModel

#endif
