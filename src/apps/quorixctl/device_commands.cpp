#include "command.h"
#include "hublistener.h"
#include "screen_tables.h"
#include "session.h"
#include "table.h"

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixbizmodel/topology/interface.h>
#include <quorixbizmodel/topology/subcard.h>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;

QString modeText(const QSize &size, float rate, bool isInterlaced) {
    return size.isEmpty() ? QStringLiteral("-") : Helper::formatFramerate(size, rate, isInterlaced);
}

/// Name, preset and actual timing, colour and overload of an interface.
QStringList interfaceCells(const std::shared_ptr<Interface> &interface) {
    if (!interface)
        return {};
    return {interface->name(),
            modeText(interface->presetFrameRate(), interface->presetRefreshRate(), interface->presetInterlacing()),
            modeText(interface->getFrameRate(), interface->getRefreshRate(), interface->actualInterlacing()),
            QStringLiteral("%1, %2").arg(Helper::interfaceColorSpaceString(interface->validColorSpace()),
                                         Helper::interfaceBitDepthString(interface->validColorDepth())),
            interface->isOverLoad() ? QStringLiteral("overload") : QString()};
}

/// The tree of slots, cards and connectors, with the input or output behind each connector.
void printSlots(QTextStream &out, const std::shared_ptr<Device> &device) {
    Table table({QStringLiteral("slot"), QStringLiteral("card"), QStringLiteral("name"), QStringLiteral("port"),
                 QStringLiteral("type"), QStringLiteral("capacity"), QStringLiteral("work"),
                 QStringLiteral("interface"), QStringLiteral("preset"), QStringLiteral("actual"),
                 QStringLiteral("colour"), QStringLiteral("state")});
    for (const auto &weakCard : device->subcards()) {
        const auto card = weakCard.lock();
        QStringList cardCells{device->subCardDescription(card->slotId(), device->mvrEnabled()),
                              QString::number(card->modelId()),
                              DeviceConfigManager::instance()->subCardName(
                                  device->modelId(), static_cast<quint16>(card->modelId()), card->slotId())};
        const QString trouble = Device::slotErrorDescription(static_cast<uint8_t>(card->onlineStatus()));
        if (!trouble.isEmpty())
            cardCells[2] += QStringLiteral(" (%1)").arg(trouble);
        for (const auto &weakConnector : card->connectors()) {
            const auto connector = weakConnector.lock();
            table.addRow(cardCells +
                         QStringList{QString::number(connector->id()), connectorTypeName(connector->type()),
                                     Helper::interfaceCapacityString(connector->capacityMode()),
                                     workModeName(toInt(connector->workMode()))} +
                         interfaceCells(device->interface(card->slotId(), connector->id()).lock()));
            cardCells = QStringList{QString(), QString(), QString()};
        }
        if (!cardCells.first().isEmpty())
            table.addRow(cardCells);
    }
    if (!table.isEmpty())
        table.print(out, 2);
}

void printDevice(QTextStream &out, const std::shared_ptr<Device> &device) {
    out << device->deviceInfo() << "\n  model " << device->modelId() << ", version " << device->mainControlVersion()
        << ", MAC " << device->MAC() << ", SN " << device->sn() << "\n  at most " << device->maxScreenCnt(2)
        << " screens, " << device->maxRegulerLayerCnt() << " layers, " << device->maxPresetCount() << " presets";
    const int aux = device->typeName().isEmpty() ? 0 : device->maxAuxScreenCount();
    if (aux > 0)
        out << ", " << aux << " AUX screens";
    out << '\n';
    printSlots(out, device);
}

} // namespace

void runShow(const Invocation &call) {
    const std::vector<ReportDocument> reports = readReports(call);
    const HubSession session(call);
    for (const ReportDocument &report : reports) {
        const auto device = feed(report, call.out);
        printDevice(call.out, device);
        printScreens(call.out, device);
        call.out << '\n';
    }
    call.out << DeviceList::instance()->count() << " devices\n";
}

void runEvents(const Invocation &call) {
    const std::vector<ReportDocument> reports = readReports(call);
    const HubSession session(call);
    const HubListener listener(call.out);
    for (const ReportDocument &report : reports)
        feed(report, call.out);
}

} // namespace quorixctl
