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

TEST_F(Groups, TakesAReportWithOneSignal) {
    const auto device = member("10.0.0.1", "0");
    EventLog log(device.get());
    device->setDeviceGroupName("Bühne");
    device->setDeviceGroupName("Bühne");
    device->setDeviceGroupStatus(true);
    device->updateDeviceGroupInfo(Group{.groupName = "Bühne", .groupId = "0"});
    EXPECT_TRUE(log.take().size() == 1 && device->deviceGroupStatus());
    device->updateDeviceGroupInfo(std::vector<Group>());
    EXPECT_TRUE(log.take().size() == 1 && !device->deviceGroupStatus());
    EXPECT_EQ(device->groupName() + device->groupId(), "0");
}

TEST_F(Groups, CountsWithTheNewIdAndTheOldStatus) {
    for (int i = 1; i < Constants::Device::groupDeviceMaxCount; ++i)
        member(QStringLiteral("10.0.0.%1").arg(i), "a");
    const auto fresh = member("10.0.1.1", "0");
    const auto unknown = std::make_shared<Device>(quint16{29958}); // not in the registry: only the others count
    const auto isMember = [](Device &device, const char *name) {
        device.updateDeviceGroupInfo(Group{.groupName = name, .groupId = "a"});
        return device.deviceGroupStatus();
    };
    EXPECT_FALSE(isMember(*fresh, "wall")); // counts itself as the eighth
    EXPECT_TRUE(isMember(*fresh, "new wall"));
    EXPECT_FALSE(isMember(*unknown, "wall"));
    fresh->setDeviceGroupId("b");
    EXPECT_TRUE(isMember(*unknown, "other"));
}

} // namespace
