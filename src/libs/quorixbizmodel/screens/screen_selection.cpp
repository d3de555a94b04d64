/// The selected layers of a screen.
#include <quorixbizmodel/screens/screen.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>

#include <algorithm>
#include <utility>

namespace Quorix::BizModel {

void Screen::appendSelectedLayer(const QList<std::weak_ptr<Layer>> &layers, bool isEmit) {
    bool isAdded = false;
    const auto living = livingReferences(layers);
    for (const auto &layer : living) {
        if (layer->layerType() == LayerType::MVR)
            if (const auto device = owerDevice().lock())
                device->setActivedScreen(weak_from_this());
        isAdded = selectLayer(layer) || isAdded;
    }
    if (isAdded && isEmit)
        Q_EMIT signalSelectedLayersChanged(true);
}

bool Screen::selectLayer(const std::shared_ptr<Layer> &layer) {
    const auto isSameId = [id = layer->storedId()](const auto &reference) {
        const auto other = reference.lock();
        if (other == nullptr)
            return false;
        // Without the scene: a layer and its twin in the other scene aren't selected together.
        const auto otherId = other->storedId();
        return otherId.layerId == id.layerId && otherId.layerType == id.layerType;
    };
    if (const auto selected = selectedLayers(); std::any_of(selected.begin(), selected.end(), isSameId))
        return false;
    {
        const WriteGuard guard(m_selectedLayersRWLock);
        m_selectedLayers.append(layer);
    }
    layer->setSelected(true);
    return true;
}

void Screen::removeSelectedLayer(const QList<std::weak_ptr<Layer>> &layers, bool isToHardWare) {
    removeSelectedLayer(livingReferences(layers), isToHardWare);
}

void Screen::removeSelectedLayer(const QList<std::shared_ptr<Layer>> &layers, bool isToHardWare) {
    std::vector<std::shared_ptr<Layer>> removed;
    {
        const WriteGuard guard(m_selectedLayersRWLock);
        for (const auto &layer : layers) {
            const auto found = findObject(m_selectedLayers, layer);
            if (layer == nullptr || found == m_selectedLayers.end())
                continue;
            m_selectedLayers.erase(found);
            removed.push_back(layer);
        }
    }
    for (const auto &layer : removed)
        layer->setSelected(false);
    if (!removed.empty())
        Q_EMIT signalSelectedLayersChanged(isToHardWare);
}

void Screen::clearSelectedLayers(bool bEmitSignal) {
    const auto removed = [this] {
        const WriteGuard guard(m_selectedLayersRWLock);
        return std::exchange(m_selectedLayers, {});
    }();
    if (removed.isEmpty())
        return;
    const auto living = livingReferences(removed);
    for (const auto &layer : living)
        layer->setSelected(false);
    if (bEmitSignal)
        Q_EMIT signalSelectedLayersChanged(true);
}

QList<std::weak_ptr<Layer>> Screen::selectedLayers() const { return copyOf(m_selectedLayersRWLock, m_selectedLayers); }

QList<std::weak_ptr<Layer>> Screen::selectedLayers(int layerType) const {
    QList<std::weak_ptr<Layer>> layers = selectedLayers();
    const auto isOther = [layerType](const auto &reference) {
        const auto layer = reference.lock();
        return layer == nullptr || !hasAnyBit(layer->layerType(), layerType);
    };
    layers.erase(std::remove_if(layers.begin(), layers.end(), isOther), layers.end());
    return layers;
}

} // namespace Quorix::BizModel
