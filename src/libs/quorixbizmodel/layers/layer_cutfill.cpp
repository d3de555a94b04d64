#include <quorixbizmodel/layers/layer.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/screens/screen.h>

namespace Quorix::BizModel {

using ProtoModel::Layer::s_CutFillBody;

s_CutFillBody Layer::cutAndFill() const { return copyOf(m_detailRWLock, m_detail.cutFill); }
bool Layer::isCutLayer() const { return layerType() == LayerType::Cut; }
bool Layer::isCutLayerEnable() const { return cutAndFill().enable; }

bool Layer::isFillBindingCut() const {
    const auto pair = cutAndFill();
    return pair.enable && pair.isBinding;
}

std::weak_ptr<Layer> Layer::partner(LayerType type) const {
    const auto screen = ownerScreen().lock();
    if (screen == nullptr || layerType() == type)
        return {};
    auto id = screenLayerId();
    id.layerType = toInt(type);
    return screen->layer(id);
}

std::weak_ptr<Layer> Layer::cutLayer() const { return partner(LayerType::Cut); }
std::weak_ptr<Layer> Layer::fillLayer() const { return partner(LayerType::Regular); }

void Layer::setCutAndFill(const s_CutFillBody &body) {
    if (!assign(m_detailRWLock, m_detail.cutFill, body))
        return;
    Q_EMIT signalCutAndFillChanged();
    const auto fill = body.isBinding && isCutLayer() ? fillLayer().lock() : nullptr;
    if (fill != nullptr)
        setWindowRect(fill->windowRect(), {}, true);
}

} // namespace Quorix::BizModel
