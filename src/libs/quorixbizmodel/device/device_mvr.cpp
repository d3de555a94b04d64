/// The multiviewer: cards of the chassis that carry it, and back.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <QDebug>

#include <algorithm>
#include <optional>

namespace Quorix::BizModel {

namespace {

using Enum::Device::CardType;
using Enum::Interface::InterfaceType;
using Enum::Interface::WorkMode;
using Enum::Screen::ScreenType;

/// Whether a position is one of an AUX screen that the echo leaves free.
bool isFreeForAux(const DeviceConfig &config, uint8_t slot, uint8_t connector) {
    const bool isEcho = slot == config.EchoVideoCfg.SlotIndex && connector == config.EchoVideoCfg.ConnectorIndex;
    const s_AuxScreenConfig place{.ConnectorIndex = connector, .SlotIndex = slot};
    return !isEcho && config.AuxSceensCfg.IsSupport && config.AuxSceensCfg.auxScreenConfigs().contains(place);
}

/// Sets the default timing of an output's connector type.
void setDefaultTiming(Output &output, bool isSilent) {
    const auto info = output.connectorInfo();
    std::optional<ObjectSignalLocker<Output>> silence;
    if (isSilent)
        silence.emplace(&output);
    output.setPresetTiming(info.m_sizeDefaultResolution.width(), info.m_sizeDefaultResolution.height(),
                           info.m_fDefaultRefreshRate);
}

/// Makes the present cards of the multiviewer ones of @p type, each before @p action sees its connectors.
template <class Action>
void convertCards(Device &device, const DeviceConfig &config, CardType type, Action action) {
    for (const auto &place : config.MVRScreensCfg.mvrScreenConfigs()) {
        const auto card = device.slot(place.SlotIndex).lock();
        if (card == nullptr)
            continue;
        card->setCardType(type);
        for (const auto &reference : card->connectors())
            if (const auto connector = reference.lock())
                action(place, *connector);
    }
}

} // namespace

bool Device::isMVRCard(uint8_t slotId) {
    ProtoModel::Device::s_subcardBody card;
    if (!protoSlot(slotId, card)) {
        qWarning() << "The subcardBody is null, the slotIndex is:" << slotId;
        return false;
    }
    if (s_DeviceConfig::findSubCardByModelId(m_pDeviceConfig->MvrCards(), fileModelId(card.modelId)) != nullptr)
        return true;
    qWarning() << "Don not support the subcard, the modelId is : " << card.modelId;
    return false;
}

bool Device::isAllowOpenMVR(QString &errMsg) {
    if (m_pDeviceConfig == nullptr) {
        errMsg = tr("Unable to open MVR.No device configuration information found. The device ModelId is %1.")
                     .arg(modelId());
        return false;
    }
    if (!m_pDeviceConfig->MVRScreensCfg.IsSupport) {
        errMsg = tr("Unable to open MVR.The device not support mvr.");
        return false;
    }
    const auto warn = [&](const QString &text, uint8_t slotId) {
        errMsg = text.arg(subCardDescription(slotId, false));
        qWarning().noquote() << errMsg;
    };
    bool isAllowed = false;
    for (const auto &place : m_pDeviceConfig->MVRScreensCfg.mvrScreenConfigs()) {
        const uint8_t slotId = place.SlotIndex;
        const bool hasCard = containsSlot(slotId);
        ProtoModel::Device::s_subcardBody card;
        if (!hasCard || !protoSlot(slotId, card)) {
            warn(tr("Unable to enable MVR.%1 slot cannot find card,please insert card,such as:K_QuadPort."), slotId);
            if (hasCard)
                return false; // it has just gone
            continue;
        }
        if (card.online != toInt(Enum::Device::SlotStatusType::Normal)) {
            warn(tr("Unable to enable MVR.%1 slot cannot recognize the current card,please replace the matching "
                    "card,such as:K_QuadPort."),
                 slotId);
            return false;
        }
        const bool isMVR = isMVRCard(slotId);
        if (subCardCapacity(slotId) != Enum::Interface::CapacityMode::_SL || !isMVR) {
            errMsg = tr("Unable to enable MVR. Please switch the card or connector capacity and try again.");
            return false;
        }
        for (const auto &screen : screenList(maskOf(ScreenType::RegularScreen, ScreenType::AUXScreen)))
            for (const auto &output : screen->outputList())
                if (output != nullptr && output->interfaceFullId().slotId == slotId) {
                    errMsg = tr("Unable to enable MVR: The output card is used by the screen.");
                    return false;
                }
        isAllowed = true;
    }
    return isAllowed;
}

bool Device::isAllowCloseMVR(QString &errMsg) {
    if (m_pDeviceConfig == nullptr) {
        errMsg = tr("Unable to close MVR.No device configuration information found. The device ModelId is %1.")
                     .arg(modelId());
        return false;
    }
    if (!m_pDeviceConfig->MVRScreensCfg.IsSupport)
        return true;
    for (const auto &screen : screenList(toInt(ScreenType::MVRScreen)))
        if (!screen->layersOf(toInt(Enum::Layer::SceneType::PGM), toInt(Enum::Layer::LayerType::AllLayerType))
                 .empty()) {
            errMsg = tr("Unable to close MVR.The card is used.");
            return false;
        }
    return true;
}

void Device::openMVR(const ProtoModel::Screen::s_EnableArray &enableArray, bool isSelected) {
    addScreens(enableArray);
    updateMVRConnector(false);
    if (isSelected)
        Q_EMIT signalMVRStatusChanged();
}

void Device::closeMVR() {
    const auto *config = configRecord();
    if (config == nullptr)
        return;
    convertCards(*this, *config, CardType::_OUTPUT, [this](const auto &place, Connector &connector) {
        connector.setEnabled(true);
        connector.setWorkMode(WorkMode::Master);
        if (const auto output = findOutput(place.SlotIndex, connector.id()).lock()) {
            output->setType(InterfaceType::MainOutput);
            output->setName(output->nextInterfaceName(place.SlotIndex, InterfaceType::MainOutput));
        }
    });
    for (const auto &place : config->AuxSceensCfg.auxScreenConfigs())
        if (const auto output = findOutput(place.SlotIndex, place.ConnectorIndex).lock())
            output->setName(output->nextInterfaceName(place.SlotIndex, InterfaceType::MainOutput));
}

void Device::updateMVRConnector(bool isBlockSignal) {
    const auto *config = configRecord();
    if (config == nullptr)
        return;
    convertCards(*this, *config, CardType::_MVR, [&](const auto &place, Connector &connector) {
        connector.setWorkMode(WorkMode::Master);
        const auto output = findOutput(place.SlotIndex, connector.id()).lock();
        if (output == nullptr)
            return;
        if (connector.id() == place.ConnectorIndex) {
            output->setType(InterfaceType::MVROutput);
            setDefaultTiming(*output, isBlockSignal);
        }
        if (isOutputUsedByMVRScreen(output->interfaceFullId()))
            return;
        if (!isFreeForAux(*config, place.SlotIndex, connector.id())) {
            connector.setWorkMode(WorkMode::NoOutput);
            output->setType(InterfaceType::MVROutput);
        } else if (output->type() != toInt(InterfaceType::AUXOutput)) {
            output->setType(InterfaceType::AUXOutput);
            output->setName(output->nextInterfaceName(place.SlotIndex, InterfaceType::AUXOutput));
        }
    });
}

bool Device::isOutputUsedByMVRScreen(const ProtoModel::s_InterfaceID &id) {
    const auto screens = screenList(toInt(ScreenType::MVRScreen));
    return std::any_of(screens.begin(), screens.end(),
                       [&](const auto &screen) { return !screen->output(id).expired(); });
}

bool Device::isSourceUsedByMVR(const uint32_t &sourceId, Enum::Layer::SourceType sourceType) {
    const auto screens = screenList(toInt(ScreenType::MVRScreen));
    return std::any_of(screens.begin(), screens.end(),
                       [&](const auto &screen) { return screen->isExistlayersBySource(sourceType, sourceId); });
}

} // namespace Quorix::BizModel
