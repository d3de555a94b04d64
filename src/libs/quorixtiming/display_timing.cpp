#include <quorixtiming/display_timing.h>
#include <quorixtiming/edid_block_p.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <numeric>

namespace {

template <class T>
constexpr std::uint16_t u16(T value) {
    return static_cast<std::uint16_t>(value);
}

template <class T>
constexpr std::uint8_t u8(T value) {
    return static_cast<std::uint8_t>(value);
}

constexpr std::uint32_t CLOCK_UNIT = 10000; // Hz

constexpr struct NominalClock {
    std::uint32_t from, to, nominal;
} NOMINAL_CLOCKS[] = {
    {25100000, 25300000, 25200000},    {26500000, 27500000, 27000000},    {53500000, 54500000, 54000000},
    {59000000, 59800000, 59400000},    {74000000, 74500000, 74250000},    {107500000, 108500000, 108000000},
    {148000000, 149000000, 148500000}, {296000000, 298000000, 297000000},
};

std::uint32_t snapped(std::uint32_t clock) {
    const auto *const range = std::find_if(std::begin(NOMINAL_CLOCKS), std::end(NOMINAL_CLOCKS),
                                           [clock](auto r) { return clock >= r.from && clock <= r.to; });
    return range == std::end(NOMINAL_CLOCKS) ? clock : range->nominal;
}

/// Bits 8 to 11 of two 12-bit values, as a descriptor packs them.
constexpr std::uint8_t highBits(unsigned upper, unsigned lower) {
    return u8((upper >> 8 & 15) << 4 | (lower >> 8 & 15));
}

/// Polarity bits of digital sync, bit 0 horizontal, bit 1 vertical; composite sync has one only.
unsigned polarities(const cea861_dtd_t &dtd) {
    switch (dtd.SyncSignalDescription) {
    case 3:
        return dtd.SyncSignalInfo & 3U;
    case 2:
        return dtd.SyncSignalInfo & 1U;
    default:
        return 0;
    }
}

/// The smallest whole numbers of the ratio @p x to @p y, scaled down if needed so that both are at most 80.
void setAspect(unsigned x, unsigned y, digital_vid_modeline2_t &modeline) {
    if (x != 0 && y != 0) {
        const unsigned divisor = std::gcd(x, y);
        x /= divisor;
        y /= divisor;
        if (const unsigned larger = std::max(x, y); larger > 80) {
            const unsigned step = (larger + 79) / 80;
            x = std::max(1U, x / step);
            y = std::max(1U, y / step);
        }
    }
    modeline.x = u8(x);
    modeline.y = u8(y);
}

} // namespace

bool edid_load(const std::uint8_t *pBytes, std::size_t size, std::uint8_t (&pEDID)[EDID_SIZE]) {
    if (!pBytes || (size != EDID_BLOCK_SIZE && size != EDID_SIZE))
        return false;
    if ((1U + pBytes[126]) * EDID_BLOCK_SIZE > size)
        return false;
    std::fill(std::copy_n(pBytes, size, pEDID), std::end(pEDID), std::uint8_t{0});
    return true;
}

bool edid_parse_block0(const std::uint8_t *pEDID, edid_EDIDBlock0 *pEDIDBlock0) {
    if (!pEDID || !pEDIDBlock0)
        return false;
    const std::uint8_t *const e = pEDID;
    edid_EDIDBlock0 &b = *pEDIDBlock0;
    const auto copy = [e](auto &field, std::size_t from) { std::memcpy(&field, e + from, sizeof field); };
    copy(b.Header, 0);
    const unsigned letters = 256U * e[8] + e[9];
    for (unsigned i = 0; i < 3; ++i)
        b.ManufacturerName[i] = static_cast<char>(64U + (letters >> (10 - 5 * i) & 31U));
    b.ManufacturerName[3] = '\0';
    copy(b.ProductCode, 10);
    copy(b.SerialNumber, 12);
    b.ManufactureWeek = e[16];
    b.ManufactureYear = e[16] == 0 ? 0U : e[17] + 1990U;
    b.Version = e[18];
    b.Revision = e[19];
    b.VideoInputDefinition = e[20];
    b.HSize_mm = e[21] * 10U;
    b.VSize_mm = e[22] * 10U;
    b.Gamma = e[23];
    b.FeatureSupport = e[24];
    std::uint32_t *const colors[] = {&b.Color_Red_x,  &b.Color_Red_y,  &b.Color_Green_x, &b.Color_Green_y,
                                     &b.Color_Blue_x, &b.Color_Blue_y, &b.Color_White_x, &b.Color_White_y};
    const unsigned lowBits = 256U * e[25] + e[26];
    for (unsigned i = 0; i < 8; ++i)
        *colors[i] = e[27 + i] * 4U + (lowBits >> (14 - 2 * i) & 3U);
    copy(b.Established_Timing, 35);
    copy(b.Standard_Timing, 38);
    copy(b.Descriptor, 54);
    b.Extension = e[126];
    b.Checksum = e[127];
    return edidHeaderValid(e) && edidSum(e) == 0;
}

