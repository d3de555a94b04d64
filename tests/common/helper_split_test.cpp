#include <quorixbizmodel/common/helper.h>

#include <gtest/gtest.h>

#include <QRect>

#include <utility>

namespace {

using Quorix::BizModel::Helper;

/// Columns from @p first to @p last, both included, of lines 10 to 19.
QRect columns(int first, int last) { return {QPoint(first, 10), QPoint(last, 19)}; }

TEST(HelperSplit, ChannelsOfACapacity) {
    using Quorix::BizModel::Enum::Interface::CapacityMode;
    constexpr std::pair<CapacityMode, int> kRows[] = {
        {CapacityMode::_SL, 1}, {CapacityMode::_DL, 2}, {CapacityMode::_4K, 4}, {CapacityMode::invaild, 1}};
    for (const auto &[capacity, channels] : kRows)
        EXPECT_EQ(Helper::splitCount(capacity), channels);
}

TEST(HelperSplit, StripsOfTheInput) {
    const struct {
        QRect rect;
        int count;
        QList<QRect> strips;
    } kRows[] = {
        {columns(0, 1920), 2, {columns(0, 959), columns(960, 1920)}},
        {columns(0, 1920), 4, {columns(0, 479), columns(480, 959), columns(960, 1439), columns(1440, 1920)}},
        {columns(100, 199), 1, {columns(0, 99)}},
        {columns(0, 1), 4, {columns(0, -1), columns(0, -1), columns(0, -1), columns(0, 1)}},
        {columns(0, 99), 0, {}},
        {columns(0, 99), -1, {}},
    };
    for (const auto &row : kRows)
        EXPECT_EQ(Helper::splitInputRect(row.rect, row.count), row.strips);
}

TEST(HelperSplit, PartsOfTheCrop) {
    const struct {
        QRect crop;
        QList<QRect> pieces;
    } kRows[] = {
        {columns(0, 3839), {columns(0, 1919), columns(1920, 3839)}},
        {columns(2000, 2999), {columns(2000, 2999)}},
        {columns(1919, 1920), {columns(1919, 1919), columns(1920, 1920)}},
        {columns(3840, 4000), {}},
        {QRect(), {}},
    };
    for (const auto &row : kRows)
        EXPECT_EQ(Helper::splitCropRectByInputRect(columns(0, 3839), 2, row.crop), row.pieces);
}

TEST(HelperSplit, WindowsOfTheLayer) {
    const QRect input = columns(0, 3839);
    const struct {
        const char *what;
        int count;
        QRect crop, layer;
        QList<QRect> windows;
    } kRows[] = {
        {"two halves", 2, input, columns(0, 999), {columns(0, 503), columns(496, 999)}},
        {"four quarters",
         4,
         input,
         columns(0, 999),
         {columns(0, 253), columns(246, 503), columns(496, 753), columns(746, 999)}},
        // 1001 / 2 = 500.5 is cut down to 500, although it rounds to 501.
        {"half a pixel goes to the right", 2, input, columns(0, 1000), {columns(0, 503), columns(496, 1000)}},
        // Strips of 1 and 2 of 3 columns: 1000 / 3 = 333.33 and 1000, at the layer's own place.
        {"uneven parts of the crop", 2, columns(1919, 1921), columns(50, 1049), {columns(50, 386), columns(379, 1049)}},
        // 3 * (1 / 3.0) and its like may fall short of the whole number by rounding alone: 49 * (1 / 49.0) < 1.
        {"an error of rounding is no missing pixel",
         2,
         columns(1919, 1967),
         columns(0, 48),
         {columns(0, 4), columns(-3, 48)}},
        {"one part still has the half overlap", 2, columns(2000, 2999), columns(0, 99), {columns(0, 103)}},
        {"the crop misses the input", 2, columns(5000, 5999), columns(0, 99), {}},
        {"no crop", 2, QRect(0, 10, 0, 10), columns(0, 99), {columns(0, 99)}},
        {"one channel", 1, input, columns(0, 99), {columns(0, 99)}},
        {"no channel", 0, input, columns(0, 99), {columns(0, 99)}},
    };
    for (const auto &row : kRows)
        EXPECT_EQ(Helper::splitLayerRects(input, row.count, row.crop, row.layer), row.windows) << row.what;
}

TEST(HelperSplit, WindowsCoverTheLayerAndOverlapByEight) {
    for (const int count : {2, 4})
        for (int width = 64; width < 4000; width += 37) {
            const QList<QRect> windows =
                Helper::splitLayerRects(columns(0, 4095), count, columns(7, 4090), columns(11, 10 + width));
            ASSERT_EQ(windows.size(), count);
            EXPECT_EQ(windows.first().left(), 11);
            EXPECT_EQ(windows.last().right(), 10 + width);
            for (int i = 1; i < count; ++i)
                EXPECT_EQ(windows[i - 1].right() - windows[i].left() + 1, 8) << width;
        }
}

} // namespace
