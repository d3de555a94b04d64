/// How a preset goes into a device that may have changed since it was made.
#include <quorixbizmodel/files/preset.h>

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/guarded.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/common/lists.h>
#include <quorixbizmodel/common/modelchangedlocker.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/topology/input.h>

#include <QDebug>
#include <QStringList>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <tuple>

namespace Quorix::BizModel {

using Content = ProtoModel::Preset::s_PresetCreate;
using Enum::File::FileType;
using Enum::Layer::LayerType;
using Enum::Layer::SourceType;
using Enum::Screen::ScreenType;
using LayerDetail = ProtoModel::Layer::s_LayerFullDetail;

namespace {

std::shared_ptr<Screen> screenOf(Device &device, const ProtoModel::s_ScreenId &id) {
    return device.findScreen(id.screenType, id.screenId).lock();
}

bool isScene(FileType type) { return type == FileType::PresetPVW || type == FileType::PresetPGM; }

/// Whether the device still has what a layer shows. Sources that don't go away are there.
bool isSourceThere(Device &device, const ProtoModel::Layer::s_LayerSourceGeneral &source) {
    switch (static_cast<SourceType>(source.type)) {
    case SourceType::Input:
        return !device.findInput(source.id).expired();
    case SourceType::BKG:
        return !device.findFile(FileType::BKG, static_cast<int>(source.id)).expired();
    case SourceType::LOGO:
        return !device.findFile(FileType::LOGO, static_cast<int>(source.id)).expired();
    default:
        return true;
    }
}

/// Follows the input of a layer to what can be shown today: nothing on a connector without signal paths, the partner of
/// an input that has failed. False if the layer can't be loaded.
bool followInput(Device &device, ProtoModel::Layer::s_LayerSourceGeneral &source) {
    const auto input = device.findInput(source.id).lock();
    if (input == nullptr)
        return true;
    const auto place = input->interfaceFullId();
    ProtoModel::Device::s_Connectors connector;
    if (!device.protoConnector(place.slotId, place.connectorId, connector))
        return false;
    if (connector.workMode == toInt(Enum::Interface::WorkMode::NoOutput)) {
        source.type = toInt(SourceType::Empty);
        return true;
    }
    if (!device.interfaceRelationEnable() || input->isActive())
        return true;
    const int partnerId = device.getInterfaceRelation(static_cast<int>(input->interfaceId()));
    const auto partner = partnerId < 0 ? nullptr : device.findInput(static_cast<uint32_t>(partnerId)).lock();
    if (partner != nullptr && partner->isActive())
        source.id = partner->interfaceId();
    return true;
}

/// Fits a layer to a screen of today. False if it can't be loaded.
bool fitLayer(Device &device, const Screen &screen, LayerDetail &layer) {
    const int type = layer.layerIdenti.layerType;
    const auto fileId = static_cast<uint8_t>(layer.source.general.id);
    if (hasAnyBit(type, LayerType::NotImageType) && layer.source.general.type == toInt(SourceType::Input) &&
        !followInput(device, layer.source.general))
        return false;
    if (type == toInt(LayerType::AUX))
        layer.window = Helper::qRect2SRect(screen.mosaicWindowRect());
    return (type != toInt(LayerType::Logo) || !device.findLOGO(fileId).expired()) &&
           (type != toInt(LayerType::BKG) || !device.findBKG(fileId).expired());
}

ProtoModel::Layer::s_LayerDetailArray fittedLayers(Device &device, const Screen &screen,
                                                   const ProtoModel::s_ScreenId &id, const Content &content) {
    ProtoModel::Layer::s_LayerDetailArray layers;
    for (const auto &stored : content.layers)
        if (static_cast<const ProtoModel::s_ScreenId &>(stored.layerIdenti) == id)
            if (auto layer = stored; fitLayer(device, screen, layer))
                layers.push_back(std::move(layer));
    return layers;
}

} // namespace

bool Preset::preCheckPresetValidity(QString &errMsg) {
    const auto fails = [&](const QString &text) {
        errMsg = text;
        qWarning().noquote() << text;
        return false;
    };
    const auto device = owerDevice().lock();
    if (device == nullptr)
        return fails(tr("The device object where the preset is located is invalid."));
    const auto screens = copyOf(m_detailRWLock, m_contents.screens);
    if (screens.empty())
        return fails(tr("The regular screen list and aux screen list is empty in the preset."));
    std::size_t matched = 0;
    std::size_t incomplete = 0;
    for (const auto &screen : screens) {
        if (screenOf(*device, screen) == nullptr)
            continue;
        ++matched;
        if (std::int64_t{screen.mosaic.splice.row} * screen.mosaic.splice.column == 0)
            ++incomplete;
    }
    if (matched == 0) {
        errMsg = tr("The quantity of the matched screens is zero.");
        return false;
    }
    // Lost screens count: beside one, no number of screens without cells stops the load.
    if (incomplete == screens.size()) {
        errMsg = tr("The screen splicing is incomplete.");
        return false;
    }
    return true;
}

bool Preset::curCheckPresetValidity(QString &errMsg) {
    const auto device = owerDevice().lock();
    if (device == nullptr) {
        errMsg = tr("The device is empty");
        qWarning().noquote() << errMsg;
        return false;
    }
    const Content content = presetDetail();
    std::int64_t count = std::count_if(content.layers.begin(), content.layers.end(), [](const LayerDetail &layer) {
        return layer.layerIdenti.screenType == toInt(ScreenType::RegularScreen) &&
               layer.layerIdenti.layerType == toInt(LayerType::Regular);
    });
    for (const auto &screen : livingReferences(device->screens(toInt(ScreenType::RegularScreen))))
        if (std::none_of(content.screens.begin(), content.screens.end(),
                         [id = screen->screenId()](const auto &covered) { return covered.screenId == id; }))
            count += screen->PVWLayers(LayerType::Regular).size();
    const int maximum = device->maxRegulerLayerCnt();
    if (maximum >= count)
        return true;
    qWarning() << "Load preset has failed! The preset's layer count more than max reguler layer count."
               << "Preset's layer count=" << count << ","
               << "Current max reguler layer count=" << maximum;
    errMsg = tr("The preset's layer count more than max reguler layer count.\nPreset's layer reguler count is %1, "
                "Current max reguler layer count is %2")
                 .arg(count)
                 .arg(maximum);
    return false;
}

void Preset::checkLayerSourceValidity() {
    const auto device = owerDevice().lock();
    if (device == nullptr) {
        qWarning() << "device is null";
        return;
    }
    auto layers = copyOf(m_detailRWLock, m_contents.layers);
    for (auto &layer : layers)
        if (!isSourceThere(*device, layer.source.general))
            layer.source.general = {.type = toInt(SourceType::Empty), .id = std::numeric_limits<std::uint32_t>::max()};
    const WriteGuard guard(m_detailRWLock);
    m_contents.layers.swap(layers);
}

bool Preset::presetSelectedScreens(QList<std::weak_ptr<Screen>> &selectedScreens, const FileType &presetType,
                                   QString &errMsg) {
    const auto device = owerDevice().lock();
    if (device == nullptr) {
        errMsg = tr("The device object is null");
        return false;
    }
    if (!isScene(presetType)) {
        errMsg = tr("The preset type is invalid.");
        qWarning().noquote() << errMsg;
        return false;
    }
    for (const auto &covered : copyOf(m_detailRWLock, m_contents.screens))
        if (const auto screen = screenOf(*device, covered); screen != nullptr && screen->isComplete())
            selectedScreens.append(screen);
    return true;
}

bool Preset::loadPreset(QList<std::weak_ptr<Screen>> &selectedScreens, const FileType &presetType, QString &errMsg) {
    const auto device = owerDevice().lock();
    if (device == nullptr || !isScene(presetType)) {
        errMsg = device == nullptr ? tr("The device object is null") : tr("The preset type is invalid.");
        qWarning().noquote() << errMsg;
        return false;
    }
    // Layers that leave and come may call slots that remove the preset or change its content.
    const auto self = weak_from_this().lock();
    const Content content = presetDetail();
    for (const auto &covered : content.screens) {
        const auto screen = screenOf(*device, covered);
        if (screen == nullptr) {
            qDebug() << "pOwerDevice canot find screen";
            continue;
        }
        if (!screen->isComplete()) {
            qDebug() << "pScreen is not complete" << screen->name();
            continue;
        }
        qDebug() << "preset content screen" << screen->name() << screen->screenId();
        const auto layers = fittedLayers(*device, *screen, covered, content);
        {
            const ObjectSignalLocker silence(screen.get());
            if (device->loadToPGMEnable() != Enum::Device::LoadToPGMStatus::LoadToPVW)
                screen->initPGMLayerData(layers, errMsg, false);
            else
                screen->initPVWLayerData(layers, errMsg, false);
        }
        selectedScreens.append(screen);
    }
    return true;
}

void Preset::afterCheckPresetValidity(QString &errMsg) {
    const auto device = owerDevice().lock();
    if (device == nullptr) {
        errMsg = tr("Failed to load preset: ") + tr("The device object is null.");
        return;
    }
    const auto screens = copyOf(m_detailRWLock, m_contents.screens);
    QStringList regular;
    QStringList aux;
    for (const auto &covered : screens) {
        const bool isAux = covered.screenType == toInt(ScreenType::AUXScreen);
        if (!isAux && covered.screenType != toInt(ScreenType::RegularScreen))
            continue;
        auto &items = isAux ? aux : regular;
        const auto screen = screenOf(*device, covered);
        if (screen == nullptr) {
            items += tr("%1 is not found").arg(QString::fromStdString(covered.general.name));
            continue;
        }
        const QString name = QString::fromStdString(screen->screenGeneral().name);
        const auto outputs = static_cast<std::int64_t>(screen->outputDetailArry().size());
        const auto [rows, columns] = screen->grid();
        if (outputs == 0)
            items += tr("%1 is empty").arg(name);
        else if (isAux && std::int64_t{rows} * columns != outputs)
            items += tr("%1 is incomplete").arg(name);
    }
    const QStringList items = regular + aux;
    if (!items.isEmpty())
        errMsg = items.join(QStringLiteral(", ")) + QLatin1Char('.');
    if (errMsg.isEmpty())
        return;
    const bool isWhole = items.size() == static_cast<int>(screens.size());
    errMsg.prepend(isWhole ? tr("Failed to load preset: ") : tr("Failed to load preset of some screens: "));
}

} // namespace Quorix::BizModel
