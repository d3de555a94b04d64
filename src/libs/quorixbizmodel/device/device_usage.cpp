/// Who uses an input, an output, a source or a screen; and the questions that the user is asked before it goes.
#include <quorixbizmodel/device/device.h>

#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/screens/screenkinds.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>
#include <quorixbizmodel/topology/topology_p.h>

#include <QDebug>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace Quorix::BizModel {

namespace {

using Enum::File::FileType;
using Enum::Layer::LayerType;
using Enum::Layer::SceneType;
using Enum::Layer::SourceType;
using Enum::Screen::ScreenType;

/// How layers show the pictures of a type.
struct PictureKind {
    FileType type;
    const char *word; ///< in questions
    SourceType source;
    LayerType layer;
};
constexpr PictureKind kPictureKinds[] = {
    {FileType::BKG, "BKG", SourceType::BKG, LayerType::BKG},
    {FileType::LOGO, "LOGO", SourceType::LOGO, LayerType::Logo},
};

/// Null for a type without pictures.
const PictureKind *pictureKind(FileType type) {
    const auto *const kind = std::find_if(std::begin(kPictureKinds), std::end(kPictureKinds),
                                          [type](const PictureKind &row) { return row.type == type; });
    return kind == std::end(kPictureKinds) ? nullptr : kind;
}

QString wordOf(const PictureKind *kind) { return kind == nullptr ? QString() : QString::fromLatin1(kind->word); }

constexpr int kAllScreens = toInt(ScreenType::AllScreenType);
constexpr int kProgrammeScreens = maskOf(ScreenType::RegularScreen, ScreenType::AUXScreen);

template <class List, class Predicate>
bool anyOf(const List &list, Predicate matches) {
    return findFirst(list, matches) != nullptr;
}

auto shows(SourceType type, uint32_t id) {
    return [type, id](const Screen &screen) { return screen.isExistlayersBySource(type, id); };
}

/// Whether a screen shows the programme or the preview of the screen @p id.
auto showsScreen(uint8_t id) {
    return [id](const Screen &screen) {
        return screen.isExistlayersBySource(SourceType::PGM, id) || screen.isExistlayersBySource(SourceType::PVW, id);
    };
}

auto hasOutput(const ProtoModel::s_InterfaceID &id) {
    return [id](const Screen &screen) { return !screen.output(id).expired(); };
}

bool hasLayers(const Screen &screen) {
    return !screen.layers(toInt(SceneType::AllSceneType), toInt(LayerType::AllLayerType)).isEmpty();
}

/// Adds a name to a list of them unless it stands there already.
void addOnce(QString &names, const QString &separator, const QString &name) {
    if (names.split(separator).contains(name))
        return;
    if (!names.isEmpty())
        names += separator;
    names += name;
}

} // namespace

bool Device::isInputUsed(const uint32_t &id, QString &usedInfo) {
    const QString separator = tr(",");
    for (const auto &screen : screenList(kAllScreens))
        if (shows(SourceType::Input, id)(*screen))
            addOnce(usedInfo, separator, screen->name());
    if (isInputUsedByGenlock(id))
        addOnce(usedInfo, separator, tr("genlock"));
    return !usedInfo.isEmpty();
}

bool Device::isInputUsedByGenlock(const uint32_t &id) {
    const auto genlock = genlockInfo();
    return genlock.type == toInt(Enum::Device::GenLockEnum::InputSource) && genlock.interfaceId == id;
}

bool Device::isInputUsedAt(const uint8_t &slot, int connector, QString &usedInfo) {
    const auto input = isId(connector) ? findInput(slot, static_cast<uint8_t>(connector)).lock() : nullptr;
    return input != nullptr && isInputUsed(input->interfaceId(), usedInfo);
}

bool Device::isInputOrRelatedCapacityInputUsed(const uint8_t &nSlotIndex, const uint8_t &nInputIndex,
                                               const int &capacity, QString &usedInfo) {
    const auto card = findSubcardBySlotId(nSlotIndex).lock();
    if (card == nullptr) {
        qWarning() << "Update subcard mode has failed. The subcard pos is invalid.";
        return false;
    }
    return isInputUsedAt(nSlotIndex, nInputIndex, usedInfo) ||
           isInputUsedAt(
               nSlotIndex,
               InterfaceConfig::instance()->connectorBackupPos(fileModelId(card->modelId()), capacity, nInputIndex),
               usedInfo);
}

bool Device::connectorsOfLayout(int slotId, int capacityGroup, int connectorGroup, int capacity,
                                QMap<unsigned char, InterfaceConfig::s_CardConnector> &connectors) {
    if (!isId(slotId) || !containsSlot(static_cast<uint8_t>(slotId))) {
        qWarning() << "Not find slot:" << slotId;
        return false;
    }
    const auto card = cardAt(slotId);
    if (card == nullptr) {
        qWarning() << "Can not find the card, card index is " << slotId;
        return false;
    }
    connectors = InterfaceConfig::instance()->getSubCardCardConnectors(fileModelId(card->modelId()), capacityGroup,
                                                                       capacity, connectorGroup);
    return true;
}

