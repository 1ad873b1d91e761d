#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Breaks the code in one place at a time and looks whether a test notices: ./tests/mutation.sh --help
set -euo pipefail
cd "$(dirname "$0")/.."

source packaging/packages.sh
install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
exec python3 tests/mutation/run.py "$@"
