#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The long form of the tests that plug, unplug and walk: ./tests/endurance.sh [CYCLES [WALKS [JOBS]]]
# 10,000 cycles on the running program and 2,000 walks through its window, unless told otherwise. As
# many programs as there are JOBS share the cycles, since most of a cycle's time is waiting. Each
# begins with a seed of its own; NUBO_SEED moves all of them.
set -euo pipefail
cd "$(dirname "$0")/.."
cycles=${1:-10000} walks=${2:-2000} jobs=${3:-8}
seed=${NUBO_SEED:-1}

source packaging/packages.sh
install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
preset=${NUBO_PRESET:-debug}
configure "$preset"
cmake --build --preset "$preset" --target nubo-tests-endurance nubo-camera-simulator nubo-setting-tool
build=$PWD/build/$preset
logs=$build/endurance
mkdir -p "$logs"
export LC_ALL=C.UTF-8 PYTHONDONTWRITEBYTECODE=1

failures=0
running=()
for ((job = 0; job < jobs; ++job)); do
    NUBO_CYCLES=$(((cycles + jobs - 1) / jobs)) NUBO_SEED=$((seed + job)) nice \
        tests/desktop/with-desktop.sh /usr/bin/python3 -W ignore::DeprecationWarning \
        tests/desktop/plugging_test.py "$build/simulator/nubo-camera-simulator" \
        "$build/app/nubo-setting-tool" >"$logs/cycles-$job.log" 2>&1 &
    running+=($!)
done
nice python3 tests/endurance/walks.py "$build/tests/endurance/nubo-tests-endurance" \
    "$seed" $((seed + walks - 1)) || failures=$((failures + 1))
for job in "${!running[@]}"; do
    wait "${running[$job]}" || {
        failures=$((failures + 1))
        grep --invert-match 'nubo.usb' "$logs/cycles-$job.log" | tail -n 30
    }
    grep --text -E ' cycles,|KiB:' "$logs/cycles-$job.log" | tail -n 2 || true
done
echo "$failures of $((jobs + 1)) runs failed; the logs are in $logs"
[ "$failures" -eq 0 ]
