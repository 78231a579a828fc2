#!/bin/bash
# SPDX-License-Identifier: MIT
# A user's session: start, another location and its times, a month's report, a year's report cancelled, Arabic and
# back, quit. Pictures of every step stay.
binaries=$1 data=$2 seen=$3 pictures=$4
. "$(dirname "$0")/common.sh"
open_screen
fill_folder

# Enters the first and the last day of a period into the Date panel, after the keys that lead to its first box.
# In     picture's name, keys, then year, month and day of both
enter_period() {
    keys alt+d
    wait_for "Date"
    # shellcheck disable=SC2086 # a list of keys
    keys $2
    for number in "${@:3}"; do
        case $number in
            Home | End) keys "$number" ;; # the first or the last entry of a list
            *) type_text "$number" ;;
        esac
        keys Tab
    done
    picture "$1"
    keys alt+o
    wait_gone "Date"
    wait_for "Halvane 5.3.9"
}

echo "Start"
began=$(date +%s%N)
start_program
find_window "Halvane 5.3.9" || fail "the program does not come up"
echo "shown after at most $((($(date +%s%N) - began) / 1000000)) ms"
wait_for "Halvane 5.3.9"
picture start
shows start 1.2 "Amman" || fail "the location"
shows_todays_times start

echo "Another location"
keys alt+l
wait_for "Location"
keys Tab
type_text "Makkah"
keys Down
picture location
keys alt+o
wait_gone "Location"
grep -q '^"Makkah"' "$folder/loc.vsk" || fail "loc.vsk holds $(cat "$folder/loc.vsk")"
wait_for "Halvane 5.3.9"
picture new-location
shows new-location 1.2 "Makkah" || fail "the new location"
shows_todays_times new-location

echo "A month's report"
enter_period month "Down Down Tab" 2024 6 Home 2024 6 30
grep -q '^#FALSE#,2024,6,1,2024,6,30,.*,#TRUE#,#FALSE#' "$folder/date.vsk" || fail "date.vsk holds $(cat "$folder/date.vsk")"
keys alt+t
report="Prayer Times - Makkah - 01/06/2024 .* 30/06/2024"
wait_for "$report"
picture month-report
[ "$(grep -c '^[0-9*].*/06/2024' "$folder/results.out")" = 30 ] || fail "the report has not thirty rows"
keys Escape
wait_gone "$report"
wait_for "Halvane 5.3.9"

echo "A year's report, cancelled"
enter_period year "Tab" 2024 Home Home 2024 End End
xdotool key alt+t
# A year takes a blink: the program runs in slices of a few milliseconds, as on a busy machine, so that the key comes
# in the middle of the run.
slice() {
    kill -CONT "$program"
    sleep 0.003
    kill -STOP "$program"
    sleep 0.01
}
wait_window() { xdotool search --onlyvisible --name '^Please Wait!$' 2>/dev/null | tail -1; }
for _ in $(seq 400); do
    slice
    window=$(wait_window)
    [ -n "$window" ] && break
done
[ -n "$window" ] || fail "no progress window"
xdotool windowfocus "$window"
slice
xdotool key alt+c
for _ in $(seq 400); do
    slice
    [ -z "$(wait_window)" ] && break
done
kill -CONT "$program"
wait_gone 'Please Wait!'
sleep 0.3
grep -q '31/12/2024  ' "$folder/results.out" && fail "the run was not cancelled"
grep -q 'Remarks' "$folder/results.out" || fail "the cancelled report has no remarks"
xdotool search --onlyvisible --name '^Prayer Times - ' >/dev/null && fail "the cancelled report is shown"

echo "Arabic and back"
wait_for "Halvane 5.3.9"
keys alt+p
wait_for "Preferences"
picture preferences
# Backwards from the first control: Cancel, Ok, Default, the language.
keys shift+Tab shift+Tab shift+Tab shift+Tab Right space
picture preferences-language
keys alt+o
wait_gone "Preferences"
grep -q ',#FALSE#,' "$folder/pref.vsk" || fail "pref.vsk holds $(cat "$folder/pref.vsk")"
wait_for "Halvane 5.3.9"
picture arabic
shows_todays_times arabic
shows arabic 1.2 "مواقيت الصلاة اليوم" || fail "the Arabic title"
shows arabic 1.2 "Today's Prayer Times" && fail "the English title in Arabic"
# The keyboard has no Arabic letters here: Tab leads from the first button to the options.
keys Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab space
wait_for "الخيارات"
picture arabic-preferences
keys shift+Tab shift+Tab shift+Tab shift+Tab Right space
picture arabic-preferences-language
keys Return
wait_gone "الخيارات"
grep -q ',#TRUE#,' "$folder/pref.vsk" || fail "pref.vsk holds $(cat "$folder/pref.vsk")"
wait_for "Halvane 5.3.9"
picture english-again
shows english-again 1.2 "Today's Prayer Times" || fail "the English title"
shows_todays_times english-again

echo "Quit"
keys alt+x
wait_end 0
[ ! -s "$folder/.errors" ] || fail "$(cat "$folder/.errors")"
echo "passed"
