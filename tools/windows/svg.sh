#!/bin/sh
# SPDX-License-Identifier: MIT
# svg.sh CACHE: builds Qt's SVG module for Windows, once: into CACHE/svg, over CACHE/qt. Debian's source package of Qt 5
# has it, whose drawing is that of Qt 6 but for the names that svg/qt6.patch and svg/qstringref.h bring up to date.
set -eu
cache=$1
tools=$(cd "$(dirname "$0")" && pwd)
prefix=$cache/svg
[ ! -e "$prefix/complete" ] || exit 0
. "$tools/debiansource.sh"

source=$(debian_source "$cache" qtsvg-opensource-src)
made=$cache/made/qtsvg
rm -rf "$made"
mkdir -p "$made/source"
cp -r "$source/src" "$made/source/"
patch -d "$made/source" -p1 <"$tools/svg/qt6.patch"
cmake -S "$tools/svg" -B "$made/build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$tools/toolchain.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DSOURCE="$made/source" -DCMAKE_INSTALL_PREFIX="$prefix"
cmake --build "$made/build"
cmake --install "$made/build" --strip
mkdir -p "$prefix/licences"
cp "$source/debian/copyright" "$prefix/licences/qtsvg.txt"
touch "$prefix/complete"
