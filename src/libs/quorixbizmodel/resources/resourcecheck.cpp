#include <quorixbizmodel/resources/resourcescheck.h>

#include "accounting_p.h"

#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>

#include <QDebug>

#include <algorithm>

namespace Quorix::BizModel {

using namespace Accounting;

namespace {

std::shared_ptr<Device> ownerOf(const std::shared_ptr<Screen> &screen) {
    return screen == nullptr ? nullptr : screen->owerDevice().lock();
}

} // namespace

int ResourceCheck::calcResourcesOfRectEx(const std::weak_ptr<Screen> &wScreen,
                                         const ProtoModel::Device::s_subcardBody &subcard, const QRect &rect,
                                         LayerMode mode, CapacityMode capacity, const std::weak_ptr<Layer> &wLayer,
                                         const std::weak_ptr<Layer> &switchLayer) {
    const auto screen = wScreen.lock();
    const auto layer = wLayer.lock();
    const char *missing = screen == nullptr            ? "screen"
                          : ownerOf(screen) == nullptr ? "device"
                          : layer == nullptr           ? "layer"
                                                       : nullptr;
    if (missing != nullptr) {
        qWarning("Input split: calc resources %s is nullptr.", missing);
        return 0;
    }
    if (switchLayer.lock() == layer)
        return 0;
    return Charge::ofStrips(*layer, rect, mode, capacity).on(placesOn(mosaicOf(*screen), subcard.slotId));
}

int ResourceCheck::calcAllocedResourcesOfSlot(const ProtoModel::Device::s_subcardBody &subcard,
                                              const std::weak_ptr<Screen> &wScreen, SceneType sceneType, bool isContain,
                                              const std::weak_ptr<Layer> &switchLayer) {
    const auto screen = wScreen.lock();
    const auto device = ownerOf(screen);
    if (device == nullptr)
        return 0;
    const auto replaced = switchLayer.lock();
    return unitsOn(regularLoads(*device, {subcard.slotId}, screen.get(), sceneType, isContain, replaced.get()),
                   subcard.slotId);
}

QList<int> ResourceCheck::findLayerSourceInSlot(const std::weak_ptr<Screen> &wScreen, const QRect &rect,
                                                LayerMode /*mode*/, CapacityMode capacity,
                                                const std::weak_ptr<Layer> &wLayer) {
    const auto screen = wScreen.lock();
    const auto layer = wLayer.lock();
    if (screen == nullptr || layer == nullptr) {
        qWarning("Input split: calc resources %s is nullptr.", screen == nullptr ? "screen" : "layer");
        return {};
    }
    const auto strips = stripsOf(*layer, rect, capacity);
    QList<int> slotIds;
    for (const Place &place : mosaicOf(*screen))
        if (!slotIds.contains(place.slotId) && std::any_of(strips.begin(), strips.end(), [&](const QRect &strip) {
                return place.rect.intersects(QRectF(strip));
            }))
            slotIds.append(place.slotId);
    return slotIds;
}

int ResourceCheck::getResOfAUXLayerCapacity(CapacityMode capacity) {
    switch (capacity) {
    case CapacityMode::_SL:
    case CapacityMode::_DL:
    case CapacityMode::_4K:
        return Helper::splitCount(capacity);
    case CapacityMode::invaild:
        break;
    }
    return 0;
}

int ResourceCheck::getResOfPGMLayer(const std::weak_ptr<Layer> &wAUXLayer,
                                    const QList<std::weak_ptr<Output>> &auxScreenOutputs) {
    const auto layer = wAUXLayer.lock();
    if (layer == nullptr)
        return 0;
    const auto shown = shownOutputs(*layer);
    if (shown.empty())
        return 0;
    const auto owner = layer->ownerScreen().lock();
    std::vector<QRect> areas;
    for (const auto &output : auxScreenOutputs)
        areas.push_back(owner == nullptr ? QRect() : bounded(owner->mosaicRect(output)).toRect());
    int units = 0;
    for (const Piece &piece : shown)
        if (std::any_of(areas.begin(), areas.end(), [&](const QRect &area) { return area.intersects(piece.rect); }))
            units += piece.units;
    return units;
}

int ResourceCheck::getResOfOutputAlloced2Layer(const std::weak_ptr<Layer> &wAUXLayer,
                                               const QList<std::weak_ptr<Output>> &outputs) {
    const auto layer = wAUXLayer.lock();
    if (layer == nullptr || outputs.isEmpty())
        return 0;
    return layer->sourceType() == Enum::Layer::SourceType::Input ? getResOfAUXLayerCapacity(layer->capacity())
                                                                 : getResOfPGMLayer(layer, outputs);
}

int ResourceCheck::getResOfSlotAlloced2Layer(const std::weak_ptr<AuxScreen> &wAUXScreen,
                                             const std::weak_ptr<Subcard> &wSubcard, const std::weak_ptr<Layer> &wLayer,
                                             const QRect &layerWindowRect) {
    const auto screen = wAUXScreen.lock();
    const auto card = wSubcard.lock();
    const auto layer = wLayer.lock();
    if (screen == nullptr || card == nullptr || layer == nullptr)
        return 0;
    return Charge::ofWindow(*screen, *layer, layerWindowRect).on(placesOn(mosaicOf(*screen), card->slotId()));
}

int ResourceCheck::getResOfSlotAlloced(const std::weak_ptr<AuxScreen> &wAUXScreen, SceneType sceneType,
                                       const std::weak_ptr<Subcard> &wSubcard, const LayerRects &layerRects) {
    const auto screen = wAUXScreen.lock();
    const auto card = wSubcard.lock();
    const auto device = ownerOf(screen);
    if (card == nullptr || device == nullptr)
        return 0;
    const int slotId = card->slotId();
    return unitsOn(auxLoads(*device, {slotId}, screen.get(), sceneType, layerRects), slotId);
}

int calcResourcesOfRect(const std::weak_ptr<Screen> &wScreen, const ProtoModel::Device::s_subcardBody &subcard,
                        const QRect &rect, Enum::Layer::LayerMode mode, Enum::Interface::CapacityMode capacity) {
    const auto screen = wScreen.lock();
    if (screen == nullptr)
        return 0;
    const Mosaic mosaic = mosaicOf(*screen);
    const auto places = placesOn(mosaic, subcard.slotId);
    const QRectF area(bounded(rect));
    if (std::none_of(places.begin(), places.end(), [&](const Place *place) { return place->rect.intersects(area); }))
        return 0;
    return ResourceCheck::getResOfAUXLayerCapacity(capacity) * (mode == Enum::Layer::LayerMode::Mix ? 2 : 1);
}

} // namespace Quorix::BizModel
