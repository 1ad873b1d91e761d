#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a command on an X server and a session bus of its own, as on a desktop.
set -euo pipefail

XDG_RUNTIME_DIR=$(mktemp --directory)
export XDG_RUNTIME_DIR
end() {
    [ -z "${server-}" ] || kill "$server"
    rm -rf "$XDG_RUNTIME_DIR"
}
trap end EXIT

# The server chooses a free number itself and writes it when it is ready.
mkfifo "$XDG_RUNTIME_DIR/display"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$XDG_RUNTIME_DIR/display" 2>/dev/null &
server=$!
read -r number <"$XDG_RUNTIME_DIR/display"
export DISPLAY=:$number
unset WAYLAND_DISPLAY

dbus-run-session -- "$@"
