#include <quorixbizmodel/screens/screen.h>

#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layerkinds.h>
#include <quorixbizmodel/topology/output.h>

#include <QTextCodec>

#include <tuple>
#include <utility>

namespace Quorix::BizModel {

Screen::Screen(QObject *parent) : QObject(parent) {
    m_detail.HDR.colorGamut.presetColorGamut = toInt(Enum::Interface::ColorGamut::Rec_709);
    m_detail.HDR.dynamicRange.presetDynamicRange.type = toInt(Enum::Interface::DynamicRange::SDR);
}

Screen::Screen(const Screen &other) : Screen(other.parent()) {}

Screen &Screen::operator=(const Screen & /*other*/) { return *this; }

Screen::~Screen() = default;

bool Screen::initModelData(std::weak_ptr<Device> device, const Detail &detail, QString & /*errMsg*/) {
    const ObjectSignalLocker locker(this);
    clearAll();
    {
        const WriteGuard guard(m_detailRWLock);
        m_detail = detail;
        m_pOwnerDevice.swap(device);
    }
    const int percent = detail.tbar.percent;
    if (percent != 0 && percent != 100)
        std::ignore = assign(m_screenStateRWLock, m_screenState, toInt(State::Tbar_taking));
    return true;
}

void Screen::clearAll() {
    clearLayer();
    const auto selection = [this] {
        const WriteGuard guard(m_selectedLayersRWLock);
        return std::exchange(m_selectedLayers, {});
    }();
    {
        const WriteGuard guard(m_detailRWLock);
        m_detail = {};
        m_pOwnerDevice.reset();
        m_iZOrder = 0;
        m_curOperationTarget = toInt(SceneType::PVW);
    }
    {
        const WriteGuard guard(m_screenStateRWLock);
        m_screenState = m_lastScreenState = toInt(State::Normal);
    }
    m_pActivedOutput.reset();
}

void Screen::unserailize(std::weak_ptr<Device> device) {
    setOwerDevice(device);
    const auto owner = device.lock();
    if (owner == nullptr)
        return;
    if (selected() != 0)
        owner->appendSelectedScreen(weak_from_this(), true, true);
    std::vector<std::shared_ptr<Layer>> layers;
    {
        const ReadGuard guard(m_layerListRWLock);
        const auto append = [&layers](const auto &list) { layers.insert(layers.end(), list.begin(), list.end()); };
        append(m_regularLayerList);
        append(m_auxLayerList);
        append(m_mvrLayerList);
        append(m_bkgLayerList);
        append(m_logoLayerList);
    }
    for (const auto &layer : layers)
        if (layer != nullptr)
            layer->unserailize(weak_from_this());
    createConnects(std::move(device));
}

ScreenState Screen::storedState() const {
    ScreenState stored;
    {
        const ReadGuard guard(m_detailRWLock);
        stored.m_detail = m_detail;
        stored.m_iZOrder = m_iZOrder;
        stored.m_curOperationTarget = m_curOperationTarget;
    }
    std::tie(stored.m_screenState, stored.m_lastScreenState) =
        copiesOf(m_screenStateRWLock, m_screenState, m_lastScreenState);
    return stored;
}

const s_DeviceConfig *Screen::configRecord() const {
    const auto device = owerDevice().lock();
    return device == nullptr ? nullptr : device->configRecord();
}

uint8_t Screen::screenId() const { return copyOf(m_detailRWLock, m_detail.screenId); }

void Screen::setScreenId(uint8_t id) { std::ignore = assign(m_detailRWLock, m_detail.screenId, id); }

Screen::ScreenType Screen::screenType() const {
    return static_cast<ScreenType>(copyOf(m_detailRWLock, m_detail.screenType));
}

void Screen::setScreenType(ScreenType type) { std::ignore = assign(m_detailRWLock, m_detail.screenType, toInt(type)); }

ProtoModel::s_ScreenId Screen::screenIdentity() const {
    return copyOf<ProtoModel::s_ScreenId>(m_detailRWLock, m_detail);
}

ProtoModel::s_ScreenId Screen::screenIdenti() const { return screenIdentity(); }

QString Screen::name() const { return QString::fromStdString(copyOf(m_detailRWLock, m_detail.general.name)); }

void Screen::setName(const QString &name) {
    const auto *codec = QTextCodec::codecForName("GBK");
    {
        const WriteGuard guard(m_detailRWLock);
        auto &general = m_detail.general;
        if (QString::fromStdString(general.name) == name)
            return;
        general.name = name.toStdString();
        if (codec != nullptr)
            general.nameGB2312 = codec->fromUnicode(name).toHex().toUpper().toStdString();
    }
    Q_EMIT signalScreenNameChanged();
}

int Screen::index() const { return copyOf(m_detailRWLock, m_detail.general.index); }

void Screen::setIndex(int index) {
    if (assign(m_detailRWLock, m_detail.general.index, index))
        Q_EMIT signalScreenIndexChanged();
}

ProtoModel::Screen::s_GeneralBody Screen::screenGeneral() const { return copyOf(m_detailRWLock, m_detail.general); }

void Screen::setScreenGeneral(const ProtoModel::Screen::s_GeneralBody &general) {
    const auto old = exchanged(m_detailRWLock, m_detail.general, general);
    if (old && old->name != general.name)
        Q_EMIT signalScreenNameChanged();
    if (old && old->index != general.index)
        Q_EMIT signalScreenIndexChanged();
}

int Screen::zOrder() const { return copyOf(m_detailRWLock, m_iZOrder); }

void Screen::setZOrder(int zOrder) {
    if (assign(m_detailRWLock, m_iZOrder, zOrder))
        Q_EMIT signalZOrderchanged();
}

ProtoModel::s_RGB Screen::backGroundColor() const { return copyOf(m_detailRWLock, m_detail.backgroundColor); }

void Screen::setBackGroundColor(const ProtoModel::s_RGB &color) {
    if (assign(m_detailRWLock, m_detail.backgroundColor, color))
        Q_EMIT signalBackGroundColorChanged();
}

ProtoModel::Screen::s_ScreenNoVS Screen::screenNovs() const { return copyOf(m_detailRWLock, m_detail.screenNoVS); }

bool Screen::screenNovsEnable() const { return Helper::int2Bool(screenNovs().enable); }

void Screen::setScreenNovs(const ProtoModel::Screen::s_ScreenNoVS &novs) {
    if (assign(m_detailRWLock, m_detail.screenNoVS, novs))
        Q_EMIT signalScreenNovsStatusChanged();
}

void Screen::setLayoutPos(const ProtoModel::s_Pos &pos) { std::ignore = assign(m_detailRWLock, m_detail.layout, pos); }

void Screen::setLayoutPos(const QPoint &pos) { setLayoutPos(Helper::qPoint2SPoint(pos)); }

ProtoModel::s_Pos Screen::layoutSPos() const { return copyOf(m_detailRWLock, m_detail.layout); }

QPoint Screen::layoutQPos() const { return Helper::sPoint2QPoint(layoutSPos()); }

int Screen::selected() const { return copyOf(m_detailRWLock, m_detail.selected); }

void Screen::setSelected(bool isSelected) {
    if (assignSwitch(m_detailRWLock, m_detail.selected, isSelected))
        Q_EMIT signalSelectedChanged();
}

void Screen::setIsAllSelected(bool isAllSelected) { m_isSelectedAll = isAllSelected; }

bool Screen::isAllSelected() const { return m_isSelectedAll; }

void Screen::setUiScreenIndex(int index) { m_uiScreenIndex = index; }

int Screen::getUiScreenIndex() const { return m_uiScreenIndex; }

void Screen::setOwerDevice(std::weak_ptr<Device> device) {
    const WriteGuard guard(m_detailRWLock);
    m_pOwnerDevice.swap(device);
}

std::weak_ptr<Device> Screen::owerDevice() const { return copyOf(m_detailRWLock, m_pOwnerDevice); }

void Screen::setActivedOutput(const std::weak_ptr<Output> &output) {
    const auto actived = output.lock();
    if (actived != nullptr && actived == m_pActivedOutput.lock())
        return;
    m_pActivedOutput = output;
    Q_EMIT signalActivedOutputChanged(m_pActivedOutput);
}

std::weak_ptr<Output> Screen::activedOutput() const { return m_pActivedOutput; }

bool Screen::PGMEdit() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.PGMEdit)); }

bool Screen::isComplete() const {
    const ReadGuard guard(m_detailRWLock);
    return !m_detail.mosaic.outputs.empty();
}

bool Screen::isSupportVirtualScreen() const { return false; }

bool Screen::isSupportOutputZOrder() const { return spliceMode() == ScreenSpliceMode::AnyShapedSplice; }

bool Screen::isSupportProjectionFusion() const { return false; }

bool Screen::isSupportOutputAOI() const {
    const auto *config = configRecord();
    return config != nullptr && config->OutputCfg.IsSupportAOI;
}

bool Screen::isSupportIncompleteSplicing() const {
    const auto mode = spliceMode();
    const auto *config = configRecord();
    return mode == ScreenSpliceMode::StandardShapedSplice || mode == ScreenSpliceMode::AnyShapedSplice ||
           (config != nullptr && config->MainScreenCfg.IsSupportIncompleteSplicing);
}

QRect Screen::layerValidRangeWindowRect() const { return {}; }

} // namespace Quorix::BizModel
