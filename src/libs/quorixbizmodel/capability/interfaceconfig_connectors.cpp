/// Life of the tree, and what a connector type can do.
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/enumtools.h>

#include <QDebug>

#include <algorithm>

namespace Quorix::BizModel {

namespace {

/// The file's number of a direction.
int cardTypeOf(InterfaceConfig::InterfaceType type) {
    return toInt(type == InterfaceConfig::InterfaceType::Input ? Enum::Interface::ConfigInterfaceType::Input
                                                               : Enum::Interface::ConfigInterfaceType::Output);
}

/// What a capacity is worth against the threshold of a timing; 0 for an unknown one.
int supportedCapacities(InterfaceConfig::CapacityMode mode) {
    using Mode = InterfaceConfig::CapacityMode;
    using Mask = InterfaceConfig::CapacitySupportResolution;
    switch (mode) {
    case Mode::_SL:
        return toInt(Mask::_SL);
    case Mode::_DL:
        return toInt(Mask::SLToDL);
    case Mode::_4K:
        return toInt(Mask::SLTo4K);
    default:
        return toInt(Mask::None);
    }
}

} // namespace

std::atomic<InterfaceConfig *> InterfaceConfig::m_pInstance{nullptr};
std::mutex InterfaceConfig::m_muInterfaceConfig;

InterfaceConfig::InterfaceConfig() {
    m_listConnectorInfo.setSharable(false);
    m_listInputCard.setSharable(false);
    m_listOutputCard.setSharable(false);
    m_listExpCard.setSharable(false);
    m_listAuxCard.setSharable(false);
}

InterfaceConfig *InterfaceConfig::instance() {
    if (m_pInstance.load(std::memory_order_acquire) == nullptr) {
        const std::lock_guard guard(m_muInterfaceConfig);
        if (m_pInstance.load(std::memory_order_relaxed) == nullptr)
            m_pInstance.store(new InterfaceConfig, std::memory_order_release);
    }
    return m_pInstance.load(std::memory_order_acquire);
}

void InterfaceConfig::destroyInstance() {
    if (m_pInstance.load(std::memory_order_acquire) == nullptr)
        return;
    InterfaceConfig *last = nullptr;
    {
        const std::lock_guard guard(m_muInterfaceConfig);
        last = m_pInstance.exchange(nullptr);
    }
    delete last; // unlocked: a slot of its signal destroyed() may ask for the instance
}

const InterfaceConfig::s_ConnectorInfo *InterfaceConfig::connectorInfo(ConnectorType type) const {
    for (const s_ConnectorInfo &info : m_listConnectorInfo)
        if (info.m_eType == type)
            return &info;
    qCritical() << " no found connectorInfo ,ConnectorType:" << toInt(type)
                << "m_listConnectorInfo.size:" << m_listConnectorInfo.size();
    return nullptr;
}

bool InterfaceConfig::findConnectorInfo(CapacityMode capacityMode, InterfaceType cardtype, ConnectorType type,
                                        ConnectorInfo &connectorInfo_out) const {
    const s_ConnectorInfo *info = connectorInfo(type);
    if (info == nullptr)
        return false;
    const int direction = cardTypeOf(cardtype);
    const int capacities = supportedCapacities(capacityMode);
    ConnectorInfo filtered = *info;
    filtered.m_listPredefinedResolutionRatio.clear();
    for (const s_VESAResolutionRatio &row : info->m_listPredefinedResolutionRatio)
        if ((row.iCardType == 0 || row.iCardType == direction) && capacities >= row.iCapacity)
            filtered.m_listPredefinedResolutionRatio.append(row);
    connectorInfo_out = filtered;
    return true;
}

bool InterfaceConfig::findConnectorCapacity(CapacityMode capacity, InterfaceType cardtype, ConnectorType type,
                                            ConnectorCapacity &connectorCapacity_out) const {
    const s_ConnectorInfo *info = connectorInfo(type);
    if (info == nullptr)
        return false;
    const auto &modes = info->m_listCapacityMode;
    const auto mode = std::find_if(modes.cbegin(), modes.cend(), [&](const s_ConnectorCapacityMode &m) {
        return m.cardType == cardTypeOf(cardtype);
    });
    if (mode == modes.cend()) {
        qCritical() << " no found connectorInfo ,ConnectorType, CapacityMode:" << toInt(type)
                    << "connectorInfo_out.m_listCapacityMode:" << modes.size();
        return false;
    }
    for (const s_ConnectorCapacity &entry : mode->m_listConnectorCapacity) {
        if (entry.capacity == toInt(capacity)) {
            connectorCapacity_out = entry;
            return true;
        }
    }
    return false;
}

bool InterfaceConfig::isSupportHDR(InterfaceType cardtype, ConnectorType type,
                                   Enum::Interface::CapacityMode capacityMode) const {
    const s_ConnectorInfo *info = connectorInfo(type);
    if (info == nullptr)
        return false;
    for (const s_HDRBodyAttribute &entry : info->m_listHDR)
        if (entry.cardType == cardTypeOf(cardtype) && entry.capacityMode == toInt(capacityMode))
            return entry.isSupportHDR;
    return false;
}

} // namespace Quorix::BizModel
