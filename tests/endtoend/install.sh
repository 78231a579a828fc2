#!/bin/bash
# SPDX-License-Identifier: MIT
# Installing gives one folder that works where it is moved to; a second installation leaves the user's files alone.
# In     build folder, data folder, seen, pictures folder
build=$1 binaries=$1/halvane data=$2 seen=$3 pictures=$4
. "$(dirname "$0")/common.sh"
open_screen

cmake --install "$build" --prefix "$folder/first" >/dev/null || fail "cmake --install"
mv "$folder/first" "$folder/moved folder"
moved="$folder/moved folder"
for name in "$data"/*.vsk "$data"/*.txt "$data"/*.csv "$data"/*.gif; do
    [ "$(basename "$name")" = CMakeLists.txt ] && continue
    cmp -s "$name" "$moved/$(basename "$name")" || fail "$(basename "$name") is not installed"
done
[ "$(find "$moved/images" -type f | wc -l)" = "$(find "$data/images" -type f | wc -l)" ] || fail "the pictures"
[ "$("$moved/halvane-report" today | wc -l)" = 6 ] || fail "today's times from the moved folder"
"$moved/halvane-report" timetable --month 2026-02 --format pdf --output - | head -c 5 | grep -q %PDF- ||
    fail "a PDF file from the moved folder"

echo "The program from the moved folder"
"$moved/halvane" &
program=$!
wait_for "Halvane 5.3.9"
keys alt+x
wait_end 0

echo "The menu entry"
XDG_DATA_HOME="$folder/share" "$moved/add-to-menu" >/dev/null
entry="$folder/share/applications/halvane.desktop"
grep -qx "Exec=\"$moved/halvane\"" "$entry" || fail "$(cat "$entry")"
if command -v desktop-file-validate >/dev/null; then
    desktop-file-validate "$entry" || fail "the menu entry is not valid"
fi

echo "A second installation"
sed -i 's/^18,18/19,17/' "$moved/pref.vsk"
rm "$moved/help.txt"
cmake --install "$build" --prefix "$moved" >/dev/null || fail "cmake --install"
grep -q '^19,17' "$moved/pref.vsk" || fail "the user's preferences were overwritten"
[ -f "$moved/help.txt" ] || fail "a delivered file did not come back"

echo "The archive"
(cd "$build" && cpack -G TGZ -B "$folder/archive" >/dev/null) || fail "cpack"
mkdir "$folder/unpacked"
tar xzf "$folder"/archive/halvane-*.tar.gz -C "$folder/unpacked" || fail "the archive"
[ "$("$folder"/unpacked/halvane-*/halvane-report today | wc -l)" = 6 ] || fail "today's times from the archive"
echo "passed"
