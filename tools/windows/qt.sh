#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the parts of Qt that Halvane's windows need, for Windows, from Debian's own source package, once: into
# $1/qt. Downloads 46 MB, takes half an hour of two cores.
set -eu
cache=$1
tools=$(cd "$(dirname "$0")" && pwd)
[ ! -e "$cache/qt/complete" ] || exit 0

mkdir -p "$cache/apt/parts" "$cache/apt/lists/partial" "$cache/source"
# Debian's sources file names packages alone; a private copy names sources too.
sed 's/^Types: deb$/Types: deb deb-src/' /etc/apt/sources.list.d/debian.sources >"$cache/apt/parts/debian.sources"
own_lists="-o Dir::Etc::sourceparts=$cache/apt/parts -o Dir::Etc::sourcelist=/dev/null -o Dir::State::lists=$cache/apt/lists"
if [ ! -e "$cache/source/unpacked" ]; then
    # shellcheck disable=SC2086 # options
    (cd "$cache/source" && apt-get $own_lists update -qq && apt-get $own_lists source -qq qt6-base)
    touch "$cache/source/unpacked"
fi
source=$(find "$cache/source" -maxdepth 1 -type d -name 'qt6-base-*' | head -1)

cmake -S "$source" -B "$cache/build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$tools/toolchain.cmake" \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
    -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=ON -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF \
    -DFEATURE_sql=OFF -DFEATURE_network=OFF -DFEATURE_dbus=OFF -DFEATURE_opengl=OFF -DINPUT_opengl=no \
    -DFEATURE_testlib=OFF -DFEATURE_xml=OFF -DFEATURE_concurrent=OFF -DFEATURE_vulkan=OFF \
    -DFEATURE_tabletevent=OFF -DCMAKE_INSTALL_PREFIX="$cache/qt"
cmake --build "$cache/build"
cmake --install "$cache/build" --strip
touch "$cache/qt/complete"
