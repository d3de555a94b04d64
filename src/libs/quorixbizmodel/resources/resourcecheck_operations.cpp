#include <quorixbizmodel/resources/resourcescheck.h>

#include "accounting_p.h"

#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>

#include <algorithm>

namespace Quorix::BizModel {

namespace {

/// Slot to what the last check has found; of all callers, without a lock.
QMap<int, int> m_slotResources;

/// What a card of any budget is held to at most.
constexpr int kHighestLimit = 65535;

/// A figure of a slot in layers: the two pictures of a transition are one.
constexpr int layersOf(int units) { return units / 2; }

} // namespace

namespace Accounting {

namespace {

/// A layer of a proposal with what it costs where it stands and where it is to stand.
struct ProposedLoad {
    LayerMode mode;
    LayerLoad before;
    LayerLoad after;
};

std::vector<ProposedLoad> proposedOnRegular(const LayerRects &layerRects, const Layer *switchLayer) {
    std::vector<ProposedLoad> loads;
    for (const auto &[reference, rect] : layerRects) {
        const auto layer = reference.lock();
        if (layer == nullptr)
            continue;
        const LayerMode mode = layer->layerMode();
        const CapacityMode capacity = layer->capacity();
        const QRect window = layer->windowRect();
        ProposedLoad load{mode, {layer, window, {}}, {layer, rect, {}}};
        if (layer.get() != switchLayer) {
            if (layer->layerId() != Constants::Layer::maxId)
                load.before.charge = Charge::ofStrips(*layer, window, mode, capacity);
            load.after.charge = Charge::ofStrips(*layer, rect, mode, capacity);
        }
        loads.push_back(std::move(load));
    }
    return loads;
}

} // namespace

bool checkRegular(const std::shared_ptr<RegularScreen> &screen, const LayerRects &layerRects, SceneType scene,
                  const std::shared_ptr<Layer> &switchLayer, const Outcome &outcome) {
    outcome.slotResources.clear();
    if (screen == nullptr)
        return false;
    if (layerRects.isEmpty())
        return true;
    const auto device = screen->owerDevice().lock();
    if (device == nullptr)
        return false;

    const auto bodies = device->protoSubcards(screen);
    int limit = kHighestLimit;
    std::vector<int> slotIds;
    for (const auto &body : bodies) {
        limit = std::min(limit, device->subcardResources(body.cardType));
        slotIds.push_back(body.slotId);
    }
    outcome.invalidOutputs.clear();
    const Mosaic mosaic = mosaicOf(*screen);
    const Loads loads = regularLoads(*device, slotIds, screen.get(), scene, true, switchLayer.get());
    const auto proposed = proposedOnRegular(layerRects, switchLayer.get());

    bool fits = true;
    for (const auto &body : bodies) {
        Card card;
        card.slotId = body.slotId;
        card.budget = device->subcardResources(body.cardType);
        card.limit = limit;
        card.alloced = unitsOn(loads, card.slotId, outcome.noted(card.screens));
        const CardPlaces places = placesOn(mosaic, card.slotId);
        for (const ProposedLoad &load : proposed) {
            Change change;
            card.alloced -= load.before.on(places, outcome.noted(change.before));
            card.added += load.after.on(places, outcome.noted(change.after));
            outcome.slotResources[card.slotId] = load.mode == LayerMode::Mix ? layersOf(card.units()) : card.units();
            outcome.note(card, std::move(change));
        }
        if (!card.fits()) {
            fits = false;
            for (const Place *place : places)
                if (std::any_of(layerRects.begin(), layerRects.end(),
                                [&](const auto &pair) { return place->rect.intersects(QRectF(bounded(pair.second))); }))
                    card.outputsInTheWay.append(place->output);
            outcome.invalidOutputs.append(card.outputsInTheWay);
        }
        outcome.note(std::move(card));
    }
    return fits;
}

bool checkAux(const std::shared_ptr<AuxScreen> &screen, const LayerRects &layerRects, SceneType scene,
              const Outcome &outcome) {
    outcome.slotResources.clear();
    if (screen == nullptr)
        return false;
    if (layerRects.isEmpty())
        return true;
    const auto device = screen->owerDevice().lock();
    if (device == nullptr || screen->outputs().isEmpty())
        return false;

    const Mosaic mosaic = mosaicOf(*screen);
    std::vector<int> slotIds;
    for (const Place &place : mosaic)
        slotIds.push_back(place.slotId);
    const Loads loads = auxLoads(*device, slotIds, screen.get(), scene, layerRects);
    std::vector<LayerLoad> proposed;
    for (const auto &[reference, rect] : layerRects)
        if (const auto layer = reference.lock())
            proposed.push_back({layer, rect, Charge::ofWindow(*screen, *layer, rect)});

    for (const Place &place : mosaic) {
        const auto subcard = device->findSubcardBySlotId(static_cast<uint8_t>(place.slotId)).lock();
        // Another output of a card that has passed has the same figures.
        if (subcard == nullptr || outcome.slotResources.contains(place.slotId))
            continue;
        Card card;
        card.slotId = place.slotId;
        card.budget = card.limit = device->subcardResources(subcard->cardType());
        card.alloced = unitsOn(loads, card.slotId, outcome.noted(card.screens));
        const CardPlaces places = placesOn(mosaic, card.slotId);
        for (const LayerLoad &load : proposed) {
            Change change;
            card.added += load.on(places, outcome.noted(change.after));
            outcome.note(card, std::move(change));
        }
        outcome.slotResources[card.slotId] = card.units();
        const bool fits = card.fits();
        if (!fits) {
            card.outputsInTheWay.append(place.output);
            outcome.invalidOutputs.append(place.output);
        }
        outcome.note(std::move(card));
        if (!fits)
            return false;
    }
    return true;
}

} // namespace Accounting

bool ResourceCheck::CheckOperationResources(const std::weak_ptr<RegularScreen> &wScreen, const LayerRects &layerRects,
                                            QList<std::weak_ptr<Output>> &invalidOutputs, SceneType sceneType,
                                            const std::weak_ptr<Layer> &switchLayer) {
    return Accounting::checkRegular(wScreen.lock(), layerRects, sceneType, switchLayer.lock(),
                                    {m_slotResources, invalidOutputs, nullptr});
}

bool ResourceCheck::CheckAuxOperationResources(const std::weak_ptr<AuxScreen> &wScreen, const LayerRects &layerRects,
                                               QList<std::weak_ptr<Output>> &invalidOutputs, SceneType sceneType) {
    return Accounting::checkAux(wScreen.lock(), layerRects, sceneType, {m_slotResources, invalidOutputs, nullptr});
}

QMap<int, int> ResourceCheck::outputPreoccupationResources(const std::weak_ptr<Screen> &wScreen,
                                                           const LayerRects &layerRects,
                                                           QList<std::weak_ptr<Output>> &invalidOutputs,
                                                           SceneType sceneType,
                                                           const std::weak_ptr<Layer> &switchLayer) {
    const auto screen = wScreen.lock();
    if (screen == nullptr)
        return {};
    if (screen->screenType() == Enum::Screen::ScreenType::RegularScreen)
        CheckOperationResources(std::dynamic_pointer_cast<RegularScreen>(screen), layerRects, invalidOutputs, sceneType,
                                switchLayer);
    else if (screen->screenType() == Enum::Screen::ScreenType::AUXScreen)
        CheckAuxOperationResources(std::dynamic_pointer_cast<AuxScreen>(screen), layerRects, invalidOutputs, sceneType);
    return m_slotResources;
}

QMap<int, int> ResourceCheck::outputAllocedResources(const std::weak_ptr<Screen> &wScreen, SceneType sceneType) {
    const auto screen = wScreen.lock();
    const auto device = screen == nullptr ? nullptr : screen->owerDevice().lock();
    if (device == nullptr || screen->screenType() != Enum::Screen::ScreenType::RegularScreen)
        return auxAllocedResources(wScreen, sceneType);
    std::vector<int> slotIds;
    for (const auto &body : device->protoSubcards(screen))
        slotIds.push_back(body.slotId);
    const auto loads = Accounting::regularLoads(*device, slotIds, screen.get(), sceneType, true, nullptr);
    QMap<int, int> resources;
    for (const int slotId : slotIds)
        resources[slotId] = layersOf(Accounting::unitsOn(loads, slotId));
    return resources;
}

QMap<int, int> ResourceCheck::auxAllocedResources(const std::weak_ptr<Screen> &wScreen, SceneType sceneType) {
    QMap<int, int> resources;
    const auto screen = wScreen.lock();
    const auto device = screen == nullptr ? nullptr : screen->owerDevice().lock();
    if (device == nullptr || screen->screenType() != Enum::Screen::ScreenType::AUXScreen)
        return resources;
    std::vector<int> slotIds;
    for (const auto &place : Accounting::mosaicOf(*screen))
        if (!device->findSubcardBySlotId(static_cast<uint8_t>(place.slotId)).expired())
            slotIds.push_back(place.slotId);
    const auto loads = Accounting::auxLoads(*device, slotIds, screen.get(), sceneType, {});
    for (const int slotId : slotIds)
        resources[slotId] = Accounting::unitsOn(loads, slotId);
    return resources;
}

} // namespace Quorix::BizModel
