#include <quorixtiming/quorixtiming.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <numeric>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Descriptor = std::array<std::uint8_t, EDID_DESCRIPTOR_SIZE>;
using testing::ElementsAre;

/// The sample deployment's EDID: 1080p60 preferred, one extension, nothing said about its size.
struct Sample {
    std::uint8_t edid[EDID_SIZE] = {};
    Sample() {
        std::ifstream file(QUORIX_DATA_DIR "/edid/wall_input.bin", std::ios::binary);
        const Bytes bytes{std::istreambuf_iterator<char>(file), {}};
        EXPECT_TRUE(edid_load(bytes.data(), bytes.size(), edid));
    }
};

unsigned sum(const std::uint8_t *block) { return std::accumulate(block, block + EDID_BLOCK_SIZE, 0U) % 256; }

// CTA-861's 1920x1080 at 60 Hz, 520 mm x 290 mm, as it stands in many displays.
constexpr Descriptor FULL_HD = {0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58,
                                0x2C, 0x45, 0x00, 0x08, 0x22, 0x21, 0x00, 0x00, 0x1E};

TEST(EdidLoad, TakesWholeBlocksOnly) {
    Bytes bytes(384);
    std::uint8_t edid[EDID_SIZE];
    const auto takes = [&](std::size_t size, std::uint8_t extensions) {
        bytes[126] = extensions;
        std::fill(std::begin(edid), std::end(edid), std::uint8_t{7});
        const bool taken = edid_load(bytes.data(), size, edid);
        EXPECT_EQ(edid[EDID_SIZE - 1], taken ? 0 : 7) << size;
        return taken;
    };
    EXPECT_TRUE(takes(128, 0) && takes(256, 0) && takes(256, 1));
    EXPECT_FALSE(takes(128, 1) || takes(256, 2) || takes(256, 255) || takes(384, 2));
    EXPECT_FALSE(takes(0, 0) || takes(127, 0) || takes(255, 0) || edid_load(nullptr, 128, edid));
}

TEST(EdidBlock0, ReadsEachField) {
    Sample s;
    edid_EDIDBlock0 b;
    ASSERT_TRUE(edid_parse_block0(s.edid, &b));
    EXPECT_STREQ(b.ManufacturerName, "QZX");
    EXPECT_THAT(b.ProductCode, ElementsAre(1, 2));
    EXPECT_THAT(b.SerialNumber, ElementsAre(0x39, 0x30, 0, 0));
    EXPECT_THAT((std::array{b.ManufactureWeek, b.Version, b.Revision, b.VideoInputDefinition, b.Gamma, b.FeatureSupport,
                            b.Extension}),
                ElementsAre(7, 1, 3, 0x80, 120, 0x0E, 1));
    EXPECT_EQ(b.ManufactureYear, 2024U);
    // sRGB's primaries and white in 1/1024: 0.64, 0.33; 0.30, 0.60; 0.15, 0.06; 0.3127, 0.3290.
    EXPECT_THAT((std::array{b.Color_Red_x, b.Color_Red_y, b.Color_Green_x, b.Color_Green_y, b.Color_Blue_x,
                            b.Color_Blue_y, b.Color_White_x, b.Color_White_y}),
                ElementsAre(655, 338, 307, 614, 154, 61, 320, 337));
    EXPECT_THAT(b.Established_Timing, ElementsAre(0x21, 8, 0));
    EXPECT_THAT(b.Standard_Timing[2], ElementsAre(0xD1, 0xC0));
    EXPECT_EQ(b.Descriptor[3][3], 0xFC) << "the name";

    s.edid[16] = 0;
    s.edid[21] = 160;
    EXPECT_FALSE(edid_parse_block0(s.edid, &b)) << "the checksum is off";
    EXPECT_TRUE(b.ManufactureYear == 0U && b.HSize_mm == 1600U) << "filled all the same; no week, no year";
    s.edid[16] = 255;
    edid_parse_block0(s.edid, &b);
    EXPECT_EQ(b.ManufactureYear, 2024U) << "255 is an ordinary week";
    EXPECT_FALSE(edid_parse_block0(nullptr, &b) || edid_parse_block0(s.edid, nullptr));
}

