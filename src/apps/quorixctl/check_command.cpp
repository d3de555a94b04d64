#include "address.h"
#include "session.h"
#include "table.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/resources/resourceexplanation.h>
#include <quorixbizmodel/screens/screen.h>
#include <quorixbizmodel/topology/output.h>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;

/// Pixels; more than any wall has.
constexpr int kMaxSide = 1000000;

QRect parseRect(const QString &text) {
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 4)
        throw UsageError(QStringLiteral("'%1' is no rectangle: wanted x,y,width,height").arg(text));
    return {parseNumber(parts[0], -kMaxSide, kMaxSide, "position"),
            parseNumber(parts[1], -kMaxSide, kMaxSide, "position"), parseNumber(parts[2], 1, kMaxSide, "size"),
            parseNumber(parts[3], 1, kMaxSide, "size")};
}

QString rectText(const QRect &rect) {
    return QStringLiteral("%1x%2 at %3,%4").arg(rect.width()).arg(rect.height()).arg(rect.x()).arg(rect.y());
}

QString layerName(const Layer &layer) {
    return layer.layerId() == Constants::Layer::maxId ? QStringLiteral("new") : layerText(layer.screenLayerId());
}

/// The layer that is to move, or one that is to come, with the source that the user names.
std::shared_ptr<Layer> proposedLayer(const std::shared_ptr<Screen> &screen, int scene, const QString &name,
                                     const QString &source) {
    const bool isNew = name == QLatin1String("new");
    if (!isNew && !source.isEmpty())
        throw UsageError(QStringLiteral("--source is for a new layer"));
    auto id =
        parseLayer(QStringLiteral("%1/%2/%3")
                       .arg(screenText(screen->screenIdenti()), sceneText(scene), isNew ? QStringLiteral("0") : name));
    if (!isNew) {
        auto layer = screen->layer(id).lock();
        if (layer == nullptr)
            throw Failure(QStringLiteral("there is no layer %1").arg(layerText(id)));
        return layer;
    }
    id.layerId = Constants::Layer::maxId;
    auto layer = Screen::createLayer(static_cast<Enum::Layer::LayerType>(id.layerType));
    Layer::Detail detail = layer->layerDetail();
    detail.layerIdenti = id;
    detail.source.general = parseSource(source.isEmpty() ? QStringLiteral("none") : source);
    QString error;
    layer->initModelData(screen, detail, error);
    if (layer->capacity() == Enum::Interface::CapacityMode::invaild)
        layer->setCapacity(Enum::Interface::CapacityMode::_SL);
    return layer;
}

/// One row for each piece of a layer; the layer itself stands in the first.
void addRows(Table &table, const QString &what, const ResourceExplanation::LayerCost &cost, bool isTakenOff = false) {
    const auto layer = cost.layer.lock();
    if (layer == nullptr)
        return;
    QStringList lead{what, layerName(*layer), layer->sourceName(), rectText(cost.rect)};
    if (cost.pieces.empty())
        table.addRow(lead + QStringList{QString(), QStringLiteral("0")});
    for (const ResourceExplanation::Piece &piece : cost.pieces) {
        table.addRow(lead +
                     QStringList{rectText(piece.rect), QString::number(isTakenOff ? -piece.units : piece.units)});
        lead = QStringList{QString(), QString(), QString(), QString()};
    }
}

QString outputNames(const QList<std::weak_ptr<Output>> &outputs) {
    QStringList names;
    for (const auto &output : outputs)
        names << output.lock()->name();
    return names.join(QStringLiteral(", "));
}

