#include <quorixtiming/cvt12.h>
#include <quorixtiming/truncate_p.h>

#include <algorithm>
#include <cmath>

// Every named value is a float, as the results are compared bit by bit with those of other stations; only the estimates
// of the line period and what is computed from them directly are doubles.
namespace {

constexpr float CELL_GRAN_RND = 1.0F;
constexpr float CLOCK_STEP = 0.001F; // MHz
constexpr float RB_V_FPORCH = 3.0F;
constexpr float MIN_V_BPORCH = 3.0F;
constexpr double RB_MIN_V_BLANK = 460; // us

// CVT 1.2, table 2: the sync width tells the aspect of the picture.
constexpr struct AspectSync {
    double wide, high;
    float v_sync;
} ASPECTS[] = {
    {4, 3, 4}, {16, 9, 5}, {16, 10, 6}, {5, 4, 7}, {15, 9, 7},
};

float verticalSync(double h_pixels_rnd, double v_lines) {
    for (const auto &[wide, high, v_sync] : ASPECTS)
        if (h_pixels_rnd == CELL_GRAN_RND * std::floor(v_lines * wide / high / CELL_GRAN_RND))
            return v_sync;
    return 10;
}

} // namespace

void vert_refresh(int h_pixels, int v_lines, float freq, int interlaced, int reduced_blank, int margins,
                  int film_optimized, cvt_mode *m) {
    if (!m)
        return;
    const auto lines = static_cast<float>(v_lines);
    const float h_pixels_rnd = CELL_GRAN_RND * std::floor(static_cast<float>(h_pixels) / CELL_GRAN_RND);
    const float v_sync = verticalSync(h_pixels_rnd, v_lines);
    const float interlace = interlaced ? 0.5F : 0.0F;
    const float v_lines_rnd = interlaced ? std::floor(lines / 2.0F) : lines;
    const float left_margin = margins ? CELL_GRAN_RND * std::floor(h_pixels_rnd * 1.8F / 100.0F / CELL_GRAN_RND) : 0.0F;
    const float top_margin = margins ? std::floor(v_lines_rnd * 0.018F) : 0.0F;
    const float total_active_pixels = h_pixels_rnd + 2.0F * left_margin;

    float total_v_lines = 0;
    float total_pixels = 0;
    float act_pixel_freq = 0;
    float h_front_porch = 0;
    float h_sync_rnd = 0;
    float v_front_porch = 0;
    if (reduced_blank) {
        const double h_period_est = (1000000.0 / freq - RB_MIN_V_BLANK) / (v_lines_rnd + 2.0F * top_margin);
        const auto vbi_lines = static_cast<float>(std::floor(RB_MIN_V_BLANK / h_period_est) + 1.0);
        const float rb_min_vbi = RB_V_FPORCH + v_sync + 6.0F;
        const float act_vbi_lines = vbi_lines > rb_min_vbi ? vbi_lines : rb_min_vbi; // rb_min_vbi also for NaN
        total_v_lines = act_vbi_lines + v_lines_rnd + 2.0F * top_margin + interlace;
        total_pixels = total_active_pixels + 160.0F;
        v_front_porch = RB_V_FPORCH;
        h_front_porch = 48;
        h_sync_rnd = 32;
        act_pixel_freq = CLOCK_STEP * std::floor(freq * total_v_lines * total_pixels / 1000000.0F / CLOCK_STEP);
        if (film_optimized == 1)
            act_pixel_freq = act_pixel_freq * 1000.0F / 1001.0F;
    } else {
        const double h_period_est =
            (1.0 / freq - 0.00055) / (v_lines_rnd + 2.0F * top_margin + 3.0F + interlace) * 1000000.0;
        const auto v_sync_bp_est = static_cast<float>(std::floor(550.0 / h_period_est) + 1.0);
        const float v_sync_bp = v_sync_bp_est > v_sync + MIN_V_BPORCH ? v_sync_bp_est : v_sync + MIN_V_BPORCH;
        total_v_lines = v_lines_rnd + 2.0F * top_margin + v_sync_bp + interlace + 3.0F;
        const auto ideal_duty_cycle = static_cast<float>(30.0 - h_period_est * 300.0 / 1000.0);
        const float cur_duty_cycle = std::max(20.0F, ideal_duty_cycle); // 20 also for NaN
        const float h_blank =
            2.0F * CELL_GRAN_RND *
            std::floor(total_active_pixels * cur_duty_cycle / (100.0F - cur_duty_cycle) / (2.0F * CELL_GRAN_RND));
        total_pixels = total_active_pixels + h_blank;
        act_pixel_freq = static_cast<float>(CLOCK_STEP * std::floor(total_pixels / h_period_est / CLOCK_STEP));
        h_sync_rnd = CELL_GRAN_RND * std::floor(total_pixels * 0.08F / CELL_GRAN_RND);
        h_front_porch = h_blank - h_blank / 2.0F - h_sync_rnd;
        v_front_porch = 3;
    }

    const float act_h_freq = act_pixel_freq * 1000.0F / total_pixels;
    m->hr = truncateTo<int>(h_pixels_rnd);
    m->hss = truncateTo<int>(h_pixels_rnd + h_front_porch);
    m->hse = truncateTo<int>(h_pixels_rnd + h_front_porch + h_sync_rnd);
    m->hfl = truncateTo<int>(total_pixels);
    m->vr = v_lines;
    m->vss = truncateTo<int>(lines + v_front_porch);
    m->vse = truncateTo<int>(lines + v_front_porch + v_sync);
    m->vfl = truncateTo<int>(total_v_lines - v_lines_rnd + lines);
    m->pclk = act_pixel_freq;
    m->h_freq = act_h_freq;
    m->v_freq = freq;
    m->real_v_rate = act_h_freq * 1000.0F / total_v_lines;
    m->reduced_blank = reduced_blank;
    m->interlaced = interlaced;
}
