#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/screens/screen.h>

namespace Quorix::BizModel {

namespace {

/// Regular screens that the outputs of one slot are good for.
constexpr int screensOfOutputSlot = 4;
/// Resources of a card; a multiviewer card has fewer.
constexpr int maxCardResources = 16;
constexpr int mvrCardResources = 4;

} // namespace

quint8 Device::maxRegulerLayerCnt() const {
    return m_pDeviceConfig == nullptr ? quint8(0) : m_pDeviceConfig->MainScreenCfg.MaxLayerCount;
}

quint8 Device::maxAUXLayerCnt() const {
    return m_pDeviceConfig == nullptr ? quint8(0) : m_pDeviceConfig->AuxSceensCfg.MaxAUXLayerCount;
}

quint8 Device::maxLayerCnt(int type) const {
    const int regular = hasAnyBit(type, Enum::Screen::ScreenType::RegularScreen) ? maxRegulerLayerCnt() : 0;
    const int aux = hasAnyBit(type, Enum::Screen::ScreenType::AUXScreen) ? maxAUXLayerCnt() : 0;
    return static_cast<quint8>(regular + aux);
}

quint8 Device::maxScreenCnt(int type) const {
    if (m_pDeviceConfig == nullptr)
        return 0;
    const int regular = hasAnyBit(type, Enum::Screen::ScreenType::RegularScreen)
                            ? m_pDeviceConfig->OutputSlotCount * screensOfOutputSlot
                            : 0;
    const int aux = hasAnyBit(type, Enum::Screen::ScreenType::AUXScreen) ? maxAuxScreenCount() : 0;
    return static_cast<quint8>(regular + aux);
}

int Device::maxAuxOutputCount() const {
    if (m_pDeviceConfig == nullptr || !m_pDeviceConfig->AuxSceensCfg.IsSupport)
        return 0;
    const int expansion = m_pDeviceConfig->AuxSceensCfg.IsEXPSlotSupport
                              ? m_pDeviceConfig->ExpSlotCount * m_pDeviceConfig->MaxConnectorCountOfSingleCard
                              : 0;
    return m_pDeviceConfig->AuxSceensCfg.auxScreenCfgs.size() + expansion;
}

int Device::maxAuxScreenCount() const { return maxAuxOutputCount(); }

int Device::maxMainOutputCount() {
    if (m_pDeviceConfig == nullptr)
        return 0;
    using OpenState = s_MVRScreenConfigs::eOpenState;
    const auto &mvr = m_pDeviceConfig->MVRScreensCfg;
    const bool isOpenedByItself = !mvr.IsManualSwitch && (mvr.OpenState == OpenState::SoftAutoOpened ||
                                                          mvr.OpenState == OpenState::HardAutoOpened);
    const bool takesSlot = mvr.IsSupport && (isOpenedMVR() || isOpenedByItself);
    return (m_pDeviceConfig->OutputSlotCount - (takesSlot ? 1 : 0)) * m_pDeviceConfig->MaxConnectorCountOfSingleCard;
}

uint16_t Device::maxPresetCount() const {
    return m_pDeviceConfig == nullptr ? uint16_t(Constants::Preset::maxPresetCount) : m_pDeviceConfig->MaxPresetCount;
}

int Device::subcardMaxResources() { return maxCardResources; }

int Device::subcardResources(Enum::Device::CardType type) {
    return type == Enum::Device::CardType::_MVR ? mvrCardResources : maxCardResources;
}

int Device::subcardResources(int type) { return subcardResources(static_cast<Enum::Device::CardType>(type)); }

bool Device::isScreenLimited(Enum::Screen::ScreenType type) {
    if (m_pDeviceConfig == nullptr)
        return false;
    const int mainLimit = maxMainOutputCount();
    const int auxLimit = maxAuxScreenCount();
    if (type == Enum::Screen::ScreenType::RegularScreen)
        return static_cast<int>(presentEntries(m_screensRWLock, m_regularScreens).size()) >= mainLimit;
    if (type == Enum::Screen::ScreenType::AUXScreen)
        return static_cast<int>(presentEntries(m_screensRWLock, m_AUXScreens).size()) >= auxLimit;
    return false;
}

bool Device::isLayerLimited(Enum::Layer::SceneType scene) {
    using Enum::Layer::LayerType;
    if (m_pDeviceConfig == nullptr)
        return true;
    std::uint64_t layers = 0;
    for (const auto &screen : screenList(toInt(Enum::Screen::ScreenType::RegularScreen)))
        layers += screen->layerCount(toInt(scene), maskOf(LayerType::Regular, LayerType::Cut));
    return layers >= maxRegulerLayerCnt();
}

bool Device::mvrEnabled() { return isOpenedMVR(); }

bool Device::isOpenedMVR() { return !presentEntries(m_screensRWLock, m_MVRSscreens).empty(); }

QString Device::subCardDescription(int position, bool isOpenedMVR) {
    if (m_pDeviceConfig == nullptr)
        return {};
    QString label = Helper::slotLabel(*m_pDeviceConfig, position, isOpenedMVR);
    if (!label.isEmpty())
        return label;
    return QStringLiteral("Invalid slot pos [%1]").arg(position);
}

} // namespace Quorix::BizModel
