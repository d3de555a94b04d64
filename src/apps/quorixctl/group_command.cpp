/// Groups of devices: who is in which, and how devices come and go.
#include "hublistener.h"
#include "session.h"
#include "table.h"

#include <quorixbizmodel/common/quorixbizconstants.h>
#include <quorixbizmodel/device/device.h>
#include <quorixbizmodel/hub/devicelist.h>

#include <algorithm>

namespace quorixctl {
namespace {

using namespace Quorix::BizModel;
using Group = Quorix::ProtoModel::Device::s_DeviceGroupInfoBody;
using Devices = std::vector<std::shared_ptr<Device>>;

QString namesOf(const QList<std::weak_ptr<Device>> &devices) {
    QStringList names;
    for (const auto &reference : devices)
        if (const auto device = reference.lock())
            names << device->name();
    return names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", "));
}

void printGroups(const Invocation &call) {
    auto *hub = DeviceList::instance();
    Table table({QStringLiteral("device"), QStringLiteral("address"), QStringLiteral("group"), QStringLiteral("name"),
                 QStringLiteral("counts"), QStringLiteral("controlled by")});
    QStringList ids;
    for (const auto &device : hub->deviceList()) {
        ids << device->groupId();
        table.addRow({device->name(), device->IPAddress(), device->groupId(), device->groupName(),
                      device->deviceGroupStatus() ? QStringLiteral("yes") : QStringLiteral("no"),
                      device->isMasterControl() ? QStringLiteral("us") : QStringLiteral("others")});
    }
    table.print(call.out, 2);
    ids.removeDuplicates();
    ids.removeAll(Constants::Device::defaultDeviceGroupId);
    for (const QString &id : qAsConst(ids))
        call.out << "group " << id << ": "
                 << namesOf(hub->groupDevices(id, call.options.isSet(QStringLiteral("controlled")),
                                              call.options.isSet(QStringLiteral("refused"))))
                 << '\n';
    call.out << "in no group: " << namesOf(hub->unGroupDevices()) << '\n';
}

/// ID or ID=NAME.
Group parseGroup(const QString &text) {
    const QString id = text.section(QLatin1Char('='), 0, 0);
    if (id.isEmpty() || id == Constants::Device::defaultDeviceGroupId)
        throw UsageError(QStringLiteral("'%1' is no group: wanted ID or ID=NAME, the id other than 0").arg(text));
    return {text.section(QLatin1Char('='), 1).toStdString(), id.toStdString()};
}

/// The devices that the user names, or all of them.
Devices wantedDevices(Devices devices, const QStringList &names) {
    for (const QString &name : names)
        if (std::none_of(devices.begin(), devices.end(), [&](const auto &device) { return device->name() == name; }))
            throw Failure(QStringLiteral("there is no device %1").arg(name));
    if (!names.isEmpty())
        std::erase_if(devices, [&](const auto &device) { return !names.contains(device->name()); });
    return devices;
}

} // namespace

void addGroupOptions(QCommandLineParser &parser) {
    parser.addOption(
        {QStringLiteral("join"), QStringLiteral("Let devices enter a group."), QStringLiteral("ID[=NAME]")});
    parser.addOption({QStringLiteral("leave"), QStringLiteral("Let devices leave their groups.")});
    parser.addOption({QStringLiteral("device"),
                      QStringLiteral("Name of a device that joins or leaves; may be given again (default: all)."),
                      QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("controlled"),
                      QStringLiteral("Count online devices that another client controls as members, too.")});
    parser.addOption(
        {QStringLiteral("refused"), QStringLiteral("Count devices that came to a full group as members, too.")});
}

void runGroup(const Invocation &call) {
    const bool isJoin = call.options.isSet(QStringLiteral("join"));
    const bool isLeave = call.options.isSet(QStringLiteral("leave"));
    if (isJoin && isLeave)
        throw UsageError(QStringLiteral("group takes --join or --leave, not both"));
    const Group group = isJoin ? parseGroup(call.options.value(QStringLiteral("join"))) : Group();
    const auto reports = readReports(call);
    const HubSession session(call);
    Devices devices;
    devices.reserve(reports.size());
    for (const ReportDocument &report : reports)
        devices.push_back(feed(report, call.out));
    printGroups(call);
    if (!isJoin && !isLeave)
        return;
    devices = wantedDevices(std::move(devices), call.options.values(QStringLiteral("device")));
    {
        const HubListener listener(call.out);
        for (const auto &device : devices)
            device->updateDeviceGroupInfo(group);
        deliverQueuedSignals();
    }
    printGroups(call);
}

} // namespace quorixctl
