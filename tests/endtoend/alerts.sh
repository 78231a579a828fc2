#!/bin/bash
# SPDX-License-Identifier: MIT
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

# As the close box of a window manager does, which this screen has none of.
close_window() {
    python3 - "$1" <<'EOF'
import ctypes, sys

class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int), ("display", ctypes.c_void_p),
                ("window", ctypes.c_ulong), ("kind", ctypes.c_ulong), ("format", ctypes.c_int),
                ("data", ctypes.c_long * 5), ("rest", ctypes.c_long * 24)]

x = ctypes.CDLL("libX11.so.6")
x.XOpenDisplay.restype = ctypes.c_void_p
x.XInternAtom.restype = ctypes.c_ulong
display = ctypes.c_void_p(x.XOpenDisplay(None))
window = ctypes.c_ulong(int(sys.argv[1]))
client_message = 33
event = ClientMessage(type=client_message, window=window.value, format=32)
event.kind = x.XInternAtom(display, b"WM_PROTOCOLS", 0)
event.data[0] = x.XInternAtom(display, b"WM_DELETE_WINDOW", 0)
x.XSendEvent(display, window, 0, ctypes.c_long(0), ctypes.byref(event))
x.XCloseDisplay(display)
EOF
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

echo "A second copy ends at once and shows the window of the first, closed or not"
wait_for "Halvane Alerts"
picture alert-main-window
close_window "$window"
wait_gone "Halvane Alerts"
kill -0 "$program" || fail "closing the window ended the alerts"
timeout 10 "$folder/alert63.exe" || fail "the second copy ended with status $?"
kill -0 "$program" || fail "the first copy ended"
find_window "Halvane Alerts" || fail "the first copy cannot be reached any more"

echo "Settings that are away for a while do not end it"
mv "$folder/pref.vsk" "$folder/.pref"
sleep 14
kill -0 "$program" || fail "the alerts ended with the file"
picture alert-settings-away
mv "$folder/.pref" "$folder/pref.vsk"

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

echo "The package is gone: nothing is shown"
mv "$folder/term.vsk" "$folder/.term"
ln -s /nowhere/term.vsk "$folder/term.vsk"
timeout 10 "$folder/alert63.exe" 2>"$folder/.errors" || fail "status $? without the package"
grep -q 'no longer there' "$folder/.errors" || fail "no words without the package"
mv "$folder/.term" "$folder/term.vsk"

echo "A missing file"
rm "$folder/alert.vsk"
start_alerts
wait_for "Halvane 5.3.9"
picture alert-failure
grep -q 'alert.vsk' "$folder/.errors" || fail "the words do not name the file"
keys Return
wait_end 1
echo "passed"
