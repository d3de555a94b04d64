/// Inputs and outputs of a device: two lists, kept in the order of the packed interface ids.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/device/device_p.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <algorithm>
#include <bitset>
#include <limits>
#include <utility>

namespace Quorix::BizModel {

namespace {

using Enum::Device::CardType;
using Enum::Device::SlotStatusType;
using Enum::Interface::ConnectorType;
using Enum::Interface::InterfaceType;
using Enum::Interface::WorkMode;
using Body = ProtoModel::Device::s_subcardBody;

/// Outputs that an open multiviewer takes from the others, whatever the number of ports of a card.
constexpr int kOutputsOfMvr = 4;

template <class List>
void sortById(List &list) {
    sortByKey(list, [](const auto &interface) { return interface == nullptr ? 0 : interface->interfaceId(); });
}

/// What a list behind a lock holds first of what @p matches accepts. The predicate reads packed ids only, so that no
/// lock is taken under the list's.
template <class List, class Predicate>
auto findIn(QReadWriteLock &lock, const List &list, Predicate matches) {
    const ReadGuard guard(lock);
    return findFirst(list, matches);
}

/// Takes the interface of a place out of a list, null if there is none. Let it go outside every lock.
template <class List>
auto takeAt(QReadWriteLock &lock, List &list, uint8_t slot, uint8_t connector) {
    const WriteGuard guard(lock);
    return takePointer(list, findFirst(list, standsAt(slot, connector)).get());
}

/// Puts an interface into a list, on the application's thread from then on.
template <class List>
void insertSorted(QReadWriteLock &lock, List &list, const typename List::value_type &interface) {
    moveToModelThread(*interface);
    const WriteGuard guard(lock);
    list.push_back(interface);
    sortById(list);
}

template <class Result, class List, class Predicate>
QList<std::weak_ptr<Result>> referencesIf(const List &list, Predicate matches) {
    QList<std::weak_ptr<Result>> references;
    for (const auto &interface : list)
        if (matches(*interface))
            references.append(interface);
    return references;
}

template <class List>
bool isNameIn(const List &list, const QString &name) {
    return findFirst(list, [&](const Interface &interface) { return interface.name() == name; }) != nullptr;
}

bool isOutputType(int type) { return type != 0 && !hasAnyBit(type, ~toInt(InterfaceType::Output)); }

bool isPort(const Connector &connector) {
    const auto type = connector.type();
    return connector.isEnabled() && type != ConnectorType::DVI_Fiber && type != ConnectorType::INVALID &&
           connector.visible();
}

} // namespace

const DeviceConfig *Device::configRecord() const { return m_pDeviceConfig; }

std::weak_ptr<Input> Device::findInput(const uint32_t &id) {
    return findIn(m_inputsRWLock, m_inputs, [id](const Input &input) { return input.interfaceId() == id; });
}

std::weak_ptr<Input> Device::findInput(const uint8_t &slot, const uint8_t &connector) {
    return findIn(m_inputsRWLock, m_inputs, standsAt(slot, connector));
}

std::weak_ptr<Output> Device::findOutput(const uint32_t &id) {
    return findIn(m_outputsRWLock, m_outputs, [id](const Output &output) { return output.interfaceId() == id; });
}

std::weak_ptr<Output> Device::findOutput(const uint8_t &slot, const uint8_t &connector) {
    return findIn(m_outputsRWLock, m_outputs, standsAt(slot, connector));
}

std::weak_ptr<Output> Device::findOutput(const QString &name) {
    return findFirst(copyOf(m_outputsRWLock, m_outputs), [&](const Output &output) { return output.name() == name; });
}

QList<std::weak_ptr<Input>> Device::inputs() { return weakReferences(m_inputsRWLock, m_inputs); }

QList<std::weak_ptr<Output>> Device::outputs() { return weakReferences(m_outputsRWLock, m_outputs); }

QList<std::weak_ptr<Output>> Device::outputs(int interfaceType) {
    return referencesIf<Output>(presentEntries(m_outputsRWLock, m_outputs), [interfaceType](const Output &output) {
        return !hasAnyBit(output.type(), ~interfaceType);
    });
}

QList<std::weak_ptr<Output>> Device::findOutputs(InterfaceType type) {
    return referencesIf<Output>(presentEntries(m_outputsRWLock, m_outputs),
                                [type](const Output &output) { return output.type() == toInt(type); });
}

QList<std::weak_ptr<Input>> Device::validInputs() {
    // Work modes by place, gathered in one walk: asking the record anew for each input would walk it as often.
    std::vector<std::pair<uint32_t, int>> modes;
    {
        const ReadGuard guard(m_detailRWLock);
        std::bitset<256> seen; // of two records of a slot the first counts
        for (const auto &body : m_detail.subcards) {
            if (!isId(body.slotId) || seen[static_cast<size_t>(body.slotId)])
                continue;
            seen.set(static_cast<size_t>(body.slotId));
            for (const auto &connector : body.connectors)
                if (isId(connector.id))
                    modes.emplace_back(placeOf(static_cast<uint8_t>(body.slotId), static_cast<uint8_t>(connector.id)),
                                       connector.workMode);
        }
    }
    const auto byPlace = [](const auto &left, const auto &right) { return left.first < right.first; };
    std::stable_sort(modes.begin(), modes.end(), byPlace);
    return referencesIf<Input>(presentEntries(m_inputsRWLock, m_inputs), [&](const Input &input) {
        const std::pair<uint32_t, int> key{placeOf(input), 0};
        const auto mode = std::lower_bound(modes.begin(), modes.end(), key, byPlace);
        return mode != modes.end() && mode->first == key.first && mode->second != toInt(WorkMode::NoOutput);
    });
}

QList<std::weak_ptr<Interface>> Device::interfacesIf(const std::function<bool(const Interface &)> &matches) {
    auto references = referencesIf<Interface>(presentEntries(m_inputsRWLock, m_inputs), matches);
    references += referencesIf<Interface>(presentEntries(m_outputsRWLock, m_outputs), matches);
    return references;
}

QList<std::weak_ptr<Interface>> Device::interfaces() {
    return interfacesIf([](const Interface &) { return true; });
}

QList<std::weak_ptr<Interface>> Device::interfaces(const int &slot) {
    return interfacesIf([slot](const Interface &interface) { return interface.interfaceFullId().slotId == slot; });
}

std::weak_ptr<Interface> Device::interface(const uint8_t &slot, const uint8_t &connector) {
    if (!containsSlot(slot))
        return {};
    if (const auto input = findInput(slot, connector).lock())
        return input;
    return findOutput(slot, connector);
}

std::weak_ptr<Interface> Device::findInterface(const ProtoModel::s_InterfaceID &id) {
    if (!isId(id.slotId) || !isId(id.connectorId))
        return {};
    return interface(static_cast<uint8_t>(id.slotId), static_cast<uint8_t>(id.connectorId));
}

std::weak_ptr<Interface> Device::findCopyInterface(const ProtoModel::s_InterfaceID &id) {
    const auto card = cardAt(id.slotId);
    if (card == nullptr)
        return {};
    for (const auto &reference : card->connectors()) {
        const auto connector = reference.lock();
        if (connector != nullptr && connector->copyId() == id.id() && connector->workMode() == WorkMode::Backup)
            return interface(card->slotId(), connector->id());
    }
    return {};
}

bool Device::isInputNameExist(const QString &name) { return isNameIn(copyOf(m_inputsRWLock, m_inputs), name); }

bool Device::isOutputNameExist(const QString &name) { return isNameIn(copyOf(m_outputsRWLock, m_outputs), name); }

quint32 Device::validMainOutputConnectors() {
    return static_cast<quint32>(findOutputs(InterfaceType::MainOutput).size());
}

quint32 Device::validAuxOutputConnectors() {
    return static_cast<quint32>(findOutputs(InterfaceType::AUXOutput).size());
}

int Device::outputInterfaceCount(InterfaceType outputType, ConnectorType connectorType, bool bMvrAux) {
    if (m_pDeviceConfig == nullptr)
        return 0;
    if (outputType != InterfaceType::AUXOutput) {
        const auto &mvr = m_pDeviceConfig->MVRScreensCfg;
        const bool isOpenedByItself =
            mvr.IsSupport && mvr.OpenState != s_MVRScreenConfigs::eOpenState::Closed && !mvr.IsManualSwitch;
        return m_pDeviceConfig->OutputSlotCount * m_pDeviceConfig->MaxConnectorCountOfSingleCard -
               (isOpenedByItself || isOpenedMVR() ? kOutputsOfMvr : 0);
    }
    if (bMvrAux) {
        const auto &places = m_pDeviceConfig->AuxSceensCfg.auxScreenConfigs();
        return !places.isEmpty() && isExistSlot(places.first().SlotIndex) ? 1 : 0;
    }
    const auto aux = presentEntries(m_outputsRWLock, m_outputs);
    return static_cast<int>(std::count_if(aux.begin(), aux.end(), [connectorType](const auto &output) {
        return output->type() == toInt(InterfaceType::AUXOutput) && output->connectorType() == connectorType;
    }));
}

void Device::outputsInOrder(QList<std::weak_ptr<Output>> &outputs) {
    // An entry that has gone isn't less than any other.
    sortByKey(outputs, [](const std::weak_ptr<Output> &reference) {
        const auto output = reference.lock();
        return output == nullptr ? std::numeric_limits<uint32_t>::max() : output->interfaceId();
    });
}

void Device::outputsInOrder(std::vector<std::shared_ptr<Output>> &outputs) {
    sortByKey(outputs, [](const std::shared_ptr<Output> &output) {
        return output == nullptr ? std::numeric_limits<uint32_t>::max() : output->interfaceId();
    });
}

void Device::createInput() {
    // The cards are copied first: each step looks cards up, and a listener may change them.
    for (const auto &card : presentEntries(m_subcardsRWLock, m_subcards)) {
        if (card->onlineStatus() != toInt(SlotStatusType::Normal) || card->cardType() != CardType::_INPUT)
            continue;
        for (const auto &reference : card->connectors()) {
            const auto connector = reference.lock();
            if (connector == nullptr || !findInput(card->slotId(), connector->id()).expired())
                continue;
            const auto input = std::make_shared<Input>(weak_from_this(), card->slotId(), connector->id());
            insertSorted(m_inputsRWLock, m_inputs, input);
            Q_EMIT signalInputAdded(input);
            input->createConnects(weak_from_this());
        }
    }
}

void Device::createOutput(const std::weak_ptr<Subcard> &subcard) {
    const auto card = subcard.lock();
    if (card == nullptr || card->onlineStatus() != toInt(SlotStatusType::Normal))
        return;
    const auto type = card->cardType();
    if (type != CardType::_OUTPUT && type != CardType::_MVR && type != CardType::_AUX)
        return;
    for (const auto &reference : card->connectors()) {
        const auto connector = reference.lock();
        if (connector == nullptr || !isPort(*connector) || !findOutput(card->slotId(), connector->id()).expired())
            continue;
        const auto output = std::make_shared<Output>(weak_from_this(), card->slotId(), connector->id());
        insertSorted(m_outputsRWLock, m_outputs, output);
        output->createConnects(weak_from_this());
    }
}

void Device::createOutput() {
    for (const auto &card : presentEntries(m_subcardsRWLock, m_subcards))
        createOutput(card);
    const WriteGuard guard(m_outputsRWLock);
    outputsInOrder(m_outputs);
}

std::shared_ptr<Interface> Device::createInterface(int type) {
    if (type == toInt(InterfaceType::Input))
        return std::make_shared<Input>();
    if (isOutputType(type))
        return std::make_shared<Output>();
    return {};
}

bool Device::addInterface(const ProtoModel::Interface::s_InterfaceDetail &detail, QString &errMsg) {
    const auto interface = createInterface(detail.general.type);
    if (interface == nullptr) {
        errMsg = tr("type is error,type is:%1").arg(detail.general.type);
        return false;
    }
    // An id beyond its 8 bits would pass for another interface.
    const auto &id = detail.interfaceId;
    if (!isId(id.slotId) || !isId(id.connectorId) || !isId(id.splitId)) {
        errMsg =
            tr("interface id is error,interface id is:%1-%2-%3").arg(id.slotId).arg(id.connectorId).arg(id.splitId);
        return false;
    }
    interface->initModelData(weak_from_this(), detail, errMsg);
    interface->createConnects(weak_from_this());
    if (const auto input = std::dynamic_pointer_cast<Input>(interface)) {
        input->setHDCPEnable(detail.HDCP.enable);
        input->setHDCPPresetType(static_cast<Enum::Interface::HDCPType>(detail.HDCP.presetType));
        insertSorted(m_inputsRWLock, m_inputs, input);
        Q_EMIT signalInputAdded(input);
    } else {
        insertSorted(m_outputsRWLock, m_outputs, std::static_pointer_cast<Output>(interface));
    }
    return true;
}

void Device::removeInput(const uint8_t &slot, const uint8_t &connector) {
    const auto removed = takeAt(m_inputsRWLock, m_inputs, slot, connector);
    if (removed == nullptr)
        return;
    removeInterfaceRelation(slot, connector);
    Q_EMIT signalInputRemoved(removed);
}

void Device::removeOutput(const uint8_t &slot, const uint8_t &connector) {
    if (const auto removed = takeAt(m_outputsRWLock, m_outputs, slot, connector))
        Q_EMIT signalOutputRemoved(removed);
}

void Device::removeInterface(const uint8_t &slot) {
    Body body;
    if (!protoSlot(slot, body))
        return;
    const auto type = static_cast<CardType>(body.cardType);
    const bool isInput = type == CardType::_INPUT;
    if (!isInput && type != CardType::_OUTPUT && type != CardType::_MVR && type != CardType::_AUX)
        return;
    for (const auto &record : body.connectors) {
        if (!isId(record.id))
            continue;
        const auto connector = static_cast<uint8_t>(record.id);
        if (isInput) {
            removeSelectedInput(slot, connector);
            removeInput(slot, connector);
        } else {
            removeSelectedOutput(slot, connector);
            removeOutput(slot, connector);
        }
    }
}

void Device::removeInterface(int type, int slot, int connector) {
    if (!isId(slot) || !isId(connector))
        return;
    const auto slotId = static_cast<uint8_t>(slot);
    const auto connectorId = static_cast<uint8_t>(connector);
    if (type == toInt(InterfaceType::Input))
        takeAt(m_inputsRWLock, m_inputs, slotId, connectorId);
    else if (isOutputType(type))
        takeAt(m_outputsRWLock, m_outputs, slotId, connectorId);
}

void Device::updateInterfaceStatus() {
    for (const auto &reference : interfaces())
        if (const auto interface = reference.lock())
            interface->setActualTiming({});
}

} // namespace Quorix::BizModel
