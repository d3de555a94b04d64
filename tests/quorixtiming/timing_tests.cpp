#include <quorixtiming/quorixtiming.h>

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>

namespace {

// Plain sums and sums weighted by the row's number from 1, over the published values: a row moved or a digit changed
// shows in one of them.
TEST(VideoModes, HoldThePublishedValues) {
    using T = XVidC_VideoTiming;
    std::vector<long> sums;
    for (const auto member : {&T::HActive, &T::HFrontPorch, &T::HSyncWidth, &T::HBackPorch, &T::HTotal, &T::VActive,
                              &T::F0PVFrontPorch, &T::F0PVSyncWidth, &T::F0PVBackPorch, &T::F0PVTotal}) {
        sums.insert(sums.end(), 2, 0);
        for (long row = 1; const auto &mode : XVidC_VideoTimingModes) {
            sums[sums.size() - 2] += mode.Timing.*member;
            sums.back() += row++ * (mode.Timing.*member);
        }
    }
    EXPECT_THAT(sums, testing::ElementsAreArray({191926,  13374250, 17703,    1413921, 10652,   620979, 20257,
                                                 1258480, 240538,   16667630, 116506,  8059972, 489,    29659,
                                                 571,     36021,    4879,     327888,  122445,  8453540}));
    std::array<long, 6> others{}; // of rates and polarities
    for (long row = 1; const auto &mode : XVidC_VideoTimingModes) {
        const XVidC_VideoTiming &t = mode.Timing;
        const std::string_view name = mode.Name;
        const int rate = static_cast<int>(mode.FrameRate);
        const bool interlaced = name.ends_with(" (I)");
        const auto plain = std::to_string(t.HActive) + 'x' + std::to_string(t.VActive * (interlaced ? 2 : 1)) + '@' +
                           std::to_string(rate) + "Hz";
        EXPECT_THAT(name, testing::AnyOf(plain, plain + (interlaced ? " (I)" : " (RB)")));
        EXPECT_EQ(t.F1VTotal, interlaced ? t.F0PVTotal + 1 : 0) << name;
        for (std::size_t i = 0; const long value : {long{rate}, long{t.HSyncPolarity}, long{t.VSyncPolarity}}) {
            others.at(i++) += value;
            others.at(i++) += row * value;
        }
        EXPECT_EQ(static_cast<int>(mode.VmId), row++ - 1);
    }
    EXPECT_THAT(others, testing::ElementsAre(8167, 448176, 75, 4561, 73, 4588));
}

struct Axis {
    int front, sync, blanking;
    bool operator==(const Axis &) const = default;
};

// Published: DMT, CTA-861; CVT with reduced blanking where no table has the mode, by hand with the clock cut to 1 kHz.
// Why, mode, width, height, rate; front porch, sync and blanking both ways, kHz.
constexpr std::tuple<const char *, CalcMode_t, std::uint16_t, std::uint16_t, float, Axis, Axis, double> TIMINGS[] = {
    {"first table", EN_AUTO, 1920, 1080, 60, {88, 44, 280}, {4, 5, 45}, 148500},
    {"within 0.4 Hz", EN_AUTO, 1920, 1080, 59.94F, {88, 44, 280}, {4, 5, 45}, 148351.5},
    {"upper end", EN_AUTO, 1920, 1080, 60.45F, {88, 44, 280}, {4, 5, 45}, 149613.75},
    {"0.5 Hz off, rounded to 60", EN_DMT, 1920, 1200, 59.55F, {48, 32, 160}, {3, 6, 35}, 152972.04},
    {"0.5 Hz above: no table", EN_AUTO, 1920, 1080, 60.5F, {48, 32, 160}, {3, 5, 31}, 139808},
    {"first table only", EN_DMT, 2048, 1152, 60, {26, 80, 202}, {1, 3, 48}, 162000},
    {"4K", EN_DMT, 3840, 2160, 60, {176, 88, 560}, {8, 10, 90}, 594000},
    {"second table", EN_AUTO, 1920, 1080, 50, {528, 44, 720}, {4, 5, 45}, 148500},
    {"second table", EN_AUTO, 1280, 720, 60, {110, 40, 370}, {5, 5, 30}, 74250},
    {"the plain twin, not (RB)", EN_AUTO, 1680, 1050, 60, {104, 176, 560}, {3, 6, 39}, 146361.6},
    {"a field of an interlaced row", EN_DMT, 1440, 240, 60, {38, 124, 276}, {4, 3, 22}, 26975.52},
    {"formula, 16:9", EN_AUTO, 2560, 1440, 60, {48, 32, 160}, {3, 5, 41}, 241699},
    {"formula, no aspect", EN_AUTO, 1000, 1000, 60, {48, 32, 160}, {3, 10, 29}, 71618},
    {"formula, two wide", EN_AUTO, 3840, 1080, 60, {48, 32, 160}, {3, 10, 31}, 266640},
    {"formula, 4:3", EN_AUTO, 1024, 768, 61, {48, 32, 160}, {3, 4, 23}, 57129},
    {"formula, 16:10", EN_CVT, 1280, 800, 60, {48, 32, 160}, {3, 6, 23}, 71107},
    {"formula, 5:4", EN_CVT, 1280, 1024, 60, {48, 32, 160}, {3, 7, 30}, 91065},
    {"formula, 15:9; 68256 but for the float steps", EN_CVT, 1280, 768, 60, {48, 32, 160}, {3, 7, 22}, 68255},
    {"formula, tables not asked", EN_CVT, 1920, 1080, 60, {48, 32, 160}, {3, 5, 31}, 138652},
    {"16 bits of a rate matter", EN_AUTO, 1920, 1080, 65596, {48, 32, 160}, {3, 5, 14}, 4294967.295},
};

TEST(ResolutionTiming, MatchesThePublishedTimings) {
    for (const auto &[why, mode, width, height, rate, h, v, kHz] : TIMINGS) {
        SCOPED_TRACE(testing::Message() << why << ' ' << width << 'x' << height << '@' << rate);
        cea861_dtd_t t{.HorizBorder = 9, .Interlaced = true, .SyncSignalInfo = 1, .Native = true};
        ASSERT_EQ(ResT_calDTD_by_model(mode, &t, width, height, rate), ResT_OK);
        EXPECT_TRUE(t.HorizActivePixels == width && t.VertActiveLines == height);
        EXPECT_EQ((Axis{t.HorizSyncOffset, t.HorizSyncPulseWidth, t.HorizBlankingPixels}), h);
        EXPECT_EQ((Axis{t.VertSyncOffset, t.VertSyncPulseWidth, t.VertBlankingLines}), v);
        EXPECT_NEAR(t.PixelClock / 1000.0, kHz, 0.02);
        EXPECT_EQ(t.SyncSignalDescription, 3);
        EXPECT_EQ(t.HorizBorder + t.SyncSignalInfo + t.Interlaced, 0);
        EXPECT_TRUE(t.Native) << "not this function's to set";
    }
}

TEST(ResolutionTiming, RefusesWhatNoTableHoldsWithoutTheFormula) {
    cea861_dtd_t t{.PixelClock = 7};
    EXPECT_EQ(ResT_calDTD_by_model(EN_AUTO, nullptr, 1920, 1080, 60), ResT_ERR);
    EXPECT_EQ(ResT_calDTD_by_model(EN_DMT, &t, 2560, 1440, 60), ResT_ERR);
    EXPECT_EQ(ResT_calDTD_by_model(static_cast<CalcMode_t>(2), &t, 1920, 1080, 60), ResT_ERR);
    EXPECT_EQ(t.PixelClock, 7U);
}

TEST(ResolutionTiming, TakesAnyRateAndSize) {
    constexpr float INF = std::numeric_limits<float>::infinity();
    constexpr std::pair<float, std::uint32_t> CLOCKS[] = {
        {0.0F, 0}, {-60.0F, 0}, {NAN, 0}, {-INF, 0}, {INF, 0xFFFFFFFF}, {1e30F, 0xFFFFFFFF}, {2173.913F, 0xFFFFFFFF}};
    for (const auto &[rate, clock] : CLOCKS) {
        cea861_dtd_t t;
        ASSERT_EQ(ResT_calDTD_by_model(EN_AUTO, &t, 1920, 1080, rate), ResT_OK);
        EXPECT_EQ(t.HorizActivePixels, 1920);
        EXPECT_EQ(t.PixelClock, clock) << rate;
    }
    for (const int size : {0, 1, 65535, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        for (const float rate : {0.0F, NAN, -INF, 1e-30F, 60.0F, 1818.1818F, 2173.913F, INF})
            for (int switches = 0; switches < 16; ++switches) {
                cvt_mode m;
                vert_refresh(size, size, rate, switches & 1, switches & 2, switches & 4, switches >> 3, &m);
                EXPECT_EQ(m.vr, size);
            }
}

// By hand, in exact arithmetic; 640x480 is CVT's own example but for the clock's step (23.75 MHz there).
TEST(Cvt, FollowsTheFormulaInEachForm) {
    using Three = std::array<int, 3>;
    // Size, rate, interlaced, reduced, margins, film; sync start and end and total both ways, clock, rate reached.
    constexpr std::tuple<int, int, float, int, int, int, int, Three, Three, double, double> ROWS[] = {
        {640, 480, 60, 0, 0, 0, 0, {656, 720, 800}, {483, 487, 500}, 23.975, 59.9375},
        {1920, 1080, 60, 0, 0, 0, 0, {2043, 2249, 2578}, {1083, 1088, 1120}, 173.235, 59.99771},
        {1920, 1080, 60, 1, 1, 0, 0, {1968, 2000, 2080}, {1083, 1088, 1096}, 69.451, 59.99983},
        {1920, 1080, 75, 0, 1, 1, 0, {1968, 2000, 2148}, {1083, 1088, 1158}, 186.553, 74.99968},
        {2560, 1440, 60, 0, 1, 0, 1, {2608, 2640, 2720}, {1443, 1448, 1481}, 241.457542, 59.94001},
    };
    for (const auto &[width, height, rate, interlaced, reduced, margins, film, h, v, pclk, reached] : ROWS) {
        SCOPED_TRACE(testing::Message() << width << 'x' << height << '@' << rate);
        cvt_mode m;
        vert_refresh(width, height, rate, interlaced, reduced, margins, film, &m);
        EXPECT_TRUE(m.hr == width && m.vr == height);
        EXPECT_EQ((Three{m.hss, m.hse, m.hfl}), h);
        EXPECT_EQ((Three{m.vss, m.vse, m.vfl}), v);
        EXPECT_NEAR(m.pclk, pclk, 2e-5);
        EXPECT_NEAR(m.real_v_rate, reached, 2e-5);
        EXPECT_NEAR(m.h_freq, pclk * 1000 / h[2], 1e-4);
    }
}

TEST(ModeTables, GiveRowsInOneForm) {
    mode_table_t row{};
    row.en_res_idx = RES_1600X1200;
    ASSERT_TRUE(GetVideoTiming(1280, 720, 50, &row));
    EXPECT_EQ(row.en_res_idx, RES_1600X1200) << "the second table has no such index";
    EXPECT_TRUE(row.h_freq == 375 && row.v_freq == 500 && row.h_start == 260 && row.v_start == 25);
    EXPECT_FALSE(GetDmtTiming(1280, 720, 500, &row) || GetDmtTiming(1920, 1080, 595, &row));
    EXPECT_EQ(row.h_total, 1980) << "untouched by failures";
    ASSERT_TRUE(GetDmtTiming(1920, 1080, 604, &row));
    EXPECT_EQ(row.en_res_idx, RES_1920X1080);
}

} // namespace