bool edid_parse_dtd(const std::uint8_t *pDescriptor, cea861_dtd_t *pDTD) {
    if (!pDescriptor || !pDTD)
        return false;
    const std::uint8_t *const d = pDescriptor;
    cea861_dtd_t &t = *pDTD;
    t = {};
    t.PixelClock = (d[0] + 256U * d[1]) * CLOCK_UNIT;
    if (t.PixelClock == 0)
        return false;
    t.PixelClock = snapped(t.PixelClock);
    t.HorizActivePixels = u16(d[2] | (d[4] >> 4) << 8);
    t.HorizBlankingPixels = u16(d[3] | (d[4] & 15) << 8);
    t.VertActiveLines = u16(d[5] | (d[7] >> 4) << 8);
    t.VertBlankingLines = u16(d[6] | (d[7] & 15) << 8);
    t.HorizSyncOffset = u16(d[8] | (d[11] >> 6) << 8);
    t.HorizSyncPulseWidth = u16(d[9] | (d[11] >> 4 & 3) << 8);
    t.VertSyncOffset = u16(d[10] >> 4 | (d[11] >> 2 & 3) << 4);
    t.VertSyncPulseWidth = u16((d[10] & 15) | (d[11] & 3) << 4);
    t.HorizImageSize_mm = u16(d[12] | (d[14] >> 4) << 8);
    t.VertImageSize_mm = u16(d[13] | (d[14] & 15) << 8);
    t.HorizBorder = d[15];
    t.VertBorder = d[16];
    t.Interlaced = (d[17] >> 7) != 0;
    t.StereoModeDecode = u8((d[17] >> 4 & 6) | (d[17] & 1));
    t.SyncSignalDescription = u8(d[17] >> 3 & 3);
    t.SyncSignalInfo = u8(d[17] >> 1 & 3);
    return t.HorizActivePixels >= 160 && t.HorizBlankingPixels >= 8 && t.VertActiveLines >= 120 &&
           t.VertBlankingLines >= 5 && t.HorizBlankingPixels > std::max(t.HorizSyncOffset, t.HorizSyncPulseWidth) &&
           t.VertBlankingLines > std::max(t.VertSyncOffset, t.VertSyncPulseWidth);
}

bool edid_create_dtd(const cea861_dtd_t *pDTD, std::uint8_t *pDescriptor) {
    if (!pDTD || !pDescriptor)
        return false;
    const cea861_dtd_t &t = *pDTD;
    const std::uint64_t clock = (t.PixelClock + std::uint64_t{CLOCK_UNIT / 2}) / CLOCK_UNIT;
    const std::uint8_t bytes[EDID_DESCRIPTOR_SIZE] = {
        u8(clock),
        u8(clock >> 8),
        u8(t.HorizActivePixels),
        u8(t.HorizBlankingPixels),
        highBits(t.HorizActivePixels, t.HorizBlankingPixels),
        u8(t.VertActiveLines),
        u8(t.VertBlankingLines),
        highBits(t.VertActiveLines, t.VertBlankingLines),
        u8(t.HorizSyncOffset),
        u8(t.HorizSyncPulseWidth),
        u8((t.VertSyncOffset & 15) << 4 | (t.VertSyncPulseWidth & 15)),
        u8((t.HorizSyncOffset >> 8 & 3) << 6 | (t.HorizSyncPulseWidth >> 8 & 3) << 4 |
           (t.VertSyncOffset >> 4 & 3) << 2 | (t.VertSyncPulseWidth >> 4 & 3)),
        u8(t.HorizImageSize_mm),
        u8(t.VertImageSize_mm),
        highBits(t.HorizImageSize_mm, t.VertImageSize_mm),
        t.HorizBorder,
        t.VertBorder,
        u8((t.Interlaced ? 128 : 0) | (t.StereoModeDecode >> 1 & 3) << 5 | (t.SyncSignalDescription & 3) << 3 |
           (t.SyncSignalInfo & 3) << 1 | (t.StereoModeDecode & 1)),
    };
    std::copy(std::begin(bytes), std::end(bytes), pDescriptor);
    return true;
}

