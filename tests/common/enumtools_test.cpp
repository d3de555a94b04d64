#include <quorixbizmodel/quorixbizmodel.h>
#include <quorixprotomodel/device.h>

#include <gtest/gtest.h>

namespace {

using namespace Quorix::BizModel;
using Enum::Interface::InterfaceType;
using Enum::Layer::LayerType;

TEST(EnumTools, CombinedKindsMatchEachOfTheirMembers) {
    const int mask = maskOf(LayerType::Regular, LayerType::Logo);
    EXPECT_EQ(mask, 34);
    EXPECT_TRUE(hasAnyBit(InterfaceType::Output, InterfaceType::MVROutput));
    EXPECT_TRUE(hasAnyBit(mask, LayerType::NotImageType));
    EXPECT_TRUE(hasAnyBit(LayerType::Logo, mask));
    EXPECT_FALSE(hasAnyBit(LayerType::BKG, LayerType::NotImageType));
    EXPECT_FALSE(hasAnyBit(InterfaceType::Invalid, InterfaceType::Output));
    EXPECT_FALSE(hasAnyBit(0, LayerType::AllLayerType));
    EXPECT_TRUE(hasAnyBit(-1, LayerType::Cut));
}

TEST(RecordDefaults, AgreeWithTheModelsConstants) {
    using namespace Quorix::ProtoModel::Device;
    EXPECT_EQ(s_DeviceDetail{}.interfaceMapping.testPattern.type, std::int32_t{Constants::testLoctionKey});
    EXPECT_EQ(s_NetworkBody{}.ip, Constants::Device::defaultDeviceIP);
    EXPECT_EQ(s_DeviceGroupInfoBody{}.groupId, Constants::Device::defaultDeviceGroupId.toStdString());
}

} // namespace
