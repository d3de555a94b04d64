#!/bin/sh
# Refreshes the catalogues of i18n/ from the sources: the texts alone, and the template of each language, whose
# translations stay. Run it by hand after a text for the user was added or changed. Needs qttools5-dev-tools.
set -eu
cd "$(dirname "$0")/.."

options="-silent -no-obsolete -locations none -source-language en"
sources="src/libs/quorixbizmodel -extensions cpp,h -I src/libs"

lupdate $options $sources -target-language en -ts i18n/quorixbizmodel.ts
for language in zh_CN; do
    lupdate $options $sources -target-language $language -ts "i18n/quorixbizmodel_$language.ts"
done

# A text without a context is never translated: lupdate doesn't follow aliases, so tr() is called by the class's own name.
if grep -q '<name></name>' i18n/*.ts; then
    echo "i18n: texts without a context, see the warnings above" >&2
    exit 1
fi
