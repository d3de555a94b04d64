#include <quorixbizmodel/device/device.h>

#include <tuple>
#include <utility>

namespace Quorix::BizModel {

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
