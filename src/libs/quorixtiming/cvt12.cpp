#include <quorixtiming/cvt12.h>
#include <quorixtiming/cvt12_p.h>
#include <quorixtiming/truncate_p.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

// Every named value is a float, as the results are compared bit by bit with those of other stations; only the estimates
// of the line period and what is computed from them directly are doubles.
namespace {

constexpr float CELL_GRAN_RND = 1.0F;
constexpr float CLOCK_STEP = 0.001F; // MHz
constexpr float RB_V_FPORCH = 3.0F;
constexpr float MIN_V_BPORCH = 3.0F;
constexpr double RB_MIN_V_BLANK = 460; // us

/// std::floor without a call into the library where the value fits in an `int`.
template <class T>
T floorOf(T value) {
    if (!(std::abs(value) < T(2e9)))
        return std::floor(value);
    const auto whole = static_cast<T>(static_cast<int>(value));
    return whole - static_cast<T>(whole > value);
}

// The sync width tells the aspect of the picture.
constexpr struct AspectSync {
    std::int64_t wide, high;
    float v_sync;
} ASPECTS[] = {
    {4, 3, 4}, {16, 9, 5}, {16, 10, 6}, {5, 4, 7}, {15, 9, 7},
};

float verticalSync(std::int64_t h_pixels, std::int64_t v_lines) {
    // h == floor(v * wide / high), without a division.
    for (const auto &[wide, high, v_sync] : ASPECTS)
        if (const std::int64_t rest = v_lines * wide - h_pixels * high; rest >= 0 && rest < high)
            return v_sync;
    return 10;
}

// Inlined in both its callers: the second one then pays for no value that it doesn't use.
[[gnu::always_inline]] inline cvt_mode compute(int h_pixels, int v_lines, float freq, int interlaced, int reduced_blank,
                                               int margins, int film_optimized) {
    const auto lines = static_cast<float>(v_lines);
    const float h_pixels_rnd = CELL_GRAN_RND * floorOf(static_cast<float>(h_pixels) / CELL_GRAN_RND);
    const float v_sync = verticalSync(static_cast<std::int64_t>(h_pixels_rnd), v_lines);
    const float interlace = interlaced ? 0.5F : 0.0F;
    const float v_lines_rnd = interlaced ? floorOf(lines / 2.0F) : lines;
    const float left_margin = margins ? CELL_GRAN_RND * floorOf(h_pixels_rnd * 1.8F / 100.0F / CELL_GRAN_RND) : 0.0F;
    const float top_margin = margins ? floorOf(v_lines_rnd * 0.018F) : 0.0F;
    const float total_active_pixels = h_pixels_rnd + 2.0F * left_margin;

    float total_v_lines = 0;
    float total_pixels = 0;
    float act_pixel_freq = 0;
    float h_front_porch = 0;
    float h_sync_rnd = 0;
    float v_front_porch = 0;
    if (reduced_blank) {
        const double h_period_est = (1000000.0 / freq - RB_MIN_V_BLANK) / (v_lines_rnd + 2.0F * top_margin);
        const auto vbi_lines = static_cast<float>(floorOf(RB_MIN_V_BLANK / h_period_est) + 1.0);
        const float rb_min_vbi = RB_V_FPORCH + v_sync + 6.0F;
        const float act_vbi_lines = vbi_lines > rb_min_vbi ? vbi_lines : rb_min_vbi; // rb_min_vbi also for NaN
        total_v_lines = act_vbi_lines + v_lines_rnd + 2.0F * top_margin + interlace;
        total_pixels = total_active_pixels + 160.0F;
        v_front_porch = RB_V_FPORCH;
        h_front_porch = 48;
        h_sync_rnd = 32;
        act_pixel_freq = CLOCK_STEP * floorOf(freq * total_v_lines * total_pixels / 1000000.0F / CLOCK_STEP);
        if (film_optimized == 1)
            act_pixel_freq = act_pixel_freq * 1000.0F / 1001.0F;
    } else {
        const double h_period_est =
            (1.0 / freq - 0.00055) / (v_lines_rnd + 2.0F * top_margin + 3.0F + interlace) * 1000000.0;
        const auto v_sync_bp_est = static_cast<float>(floorOf(550.0 / h_period_est) + 1.0);
        const float v_sync_bp = v_sync_bp_est > v_sync + MIN_V_BPORCH ? v_sync_bp_est : v_sync + MIN_V_BPORCH;
        total_v_lines = v_lines_rnd + 2.0F * top_margin + v_sync_bp + interlace + 3.0F;
        const auto ideal_duty_cycle = static_cast<float>(30.0 - h_period_est * 300.0 / 1000.0);
        const float cur_duty_cycle = std::max(20.0F, ideal_duty_cycle); // 20 also for NaN
        const float h_blank =
            2.0F * CELL_GRAN_RND *
            floorOf(total_active_pixels * cur_duty_cycle / (100.0F - cur_duty_cycle) / (2.0F * CELL_GRAN_RND));
        total_pixels = total_active_pixels + h_blank;
        act_pixel_freq = static_cast<float>(CLOCK_STEP * floorOf(total_pixels / h_period_est / CLOCK_STEP));
        h_sync_rnd = CELL_GRAN_RND * floorOf(total_pixels * 0.08F / CELL_GRAN_RND);
        h_front_porch = h_blank - h_blank / 2.0F - h_sync_rnd;
        v_front_porch = 3;
    }

    const float act_h_freq = act_pixel_freq * 1000.0F / total_pixels;
    cvt_mode m;
    m.hr = truncateTo<int>(h_pixels_rnd);
    m.hss = truncateTo<int>(h_pixels_rnd + h_front_porch);
    m.hse = truncateTo<int>(h_pixels_rnd + h_front_porch + h_sync_rnd);
    m.hfl = truncateTo<int>(total_pixels);
    m.vr = v_lines;
    m.vss = truncateTo<int>(lines + v_front_porch);
    m.vse = truncateTo<int>(lines + v_front_porch + v_sync);
    m.vfl = truncateTo<int>(total_v_lines - v_lines_rnd + lines);
    m.pclk = act_pixel_freq;
    m.h_freq = act_h_freq;
    m.v_freq = freq;
    m.real_v_rate = act_h_freq * 1000.0F / total_v_lines;
    m.reduced_blank = reduced_blank;
    m.interlaced = interlaced;
    return m;
}

} // namespace

void vert_refresh(int h_pixels, int v_lines, float freq, int interlaced, int reduced_blank, int margins,
                  int film_optimized, cvt_mode *m) {
    if (m)
        *m = compute(h_pixels, v_lines, freq, interlaced, reduced_blank, margins, film_optimized);
}

void setFromFormula(cea861_dtd_t &dtd, std::uint16_t width, std::uint16_t height, float rate) {
    const auto u16 = [](int value) { return static_cast<std::uint16_t>(value); };
    const cvt_mode m = compute(width, height, rate, 0, 1, 0, 0);
    dtd.PixelClock = truncateTo<std::uint32_t>(m.pclk * 1000000.0F);
    dtd.HorizActivePixels = u16(m.hr);
    dtd.HorizBlankingPixels = u16(m.hfl - m.hr);
    dtd.HorizSyncOffset = u16(m.hss - m.hr);
    dtd.HorizSyncPulseWidth = u16(m.hse - m.hss);
    dtd.VertActiveLines = u16(m.vr);
    dtd.VertBlankingLines = u16(m.vfl - m.vr);
    dtd.VertSyncOffset = u16(m.vss - m.vr);
    dtd.VertSyncPulseWidth = u16(m.vse - m.vss);
}
