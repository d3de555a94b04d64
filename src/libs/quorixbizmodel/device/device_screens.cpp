/// Screens of a device: how they come, are found and go.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/common/modelthread.h>
#include <quorixbizmodel/common/numbers.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <QSet>

#include <algorithm>
#include <bitset>
#include <iterator>
#include <tuple>
#include <utility>

namespace Quorix::BizModel {

namespace {

using Enum::Screen::ScreenSpliceMode;
using Enum::Screen::ScreenType;
using Screens = std::vector<std::shared_ptr<Screen>>;

/// The kinds of screen that a device keeps, in the order of its lists.
constexpr ScreenType kKinds[] = {ScreenType::RegularScreen, ScreenType::AUXScreen, ScreenType::MVRScreen};

/// Pixels of the user's canvas between two screens, for each connector that the chassis has room for.
constexpr int kCanvasStep = 10;

auto hasId(uint8_t id) {
    return [id](const Screen &screen) { return screen.screenId() == id; };
}
auto hasName(const QString &name) {
    return [&name](const Screen &screen) { return screen.name() == name; };
}

QSet<QString> namesOf(const Screens &screens) {
    QSet<QString> names;
    for (const auto &screen : screens)
        names.insert(screen->name());
    return names;
}

template <class NameOf>
QString freeName(const QSet<QString> &taken, NameOf nameOf) {
    return firstFreeName(nameOf, [&](const QString &name) { return taken.contains(name); });
}

/// A shaped splice where regular screens have one, else the plain rectangle.
ScreenSpliceMode defaultSpliceMode(ScreenType type, const DeviceConfig *config) {
    if (type != ScreenType::RegularScreen || config == nullptr)
        return ScreenSpliceMode::StandardRectSplice;
    const auto mode = static_cast<ScreenSpliceMode>(config->MainScreenCfg.ScreenSpliceMode);
    return mode == ScreenSpliceMode::StandardShapedSplice || mode == ScreenSpliceMode::AnyShapedSplice
               ? mode
               : ScreenSpliceMode::StandardRectSplice;
}

} // namespace

template <class Visit>
void Device::withScreensOf(int screenType, Visit visit) {
    switch (static_cast<ScreenType>(screenType)) {
    case ScreenType::RegularScreen:
        return visit(m_regularScreens);
    case ScreenType::AUXScreen:
        return visit(m_AUXScreens);
    case ScreenType::MVRScreen:
        return visit(m_MVRSscreens);
    default:
        return;
    }
}

std::shared_ptr<Screen> Device::creatScreen(ScreenType type) {
    std::shared_ptr<Screen> screen;
    withScreensOf(toInt(type), [&]<class Kind>(const std::vector<std::shared_ptr<Kind>> &) {
        screen = std::make_shared<Kind>();
        screen->setOwerDevice(weak_from_this());
    });
    return screen;
}

std::shared_ptr<Screen> Device::createDefaultScreen(ScreenType type, int row, int column) {
    auto screen = creatScreen(type);
    if (screen == nullptr)
        return screen;
    {
        const ObjectSignalLocker<Screen> silence(screen.get());
        screen->setScreenId(nextScreenId(type));
        screen->setName(nextScreenName(type));
        screen->setIndex(nextScreenIndex());
        screen->setLayoutPos(nextScreenLayoutPos());
        screen->setImageQuality(neutralImageQuality());
        screen->setGrid({row, column}, true);
        screen->setSpliceMode(defaultSpliceMode(type, m_pDeviceConfig));
    }
    moveToModelThread(*screen);
    return screen;
}

void Device::addScreen(const ProtoModel::Screen::s_Enable &enable) {
    const auto type = static_cast<ScreenType>(enable.screenType);
    if (containsScreen(type, enable.screenId))
        return;
    const auto screen = creatScreen(type);
    if (screen == nullptr)
        return;
    screen->setScreenType(type);
    screen->setScreenId(enable.screenId);
    screen->setName(QString::fromStdString(enable.general.name));
    screen->setIndex(enable.general.index);
    screen->setScreenMosaic(enable);
    screen->setPhysicalSize(enable.physicalSize);
    moveToModelThread(*screen);
    screen->createConnects(weak_from_this());
    appendScreen(screen);
}

void Device::addScreens(const std::vector<ProtoModel::Screen::s_Enable> &enables) {
    for (const auto &enable : enables)
        addScreen(enable);
}

void Device::addScreens(const QList<std::shared_ptr<Screen>> &screens) {
    // An own list: a listener may change the caller's.
    for (const auto &screen : QList<std::shared_ptr<Screen>>(screens)) {
        if (screen == nullptr || containsScreen(screen))
            continue;
        moveToModelThread(*screen);
        screen->setOwerDevice(weak_from_this());
        screen->createConnects(weak_from_this());
        for (const auto &reference : screen->outputs()) {
            const auto output = reference.lock();
            if (output == nullptr)
                continue;
            pushReference(*output, screen->screenRefOutputPara());
            output->setTestPattern(screen->testPattern());
            output->setImageQuality(screen->imageQuality());
        }
        appendScreen(screen);
    }
}

void Device::appendScreen(const std::shared_ptr<Screen> &screen) {
    // An own reference: a listener may change the caller's.
    const auto appended = screen;
    if (appended == nullptr)
        return;
    bool isIn = false;
    withScreensOf(toInt(appended->screenType()), [&]<class Kind>(std::vector<std::shared_ptr<Kind>> &list) {
        const auto kind = std::dynamic_pointer_cast<Kind>(appended);
        if (kind == nullptr)
            return;
        const WriteGuard guard(m_screensRWLock);
        list.push_back(kind);
        sortByKeyOnce(list, [](const auto &entry) { return entry == nullptr ? 0 : int{entry->screenId()}; });
        isIn = true;
    });
    if (isIn)
        Q_EMIT signalScreenAddded(appended);
}

void Device::modifyScreen(const std::weak_ptr<Screen> &screen, ProtoModel::Screen::s_Enable &enable) {
    const auto modified = screen.lock();
    if (modified == nullptr)
        return;
    modified->setScreenMosaic(enable);
    for (const auto &reference : modified->outputs())
        if (const auto output = reference.lock())
            output->setPresetTiming(modified->screenRefOutputPara().timing);
}

void Device::removeScreen(const std::shared_ptr<Screen> &screen) {
    if (screen == nullptr)
        return;
    std::shared_ptr<Screen> removed;
    withScreensOf(toInt(screen->screenType()), [&](auto &list) {
        const WriteGuard guard(m_screensRWLock);
        const auto found = findObject(list, screen);
        if (found == list.end())
            return;
        removed = std::move(*found);
        list.erase(found);
    });
    if (removed != nullptr)
        Q_EMIT signalScreenRemoved(removed);
}

void Device::dropScreen(const std::shared_ptr<Screen> &screen) {
    for (const auto &shower : screenList(maskOf(ScreenType::AUXScreen, ScreenType::MVRScreen)))
        shower->removeLayer(std::weak_ptr<Screen>(screen));
    removeScreen(screen);
}

void Device::removeScreen(const std::weak_ptr<Screen> &screen) {
    const auto removed = screen.lock();
    if (removed == nullptr)
        return;
    dropScreen(removed);
    removeSelectedScreen({removed}, true);
    deactivate(removed);
}

void Device::removeScreens(const QList<std::weak_ptr<Screen>> &screens) {
    const auto own = screens;
    removeSelectedScreen(own, true);
    for (const auto &reference : own) {
        const auto removed = reference.lock();
        if (removed == nullptr)
            continue;
        dropScreen(removed);
        deactivate(removed);
    }
}

std::vector<std::shared_ptr<Screen>> Device::screenList(int screenType) {
    Screens screens;
    {
        const ReadGuard guard(m_screensRWLock);
        for (const auto kind : kKinds)
            if (hasAnyBit(screenType, kind))
                withScreensOf(toInt(kind), [&](const auto &list) {
                    screens.reserve(screens.size() + list.size());
                    std::copy_if(list.begin(), list.end(), std::back_inserter(screens),
                                 [](const auto &screen) { return screen != nullptr; });
                });
    }
    sortByKeyOnce(screens, [](const auto &screen) {
        const auto identity = screen->screenIdentity();
        return std::tuple(screen->index(), identity.screenType, identity.screenId);
    });
    return screens;
}

QList<std::weak_ptr<Screen>> Device::screens(int screenType) { return weakReferences(screenList(screenType)); }

QList<std::weak_ptr<Screen>> Device::regulerScreens() { return screens(toInt(ScreenType::RegularScreen)); }

std::weak_ptr<Screen> Device::findScreen(ScreenType type, const uint8_t &id) { return findScreen(toInt(type), id); }

std::weak_ptr<Screen> Device::findScreen(int type, uint8_t id) {
    return findFirst(screenList(type), [identity = ProtoModel::s_ScreenId{.screenId = id, .screenType = type}](
                                           const Screen &screen) { return screen.screenIdentity() == identity; });
}

std::weak_ptr<Screen> Device::findScreen(ScreenType type, const std::weak_ptr<Output> &output) {
    const auto wanted = output.lock();
    if (wanted == nullptr)
        return {};
    return findFirst(screenList(toInt(type)),
                     [id = wanted->interfaceFullId()](const Screen &screen) { return screen.isExistOutput(id); });
}

std::weak_ptr<Screen> Device::findScreen(const QString &name) {
    return findFirst(screenList(toInt(ScreenType::AllScreenType)), hasName(name));
}

std::weak_ptr<AuxScreen> Device::findAuxScreen(const ProtoModel::s_ScreenId &id) {
    return findFirst(copyOf(m_screensRWLock, m_AUXScreens), hasId(id.screenId));
}

std::weak_ptr<AuxScreen> Device::findAuxScreen(const QString &name) {
    return findFirst(copyOf(m_screensRWLock, m_AUXScreens), hasName(name));
}

bool Device::containsAuxScreen(const ProtoModel::s_ScreenId &id) { return !findAuxScreen(id).expired(); }

bool Device::containsAuxScreen(const QString &name) { return !findAuxScreen(name).expired(); }

bool Device::containsScreen(const std::weak_ptr<Screen> &screen) {
    const auto wanted = screen.lock();
    const auto list = screenList(toInt(ScreenType::AllScreenType));
    return wanted != nullptr && std::find(list.begin(), list.end(), wanted) != list.end();
}

bool Device::containsScreen(ScreenType type, uint8_t id) { return !findScreen(type, id).expired(); }

bool Device::screensNovsStatusEnable() {
    const auto list = screenList(toInt(ScreenType::RegularScreen));
    return std::all_of(list.begin(), list.end(), [](const auto &screen) { return screen->screenNovsEnable(); });
}

int Device::getMaxScreenZOrder() {
    const auto list = screenList(toInt(ScreenType::AllScreenType));
    int highest = list.empty() ? int(Constants::Screen::defultZOrder) : list.front()->zOrder();
    for (const auto &screen : list)
        highest = std::max(highest, screen->zOrder());
    return highest;
}

uint8_t Device::nextScreenId(ScreenType type) {
    std::bitset<Constants::Screen::maxId> isTaken;
    for (const auto &screen : screenList(toInt(type)))
        if (const auto id = screen->screenId(); id < isTaken.size())
            isTaken.set(id);
    return lowestFree(uint8_t{0}, [&](uint8_t id) { return id < isTaken.size() && isTaken[id]; });
}

int Device::nextScreenIndex() {
    return static_cast<int>(screenList(maskOf(ScreenType::RegularScreen, ScreenType::AUXScreen)).size());
}

QString Device::nextScreenName(ScreenType type) {
    switch (type) {
    case ScreenType::RegularScreen:
        return nextRegulerScreenName();
    case ScreenType::AUXScreen:
        return nextAuxScreenName();
    case ScreenType::MVRScreen:
        return nextMVRScreenName();
    default:
        return QStringLiteral("N/A");
    }
}

QString Device::nextRegulerScreenName() {
    return freeName(namesOf(screenList(toInt(ScreenType::AllScreenType))),
                    [](int number) { return tr("Screen %1").arg(number); });
}

QString Device::nextAuxScreenName() {
    return freeName(namesOf(screenList(toInt(ScreenType::AllScreenType))),
                    [](int number) { return tr("AuxScreen %1").arg(number); });
}

QString Device::nextMVRScreenName() { return nextMVRScreenName({}); }

QString Device::nextMVRScreenName(const QVector<QString> &names) {
    auto taken = namesOf(screenList(toInt(ScreenType::AllScreenType)));
    for (const auto &name : names)
        taken.insert(name);
    return freeName(taken, [](int number) { return tr("MVR %1").arg(number); });
}

QPoint Device::nextScreenLayoutPos() {
    if (m_pDeviceConfig == nullptr)
        return {};
    const int step = (m_pDeviceConfig->OutputSlotCount + m_pDeviceConfig->AuxSlotCount) *
                     m_pDeviceConfig->MaxConnectorCountOfSingleCard * kCanvasStep;
    std::vector<QPoint> taken;
    for (const auto &screen : screenList(toInt(ScreenType::AllScreenType)))
        taken.push_back(screen->layoutQPos());
    QPoint place;
    for (std::size_t tried = 0; tried <= taken.size(); ++tried) {
        place = {wrappingSum(place.x(), step), wrappingSum(place.y(), step)};
        if (std::find(taken.begin(), taken.end(), place) == taken.end())
            return place;
    }
    return {};
}

QList<std::weak_ptr<Layer>> Device::layersBySource(uint32_t sourceId, Enum::Layer::SourceType souceType, int screenType,
                                                   int /*layerType*/) {
    QList<std::weak_ptr<Layer>> layers;
    for (const auto &screen : screenList(screenType))
        layers += screen->layersBySource(souceType, sourceId);
    return layers;
}

QList<ProtoModel::Device::s_subcardBody> Device::protoSubcards(const std::weak_ptr<Screen> &screen) {
    QList<ProtoModel::Device::s_subcardBody> bodies;
    const auto shown = screen.lock();
    if (shown == nullptr)
        return bodies;
    std::bitset<256> seen;
    for (const auto &reference : shown->outputs()) {
        const auto output = reference.lock();
        const int slot = output == nullptr ? -1 : output->interfaceFullId().slotId;
        if (!isId(slot) || seen[static_cast<std::size_t>(slot)])
            continue;
        seen.set(static_cast<std::size_t>(slot));
        if (ProtoModel::Device::s_subcardBody body; protoSlot(static_cast<uint8_t>(slot), body))
            bodies.append(body);
    }
    return bodies;
}

} // namespace Quorix::BizModel
