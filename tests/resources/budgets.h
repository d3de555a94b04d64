/// A wall whose cards are to carry layers.
#ifndef QUORIX_TESTS_BUDGETS_H
#define QUORIX_TESTS_BUDGETS_H

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/layers/layerkinds.h>
#include <quorixbizmodel/resources/resourceexplanation.h>
#include <quorixbizmodel/resources/resourcescheck.h>
#include <screens/wall.h>

namespace Quorix::Tests {

using namespace BizModel;
using Capacity = Enum::Interface::CapacityMode;
using LayerMode = Enum::Layer::LayerMode;
using LayerType = Enum::Layer::LayerType;
using Scene = Enum::Layer::SceneType;
using Source = Enum::Layer::SourceType;

constexpr QRect kOnSix{0, 0, 960, 540};
constexpr QRect kOnSeven{1920, 0, 960, 540};
constexpr uint32_t kInput = 1U << 16U; ///< 3840 by 2160 pixels

/// Full-HD outputs from left to right: output 0 on the card of slot 6, outputs 1 and 2 on that of slot 7.
struct Budgets : Wall {
    using Outputs = QList<std::weak_ptr<Output>>;

    ProtoModel::Device::s_subcardBody six{.slotId = 6, .connectors = {}};
    ProtoModel::Device::s_subcardBody seven{.slotId = 7, .connectors = {}};
    Outputs invalid;

    /// A layer of the kind that belongs on a screen, not there yet.
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

    /// The same on the screen.
    template <class... Traits>
    static std::shared_ptr<Layer> added(Screen &screen, int id, const QRect &rect, Traits... traits) {
        auto layer = made(screen, id, rect, traits...);
        screen.addLayer(layer);
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
    /// In `Mix`, by the layer's capacity.
    static int cost(const std::shared_ptr<Screen> &screen, const ProtoModel::Device::s_subcardBody &body,
                    const QRect &rect, const std::shared_ptr<Layer> &layer, const std::weak_ptr<Layer> &switched = {}) {
        return ResourceCheck::calcResourcesOfRectEx(screen, body, rect, LayerMode::Mix, layer->capacity(), layer,
                                                    switched);
    }
    int alloced(const ProtoModel::Device::s_subcardBody &body, const std::weak_ptr<Layer> &switched = {}) {
        return ResourceCheck::calcAllocedResourcesOfSlot(body, regular, Scene::PVW, true, switched);
    }
};

} // namespace Quorix::Tests

#endif
