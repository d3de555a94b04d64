/// Device groups: who belongs to one, and what a report makes of a device's membership.
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <support/builders.h>
#include <support/eventlog.h>

#include <gmock/gmock.h>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using Group = Quorix::ProtoModel::Device::s_DeviceGroupInfoBody;

QString names(const QList<std::weak_ptr<Device>> &devices) {
    QStringList texts;
    for (const auto &device : devices)
        texts += device.lock()->name();
    return texts.join(' ');
}

struct Groups : testing::Test {
    HubScope scope;
    DeviceList *hub = DeviceList::instance();

    /// Its name is its address.
    static std::shared_ptr<Device> member(const QString &ip, const QString &group) {
        auto device = appendedDevice({.name = ip, .ip = ip});
        device->setDeviceGroupId(group);
        return device;
    }
};

TEST_F(Groups, ListsMembersByNumberAndTheOthersByText) {
    member("10.0.0.10", "a"), member("10.0.0.9", "a");
    member("10.0.1.10", {});
    const auto invalid = member("10.0.0.1", "a"), foreign = member("10.0.0.2", "a"), alone = member("10.0.1.9", "0");
    invalid->setDeviceGroupStatus(false);
    foreign->setDeviceOnlineFlag(true);
    EXPECT_EQ(names(hub->groupDevices("a", false, false)), "10.0.0.9 10.0.0.10");
    EXPECT_EQ(names(hub->groupDevices("a", true, false)), "10.0.0.2 10.0.0.9 10.0.0.10");
    EXPECT_EQ(names(hub->groupDevices(foreign, false, true)), "10.0.0.1 10.0.0.9 10.0.0.10");
    EXPECT_EQ(names(hub->groupDevices("0", true, true)), "10.0.1.9");
    EXPECT_EQ(names(hub->groupDevices(invalid, true, true)), "10.0.0.1");
    alone->setDeviceOnlineFlag(true);
    EXPECT_EQ(names(hub->groupDevices(alone, false, false)), "10.0.1.9");
    EXPECT_TRUE(hub->groupDevices(std::weak_ptr<Device>(), true, true).isEmpty());
    EXPECT_EQ(names(hub->unGroupDevices()), "10.0.1.10 10.0.1.9");
}

TEST_F(Groups, ChangesSignalOnceAndCountWithTheNewIdAndTheOldStatus) {
    for (int i = 1; i < Constants::Device::groupDeviceMaxCount; ++i)
        member(QStringLiteral("10.0.0.%1").arg(i), "a");
    const auto device = member("10.0.1.1", "0");
    EventLog log(device.get());
    QString outcomes; // signals and status; the first time in "a" the device counts itself as the eighth
    const std::vector<Group> reports[] = {
        {}, {{"Bühne", "a"}, {"", "0"}}, {{"Bühne", "a"}}, {{"Wand", "a"}}, {{"Wand", "0"}}, {}, {{"", ""}}};
    for (const auto &report : reports) {
        device->updateDeviceGroupInfo(report);
        outcomes += QStringLiteral("%1%2 ").arg(log.take().size()).arg(device->deviceGroupStatus());
    }
    EXPECT_EQ(outcomes, "01 10 00 11 10 10 11 ");
    device->setDeviceGroupName("Bühne");
    device->setDeviceGroupName("Bühne");
    device->setDeviceGroupStatus(true);
    EXPECT_EQ(log.take().size(), 1);
    EXPECT_EQ(device->groupName() + device->groupId(), "Bühne");

    Device unknown(29958); // not in the registry: only the others count
    unknown.updateDeviceGroupInfo(Group{.groupName = "wall", .groupId = "a"});
    EXPECT_TRUE(unknown.deviceGroupStatus());
}

} // namespace