void printCard(QTextStream &out, Device &device, const Screen &screen, const ResourceExplanation::Card &card) {
    out << '\n' << cardText(device, card.slotId) << ": " << card.units() << " of " << card.limit << " units";
    if (card.limit < card.budget)
        out << " (the card has " << card.budget << ", another of the screen fewer)";
    out << (card.fits() ? "\n" : ": too many\n");
    Table table({QStringLiteral("on the card"), QStringLiteral("layer"), QStringLiteral("source"),
                 QStringLiteral("window"), QStringLiteral("piece"), QStringLiteral("units")});
    for (const ResourceExplanation::ScreenCost &cost : card.screens) {
        const auto other = cost.screen.lock();
        const QString what = other.get() == &screen
                                 ? QStringLiteral("present")
                                 : QStringLiteral("%1, %2").arg(other->name(), sceneText(toInt(cost.scene)));
        for (const ResourceExplanation::LayerCost &layer : cost.layers)
            addRows(table, what, layer);
    }
    for (const ResourceExplanation::Change &change : card.changes) {
        if (change.before.units > 0)
            addRows(table, QStringLiteral("taken off"), change.before, true);
        addRows(table, QStringLiteral("proposed"), change.after);
    }
    table.print(out, 2);
    if (!card.outputsInTheWay.isEmpty())
        out << "  in the way: " << outputNames(card.outputsInTheWay) << '\n';
}

} // namespace

void addCheckOptions(QCommandLineParser &parser) {
    parser.addOption({QStringLiteral("screen"), QStringLiteral("Screen, as in regular:0; a number alone is regular."),
                      QStringLiteral("ID")});
    parser.addOption(
        {QStringLiteral("layer"), QStringLiteral("Number of the layer, or new."), QStringLiteral("ID|new")});
    parser.addOption({QStringLiteral("rect"), QStringLiteral("Window that the layer is to have, in pixels."),
                      QStringLiteral("x,y,w,h")});
    parser.addOption({QStringLiteral("scene"), QStringLiteral("pvw or pgm (default: the one that is edited)."),
                      QStringLiteral("SCENE")});
    parser.addOption({QStringLiteral("source"), QStringLiteral("Source of a new layer (default: none, a single link)."),
                      QStringLiteral("SOURCE")});
}

void runCheck(const Invocation &call) {
    const auto option = [&](const char *name) { return call.options.value(QString::fromLatin1(name)); };
    for (const char *name : {"screen", "layer", "rect"})
        if (option(name).isEmpty())
            throw UsageError(QStringLiteral("check wants --%1").arg(QLatin1String(name)));
    const QString screenName = option("screen");
    const auto screenId =
        parseScreen(screenName.contains(QLatin1Char(':')) ? screenName : QStringLiteral("regular:") + screenName);
    const QRect rect = parseRect(option("rect"));

    const ReportDocument report = readReport(call.arguments[0]);
    const HubSession session(call);
    const auto device = feed(report, call.out);
    const auto screen = screenOf(*device, screenId);
    if (!hasAnyBit(screenId.screenType,
                   maskOf(Enum::Screen::ScreenType::RegularScreen, Enum::Screen::ScreenType::AUXScreen)))
        throw Failure(QStringLiteral("cards are checked for regular and AUX screens alone"));
    const auto edited = screen->PGMEdit() ? Enum::Layer::SceneType::PGM : Enum::Layer::SceneType::PVW;
    const int scene = option("scene").isEmpty() ? toInt(edited) : parseScene(option("scene"));
    const auto layer = proposedLayer(screen, scene, option("layer"), option("source"));

    const ResourceExplanation explanation =
        explainResources(screen, {{layer, rect}}, static_cast<Enum::Layer::SceneType>(scene), {});
    call.out << screen->name() << ", " << sceneText(scene) << ": layer " << layerName(*layer) << ", " << rectText(rect)
             << ',' << (explanation.fits ? " fits\n" : " doesn't fit\n");
    for (const ResourceExplanation::Card &card : explanation.cards)
        printCard(call.out, *device, *screen, card);
    if (!explanation.fits)
        throw Failure(explanation.invalidOutputs.isEmpty()
                          ? QStringLiteral("doesn't fit")
                          : QStringLiteral("doesn't fit: %1").arg(outputNames(explanation.invalidOutputs)));
}

} // namespace quorixctl
