# SPDX-License-Identifier: MIT
# Sourced by the scripts: what has to be installed, and how.
# shellcheck disable=SC2034  # each script uses some of the lists

BUILD_PACKAGES=(
    g++ cmake ninja-build ccache lld pkg-config
    qt6-base-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools linguist-qt6
    qt6-translations-l10n libcli11-dev libusb-1.0-0-dev libumockdev-dev umockdev librsvg2-bin
)
# A computer without a display has no fonts either.
HEADLESS_PACKAGES=(xvfb xauth fonts-dejavu-core fonts-noto-cjk)
WAYLAND_PACKAGES=(qt6-wayland)
TEST_PACKAGES=(
    clang libclang-rt-14-dev clang-format fonts-dejavu-core fonts-noto-cjk
    xvfb xauth dbus-daemon at-spi2-core python3-pyatspi weston "${WAYLAND_PACKAGES[@]}" xdotool x11-utils
    python3-jsonschema mandoc jq
)
COVERAGE_PACKAGES=(gcovr)

DEBIAN_PACKAGES=(debhelper dpkg-dev fakeroot)
CHECK_PACKAGES=(
    appstream bash-completion desktop-file-utils devscripts file fish lintian mandoc mmdebstrap scrot
    socat xauth xdotool xvfb zsh
)
LINT_PACKAGES=(clang clang-format clang-tidy reuse shellcheck)

# install_missing PACKAGE...: installs those that are not there yet, and asks no package registry
# when all are.
install_missing() {
    local installed missing=()
    installed=$(dpkg-query --show --showformat '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
        grep --quiet --line-regexp --fixed-strings "$package installed" <<<"$installed" ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return

    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    echo "Installing ${missing[*]}"
    "${as_root[@]}" apt-get update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install --yes --no-install-recommends "${missing[@]}"
}

# configure PRESET: once, and when the presets have changed.
configure() {
    [ "build/$1/build.ninja" -nt CMakePresets.json ] || cmake --preset "$1"
}

# build PRESET: configures and builds.
build() {
    configure "$1"
    cmake --build --preset "$1"
}
