#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a command on an X server and a session bus of its own, as on a desktop.
set -euo pipefail

XDG_RUNTIME_DIR=$(mktemp --directory)
export XDG_RUNTIME_DIR
# The file behind the key that keeps a second copy of the tool from starting lies there: tests that
# start the tool at the same moment must not be each other's second copy.
export TMPDIR=$XDG_RUNTIME_DIR
end() {
    [ -z "${server-}" ] || { kill "$server" && wait "$server"; } || true
    rm -rf "$XDG_RUNTIME_DIR"
}
trap end EXIT

# A number of its own, that no server which starts or ends at the same time takes as well. The
# server writes it when it is ready. A server that starts anew when its last client leaves would turn
# away who comes just then.
display=$((1000 + $$ % 50000))
mkfifo "$XDG_RUNTIME_DIR/display"
Xvfb ":$display" -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset \
    3>"$XDG_RUNTIME_DIR/display" 2>/dev/null &
server=$!
read -r _ <"$XDG_RUNTIME_DIR/display"
export DISPLAY=:$display
unset WAYLAND_DISPLAY

dbus-run-session -- "$@"
