#include "address.h"
#include "hublistener.h"
#include "session.h"
#include "table.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/screen.h>

#include <algorithm>
#include <vector>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
using Enum::File::FileType;
using Enum::Layer::SceneType;
using Enum::Screen::UpdateType;
using LayerDetail = Quorix::ProtoModel::Layer::s_LayerFullDetail;

/// A preset on its way into a device.
struct Load {
    std::shared_ptr<Device> device;
    std::shared_ptr<Preset> preset;
    SceneType scene;                      ///< that is replaced
    QList<std::weak_ptr<Screen>> screens; ///< that have been loaded

    [[nodiscard]] bool isLoaded(const Screen &screen) const {
        return std::any_of(screens.begin(), screens.end(),
                           [&](const std::weak_ptr<Screen> &loaded) { return loaded.lock().get() == &screen; });
    }
};

// The steps. Each tells its result in words, and throws Failure where an application would stop.

QString matchScreens(Load &on) {
    if (QString reason; !on.preset->preCheckPresetValidity(reason))
        throw Failure(reason);
    return QStringLiteral("the device has screens of the preset");
}

QString findRoom(Load &on) {
    if (QString reason; !on.preset->curCheckPresetValidity(reason))
        throw Failure(reason);
    return QStringLiteral("its layers fit");
}

QString repairSources(Load &on) {
    const auto before = on.preset->presetDetail().layers;
    on.preset->checkLayerSourceValidity();
    const auto after = on.preset->presetDetail().layers;
    int lost = 0;
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i)
        lost += before[i].source == after[i].source ? 0 : 1;
    return lost == 0 ? QStringLiteral("the device has all of them")
                     : QStringLiteral("layers that lose theirs: %1").arg(lost);
}

/// Replaces the scene, and tells the hub as an application does.
QString replaceLayers(Load &on) {
    QString reason;
    const auto type = on.scene == SceneType::PGM ? FileType::PresetPGM : FileType::PresetPVW;
    if (!on.preset->loadPreset(on.screens, type, reason))
        throw Failure(reason);
    on.device->setActivedPreset(on.preset, on.preset->fileId());
    auto *hub = DeviceList::instance();
    hub->appendDeviceScreenLayersChangedType(on.scene == SceneType::PGM ? UpdateType::PGM : UpdateType::PVW);
    hub->notifyDeviceScreenLayersChanged(on.screens);
    deliverQueuedSignals();
    QStringList loaded;
    for (const auto &screen : on.screens)
        if (const auto live = screen.lock())
            loaded << screenText(live->screenIdentity());
    return QStringLiteral("%1 of %2").arg(sceneText(toInt(on.scene)), loaded.join(QStringLiteral(", ")));
}

QString tellUser(Load &on) {
    QString sentence;
    on.preset->afterCheckPresetValidity(sentence);
    return sentence.isEmpty() ? QStringLiteral("nothing is left out") : sentence;
}

constexpr struct {
    const char *name;
    QString (*run)(Load &);
} kSteps[] = {
    {"screens", matchScreens}, {"room", findRoom},    {"sources", repairSources},
    {"layers", replaceLayers}, {"message", tellUser},
};

QString windowText(const Quorix::ProtoModel::s_Rect &window) {
    return QStringLiteral("%1x%2 at %3,%4").arg(window.width).arg(window.height).arg(window.x).arg(window.y);
}

void printHead(QTextStream &out, const Load &on) {
    out << on.preset->name() << ": id " << on.preset->fileId() << ", " << on.preset->fileTypeString() << ", on "
        << on.device->deviceInfo() << "\n\n";
}

void show(Load &on, QTextStream &out) {
    const auto content = on.preset->presetDetail();
    Table screens({QStringLiteral("screen"), QStringLiteral("name"), QStringLiteral("grid"), QStringLiteral("window"),
                   QStringLiteral("outputs")});
    for (const auto &screen : content.screens)
        screens.addRow({screenText(screen), QString::fromStdString(screen.general.name),
                        QStringLiteral("%1x%2").arg(screen.mosaic.splice.column).arg(screen.mosaic.splice.row),
                        windowText(screen.mosaic.window), QString::number(screen.mosaic.outputs.size())});
    screens.print(out, 2);
    Table layers({QStringLiteral("layer"), QStringLiteral("kind"), QStringLiteral("name"), QStringLiteral("source"),
                  QStringLiteral("z"), QStringLiteral("window")});
    for (const auto &layer : content.layers)
        layers.addRow({layerText(layer.layerIdenti), layerKindText(layer.layerIdenti.layerType),
                       QString::fromStdString(layer.general.name), sourceText(layer.source.general),
                       QString::number(layer.zorder), windowText(layer.window)});
    out << '\n';
    layers.print(out, 2);
}

