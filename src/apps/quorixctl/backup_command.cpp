/// Hot backup pairs of a device, and what it does when one of a pair takes over.
#include "address.h"
#include "hublistener.h"
#include "session.h"
#include "table.h"

#include <quorixbizmodel/common/enumtools.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/layers/layer.h>
#include <quorixbizmodel/topology/input.h>

#include <algorithm>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
using Quorix::ProtoModel::Device::s_Relation;

std::int32_t parseMember(const QString &text) { return static_cast<std::int32_t>(parseInterface(text).id()); }

QString memberText(Device &device, std::int32_t id) {
    const auto packed = static_cast<std::uint32_t>(id);
    const auto input = device.findInput(packed).lock();
    return QStringLiteral("%1 %2").arg(interfaceText(packed), input ? input->name() : QStringLiteral("missing"));
}

QString layerCount(Device &device, std::int32_t id) {
    const auto layers = device.layersBySource(static_cast<std::uint32_t>(id), Enum::Layer::SourceType::Input,
                                              toInt(Enum::Screen::ScreenType::AllScreenType),
                                              toInt(Enum::Layer::LayerType::AllLayerType));
    return QString::number(layers.size());
}

void printPairs(QTextStream &out, Device &device) {
    const auto relation = device.interfaceRelation();
    out << device.name() << ": hot backup is " << (relation.enable != 0 ? "on" : "off")
        << ", pairs: " << relation.relation.size() << '\n';
    Table table({QStringLiteral("A"), QStringLiteral("layers"), QStringLiteral("B"), QStringLiteral("layers"),
                 QStringLiteral("in force")});
    for (const s_Relation &pair : relation.relation)
        table.addRow({memberText(device, pair.interfaceA), layerCount(device, pair.interfaceA),
                      memberText(device, pair.interfaceB), layerCount(device, pair.interfaceB),
                      memberText(device, pair.actualInterface)});
    if (!table.isEmpty())
        table.print(out, 2);
}

} // namespace

void runBackup(const Invocation &call) {
    const bool isSwitch = call.arguments.size() == 4 && call.arguments[1] == QLatin1String("switch");
    if (!isSwitch && call.arguments.size() > 1)
        throw UsageError(QStringLiteral("backup takes: REPORT [switch A B]"));
    const std::int32_t failed = isSwitch ? parseMember(call.arguments[2]) : 0;
    const std::int32_t actual = isSwitch ? parseMember(call.arguments[3]) : 0;
    const ReportDocument report = readReport(call.arguments[0]);
    const HubSession session(call);
    const auto device = feed(report, call.out);
    printPairs(call.out, *device);
    if (!isSwitch)
        return;
    auto pairs = device->interfaceRelation().relation;
    const auto pair = std::find_if(pairs.begin(), pairs.end(), [&](const s_Relation &entry) {
        return std::minmax(entry.interfaceA, entry.interfaceB) == std::minmax(failed, actual);
    });
    if (pair == pairs.end())
        throw Failure(QStringLiteral("%1 and %2 are no pair").arg(call.arguments[2], call.arguments[3]));
    pair->actualInterface = actual;
    {
        // As a processor reports it: every pair, with the one in force.
        const HubListener listener(call.out);
        device->updateInterfaceRelation(pairs);
        deliverQueuedSignals();
    }
    printPairs(call.out, *device);
}

} // namespace quorixctl