TEST(EdidDescriptor, ReadsAndWritesThePublishedLayout) {
    cea861_dtd_t t;
    ASSERT_TRUE(edid_parse_dtd(FULL_HD.data(), &t));
    const cea861_dtd_t expected{148500000, 1920, 280, 1080, 45, 88, 44, 4, 5, 520, 290, 0, 0, false, 0, 3, 3, false};
    EXPECT_EQ(t, expected);
    Descriptor back{};
    ASSERT_TRUE(edid_create_dtd(&t, back.data()));
    EXPECT_EQ(back, FULL_HD);
    EXPECT_FALSE(edid_create_dtd(nullptr, back.data()) || edid_parse_dtd(nullptr, &t));

    // The highest bits of every field, and each flag in its place.
    const cea861_dtd_t high{655350000, 0xA55, 0x5AA, 0x966, 0x699, 0x2AA, 0x155, 0x2A, 0x15,
                            0xC33,     0x3CC, 0x11,  0x22,  true,  5,     1,     2};
    EXPECT_TRUE(edid_dtd_fits(high));
    ASSERT_TRUE(edid_create_dtd(&high, back.data()));
    EXPECT_THAT(back, ElementsAre(0xFF, 0xFF, 0x55, 0xAA, 0xA5, 0x66, 0x99, 0x96, 0xAA, 0x55, 0xA5, 0x99, 0x33, 0xCC,
                                  0xC3, 0x11, 0x22, 0x80 | 0x40 | 0x08 | 0x04 | 0x01));
    edid_parse_dtd(back.data(), &t);
    EXPECT_EQ(t, high);
}

TEST(EdidDescriptor, SnapsClocksWithinTheRanges) {
    constexpr std::pair<unsigned, unsigned> CLOCKS[] = {
        // 10 kHz
        {2509, 2509},   {2510, 2520},   {2530, 2520},   {2531, 2531},   {2750, 2700},   {5350, 5400},
        {5980, 5940},   {7400, 7425},   {7450, 7425},   {7451, 7451},   {10750, 10800}, {14799, 14799},
        {14849, 14850}, {14900, 14850}, {29600, 29700}, {29800, 29700}, {29801, 29801}, {65535, 65535}};
    for (const auto &[stored, clock] : CLOCKS) {
        Descriptor d = FULL_HD;
        d[0] = static_cast<std::uint8_t>(stored);
        d[1] = static_cast<std::uint8_t>(stored >> 8);
        cea861_dtd_t t;
        EXPECT_TRUE(edid_parse_dtd(d.data(), &t));
        EXPECT_EQ(t.PixelClock, clock * 10000);
    }
    Descriptor name{0, 0, 0, 0xFC};
    cea861_dtd_t t{.HorizActivePixels = 7};
    EXPECT_FALSE(edid_parse_dtd(name.data(), &t));
    EXPECT_EQ(t, cea861_dtd_t{});
}

TEST(EdidDescriptor, JudgesPlausibility) {
    // One field at a time of 1080p60, at its limit and beyond.
    constexpr std::tuple<std::uint16_t cea861_dtd_t::*, std::uint16_t, std::uint16_t> LIMITS[] = {
        {&cea861_dtd_t::HorizActivePixels, 160, 159}, {&cea861_dtd_t::HorizBlankingPixels, 89, 88},
        {&cea861_dtd_t::VertActiveLines, 120, 119},   {&cea861_dtd_t::VertBlankingLines, 6, 5},
        {&cea861_dtd_t::HorizSyncOffset, 279, 280},   {&cea861_dtd_t::HorizSyncPulseWidth, 279, 280},
        {&cea861_dtd_t::VertSyncOffset, 44, 45},      {&cea861_dtd_t::VertSyncPulseWidth, 44, 45},
    };
    for (const auto &[field, good, bad] : LIMITS)
        for (const std::uint16_t value : {good, bad}) {
            cea861_dtd_t t;
            edid_parse_dtd(FULL_HD.data(), &t);
            t.*field = value;
            Descriptor d{};
            edid_create_dtd(&t, d.data());
            EXPECT_EQ(edid_parse_dtd(d.data(), &t), value == good) << value;
            EXPECT_EQ(t.*field, value) << "filled all the same";
        }
    Descriptor d = FULL_HD;
    cea861_dtd_t t;
    d[3] = 8, d[4] = 0x70, d[6] = 5, d[8] = d[9] = 1, d[10] = 0x11;
    EXPECT_TRUE(edid_parse_dtd(d.data(), &t)) << "the least blanking";
    d[3] = 7;
    EXPECT_FALSE(edid_parse_dtd(d.data(), &t));
    d[3] = 8, d[6] = 4;
    EXPECT_FALSE(edid_parse_dtd(d.data(), &t));
}

