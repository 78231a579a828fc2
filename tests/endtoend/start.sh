#!/bin/bash
# SPDX-License-Identifier: MIT
# What the programs with windows do before anything else: signals that end them are caught for tidying up, those of
# pipes and of file sizes are errors instead, and what a killed process has left goes. Needs no screen.
# In     folder of the programs, data folder
binaries=$1 data=$2
folder=$(mktemp -d)
program=
trap '[ -z "$program" ] || kill -KILL "$program" 2>/dev/null; rm -rf "$folder"' EXIT
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$folder/.runtime
mkdir -m 700 "$folder/.runtime"
cp "$binaries/halvane" "$binaries/alert63.exe" "$folder/"
cp -r "$data/." "$folder/"

fail() {
    echo "FAILED: $*"
    exit 1
}

# in_mask FIELD NUMBER: is the signal in this mask of the process?
in_mask() {
    mask=0x$(sed -n "s/^$1:[[:space:]]*//p" "/proc/$program/status")
    [ $((mask >> ($2 - 1) & 1)) = 1 ]
}

for name in halvane alert63.exe; do
    leftover=$folder/.halvane-save-Ab12yZ
    echo "left by a killed process" >"$leftover"
    touch -d '2 days ago' "$leftover"
    "$folder/$name" 2>"$folder/.errors" &
    program=$!
    for _ in $(seq 400); do
        [ -e "$leftover" ] || break
        sleep 0.05
    done
    [ ! -e "$leftover" ] || fail "$name: an old leftover stays: $(cat "$folder/.errors")"
    for signal in 1 2 15; do
        # An interrupt is ignored where the shell that runs this test ignores it for what runs beside it.
        in_mask SigCgt $signal || in_mask SigIgn $signal || fail "$name does not tidy up at signal $signal"
    done
    in_mask SigCgt 15 || fail "$name does not tidy up at a request to end"
    for signal in 13 25; do
        in_mask SigIgn $signal || fail "$name is ended by signal $signal"
    done
    kill -TERM "$program"
    wait "$program" 2>/dev/null
    status=$?
    program=
    [ $status = 143 ] || fail "$name: status $status after a request to end"
done
echo "passed"
