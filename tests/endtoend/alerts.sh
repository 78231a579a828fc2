#!/bin/bash
# The alert program by itself: a window at a prayer's second, one copy only, no prayer twice, a box and status 1
# for a missing file.
binaries=$1 data=$2 seen=$3 pictures=$4
. "$(dirname "$0")/common.sh"
open_screen
fill_folder
cp "$binaries/alert63.exe" "$folder/"
mkdir -m 700 "$folder/.runtime"
export XDG_RUNTIME_DIR=$folder/.runtime

start_alerts() {
    "$folder/alert63.exe" 2>"$folder/.errors" &
    program=$!
}

seconds_of_day() { IFS=: read -r h m s <<<"$1"; echo $((10#$h * 3600 + 10#$m * 60 + 10#$s)); }

# Dhohur is so many seconds from now; the language is #TRUE# or #FALSE#.
dhohur_in() {
    record='18,18,4,1,10,1,0,%s,0,"0","0","1","0",%s,"0","1",0,0\r\n'
    # shellcheck disable=SC2059 # the record is the format
    printf "$record" 0 "$2" >"$folder/pref.vsk"
    computed=$("$folder/halvane-report" --folder "$folder" today | sed -n 's/^Dhohur //p')
    wanted=$(($(seconds_of_day "$(date +%T)") + $1))
    minutes=$(LC_ALL=C awk "BEGIN { printf \"%.4f\", ($wanted - $(seconds_of_day "$computed")) / 60 }")
    # shellcheck disable=SC2059
    printf "$record" "$minutes" "$2" >"$folder/pref.vsk.new"
    mv "$folder/pref.vsk.new" "$folder/pref.vsk"
}

if [ "$(date +%H)" = 23 ] && [ "$(date +%M)" -ge 57 ]; then
    echo "too near to midnight: skipped"
    exit 77
fi

echo "A window at the prayer's second"
printf '0,10,0,1,#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n' >"$folder/alert.vsk"
dhohur_in 5 '#TRUE#'
start_alerts
find_window "Halvane Alerts" || fail "no main window"
xdotool search --onlyvisible --name '^It is time' && fail "too early"
wait_for "It is time for the Dhohur prayer"
picture alert-window
xdotool mousemove --window "$window" 20 60 click 1
wait_gone "It is time for the Dhohur prayer"

echo "A second copy ends at once"
timeout 10 "$folder/alert63.exe" || fail "the second copy ended with status $?"
kill -0 "$program" || fail "the first copy ended"

echo "A prayer of the day does not repeat when its time moves"
dhohur_in 12 '#FALSE#'
sleep 15
for title in 'It is time for the Dhohur prayer' 'حان الآن موعد صلاة الظهر'; do
    xdotool search --onlyvisible --name "^$title\$" && fail "announced twice"
done
echo "In Arabic"
kill "$program"
wait "$program" 2>/dev/null
dhohur_in 4 '#FALSE#'
start_alerts
wait_for 'حان الآن موعد صلاة الظهر'
picture alert-window-arabic
kill "$program"
wait "$program" 2>/dev/null

echo "A killed copy does not bar the next one"
start_alerts
find_window "Halvane Alerts" || fail "no main window"
kill -KILL "$program"
wait "$program" 2>/dev/null
start_alerts
find_window "Halvane Alerts" || fail "the lock of a dead copy holds"
kill "$program"
wait "$program" 2>/dev/null

echo "A missing file"
rm "$folder/alert.vsk"
start_alerts
wait_for "Halvane 5.3.9"
picture alert-failure
grep -q 'alert.vsk' "$folder/.errors" || fail "the words do not name the file"
keys Return
wait_end 1
echo "passed"
