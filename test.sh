#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds and runs all tests. Arguments go on to ctest: ./test.sh -R Packet
# NUBO_PRESET chooses another configuration than debug: asan, tsan or coverage.
set -euo pipefail
cd "$(dirname "$0")"

source packaging/packages.sh
install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"

preset=${NUBO_PRESET:-debug}
build "$preset"
# Most of a test's time is real time that the tool has to wait: more run at once than there are cores.
ctest --preset "$preset" --parallel "$((2 * $(nproc)))" "$@"
