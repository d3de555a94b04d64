/// The multiviewer, opened and closed as an application does it: it asks first, and the screens are its own affair.
#include "address.h"
#include "hublistener.h"
#include "session.h"
#include "table.h"

#include <quorixbizmodel/capability/quorixbizstruct.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/screens/mvrscreen.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixbizmodel/topology/output.h>
#include <quorixbizmodel/topology/subcard.h>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
using Enum::Interface::InterfaceType;
using Enum::Screen::ScreenType;
using Quorix::ProtoModel::Screen::s_EnableArray;

constexpr int kMultiviewers = toInt(ScreenType::MVRScreen);

/// A screen for each place of a multiviewer. It has the default mode of the connector, which the output takes on when
/// the multiviewer opens.
s_EnableArray screensToOpen(const std::shared_ptr<Device> &device) {
    s_EnableArray enables;
    QVector<QString> names;
    for (const auto &place : device->deviceConfig().MVRScreensCfg.mvrScreenConfigs()) {
        const auto output = device->findOutput(place.SlotIndex, place.ConnectorIndex).lock();
        if (!output)
            continue;
        const auto screen = device->createDefaultScreen(ScreenType::MVRScreen, 1, 1);
        screen->setOwerDevice(device);
        screen->addOutput(output, QPoint(), false);
        screen->setOutputAOI({{output, QRect(QPoint(), output->connectorInfo().m_sizeDefaultResolution)}});
        names << device->nextMVRScreenName(names);
        auto enable = screen->screenEnableStruct();
        enable.screenId = static_cast<uint8_t>(enables.size());
        enable.general.name = names.last().toStdString();
        enables.push_back(std::move(enable));
    }
    return enables;
}

/// Refused, with what the model says.
[[noreturn]] void refuse(const QString &reason) {
    throw Failure(reason.isEmpty() ? QStringLiteral("the chassis has no place for a multiviewer") : reason);
}

void open(const std::shared_ptr<Device> &device, const Invocation &call) {
    if (device->isOpenedMVR())
        refuse(QStringLiteral("the multiviewer is open already"));
    QString reason;
    if (!device->isAllowOpenMVR(reason))
        refuse(reason);
    if (!reason.isEmpty()) // one of several cards is missing
        call.out << "note: " << reason << '\n';
    device->openMVR(screensToOpen(device), true);
}

void close(const std::shared_ptr<Device> &device, const Invocation &call) {
    const auto screens = device->screens(kMultiviewers);
    if (screens.isEmpty())
        refuse(QStringLiteral("the multiviewer isn't open"));
    if (call.options.isSet(QStringLiteral("empty")))
        for (const auto &reference : screens)
            if (const auto screen = reference.lock())
                screen->removeLayer(screen->layers(Enum::Layer::SceneType::PGM));
    if (QString reason; !device->isAllowCloseMVR(reason))
        refuse(reason);
    device->removeScreens(screens);
    device->closeMVR();
}

constexpr struct {
    const char *name;
    void (*run)(const std::shared_ptr<Device> &, const Invocation &);
} kVerbs[] = {{"open", open}, {"close", close}};

QString kindText(const Output &output) {
    switch (static_cast<InterfaceType>(output.type())) {
    case InterfaceType::MVROutput:
        return QStringLiteral("multiviewer");
    case InterfaceType::AUXOutput:
        return QStringLiteral("AUX");
    default:
        return QStringLiteral("main");
    }
}

/// The screen with its content, as far as it is a multiviewer.
QString contentText(const std::shared_ptr<Screen> &screen) {
    if (!screen)
        return {};
    QString text = QStringLiteral("%1 %2").arg(screenText(screen->screenIdentity()), screen->name());
    if (const auto multiviewer = std::dynamic_pointer_cast<MVRScreen>(screen)) {
        const QSize size = screen->mosaicWindowSize();
        const QSize grid = multiviewer->rowColSpan();
        text += QStringLiteral(", %1x%2, grid %3x%4, layers: %5")
                    .arg(size.width())
                    .arg(size.height())
                    .arg(grid.width())
                    .arg(grid.height())
                    .arg(screen->layers(Enum::Layer::SceneType::PGM).size());
    }
    return text;
}

/// The ports of the cards that are, or may become, multiviewers.
void printState(QTextStream &out, const std::shared_ptr<Device> &device) {
    out << device->name() << ": the multiviewer is " << (device->isOpenedMVR() ? "open\n" : "closed\n");
    if (device->typeName().isEmpty()) // a report without a model
        return;
    Table table({QStringLiteral("port"), QStringLiteral("work"), QStringLiteral("output"), QStringLiteral("kind"),
                 QStringLiteral("screen")});
    for (const auto &place : device->deviceConfig().MVRScreensCfg.mvrScreenConfigs()) {
        const auto card = device->slot(place.SlotIndex).lock();
        for (const auto &reference : card ? card->connectors() : QList<std::weak_ptr<Connector>>())
            if (const auto connector = reference.lock()) {
                const Quorix::ProtoModel::s_InterfaceID id{place.SlotIndex, connector->id(), 0};
                QStringList row{interfaceText(id.id()), workModeName(toInt(connector->workMode()))};
                if (const auto output = device->findOutput(id.id()).lock())
                    row << output->name() << kindText(*output)
                        << contentText(device->findScreenOfUseOutput(output).lock());
                table.addRow(row);
            }
    }
    if (!table.isEmpty())
        table.print(out, 2);
}

} // namespace

void addMvrOptions(QCommandLineParser &parser) {
    parser.addOption({QStringLiteral("empty"), QStringLiteral("close: remove the layers of the multiviewer first.")});
}

void runMvr(const Invocation &call) {
    const auto &verb = rowNamed(kVerbs, call.arguments[0], "mvr");
    const auto reports = readReports({call.options, call.arguments.mid(1), call.dataDirectory, call.out});
    const HubSession session(call);
    QStringList refusals;
    for (const ReportDocument &report : reports) {
        const auto device = feed(report, call.out);
        try {
            const HubListener listener(call.out);
            verb.run(device, call);
            deliverQueuedSignals();
        } catch (const Failure &refusal) {
            refusals << QStringLiteral("%1: %2").arg(device->name(), QString::fromUtf8(refusal.what()));
        }
        printState(call.out, device);
    }
    if (!refusals.isEmpty())
        throw Failure(refusals.join(QLatin1Char('\n')));
}

} // namespace quorixctl
