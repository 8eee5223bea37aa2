#!/usr/bin/env bash
# Sets up a Debian 12 machine for PropertyWidgets, builds it, and then runs what was asked:
#   ./setup.sh test       the whole test suite, ending with CTest's summary
#   ./setup.sh workbench  the workbench host with the plug-in and a sample job
# Running it again installs nothing new and rebuilds only what changed.
set -euo pipefail
cd "$(dirname "$0")"

packages=(
    build-essential cmake ninja-build
    qtbase5-dev qtdeclarative5-dev libqt5svg5-dev qttools5-dev qttools5-dev-tools
    qml-module-qtquick2 qml-module-qtquick-window2 qml-module-qtquick-layouts
    qml-module-qtquick-controls2 qml-module-qtquick-templates2
    libboost-dev
    # The symbols that stand for control characters in text values (U+2400 onwards).
    fonts-freefont-ttf
    # Qt's own texts in German, for the standard dialogs of the workbench in German.
    qttranslations5-l10n
    xvfb xauth
)

install_missing_packages() {
    local missing=() package
    for package in "${packages[@]}"; do
        if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    echo "Installing: ${missing[*]}"
    local run_as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing and sudo is not available: ${missing[*]}" >&2
            echo "Install them as root, then run this script again." >&2
            exit 1
        fi
        run_as_root=(sudo)
    fi
    "${run_as_root[@]}" apt-get update -q
    "${run_as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# Builds the given targets, or everything.
build() {
    cmake --preset default >/dev/null
    cmake --build --preset default -j "$(nproc)" ${1:+--target "$@"}
}

case "${1:-}" in
test)
    install_missing_packages
    build
    ctest --preset default -j "$(nproc)"
    ;;
workbench)
    install_missing_packages
    # The workbench links the plug-in and the host's libraries, so they come with it.
    build workbench
    if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
        echo "No display found: saving a picture of the workbench to build/workbench.png instead."
        exec env QT_QPA_PLATFORM=offscreen build/bin/workbench --screenshot build/workbench.png "${@:2}"
    fi
    exec build/bin/workbench "${@:2}"
    ;;
*)
    echo "usage: $0 test | workbench" >&2
    exit 2
    ;;
esac
