/// A wall whose cards are to carry layers.
#ifndef QUORIX_TESTS_BUDGETS_H
#define QUORIX_TESTS_BUDGETS_H

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/layers/layerkinds.h>
#include <quorixbizmodel/resources/resourcescheck.h>
#include <quorixbizmodel/resources/resourceexplanation.h>
#include <screens/wall.h>

namespace Quorix::Tests {

using namespace BizModel;
using Capacity = Enum::Interface::CapacityMode;
using LayerMode = Enum::Layer::LayerMode;
using LayerType = Enum::Layer::LayerType;
using Scene = Enum::Layer::SceneType;
using Source = Enum::Layer::SourceType;

/// Full-HD outputs from left to right: output 0 on the card of slot 6, outputs 1 and 2 on that of slot 7.
struct Budgets : Wall {
    using Outputs = QList<std::weak_ptr<Output>>;

    ProtoModel::Device::s_subcardBody six{.slotId = 6, .connectors = {}};
    ProtoModel::Device::s_subcardBody seven{.slotId = 7, .connectors = {}};
    Outputs invalid;

    /// A layer on a screen, of the kind that belongs there.
    std::shared_ptr<Layer> added(Screen &screen, int id, const QRect &rect, Capacity capacity = Capacity::_SL,
                                 Scene scene = Scene::PVW, Source source = Source::NoSource, uint32_t sourceId = 0,
                                 LayerType type = LayerType::Invalid) {
        auto layer = made(screen, id, rect, capacity, scene, source, sourceId, type);
        screen.addLayer(layer);
        return layer;
    }

    /// The same, not on the screen yet.
    static std::shared_ptr<Layer> made(Screen &screen, int id, const QRect &rect, Capacity capacity = Capacity::_SL,
                                       Scene scene = Scene::PVW, Source source = Source::NoSource,
                                       uint32_t sourceId = 0, LayerType type = LayerType::Invalid) {
        if (type == LayerType::Invalid)
            type = screen.screenType() == Enum::Screen::ScreenType::AUXScreen ? LayerType::AUX : LayerType::Regular;
        auto layer = Screen::createLayer(type);
        Layer::Detail detail = layer->layerDetail();
        detail.layerIdenti.layerId = static_cast<uint8_t>(id);
        detail.layerIdenti.sceneType = toInt(scene);
        detail.source.general = {.type = toInt(source), .id = sourceId};
        QString error;
        layer->initModelData(screen.weak_from_this(), detail, error);
        layer->setWindowRect(rect, {}, true);
        layer->setCapacity(capacity);
        return layer;
    }

    bool fits(const ResourceCheck::LayerRects &rects) {
        return ResourceCheck::CheckOperationResources(regular, rects, invalid, Scene::PVW, {});
    }
    bool fitsAux(const ResourceCheck::LayerRects &rects) {
        return ResourceCheck::CheckAuxOperationResources(aux, rects, invalid, Scene::PVW);
    }
    /// The figures of a check.
    QMap<int, int> figures(const std::shared_ptr<Screen> &screen, const ResourceCheck::LayerRects &rects) {
        return ResourceCheck::outputPreoccupationResources(screen, rects, invalid, Scene::PVW, {});
    }
    int alloced(const ProtoModel::Device::s_subcardBody &body, const std::weak_ptr<Layer> &switched = {}) {
        return ResourceCheck::calcAllocedResourcesOfSlot(body, regular, Scene::PVW, true, switched);
    }
    std::vector<std::shared_ptr<Output>> invalidOutputs() const {
        std::vector<std::shared_ptr<Output>> shared;
        for (const auto &output : invalid)
            shared.push_back(output.lock());
        return shared;
    }
};

} // namespace Quorix::Tests

#endif