TEST(EdidDescriptor, TellsWhatItCannotHold) {
    cea861_dtd_t t{655354999, 4095, 4095, 4095, 4095, 1023, 1023, 63, 63};
    EXPECT_TRUE(edid_dtd_fits(t));
    for (const auto field : {&cea861_dtd_t::HorizActivePixels, &cea861_dtd_t::VertSyncPulseWidth}) {
        ++(t.*field);
        EXPECT_FALSE(edid_dtd_fits(t));
        --(t.*field);
    }
    for (const std::uint32_t clock : {4999U, 655355000U, 0xFFFFFFFFU}) {
        t.PixelClock = clock;
        EXPECT_FALSE(edid_dtd_fits(t)) << clock;
    }
}

TEST(EdidModeline, SumsAndSplits) {
    cea861_dtd_t t;
    edid_parse_dtd(FULL_HD.data(), &t);
    digital_vid_modeline_t m;
    edid_dtd2modeline_convert(&t, &m);
    EXPECT_THAT((std::array{m.h_a, m.h_a_f, m.h_a_f_s, m.h_a_f_s_b}), ElementsAre(1920, 2008, 2052, 2200));
    EXPECT_THAT((std::array{m.v_a, m.v_a_f, m.v_a_f_s, m.v_a_f_s_b}), ElementsAre(1080, 1084, 1089, 1125));
    EXPECT_EQ(m.pix_clk, 148500000U);
    digital_vid_modeline2_t w;
    edid_dtd2modeline2_convert(&t, &w);
    EXPECT_THAT((std::array{w.hact, w.htot, w.hfp, w.hsw, w.hbp}), ElementsAre(1920, 2200, 88, 44, 148));
    EXPECT_THAT((std::array{w.vact, w.vtot, w.vfp, w.vsw, w.vbp}), ElementsAre(1080, 1125, 4, 5, 36));
    EXPECT_EQ(w.vfreq, 60U);
    // Digital separate sync has two polarities, composite one, analog none: h, v, h, v.
    constexpr std::array<std::uint8_t, 4> POLARITIES[] = {{0, 0, 0, 0}, {0, 0, 0, 0}, {1, 0, 1, 0}, {1, 1, 1, 1}};
    for (std::uint8_t sync = 0; sync < 4; ++sync) {
        t.SyncSignalDescription = sync;
        edid_dtd2modeline_convert(&t, &m);
        edid_dtd2modeline2_convert(&t, &w);
        EXPECT_EQ((std::array{m.h_sync_pol, m.v_sync_pol, w.hpol, w.vpol}), POLARITIES[sync]);
    }
    t.SyncSignalDescription = 3;
    t.SyncSignalInfo = 2;
    edid_dtd2modeline_convert(&t, &m);
    EXPECT_EQ(m.h_sync_pol * 10 + m.v_sync_pol, 1);
}

TEST(EdidModeline, DoublesFieldsAndReducesAspects) {
    const std::pair<cea861_dtd_t, std::array<unsigned, 5>> ROWS[] = {
        {{148500000, 1920, 280, 1080, 45}, {1080, 1125, 60, 16, 9}},
        {{74250000, 1920, 280, 540, 22, 0, 0, 0, 0, 0, 0, 0, 0, true}, {1080, 1125, 60, 16, 9}},
        {{72000000, 1920, 384, 540, 85, 0, 0, 0, 0, 0, 0, 0, 0, true},
         {1080, 1250, 50, 16, 9}}, // VIC 39: two equal fields
        {{72000000, 1920, 384, 540, 85}, {540, 625, 50, 32, 9}},
        {{85500000, 1366, 426, 768, 30}, {768, 798, 59, 75, 42}}, // 683 : 384, each over 9
        {{0, 720, 0, 0, 0, 0, 0, 0, 0, 4000, 1}, {0, 0, 0, 80, 1}},
        {{0, 0, 0, 0, 0, 0, 0, 0, 0, 300, 0}, {0, 0, 0, 44, 0}}, // as it stands, its low 8 bits
        {{4294967295, 65535, 65535, 65535, 65535}, {65535, 65534, 0, 1, 1}},
    };
    for (const auto &[t, expected] : ROWS) {
        digital_vid_modeline2_t w;
        edid_dtd2modeline2_convert(&t, &w);
        EXPECT_EQ((std::array<unsigned, 5>{w.vact, w.vtot, w.vfreq, w.x, w.y}), expected);
    }
}

