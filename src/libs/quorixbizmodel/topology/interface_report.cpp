#include <quorixbizmodel/topology/interface.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/topology/subcard.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <QDebug>

#include <utility>

namespace Quorix::BizModel {

namespace {

using InterfaceType = Enum::Interface::InterfaceType;

/// What a card's ports are. A card of another type has no kind of interface.
std::int32_t typeOnCard(Enum::Device::CardType card) {
    using Enum::Device::CardType;
    switch (card) {
    case CardType::_MVR:
    case CardType::_AUX:
        return toInt(InterfaceType::AUXOutput);
    case CardType::_INPUT:
        return toInt(InterfaceType::Input);
    case CardType::_OUTPUT:
        return toInt(InterfaceType::MainOutput);
    default:
        return 0;
    }
}

} // namespace

void Interface::initInterfaceData(uint8_t slotId, uint8_t connectorId) {
    const auto device = owerDevice().lock();
    if (device == nullptr) {
        qWarning() << "The device is null";
        return;
    }
    const auto card = device->findSubcardBySlotId(slotId).lock();
    if (card == nullptr) {
        qWarning() << "The subcard is null";
        return;
    }
    const auto connector = card->connector(connectorId).lock();
    if (connector == nullptr) {
        qWarning() << "The connector is null";
        return;
    }
    const auto *config = InterfaceConfig::instance();
    const bool isInput = card->cardType() == CardType::_INPUT;
    const auto direction = isInput ? InterfaceType::Input : InterfaceType::MainOutput;
    const auto capacity = connector->capacityMode();
    const auto connectorType = connector->type();
    InterfaceConfig::ConnectorInfo info;
    std::ignore = config->findConnectorInfo(capacity, direction, connectorType, info);

    setInterfaceId({.slotId = slotId, .connectorId = connectorId, .splitId = 0});
    setName(info.m_strName);

    QSize size = info.m_sizeDefaultResolution;
    float refreshRate = info.m_fDefaultRefreshRate;
    if (capacity != CapacityMode::invaild) {
        InterfaceConfig::ConnectorCapacity limits;
        if (!config->findConnectorCapacity(capacity, direction, connectorType, limits)) {
            qDebug() << "get current ConnectorCapacity error!";
            return;
        }
        const auto &preferred = limits.sizeDefaultResolution;
        if (preferred.width() > 0 && preferred.height() > 0 && limits.defaultRefreshRate > 0.0F) {
            size = preferred;
            refreshRate = limits.defaultRefreshRate;
        }
    }
    setPresetTiming(size.width(), size.height(), refreshRate);

    const int side =
        toInt(isInput ? Enum::Interface::ConfigInterfaceType::Input : Enum::Interface::ConfigInterfaceType::Output);
    for (const auto &attribute : info.m_listCardSort) {
        if (attribute.cardType != side)
            continue;
        const QString otherName =
            config->connectorNameOnMaxCapacity(fileModelId(card->modelId()), toInt(capacity), connectorId);
        setHDCPPresetType(
            static_cast<HDCPType>(otherName.isEmpty() ? attribute.currentHDCP : attribute.currentHDCPOnMaxCapacity));
        break;
    }

    ProtoModel::Interface::s_InterfaceGeneralBody general;
    general.type = typeOnCard(card->cardType());
    general.name = nextInterfaceName(slotId, static_cast<InterfaceType>(general.type)).toStdString();
    setGeneral(general);
    setColorDepth({.actualColorDepth = 0, .presetColorDepth = info.m_colorDepth});
    setColorSpace({.actualColorSpace = 0, .presetColorSpace = info.m_colorSpace});
    setImageQuality(neutralImageQuality());
}

bool Interface::initModelData(std::weak_ptr<Device> device, const Detail &detail, QString & /*errMsg*/) {
    const ObjectSignalLocker<Interface> silence(this);
    {
        const WriteGuard guard(m_detailRWLock);
        m_pOwnerDevice = std::move(device);
        m_detail = detail;
        storeIdWhileLocked(detail.interfaceId);
    }
    tellConnector();
    updateCrop();
    return true;
}

void Interface::setInterfaceDetail(const Detail &detail) {
    setOverLoad();
    tellConnector();
    auto present = interfaceDetail();
    present.interfaceId = detail.interfaceId;
    present.HDR = detail.HDR;
    if (present == detail)
        return;
    setGeneral(detail.general);
    setColorDepth(detail.colorDepths);
    setColorSpace(detail.colorSpaces);
    setColorRange(detail.colorRanges);
    setFormatMapping(static_cast<FormatMapping>(detail.formatMapping));
    setHDCPEnable(detail.HDCP.enable);
    setHDCPPresetType(static_cast<HDCPType>(detail.HDCP.presetType));
    setHDCPActualType(static_cast<HDCPType>(detail.HDCP.actualType));
    setTestPattern(detail.testPattern);
    setPresetTiming(detail.presetTiming);
    setActualTiming(detail.actualTiming);
    setImageQuality(detail.imageQuality);
    setCrop(detail.crop, {});
    updateCrop();
    setCutoutGeneral(detail.cutoutGeneral);
}

Interface::Detail Interface::interfaceDetail() const { return copyOf(m_detailRWLock, m_detail); }

} // namespace Quorix::BizModel
