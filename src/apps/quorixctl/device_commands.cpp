#include "command.h"
#include "hublistener.h"
#include "report.h"
#include "table.h"

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/capability/interfaceconfig.h>
#include <quorixbizmodel/common/helper.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/hub/devicelist.h>
#include <quorixbizmodel/topology/connector.h>
#include <quorixbizmodel/topology/interface.h>
#include <quorixbizmodel/topology/subcard.h>

#include <iterator>
#include <utility>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
namespace Records = Quorix::ProtoModel;

/// Empties the hub when a command ends, so that the next one of this process starts with none.
class HubSession {
public:
    HubSession() = default;
    HubSession(const HubSession &) = delete;
    HubSession &operator=(const HubSession &) = delete;
    ~HubSession() { DeviceList::instance()->clear(); }
};

/// Brings a reported processor into the hub, through the operations that a protocol layer calls.
/// What the device refuses goes to @p notes; the rest goes in.
std::shared_ptr<Device> feed(const ReportDocument &report, QTextStream &notes) {
    const auto device = std::make_shared<Device>(report.modelId, nullptr);
    DeviceList::instance()->append(device);
    if (report.baseInfo)
        device->updateDeviceBaseInfo(*report.baseInfo);
    if (report.detail) {
        device->setName(QString::fromStdString(report.detail->general.name));
        device->setOperationStatus(static_cast<Enum::Device::OperationStatus>(report.detail->general.status));
        if (!report.detail->networks.empty()) {
            const Records::Device::s_NetworkBody &network = report.detail->networks.front();
            device->setIPAddress(QString::fromStdString(network.ip));
            device->setNetMask(QString::fromStdString(network.subnetMask));
            device->setGateWay(QString::fromStdString(network.gateway));
        }
    }
    device->setDeviceOnlineFlag(true);
    if (report.detail)
        for (const Records::Device::s_subcardBody &card : report.detail->subcards) {
            device->initProtoConnector(card);
            device->initModelConnector(card);
        }
    if (report.interfaces)
        for (const Records::Interface::s_InterfaceDetail &detail : *report.interfaces)
            if (QString error; !device->addInterface(detail, error))
                notes << "interface " << detail.interfaceId.id() << ": " << error << '\n';
    device->setSyncDataSuccess(true);
    return device;
}

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
    static const char *const kWorkModes[] = {"master", "backup", "no output"};
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
            const auto mode = static_cast<std::size_t>(connector->workMode());
            table.addRow(cardCells +
                         QStringList{QString::number(connector->id()), connectorTypeName(connector->type()),
                                     Helper::interfaceCapacityString(connector->capacityMode()),
                                     mode < std::size(kWorkModes) ? QString::fromLatin1(kWorkModes[mode])
                                                                  : QStringLiteral("-")} +
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

/// All documents are read before the first device appears: a bad one leaves the hub empty.
std::vector<ReportDocument> readReports(const Invocation &call) {
    std::vector<ReportDocument> reports;
    for (const QString &path : call.arguments)
        reports.push_back(readReport(path));
    return reports;
}

} // namespace

void runShow(const Invocation &call) {
    readCapabilities(call.dataDirectory);
    const std::vector<ReportDocument> reports = readReports(call);
    const HubSession session;
    for (const ReportDocument &report : reports) {
        printDevice(call.out, feed(report, call.out));
        call.out << '\n';
    }
    call.out << DeviceList::instance()->count() << " devices\n";
}

void runEvents(const Invocation &call) {
    readCapabilities(call.dataDirectory);
    const std::vector<ReportDocument> reports = readReports(call);
    const HubSession session;
    const HubListener listener([&](const HubEvent &event) {
        ajson::ajson_string_stream<> stream;
        ajson::lite_write<ajson::ajson_string_stream<>> writer(stream);
        ajson::json_impl<HubEvent>::write(writer, event);
        call.out << QString::fromUtf8(stream.data(), static_cast<int>(stream.write_length())) << '\n';
    });
    for (const ReportDocument &report : reports)
        feed(report, call.out);
}

} // namespace quorixctl
