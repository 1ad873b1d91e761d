#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the release preset with the benchmarks and runs them: all, or the
# rows named as arguments. Prints a table and writes build/bench/results.json. A goal that is missed
# is no failure; something that cannot be run is. With --kernel alone: what an open camera costs on a
# real kernel, in the virtual machine of tests/kernel; writes build/bench/kernel/idle.json.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ "${1-}" = --kernel ]; then
    [ $# -eq 1 ] || {
        echo "bench/run.sh: --kernel stands alone" >&2
        exit 2
    }
    source packaging/packages.sh
    source tests/kernel/machine.sh
    install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${MACHINE_PACKAGES[@]}"
    directory=$PWD/build/bench
    [ "$directory/build.ninja" -nt CMakePresets.json ] ||
        cmake --preset release -B "$directory" -DNUBO_BUILD_BENCH=ON
    cmake --build "$directory" \
        --target nubo-camera-simulator bench-window-empty bench-window-tool bench-idle
    MACHINE_OUTPUT=$directory/kernel
    # One instruction a nanosecond, whatever else this computer does meanwhile.
    MACHINE_PROCESSOR=(-accel "tcg,thread=single" -icount shift=0 -smp 1)
    fetch_kernel bookworm
    run_in_machine bookworm env "BUILD=$directory" "$PWD/tests/desktop/with-desktop.sh" \
        /usr/bin/python3 "$PWD/bench/kernel_idle.py" "$directory/bench"
    exit
fi

has_display=true
[ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ] || has_display=false

source packaging/packages.sh
display=()
if $has_display; then
    install_missing "${BUILD_PACKAGES[@]}"
else
    install_missing "${BUILD_PACKAGES[@]}" "${HEADLESS_PACKAGES[@]}"
    display=(xvfb-run --auto-servernum --server-args '-screen 0 1280x1024x24')
fi

directory=build/bench
[ $directory/build.ninja -nt CMakePresets.json ] ||
    cmake --preset release -B $directory -DNUBO_BUILD_BENCH=ON
cmake --build $directory --target nubo-bench

"${display[@]}" $directory/bench/nubo-bench --results $directory/results.json "$@"
