#include <quorixbizmodel/layers/layer.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer_p.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/topology/input.h>

#include <QDebug>

#include <tuple>
#include <utility>

namespace Quorix::BizModel {

using ProtoModel::s_LayerId;
using ProtoModel::s_ScreenId;
using ProtoModel::s_ScreenLayerId;
using ProtoModel::Layer::s_LayerEnable;
using ProtoModel::Layer::s_LayerGeneralBody;

Layer::Layer(QObject *parent) : QObject(parent) {
    // A new layer has the test colour of the constants, a cleared one that of a default record.
    static_cast<ProtoModel::s_RGB &>(m_detail.testColor) = Helper::qColor2RGB(Constants::Layer::defaultTestColr);
}

Layer::Layer(const Layer &other) : Layer(other.parent()) { *this = other; }

Layer &Layer::operator=(const Layer &other) {
    if (this == &other)
        return *this;
    // One lock after the other: two layers that are copied crosswise must not wait for each other.
    auto [state, owner] = copiesOf(other.m_detailRWLock, static_cast<const LayerState &>(other), other.m_pOwnerScreen);
    const WriteGuard guard(m_detailRWLock);
    LayerState::operator=(std::move(state));
    m_pOwnerScreen.swap(owner);
    return *this;
}

Layer::~Layer() = default;

QSize Layer::minWindowSize() const { return Constants::Layer::minWindowSize; }
QSize Layer::maxWindowSize() const { return Constants::Layer::minWindowSize; }
QSize Layer::defaultWindowSize() const { return Constants::Layer::defaultWindowSize; }
QSize Layer::minBorderSize() const { return Constants::Layer::borderMiniSize; }

QSize Layer::maxBorderSize() const {
    constexpr int beyondLimit = 512;
    const auto limited = [](int length, int limit) {
        const qint64 inner = qint64{length} - 1;
        return inner < beyondLimit ? static_cast<int>(inner / 2) : limit;
    };
    const auto window = copyOf(m_detailRWLock, m_detail.window);
    constexpr QSize limits = Constants::Layer::borderMaxSize;
    return {limited(window.width, limits.width()), limited(window.height, limits.height())};
}

bool Layer::checkData() const {
    const auto screen = ownerScreen().lock();
    if (screen == nullptr) {
        qCritical() << "Screen is nullptr";
        return false;
    }
    if (screen->owerDevice().expired()) {
        qCritical() << "device is nullptr";
        return false;
    }
    return true;
}

void Layer::unserailize(std::weak_ptr<Screen> screen) {
    {
        const WriteGuard guard(m_detailRWLock);
        m_pOwnerScreen = screen;
    }
    const auto owner = screen.lock();
    if (owner == nullptr)
        return;
    if (selected()) {
        owner->appendSelectedLayer({weak_from_this()}, true);
        if (const auto device = owner->owerDevice().lock())
            device->setActivedScreen(owner);
    }
    if (widthHeightRatioType() == AspectRatioType::_Invalid)
        updateWidthHeightRatioType();
    createConnects(owner);
}

bool Layer::initModelData(std::weak_ptr<Screen> screen, const Detail &detail, QString & /*errMsg*/) {
    const ObjectSignalLocker<Layer> silence(this);
    clearAll();
    {
        const WriteGuard guard(m_detailRWLock);
        m_detail = detail;
        m_pOwnerScreen = std::move(screen);
    }
    updataCapacity();
    setLayerCrop();
    setWindowWHRatio(windowRect());
    return true;
}

void Layer::clearAll() {
    const WriteGuard guard(m_detailRWLock);
    LayerState cleared;
    cleared.m_uiBorderColor = m_uiBorderColor; // the user interface's own mark
    LayerState::operator=(std::move(cleared));
    m_pOwnerScreen.reset();
}

LayerState Layer::state() const { return copyOf(m_detailRWLock, static_cast<const LayerState &>(*this)); }

// Identity and flags

uint8_t Layer::layerId() const { return copyOf(m_detailRWLock, m_detail.layerIdenti.layerId); }
void Layer::setLayerId(const uint8_t &id) { std::ignore = assign(m_detailRWLock, m_detail.layerIdenti.layerId, id); }

Layer::LayerType Layer::layerType() const {
    return static_cast<LayerType>(copyOf(m_detailRWLock, m_detail.layerIdenti.layerType));
}

void Layer::setLayerType(LayerType type) {
    std::ignore = assign(m_detailRWLock, m_detail.layerIdenti.layerType, toInt(type));
}

Layer::SceneType Layer::sceneType() const {
    return static_cast<SceneType>(copyOf(m_detailRWLock, m_detail.layerIdenti.sceneType));
}

void Layer::setSceneType(SceneType scene) {
    std::ignore = assign(m_detailRWLock, m_detail.layerIdenti.sceneType, toInt(scene));
}

uint8_t Layer::zOrder() const { return static_cast<uint8_t>(copyOf(m_detailRWLock, m_detail.zorder)); }

void Layer::setZOrder(uint8_t zOrder) {
    if (!assign(m_detailRWLock, m_detail.zorder, zOrder))
        return;
    qDebug() << "SetZorder:"
             << "layer name: " << name() << "  zorder: " << zOrder << " layer type: " << toInt(layerType())
             << " layer id: " << layerId();
    Q_EMIT signalZOrderChanged();
}

bool Layer::selected() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.selected)); }
void Layer::setSelected(bool isSelected) { std::ignore = assignSwitch(m_detailRWLock, m_detail.selected, isSelected); }

