/// One timing at a time, next to libxcvt.
#include <quorixtiming/quorixtiming.h>

#include <benchmark/benchmark.h>
#include <libxcvt/libxcvt.h>

#include <cstdlib>
#include <iterator>

namespace {

// Modes that no table holds: the formula in both blankings, an odd aspect, and a rate between the standard ones.
constexpr struct Mode {
    std::uint16_t width, height;
    float rate;
} MODES[] = {{2560, 1440, 60}, {3840, 1080, 60}, {1000, 1000, 50}, {1024, 768, 61}, {1920, 1080, 72}};

template <class Calculate>
void run(benchmark::State &state, Calculate calculate) {
    for (auto _ : state)
        for (Mode mode : MODES) {
            benchmark::DoNotOptimize(mode);
            calculate(mode);
        }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(std::size(MODES)));
}

void cvt(benchmark::State &state, int reduced) {
    run(state, [reduced](const Mode &mode) {
        cvt_mode m;
        vert_refresh(mode.width, mode.height, mode.rate, 0, reduced, 0, 0, &m);
        benchmark::DoNotOptimize(m);
    });
}

void libxcvt(benchmark::State &state, bool reduced) {
    // Its result is allocated, by its interface; that is part of what a caller pays.
    run(state, [reduced](const Mode &mode) {
        libxcvt_mode_info *const info = libxcvt_gen_mode_info(mode.width, mode.height, mode.rate, reduced, false);
        benchmark::DoNotOptimize(*info);
        std::free(info);
    });
}

/// Whole descriptors; with EN_AUTO both tables are searched in vain before the formula.
void descriptor(benchmark::State &state, CalcMode_t calcMode) {
    run(state, [calcMode](const Mode &mode) {
        cea861_dtd_t dtd;
        ResT_calDTD_by_model(calcMode, &dtd, mode.width, mode.height, mode.rate);
        benchmark::DoNotOptimize(dtd);
    });
}

BENCHMARK_CAPTURE(cvt, reduced_blanking, 1);
BENCHMARK_CAPTURE(libxcvt, reduced_blanking, true);
BENCHMARK_CAPTURE(descriptor, formula, EN_CVT);
BENCHMARK_CAPTURE(descriptor, tables_then_formula, EN_AUTO);
BENCHMARK_CAPTURE(cvt, normal_blanking, 0);
BENCHMARK_CAPTURE(libxcvt, normal_blanking, false);

} // namespace

BENCHMARK_MAIN();
