#include "address.h"

#include "command.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/device/device.h>

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace quorixctl {
namespace {

namespace Enum = Quorix::BizModel::Enum;
using Quorix::BizModel::toInt;
using Quorix::ProtoModel::s_InterfaceID;
using Quorix::ProtoModel::s_ScreenId;
using Quorix::ProtoModel::s_ScreenLayerId;
using Quorix::ProtoModel::Layer::s_LayerSourceGeneral;

struct Word {
    const char *word;
    int value;
};

constexpr Word kScreenKinds[] = {
    {"regular", toInt(Enum::Screen::ScreenType::RegularScreen)},
    {"aux", toInt(Enum::Screen::ScreenType::AUXScreen)},
    {"mvr", toInt(Enum::Screen::ScreenType::MVRScreen)},
};
constexpr Word kScenes[] = {
    {"pvw", toInt(Enum::Layer::SceneType::PVW)},
    {"pgm", toInt(Enum::Layer::SceneType::PGM)},
};
constexpr Word kLayerKinds[] = {
    {"regular", toInt(Enum::Layer::LayerType::Regular)}, {"aux", toInt(Enum::Layer::LayerType::AUX)},
    {"mvr", toInt(Enum::Layer::LayerType::MVR)},         {"bkg", toInt(Enum::Layer::LayerType::BKG)},
    {"logo", toInt(Enum::Layer::LayerType::Logo)},       {"cut", toInt(Enum::Layer::LayerType::Cut)},
};
constexpr Word kSources[] = {
    {"pgm", toInt(Enum::Layer::SourceType::PGM)},
    {"pvw", toInt(Enum::Layer::SourceType::PVW)},
    {"bkg", toInt(Enum::Layer::SourceType::BKG)},
    {"logo", toInt(Enum::Layer::SourceType::LOGO)},
};
constexpr int kMaxId = 254; // 255 is no id

template <std::size_t N>
QString wordOf(const Word (&words)[N], int value) {
    const auto found =
        std::find_if(std::begin(words), std::end(words), [&](const Word &row) { return row.value == value; });
    return found == std::end(words) ? QString::number(value) : QString::fromLatin1(found->word);
}

/// The value of a word, or of a number that stands for one.
template <std::size_t N>
int valueOf(const Word (&words)[N], const QString &text, const char *what) {
    QStringList known;
    for (const Word &row : words) {
        if (text == QLatin1String(row.word) || text == QString::number(row.value))
            return row.value;
        known << QString::fromLatin1(row.word);
    }
    throw UsageError(
        QStringLiteral("'%1' is no %2: %3").arg(text, QLatin1String(what), known.join(QStringLiteral(", "))));
}

/// The kind of layer that a screen of a kind has.
int ownLayerKind(int screenKind) {
    for (std::size_t i = 0; i < std::size(kScreenKinds); ++i)
        if (kScreenKinds[i].value == screenKind)
            return kLayerKinds[i].value;
    return 0;
}

/// Cuts "KIND:ID"; throws for a text without its colon.
std::pair<QString, QString> halves(const QString &text, QLatin1Char separator, const char *what, const char *form) {
    const int at = text.indexOf(separator);
    if (at <= 0)
        throw UsageError(
            QStringLiteral("'%1' is no %2: wanted %3").arg(text, QLatin1String(what), QLatin1String(form)));
    return {text.left(at), text.mid(at + 1)};
}

constexpr char kScreenForm[] = "KIND:ID, as in regular:0";
constexpr char kLayerForm[] = "SCREEN/SCENE/ID, as in regular:0/pvw/3 or regular:0/pgm/cut:3";
constexpr char kSourceForm[] = "input:SLOT-CONNECTOR, pgm:ID, pvw:ID, bkg:ID, logo:ID or none";

} // namespace

QString screenText(const s_ScreenId &id) {
    return QStringLiteral("%1:%2").arg(wordOf(kScreenKinds, id.screenType)).arg(id.screenId);
}

QString sceneText(int scene) { return wordOf(kScenes, scene); }

QString layerKindText(int kind) { return wordOf(kLayerKinds, kind); }

QString layerText(const s_ScreenLayerId &id) {
    const QString kind =
        id.layerType == ownLayerKind(id.screenType) ? QString() : layerKindText(id.layerType) + QLatin1Char(':');
    return QStringLiteral("%1/%2/%3%4").arg(screenText(id), sceneText(id.sceneType), kind).arg(id.layerId);
}

QString cardText(Quorix::BizModel::Device &device, int slotId) {
    return QStringLiteral("%1 in slot %2").arg(device.subCardDescription(slotId, device.mvrEnabled())).arg(slotId);
}

QString sourceText(const s_LayerSourceGeneral &source) {
    switch (static_cast<Enum::Layer::SourceType>(source.type)) {
    case Enum::Layer::SourceType::Empty:
        return QStringLiteral("empty");
    case Enum::Layer::SourceType::NoSource:
        return QStringLiteral("none");
    case Enum::Layer::SourceType::Input:
        return QStringLiteral("input:") + interfaceText(source.id);
    default:
        return QStringLiteral("%1:%2").arg(wordOf(kSources, source.type)).arg(source.id);
    }
}

QString interfaceText(std::uint32_t id) { return QStringLiteral("%1-%2").arg(id >> 16U & 255U).arg(id >> 8U & 255U); }

int parseNumber(const QString &text, int minimum, int maximum, const char *what) {
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber || number < minimum || number > maximum)
        throw UsageError(
            QStringLiteral("'%1' is no %2: wanted %3 to %4").arg(text, QLatin1String(what)).arg(minimum).arg(maximum));
    return number;
}

