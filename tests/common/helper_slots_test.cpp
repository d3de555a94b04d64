#include <quorixbizmodel/capability/deviceconfigmanager.h>
#include <quorixbizmodel/common/helper.h>

#include <gtest/gtest.h>

namespace {

using namespace Quorix::BizModel;
using Enum::Device::Type;

TEST(HelperSlots, EachRangeCountsFromOne) {
    DeviceConfig &config = *DeviceConfigManager::instance()->initDeviceConfig(29953);
    config.InputSlotStartIndex = 1;
    config.InputSlotCount = 4;
    config.OutputSlotStartIndex = 5;
    config.OutputSlotCount = 3;
    config.ExpSlotStartIndex = 10;
    config.ExpSlotCount = 2;
    config.MVRScreensCfg.StartSlotIndex = 7;
    config.MVRScreensCfg.SlotCount = 2; // slot 8 is no output slot

    constexpr struct {
        Type type;
        int position;
        bool mvrEnabled;
        const char *label;
    } kRows[] = {
        {Type::Alder, 0, true, "N/A"},    {Type::Alder, 1, true, "In1"},    {Type::Alder, 4, false, "In4"},
        {Type::Alder, 5, true, "Out1"},   {Type::Alder, 7, false, "Out3"},  {Type::Alder, 7, true, "MVR"},
        {Type::Alder, 8, true, "N/A"},    {Type::Alder, 11, false, "Exp"},  {Type::Alder, 12, true, "N/A"},
        {Type::Alder, -1, false, "N/A"},  {Type::Alder, 255, false, "N/A"}, {Type::Birch, 1, true, "N/A"},
        {Type::Invalid, 1, false, "N/A"},
    };
    for (const auto &row : kRows)
        EXPECT_EQ(Helper::getSlotDescription(row.type, row.position, row.mvrEnabled), row.label) << row.position;
    DeviceConfigManager::destroyInstance();
}

} // namespace
