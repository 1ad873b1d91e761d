#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# check-catalogues.sh LUPDATE CMAKE SOURCE_DIRECTORY: fails when a text of the sources is missing or
# unfinished in a catalogue, or when a catalogue holds a text that the sources no longer have; or when
# the English catalogue, written when building, says anything else than the sources.
set -euo pipefail
lupdate=$1
cmake=$2
cd "$3"
scratch=$(mktemp -d)
trap 'rm -r "$scratch"' EXIT

guard_sources=(app/ClAppCheck.cpp app/ClAppCheck.h)
mapfile -t tool_sources < <(find app pages ui -name '*.cpp' -o -name '*.h' | grep -v ClAppCheck | sort)
failed=0

check() { # check CATALOGUE SOURCE...
    local catalogue=$1 updated=$scratch/${1##*/} wrong
    shift
    cp "$catalogue" "$updated"
    "$lupdate" -silent -locations none -I . "$@" -ts "$updated"
    # An empty translation of a text that has none counts as unfinished too.
    if wrong=$(grep --before-context 1 --extended-regexp \
        'type="(unfinished|vanished|obsolete)"|<translation></translation>' "$updated"); then
        echo "$catalogue:" >&2
        echo "$wrong" >&2
        failed=1
    fi
}

write_english() { # write_english CATALOGUE OUTPUT
    "$cmake" -DCATALOGUE="$1" -DOUTPUT="$2" -P resources/translations/source-catalogue.cmake
}

# The text of each ELEMENT of a catalogue, one a line.
texts() { # texts ELEMENT CATALOGUE
    perl -0777 -ne 'while (m{<'"$1"'[^>]*>(.*?)</'"$1"'>}sg) { print $1 =~ s/\n/\\n/gr, "\n" }' "$2"
}

says_its_sources() { # says_its_sources CATALOGUE
    if ! diff <(texts source "$1") <(texts translation "$1") >&2; then
        echo "$1 translates texts" >&2
        failed=1
    fi
}

english=$scratch/english/nubo_en.ts
mkdir "$scratch/english"
write_english resources/translations/nubo_ja.ts "$english"
says_its_sources "$english"

# What a catalogue may hold, beyond what this one happens to.
cat >"$scratch/special.ts" <<'TEXT'
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>ClWidgetHelp</name>
    <message>
        <source>[0; 9] &amp; \1 of
two lines</source>
        <comment>a place</comment>
        <extracomment>a hint</extracomment>
        <translation>二行</translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
TEXT
write_english "$scratch/special.ts" "$scratch/special_en.ts"
says_its_sources "$scratch/special_en.ts"
grep --quiet 'language="en_US"' "$scratch/special_en.ts" || failed=1

echo '<message numerus="yes"><source>%n files</source></message>' >"$scratch/plural.ts"
if write_english "$scratch/plural.ts" "$scratch/plural_en.ts" 2>/dev/null; then
    echo "A plural form was taken for English" >&2
    failed=1
fi

for catalogue in resources/translations/nubo_*.ts "$english"; do
    check "$catalogue" "${tool_sources[@]}"
done
for catalogue in resources/translations/ClAppCheck_*.ts; do
    check "$catalogue" "${guard_sources[@]}"
done
exit $failed