void load(Load &on, QTextStream &out) {
    const HubListener listener(out);
    for (const auto &step : kSteps) {
        out << "> " << step.name << '\n';
        const QString result = step.run(on);
        out << result << '\n';
    }
}

/// What becomes of a layer of the preset, now that it has been loaded.
QString fateOf(const LayerDetail &stored, const Load &on) {
    auto place = stored.layerIdenti;
    place.sceneType = toInt(on.scene);
    const auto screen = on.device->findScreen(place.screenType, place.screenId).lock();
    if (!screen || !on.isLoaded(*screen))
        return QStringLiteral("no such screen");
    const auto layer = screen->layer(place).lock();
    if (!layer)
        return QStringLiteral("left out");
    const QString source = sourceText(layer->layerDetail().source.general);
    return source == sourceText(stored.source.general) ? QStringLiteral("as stored") : source;
}

/// Goes the whole way on the device of the report, which ends with the command, and tells what has become of what.
void plan(Load &on, QTextStream &out) {
    const auto content = on.preset->presetDetail();
    std::vector<int> replaced;
    for (const auto &covered : content.screens) {
        const auto screen = on.device->findScreen(covered.screenType, covered.screenId).lock();
        replaced.push_back(screen ? screen->layers(on.scene).size() : 0);
    }
    for (const auto &step : kSteps)
        out << QString::fromLatin1(step.name).leftJustified(9) << step.run(on) << '\n';
    Table screens({QStringLiteral("screen"), QStringLiteral("stored as"), QStringLiteral("layers that go"),
                   QStringLiteral("layers that come")});
    for (std::size_t i = 0; i < content.screens.size(); ++i) {
        const auto &covered = content.screens[i];
        const auto screen = on.device->findScreen(covered.screenType, covered.screenId).lock();
        QStringList row{screenText(covered), QString::fromStdString(covered.general.name)};
        if (screen && on.isLoaded(*screen))
            row << QString::number(replaced[i]) << QString::number(screen->layers(on.scene).size());
        else
            row << (screen ? QStringLiteral("incomplete") : QStringLiteral("not found")) << QString();
        screens.addRow(row);
    }
    out << '\n';
    screens.print(out, 2);
    Table layers({QStringLiteral("layer"), QStringLiteral("name"), QStringLiteral("stored source"),
                  QStringLiteral("would come")});
    for (const auto &layer : content.layers)
        layers.addRow({layerText(layer.layerIdenti), QString::fromStdString(layer.general.name),
                       sourceText(layer.source.general), fateOf(layer, on)});
    out << '\n';
    layers.print(out, 2);
}

constexpr struct {
    const char *name;
    void (*run)(Load &, QTextStream &);
} kVerbs[] = {{"show", show}, {"plan", plan}, {"load", load}};

} // namespace

void addPresetOptions(QCommandLineParser &parser) {
    parser.addOption({QStringLiteral("scene"),
                      QStringLiteral("Scene that is replaced, pvw or pgm (default: what the device is set to)."),
                      QStringLiteral("SCENE")});
}

void runPreset(const Invocation &call) {
    const auto &verb = rowNamed(kVerbs, call.arguments[0], "preset");
    const int id = parseNumber(call.arguments[2], 0, 255, "preset id");
    const QString scene = call.options.value(QStringLiteral("scene"));
    const int wanted = scene.isEmpty() ? 0 : parseScene(scene);
    const ReportDocument document = readReport(call.arguments[1]);
    const HubSession session(call);
    const auto device = feed(document, call.out);
    const auto preset = std::dynamic_pointer_cast<Preset>(device->findPreset(static_cast<uint16_t>(id)).lock());
    if (!preset)
        throw Failure(QStringLiteral("the device has no preset %1").arg(id));
    using Enum::Device::LoadToPGMStatus;
    if (wanted != 0)
        device->setLoadToPGMEnable(wanted == toInt(SceneType::PGM) ? LoadToPGMStatus::LoadToPGM
                                                                   : LoadToPGMStatus::LoadToPVW);
    DeviceList::instance()->setActivtedDevice(device, false);
    deliverQueuedSignals();
    const bool isProgramme = device->loadToPGMEnable() != LoadToPGMStatus::LoadToPVW;
    Load on{device, preset, isProgramme ? SceneType::PGM : SceneType::PVW, {}};
    printHead(call.out, on);
    verb.run(on, call.out);
}

} // namespace quorixctl
