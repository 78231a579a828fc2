#!/bin/sh
# SPDX-License-Identifier: MIT
# pack.sh BUILD: makes halvane-VERSION-windows.zip and halvane-VERSION-windows-setup.exe, in BUILD, of the programs that
# are built there.
set -eu
build=$(cd "$1" && pwd)
cd "$(dirname "$0")/../.."
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
name=halvane-$version
zip=$build/$name-windows.zip
setup=$build/$name-windows-setup.exe
stage=$build/stage
lists=$build/lists

tell_sizes() {
    ls -l "$zip" "$setup" | awk '{printf "%s: %.1f MB\n", $NF, $5 / 1e6}'
}

# What is packed already is not packed again.
state=$({ find "$build/halvane" packaging tools/windows -type f | sort | xargs -d '\n' sha256sum; } | sha256sum)
if [ "$(cat "$build/packed" 2>/dev/null)" = "$state" ]; then
    tell_sizes
    exit 0
fi

rm -rf "$stage" "$lists" "$build/packed"
mkdir -p "$lists"
cmake --install "$build" --prefix "$stage/$name" --strip >/dev/null

rm -f "$zip"
(cd "$stage" && cmake -E tar cf "$zip" --format=zip "$name")

# The installer's lists, of what is in the folder.
is_stored() {
    grep -qxF "$1" "$build/storedfiles.txt"
}
cd "$stage/$name"
touch "$lists/files.nsh" "$lists/stored.nsh" "$lists/remove.nsh" "$lists/removestored.nsh" "$lists/folders.nsh"
echo 'SetOutPath "$INSTDIR"' >"$lists/stored.nsh"
find . -type d | sort | while read -r folder; do
    inside=$(printf '%s' "${folder#.}" | tr / '\\')
    printf 'SetOutPath "$INSTDIR%s"\n' "$inside" >>"$lists/files.nsh"
    find "$folder" -maxdepth 1 -type f | sort | while read -r file; do
        base=$(basename "$file")
        if is_stored "${file#./}"; then
            printf 'File "%s"\n' "$PWD/${file#./}" >>"$lists/stored.nsh"
            printf 'Delete "$INSTDIR\\%s"\n' "$base" >>"$lists/removestored.nsh"
        else
            printf 'File "%s"\n' "$PWD/${file#./}" >>"$lists/files.nsh"
            printf 'Delete "$INSTDIR%s\\%s"\n' "$inside" "$base" >>"$lists/remove.nsh"
        fi
    done
done
find . -mindepth 1 -type d | sort -r | while read -r folder; do
    printf 'RMDir "$INSTDIR\\%s"\n' "$(printf '%s' "${folder#./}" | tr / '\\')" >>"$lists/folders.nsh"
done
cd "$OLDPWD"

makensis -V2 -INPUTCHARSET UTF8 -DVERSION="$version" -DFOLDER="$stage/$name" -DLISTS="$lists" \
    -DICON="$build/halvane.ico" -DSIZE="$(du -sk "$stage/$name" | cut -f1)" \
    -DOUTPUT="$setup" packaging/windows/halvane.nsi
echo "$state" >"$build/packed"
tell_sizes
