#!/usr/bin/env bash
# The tree speaks for itself: no file names a document outside it, nor the path of one machine.
set -euo pipefail
cd "$(dirname "$0")/.."
words='[Ss]pec[i]fication|\b[Tt]he sp[e]c\b|\bsp[e]c\.md\b|\b[P]art [0-9]+(\.[0-9]+)?\b|(^|[^A-Za-z0-9_.])/(wor[k]|far[m]|roo[t])/'
if git ls-files --cached --others --exclude-standard -z | xargs -0 grep -InE "$words" --; then
    echo "words that no file may hold" >&2
    exit 1
fi