bool Device::isInputOrRelatedTypeInputUsed(const uint8_t &nSlotIndex, const int &capacityGroup,
                                           const uint8_t &nConnectorGroup, const int &capacity, QString &usedInfo) {
    QMap<unsigned char, InterfaceConfig::s_CardConnector> connectors;
    return connectorsOfLayout(nSlotIndex, capacityGroup, nConnectorGroup, capacity, connectors) &&
           std::any_of(connectors.begin(), connectors.end(),
                       [&](const auto &entry) { return isInputUsedAt(nSlotIndex, entry.Connector.id, usedInfo); });
}

bool Device::isInterfaceBusy(const uint8_t &slot, const uint8_t &connector, QString &usedInfo) {
    if (const auto input = findInput(slot, connector).lock())
        return isInputUsed(input->interfaceId(), usedInfo);
    const auto output = findOutput(slot, connector).lock();
    return output != nullptr && isOutputUsed(output->interfaceFullId(), usedInfo);
}

bool Device::isOutputUsed(const uint32_t &id) {
    return anyOf(screenList(kAllScreens), [id](const Screen &screen) {
        return anyOf(screen.outputList(), [id](const Output &output) { return output.interfaceId() == id; });
    });
}

bool Device::isOutputUsedByScreen(const ProtoModel::s_InterfaceID &id) {
    return anyOf(screenList(toInt(ScreenType::RegularScreen)), hasOutput(id));
}

bool Device::isOutputUsedByAUXScreen(const ProtoModel::s_InterfaceID &id) {
    return anyOf(screenList(toInt(ScreenType::AUXScreen)), hasOutput(id));
}

bool Device::isOutputUsedByScreen(const ProtoModel::s_InterfaceID &id, QString &usedInfo) {
    const auto screen = findFirst(screenList(toInt(ScreenType::RegularScreen)), hasOutput(id));
    if (screen != nullptr)
        usedInfo = screen->name();
    return screen != nullptr;
}

bool Device::isOutputUsed(const ProtoModel::s_InterfaceID &id, QString &usedInfo) {
    QStringList users;
    if (QString name; isOutputUsedByScreen(id, name))
        users += name;
    if (isOutputUsedByAUXScreen(id))
        users += tr("AUX");
    if (isOutputUsedByMVRScreen(id))
        users += tr("MVR");
    usedInfo += users.join(tr(","));
    return !users.isEmpty();
}

QList<std::weak_ptr<Output>> Device::outputsBySameConnectorType(Enum::Interface::ConnectorType type) {
    QList<std::weak_ptr<Output>> result;
    for (const auto &output : presentEntries(m_outputsRWLock, m_outputs))
        if (output->connectorType() == type && !isOutputUsed(output->interfaceId()))
            result.append(output);
    return result;
}

std::weak_ptr<Output> Device::firstUnsedOutput(Enum::Interface::InterfaceType type) {
    return findFirst(copyOf(m_outputsRWLock, m_outputs), [&](const Output &output) {
        return output.type() == toInt(type) && !isOutputUsed(output.interfaceId());
    });
}

std::weak_ptr<Screen> Device::findScreenOfUseOutput(const std::weak_ptr<Output> &wOutput) {
    if (wOutput.expired())
        return {};
    return findFirst(screenList(kAllScreens), [&](const Screen &screen) {
        const auto outputs = screen.outputList();
        return findObject(outputs, wOutput) != outputs.end();
    });
}

bool Device::isSourceUsedByRegulerLayer(const uint32_t &id, SourceType type) {
    return anyOf(screenList(toInt(ScreenType::RegularScreen)), shows(type, id));
}

bool Device::isSourceUsedByAux(const uint32_t &id, SourceType type) {
    return anyOf(screenList(toInt(ScreenType::AUXScreen)), shows(type, id));
}

QList<std::weak_ptr<Screen>> Device::findScreensUsedBKG(SourceType type, uint32_t id) {
    QList<std::weak_ptr<Screen>> result;
    for (const auto &screen : screenList(toInt(ScreenType::RegularScreen)))
        if (shows(type, id)(*screen))
            result.append(screen);
    return result;
}

void Device::sortInputsBySource(QList<std::weak_ptr<Input>> &inputs) {
    sortByKeyOnce(inputs, [](const std::weak_ptr<Input> &reference) {
        const auto input = reference.lock();
        // Active ones first, entries that have gone last.
        return input == nullptr ? std::pair(2, uint32_t{0})
                                : std::pair(input->isActive() ? 0 : 1, input->interfaceId());
    });
}

void Device::removeAllLyaerBySource(uint8_t fileId, SourceType sourceType) {
    for (const auto &screen : presentEntries(m_screensRWLock, m_regularScreens))
        if (const auto layers = screen->layersBySource(sourceType, fileId); !layers.isEmpty())
            screen->removeLayer(layers);
}

