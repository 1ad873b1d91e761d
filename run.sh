#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# NUBO_PRESET chooses another configuration than release, as in test.sh.
set -euo pipefail
cd "$(dirname "$0")"

usage() {
    cat <<'TEXT'
Usage: ./run.sh [--usb | --help]

Installs what is missing (Debian 12, as root or with sudo), builds the tool and starts it.

  (nothing)  on a simulated camera: no hardware is needed. In a terminal, type control lines to the
             camera while the tool runs: unplug, plug, set battery 9, help.
             Without a display, the tool walks through all that it has under Xvfb and leaves a
             picture of each page and dialog in build/tour/.
  --usb      on the real USB bus, for the camera's identity that is configured (see the README)
  --help     this text
TEXT
}

bus=simulated
case "$#:${1-}" in
0:) ;;
1:--usb) bus=real ;;
1:--help)
    usage
    exit
    ;;
*)
    echo "run.sh: wrong arguments: $* (see ./run.sh --help)" >&2
    exit 2
    ;;
esac

has_display=true
[ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ] || has_display=false
if [ $bus = real ] && ! $has_display; then
    echo "run.sh: --usb needs a display" >&2
    exit 1
fi

source packaging/packages.sh
needed=("${BUILD_PACKAGES[@]}")
$has_display || needed+=("${HEADLESS_PACKAGES[@]}")
[ -z "${WAYLAND_DISPLAY-}" ] || needed+=("${WAYLAND_PACKAGES[@]}")
install_missing "${needed[@]}"
preset=${NUBO_PRESET:-release}
build "$preset"

tool=build/$preset/app/nubo-setting-tool
simulator=build/$preset/simulator/nubo-camera-simulator
if [ $bus = real ]; then
    exec "$tool"
elif ! $has_display; then
    exec xvfb-run --auto-servernum --server-args '-screen 0 1280x1024x24' \
        "$simulator" -- "build/$preset/tour/nubo-tour" build/tour
elif [ -t 0 ]; then
    exec "$simulator" --interactive -- "$tool"
else
    exec "$simulator" -- "$tool"
fi
