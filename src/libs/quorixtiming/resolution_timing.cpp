#include <quorixtiming/cvt12_p.h>
#include <quorixtiming/edid_block_p.h>
#include <quorixtiming/resolution_timing.h>
#include <quorixtiming/truncate_p.h>
#include <quorixtiming/xvidc_timings_table.h>

#include <algorithm>
#include <iterator>

const resolution_t g_resolution[RES_MAX_NUM] = {
    {640, 480},   {720, 480},   {720, 576},   {800, 600},   {848, 480},   {1024, 768},  {1152, 864},  {1280, 720},
    {1280, 768},  {1280, 800},  {1280, 960},  {1280, 1024}, {1360, 768},  {1366, 768},  {1400, 1050}, {1440, 900},
    {1680, 1050}, {1920, 1080}, {1920, 1200}, {2048, 1152}, {1600, 1200}, {3840, 2160},
};

namespace {

// Modes that are met at fractional rates, too (59.94 for 60). 1920x1200 and 2048x1152 have reduced blanking.
// clang-format off
constexpr mode_table_t g_timing_table[] = {
    // resolution, line rate, frame rate, totals, blanking, sync, sync + back porch (h and v each), flag
    {RES_1920X1080,  675, 600, 2200, 1125, 280, 45,  44,  5, 192, 41, 0},
    {RES_1920X1200,  740, 600, 2080, 1235, 160, 35,  32,  6, 112, 32, 0},
    {RES_2048X1152,  720, 600, 2250, 1200, 202, 48,  80,  3, 176, 47, 0},
    {RES_1600X1200,  750, 600, 2160, 1250, 560, 50, 192,  3, 496, 49, 0},
    {RES_3840X2160, 1350, 600, 4400, 2250, 560, 90,  88, 10, 384, 82, 0},
};
// clang-format on

constexpr int RATE_MARGIN = 4; // 0.1 Hz

template <class T>
constexpr std::uint16_t u16(T value) {
    return static_cast<std::uint16_t>(value);
}

/// False for NaN, and for what an unsigned 16-bit rate can't be.
constexpr bool fits16(double value) { return value >= 0 && value < 65536; }

bool lookUp(std::uint16_t width, std::uint16_t height, float rate, mode_table_t &row) {
    const float tenths = rate * 10.0F;
    const double whole = static_cast<double>(rate) + 0.5;
    return (fits16(tenths) && GetDmtTiming(width, height, u16(tenths), &row)) ||
           (fits16(whole) && GetVideoTiming(width, height, u16(whole), &row));
}

/// The parts of a timing that nobody computes: no image size, no borders, progressive, digital separate sync.
void setPlain(cea861_dtd_t &dtd) {
    dtd.HorizImageSize_mm = 0;
    dtd.VertImageSize_mm = 0;
    dtd.HorizBorder = 0;
    dtd.VertBorder = 0;
    dtd.Interlaced = false;
    dtd.StereoModeDecode = 0;
    dtd.SyncSignalDescription = 3;
    dtd.SyncSignalInfo = 0;
}

void setFromRow(cea861_dtd_t &dtd, const mode_table_t &row, float rate) {
    dtd.PixelClock = truncateTo<std::uint32_t>(static_cast<float>(row.h_total * row.v_total) * rate);
    dtd.HorizActivePixels = u16(row.h_total - row.h_blanking);
    dtd.HorizBlankingPixels = row.h_blanking;
    dtd.HorizSyncOffset = u16(row.h_blanking - row.h_start);
    dtd.HorizSyncPulseWidth = row.h_sync;
    dtd.VertActiveLines = u16(row.v_total - row.v_blanking);
    dtd.VertBlankingLines = row.v_blanking;
    dtd.VertSyncOffset = u16(row.v_blanking - row.v_start);
    dtd.VertSyncPulseWidth = row.v_sync;
}

/// Puts @p dtd in the first descriptor of a copy of @p model and hands the copy out.
void writeEdid(const std::uint8_t *model, std::uint8_t *out, const cea861_dtd_t &dtd) {
    std::uint8_t edid[EDID_SIZE];
    std::copy_n(model, EDID_SIZE, edid);
    edid_create_dtd(&dtd, edid + EDID_FIRST_DESCRIPTOR);
    renewChecksum(edid);
    std::copy_n(edid, EDID_SIZE, out);
}

} // namespace

