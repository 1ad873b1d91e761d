#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
set -euo pipefail
cd "$(dirname "$0")/../.."

usage() {
    cat <<'TEXT'
Usage: tests/kernel/run.sh [--suite SUITE] [--build FOLDER] [--command COMMAND... | TEST...]

Runs the tool, the command line and the simulated camera on a real Linux kernel: in a virtual machine
of Debian's kernel on this computer's files, where the camera is a USB gadget. All tests, in two
machines side by side, or those named, as window_test or command_line_test.MonitorTest.

  --suite SUITE      the kernel of this suite of Debian (bookworm; bookworm-backports is newer)
  --build FOLDER     tests what is built there (build/debug, which is brought up to date first)
  --command COMMAND  runs this in the machine instead, with the environment of the tests
TEXT
}

suite=bookworm
build=
command=()
named=()
while [ $# -gt 0 ]; do
    case "$1" in
    --suite | --build)
        [ $# -gt 1 ] || {
            echo "tests/kernel/run.sh: $1 needs a value" >&2
            exit 2
        }
        declare "${1#--}=$2"
        shift 2
        ;;
    --command)
        shift
        command=("$@")
        set --
        ;;
    --help)
        usage
        exit
        ;;
    -*)
        echo "tests/kernel/run.sh: no option $1, try --help" >&2
        exit 2
        ;;
    *)
        named+=("$1")
        shift
        ;;
    esac
done

source packaging/packages.sh
source tests/kernel/machine.sh
install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${MACHINE_PACKAGES[@]}"
if [ -z "$build" ]; then
    build=build/debug
    configure debug
    cmake --build --preset debug --target \
        nubo-camera-simulator nubo-setting-tool nuboctl nubo-tests-kernel
fi
environment=(env "BUILD=$(realpath "$build")")
fetch_kernel "$suite"
if [ ${#command[@]} -gt 0 ]; then
    run_in_machine "$suite" "${environment[@]}" "${command[@]}"
    exit
fi

# run_tests MACHINE TEST...: in a machine of their own, whose lines begin with its name.
run_tests() {
    local name=$1
    shift
    MACHINE_OUTPUT=$MACHINE_OUTPUT/$name run_in_machine "$suite" "${environment[@]}" \
        "$PWD/tests/desktop/with-desktop.sh" /usr/bin/python3 -W ignore::DeprecationWarning \
        "$PWD/tests/kernel/kernel_tests.py" "$@" | sed --unbuffered "s/^/$name: /"
}

rm -rf "$MACHINE_OUTPUT"
result=0
if [ ${#named[@]} -gt 0 ]; then
    run_tests tests "${named[@]}" || result=$?
else
    # A machine has one processor and the computer has two. What is missing can be shown as long as it
    # is: first.
    run_tests camera missing_parts_test gadget_test bus_test command_line_test &
    run_tests window rights_test window_test || result=$?
    wait $! || result=$?
fi
# A machine that has not come to an end has counted nothing.
cat /dev/null "$MACHINE_OUTPUT"/*/counts 2>/dev/null | awk -v result="$result" '{ passed += $1; failed += $2 }
    END { printf "Kernel tests: %d passed, %d failed\n", passed, failed || result == 0 ? failed : 1 }' || true
exit "$result"
