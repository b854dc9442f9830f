#!/usr/bin/env bash
# Installs what is missing, by its Debian 12 package name. Sourced or run; does nothing (and asks
# nobody for anything) when all of it is there. MORE_PACKAGES are what one script alone needs.
set -euo pipefail

# To build and to run.
packages=(
    g++ cmake ninja-build ccache pkg-config git
    qt6-base-dev qt6-declarative-dev qt6-declarative-dev-tools qt6-svg-dev qcoro-qt6-dev
    qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript
    qml6-module-qtquick qml6-module-qtquick-window qml6-module-qtquick-layouts
    qml6-module-qtquick-templates
    libboost1.81-dev libboost-json1.81-dev libsodium-dev libplist-dev libsqlite3-dev libpng-dev libfmt-dev libsystemd-dev
    fonts-inter dbus
)
# To test and to measure.
test_packages=(
    clang-19 clang-tidy-19 clang-format-19 libclang-rt-19-dev lld-19 llvm-19
    libgtest-dev libgmock-dev libbenchmark-dev
    rapidjson-dev libsimdjson-dev nlohmann-json3-dev libtomlplusplus-dev
    qml6-module-qttest xvfb xdotool at-spi2-core openbox python3 python3-dbus python3-gi systemd nodejs
    gettext
)

missing=()
for package in "${packages[@]}" "${test_packages[@]}" ${MORE_PACKAGES:-}; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
        missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "installing: ${missing[*]}"
    as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    export DEBIAN_FRONTEND=noninteractive
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
