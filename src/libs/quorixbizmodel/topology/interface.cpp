#include <quorixbizmodel/topology/interface.h>

#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/topology/subcard.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <QDebug>

#include <utility>

namespace Quorix::BizModel {

Interface::Interface(QObject * /*parent*/) { moveToModelThread(*this); }

Interface::Interface(std::weak_ptr<Device> device, uint8_t slotId, uint8_t connectorId)
    : m_pOwnerDevice(std::move(device)) {
    moveToModelThread(*this);
    initInterfaceData(slotId, connectorId);
}

Interface::Interface(const Interface &other) : QObject(), std::enable_shared_from_this<Interface>(other) {
    moveToModelThread(*this);
    *this = other;
}

Interface &Interface::operator=(const Interface &other) {
    if (this == &other)
        return *this;
    // One lock after the other: two interfaces that are copied crosswise must not wait for each other.
    auto device = other.owerDevice();
    InterfaceState state;
    {
        const ReadGuard guard(other.m_detailRWLock);
        state = other.stateWhileLocked();
    }
    const WriteGuard guard(m_detailRWLock);
    m_pOwnerDevice.swap(device);
    m_detail = std::move(state.m_detail);
    storeIdWhileLocked(m_detail.interfaceId);
    m_cropLocked = state.m_cropLocked;
    m_cutoutPosInfo = state.m_cutoutPosInfo;
    m_bOverLoad = state.m_bOverLoad;
    return *this;
}

Interface::~Interface() = default;

void Interface::unserailize(std::weak_ptr<Device> device) {
    setOwerDevice(device);
    createConnects(std::move(device));
}

InterfaceState Interface::stateWhileLocked() const { return {m_detail, m_cropLocked, m_cutoutPosInfo, m_bOverLoad}; }

void Interface::storeIdWhileLocked(const ProtoModel::s_InterfaceID &id) {
    m_detail.interfaceId = id;
    m_packedId = id.id();
}

void Interface::setInterfaceId(ProtoModel::s_InterfaceID id) {
    {
        const WriteGuard guard(m_detailRWLock);
        if (m_detail.interfaceId == id)
            return;
        storeIdWhileLocked(id);
    }
    Q_EMIT signalInterfaceIDChanged();
}

ProtoModel::s_InterfaceID Interface::interfaceFullId() const { return copyOf(m_detailRWLock, m_detail.interfaceId); }

void Interface::setOwerDevice(std::weak_ptr<Device> device) {
    const WriteGuard guard(m_detailRWLock);
    m_pOwnerDevice = std::move(device);
}

std::weak_ptr<Device> Interface::owerDevice() const { return copyOf(m_detailRWLock, m_pOwnerDevice); }
int Interface::type() const { return copyOf(m_detailRWLock, m_detail.general.type); }
void Interface::setType(InterfaceType type) {
    std::ignore = assign(m_detailRWLock, m_detail.general.type, toInt(type));
}

uint8_t Interface::echoVideoId() const {
    const auto device = owerDevice().lock();
    if (device == nullptr) {
        qWarning() << "device is null.";
        return Constants::invalidId_8;
    }
    const auto id = interfaceFullId();
    const auto *config = device->configRecord();
    const int connectorsOfCard = config == nullptr ? 0 : config->MaxConnectorCountOfSingleCard;
    // Ids are any numbers; only their low 8 bits reach the result.
    return static_cast<uint8_t>(static_cast<uint32_t>(id.connectorId) +
                                static_cast<uint32_t>(id.slotId) * static_cast<uint32_t>(connectorsOfCard));
}

bool Interface::connectorRecord(ProtoModel::Device::s_Connectors &record) const {
    const auto device = owerDevice().lock();
    const auto id = interfaceFullId();
    return device != nullptr && device->protoConnector(id.slotId, id.connectorId, record);
}

Interface::CapacityMode Interface::capacity() const {
    ProtoModel::Device::s_Connectors record;
    return connectorRecord(record) ? static_cast<CapacityMode>(record.capacityMode) : CapacityMode::invaild;
}

Interface::ConnectorType Interface::connectorType() const {
    ProtoModel::Device::s_Connectors record;
    return connectorRecord(record) ? static_cast<ConnectorType>(record.type) : ConnectorType::INVALID;
}

Interface::CardType Interface::cardType() const {
    const auto device = owerDevice().lock();
    const auto type = device == nullptr
                          ? std::nullopt
                          : device->slotValue(interfaceFullId().slotId, &ProtoModel::Device::s_subcardBody::cardType);
    return static_cast<CardType>(type.value_or(toInt(CardType::Undefined)));
}

Interface::InterfaceType Interface::direction() const {
    return cardType() == CardType::_INPUT ? InterfaceType::Input : InterfaceType::MainOutput;
}

InterfaceConfig::ConnectorInfo Interface::connectorInfo() const {
    InterfaceConfig::ConnectorInfo info;
    std::ignore = InterfaceConfig::instance()->findConnectorInfo(capacity(), direction(), connectorType(), info);
    return info;
}

QString Interface::connectorShortType() const {
    InterfaceConfig::ConnectorInfo info;
    if (!InterfaceConfig::instance()->findConnectorInfo(capacity(), direction(), connectorType(), info)) {
        qDebug() << "Get interface's connector has failed!";
        return {};
    }
    return info.m_strShortName;
}

QString Interface::connectorTypeName() const {
    const auto device = owerDevice().lock();
    const auto id = interfaceFullId();
    const auto model =
        device == nullptr ? std::nullopt : device->slotValue(id.slotId, &ProtoModel::Device::s_subcardBody::modelId);
    const QString name = InterfaceConfig::instance()->connectorNameOnMaxCapacity(
        fileModelId(model.value_or(Constants::invalidId_16)), toInt(capacity()), id.connectorId);
    return name.isEmpty() ? connectorInfo().m_strName : name;
}

int Interface::printKeyNo() const {
    const auto device = owerDevice().lock();
    if (device == nullptr) {
        qWarning() << "Device is null";
        return -1;
    }
    const auto id = interfaceFullId();
    const auto card = isId(id.slotId) ? device->findSubcardBySlotId(static_cast<uint8_t>(id.slotId)).lock() : nullptr;
    if (card == nullptr) {
        qWarning() << "Subcard is null";
        return -1;
    }
    const auto *layout = InterfaceConfig::instance()->findSubCardByModelId(fileModelId(card->modelId()));
    if (layout == nullptr) {
        qWarning() << "itSubcard == subcards.cend()";
        return -1;
    }
    const auto entries = layout->getCardConnector();
    const auto entry = isId(id.connectorId) ? entries.find(static_cast<unsigned char>(id.connectorId)) : entries.end();
    if (entry == entries.end()) {
        qWarning() << "Connector is not find";
        return -1;
    }
    return entry->PrintKeyNo;
}

bool Interface::isOwnerOnline() const {
    const auto device = owerDevice().lock();
    return device != nullptr && device->onlineFlag();
}

bool Interface::isActive() const { return valid(true, false); }

void Interface::setLssuedFailedUpdate(const std::weak_ptr<Device> &device) {
    Q_EMIT DeviceList::instance()->signalLssuedFailedUpDateInput(device, weak_from_this());
}

void Interface::createConnects(std::weak_ptr<Device> device) {
    const Relay join(this, m_relays, std::move(device), weak_from_this());
    // No row for what is of no use beyond the interface: its id, its cutout, its format mapping.
    join(&Interface::signalInterfaceNameChanged, &DeviceList::signalInterfaceNameChanged);
    join(&Interface::signalInterfaceSignalChanged, &DeviceList::signalInterfaceSignalChanged);
    join(&Interface::signalInterfaceCropChanged, &DeviceList::signalInterfaceCropChanged);
    join(&Interface::signalInterfaceTestPatternChanged, &DeviceList::signalInterfaceTestPatternChanged);
    join(&Interface::signalInterfaceCutoutRGBChanged, &DeviceList::signalInterfaceCutoutRGBChanged);
    join(&Interface::signalInterfaceCutoutRGBReported, &DeviceList::signalInterfaceCutoutRGBReported);
    join(&Interface::signalInterfaceActualTimingChanged, &DeviceList::signalInterfaceActualTimingChanged);
    join(&Interface::signalInterfaceActualColorSpaceChanged, &DeviceList::signalInterfaceColorSpaceChanged);
    join(&Interface::signalInterfaceActualColorRangeChanged, &DeviceList::signalInterfaceColorRangeChanged);
    join(&Interface::signalInterfaceActualColorDepthChanged, &DeviceList::signalInterfaceColorDepthChanged);
    join(&Interface::signalInterfacePresetColorSpaceChanged, &DeviceList::signalInterfacePresetColorSpaceChanged);
    join(&Interface::signalInterfacePresetColorRangeChanged, &DeviceList::signalInterfacePresetColorRangeChanged);
    join(&Interface::signalInterfacePresetColorDepthChanged, &DeviceList::signalInterfacePresetColorDepthChanged);
    join(&Interface::signalInterfaceOverLoadChanged, &DeviceList::signalInterfaceOverLoadChanged);
    join(&Interface::signalHDCPInfoChanged, &DeviceList::signalHDCPInfoChanged);
    join(&Interface::signalInterfaceImageQualityChanged, &DeviceList::signalInterfaceImageQualityChanged);
    join(&Interface::signalInterfacePresetColorGamutChanged, &DeviceList::signalInterfacePresetColorGamutChanged);
    join(&Interface::signalInterfacePresetDynamicRangeChanged, &DeviceList::signalInterfacePresetDynamicRangeChanged);
    join(&Interface::signalInterfacePresetPqMaxCllChanged, &DeviceList::signalInterfacePresetPqMaxCllChanged);
    join(&Interface::signalInterfaceAcualColorGamutChanged, &DeviceList::signalInterfaceActualColorGamutChanged);
    join(&Interface::signalInterfaceAcualDynamicRangeChanged, &DeviceList::signalInterfaceActualDynamicRangeChanged);
    join(&Interface::signalInterfaceAcualPqMaxCllChanged, &DeviceList::signalInterfaceActualPqMaxCllChanged);
    // No row, since the layers that keep the source's ratio follow before the hub repeats.
    join.call(&Interface::signalPresetFrameTimingChanged,
              [](const std::weak_ptr<Device> &owner, const std::weak_ptr<Interface> &interface) {
                  if (const auto alive = owner.lock())
                      alive->updateLayerAspectRatioType(interface);
                  Q_EMIT DeviceList::instance()->signalPresetFrameTimingChanged(owner, interface);
              });
}

void Interface::setGeneral(const ProtoModel::Interface::s_InterfaceGeneralBody &general) {
    const auto old = exchanged(m_detailRWLock, m_detail.general, general);
    if (old && old->name != general.name)
        Q_EMIT signalInterfaceNameChanged();
}

ProtoModel::Interface::s_InterfaceGeneralBody Interface::general() const {
    return copyOf(m_detailRWLock, m_detail.general);
}

void Interface::setTestPattern(ProtoModel::s_TestPatternBody pattern) {
    if (assign(m_detailRWLock, m_detail.testPattern, pattern))
        Q_EMIT signalInterfaceTestPatternChanged();
}

ProtoModel::s_TestPatternBody Interface::testPattern() const { return copyOf(m_detailRWLock, m_detail.testPattern); }

void Interface::setImageQuality(ProtoModel::s_ImageQualityBody quality) {
    if (assign(m_detailRWLock, m_detail.imageQuality, quality))
        Q_EMIT signalInterfaceImageQualityChanged();
}

ProtoModel::s_ImageQualityBody Interface::imageQuality() const { return copyOf(m_detailRWLock, m_detail.imageQuality); }

void Interface::setFormatMapping(FormatMapping mapping) {
    if (assign(m_detailRWLock, m_detail.formatMapping, toInt(mapping)))
        Q_EMIT signalInterfaceFormatMappingChanged();
}

Interface::FormatMapping Interface::formatMapping() const {
    return static_cast<FormatMapping>(copyOf(m_detailRWLock, m_detail.formatMapping));
}

void Interface::setCutoutGeneral(ProtoModel::Interface::s_CutoutGeneralBody cutout) {
    if (assign(m_detailRWLock, m_detail.cutoutGeneral, cutout))
        Q_EMIT signalCutoutInfoChanged();
}

ProtoModel::Interface::s_CutoutGeneralBody Interface::cutoutGeneral() const {
    return copyOf(m_detailRWLock, m_detail.cutoutGeneral);
}

void Interface::setCutoutEnable(bool isEnabled) {
    if (assignSwitch(m_detailRWLock, m_detail.cutoutGeneral.enable, isEnabled))
        Q_EMIT signalCutoutInfoChanged();
}

bool Interface::cutoutEnable() const { return Helper::int2Bool(copyOf(m_detailRWLock, m_detail.cutoutGeneral.enable)); }

void Interface::setCutoutRGB(const ProtoModel::s_RGB &color) {
    const bool isChanged = assign(m_detailRWLock, m_detail.cutoutGeneral.hue.color, color);
    Q_EMIT signalInterfaceCutoutRGBReported();
    if (isChanged)
        Q_EMIT signalInterfaceCutoutRGBChanged();
}

ProtoModel::s_RGB Interface::cutoutRGB() const { return copyOf(m_detailRWLock, m_detail.cutoutGeneral.hue.color); }

void Interface::setCutoutPos(ProtoModel::Auxiliary::s_CutoutPos pos) {
    std::ignore = assign(m_detailRWLock, m_cutoutPosInfo, pos);
}

ProtoModel::Auxiliary::s_CutoutPos Interface::cutoutPos() const { return copyOf(m_detailRWLock, m_cutoutPosInfo); }

ProtoModel::Screen::s_ScreenRefOutputPara referenceOf(const Interface &interface) {
    return {.colorDepths = interface.colorDepth(),
            .colorSpaces = interface.colorSpace(),
            .colorRanges = interface.colorRange(),
            .formatMapping = toInt(interface.formatMapping()),
            .timing = interface.presetTiming()};
}

void pushReference(Interface &interface, const ProtoModel::Screen::s_ScreenRefOutputPara &reference) {
    interface.setPresetTiming(reference.timing);
    interface.setColorDepth(reference.colorDepths);
    interface.setColorSpace(reference.colorSpaces);
    interface.setColorRange(reference.colorRanges);
    interface.setFormatMapping(static_cast<Interface::FormatMapping>(reference.formatMapping));
}

} // namespace Quorix::BizModel
