#!/usr/bin/env bash
# Asks the sources of the libraries: each text of texts.txt is in them, and each signal of the hub comes from where
# signals.tsv says: "library" if the library emits it, "host" if only an application does. Prints what isn't so.
set -euo pipefail
cd "$(dirname "$0")"
code=$(mktemp)
trap 'rm -f "$code"' EXIT
# One line, so that neighbouring literals can be joined.
find ../../src/libs -name '*.h' -o -name '*.cpp' | xargs cat | tr '\n' ' ' | sed 's/" *"//g' >"$code"

failures=0
while IFS= read -r text; do
    grep -qF -- "\"$text\"" "$code" || { echo "no such text: $text"; failures=1; }
done <texts.txt

emitted=$(grep -oE '(DeviceList::|instance\(\)->|Q_EMIT )signal\w+' "$code" | grep -oE 'signal\w+' | sort -u)
while IFS=$'\t' read -r signature source; do
    found=host
    grep -qxF "${signature%%(*}" <<<"$emitted" && found=library
    [ "$found" = "$source" ] || { echo "comes from the $found: $signature"; failures=1; }
done <signals.tsv
exit $failures
