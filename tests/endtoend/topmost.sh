#!/bin/bash
# SPDX-License-Identifier: MIT
# The map is kept above the other windows, yet a report, a file dialog and a failure box that open after it stand in front.
set -u
binaries=$1 data=$2 seen=$3 pictures=$4
# shellcheck source=tests/endtoend/common.sh
. "$(dirname "$0")/common.sh"
for tool in openbox xprop; do
    command -v $tool >/dev/null || { echo "$tool is not installed: skipped"; exit 77; }
done
open_screen
fill_folder
openbox >/dev/null 2>&1 &
manager=$!
end_manager() {
    local before=$?
    kill $manager 2>/dev/null
    return $before
}
trap 'end_manager; finish' EXIT

for _ in $(seq 200); do
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q '0x' && break
    sleep 0.05
done

# The windows from the lowest to the highest, by their titles.
stack() {
    for id in $(xprop -root _NET_CLIENT_LIST_STACKING | grep -o '0x[0-9a-f]*'); do
        xdotool getwindowname "$id"
    done
}
# stands_above TITLE OTHER: waited for.
stands_above() {
    for _ in $(seq 100); do
        order=$(stack)
        upper=$(grep -nx "$1" <<<"$order" | tail -1 | cut -d: -f1)
        lower=$(grep -nx "$2" <<<"$order" | tail -1 | cut -d: -f1)
        [ -n "$upper" ] && [ -n "$lower" ] && [ "$upper" -gt "$lower" ] && return 0
        sleep 0.05
    done
    fail "$1 does not stand above $2:
$order"
}
goes_to() {
    find_window "$1" || fail "no window \"$1\""
    xdotool windowactivate --sync "$window"
    sleep 0.2
}

crescent="Crescent Visibility" map="Crescent Visibility Map" save="Save the Map" box="Halvane 5.3.9"

start_program
goes_to "Halvane 5.3.9"
keys alt+v
goes_to "$crescent"
keys alt+f
sleep 1
keys alt+m
goes_to "$map"
stands_above "$map" "$crescent"

echo "A report comes in front"
goes_to "$crescent"
stands_above "$map" "$crescent"
keys alt+c
wait_for "Crescent Visibility - .*"
stands_above "Crescent Visibility - .*" "$map"
keys Escape
wait_gone "Crescent Visibility - .*"

echo "A file dialog comes in front"
goes_to "$map"
keys alt+s
find_window "$save" || fail "no file dialog"
stands_above "$save" "$map"
keys Escape
wait_gone "$save"

echo "A failure box comes in front"
mv "$folder/pref.vsk" "$folder/pref.away"
goes_to "$crescent"
keys alt+c
stands_above "$box" "$map"
keys Return
wait_end 1
echo "passed"
