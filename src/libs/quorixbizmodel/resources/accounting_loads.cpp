#include "accounting_p.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/output.h>

#include <algorithm>

namespace Quorix::BizModel {

std::vector<std::shared_ptr<Screen>> ResourceReader::screens(Device &device, Enum::Screen::ScreenType type) {
    return device.screenList(toInt(type));
}

std::vector<std::shared_ptr<Layer>> ResourceReader::layers(const Screen &screen, Enum::Layer::SceneType scene,
                                                           Enum::Layer::LayerType type) {
    return screen.layersOf(toInt(scene), toInt(type));
}

std::vector<std::shared_ptr<Output>> ResourceReader::outputs(const Screen &screen) { return screen.outputList(); }

bool ResourceReader::usesAny(const Screen &screen, const std::vector<int> &slotIds) {
    const ReadGuard guard(screen.m_detailRWLock);
    const auto &outputs = screen.m_detail.mosaic.outputs;
    return std::any_of(outputs.begin(), outputs.end(), [&](const auto &output) {
        return std::find(slotIds.begin(), slotIds.end(), output.interfaceId.slotId) != slotIds.end();
    });
}

namespace Accounting {

namespace {

using Enum::Layer::LayerType;
using Enum::Screen::ScreenType;

std::vector<LayerLoad> regularLayers(const Screen &screen, SceneType scene, const Layer *switchLayer) {
    std::vector<LayerLoad> loads;
    const auto add = [&](const std::shared_ptr<Layer> &layer) {
        if (layer == nullptr || layer.get() == switchLayer)
            return;
        const QRect rect = layer->windowRect();
        loads.push_back({layer, rect, Charge::ofStrips(*layer, rect, layer->layerMode(), layer->capacity())});
    };
    for (const auto &layer : ResourceReader::layers(screen, scene, LayerType::Regular)) {
        add(layer);
        if (layer->isCutLayerEnable())
            add(layer->cutLayer().lock());
    }
    return loads;
}

std::vector<LayerLoad> auxLayers(const Screen &screen, SceneType scene, const LayerRects &without) {
    std::vector<LayerLoad> loads;
    for (const auto &layer : ResourceReader::layers(screen, scene, LayerType::AUX)) {
        if (std::any_of(without.begin(), without.end(),
                        [&](const auto &proposed) { return proposed.first.lock() == layer; }))
            continue;
        const QRect rect = layer->windowRect();
        loads.push_back({layer, rect, Charge::ofWindow(screen, *layer, rect)});
    }
    return loads;
}

/// Screens that use one of the cards. @p layersOf reads the layers of one scene of a screen.
template <class LayersOf>
Loads loadsOf(Device &device, ScreenType type, const std::vector<int> &slotIds, const Screen *own, SceneType ownScene,
              LayersOf layersOf) {
    Loads loads;
    for (const auto &screen : ResourceReader::screens(device, type)) {
        if (!ResourceReader::usesAny(*screen, slotIds))
            continue;
        ScreenLoad &load = loads.emplace_back(ScreenLoad{screen, mosaicOf(*screen), {}});
        if (screen.get() == own) {
            load.scenes.push_back({ownScene, layersOf(*screen, ownScene)});
            continue;
        }
        for (const SceneType scene : {SceneType::PGM, SceneType::PVW})
            load.scenes.push_back({scene, layersOf(*screen, scene)});
    }
    return loads;
}

} // namespace

int LayerLoad::on(const CardPlaces &places, LayerCost *cost) const {
    if (cost == nullptr)
        return charge.on(places);
    *cost = {layer, rect, 0, {}};
    return cost->units = charge.on(places, &cost->pieces);
}

int ScreenLoad::on(int slotId, std::vector<ScreenCost> *costs) const {
    const CardPlaces places = placesOn(mosaic, slotId);
    int units = 0;
    const Scene *counting = nullptr;
    for (const Scene &scene : scenes) {
        int sum = 0;
        for (const LayerLoad &layer : scene.layers)
            sum += layer.on(places);
        if (sum > units) {
            units = sum;
            counting = &scene;
        }
    }
    if (costs != nullptr && counting != nullptr) {
        ScreenCost cost{screen, counting->type, units, {}};
        for (const LayerLoad &layer : counting->layers)
            if (LayerCost one; layer.on(places, &one) > 0)
                cost.layers.push_back(std::move(one));
        costs->push_back(std::move(cost));
    }
    return units;
}

int unitsOn(const Loads &loads, int slotId, std::vector<ScreenCost> *costs) {
    int units = 0;
    for (const ScreenLoad &load : loads)
        units += load.on(slotId, costs);
    return units;
}

Loads regularLoads(Device &device, const std::vector<int> &slotIds, const Screen *screen, SceneType scene,
                   bool isContain, const Layer *switchLayer) {
    const SceneType ownScene = scene == SceneType::PGM ? SceneType::PGM : SceneType::PVW;
    return loadsOf(
        device, ScreenType::RegularScreen, slotIds, screen, ownScene, [&](const Screen &read, SceneType type) {
            return &read == screen && !isContain ? std::vector<LayerLoad>{} : regularLayers(read, type, switchLayer);
        });
}

Loads auxLoads(Device &device, const std::vector<int> &slotIds, const Screen *screen, SceneType scene,
               const LayerRects &layerRects) {
    static const LayerRects none;
    return loadsOf(device, ScreenType::AUXScreen, slotIds, screen, scene, [&](const Screen &read, SceneType type) {
        return auxLayers(read, type, &read == screen ? layerRects : none);
    });
}

} // namespace Accounting

} // namespace Quorix::BizModel
