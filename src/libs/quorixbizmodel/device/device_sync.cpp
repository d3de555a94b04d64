/// How reported state enters a device, and leaves it.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device_p.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <QDebug>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <type_traits>
#include <utility>

namespace Quorix::BizModel {

namespace {

using Enum::Layer::SourceType;
using Enum::Screen::ScreenType;
using Body = ProtoModel::Device::s_subcardBody;

/// Ratios of a window that differ by less are the same.
constexpr double kSameRatio = 1e-6;

/// Finds the name of the ratio anew for layers that keep the source's scale, where the source no longer has it.
void followSource(const QList<std::weak_ptr<Layer>> &layers) {
    for (const auto &reference : layers) {
        const auto layer = reference.lock();
        if (layer == nullptr || layer->widthHeightRatioType() != Layer::AspectRatioType::_SourceScale)
            continue;
        const QSize size = layer->sourceValidSize();
        if (size.height() != 0 &&
            std::abs(static_cast<double>(size.width()) / size.height() - layer->widthHeightRatio()) >= kSameRatio)
            layer->updateWidthHeightRatioType();
    }
}

template <class List>
void unserailizeEach(const List &list, const std::weak_ptr<Device> &device) {
    for (const auto &entry : list)
        entry->unserailize(device);
}

template <class List>
std::shared_ptr<Screen> firstOf(const List &list) {
    return list.empty() ? nullptr : list.front();
}

} // namespace

bool Device::initModelData(const ProtoModel::Device::s_DeviceDetail &protoDetail, QString & /*errMsg*/) {
    auto detail = protoDetail;
    {
        const WriteGuard guard(m_detailRWLock);
        const WriteGuard mappingGuard(m_mappingRWLock);
        std::swap(m_detail, detail);
    }
    decltype(m_subcards) dropped;
    {
        const WriteGuard guard(m_subcardsRWLock);
        dropped.swap(m_subcards);
    }
    dropped.clear();
    ProtoModel::Device::s_DeviceGroupInfoBody group;
    std::vector<Body> cards;
    {
        const ReadGuard guard(m_detailRWLock);
        if (!m_detail.groupInfos.empty())
            group = m_detail.groupInfos.front();
        cards = m_detail.subcards;
    }
    if (group.groupId.empty())
        group.groupId = Constants::Device::defaultDeviceGroupId.toStdString();
    updateDeviceGroupInfo(group);
    createSubCard(cards);
    if (isOpenedMVR())
        updateMVRConnector(false);
    return true;
}

bool Device::initModelData(const ProtoModel::Interface::s_InterfaceDetailArry &details, QString &errMsg) {
    for (const auto &detail : details)
        addInterface(detail, errMsg);
    return true;
}

bool Device::initModelData(const ProtoModel::Screen::s_ScreenFullDetailArray &details, QString &errMsg) {
    m_pActivedMVRScreen.reset();
    m_pActivedScreen.reset();
    bool isTaken = true;
    QList<std::weak_ptr<Screen>> selected;
    for (const auto &detail : details) {
        const auto screen = creatScreen(static_cast<ScreenType>(detail.screenType));
        if (screen == nullptr)
            continue;
        isTaken = screen->initModelData(weak_from_this(), detail, errMsg) && isTaken;
        screen->setOwerDevice(weak_from_this());
        moveToModelThread(*screen);
        screen->createConnects(weak_from_this());
        appendScreen(screen);
        if (detail.selected != 0)
            selected.append(screen);
        if (!screen->selectedLayers().value(0).expired())
            setActivedScreen(screen);
    }
    {
        const WriteGuard guard(m_selectScreenRWLock);
        m_selectedRegularScreens.clear();
        m_selectedAuxScreens.clear();
        m_selectedMVRScreens.clear();
    }
    if (!selected.isEmpty())
        appendSelectedScreen(selected, false, true);
    setMultiScreens(std::count_if(selected.cbegin(), selected.cend(), [](const auto &reference) {
                        const auto screen = reference.lock();
                        return screen != nullptr && (screen->screenType() == ScreenType::RegularScreen ||
                                                     screen->screenType() == ScreenType::AUXScreen);
                    }) > 1);
    if (isOpenedMVR())
        updateMVRConnector(true);
    return isTaken;
}

bool Device::initModelData(const ProtoModel::Layer::s_LayerDetailArray &details, QString &errMsg) {
    std::map<std::pair<std::int32_t, std::uint8_t>, ProtoModel::Layer::s_LayerDetailArray> layersOfScreen;
    for (const auto &detail : details)
        layersOfScreen[{detail.layerIdenti.screenType, detail.layerIdenti.screenId}].push_back(detail);
    for (const auto &[identity, layers] : layersOfScreen)
        if (const auto screen = findScreen(identity.first, identity.second).lock())
            screen->initModelData(layers, errMsg);
    return true;
}

bool Device::initModelData(const ProtoModel::Device::s_InterfaceMapping &details, QString & /*errMsg*/) {
    // Read before the first signal: a listener may change the caller's record.
    const int type = details.testPattern.type;
    setOutputMappingStatus(details.testPattern.enable != 0);
    setOutputMappingType(static_cast<Enum::Auxiliary::TestPatternType>(type));
    return true;
}

void Device::updateModelData(const ProtoModel::Interface::s_InterfaceDetailArry &details) {
    using Id = std::tuple<std::int32_t, std::int32_t, std::int32_t>;
    const auto idOf = [](const ProtoModel::s_InterfaceID &id) { return Id(id.slotId, id.connectorId, id.splitId); };
    std::set<Id> reported;
    for (const auto &detail : details)
        reported.insert(idOf(detail.interfaceId));
    for (const auto &detail : details) {
        const auto &id = detail.interfaceId;
        const auto card = cardAt(id.slotId);
        if (card == nullptr)
            return;
        if (ProtoModel::Device::s_Connectors record; protoConnector(id.slotId, id.connectorId, record))
            card->initCardConnector({record});
        if (const auto interface = findInterface(id).lock()) {
            interface->setInterfaceDetail(detail);
        } else {
            QString dropped;
            addInterface(detail, dropped);
        }
        for (const auto &reference : interfaces(id.slotId)) {
            const auto interface = reference.lock();
            if (interface == nullptr)
                continue;
            const auto present = interface->interfaceFullId();
            if (!reported.contains(idOf(present)))
                removeInterface(interface->type(), present.slotId, present.connectorId);
        }
    }
}

bool Device::updateSlotModelData(const ProtoModel::Device::s_subcards &slotMode,
                                 const ProtoModel::Device::s_DeviceDetail &protoDetail, QString & /*errMsg*/) {
    setName(QString::fromStdString(protoDetail.general.name));
    setOperationStatus(static_cast<Enum::Device::OperationStatus>(protoDetail.general.status));
    setSwapEnable(protoDetail.swap != 0);
    setGenlockInfo(protoDetail.genlock);
    setGenlockOnStatus(protoDetail.genlockSignal);
    setPower(protoDetail.powers);
    updateSubCard(protoDetail.subcards);
    setNetworks(protoDetail.networks);
    setInterfaceMapping(protoDetail.interfaceMapping);
    setDynamicRangConversion(protoDetail.dynamicRangConversion);
    setDeviceNovsStatus(protoDetail.noVSEnable != 0);

    const auto records = copyOf(m_detailRWLock, m_detail.subcards);
    for (const auto &named : slotMode.subcards) {
        const auto card = cardAt(named.slotId);
        if (card == nullptr) {
            if (const auto *record = slotRecord(records, named.slotId))
                createSubCard(*record);
            continue;
        }
        for (const auto &record : records)
            if (record.slotId == named.slotId)
                for (const auto &connector : record.connectors)
                    initConnectorData(named.slotId, connector.id, connector.type, connector.workMode,
                                      connector.capacityMode);
        // Also for a card that was there before: the cue to rebuild the slot.
        Q_EMIT signalSubCardAdded(card);
    }
    return true;
}

void Device::updateSubCard(const ProtoModel::Device::s_subcardBodyArray &subcards) {
    for (const auto &reported : subcards) {
        if (!slotValue(reported.slotId, &Body::slotId)) {
            appendProtoSubcard(reported);
            if (const auto card = createSubCard(reported))
                Q_EMIT signalSubCardAdded(card);
            continue;
        }
        bool isThere = false;
        {
            const WriteGuard guard(m_detailRWLock);
            if (auto *record = slotRecord(m_detail.subcards, reported.slotId)) {
                record->modelId = reported.modelId;
                record->online = reported.online;
                record->connectors = reported.connectors;
                isThere = true;
            }
        }
        if (!isThere) {
            qWarning() << "Can not find subcard, subcard id " << reported.slotId;
            continue;
        }
        const int slotId = reported.slotId;
        if (reported.online != toInt(Enum::Device::SlotStatusType::Normal) && isId(slotId))
            removeInterfaceRelationBySlotId(static_cast<uint8_t>(slotId));
        Q_EMIT signalSubCardInfoChanged(slotId);
    }
}

void Device::unserailize() {
    const auto device = weak_from_this();
    initDeviceConfig();
    unserailizeEach(presentEntries(m_subcardsRWLock, m_subcards), device);
    unserailizeEach(presentEntries(m_inputsRWLock, m_inputs), device);
    unserailizeEach(presentEntries(m_outputsRWLock, m_outputs), device);
    const auto regular = presentEntries(m_screensRWLock, m_regularScreens);
    const auto aux = presentEntries(m_screensRWLock, m_AUXScreens);
    unserailizeEach(regular, device);
    unserailizeEach(aux, device);
    if (m_pActivedScreen.expired()) {
        auto first = selectedScreen(maskOf(ScreenType::RegularScreen, ScreenType::AUXScreen)).value(0).lock();
        if (first == nullptr)
            first = firstOf(regular);
        if (first == nullptr)
            first = firstOf(aux);
        setActivedScreen(first);
    }
    const auto mvr = presentEntries(m_screensRWLock, m_MVRSscreens);
    unserailizeEach(mvr, device);
    if (const auto first = firstOf(mvr); first != nullptr && m_pActivedMVRScreen.expired())
        setActivedScreen(first);
    unserailizeFiles();
}

void Device::updateLayerAspectRatioType(const std::weak_ptr<Interface> &pInterface) {
    const auto interface = pInterface.lock();
    if (interface == nullptr)
        return;
    for (const auto &screen : screenList(toInt(ScreenType::MVRScreen)))
        followSource(screen->layersBySource(SourceType::Input, interface->interfaceId()));
}

void Device::updateLayerAspectRatioType(const std::weak_ptr<Screen> &pScreen) {
    const auto shown = pScreen.lock();
    if (shown == nullptr)
        return;
    for (const auto &screen : screenList(toInt(ScreenType::MVRScreen)))
        for (const auto source : {SourceType::PGM, SourceType::PVW})
            followSource(screen->layersBySource(source, shown->screenId()));
}

void Device::clearAll(bool bKeepDeviceGenernal) {
    // Declared before the guards: what leaves the lists ends after the locks are free, since an object's end may call
    // back into the device.
    std::tuple<decltype(m_subcards), decltype(m_regularScreens), decltype(m_AUXScreens), decltype(m_MVRSscreens),
               decltype(m_logos), decltype(m_bkgs), decltype(m_inputs), decltype(m_outputs), decltype(m_presets),
               decltype(m_userKey), decltype(m_keypads), decltype(m_umdFiles)>
        dropped;
    const auto drop = [&dropped](auto &list) { std::get<std::decay_t<decltype(list)>>(dropped).swap(list); };

    const WriteGuard subcardsGuard(m_subcardsRWLock);
    drop(m_subcards);

    const WriteGuard detailGuard(m_detailRWLock);
    const WriteGuard screensGuard(m_screensRWLock);
    drop(m_regularScreens);
    drop(m_AUXScreens);
    drop(m_MVRSscreens);

    const WriteGuard logosGuard(m_logosRWLock);
    drop(m_logos);
    const WriteGuard bkgsGuard(m_bkgsRWLock);
    drop(m_bkgs);
    const WriteGuard inputsGuard(m_inputsRWLock);
    drop(m_inputs);
    const WriteGuard outputsGuard(m_outputsRWLock);
    drop(m_outputs);
    const WriteGuard presetsGuard(m_presetsRWLock);
    drop(m_presets);
    const WriteGuard userKeyGuard(m_userKeyRWLock);
    drop(m_userKey);
    const WriteGuard keypadsGuard(m_keypadsRWLock);
    drop(m_keypads);
    const WriteGuard umdsGuard(m_umdsRWLock);
    drop(m_umdFiles);

    m_bIsMuliScreens = false;
    m_selectedInputs.clear();
    m_selectedOutputs.clear();
    m_pActivedOutput.reset();
    m_pActivedScreen.reset();

    const WriteGuard viewingScreensGuard(m_viewingScreensRWLock);
    m_viewingScreens.clear();
    m_pActivedMVRScreen.reset();

    const WriteGuard selectScreenGuard(m_selectScreenRWLock);
    m_selectedRegularScreens.clear();
    m_selectedAuxScreens.clear();
    m_selectedMVRScreens.clear();

    m_bIsSyncSucess = false;
    m_isDeviceUpgrading = false;
    m_autoSyncDataEnable = true;
    m_nActivedPresetKeyNo = 65535;
    m_nLastPresetKeyNo = 65535;
    m_pActivedPreset.reset();
    {
        const std::scoped_lock takingGuard(m_bIsTakingMutex);
        m_bIsTaking = false;
    }
    m_restOrder = Enum::Device::DevicResetOrder::Factory_IP;
    m_iDeviceTotalProcess = 0;
    m_iCurrentIndex = 0;
    m_iLoadFileTotalNum = 0;
    m_dragMode = QGraphicsView::NoDrag;
    m_bMasterControlDeviceStatus = true;

    // Two locks guard the output mapping within the record, which so changes only now that both are held.
    const WriteGuard mappingGuard(m_mappingRWLock);
    ProtoModel::Device::s_DeviceDetail detail;
    if (bKeepDeviceGenernal) {
        detail.general.name = std::move(m_detail.general.name);
        detail.networks = std::move(m_detail.networks);
    } else {
        detail.networks.emplace_back();
    }
    m_detail = std::move(detail);

    const WriteGuard deviceGroupInfoGuard(m_deviceGroupInfoRWLock);
    m_deviceGroupInfo = {};
    m_deviceGroupStatus = true;

    endTake();
}

void Device::resetDeviceParam() {
    setOperationStatus(Enum::Device::OperationStatus::Ready);
    m_iDeviceTotalProcess = 0;
    m_iCurrentIndex = 0;
    m_iLoadFileTotalNum = 0;
    setGenlockOnStatus({});
}

} // namespace Quorix::BizModel
