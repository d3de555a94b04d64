/// Why the cards of a screen can or can't carry a proposal.
#ifndef QUORIXBIZMODEL_RESOURCEEXPLANATION_H
#define QUORIXBIZMODEL_RESOURCEEXPLANATION_H

#include <quorixbizmodel/resources/resourcescheck.h>

#include <vector>

namespace Quorix::BizModel {

/// A check of ResourceCheck taken apart: a value that refers to the model and doesn't change with it. Rectangles are in
/// pixels of the mosaic, costs in units.
struct ResourceExplanation {
    using SceneType = Enum::Layer::SceneType;

    /// What a card carries of a layer: a strip of it, an output of the programme that it shows, or its window.
    struct Piece {
        QRect rect;
        int units = 0;
        bool operator==(const Piece &) const = default;
    };

    /// A layer on a card; its pieces there add up to its units.
    struct LayerCost {
        std::weak_ptr<Layer> layer;
        QRect rect;
        int units = 0;
        std::vector<Piece> pieces;
    };

    /// A screen on a card, in the scene that counts; its layers add up to its units. Cut layers that are switched on
    /// stand behind their fills; a layer that costs the card nothing is left out.
    struct ScreenCost {
        std::weak_ptr<Screen> screen;
        SceneType scene = SceneType::Invalid;
        int units = 0;
        std::vector<LayerCost> layers;
    };

    /// A layer of the proposal on a card.
    struct Change {
        LayerCost
            before;      ///< taken off the card; nothing for a new layer, and on AUX screens, whose sum lacks it anyway
        LayerCost after; ///< where it is proposed
    };

    /// The account of a card.
    struct Card {
        int slotId = 0;
        int budget = 0; ///< of its type
        int limit = 0;  ///< in force: on a regular screen the smallest budget of its cards
        std::vector<ScreenCost> screens;
        std::vector<Change> changes;
        int alloced = 0; ///< the screens, without the layers of the proposal
        int added = 0;   ///< the proposal
        QList<std::weak_ptr<Output>> outputsInTheWay;

        [[nodiscard]] int units() const { return alloced + added; }
        [[nodiscard]] bool fits() const { return units() <= limit; }
    };

    bool fits = false;       ///< what the check answers
    std::vector<Card> cards; ///< those that the check visits, in its order
    QMap<int, int> slotResources;
    QList<std::weak_ptr<Output>> invalidOutputs;
};

/// Explains the check of a proposal by the kind of the screen; what the last check has left stays. Verdict, figures of
/// the slots and outputs in the way are those of the check. No cards where the check visits none: without a screen, a
/// proposal or outputs. A kind without a check never fits. For the thread that edits the model.
/// @param switchLayer a layer that the operation replaces; of AUX screens it plays no part
[[nodiscard]] QUORIX_EXPORT ResourceExplanation explainResources(const std::weak_ptr<Screen> &wScreen,
                                                                 const ResourceCheck::LayerRects &layerRects,
                                                                 Enum::Layer::SceneType sceneType,
                                                                 const std::weak_ptr<Layer> &switchLayer);

} // namespace Quorix::BizModel

#endif
