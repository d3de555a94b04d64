/// The layers of a screen: five lists, one for each kind, both scenes in each. Cut layers stand among the regular ones,
/// behind their fill.
#include <quorixbizmodel/screens/screen.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/layers/layerkinds.h>

#include <QDebug>

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace Quorix::BizModel {

namespace {

using Enum::Layer::LayerType;
using Enum::Layer::SceneType;
using Layers = std::vector<std::shared_ptr<Layer>>;

constexpr int kAllScenes = toInt(SceneType::AllSceneType);
constexpr int kAllTypes = toInt(LayerType::AllLayerType);

template <class T>
std::shared_ptr<Layer> make() {
    return std::make_shared<T>();
}

struct Kind {
    LayerType type;
    std::shared_ptr<Layer> (*make)();
};

/// In the order in which queries give them.
constexpr Kind kKinds[] = {
    {LayerType::Regular, make<RegularLayer>}, {LayerType::Cut, make<CutLayer>}, {LayerType::AUX, make<AUXLayer>},
    {LayerType::MVR, make<MVRLayer>},         {LayerType::BKG, make<BKGLayer>}, {LayerType::Logo, make<LogoLayer>},
};

template <class Predicate>
Layers layersIf(Layers layers, Predicate matches) {
    std::erase_if(layers, [&](const auto &layer) { return !matches(*layer); });
    return layers;
}

/// A cut layer that isn't switched on takes no place.
bool isCounted(const Layer &layer) { return !layer.isCutLayer() || layer.isCutLayerEnable(); }

} // namespace

template <class Self, class Visit>
void Screen::withListOf(Self &self, LayerType type, Visit visit) {
    switch (type) {
    case LayerType::Regular:
    case LayerType::Cut:
        return visit(self.m_regularLayerList);
    case LayerType::AUX:
        return visit(self.m_auxLayerList);
    case LayerType::MVR:
        return visit(self.m_mvrLayerList);
    case LayerType::BKG:
        return visit(self.m_bkgLayerList);
    case LayerType::Logo:
        return visit(self.m_logoLayerList);
    default:
        return;
    }
}

std::shared_ptr<Layer> Screen::createLayer(LayerType type) {
    for (const auto &kind : kKinds) {
        if (kind.type != type)
            continue;
        auto layer = kind.make();
        layer->setLayerType(type);
        moveToModelThread(*layer);
        return layer;
    }
    return {};
}

std::weak_ptr<Layer> Screen::addLayer(const std::shared_ptr<Layer> &layer) {
    const bool isIn = layer != nullptr && (containsLayer(layer) || takeLayer(layer));
    return isIn ? layer : nullptr;
}

bool Screen::addLayers(const QList<std::shared_ptr<Layer>> &layers) {
    for (const auto &layer : layers)
        addLayer(layer);
    return true;
}

bool Screen::takeLayer(const std::shared_ptr<Layer> &layer) {
    layer->setOwnerScreen(weak_from_this());
    layer->setBorderForUIColor(Helper::randomColor(layer->layerId()));
    moveToModelThread(*layer);
    layer->createConnects(weak_from_this());
    return appendLayer(layer);
}

bool Screen::appendLayer(const std::shared_ptr<Layer> &layer) {
    const auto id = layer->storedId();
    bool isIn = false;
    const auto append = [&](auto &list) {
        auto entry = std::dynamic_pointer_cast<typename std::decay_t<decltype(list)>::value_type::element_type>(layer);
        if (entry == nullptr)
            return;
        isIn = true;
        if (id.layerType == toInt(LayerType::Cut)) {
            const auto fill = std::find_if(list.begin(), list.end(), [&id](const auto &other) {
                const auto otherId = other == nullptr ? ProtoModel::s_LayerId{} : other->storedId();
                return other != nullptr && otherId.layerId == id.layerId && otherId.sceneType == id.sceneType;
            });
            list.insert(fill == list.end() ? fill : std::next(fill), std::move(entry));
            return;
        }
        // A stable sort leaves a cut layer behind its fill, since both have one id.
        list.push_back(std::move(entry));
        sortByKeyOnce(list, [](const auto &other) { return other == nullptr ? 0 : int{other->layerId()}; });
    };
    {
        const WriteGuard guard(m_layerListRWLock);
        withListOf(*this, static_cast<LayerType>(id.layerType), append);
    }
    if (!isIn)
        return false;
    if (id.sceneType == toInt(SceneType::PGM))
        Q_EMIT signalPGMLayerAdded(layer);
    else if (id.sceneType == toInt(SceneType::PVW))
        Q_EMIT signalPVWLayerAdded(layer);
    Q_EMIT signalLayerAdded(layer);
    return true;
}

void Screen::removeLayer(const std::shared_ptr<Layer> &layer) {
    qInfo() << " Quorix::BizModel::Screen::removeLayer";
    if (layer == nullptr)
        return;
    const auto type = layer->layerType();
    if (type == LayerType::Regular)
        if (const auto cut = layer->cutLayer().lock())
            removeLayer(cut);
    bool isTaken = false;
    {
        const WriteGuard guard(m_layerListRWLock);
        withListOf(*this, type, [&](auto &list) { isTaken = takePointer(list, layer.get()) != nullptr; });
    }
    if (!isTaken)
        return;
    const auto scene = layer->sceneType();
    if (scene == SceneType::PGM)
        Q_EMIT signalPGMLayerRemoved(layer);
    else if (scene == SceneType::PVW)
        Q_EMIT signalPVWLayerRemoved(layer);
    Q_EMIT signalLayerRemoved(layer);
}

void Screen::removeLayer(const QList<std::weak_ptr<Layer>> &layers) {
    qInfo() << "Screen::removeLayer";
    const auto removed = livingReferences(layers); // keeps them through all of it
    for (const auto &layer : removed)
        if (!layer->isCutLayer())
            removeLayer(layer);
    removeSelectedLayer(removed, false);
}

void Screen::removeLayer(const std::weak_ptr<Screen> &wSrcScreen) {
    const auto source = wSrcScreen.lock();
    if (source == nullptr || source->screenType() != ScreenType::RegularScreen ||
        !hasAnyBit(screenType(), maskOf(ScreenType::MVRScreen, ScreenType::AUXScreen)))
        return;
    const uint32_t id = source->screenId();
    QList<std::shared_ptr<Layer>> removed;
    for (const auto &layer : layersOf(kAllScenes, kAllTypes)) {
        const auto shown = layer->sourceType();
        if ((shown != SourceType::PGM && shown != SourceType::PVW) || layer->sourceId() != id)
            continue;
        removeLayer(layer);
        removed.append(layer);
    }
    removeSelectedLayer(removed, false);
}

void Screen::clearLayer() {
    // They end with this variable, when the lock is free: whoever hears of an end may call back.
    const auto dropped = [this] {
        const WriteGuard guard(m_layerListRWLock);
        return std::make_tuple(std::exchange(m_regularLayerList, {}), std::exchange(m_auxLayerList, {}),
                               std::exchange(m_mvrLayerList, {}), std::exchange(m_bkgLayerList, {}),
                               std::exchange(m_logoLayerList, {}));
    }();
}

Layers Screen::layersOf(int sceneType, int layertype) const {
    Layers found;
    const ReadGuard guard(m_layerListRWLock);
    for (const auto &kind : kKinds) {
        if (!hasAnyBit(layertype, kind.type))
            continue;
        withListOf(*this, kind.type, [&](const auto &list) {
            found.reserve(found.size() + list.size());
            for (const auto &layer : list) {
                const auto id = layer == nullptr ? ProtoModel::s_LayerId{} : layer->storedId();
                if (id.layerType == toInt(kind.type) && hasAnyBit(id.sceneType, sceneType))
                    found.push_back(layer);
            }
        });
    }
    return found;
}

Layers Screen::layersOfSource(SourceType source, uint32_t id) const {
    return layersIf(layersOf(kAllScenes, kAllTypes),
                    [wanted = ProtoModel::Layer::s_LayerSourceGeneral{toInt(source), id}](const Layer &layer) {
                        return copyOf(layer.m_detailRWLock, layer.m_detail.source.general) == wanted;
                    });
}

QList<std::weak_ptr<Layer>> Screen::layers(int sceneType, int layertype) const {
    return weakReferences(layersOf(sceneType, layertype));
}

QList<std::weak_ptr<Layer>> Screen::layers(SceneType scene) const { return layers(toInt(scene), kAllTypes); }

QList<std::weak_ptr<Layer>> Screen::layers(SceneType scene, LayerType type) const {
    return layers(toInt(scene), toInt(type));
}

QList<std::weak_ptr<Layer>> Screen::layers(SourceType source, LayerType type) const {
    return weakReferences(layersIf(layersOf(kAllScenes, toInt(type)),
                                   [source](const Layer &layer) { return layer.sourceType() == source; }));
}

QList<std::weak_ptr<Layer>> Screen::layersBySource(SourceType source, uint32_t id) const {
    return weakReferences(layersOfSource(source, id));
}

bool Screen::isExistlayersBySource(SourceType source, uint32_t id) const { return !layersOfSource(source, id).empty(); }

QList<std::weak_ptr<Layer>> Screen::backgroundLayers(int sceneType, int layertype) const {
    return weakReferences(
        layersIf(layersOf(sceneType, layertype), [](const Layer &layer) { return layer.backgroundEnable(); }));
}

QList<std::weak_ptr<Layer>> Screen::PVWLayers(LayerType type) const { return layers(SceneType::PVW, type); }

QList<std::weak_ptr<Layer>> Screen::PGMLayers(LayerType type) const { return layers(SceneType::PGM, type); }

std::weak_ptr<Layer> Screen::layer(const ProtoModel::s_ScreenLayerId &id) const {
    Layers found;
    {
        // Not by masks: a layer that has no scene yet is found as well.
        const ReadGuard guard(m_layerListRWLock);
        withListOf(*this, static_cast<LayerType>(id.layerType), [&](const auto &list) {
            for (const auto &layer : list)
                if (layer != nullptr && layer->storedId() == static_cast<const ProtoModel::s_LayerId &>(id))
                    found.push_back(layer);
        });
    }
    return findFirst(found, [&id](const Layer &layer) { return layer.screenLayerId() == id; });
}

bool Screen::containsLayer(const std::weak_ptr<Layer> &layer) const {
    const auto object = layer.lock();
    bool isIn = false;
    const ReadGuard guard(m_layerListRWLock);
    for (const auto &kind : kKinds)
        withListOf(*this, kind.type, [&](const auto &list) {
            isIn = isIn || std::any_of(list.begin(), list.end(), [&](const auto &entry) { return entry == object; });
        });
    return isIn && object != nullptr;
}

bool Screen::containsLayer(const QString &name) const {
    return findFirst(layersOf(kAllScenes, kAllTypes), [&](const Layer &layer) { return layer.name() == name; }) !=
           nullptr;
}

bool Screen::containsLayer(const ProtoModel::s_ScreenLayerId &id) const { return !layer(id).expired(); }

QSet<QString> Screen::layerNames(SceneType scene, LayerType type) const {
    QSet<QString> names;
    for (const auto &layer : layersOf(toInt(scene), toInt(type)))
        if (layer->sceneType() == scene && layer->layerType() == type)
            names.insert(layer->name());
    return names;
}

bool Screen::isExsitLayer(const QString &name, SceneType scene, LayerType type) const {
    return layerNames(scene, type).contains(name);
}

uint32_t Screen::layerCount(int sceneType, int layertype) const {
    const auto layers = layersOf(sceneType, layertype);
    return static_cast<uint32_t>(
        std::count_if(layers.begin(), layers.end(), [](const auto &layer) { return isCounted(*layer); }));
}

uint32_t Screen::layerCount(SceneType scene, LayerType type) const { return layerCount(toInt(scene), toInt(type)); }

uint32_t Screen::PVWLayerCount(LayerType type) const { return layerCount(SceneType::PVW, type); }

uint32_t Screen::PVWLayerCount(int layertype) const { return layerCount(toInt(SceneType::PVW), layertype); }

uint32_t Screen::PGMLayerCount(int layertype) const { return layerCount(toInt(SceneType::PGM), layertype); }

uint32_t Screen::PGMLayerCount(LayerType type) const { return layerCount(SceneType::PGM, type); }

uint32_t Screen::filterCutLayer(const QList<std::weak_ptr<Layer>> &layers) {
    return static_cast<uint32_t>(std::count_if(layers.begin(), layers.end(), [](const auto &reference) {
        const auto layer = reference.lock();
        return layer == nullptr || isCounted(*layer);
    }));
}

} // namespace Quorix::BizModel
