/// What the operator has picked on a device: inputs, outputs, screens, and one activated object of each kind.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/device/device_p.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace Quorix::BizModel {

namespace {

using Enum::Interface::InterfaceType;
using Enum::Layer::SceneType;
using Enum::Screen::ScreenType;

/// Takes the entry of an object out of a list; false if the list doesn't hold it.
template <class List, class Reference>
bool takeObject(List &list, const Reference &reference) {
    const auto found = findObject(list, reference);
    if (found == list.end())
        return false;
    list.erase(found);
    return true;
}

/// Takes the first interface at a place out of a list; false if none is there.
template <class List>
bool takeAt(List &list, uint8_t slot, uint8_t connector) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const auto &reference) {
        const auto interface = reference.lock();
        return interface != nullptr && standsAt(slot, connector)(*interface);
    });
    if (found == list.end())
        return false;
    list.erase(found);
    return true;
}

/// The entry of the same output, which is one at the same slot, connector and split, or the end.
template <class List>
auto findOutputIn(List &list, const Output &wanted) {
    return std::find_if(list.begin(), list.end(), [&](const std::weak_ptr<Output> &reference) {
        const auto output = reference.lock();
        return output != nullptr && output->interfaceFullId() == wanted.interfaceFullId();
    });
}

template <class Kind>
bool containsId(const QList<std::weak_ptr<Kind>> &screens, uint8_t id) {
    return std::any_of(screens.begin(), screens.end(), [id](const auto &reference) {
        const auto screen = reference.lock();
        return screen != nullptr && screen->screenId() == id;
    });
}

} // namespace

template <class Visit>
void Device::withSelectionOf(int screenType, Visit visit) {
    switch (static_cast<ScreenType>(screenType)) {
    case ScreenType::RegularScreen:
        return visit(m_selectedRegularScreens, &Device::signalSelectedRegularScreenChanged);
    case ScreenType::AUXScreen:
        return visit(m_selectedAuxScreens, &Device::signalSelectedAuxScreenChanged);
    case ScreenType::MVRScreen:
        return visit(m_selectedMVRScreens, &Device::signalSelectedMVRScreenChanged);
    default:
        return;
    }
}

QList<std::weak_ptr<Input>> Device::selectedInputs() const { return m_selectedInputs; }

QList<std::weak_ptr<Output>> Device::selectedOutputs() const { return m_selectedOutputs; }

std::weak_ptr<Input> Device::firstSelectedInput() const { return m_selectedInputs.value(0); }

std::weak_ptr<Output> Device::firstSelectedOutput() const { return m_selectedOutputs.value(0); }

QList<std::weak_ptr<Interface>> Device::selectedInterfaces(int interfaceType) const {
    QList<std::weak_ptr<Interface>> interfaces;
    const auto add = [&](const auto &list) { std::copy(list.begin(), list.end(), std::back_inserter(interfaces)); };
    if (hasAnyBit(interfaceType, InterfaceType::Input))
        add(m_selectedInputs);
    if (hasAnyBit(interfaceType, InterfaceType::MainOutput))
        add(m_selectedOutputs);
    return interfaces;
}

void Device::appendSelectedInput(const QList<std::weak_ptr<Input>> &inputs) {
    for (const auto &input : inputs)
        if (!input.expired() && findObject(m_selectedInputs, input) == m_selectedInputs.end())
            m_selectedInputs.append(input);
    Q_EMIT signalSelectedInputChanged();
}

void Device::removeSelectedInput(const QList<std::weak_ptr<Input>> &inputs) {
    for (const auto &input : inputs)
        if (!input.expired())
            takeObject(m_selectedInputs, input);
    Q_EMIT signalSelectedInputChanged();
}

void Device::removeSelectedInput(const uint8_t &nSlotId, const uint8_t &nInterfaceId) {
    if (takeAt(m_selectedInputs, nSlotId, nInterfaceId))
        Q_EMIT signalSelectedInputChanged();
}

void Device::clearSelectedInputs(bool isEmit) {
    m_selectedInputs.clear();
    if (isEmit)
        Q_EMIT signalSelectedInputChanged();
}

bool Device::updateCutoutRGB(const ProtoModel::s_RGB &rgb, QString & /*errMsg*/) {
    const auto input = firstSelectedInput().lock();
    if (input == nullptr)
        return false;
    input->setCutoutRGB(rgb);
    return true;
}

