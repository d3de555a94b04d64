/// Device groups: who belongs to one, and what a report makes of a device's membership.
#include <quorixbizmodel/common/quorixbizconstants.h>
#include <support/builders.h>
#include <support/eventlog.h>

#include <gmock/gmock.h>

namespace {

using namespace Quorix::BizModel;
using namespace Quorix::Tests;
using Group = Quorix::ProtoModel::Device::s_DeviceGroupInfoBody;
using testing::ElementsAre;
using testing::IsEmpty;

QString operator""_q(const char *text, std::size_t size) { return QString::fromUtf8(text, static_cast<int>(size)); }

QStringList names(const QList<std::weak_ptr<Device>> &devices) {
    QStringList texts;
    for (const auto &device : devices)
        texts += device.lock()->name();
    return texts;
}

struct Groups : testing::Test {
    HubScope scope;
    DeviceList *hub = DeviceList::instance();

    static std::shared_ptr<Device> member(const QString &name, const QString &ip, const QString &group) {
        auto device = appendedDevice({.name = name, .ip = ip});
        device->setDeviceGroupId(group);
        return device;
    }
};

TEST_F(Groups, ListsMembersByNumberAndTheOthersByText) {
    const auto ten = member("ten"_q, "10.0.0.10"_q, "a"_q);
    const auto nine = member("nine"_q, "10.0.0.9"_q, "a"_q);
    const auto invalid = member("invalid"_q, "10.0.0.1"_q, "a"_q);
    const auto foreign = member("foreign"_q, "10.0.0.2"_q, "a"_q);
    const auto zero = member("zero"_q, "10.0.0.9"_q, "0"_q);
    const auto blank = member("blank"_q, "10.0.0.10"_q, {});
    invalid->setDeviceGroupStatus(false);
    foreign->setDeviceOnlineFlag(true);
    EXPECT_THAT(names(hub->groupDevices("a"_q, false, false)), ElementsAre("nine"_q, "ten"_q));
    EXPECT_THAT(names(hub->groupDevices("a"_q, true, false)), ElementsAre("foreign"_q, "nine"_q, "ten"_q));
    EXPECT_THAT(names(hub->groupDevices(foreign, false, true)), ElementsAre("invalid"_q, "nine"_q, "ten"_q));
    EXPECT_THAT(names(hub->groupDevices("0"_q, true, true)), ElementsAre("zero"_q));
    EXPECT_THAT(names(hub->groupDevices(invalid, true, true)), ElementsAre("invalid"_q));
    EXPECT_THAT(names(hub->groupDevices(zero, false, false)), ElementsAre("zero"_q));
    EXPECT_THAT(hub->groupDevices(std::weak_ptr<Device>(), true, true), IsEmpty());
    EXPECT_THAT(names(hub->unGroupDevices()), ElementsAre("blank"_q, "zero"_q));
}

TEST_F(Groups, SignalsOnceForEachChange) {
    const auto device = member("device"_q, "10.0.0.1"_q, "0"_q);
    EventLog log(device.get());
    device->setDeviceGroupName("Bühne"_q);
    device->setDeviceGroupName("Bühne"_q);
    device->setDeviceGroupStatus(true);
    device->updateDeviceGroupInfo(Group{.groupName = "Bühne", .groupId = "0"});
    EXPECT_EQ(log.take().size(), 1);
    EXPECT_TRUE(device->deviceGroupStatus());
    device->updateDeviceGroupInfo(std::vector<Group>());
    EXPECT_EQ(log.take().size(), 1);
    EXPECT_FALSE(device->deviceGroupStatus());
    EXPECT_EQ(device->groupName() + device->groupId(), "0"_q);
}

TEST_F(Groups, CountsWithTheNewIdAndTheOldStatus) {
    for (int i = 1; i < Constants::Device::groupDeviceMaxCount; ++i)
        member(QString::number(i), "10.0.0.%1"_q.arg(i), "a"_q);
    const auto fresh = member("fresh"_q, "10.0.1.1"_q, "0"_q);
    fresh->updateDeviceGroupInfo(Group{.groupName = "wall", .groupId = "a"});
    EXPECT_FALSE(fresh->deviceGroupStatus()); // counts itself as the eighth
    fresh->updateDeviceGroupInfo(Group{.groupName = "new wall", .groupId = "a"});
    EXPECT_TRUE(fresh->deviceGroupStatus());
    const auto unknown = std::make_shared<Device>(quint16{29958}); // not in the registry: only the others count
    unknown->updateDeviceGroupInfo(Group{.groupName = "wall", .groupId = "a"});
    EXPECT_FALSE(unknown->deviceGroupStatus());
    fresh->setDeviceGroupId("b"_q);
    unknown->updateDeviceGroupInfo(Group{.groupName = "other", .groupId = "a"});
    EXPECT_TRUE(unknown->deviceGroupStatus());
}

} // namespace
