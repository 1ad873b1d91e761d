#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
set -euo pipefail
cd "$(dirname "$0")/../.."

usage() {
    cat <<'TEXT'
Usage: tests/kernel/run.sh [--suite SUITE] [--build FOLDER] [--command COMMAND... | TEST...]

Runs the tool, the command line and the simulated camera on a real Linux kernel: in a virtual machine
of Debian's kernel on this computer's files, where the camera is a USB gadget. All tests, or those
named, as window_test or command_line_test.CommandLineTest.test_a_second_program.

  --suite SUITE      the kernel of this suite of Debian (bookworm; bookworm-backports is newer)
  --build FOLDER     tests what is built there (build/debug, which is brought up to date first)
  --command COMMAND  runs this in the machine instead, with the environment of the tests
TEXT
}

suite=bookworm
build=
job=("$PWD/tests/desktop/with-desktop.sh" /usr/bin/python3 -W ignore::DeprecationWarning "$PWD/tests/kernel/kernel_tests.py")
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
        job=("$@")
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
        job+=("$1")
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
run_in_machine "$suite" env "BUILD=$(realpath "$build")" "${job[@]}" && result=0 || result=$?
[ ! -e "$MACHINE_OUTPUT/counts" ] || cat "$MACHINE_OUTPUT/counts"
exit "$result"
