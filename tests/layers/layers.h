/// A layer on a wall, for tests.
#ifndef QUORIX_TESTS_LAYERS_H
#define QUORIX_TESTS_LAYERS_H

#include <quorixbizmodel/layers/layerkinds.h>
#include <screens/wall.h>

namespace Quorix::Tests {

/// The regular screen shows two outputs, 3840 by 1080 pixels, and a regular "layer", id 0 of PVW. Besides the "input"
/// of 3840 by 2160 pixels there is a full-HD input "second".
struct Layers : Wall {
    std::shared_ptr<Input> second;
    std::shared_ptr<Layer> layer;

    void SetUp() override {
        Wall::SetUp();
        place(*regular, {0, 1});
        auto detail = detailOf(1, 1);
        detail.presetTiming = fullHd();
        second = std::dynamic_pointer_cast<Input>(addedInterface(*device, detail));
        second->setName("second");
        log.name(second.get(), "second");
        layer = added(LayerType::Regular, "layer");
    }

    /// A layer with id 0 in PVW; its events are taken off the log.
    std::shared_ptr<Layer> added(LayerType type, const QString &name) {
        auto fresh = Screen::createLayer(type);
        fresh->setSceneType(SceneType::PVW);
        regular->addLayer(fresh);
        log.name(fresh.get(), name);
        log.take();
        MessageLog::take();
        return fresh;
    }

    /// What was heard, in one line: "WindowRectChanged(layer, ...) ...".
    QString heard() { return events().join(' '); }
};

inline ProtoModel::Layer::s_LayerSourceGeneral sourceOf(SourceType type, uint32_t id) { return {toInt(type), id}; }
inline ProtoModel::Layer::s_LayerSourceGeneral sourceOf(const Input &input) {
    return sourceOf(SourceType::Input, input.interfaceId());
}

/// A layer on a screen that shows a source; its id is the next one.
inline std::shared_ptr<Layer> addedLayer(Screen &screen, LayerType type, SceneType scene, SourceType source,
                                         uint32_t sourceId) {
    auto layer = Screen::createLayer(type);
    layer->setLayerId(screen.nextLayerId(scene, type));
    layer->setSceneType(scene);
    screen.addLayer(layer);
    layer->setSource(sourceOf(source, sourceId));
    return layer;
}

} // namespace Quorix::Tests

#endif
