#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the fuzz targets with Clang and fuzzes each for SECONDS, as many at once as there are cores.
# Findings are left in build/fuzz/findings; with one, the exit code is 1.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -ne 1 ] || ! [[ $1 =~ ^[1-9][0-9]*$ ]]; then
    echo "Usage: fuzz/run.sh SECONDS (of fuzzing for each target)" >&2
    exit 2
fi
seconds=$1

source packaging/packages.sh
install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"

targets=(packets data-receive dispatcher setting-values profiles arguments)
build=build/fuzz
findings=$build/findings
configure fuzz
cmake --build --preset fuzz --target "${targets[@]/#/fuzz-}"

# The committed corpus is text; libFuzzer reads bytes.
write_seeds() {
    local target=$1 text
    mkdir -p "$build/seeds/$target"
    for text in "fuzz/corpus/$target"/*.hex; do
        perl -0777 -pe 's/#.*//g; s/\s//g; $_ = pack "H*", $_' "$text" \
            >"$build/seeds/$target/$(basename "$text" .hex)"
    done
}

# Nothing in the protocol allocates more than what arrives; a decoded picture may have 128 MiB.
fuzz() {
    local target=$1 allocation_mib=16
    [ "$target" = dispatcher ] && allocation_mib=160
    mkdir -p "$build/corpus/$target"
    "$build/fuzz/fuzz-$target" -max_total_time="$seconds" -max_len=4096 -timeout=10 \
        -malloc_limit_mb=$allocation_mib -print_final_stats=1 -verbosity=1 \
        -artifact_prefix="$findings/$target-" "$build/corpus/$target" "$build/seeds/$target" \
        >"$build/$target.log" 2>&1
}

report() {
    local target=$1 outcome=$2 log=$build/$1.log runs coverage
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    coverage=$(sed -n 's/.* cov: \([0-9]*\) ft: \([0-9]*\) .*/\1 edges, \2 features/p' "$log" | tail -n 1)
    echo "$target: ${runs:-no} runs, ${coverage:-nothing} covered, $outcome"
}

mkdir -p $findings
for target in "${targets[@]}"; do
    write_seeds "$target"
done

# Each target's fuzzing ends with the file that says how.
rm -f "${targets[@]/#/$build/outcome-}"
for target in "${targets[@]}"; do
    while [ "$(jobs -pr | wc -l)" -ge "$(nproc)" ]; do
        wait -n || true
    done
    { fuzz "$target" && echo "no finding" || echo "FINDING, see $build/$target.log"; } \
        >"$build/outcome-$target" &
done
wait

has_finding=false
for target in "${targets[@]}"; do
    outcome=$(<"$build/outcome-$target")
    [ "$outcome" = "no finding" ] || has_finding=true
    report "$target" "$outcome"
done
! $has_finding