s_ScreenId parseScreen(const QString &text) {
    const auto [kind, id] = halves(text, QLatin1Char(':'), "screen", kScreenForm);
    s_ScreenId screen;
    screen.screenType = valueOf(kScreenKinds, kind, "kind of screen");
    screen.screenId = static_cast<std::uint8_t>(parseNumber(id, 0, kMaxId, "screen id"));
    return screen;
}

s_InterfaceID parseInterface(const QString &text) {
    const auto [slot, connector] = halves(text, QLatin1Char('-'), "interface", "SLOT-CONNECTOR, as in 4-0");
    return {parseNumber(slot, 0, 255, "slot"), parseNumber(connector, 0, 255, "connector"), 0};
}

int parseScene(const QString &text) { return valueOf(kScenes, text, "scene"); }

s_ScreenLayerId parseLayer(const QString &text) {
    const QStringList parts = text.split(QLatin1Char('/'));
    if (parts.size() != 3)
        throw UsageError(QStringLiteral("'%1' is no layer: wanted %2").arg(text, QLatin1String(kLayerForm)));
    s_ScreenLayerId layer;
    static_cast<s_ScreenId &>(layer) = parseScreen(parts[0]);
    layer.sceneType = parseScene(parts[1]);
    const bool hasKind = parts[2].contains(QLatin1Char(':'));
    const QString kind = parts[2].section(QLatin1Char(':'), 0, 0);
    layer.layerType = hasKind ? valueOf(kLayerKinds, kind, "kind of layer") : ownLayerKind(layer.screenType);
    const QString id = hasKind ? parts[2].section(QLatin1Char(':'), 1) : parts[2];
    layer.layerId = static_cast<std::uint8_t>(parseNumber(id, 0, kMaxId, "layer id"));
    return layer;
}

s_LayerSourceGeneral parseSource(const QString &text) {
    s_LayerSourceGeneral source;
    if (text == QLatin1String("none")) {
        source.type = toInt(Enum::Layer::SourceType::NoSource);
        return source;
    }
    const auto [kind, id] = halves(text, QLatin1Char(':'), "source", kSourceForm);
    if (kind == QLatin1String("input")) {
        source.type = toInt(Enum::Layer::SourceType::Input);
        source.id = parseInterface(id).id();
        return source;
    }
    source.type = valueOf(kSources, kind, "kind of source");
    source.id = static_cast<std::uint32_t>(parseNumber(id, 0, kMaxId, "source id"));
    return source;
}

} // namespace quorixctl
