#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Takes the tour through everything that the tool shows under valgrind; fails when memory is lost for
# good, whoever lost it. Needs a few minutes, and writes what valgrind says to build/debug/leaks.log.
set -euo pipefail
cd "$(dirname "$0")/.."

source packaging/packages.sh
install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" valgrind
configure debug
cmake --build --preset debug --target nubo-tour nubo-camera-simulator

pictures=$(mktemp --directory)
trap 'rm -rf "$pictures"' EXIT
status=0
LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 \
    build/debug/simulator/nubo-camera-simulator -- \
    valgrind --leak-check=full --show-leak-kinds=definite --errors-for-leak-kinds=definite \
    --undef-value-errors=no --num-callers=30 --error-exitcode=1 \
    --log-file=build/debug/leaks.log \
    build/debug/tour/nubo-tour "$pictures" || status=$?
sed -n '/LEAK SUMMARY/,$p' build/debug/leaks.log
exit $status
