#include "address.h"
#include "hublistener.h"
#include "session.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/screen.h>

#include <QRegularExpression>

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <utility>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
using Enum::Layer::SceneType;
using Enum::Screen::State;
using Quorix::ProtoModel::s_ScreenId;
using Quorix::ProtoModel::s_ScreenLayerId;

constexpr int kFarthest = 1000000; ///< pixels; more than any wall has
constexpr char kSender[] = "quorixctl";

/// What a command acts on, looked up when its turn comes; the layer is null where it names a screen.
struct Target {
    std::shared_ptr<Device> device;
    std::shared_ptr<Screen> screen;
    std::shared_ptr<Layer> layer;
};

using Action = std::function<void(const Target &)>;

/// Two numbers of pixels with @p separator between them; @p form is both as the user is told.
std::pair<int, int> parsePair(const QString &text, char separator, int minimum, const char *form) {
    const QStringList parts = text.split(QLatin1Char(separator));
    if (parts.size() != 2)
        throw UsageError(QStringLiteral("'%1': wanted %2").arg(text, QLatin1String(form)));
    return {parseNumber(parts[0], minimum, kFarthest, "number of pixels"),
            parseNumber(parts[1], minimum, kFarthest, "number of pixels")};
}

Action move(const QString &value) {
    const auto [x, y] = parsePair(value, ',', -kFarthest, "X,Y");
    return [corner = QPoint(x, y)](const Target &on) {
        on.layer->setWindowRect({corner, on.layer->windowRect().size()}, kSender, true);
    };
}

Action resize(const QString &value) {
    const auto [width, height] = parsePair(value, 'x', 1, "WIDTHxHEIGHT");
    return [size = QSize(width, height)](const Target &on) {
        on.layer->setWindowRect({on.layer->pos(), size}, kSender, true);
    };
}

Action source(const QString &value) {
    return [source = parseSource(value)](const Target &on) { on.layer->setSource(source); };
}

Action opacity(const QString &value) {
    const auto percent = static_cast<uint8_t>(parseNumber(value, 0, 100, "opacity in percent"));
    return [=](const Target &on) { on.layer->setOpacity(percent, kSender); };
}

Action zOrder(const QString &value) {
    const auto place = static_cast<uint8_t>(parseNumber(value, 0, 255, "z-order"));
    return [=](const Target &on) { on.layer->setZOrder(place); };
}

Action select(const QString &) {
    return [](const Target &on) {
        if (on.layer)
            on.screen->appendSelectedLayer({on.layer}, true);
        else
            on.device->appendSelectedScreen(on.screen, true, true);
    };
}

/// The records of a scene's layers.
Quorix::ProtoModel::Layer::s_LayerDetailArray recordsOf(const Screen &screen, SceneType scene) {
    Quorix::ProtoModel::Layer::s_LayerDetailArray records;
    for (const auto &layer : screen.layers(scene))
        if (const auto live = layer.lock())
            records.push_back(live->layerDetail());
    return records;
}

/// What a processor reports when PVW goes on air: PGM has its layers, and where scenes are swapped PVW those of PGM.
void report(const Target &on) {
    const auto preview = recordsOf(*on.screen, SceneType::PVW);
    const auto programme = recordsOf(*on.screen, SceneType::PGM);
    QString reason;
    on.screen->initPGMLayerData(preview, reason, false);
    if (on.device->swapEnable())
        on.screen->initPVWLayerData(programme, reason, false);
}

void require(bool isAllowed, const Target &on) {
    if (!isAllowed)
        throw Failure(QStringLiteral("%1 is in the middle of another change of scene")
                          .arg(screenText(on.screen->screenIdentity())));
}

Action take(const QString &) {
    return [](const Target &on) {
        require(on.screen->startTake(), on);
        report(on);
        on.screen->endTake();
    };
}

Action cut(const QString &) {
    return [](const Target &on) {
        require(on.screen->startCut(), on);
        report(on);
        on.screen->endCut();
    };
}

Action tbar(const QString &value) {
    const int percent = parseNumber(value, 0, 100, "T-bar position in percent");
    return [=](const Target &on) {
        require(on.screen->state() == State::Tbar_taking || on.screen->startTBar(), on);
        on.screen->setTBar(percent);
        if (percent == 100)
            report(on);
        if (percent == 0 || percent == 100)
            on.screen->endTBar();
    };
}

enum class On { Layer, Regular, Either };

struct Verb {
    const char *name;
    On on;
    const char *value; ///< as the synopsis shows it; empty: none
    const char *meaning;
    Action (*parse)(const QString &value);
};

