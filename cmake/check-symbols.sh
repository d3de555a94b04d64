#!/usr/bin/env bash
# Compares what the library exports with cmake/exported-symbols.txt; --update rewrites the list.
# Compiler-made clones, inline functions and template instances (weak symbols of std and Qt) are left out.
set -euo pipefail
library=$1
list=$(dirname "$0")/exported-symbols.txt
current=$(mktemp)
trap 'rm -f "$current"' EXIT
nm -D --defined-only --demangle "$library" | sed -E 's/^[0-9a-f]+ //' |
    grep -E '^[TDBRV] |^W (typeinfo|vtable)' | grep -vE '^. (std::|Qt|QList|QVector|QMap|non-virtual thunk)' |
    grep -E '(Quorix|ImageStorager|ajson|ResT|edid_|vert_refresh|Get[DV]|XVidC|g_|ObjectSignalLocker)' | sort -u >"$current"
if [ "${2:-}" = --update ]; then
    cp "$current" "$list"
else
    diff -u "$list" "$current" || { echo "exported symbols changed: cmake/check-symbols.sh LIBRARY --update" >&2; exit 1; }
fi
