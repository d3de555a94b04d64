/// Layers of a screen as the device reports them.
#include <quorixbizmodel/screens/screen.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/topology/input.h>

#include <optional>

namespace Quorix::BizModel {

namespace {

using Enum::Layer::LayerType;
using LayerDetail = ProtoModel::Layer::s_LayerFullDetail;

/// Whether a cut layer in use is fed by an input that takes more than a single link, or has no connector: a key has
/// one channel.
bool isTooWideKey(const LayerDetail &detail, const std::shared_ptr<Device> &device) {
    if (device == nullptr || !detail.cutFill.enable || detail.layerIdenti.layerType != toInt(LayerType::Cut))
        return false;
    const auto input = device->findInput(detail.source.general.id).lock();
    return input != nullptr && toInt(input->capacity()) > toInt(Layer::Capacity::_SL);
}

/// The same without its source, in plain white.
void makeWhite(LayerDetail &detail) {
    detail.source.general = {.type = toInt(Enum::Layer::SourceType::NoSource), .id = 0};
    detail.testColor.R = detail.testColor.G = detail.testColor.B = 255;
    detail.testColor.enable = 1;
    ProtoModel::s_CropDetailBody crop; // the whole frame of a record, 1920 by 1080
    crop.type = toInt(Enum::Layer::SourceType::NoSource);
    detail.source.crop.push_back(crop);
}

} // namespace

bool Screen::initModelData(const ProtoModel::Layer::s_LayerDetailArray &details, QString &errMsg) {
    const ObjectSignalLocker locker(this);
    clearLayer();
    bool isTaken = true;
    QList<std::weak_ptr<Layer>> selected;
    for (const auto &detail : details) {
        const auto layer = createLayer(static_cast<LayerType>(detail.layerIdenti.layerType));
        if (layer == nullptr)
            continue;
        isTaken = layer->initModelData(weak_from_this(), detail, errMsg) && isTaken;
        takeLayer(layer);
        if (detail.selected != 0)
            selected.append(layer);
    }
    {
        const WriteGuard guard(m_selectedLayersRWLock);
        m_selectedLayers.clear();
    }
    if (selected.isEmpty())
        return isTaken;
    appendSelectedLayer(selected, false);
    if (const auto device = owerDevice().lock())
        device->setActivedScreen(weak_from_this());
    const auto first = selected.first().lock();
    setOperationTarget(first == nullptr ? SceneType::PVW : first->sceneType());
    return isTaken;
}

bool Screen::initPVWLayerData(const ProtoModel::Layer::s_LayerDetailArray &details, QString &errMsg,
                              bool emitLayerSignal) {
    initSceneData(SceneType::PVW, details, errMsg, emitLayerSignal);
    return true;
}

bool Screen::initPGMLayerData(const ProtoModel::Layer::s_LayerDetailArray &details, QString &errMsg,
                              bool emitLayerSignal) {
    initSceneData(SceneType::PGM, details, errMsg, emitLayerSignal);
    return true;
}

void Screen::initSceneData(SceneType scene, const ProtoModel::Layer::s_LayerDetailArray &details, QString &errMsg,
                           bool emitLayerSignal) {
    removeLayer(layers(scene));
    for (auto detail : details) {
        const auto layer = createLayer(static_cast<LayerType>(detail.layerIdenti.layerType));
        if (layer == nullptr)
            continue;
        std::optional<ObjectSignalLocker<Layer>> silence;
        if (!emitLayerSignal)
            silence.emplace(layer.get());
        const bool isWhite = isTooWideKey(detail, owerDevice().lock());
        if (isWhite)
            makeWhite(detail);
        layer->initModelData(weak_from_this(), detail, errMsg);
        if (isWhite)
            layer->setCapacity(Layer::Capacity::_SL);
        layer->setSceneType(scene);
        addLayer(layer);
    }
}

} // namespace Quorix::BizModel