TEST(EdidVerify, ChecksHeaderAndBothSums) {
    const auto verdict = [](auto change) {
        Sample s;
        change(s.edid);
        return ResT_verify_EDID(s.edid);
    };
    EXPECT_EQ(verdict([](auto &) {}), ResT_OK);
    EXPECT_EQ(verdict([](auto &e) { ++e[20]; }), ResT_ERR);
    EXPECT_EQ(verdict([](auto &e) { ++e[130]; }), ResT_ERR);
    EXPECT_EQ(verdict([](auto &e) { ++e[0], --e[20]; }), ResT_ERR) << "sum right, header wrong";
    EXPECT_EQ(verdict([](auto &e) { --e[126], ++e[127], ++e[130]; }), ResT_OK) << "no extension, no second sum";
    EXPECT_EQ(ResT_verify_EDID(nullptr), ResT_ERR);
}

TEST(EdidGenerate, ChangesTheFirstDescriptorAlone) {
    const Sample model;
    Sample out;
    ASSERT_EQ(ResT_calEDID_by_model(EN_AUTO, model.edid, out.edid, 2560, 1440, 60), ResT_OK);
    // 241.70 MHz; 2560 + 160, 1440 + 41; 48 and 32, 3 and 5; digital separate sync, both negative; no size.
    EXPECT_THAT(Bytes(out.edid + 54, out.edid + 72), ElementsAre(0x6A, 0x5E, 0x00, 0xA0, 0xA0, 0xA0, 0x29, 0x50, 0x30,
                                                                 0x20, 0x35, 0x00, 0, 0, 0, 0, 0, 0x18));
    EXPECT_EQ(sum(out.edid), 0U);
    std::copy_n(model.edid + 54, 18, out.edid + 54);
    out.edid[127] = model.edid[127];
    EXPECT_TRUE(std::equal(model.edid, model.edid + EDID_SIZE, out.edid));

    cea861_dtd_t t{148350000, 1920, 280, 1080, 45, 88, 44, 4, 5, 520, 290, 1, 1, true, 7, 0, 3};
    ASSERT_EQ(ResT_calEDID_by_DTD(model.edid, out.edid, t), ResT_OK);
    Descriptor plain = FULL_HD;
    plain[0] = 0xF3, plain[1] = 0x39, plain[12] = plain[13] = plain[14] = 0, plain[17] = 0x18;
    EXPECT_TRUE(std::equal(plain.begin(), plain.end(), out.edid + 54));

    edid_complete_image_size(out.edid);
    EXPECT_TRUE(std::equal(plain.begin(), plain.end(), out.edid + 54)) << "the screen has no size";
    out.edid[21] = 52, out.edid[22] = 29;
    edid_complete_image_size(out.edid);
    plain[12] = 0x08, plain[13] = 0x22, plain[14] = 0x21;
    EXPECT_TRUE(std::equal(plain.begin(), plain.end(), out.edid + 54)) << "the clock stays, unsnapped";
    EXPECT_EQ(sum(out.edid), 0U);
}

TEST(EdidGenerate, RefusalsLeaveTheOutputAlone) {
    Sample model;
    std::uint8_t out[EDID_SIZE] = {};
    EXPECT_EQ(ResT_calEDID_by_model(EN_DMT, model.edid, out, 2560, 1440, 60), ResT_ERR);
    EXPECT_EQ(ResT_calEDID_by_model(EN_AUTO, nullptr, out, 1920, 1080, 60), ResT_ERR);
    EXPECT_EQ(ResT_calEDID_by_model(EN_AUTO, model.edid, nullptr, 1920, 1080, 60), ResT_ERR);
    ++model.edid[60];
    EXPECT_EQ(ResT_calEDID_by_model(EN_AUTO, model.edid, out, 1920, 1080, 60), ResT_ERR);
    EXPECT_EQ(ResT_calEDID_by_DTD(model.edid, out, {}), ResT_ERR);
    EXPECT_TRUE(std::all_of(std::begin(out), std::end(out), [](auto byte) { return byte == 0; }));
}

} // namespace