QString Layer::name() const { return Helper::str2qstr(copyOf(m_detailRWLock, m_detail.general.name)); }

void Layer::setName(const QString &name) {
    if (!assign(m_detailRWLock, m_detail.general.name, name.toStdString()))
        return;
    Q_EMIT signalNameChanged();
    if (const auto cut = cutLayer().lock(); cut != nullptr && cut->isCutLayerEnable())
        cut->setName(name);
}

void Layer::setOwnerScreen(const std::weak_ptr<Screen> &screen) {
    const auto owner = screen.lock();
    if (owner == nullptr)
        return;
    // Asked before the layer is locked: a layer's lock is never held while a screen's is taken.
    const s_ScreenId id = owner->screenIdenti();
    const WriteGuard guard(m_detailRWLock);
    m_pOwnerScreen = owner;
    static_cast<s_ScreenId &>(m_detail.layerIdenti) = id;
}

std::weak_ptr<Screen> Layer::ownerScreen() const { return copyOf(m_detailRWLock, m_pOwnerScreen); }

s_ScreenLayerId Layer::screenLayerId() const {
    const auto [own, owner] =
        copiesOf(m_detailRWLock, static_cast<const s_LayerId &>(m_detail.layerIdenti), m_pOwnerScreen);
    const auto screen = owner.lock();
    return screen == nullptr ? s_ScreenLayerId{} : s_ScreenLayerId{screen->screenIdenti(), own};
}

Layer::Detail Layer::layerDetail() const { return copyOf(m_detailRWLock, m_detail); }

s_LayerGeneralBody Layer::layerGeneral() const { return copyOf(m_detailRWLock, m_detail.general); }

s_LayerGeneralBody Layer::layerGeneral(std::string name, int isBackground, int isFreeze, int isMonochrome,
                                       int isInverse, int flipType) {
    return {std::move(name), isBackground, isFreeze, isMonochrome, isInverse, flipType};
}

void Layer::setGeneralInfo(const s_LayerGeneralBody &general) {
    setName(Helper::str2qstr(general.name));
    setBackgroundEnable(Helper::int2Bool(general.isBackground));
    setFrezzeEnable(Helper::int2Bool(general.isFreeze));
    setMonochromeEnable(Helper::int2Bool(general.isMonochrome));
    setInverseEnable(Helper::int2Bool(general.isInverse));
    setFlipType(static_cast<FlipType>(general.flipType));
}

namespace {

/// Both records bring the same. A reported Z-order wraps into its byte.
template <class Record>
void update(Layer &layer, const Record &record) {
    layer.setZOrder(static_cast<uint8_t>(record.zorder));
    layer.setGeneralInfo(record.general);
    layer.setSource(record.source);
    layer.setWindowRect(Helper::sRect2QRect(record.window), {}, true);
}

} // namespace

void Layer::updateEnableInfo(const s_LayerEnable &info) { update(*this, info); }
void Layer::updateEnableInfos(const Detail &detail) { update(*this, detail); }

s_LayerEnable Layer::layerEnableStruct(bool /*enable*/) const {
    const auto id = screenLayerId();
    const ReadGuard guard(m_detailRWLock);
    return {id, m_detail.zorder, m_detail.general, m_detail.source, m_detail.window, m_detail.border};
}

Layer::Detail Layer::layerFullDetailStruct(bool /*enable*/) const {
    Detail detail = layerDetail();
    detail.layerIdenti = screenLayerId();
    return detail;
}

// Capacity

Layer::Capacity Layer::capacity() const { return copyOf(m_detailRWLock, m_enumCapacity); }
void Layer::setCapacity(Capacity capacity) { std::ignore = assign(m_detailRWLock, m_enumCapacity, capacity); }

void Layer::updataCapacity() {
    const auto device = ownerDevice();
    if (device == nullptr)
        return;
    if (isCutLayer()) {
        setCapacity(Capacity::_SL);
        return;
    }
    const auto input = sourceInput();
    if (input == nullptr)
        return;
    const auto id = input->interfaceFullId();
    ProtoModel::Device::s_Connectors connector;
    if (device->protoConnector(id.slotId, id.connectorId, connector))
        setCapacity(static_cast<Capacity>(connector.capacityMode));
}

QString Layer::capacityString() const {
    const QString text = Helper::interfaceCapacityString(capacity());
    return text == QLatin1String("N/A") ? QString() : text;
}

Enum::Layer::LayerMode Layer::layerMode() const { return Enum::Layer::LayerMode::Mix; }
bool Layer::shapeEnabled() const { return false; }

// For all sources of a layer

std::shared_ptr<Device> Layer::ownerDevice() const {
    const auto screen = ownerScreen().lock();
    return screen == nullptr ? nullptr : screen->owerDevice().lock();
}

std::shared_ptr<Input> Layer::sourceInput() const {
    const auto device = ownerDevice();
    return device == nullptr ? nullptr : device->findInput(sourceId()).lock();
}

std::shared_ptr<Screen> Layer::sourceScreen() const { return screenOfSource(ownerDevice(), sourceType(), sourceId()); }

} // namespace Quorix::BizModel
