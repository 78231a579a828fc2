#!/bin/bash
# SPDX-License-Identifier: MIT
# A missing file ends the program with one box and status 1, and nothing is written; in Arabic the files that the
# load step reads after the language are passed over.
binaries=$1 data=$2 seen=$3 pictures=$4
. "$(dirname "$0")/common.sh"
open_screen
fill_folder

state() { (cd "$folder" && find . -type f ! -name '.*' -exec cksum {} + | sort); }

echo "English, without elp.vsk"
mv "$folder/elp.vsk" "$folder/.elp"
before=$(state)
start_program
wait_for "Halvane 5.3.9"
picture failure-box
grep -q 'elp.vsk' "$folder/.errors" || fail "the words do not name the file"
keys Return
wait_end 1
[ "$(state)" = "$before" ] || fail "something was written"

echo "Arabic, without elp.vsk"
sed -i 's/#TRUE#/#FALSE#/' "$folder/pref.vsk"
start_program
wait_for "Halvane 5.3.9"
picture arabic-without-elp
shows_todays_times arabic-without-elp
mv "$folder/term.vsk" "$folder/.term"
kill "$program"
wait "$program" 2>/dev/null
program=

echo "Arabic, without term.vsk"
start_program
wait_for "Halvane 5.3.9"
grep -q 'term.vsk' "$folder/.errors" || fail "the words do not name the file"
keys Return
wait_end 1
mv "$folder/.term" "$folder/term.vsk"

echo "A failure while the program runs"
mv "$folder/.elp" "$folder/elp.vsk"
sed -i 's/#FALSE#/#TRUE#/' "$folder/pref.vsk"
start_program
wait_for "Halvane 5.3.9"
echo 'an earlier report' > "$folder/results.out"
printf '"Amman",35\r\n' > "$folder/loc.vsk"
before=$(state)
keys alt+t
for _ in $(seq 200); do
    grep -q 'loc.vsk' "$folder/.errors" && break
    sleep 0.025
done
grep -q 'loc.vsk' "$folder/.errors" || fail "the damaged record was taken"
sleep 0.5
picture failure-in-a-run
box=$(xdotool search --onlyvisible --name '^Halvane 5.3.9$' | grep -v "^$window\$" | tail -1)
xdotool windowfocus "${box:-$window}"
keys Return
wait_end 1
[ "$(state)" = "$before" ] || fail "something was written"
echo "passed"
