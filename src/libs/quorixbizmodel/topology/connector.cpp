#include <quorixbizmodel/topology/connector.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/topology/subcard.h>

#include <cmath>
#include <utility>

namespace Quorix::BizModel {

namespace {

std::shared_ptr<Device> deviceOf(const std::shared_ptr<Subcard> &card) {
    return card == nullptr ? nullptr : card->owerDevice().lock();
}

} // namespace

Connector::Connector(uint8_t connectorId) : m_connectorId(connectorId) { moveToModelThread(*this); }

Connector::~Connector() = default;

std::optional<Connector::Record> Connector::record() const {
    const auto card = owerSubcard().lock();
    const auto device = deviceOf(card);
    Record found;
    if (device == nullptr || !device->protoConnector(card->slotId(), id(), found))
        return std::nullopt;
    return found;
}

bool Connector::store(std::int32_t Record::*field, std::int32_t value) {
    const auto card = owerSubcard().lock();
    const auto device = deviceOf(card);
    const auto old =
        device == nullptr ? std::nullopt : device->exchangeConnectorValue(card->slotId(), id(), field, value);
    if (!old)
        return false;
    const bool isEntryChanged = assign(m_lock, m_cardConnectorInfo.Connector.*field, value);
    return isEntryChanged || *old != value;
}

Connector::ConnectorType Connector::type() const {
    const auto found = record();
    return found ? static_cast<ConnectorType>(found->type) : ConnectorType::INVALID;
}

void Connector::setType(ConnectorType type) { store(&Record::type, toInt(type)); }

Connector::WorkMode Connector::workMode() const {
    const auto found = record();
    return found ? static_cast<WorkMode>(found->workMode) : WorkMode::NoOutput;
}

void Connector::setWorkMode(WorkMode mode) { store(&Record::workMode, toInt(mode)); }

Connector::CapacityMode Connector::capacityMode() const {
    const auto found = record();
    return found ? static_cast<CapacityMode>(found->capacityMode) : CapacityMode::invaild;
}

void Connector::setCapacityMode(CapacityMode mode) {
    if (store(&Record::capacityMode, toInt(mode)))
        Q_EMIT signalConnectorCapacityChanged();
}

uint8_t Connector::id() const { return copyOf(m_lock, m_connectorId); }
void Connector::setId(uint8_t id) { std::ignore = assign(m_lock, m_connectorId, id); }
quint8 Connector::getIndex() const { return copyOf(m_lock, m_iIndex); }
void Connector::setIndex(quint8 index) { std::ignore = assign(m_lock, m_iIndex, index); }
std::weak_ptr<Subcard> Connector::owerSubcard() const { return copyOf(m_lock, m_pOwnerSubCard); }

void Connector::setOwerSubcard(std::weak_ptr<Subcard> subcard) {
    const WriteGuard guard(m_lock);
    m_pOwnerSubCard = std::move(subcard);
}

void Connector::setCardConnector(const CardConnector &cardConnector) {
    const WriteGuard guard(m_lock);
    m_cardConnectorInfo = cardConnector;
}

Connector::CardConnector Connector::cardConnector() const { return copyOf(m_lock, m_cardConnectorInfo); }
int Connector::seletedStatus() const { return copyOf(m_lock, m_cardConnectorInfo.Status); }
void Connector::setSeletedStatus(int status) { std::ignore = assign(m_lock, m_cardConnectorInfo.Status, status); }
quint32 Connector::margin() const { return copyOf(m_lock, m_cardConnectorInfo.Margin); }
void Connector::setMargin(quint32 margin) { std::ignore = assign(m_lock, m_cardConnectorInfo.Margin, margin); }
int Connector::printKeyNo() const { return copyOf(m_lock, m_cardConnectorInfo.PrintKeyNo); }
void Connector::setPrintKeyNo(int number) { std::ignore = assign(m_lock, m_cardConnectorInfo.PrintKeyNo, number); }
bool Connector::visible() const { return copyOf(m_lock, m_cardConnectorInfo.Visible); }
void Connector::setVisible(bool isVisible) { std::ignore = assign(m_lock, m_cardConnectorInfo.Visible, isVisible); }
bool Connector::isEnabled() const { return copyOf(m_lock, m_cardConnectorInfo.Enable); }
void Connector::setEnabled(bool isEnabled) { std::ignore = assign(m_lock, m_cardConnectorInfo.Enable, isEnabled); }
uint32_t Connector::copyId() const { return copyOf(m_lock, m_cardConnectorInfo.Connector.copyId); }
void Connector::setCopyId(uint32_t id) { std::ignore = assign(m_lock, m_cardConnectorInfo.Connector.copyId, id); }

void Connector::setActived(bool isActived) {
    if (assign(m_lock, m_cardConnectorInfo.Signal, isActived))
        Q_EMIT signalConnectorSignalChanged();
}

QSize Connector::getFrameRate() const {
    const auto size = copyOf(m_lock, m_frameRate);
    return {size.width, size.height};
}

void Connector::setFrameRate(const QSize &size) {
    std::ignore = assign(m_lock, m_frameRate, {size.width(), size.height()});
}

float Connector::getRefreshRate() const { return copyOf(m_lock, m_refreshRate); }

void Connector::setRefreshRate(float rate) {
    const WriteGuard guard(m_lock);
    if (std::abs(m_refreshRate - rate) <= 0.000001F)
        return;
    m_refreshRate = rate;
}

bool Connector::isOverLoad() const { return copyOf(m_lock, m_overLoad); }

void Connector::setOverLoad(bool isOverLoad) {
    if (assign(m_lock, m_overLoad, isOverLoad))
        Q_EMIT signalConnectorOverLoadChanged();
}

bool Connector::isHotBackForSameCapacity() const { return copyOf(m_lock, m_hotBackForSameCapacity); }

void Connector::setHotBackForSameCapacity(bool isPossible) {
    std::ignore = assign(m_lock, m_hotBackForSameCapacity, isPossible);
}

bool Connector::isHotBackConnectorSelected() const { return copyOf(m_lock, m_hotBackupSelected); }

void Connector::setHotBackConnectorSelected(bool isSelected) {
    std::ignore = assign(m_lock, m_hotBackupSelected, isSelected);
}

void Connector::createConnects(std::weak_ptr<Subcard> subcard) {
    const std::weak_ptr<Device> device = deviceOf(subcard.lock());
    const Relay join(this, m_relays, device, std::move(subcard), weak_from_this());
    join(&Connector::signalConnectorSignalChanged, &DeviceList::signalConnectorSignalChanged);
    join(&Connector::signalConnectorOverLoadChanged, &DeviceList::signalConnectorOverLoadChanged);
    join(&Connector::signalConnectorCapacityChanged, &DeviceList::signalConnectorCapacityChanged);
}

void Connector::unserailize(std::weak_ptr<Subcard> subcard) {
    setOwerSubcard(subcard);
    createConnects(std::move(subcard));
}

ConnectorState Connector::state() const {
    const ReadGuard guard(m_lock);
    return {m_cardConnectorInfo, m_connectorId, m_iIndex, m_frameRate, m_refreshRate, m_overLoad};
}

} // namespace Quorix::BizModel
