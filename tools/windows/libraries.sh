#!/bin/sh
# SPDX-License-Identifier: MIT
# libraries.sh CACHE: builds what halvane-report and its tests need besides the compiler, for Windows, from Debian's
# own source packages, once: into CACHE/libraries. Libraries of headers alone are links to Debian's.
set -eu
cache=$1
tools=$(cd "$(dirname "$0")" && pwd)
prefix=$cache/libraries
[ ! -e "$prefix/complete" ] || exit 0
. "$tools/debiansource.sh"

compiler=x86_64-w64-mingw32-gcc-posix
mkdir -p "$prefix/include" "$prefix/lib"

# No other header of Linux is seen through these links.
for headers in CLI date nlohmann; do
    ln -sfn "/usr/include/$headers" "$prefix/include/$headers"
done

# cmake_library SOURCE OPTION ...
cmake_library() {
    source=$1
    shift
    cmake -S "$source" -B "$cache/made/$(basename "$source")" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$tools/toolchain.cmake" \
        -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DCMAKE_INSTALL_PREFIX="$prefix" "$@"
    cmake --build "$cache/made/$(basename "$source")"
    cmake --install "$cache/made/$(basename "$source")"
}

# plain_library NAME SOURCE HEADER FILE ...: a library of a few C files.
plain_library() {
    name=$1 source=$2 header=$3
    shift 3
    objects=
    mkdir -p "$cache/made/$name"
    for file in "$@"; do
        object=$cache/made/$name/$(basename "$file" .c).o
        "$compiler" -O2 -I "$source" -c "$source/$file" -o "$object"
        objects="$objects $object"
    done
    # shellcheck disable=SC2086 # a list of names
    x86_64-w64-mingw32-ar rcs "$prefix/lib/lib$name.a" $objects
    cp "$source/$header" "$prefix/include/"
}

cmake_library /usr/src/googletest -DBUILD_GMOCK=OFF
# The picture formats that the map does not need stay out, and the fonts, which need what Windows has not.
cmake_library "$(debian_source "$cache" libgd2)" -DBUILD_STATIC_LIBS=ON -DENABLE_GD_FORMATS=OFF -DENABLE_PNG=OFF \
    -DENABLE_JPEG=OFF -DENABLE_TIFF=OFF -DENABLE_FREETYPE=OFF -DENABLE_FONTCONFIG=OFF -DENABLE_ICONV=OFF -DENABLE_XPM=OFF \
    -DENABLE_WEBP=OFF -DENABLE_HEIF=OFF -DENABLE_AVIF=OFF -DENABLE_RAQM=OFF -DENABLE_LIQ=OFF -DBUILD_PROGRAMS=OFF \
    -DCMAKE_C_FLAGS=-DNONDLL
plain_library csv "$(debian_source "$cache" libcsv)" csv.h libcsv.c
plain_library gif "$(debian_source "$cache" giflib)" gif_lib.h dgif_lib.c egif_lib.c gif_err.c gif_font.c gif_hash.c \
    gifalloc.c openbsd-reallocarray.c quantize.c
mkdir -p "$prefix/licences"
for library in libgd2 libcsv; do
    cp "$(debian_source "$cache" $library)/debian/copyright" "$prefix/licences/$library.txt"
done
touch "$prefix/complete"
