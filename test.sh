#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds and runs all tests. Arguments go on to ctest, and what the tests
# that they choose do not need is not built: ./test.sh -R Packet
# NUBO_PRESET chooses another configuration than debug: asan, tsan or coverage.
# --coverage, as the first argument, chooses the latter, prints how much of each folder was run and
# fails where that is too little.
set -euo pipefail
cd "$(dirname "$0")"

source packaging/packages.sh
install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"

preset=${NUBO_PRESET:-debug}
wants_coverage=false
if [ "${1-}" = --coverage ]; then
    shift
    wants_coverage=true
    preset=coverage
    install_missing "${COVERAGE_PACKAGES[@]}"
fi
configure "$preset"
# Configures again for what has changed, a new test among it, before the tests are asked for.
cmake --build --preset "$preset" --target build.ninja
# A test's labels are the targets that it runs.
mapfile -t targets < <(
    ctest --preset "$preset" --show-only=json-v1 "$@" | python3 -c '
import json, sys
labels = {label for test in json.load(sys.stdin)["tests"] for entry in test["properties"]
          if entry["name"] == "LABELS" for label in entry["value"]}
for label in sorted(labels):
    print(label)'
)
# Without a choice all is built, and not only what has a test.
[ $# -gt 0 ] || targets=(all)
[ ${#targets[@]} -eq 0 ] || cmake --build --preset "$preset" --target "${targets[@]}"
if $wants_coverage; then
    find build/coverage -name '*.gcda' -delete
fi
# As systemd sets it when a computer starts. Ten announcements that wait for a busy program are the end
# of the emulated bus.
queue=/proc/sys/net/unix/max_dgram_qlen
if [ -w $queue ] && [ "$(<$queue)" -lt 512 ]; then
    echo 512 >$queue || true
fi
# Most of a test's time is real time that the tool has to wait: more run at once than there are cores.
ctest --preset "$preset" --no-label-summary --parallel "$((2 * $(nproc)))" "$@"
if $wants_coverage; then
    python3 tests/coverage.py build/coverage
fi
