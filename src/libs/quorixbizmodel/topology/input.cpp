#include <quorixbizmodel/topology/input.h>

#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>

#include <utility>

namespace Quorix::BizModel {

Input::Input() = default;

Input::Input(std::weak_ptr<Device> device, uint8_t slotId, uint8_t connectorId)
    : Interface(std::move(device), slotId, connectorId) {}

Input::Input(const Input &other) : Interface(other), m_pickUpPoint(copyOf(other.m_detailRWLock, other.m_pickUpPoint)) {}

Input &Input::operator=(const Input &other) {
    if (this == &other)
        return *this;
    Interface::operator=(other);
    std::ignore = assign(m_detailRWLock, m_pickUpPoint, copyOf(other.m_detailRWLock, other.m_pickUpPoint));
    return *this;
}

Input::~Input() = default;

bool Input::isAllowSetEDID() const {
    switch (connectorType()) {
    case ConnectorType::_3G_SDI:
    case ConnectorType::_12G_SDI:
    case ConnectorType::_6G_SDI:
    case ConnectorType::USB:
    case ConnectorType::VGA:
    case ConnectorType::CVBS:
        return false;
    default:
        return true;
    }
}

void Input::setPickPoint(QPoint point) {
    std::ignore = assign(m_detailRWLock, m_pickUpPoint, Helper::qPoint2SPoint(point));
}

QPoint Input::getPickPoint() const { return Helper::sPoint2QPoint(copyOf(m_detailRWLock, m_pickUpPoint)); }

InputState Input::state() const {
    const ReadGuard guard(m_detailRWLock);
    return {stateWhileLocked(), m_pickUpPoint};
}

} // namespace Quorix::BizModel
