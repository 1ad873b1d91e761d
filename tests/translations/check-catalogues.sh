#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# check-catalogues.sh LUPDATE SOURCE_DIRECTORY: fails when a text of the sources is missing or
# unfinished in a catalogue, or when a catalogue holds a text that the sources no longer have.
set -euo pipefail
lupdate=$1
cd "$2"
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

for catalogue in resources/translations/nubo_*.ts; do
    check "$catalogue" "${tool_sources[@]}"
done
for catalogue in resources/translations/ClAppCheck_*.ts; do
    check "$catalogue" "${guard_sources[@]}"
done
exit $failed
