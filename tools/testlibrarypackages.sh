#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the Debian packages of the library and tries them on this machine: testlibrarypackages.sh. Needs root and a Debian
# 12 that may be changed: it installs the packages, builds the first lines in C++, C and Python in an empty folder,
# installs over what is there, purges, and looks for what is left. Installs through apt what is missing for that.
set -eu
cd "$(dirname "$0")/.."
. tools/setup/packages.sh
[ "$(id -u)" = 0 ] || { echo "testlibrarypackages.sh needs root" >&2; exit 1; }
# shellcheck disable=SC2086 # lists of names
install_packages $build_packages $package_packages pybind11-dev python3-dev python3-numpy pkgconf
examples=$PWD/examples/firstlines
build=$PWD/build/librarypackages
names="python3-halvane libhalvane-dev libhalvane1"

folder=$(mktemp -d)
finish() {
    status=$?
    # shellcheck disable=SC2086
    apt-get purge -y -qq $names >/dev/null 2>&1 || true
    rm -rf "$folder"
    [ $status = 0 ] && echo "passed" || echo "FAILED"
    exit $status
}
trap finish EXIT
fail() {
    echo "FAILED: $*"
    exit 1
}

rm -f "$build"/*.deb
packaging/debian/librarypackages "$build" >"$folder/.log" 2>&1 || { cat "$folder/.log"; fail "the packages"; }
echo "Packages:"
ls -l "$build"/*.deb | awk '{ n = split($9, part, "/"); print "  " part[n] ", " $5 " bytes" }'

# The first upload of a package closes a bug of Debian's own list, which these have not.
lintian --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs --allow-root "$build"/*.deb || fail "lintian"

used() {
    (
        cd "$folder"
        g++ -std=c++20 "$examples/first.cpp" $(pkg-config --cflags --libs halvane) -o first-cpp
        gcc -std=c17 -Wall -Wextra -pedantic -Werror "$examples/first.c" $(pkg-config --cflags --libs halvane) -o first-c
        ldd first-cpp | grep -q 'libhalvane\.so\.1' || fail "the shared library is not used"
        mkdir empty
        cd empty
        env -i ../first-cpp 2026-11-23 >../cpp
        env -i ../first-c 2026-11-23 >../c
        env -i /usr/bin/python3 "$examples/first.py" 2026-11-23 >../python
        [ -z "$(ls -A)" ] || fail "a file was written"
        cd ..
        cmp cpp c || fail "C and C++ differ"
        grep -o '[0-9][0-9]:[0-9][0-9]$' python | cmp - cpp || fail "Python and C++ differ"
        [ "$(wc -l <cpp)" = 6 ] || fail "there are not six times"
        rm -r empty
    )
}
apt-get install -y -qq "$build"/*.deb >/dev/null
echo "Installed"
used
apt-get install -y -qq --reinstall "$build"/*.deb >/dev/null
echo "Installed again"
used
# shellcheck disable=SC2086
apt-get purge -y -qq $names >/dev/null
left=$(find / -xdev \( -path "$PWD" -o -path /proc -o -path /work -o -path /tmp -o -path /root -o -path /home \) -prune -o \
    \( -name 'libhalvane*' -o -path '*/dist-packages/halvane*' -o -path '*/include/halvane*' -o -path '*/share/halvane*' \) -print)
[ -z "$left" ] || fail "left are: $left"
echo "Purged, nothing is left"
