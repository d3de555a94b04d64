/// What belongs to the processor as a whole: genlock, power supplies, network, switches, output mapping, jobs.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/topology/input.h>

#include <QDebug>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace Quorix::BizModel {

namespace {

using Enum::Device::GenLockEnable;
using Enum::Device::GenLockEnum;
using Enum::Device::GenLockStatus;
using Enum::Device::LoadToPGMStatus;

struct GenlockStatusText {
    GenLockStatus status;
    const char *text;
};

constexpr GenlockStatusText kGenlockStatuses[] = {
    {GenLockStatus::Off, QT_TRANSLATE_NOOP("Quorix::BizModel::Device", "Off")},
    {GenLockStatus::Synchronizing, QT_TRANSLATE_NOOP("Quorix::BizModel::Device", "Synchronizing")},
    {GenLockStatus::Synchronization, QT_TRANSLATE_NOOP("Quorix::BizModel::Device", "Synchronization")},
    {GenLockStatus::SynchronizeFailure, QT_TRANSLATE_NOOP("Quorix::BizModel::Device", "SynchronizeFailure")},
};

/// Whether a power supply of @p before stands in @p now with another state. Grouped by id, so that a long report with
/// one id throughout costs no more than another.
bool isStateChanged(const ProtoModel::Device::s_PowerBodyArray &before,
                    const ProtoModel::Device::s_PowerBodyArray &now) {
    using State = std::pair<std::int32_t, std::int32_t>;
    std::map<std::int32_t, std::set<State>> states;
    for (const auto &power : before)
        states[power.powerId].emplace(power.iSignal, power.status);
    return std::any_of(now.begin(), now.end(), [&](const auto &power) {
        const auto known = states.find(power.powerId);
        return known != states.end() &&
               std::any_of(known->second.begin(), known->second.end(),
                           [&](const State &state) { return state != State(power.iSignal, power.status); });
    });
}

/// Whether @p now holds a screen that @p before lacks, or another status of one.
bool isStatusChanged(const ProtoModel::Screen::s_ScreenGenlockBodyArray &before,
                     const ProtoModel::Screen::s_ScreenGenlockBodyArray &now) {
    std::map<std::pair<std::uint8_t, std::int32_t>, std::int32_t> statuses;
    for (const auto &screen : before)
        statuses.try_emplace({screen.screenId, screen.screenType}, screen.genlockSignal.status);
    return std::any_of(now.begin(), now.end(), [&](const auto &screen) {
        const auto known = statuses.find({screen.screenId, screen.screenType});
        return known == statuses.end() || known->second != screen.genlockSignal.status;
    });
}

} // namespace

// Genlock

void Device::setGenlockInfo(const ProtoModel::Device::s_GenlockBody &genlock) {
    if (assign(m_detailRWLock, m_detail.genlock, genlock))
        Q_EMIT signalGenlockConfigChanged();
}

ProtoModel::Device::s_GenlockBody Device::genlockInfo() { return copyOf(m_detailRWLock, m_detail.genlock); }

GenLockEnum Device::genlockType() { return static_cast<GenLockEnum>(genlockInfo().type); }

bool Device::genlockEnable() { return genlockInfo().type != 0; }

uint32_t Device::genlockInterfaceId() { return genlockInfo().interfaceId; }

void Device::setGenlockOnStatus(const ProtoModel::Device::s_GenlockSignalBody &signal) {
    if (assign(m_detailRWLock, m_detail.genlockSignal, signal))
        Q_EMIT signalGenlockSignalChanged();
}

GenLockEnable Device::genlockOnEnum() {
    return copyOf(m_detailRWLock, m_detail.genlockSignal.extSignalIn) == 0 ? GenLockEnable::GenLockOff
                                                                           : GenLockEnable::GenLockInOn;
}

GenLockStatus Device::genlockStatus() {
    return static_cast<GenLockStatus>(copyOf(m_detailRWLock, m_detail.genlockSignal.status));
}

bool Device::isGenlockSyncFailure() { return genlockStatus() == GenLockStatus::SynchronizeFailure; }

QString Device::genlockStatusStr() {
    const GenLockStatus status = onlineFlag() ? genlockStatus() : GenLockStatus::Off;
    for (const auto &row : kGenlockStatuses)
        if (row.status == status)
            return tr(row.text);
    return {};
}

