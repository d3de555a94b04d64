#!/usr/bin/env bash
# The stricter checks behind `make check`: format, static analysis, sanitizers, fuzzing, the size of the tests, exported
# symbols and an installed consumer. Each step says its name; the first failure ends the run.
# FUZZ_SECONDS (each target, default 20), STRESS_SECONDS (each stress test, default 60) and TIDY_BASE (see tidy.sh) can
# be set.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=${JOBS:-$(nproc)}
export QT_QPA_PLATFORM=offscreen

step() { printf '\n== %s\n' "$*"; }
sources() { git ls-files --cached --others --exclude-standard -- "$@"; }

step "format"
sources 'src/*.h' 'src/*.cpp' 'tests/*.h' 'tests/*.cpp' 'bench/*.cpp' 'docs/*.cpp' |
    xargs -r clang-format --dry-run --Werror

step "size of the tests"
lines() { sources "$@" | xargs -r cat | grep -cv '^[[:space:]]*$'; }
code=$(lines 'src/*.h' 'src/*.cpp')
tests=$(lines 'tests/*.h' 'tests/*.cpp')
awk -v c="$code" -v t="$tests" 'BEGIN {
    r = t / c; printf "src %d, tests %d lines: %.3f (wanted: a quarter to a third)\n", c, t, r
    exit r < 0.25 || r > 1 / 3 }'

step "documents"
cmake/check-words.sh

step "sample files and their schemas"
validate() { xmllint --noout --nonet --schema "docs/schemas/$1.xsd" "${@:2}"; }
validate device_capabilities data/devices/*.xml
validate device_timeouts data/devices/timeout/*.xml
validate interface_capabilities data/QuorixInterfaceCfg.xml
validate layer_layouts data/layouts/layers/layout.xml
validate screen_layouts data/layouts/screens/layout.xml
validate mvr_layouts data/layouts/mvr/layout.xml

step "static analysis"
cmake/tidy.sh

step "sanitizers: address and undefined behaviour (clang, with the fuzz targets)"
cmake --preset asan >/dev/null
cmake --build --preset asan -j "$jobs" -- --quiet
ctest --preset asan -j "$jobs"

step "sanitizers: threads"
cmake --preset tsan >/dev/null
cmake --build --preset tsan -j "$jobs" -- --quiet
ctest --preset tsan -j "$jobs"

step "edits beside the saver, and stores that are killed"
QUORIX_STRESS_SECONDS=${STRESS_SECONDS:-60} TSAN_OPTIONS=suppressions=tests/support/tsan.supp \
    build/tsan/bin/persistence_tests --gtest_brief=1 --gtest_filter='*GoesOnBesideEdits' &
stress=$!
QUORIX_KILL_SECONDS=${STRESS_SECONDS:-60} \
    build/asan/bin/persistence_tests --gtest_brief=1 --gtest_filter='*MayBeKilledAtAnyMoment'
wait $stress

step "fuzzing"
# Leak detection stays on; findings are written beside the working corpus and end the run.
find build/asan/bin -name 'fuzz_*' | sort | xargs -P "$jobs" -I{} sh -ec '
    name=${1##*/fuzz_}
    work=build/asan/corpus/$name
    mkdir -p "$work"
    "$1" -max_total_time="${FUZZ_SECONDS:-20}" -rss_limit_mb=2048 -timeout=20 -print_final_stats=1 -verbosity=0 \
        -artifact_prefix="$work/finding-" "$work" "tests/fuzz/corpus/$name" >"$work.log" 2>&1 ||
        { cat "$work.log"; exit 255; }
    grep -h number_of_executed "$work.log" | sed "s/.*units:/$name: executed/"' fuzz {}

step "exported symbols; benchmarks build"
cmake --preset default -DQUORIX_BENCH=ON >/dev/null
cmake --build --preset default -j "$jobs" -- --quiet
cmake/check-symbols.sh build/default/lib/libquorixbizmodel.so.1

step "an EDID that other tools accept"
made=$(mktemp)
build/default/bin/quorixctl edid make data/edid/wall_input.bin 2560x1440@59.94 -o "$made"
edid-decode --check "$made" | tee build/edid.txt | tail -n 1
if sed -n '/^Failures:/,$p' build/edid.txt | grep -A 3 '^Block 0'; then exit 1; fi
rm -f "$made"

step "installed consumer"
rm -rf build/stage build/consumer
cmake --install build/default --prefix build/stage >/dev/null
cmake -S tests/consumer -B build/consumer -G Ninja -DCMAKE_PREFIX_PATH="$PWD/build/stage" >/dev/null
cmake --build build/consumer -- --quiet
LD_LIBRARY_PATH=$(dirname "$(find build/stage -name libquorixbizmodel.so.1)") build/consumer/consumer
pc=$(dirname "$(find build/stage -name quorixbizmodel.pc)")
PKG_CONFIG_PATH=$pc pkg-config --cflags --libs quorixbizmodel >/dev/null

printf '\nAll checks passed.\n'
