/// What new layers of a screen start with, and where the layers lie.
#include <quorixbizmodel/screens/screen.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/numbers.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/layers/layer_p.h>
#include <quorixbizmodel/screens/screen_p.h>
#include <quorixbizmodel/topology/input.h>

#include <QDebug>

#include <algorithm>
#include <bitset>
#include <set>

namespace Quorix::BizModel {

namespace {

using Constants::Layer::maxId; // reserved for "none"

/// The first of the numbered names that @p isTaken doesn't hold for.
template <class IsTaken>
QString freeLayerName(IsTaken isTaken) {
    return firstFreeName([](int number) { return Screen::tr("layer %1").arg(number); }, isTaken);
}

/// Those of the first @p count layers that are alive.
QList<std::shared_ptr<Layer>> firstLayers(const QList<std::weak_ptr<Layer>> &layers, int count) {
    return livingReferences(layers.mid(0, std::max(0, count)));
}

} // namespace

uint8_t Screen::nextLayerId(SceneType scene, LayerType type) const {
    const auto ids = nextLayerId(scene, type, 1);
    return ids.isEmpty() ? maxId : ids.first();
}

QList<uint8_t> Screen::nextLayerId(SceneType scene, LayerType type, int selectedLayerCount) const {
    std::bitset<maxId + 1U> taken;
    for (const auto &layer : layersOf(toInt(scene), toInt(type)))
        taken.set(layer->layerId());
    QList<uint8_t> ids;
    for (uint8_t id = 0; id < maxId && ids.size() < selectedLayerCount; ++id)
        if (!taken[id])
            ids.append(id);
    return ids;
}

uint8_t Screen::nextZOrder(SceneType scene, LayerType type) const {
    const bool isScene = scene == SceneType::PVW || scene == SceneType::PGM;
    return isScene ? static_cast<uint8_t>(layerCount(scene, type)) : uint8_t{0};
}

QList<uint8_t> Screen::nextZOrder(const QList<std::weak_ptr<Layer>> &layers, int count) const {
    QList<uint8_t> positions;
    // Wider than the results: of more layers than there are even positions no free one would be found.
    std::set<int> taken;
    for (const auto &layer : firstLayers(layers, count)) {
        int position = (nextZOrder(layer->sceneType(), layer->layerType()) + 1) * 2;
        while (!taken.insert(position).second)
            position += 2;
        positions.append(static_cast<uint8_t>(position));
    }
    return positions;
}

QString Screen::nextLayerName(uint32_t sourceId, SourceType source, SceneType scene, LayerType type) const {
    switch (screenType()) {
    case ScreenType::RegularScreen:
    case ScreenType::AUXScreen: {
        const auto names = layerNames(scene, type);
        return freeLayerName([&](const QString &name) { return names.contains(name); });
    }
    case ScreenType::MVRScreen:
        return nameOfSource(owerDevice().lock(), source, sourceId).value_or(QString());
    default:
        return {};
    }
}

QList<QString> Screen::nextLayerName(const QList<std::weak_ptr<Layer>> &selectLayers, SourceType /*source*/,
                                     int selectedLayerCount) const {
    QList<QString> names;
    QSet<QString> given;
    for (const auto &layer : firstLayers(selectLayers, selectedLayerCount)) {
        const auto taken = layerNames(layer->sceneType(), layer->layerType());
        const auto name = freeLayerName([&](const QString &it) { return taken.contains(it) || given.contains(it); });
        given.insert(name);
        names.append(name);
    }
    return names;
}

QList<std::weak_ptr<Output>> Screen::outputsUnderLayer(const std::weak_ptr<Layer> &layer) const {
    const auto object = layer.lock();
    if (object == nullptr)
        return {};
    const QRect window = object->windowRect();
    QList<std::weak_ptr<Output>> under;
    for (const auto &output : outputs())
        if (roundedRect(mosaicRect(output)).intersects(window))
            under.append(output);
    return under;
}

QList<QPair<std::weak_ptr<Layer>, QRect>> Screen::layerFullScreenRect(QList<std::weak_ptr<Layer>> layers) const {
    QList<QPair<std::weak_ptr<Layer>, QRect>> rects;
    for (const auto &layer : std::as_const(layers)) {
        QRect whole;
        for (const auto &output : outputsUnderLayer(layer))
            whole |= roundedRect(mosaicRect(output));
        rects.append({layer, whole});
    }
    return rects;
}

QRect Screen::calcLayerMirrorRect(const std::weak_ptr<Screen> &wOwerScreen, QRect layerRect) const {
    const auto owner = wOwerScreen.lock();
    if (owner == nullptr) {
        qWarning() << "Copylayer owerscreen is null.";
        return {};
    }
    const QRect window = owner->mosaicWindowRect();
    const int left = wrappingDifference(wrappingSum(window.left(), window.right()), layerRect.right());
    const int right = wrappingSum(left, wrappingDifference(layerRect.right(), layerRect.left()));
    return {QPoint(left, layerRect.top()), QPoint(right, layerRect.bottom())};
}

} // namespace Quorix::BizModel