std::shared_ptr<Input> Device::genlockInput(uint32_t interfaceId) {
    const auto id = Helper::interfaceFullId(interfaceId);
    auto input = findInput(static_cast<uint8_t>(id.slotId), static_cast<uint8_t>(id.connectorId)).lock();
    if (input == nullptr)
        qWarning() << "Can not find the input. slotId: " << id.slotId << " connectorId:" << id.connectorId;
    return input;
}

QString Device::genlockSyncSource() {
    const auto [genlock, signal] = copiesOf(m_detailRWLock, m_detail.genlock, m_detail.genlockSignal);
    if (signal.status == toInt(GenLockStatus::Off))
        return Constants::Device::nullGenlock;
    if (genlock.type == toInt(GenLockEnum::GenLock))
        return Constants::Device::genlockSource;
    if (genlock.type != toInt(GenLockEnum::InputSource))
        return Constants::Device::nullGenlock;
    const auto input = genlockInput(genlock.interfaceId);
    return input == nullptr ? Constants::Device::nullGenlock : input->name();
}

int Device::genlockSyncFrameRate() {
    const auto [genlock, signal] = copiesOf(m_detailRWLock, m_detail.genlock, m_detail.genlockSignal);
    if (genlock.type == toInt(GenLockEnum::GenLock))
        return signal.extSignalIn;
    if (genlock.type != toInt(GenLockEnum::InputSource))
        return 0;
    const auto input = genlockInput(genlock.interfaceId);
    return input == nullptr ? 0 : input->actualTiming().refresh;
}

void Device::setScreenGenlocks(const ProtoModel::Screen::s_ScreenGenlockBodyArray &genlocks) {
    if (genlocks.size() == m_screenGenlocks.size() && !isStatusChanged(m_screenGenlocks, genlocks))
        return;
    m_screenGenlocks = genlocks;
    Q_EMIT signalScreenGenlockSignalChanged();
}

ProtoModel::Screen::s_ScreenGenlockBodyArray Device::screenGenlocks() { return m_screenGenlocks; }

// Power supplies

void Device::setPower(const ProtoModel::Device::s_PowerBodyArray &powers) {
    auto before = powers;
    {
        const WriteGuard guard(m_detailRWLock);
        m_detail.powers.swap(before);
    }
    if (isStateChanged(before, powers))
        Q_EMIT signalPowerChanged();
}

ProtoModel::Device::s_PowerBody Device::power(uint8_t id) {
    const ReadGuard guard(m_detailRWLock);
    const auto &powers = m_detail.powers;
    const auto found =
        std::find_if(powers.begin(), powers.end(), [id](const auto &each) { return each.powerId == id; });
    return found == powers.end() ? ProtoModel::Device::s_PowerBody() : *found;
}

// Network

void Device::setNetWorkInfo(const ProtoModel::Device::s_NetworkBody &body) {
    {
        const WriteGuard guard(m_detailRWLock);
        auto &networks = m_detail.networks;
        if (networks.empty()) {
            networks.push_back(body);
        } else {
            QString address = QString::fromStdString(networks.front().ip);
            if (!assign(networks.front(), body))
                return;
            m_preDeviceIPAddress = std::move(address);
        }
    }
    Q_EMIT signalNetWorkChanged();
}

void Device::setNetWorkConfigs(const ProtoModel::Device::s_Networks &networks) {
    if (networks.networks.empty())
        qWarning() << "The netConfig networks size is zero";
    else
        setNetWorkInfo(networks.networks.front());
}

void Device::setNetworks(const ProtoModel::Device::s_NetworksBodyArray &networks) {
    if (networks.empty())
        qWarning() << "The networks size is zero";
    else
        setNetWorkInfo(networks.front());
}

// Switches

void Device::setSwapEnable(bool isEnabled) {
    if (assignSwitch(m_detailRWLock, m_detail.swap, isEnabled))
        Q_EMIT signalSwapStatusChanged();
}

bool Device::swapEnable() { return copyOf(m_detailRWLock, m_detail.swap) != 0; }

