/// Who uses an input, an output, a picture or a screen: each place, and what the model tells its user.
#include "address.h"
#include "session.h"
#include "table.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/files/image.h>
#include <quorixbizmodel/files/preset.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/topology/input.h>
#include <quorixbizmodel/topology/output.h>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
using Enum::File::FileType;
using Enum::Layer::SourceType;
using Enum::Screen::ScreenType;

constexpr int kAllScreens = toInt(ScreenType::AllScreenType);

struct Answer {
    QString subject;
    Table users{{QStringLiteral("used as"), QStringLiteral("where"), QStringLiteral("name")}};
    QStringList prompts; ///< what an application would show
};

/// The layers on the screens, then the presets, that show a source.
void addShowers(Answer &answer, Device &device, SourceType type, std::uint32_t id) {
    for (const auto &reference : device.screens(kAllScreens))
        if (const auto screen = reference.lock())
            for (const auto &entry : screen->layersBySource(type, id))
                if (const auto layer = entry.lock())
                    answer.users.addRow({QStringLiteral("layer"), layerText(layer->screenLayerId()),
                                         QStringLiteral("%1 on %2").arg(layer->name(), screen->name())});
    for (const auto &reference : device.presets())
        if (const auto preset = std::dynamic_pointer_cast<Preset>(reference.lock()))
            if (preset->isSourceUsedByPreset(id, toInt(type)))
                answer.users.addRow({QStringLiteral("preset"), QString::number(preset->fileId()), preset->name()});
}

void addUsedInfo(Answer &answer, const QString &usedInfo) {
    if (!usedInfo.isEmpty())
        answer.prompts << QStringLiteral("Used by %1.").arg(usedInfo);
}

/// What the user named; throws Failure for what the device doesn't have.
template <class T>
std::shared_ptr<T> found(const std::weak_ptr<T> &reference, const char *kind, const QString &id) {
    auto object = reference.lock();
    if (!object)
        throw Failure(QStringLiteral("the report has no %1 %2").arg(QLatin1String(kind), id));
    return object;
}

void askInput(Answer &answer, Device &device, const QString &text) {
    const std::uint32_t id = parseInterface(text).id();
    answer.subject = found(device.findInput(id), "input", text)->name();
    addShowers(answer, device, SourceType::Input, id);
    if (device.isInputUsedByGenlock(id))
        answer.users.addRow({QStringLiteral("genlock")});
    QString usedInfo;
    device.isInputUsed(id, usedInfo);
    addUsedInfo(answer, usedInfo);
}

void askOutput(Answer &answer, Device &device, const QString &text) {
    const auto id = parseInterface(text);
    answer.subject = found(device.findOutput(id.id()), "output", text)->name();
    for (const auto &reference : device.screens(kAllScreens))
        if (const auto screen = reference.lock(); screen && !screen->output(id).expired())
            answer.users.addRow({QStringLiteral("output"), screenText(screen->screenIdentity()), screen->name()});
    QString usedInfo;
    device.isOutputUsed(id, usedInfo);
    addUsedInfo(answer, usedInfo);
}

template <FileType Type, SourceType Source>
void askPicture(Answer &answer, Device &device, const QString &text) {
    const int id = parseNumber(text, 0, 254, "id of a picture");
    const auto file = found(device.findFile(Type, id), Type == FileType::BKG ? "bkg" : "logo", text);
    answer.subject = file->name();
    addShowers(answer, device, Source, static_cast<std::uint32_t>(id));
    answer.prompts << device.deleteCurrentBKGMessage(std::dynamic_pointer_cast<Image>(file));
}

void askScreen(Answer &answer, Device &device, const QString &text) {
    const auto screen = screenOf(device, parseScreen(text));
    answer.subject = screen->name();
    // Layers show the scenes of regular screens alone, and the model's question is for those and AUX screens.
    if (screen->screenType() == ScreenType::RegularScreen)
        for (const SourceType scene : {SourceType::PGM, SourceType::PVW})
            addShowers(answer, device, scene, screen->screenId());
    if (screen->screenType() != ScreenType::MVRScreen)
        answer.prompts << device.clearScreenContentsTip(screen);
}

constexpr struct {
    const char *name;
    void (*ask)(Answer &, Device &, const QString &id);
} kKinds[] = {
    {"input", askInput},
    {"output", askOutput},
    {"bkg", askPicture<FileType::BKG, SourceType::BKG>},
    {"logo", askPicture<FileType::LOGO, SourceType::LOGO>},
    {"screen", askScreen},
};

} // namespace

void runUses(const Invocation &call) {
    const auto &kind = rowNamed(kKinds, call.arguments[1], "uses");
    const ReportDocument report = readReport(call.arguments[0]);
    const HubSession session(call);
    const auto device = feed(report, call.out);
    Answer answer;
    kind.ask(answer, *device, call.arguments[2]);
    call.out << answer.subject << " of " << device->name();
    if (answer.users.isEmpty()) {
        call.out << ": not used\n";
    } else {
        call.out << ":\n";
        answer.users.print(call.out, 2);
    }
    for (const QString &prompt : qAsConst(answer.prompts))
        if (!prompt.isEmpty())
            call.out << prompt << '\n';
}

} // namespace quorixctl
