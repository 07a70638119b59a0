# Shared by run and check: packages and configuration.
# shellcheck shell=bash

build_packages="g++ cmake ninja-build pkg-config python3 qt6-base-dev qt6-svg-dev libglib2.0-dev libgtest-dev fonts-wqy-microhei"
test_packages="ccache clang-tidy coreutils findutils git dbus python3-dbusmock xvfb xauth libxtst6 at-spi2-core python3-pyatspi gir1.2-atspi-2.0 zip p7zip-full poppler-utils groff-base mandoc zsh"
windows_packages="g++ cmake ninja-build python3 ccache googletest locales g++-mingw-w64-x86-64-posix wine64"

# Installs the packages of the list that are missing. Asks dpkg once; where all are there nothing else is done.
install_packages() {
    local missing="" package
    for package in $1; do
        dpkg-query -W -f='${Status}\n' "$package" 2>/dev/null | grep -q '^install ok installed' || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0
    local as_root=""
    [ "$(id -u)" = 0 ] || as_root=sudo
    $as_root apt-get -qq -o DPkg::Lock::Timeout=300 update
    # shellcheck disable=SC2086
    DEBIAN_FRONTEND=noninteractive $as_root apt-get -qq -y --no-install-recommends \
        -o DPkg::Lock::Timeout=300 install $missing
}

# configure PRESET [OPTIONS...]: the build folder of that preset (CMakePresets.json).
configure() {
    cmake --preset "$@"
}