bool GetDmtTiming(std::uint16_t width, std::uint16_t height, std::uint16_t frame_rate_x10, mode_table_t *timing) {
    const auto *const size = std::find_if(std::begin(g_resolution) + RES_1920X1080, std::end(g_resolution),
                                          [=](resolution_t r) { return r.width == width && r.height == height; });
    if (size == std::end(g_resolution) || !timing)
        return false;
    const auto *const row =
        std::find_if(std::begin(g_timing_table), std::end(g_timing_table), [=](const mode_table_t &r) {
            return r.en_res_idx == size - std::begin(g_resolution) && r.v_freq - frame_rate_x10 <= RATE_MARGIN &&
                   frame_rate_x10 - r.v_freq <= RATE_MARGIN;
        });
    if (row == std::end(g_timing_table))
        return false;
    *timing = *row;
    return true;
}

bool GetVideoTiming(std::uint16_t width, std::uint16_t height, std::uint16_t frame_rate, mode_table_t *timing) {
    const XVidC_VideoTimingMode *const mode = findVideoMode(width, height, frame_rate);
    if (!mode || !timing)
        return false;
    const XVidC_VideoTiming &t = mode->Timing;
    timing->h_freq = u16(frame_rate * t.F0PVTotal / 100);
    timing->v_freq = u16(frame_rate * 10);
    timing->h_total = t.HTotal;
    timing->v_total = t.F0PVTotal;
    timing->h_blanking = u16(t.HFrontPorch + t.HSyncWidth + t.HBackPorch);
    timing->v_blanking = u16(t.F0PVFrontPorch + t.F0PVSyncWidth + t.F0PVBackPorch);
    timing->h_sync = t.HSyncWidth;
    timing->v_sync = t.F0PVSyncWidth;
    timing->h_start = u16(t.HSyncWidth + t.HBackPorch);
    timing->v_start = u16(t.F0PVSyncWidth + t.F0PVBackPorch);
    timing->flag = 0;
    return true;
}

ResT_RET_t ResT_calDTD_by_model(CalcMode_t CalcMode, cea861_dtd_t *p_dtd, std::uint16_t width, std::uint16_t height,
                                float InputFreq) {
    if (!p_dtd)
        return ResT_ERR;
    mode_table_t row;
    if ((CalcMode == EN_AUTO || CalcMode == EN_DMT) && lookUp(width, height, InputFreq, row))
        setFromRow(*p_dtd, row, InputFreq);
    else if (CalcMode == EN_CVT || CalcMode == EN_AUTO)
        setFromFormula(*p_dtd, width, height, InputFreq);
    else
        return ResT_ERR;
    setPlain(*p_dtd);
    return ResT_OK;
}

ResT_RET_t ResT_verify_EDID(const std::uint8_t *pEDID) {
    if (!pEDID || !edidHeaderValid(pEDID) || edidSum(pEDID) != 0)
        return ResT_ERR;
    return pEDID[126] == 0 || edidSum(pEDID + EDID_BLOCK_SIZE) == 0 ? ResT_OK : ResT_ERR;
}

ResT_RET_t ResT_calEDID_by_model(CalcMode_t CalcMode, const std::uint8_t *pEDIDMODEL, std::uint8_t *pEDID_OUT,
                                 std::uint16_t width, std::uint16_t height, float InputFreq) {
    cea861_dtd_t dtd;
    if (!pEDID_OUT || ResT_verify_EDID(pEDIDMODEL) != ResT_OK ||
        ResT_calDTD_by_model(CalcMode, &dtd, width, height, InputFreq) != ResT_OK)
        return ResT_ERR;
    writeEdid(pEDIDMODEL, pEDID_OUT, dtd);
    return ResT_OK;
}

ResT_RET_t ResT_calEDID_by_DTD(const std::uint8_t *pEDIDMODEL, std::uint8_t *pEDID_OUT, cea861_dtd_t p_dtd) {
    if (!pEDID_OUT || ResT_verify_EDID(pEDIDMODEL) != ResT_OK)
        return ResT_ERR;
    setPlain(p_dtd);
    writeEdid(pEDIDMODEL, pEDID_OUT, p_dtd);
    return ResT_OK;
}
