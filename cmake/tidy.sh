#!/usr/bin/env bash
# clang-tidy over what changed since TIDY_BASE: a revision, `all`, or by default the last one older than six hours.
# The path-sensitive analyser takes a minute for a source: it runs with TIDY_DEEP=1, as `make tidy` does.
set -euo pipefail
cd "$(dirname "$0")/.."
base=${TIDY_BASE:-$(git rev-list -1 --before='6 hours ago' HEAD)}
if [ -z "$base" ]; then
    echo "no revision to compare with; TIDY_BASE=all cmake/tidy.sh analyses every source"
    exit 0
fi
# clang doesn't read the precompiled header of g++.
cmake --preset default -B build/tidy -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
if [ "$base" = all ]; then git ls-files -- 'src/*.cpp'; else git diff --name-only --diff-filter=d "$base" -- 'src/*.cpp'; fi |
    xargs -r -P "${JOBS:-$(nproc)}" -n 2 clang-tidy -p build/tidy --quiet \
        ${TIDY_DEEP:+--checks=clang-analyzer-*,-clang-analyzer-cplusplus.NewDeleteLeaks} 2>/dev/null