void Device::setLoadToPGMEnable(LoadToPGMStatus status) {
    if (assign(m_detailRWLock, m_detail.presetApplyType, static_cast<uint8_t>(status)))
        Q_EMIT signalLoadToPGMStatusChanged();
}

LoadToPGMStatus Device::loadToPGMEnable() {
    return copyOf(m_detailRWLock, m_detail.presetApplyType) == 0 ? LoadToPGMStatus::LoadToPVW
                                                                 : LoadToPGMStatus::LoadToPGM;
}

void Device::setDynamicRangConversion(const ProtoModel::Device::s_DynamicRangConversion &conversion) {
    if (assign(m_detailRWLock, m_detail.dynamicRangConversion, conversion))
        Q_EMIT signalDynamicRangConversionChanged();
}

ProtoModel::Device::s_DynamicRangConversion Device::dynamicRangConversion() {
    return copyOf(m_detailRWLock, m_detail.dynamicRangConversion);
}

void Device::setDeviceNovsStatus(bool isEnabled) {
    if (assignSwitch(m_detailRWLock, m_detail.noVSEnable, isEnabled))
        Q_EMIT signalDeviceNovsStatusChanged();
}

bool Device::deviceNovsStatus() { return copyOf(m_detailRWLock, m_detail.noVSEnable) != 0; }

// Output mapping: two families of operations share the record, each reading under its own lock. So writers hold both.

void Device::setInterfaceMapping(const ProtoModel::Device::s_InterfaceMapping &mapping) {
    {
        const WriteGuard guard(m_detailRWLock);
        if (!assign(m_mappingRWLock, m_detail.interfaceMapping, mapping))
            return;
    }
    Q_EMIT signalInterfaceMappingChanged();
}

ProtoModel::Device::s_InterfaceMapping Device::interfaceMapping() {
    return copyOf(m_detailRWLock, m_detail.interfaceMapping);
}

void Device::setOutputMappingStatus(bool isEnabled) {
    {
        const WriteGuard guard(m_detailRWLock);
        if (!assignSwitch(m_mappingRWLock, m_detail.interfaceMapping.testPattern.enable, isEnabled))
            return;
    }
    Q_EMIT signalOutputMappingStatusChanged();
}

bool Device::outputMappingStatus() {
    return copyOf(m_mappingRWLock, m_detail.interfaceMapping.testPattern.enable) != 0;
}

void Device::setOutputMappingType(Enum::Auxiliary::TestPatternType type) {
    {
        const WriteGuard guard(m_detailRWLock);
        if (!assign(m_mappingRWLock, m_detail.interfaceMapping.testPattern.type, toInt(type)))
            return;
    }
    Q_EMIT signalOutputMappingTypeChanged();
}

Enum::Auxiliary::TestPatternType Device::outputMappingType() {
    return static_cast<Enum::Auxiliary::TestPatternType>(
        copyOf(m_mappingRWLock, m_detail.interfaceMapping.testPattern.type));
}

ProtoModel::Device::s_InterfaceMapping Device::outputMapping() {
    return copyOf(m_mappingRWLock, m_detail.interfaceMapping);
}

// Jobs and self-checks

void Device::setDeviceProcess(const ProtoModel::Auxiliary::s_DeviceProcess &process) {
    const auto &details = process.processDetails;
    const auto done =
        std::count_if(details.begin(), details.end(), [](const auto &file) { return file.process == 100; });
    const auto total = static_cast<int>(details.size());
    // Read before the first signal: a listener may change the caller's record.
    const int progress = process.totalProcess;
    setOperationStatus(static_cast<Enum::Device::OperationStatus>(process.status));
    setDeviceTotalProcess(progress);
    setDeviceLoadFileTotalNum(total);
    setCurrentLoadIndex(std::min(static_cast<int>(done) + 1, total));
}

void Device::setDeviceSelfCheckDetail(ProtoModel::Auxiliary::s_DeviceSelfCheckDetail detail) {
    m_selfCheckDetail = std::move(detail);
}

ProtoModel::Auxiliary::s_DeviceSelfCheckDetail &Device::deviceSelfCheckDetail() { return m_selfCheckDetail; }

void Device::clearDeviceSelfCheckData() { m_selfCheckDetail.parts.clear(); }

} // namespace Quorix::BizModel
