#include "command.h"
#include "hublistener.h"
#include "report.h"
#include "table.h"

#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/hub/devicelist.h>

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
std::shared_ptr<Device> feed(const ReportDocument &report) {
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
    device->setSyncDataSuccess(true);
    return device;
}

void printDevice(QTextStream &out, const std::shared_ptr<Device> &device, const ReportDocument &report) {
    out << device->deviceInfo() << "\n  model " << device->modelId() << ", version " << device->mainControlVersion()
        << ", MAC " << device->MAC() << ", SN " << device->sn() << "\n  at most " << device->maxScreenCnt(2)
        << " screens, " << device->maxRegulerLayerCnt() << " layers, " << device->maxPresetCount() << " presets";
    const int aux = device->typeName().isEmpty() ? 0 : device->maxAuxScreenCount();
    if (aux > 0)
        out << ", " << aux << " AUX screens";
    out << '\n';
    if (!report.detail)
        return;
    Table cards({QStringLiteral("slot"), QStringLiteral("label"), QStringLiteral("card"), QStringLiteral("name"),
                 QStringLiteral("connectors")});
    for (const Records::Device::s_subcardBody &card : report.detail->subcards)
        cards.addRow({QString::number(card.slotId), device->subCardDescription(card.slotId, false),
                      QString::number(card.modelId),
                      DeviceConfigManager::instance()->subCardName(
                          device->modelId(), static_cast<quint16>(card.modelId), static_cast<quint8>(card.slotId)),
                      QString::number(card.connectors.size())});
    if (!cards.isEmpty())
        cards.print(out, 2);
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
        printDevice(call.out, feed(report), report);
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
        feed(report);
}

} // namespace quorixctl
