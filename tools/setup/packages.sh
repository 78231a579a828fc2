# SPDX-License-Identifier: MIT
# Sourced by ./run, ./check and ./windows: installs the Debian packages that are missing. When none is, any user may build, without
# apt and without a network.

# The packages' own names: a virtual name is never installed.
build_packages="g++ cmake ninja-build ccache libcli11-dev nlohmann-json3-dev libhowardhinnant-date-dev tzdata libcsv-dev \
libgd-dev zlib1g-dev qt6-base-dev qt6-svg-dev qt6-multimedia-dev qt6-translations-l10n libgl-dev fonts-dejavu-core fonts-noto-core"
test_packages="doxygen pkgconf libgtest-dev libbenchmark-dev libgif-dev libical-dev python3-icalendar python3-jsonschema \
python3-shapely librsvg2-bin poppler-utils libswe-dev swe-standard-data clang-format clang-tidy xvfb xauth xdotool openbox \
x11-utils imagemagick python3 locales git desktop-file-utils appstream pybind11-dev python3-dev python3-numpy python3-pip \
python3-venv python3-dask python3-distributed mypy"
# For ./windows only: the cross compiler, what runs its programs, what libraries are built from, the installer's maker,
# what makes icons and reads shortcuts, a screen for the trial.
windows_packages="g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine wine64 dpkg-dev patch googletest python3 python3-icalendar \
nsis icoutils librsvg2-bin liblnk-utils xvfb xdotool openbox x11-utils imagemagick"
# Sourced for these by tools/testpackage.sh only.
package_packages="dpkg-dev lintian appstream desktop-file-utils xvfb xdotool file"

missing_packages() {
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || echo "$package"
    done
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "Packages are missing and neither root nor sudo is at hand: $missing" >&2
        exit 1
    fi
}

# install_packages NAME ...: nothing is fetched when all of them are there.
install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system. What these packages hold must be installed: $*" >&2
        return 0
    fi
    missing=$(missing_packages "$@" | tr '\n' ' ')
    [ -n "${missing% }" ] || return 0
    echo "Installing: $missing"
    as_root apt-get update -qq
    # shellcheck disable=SC2086 # a list of names
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}

# The compiler's cache needs a folder to write to, which some users have not at home.
if ! mkdir -p "${HOME:-/nonexistent}/.cache" 2>/dev/null || [ ! -w "${HOME:-/nonexistent}/.cache" ]; then
    CCACHE_DIR=${CCACHE_DIR:-$PWD/build/ccache}
    export CCACHE_DIR
fi