bool Device::isFileUsed(const uint8_t &fileId, FileType type) {
    const auto *const kind = pictureKind(type);
    if (kind == nullptr) {
        qWarning() << "The type is invalid";
        return false;
    }
    const auto showsFile = [&](const std::weak_ptr<Layer> &reference) {
        const auto layer = reference.lock();
        return layer != nullptr && layer->sourceId() == fileId && layer->sourceType() == kind->source;
    };
    const auto isShown = [&](const Screen &screen) {
        const auto layers = screen.layers(toInt(SceneType::AllSceneType), toInt(kind->layer));
        return std::any_of(layers.begin(), layers.end(), showsFile);
    };
    return anyOf(screenList(kAllScreens), isShown) || isSourceUsedByPreset(fileId, kind->source);
}

bool Device::isFileUsed(FileType type) {
    const auto *const kind = pictureKind(type);
    if (kind == nullptr) {
        qWarning() << "The type is invalid";
        return false;
    }
    const auto hasLayer = [kind](const Screen &screen) {
        return !screen.layers(toInt(SceneType::AllSceneType), toInt(kind->layer)).isEmpty();
    };
    return anyOf(screenList(kAllScreens), hasLayer) || anyOf(sharedFiles(type), [&](const File &file) {
               return isSourceUsedByPreset(file.fileId(), kind->source);
           });
}

QString Device::deleteCurrentBKGMessage(const std::weak_ptr<Image> &wImage) {
    const auto image = wImage.lock();
    if (image == nullptr)
        return {};
    const auto *const kind = pictureKind(image->fileType());
    QStringList users;
    if (kind != nullptr)
        for (const auto &screen : livingReferences(findScreensUsedBKG(kind->source, image->fileId())))
            users += screen->name();
    if (users.isEmpty())
        return tr("Are you sure to delete this %1?").arg(wordOf(kind));
    return tr("Current %1 is used by %2,and the corresponding screen and preset will no longer be displayed after "
              "deletion,Are you sure to delete this %1?")
        .arg(wordOf(kind), users.join(tr(",")));
}

QString Device::deleteAllBKGMessage(int fileType) {
    const auto type = static_cast<FileType>(fileType);
    const auto *const kind = pictureKind(type);
    const auto isUsed = [&](const File &file) { return !findScreensUsedBKG(kind->source, file.fileId()).isEmpty(); };
    if (kind != nullptr && findFirst(sharedFiles(type), isUsed) != nullptr)
        return tr("Part of the %1 is used, and the corresponding screen and preset will no longer be displayed after "
                  "deletion,Are you sure to delete all %1?")
            .arg(wordOf(kind));
    return tr("Are you sure to delete all %1?").arg(wordOf(kind));
}

bool Device::isScreenUsedIn(ScreenType type, const std::weak_ptr<Screen> &wScreen) {
    const auto screen = wScreen.lock();
    return screen != nullptr && anyOf(screenList(toInt(type)), showsScreen(screen->screenId()));
}

bool Device::isScreenUsedInAux(const std::weak_ptr<Screen> &wScreen) {
    return isScreenUsedIn(ScreenType::AUXScreen, wScreen);
}

bool Device::isScreenUsedInMvr(const std::weak_ptr<Screen> &wScreen) {
    return isScreenUsedIn(ScreenType::MVRScreen, wScreen);
}

bool Device::isScreenUsedInLayer(const std::weak_ptr<Screen> &wScreen) {
    return isScreenUsedInAux(wScreen) || isScreenUsedInMvr(wScreen);
}

QList<int> Device::findAssociatedScreens(const std::weak_ptr<Screen> &wScreen) {
    const auto screen = wScreen.lock();
    if (screen == nullptr)
        return {};
    QList<int> slots;
    for (const auto &output : screen->outputList())
        if (output != nullptr && !slots.contains(output->interfaceFullId().slotId))
            slots.append(output->interfaceFullId().slotId);
    return findScreens(slots);
}

QList<int> Device::findScreens(const QList<int> &slotList) {
    QList<int> ids;
    const auto isThere = [&](const Output &output) { return slotList.contains(output.interfaceFullId().slotId); };
    for (const auto &screen : screenList(kProgrammeScreens))
        if (anyOf(screen->outputList(), isThere))
            ids.append(screen->screenId());
    return ids;
}

QString Device::clearScreenContentsTip(const std::weak_ptr<Screen> &wScreen) {
    const auto screen = wScreen.lock();
    if (screen == nullptr)
        return {};
    QStringList contents;
    switch (screen->screenType()) {
    case ScreenType::RegularScreen:
        if (hasLayers(*screen))
            contents += tr("Layer");
        if (isScreenUsedInMvr(wScreen))
            contents += tr("MVR");
        if (isScreenUsedInAux(wScreen))
            contents += tr("AUX Layer");
        break;
    case ScreenType::AUXScreen:
        if (hasLayers(*screen))
            contents += tr("AUX Layer");
        break;
    default:
        qWarning() << "Invalid screen type:" << toInt(screen->screenType());
    }
    if (contents.isEmpty())
        return {};
    return tr("This operation will empty the relevant ") + contents.join(tr(",")) + tr(",Do you want to continue?");
}

void Device::clearScreenContents(const std::weak_ptr<Screen> &wScreen) {
    if (const auto screen = wScreen.lock())
        screen->clearLayer();
}

} // namespace Quorix::BizModel
