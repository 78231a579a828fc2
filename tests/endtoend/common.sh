# SPDX-License-Identifier: MIT
# What the end-to-end tests share: a screen of their own, the built program in a folder of its own, keys and eyes.
# Sourced with: binaries FOLDER, data FOLDER, seen PROGRAM, pictures FOLDER.

export LC_ALL=C.UTF-8 TZ=Asia/Amman QT_LOGGING_RULES='*=false' QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=1
unset WAYLAND_DISPLAY

for tool in Xvfb xdotool import; do
    command -v $tool >/dev/null || { echo "$tool is not installed: skipped"; exit 77; }
done

folder=$(mktemp -d)
mkdir -p "$pictures"
screen=
program=

finish() {
    status=$?
    [ -z "$program" ] || kill -CONT "$program" 2>/dev/null && kill "$program" 2>/dev/null
    [ -z "$screen" ] || kill "$screen" 2>/dev/null
    rm -rf "$folder"
    exit $status
}
trap finish EXIT

fail() {
    echo "FAILED: $*"
    import -window root "$pictures/failed.png" 2>/dev/null
    exit 1
}

open_screen() {
    exec 3>"$folder/.display"
    Xvfb -displayfd 3 -screen 0 1400x1000x24 -nolisten tcp -noreset 2>/dev/null &
    screen=$!
    for _ in $(seq 200); do
        [ -s "$folder/.display" ] && break
        sleep 0.05
    done
    DISPLAY=:$(cat "$folder/.display")
    export DISPLAY
}

# A program folder as it is delivered.
fill_folder() {
    cp "$binaries/halvane" "$binaries/halvane-report" "$folder/"
    cp -r "$data/." "$folder/"
}

start_program() {
    "$folder/halvane" 2>"$folder/.errors" &
    program=$!
}

# The window of exactly this title, waited for; its number goes to $window.
find_window() {
    for _ in $(seq 400); do
        window=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -1)
        [ -n "$window" ] && return 0
        sleep 0.025
    done
    return 1
}

wait_for() {
    find_window "$1" || fail "no window \"$1\""
    xdotool windowfocus "$window"
    sleep 0.3
}

wait_gone() {
    for _ in $(seq 400); do
        [ -z "$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null)" ] && return 0
        sleep 0.025
    done
    fail "the window \"$1\" stays"
}

keys() {
    for key in "$@"; do
        xdotool key --clearmodifiers "$key"
        sleep 0.06
    done
}

type_text() {
    xdotool type --delay 30 "$1"
    sleep 0.1
}

# Takes the picture of $window under a name.
picture() {
    sleep 0.3
    import -window "$window" "$pictures/$1.png"
}

# Does the picture show the text at this size of type, normal or bold?
shows() {
    for weight in normal bold; do
        QT_QPA_PLATFORM=offscreen "$seen" "$pictures/$1.png" "$2" $weight "$3" 2>/dev/null && return 0
    done
    return 1
}

# The six times that the batch program finds for this folder stand in the picture.
shows_todays_times() {
    "$folder/halvane-report" --folder "$folder" today | while read -r _ time; do
        shows "$1" 2.2 "$time" || { echo "the picture $1 does not show $time"; exit 1; }
    done || fail "today's times"
}

# The program ends by itself with this status.
wait_end() {
    for _ in $(seq 200); do
        kill -0 "$program" 2>/dev/null || break
        sleep 0.025
    done
    kill -0 "$program" 2>/dev/null && fail "the program is still running"
    wait "$program"
    status=$?
    program=
    [ "$status" = "$1" ] || fail "exit status $status, not $1"
}