void Device::appendSelectedOutput(const std::weak_ptr<Output> &output) {
    const auto appended = output.lock();
    if (appended == nullptr || findOutputIn(m_selectedOutputs, *appended) != m_selectedOutputs.end())
        return;
    m_selectedOutputs.append(appended);
    Q_EMIT signalSelectedOutputChanged();
}

void Device::removeSelectedOutput(const std::weak_ptr<Output> &output) {
    const auto removed = output.lock();
    const auto found = removed == nullptr ? m_selectedOutputs.end() : findOutputIn(m_selectedOutputs, *removed);
    if (found == m_selectedOutputs.end())
        return;
    m_selectedOutputs.erase(found);
    Q_EMIT signalSelectedOutputChanged();
}

void Device::removeSelectedOutput(const uint8_t &nSlotId, const uint8_t &nInterfaceId) {
    if (takeAt(m_selectedOutputs, nSlotId, nInterfaceId))
        Q_EMIT signalSelectedOutputChanged();
}

void Device::clearSelectedOutputs(bool isEmit) {
    m_selectedOutputs.clear();
    if (isEmit)
        Q_EMIT signalSelectedOutputChanged();
}

QList<std::weak_ptr<Screen>> Device::selectedScreen(const int &iScreenType) {
    // Copies: a reference that changes its type locks its screen for a moment, which may end there.
    const auto [regular, aux, mvr] =
        copiesOf(m_selectScreenRWLock, m_selectedRegularScreens, m_selectedAuxScreens, m_selectedMVRScreens);
    QList<std::weak_ptr<Screen>> screens;
    const auto add = [&](ScreenType kind, const auto &list) {
        if (hasAnyBit(iScreenType, kind))
            std::copy(list.begin(), list.end(), std::back_inserter(screens));
    };
    add(ScreenType::RegularScreen, regular);
    add(ScreenType::AUXScreen, aux);
    add(ScreenType::MVRScreen, mvr);
    return screens;
}

bool Device::containsSelectedScreen(ScreenType type, uint8_t id) {
    bool isSelected = false;
    withSelectionOf(toInt(type),
                    [&](const auto &list, auto) { isSelected = containsId(copyOf(m_selectScreenRWLock, list), id); });
    return isSelected;
}

bool Device::isScreenSelected(const std::weak_ptr<Screen> &wScreen) {
    const auto screen = wScreen.lock();
    return screen != nullptr && containsSelectedScreen(screen->screenType(), screen->screenId());
}

bool Device::appendSelectedScreen(const std::weak_ptr<Screen> &wScreen, bool isEmitSelectedSignal,
                                  bool isEmitViewSignal) {
    const auto screen = wScreen.lock();
    if (screen == nullptr || !containsScreen(screen) || isScreenSelected(screen))
        return false;
    screen->setSelected(true);
    bool isAppended = true;
    withSelectionOf(toInt(screen->screenType()), [&]<class Kind>(QList<std::weak_ptr<Kind>> &list, auto signal) {
        const auto kind = std::dynamic_pointer_cast<Kind>(screen);
        int count = 0;
        {
            const WriteGuard guard(m_selectScreenRWLock);
            // A listener to the screen's own signal may have been faster.
            isAppended = kind != nullptr && findObject(list, kind) == list.end();
            if (!isAppended)
                return;
            list.append(kind);
            count = list.size();
        }
        constexpr bool isViewed = !std::is_same_v<Kind, MVRScreen>;
        if constexpr (!isViewed)
            if (count == 1)
                setActivedMVRScreen(kind);
        if (isEmitSelectedSignal)
            Q_EMIT std::invoke(signal, this);
        if constexpr (isViewed) {
            appendViewingScreen(screen, isEmitViewSignal);
            if (isEmitSelectedSignal)
                Q_EMIT signalSelectedScreenChanged();
        }
    });
    return isAppended;
}

void Device::appendSelectedScreen(const QList<std::weak_ptr<Screen>> &screens, bool isEmitSelectedSignal,
                                  bool isEmitViewSignal) {
    int types = 0;
    // An own list, here and below: a listener may change the caller's.
    for (const auto &reference : QList<std::weak_ptr<Screen>>(screens))
        if (const auto screen = reference.lock())
            if (appendSelectedScreen(screen, false, isEmitViewSignal))
                types = maskOf(types, screen->screenType());
    if (!isEmitSelectedSignal)
        return;
    if (hasAnyBit(types, ScreenType::RegularScreen))
        Q_EMIT signalSelectedRegularScreenChanged();
    if (hasAnyBit(types, ScreenType::AUXScreen))
        Q_EMIT signalSelectedAuxScreenChanged();
    if (hasAnyBit(types, ScreenType::MVRScreen))
        Q_EMIT signalSelectedMVRScreenChanged();
    Q_EMIT signalSelectedScreenChanged();
}

