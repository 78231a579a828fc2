#!/bin/sh
# SPDX-License-Identifier: MIT
# qt.sh CACHE: builds the parts of Qt that Halvane's windows need, for Windows, from Debian's own source package, once:
# into CACHE/qt. Downloads 46 MB and takes the longest of all.
set -eu
cache=$1
tools=$(cd "$(dirname "$0")" && pwd)
[ ! -e "$cache/qt/complete" ] || exit 0
. "$tools/debiansource.sh"

source=$(debian_source "$cache" qt6-base)
[ -e "$source/halvane.patched" ] || patch -d "$source" -p1 <"$tools/qt/nodirect3d.patch"
touch "$source/halvane.patched"
# What would be found on the building machine by chance stays out, and what needs the tablets' header, which Debian's
# source leaves out.
cmake -S "$source" -B "$cache/made/qt6-base" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$tools/toolchain.cmake" -DCMAKE_CROSSCOMPILING_EMULATOR= \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
    -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=ON -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF \
    -DFEATURE_sql=OFF -DFEATURE_dbus=OFF -DFEATURE_opengl=OFF -DINPUT_opengl=no -DFEATURE_ssl=OFF -DFEATURE_schannel=OFF \
    -DFEATURE_testlib=OFF -DFEATURE_xml=OFF -DFEATURE_concurrent=OFF -DFEATURE_vulkan=OFF \
    -DFEATURE_tabletevent=OFF -DFEATURE_system_zlib=OFF \
    -DCMAKE_INSTALL_PREFIX="$cache/qt"
cmake --build "$cache/made/qt6-base"
cmake --install "$cache/made/qt6-base" --strip
mkdir -p "$cache/qt/licences"
cp "$source/debian/copyright" "$cache/qt/licences/qt6-base.txt"
cp "$source/LICENSES/LGPL-3.0-only.txt" "$source/LICENSES/GPL-3.0-only.txt" "$cache/qt/licences"
touch "$cache/qt/complete"