constexpr Verb kVerbs[] = {
    {"move", On::Layer, "X,Y", "puts the top left corner of the window there", move},
    {"resize", On::Layer, "WIDTHxHEIGHT", "changes the size of the window", resize},
    {"source", On::Layer, "SOURCE", "shows another source", source},
    {"opacity", On::Layer, "PERCENT", "0 lets everything below through", opacity},
    {"z-order", On::Layer, "PLACE", "0 to 255, the highest is on top", zOrder},
    {"select", On::Either, "", "adds to the selection", select},
    {"take", On::Regular, "", "sends PVW to PGM", take},
    {"cut", On::Regular, "", "the same without an effect", cut},
    {"tbar", On::Regular, "PERCENT", "moves the T-bar: 100 sends PVW to PGM, 0 gives up", tbar},
};

constexpr const char *kTargets[] = {"LAYER", "SCREEN", "LAYER|SCREEN"};

QString synopsis(const Verb &verb) {
    return QStringLiteral("%1 %2 %3")
        .arg(QLatin1String(verb.name), QLatin1String(kTargets[static_cast<int>(verb.on)]), QLatin1String(verb.value))
        .trimmed();
}

/// A command that has been read.
struct Edit {
    QString text;
    s_ScreenId screen;
    std::optional<s_ScreenLayerId> layer;
    Action action;
};

Edit parseEdit(const QString &text) {
    QStringList words = text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    const QString name = words.value(0);
    const auto verb = std::find_if(std::begin(kVerbs), std::end(kVerbs),
                                   [&](const Verb &row) { return name == QLatin1String(row.name); });
    if (verb == std::end(kVerbs))
        throw UsageError(QStringLiteral("'%1': no such edit, see edit --help").arg(text));
    // The kind of the target may be said: it reads better.
    if (words.value(1) == QLatin1String("layer") || words.value(1) == QLatin1String("screen"))
        words.removeAt(1);
    if (words.size() != (*verb->value == '\0' ? 2 : 3))
        throw UsageError(QStringLiteral("'%1': wanted %2").arg(text, synopsis(*verb)));
    Edit edit{text, {}, {}, verb->parse(words.value(2))};
    if (verb->on == On::Layer || (verb->on == On::Either && words[1].contains(QLatin1Char('/')))) {
        edit.layer = parseLayer(words[1]);
        edit.screen = *edit.layer;
    } else {
        edit.screen = parseScreen(words[1]);
        if (verb->on == On::Regular && edit.screen.screenType != toInt(Enum::Screen::ScreenType::RegularScreen))
            throw UsageError(QStringLiteral("'%1': only regular screens have a preview").arg(text));
    }
    return edit;
}

void apply(const Edit &edit, const std::shared_ptr<Device> &device) {
    Target on{device, device->findScreen(edit.screen.screenType, edit.screen.screenId).lock(), nullptr};
    if (on.screen && edit.layer)
        on.layer = on.screen->layer(*edit.layer).lock();
    if (!on.screen || (edit.layer && !on.layer))
        throw Failure(QStringLiteral("'%1': the device has no %2")
                          .arg(edit.text, edit.layer ? layerText(*edit.layer) : screenText(edit.screen)));
    edit.action(on);
    deliverQueuedSignals();
}

} // namespace

void addEditOptions(QCommandLineParser &parser) {
    addStoreOptions(parser);
    QString verbs;
    for (const Verb &verb : kVerbs)
        verbs += QStringLiteral("  %1 %2\n").arg(synopsis(verb), -28).arg(QLatin1String(verb.meaning));
    parser.setApplicationDescription(
        QStringLiteral("%1. Each COMMAND is one argument; the events that follow it are printed behind it, as JSON "
                       "lines.\n\nCommands:\n%2\n"
                       "  SCREEN   KIND:ID, as in regular:0, aux:1, mvr:0\n"
                       "  LAYER    SCREEN/SCENE/ID, as in regular:0/pvw/3; with a kind for all but the screen's own:\n"
                       "           regular:0/pgm/cut:3, regular:0/pvw/bkg:0, regular:0/pvw/logo:0\n"
                       "  SOURCE   input:SLOT-CONNECTOR (from 0), pgm:ID, pvw:ID, bkg:ID, logo:ID or none\n\n"
                       "Example:\n"
                       "  quorixctl edit data/reports/alder.json \"move regular:0/pvw/1 100,200\" \"take regular:1\"")
            .arg(parser.applicationDescription(), verbs));
}

void runEdit(const Invocation &call) {
    std::vector<Edit> edits;
    for (const QString &text : call.arguments.mid(1))
        edits.push_back(parseEdit(text));
    const ReportDocument document = readReport(call.arguments.first());
    const bool isKept = call.options.isSet(QStringLiteral("root"));
    HubSession session(call);
    if (isKept)
        session.keepPictures(call);
    const auto device = feed(document, call.out);
    const HubListener listener(call.out);
    for (const Edit &edit : edits) {
        call.out << "> " << edit.text << '\n';
        apply(edit, device);
    }
    if (isKept) {
        call.out << '\n';
        store(call, device);
    }
}

} // namespace quorixctl