bool edid_dtd_fits(const cea861_dtd_t &dtd) {
    std::uint8_t bytes[EDID_DESCRIPTOR_SIZE];
    cea861_dtd_t back;
    edid_create_dtd(&dtd, bytes);
    edid_parse_dtd(bytes, &back);
    const std::uint64_t clock = (dtd.PixelClock + std::uint64_t{CLOCK_UNIT / 2}) / CLOCK_UNIT;
    // The clock comes back rounded and perhaps snapped; a descriptor has no place for `Native`.
    back.PixelClock = dtd.PixelClock;
    back.Native = dtd.Native;
    return clock != 0 && clock <= 0xFFFF && back == dtd;
}

void edid_complete_image_size(std::uint8_t *pEDID) {
    if (!pEDID || pEDID[21] == 0 || pEDID[22] == 0)
        return;
    std::uint8_t *const d = pEDID + EDID_FIRST_DESCRIPTOR;
    if (d[0] == 0 && d[1] == 0)
        return;
    // Not by way of edid_parse_dtd(): that would snap the clock.
    const unsigned horizontal = pEDID[21] * 10U;
    const unsigned vertical = pEDID[22] * 10U;
    d[12] = u8(horizontal);
    d[13] = u8(vertical);
    d[14] = highBits(horizontal, vertical);
    renewChecksum(pEDID);
}

void edid_dtd2modeline_convert(const cea861_dtd_t *pDTD, digital_vid_modeline_t *p_md) {
    if (!pDTD || !p_md)
        return;
    const cea861_dtd_t &t = *pDTD;
    const unsigned polarity = polarities(t);
    *p_md = {.pix_clk = t.PixelClock,
             .h_a = t.HorizActivePixels,
             .h_a_f = u16(t.HorizActivePixels + t.HorizSyncOffset),
             .h_a_f_s = u16(t.HorizActivePixels + t.HorizSyncOffset + t.HorizSyncPulseWidth),
             .h_a_f_s_b = u16(t.HorizActivePixels + t.HorizBlankingPixels),
             .v_a = t.VertActiveLines,
             .v_a_f = u16(t.VertActiveLines + t.VertSyncOffset),
             .v_a_f_s = u16(t.VertActiveLines + t.VertSyncOffset + t.VertSyncPulseWidth),
             .v_a_f_s_b = u16(t.VertActiveLines + t.VertBlankingLines),
             .h_sync_pol = u8(polarity & 1),
             .v_sync_pol = u8(polarity >> 1),
             .is_intd = t.Interlaced};
}

void edid_dtd2modeline2_convert(const cea861_dtd_t *pDTD, digital_vid_modeline2_t *p_modeline) {
    if (!pDTD || !p_modeline)
        return;
    const cea861_dtd_t &t = *pDTD;
    const std::uint64_t width = t.HorizActivePixels + t.HorizBlankingPixels;
    const std::uint64_t field = t.VertActiveLines + t.VertBlankingLines;
    const unsigned polarity = polarities(t);
    digital_vid_modeline2_t &m = *p_modeline;
    m = {};
    m.pixclk = t.PixelClock;
    m.hact = t.HorizActivePixels;
    m.htot = u16(width);
    m.hfp = t.HorizSyncOffset;
    m.hsw = t.HorizSyncPulseWidth;
    m.hbp = u16(t.HorizBlankingPixels - t.HorizSyncOffset - t.HorizSyncPulseWidth);
    m.hpol = u8(polarity & 1);
    m.vact = u16(t.Interlaced ? 2 * t.VertActiveLines : t.VertActiveLines);
    m.vtot = u16(t.Interlaced ? 2 * field + 1 : field);
    // CTA-861's 1920x1080i at 50 Hz with 1250 lines has two equal fields.
    if (t.Interlaced && t.PixelClock == 72000000 && width == 2304 && field == 625)
        m.vtot = 1250;
    m.vfp = t.VertSyncOffset;
    m.vsw = t.VertSyncPulseWidth;
    m.vbp = u16(t.VertBlankingLines - t.VertSyncOffset - t.VertSyncPulseWidth);
    m.vpol = u8(polarity >> 1);
    m.intd = t.Interlaced;
    m.vfreq = width == 0 || field == 0 ? 0U : static_cast<std::uint32_t>(t.PixelClock / (width * field));
    setAspect(t.HorizImageSize_mm != 0 ? t.HorizImageSize_mm : m.hact,
              t.VertImageSize_mm != 0 ? t.VertImageSize_mm : m.vact, m);
}