void Device::removeSelectedScreen(const QList<std::weak_ptr<Screen>> &screens, bool cancelViewStatus) {
    const auto own = screens;
    bool isChanged = false;
    for (const auto &reference : own) {
        const auto screen = reference.lock();
        if (screen == nullptr)
            continue;
        withSelectionOf(toInt(screen->screenType()), [&]<class Kind>(QList<std::weak_ptr<Kind>> &list, auto signal) {
            QList<std::weak_ptr<Kind>> left;
            {
                const WriteGuard guard(m_selectScreenRWLock);
                if (!takeObject(list, screen))
                    return;
                left = list;
            }
            isChanged = true;
            screen->setSelected(false);
            if constexpr (std::is_same_v<Kind, MVRScreen>)
                if (const auto living = livingReferences(left); living.size() == 1)
                    setActivedMVRScreen(living.front());
            Q_EMIT std::invoke(signal, this);
        });
    }
    if (isChanged)
        Q_EMIT signalSelectedScreenChanged();
    if (cancelViewStatus)
        removeViewingScreen(own);
}

template <class Kind>
void Device::clearSelection(QList<std::weak_ptr<Kind>> &selected, void (Device::*signal)(), bool isEmit) {
    QList<std::weak_ptr<Kind>> cleared;
    {
        const WriteGuard guard(m_selectScreenRWLock);
        cleared.swap(selected);
    }
    if (cleared.isEmpty())
        return;
    clearViewingScreen(cleared, isEmit);
    for (const auto &reference : std::as_const(cleared))
        if (const auto screen = reference.lock())
            screen->setSelected(false);
    if (!isEmit)
        return;
    Q_EMIT std::invoke(signal, this);
    Q_EMIT signalSelectedScreenChanged();
}

void Device::clearSelectedRegularScreenList(bool isEmit) {
    clearSelection(m_selectedRegularScreens, &Device::signalSelectedRegularScreenChanged, isEmit);
}

void Device::clearSelectedAuxScreenList(bool isEmit) {
    clearSelection(m_selectedAuxScreens, &Device::signalSelectedAuxScreenChanged, isEmit);
}

QList<std::weak_ptr<Screen>> Device::viewingScreen() { return copyOf(m_viewingScreensRWLock, m_viewingScreens); }

void Device::appendViewingScreen(const std::weak_ptr<Screen> &pScreen, bool bEmit) {
    if (pScreen.expired())
        return;
    {
        const WriteGuard guard(m_viewingScreensRWLock);
        if (findObject(m_viewingScreens, pScreen) != m_viewingScreens.end())
            return;
        m_viewingScreens.append(pScreen);
    }
    if (bEmit)
        Q_EMIT signalViewScreenChanged();
}

void Device::appendViewingScreen(const QList<std::weak_ptr<Screen>> &screens) {
    for (const auto &screen : QList<std::weak_ptr<Screen>>(screens))
        appendViewingScreen(screen, true);
}

void Device::removeViewingScreen(const QList<std::weak_ptr<Screen>> &screens) {
    bool isChanged = false;
    {
        const WriteGuard guard(m_viewingScreensRWLock);
        for (const auto &screen : screens)
            isChanged = (!screen.expired() && takeObject(m_viewingScreens, screen)) || isChanged;
    }
    if (isChanged)
        Q_EMIT signalViewScreenChanged();
}

void Device::clearViewingScreen(bool bEmit) {
    {
        const WriteGuard guard(m_viewingScreensRWLock);
        m_viewingScreens.clear();
    }
    if (bEmit)
        Q_EMIT signalViewScreenChanged();
}

template <class Kind>
void Device::clearViewing(const QList<std::weak_ptr<Kind>> &screens, ScreenType type, bool isEmit) {
    // What to erase is found on a copy, so that no screen is asked under the lock.
    auto viewing = viewingScreen();
    QList<std::weak_ptr<Screen>> erased;
    for (const auto &reference : screens) {
        const auto screen = reference.lock();
        const ProtoModel::s_ScreenId wanted{.screenId = screen == nullptr ? uint8_t{0} : screen->screenId(),
                                            .screenType = toInt(type)};
        const auto found = std::find_if(viewing.begin(), viewing.end(), [&](const auto &entry) {
            const auto viewed = entry.lock();
            return screen != nullptr && viewed != nullptr && viewed->screenIdentity() == wanted;
        });
        if (found == viewing.end())
            continue;
        erased.append(*found);
        viewing.erase(found);
    }
    bool isChanged = false;
    {
        const WriteGuard guard(m_viewingScreensRWLock);
        for (const auto &screen : std::as_const(erased))
            isChanged = takeObject(m_viewingScreens, screen) || isChanged;
    }
    if (isChanged && isEmit)
        Q_EMIT signalViewScreenChanged();
}

void Device::clearViewingScreen(const QList<std::weak_ptr<RegularScreen>> &regularScreens, bool bEmit) {
    clearViewing(regularScreens, ScreenType::RegularScreen, bEmit);
}

void Device::clearViewingScreen(const QList<std::weak_ptr<AuxScreen>> &auxScreens, bool bEmit) {
    clearViewing(auxScreens, ScreenType::AUXScreen, bEmit);
}

std::weak_ptr<Output> Device::activedOutput() const { return m_pActivedOutput; }

std::weak_ptr<Screen> Device::activedScreen() const { return m_pActivedScreen; }

std::weak_ptr<MVRScreen> Device::activedMVRScreen() const { return m_pActivedMVRScreen; }

std::weak_ptr<MVRScreen> Device::activedMVRScreen() { return std::as_const(*this).activedMVRScreen(); }

std::weak_ptr<Preset> Device::activedPreset() const { return m_pActivedPreset; }

uint16_t Device::activedPresetKeyNo() const { return m_nActivedPresetKeyNo; }

uint16_t Device::activedLastPresetKeyNo() const { return m_nLastPresetKeyNo; }

void Device::setSreenMoved(const std::weak_ptr<Screen> &srcScreen, const std::weak_ptr<Screen> &desScreen) {
    Q_EMIT signalScreenMoved(srcScreen, desScreen);
}

void Device::setActivedScreen(const std::weak_ptr<Screen> &wScreen) {
    const auto screen = wScreen.lock();
    if (screen != nullptr && screen->screenType() == ScreenType::MVRScreen)
        return setActivedMVRScreen(std::dynamic_pointer_cast<MVRScreen>(screen));
    if (screen == m_pActivedScreen.lock())
        return;
    m_pActivedScreen = screen;
    if (screen != nullptr) {
        const auto target = screen->operationTarget();
        if (target != SceneType::PGM && target != SceneType::PVW)
            screen->setOperationTarget(SceneType::PVW);
    }
    Q_EMIT signalActivedScreenChanged(screen);
}

void Device::setActivedMVRScreen(const std::weak_ptr<MVRScreen> &wScreen) {
    const auto activated = wScreen.lock();
    if (activated == m_pActivedMVRScreen.lock())
        return;
    for (const auto &screen : screenList(toInt(ScreenType::MVRScreen)))
        if (screen != activated)
            screen->clearSelectedLayers(true);
    m_pActivedMVRScreen = activated;
    Q_EMIT signalActivedMVRScreenChanged(activated);
}

void Device::deactivate(const std::shared_ptr<Screen> &screen) {
    if (screen == m_pActivedScreen.lock())
        setActivedScreen({});
    if (screen == m_pActivedMVRScreen.lock())
        setActivedMVRScreen({});
}

void Device::setActivedOutput(const std::weak_ptr<Output> &output) {
    const auto activated = output.lock();
    const auto present = m_pActivedOutput.lock();
    if (activated != nullptr && present != nullptr && activated->interfaceFullId() == present->interfaceFullId())
        return;
    m_pActivedOutput = activated;
    Q_EMIT signalActivedOutputChanged();
}

void Device::setActivedPreset(const std::weak_ptr<Preset> &preset, uint16_t keyNo) {
    if (const auto activated = preset.lock(); activated != m_pActivedPreset.lock()) {
        m_pActivedPreset = activated;
        Q_EMIT signalActivedPresetChanged(activated);
    }
    setActivedPresetKeyNo(keyNo);
}

void Device::setActivedPresetKeyNo(const uint16_t &keyNo) {
    if (keyNo == m_nActivedPresetKeyNo)
        return;
    m_nLastPresetKeyNo = std::exchange(m_nActivedPresetKeyNo, keyNo);
    Q_EMIT signalActivedPresetKeyNoChanged();
}

} // namespace Quorix::BizModel
