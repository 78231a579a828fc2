#!/bin/bash
# SPDX-License-Identifier: MIT
# The starters of the Debian package and the menu entries, tried without installing: with and without a home, with homes
# that cannot be written to, in folders of odd names.
# In     folder of the built programs, source folder
set -u
binaries=$1 source=$2
folder=$(mktemp -d)
trap 'chmod -R u+w "$folder"; rm -rf "$folder"' EXIT

fail() {
    echo "FAILED: $*"
    exit 1
}

package=$folder/opt
mkdir "$package" "$folder/bin" "$folder/home" "$folder/elsewhere"
cp "$source"/data/*.vsk "$source"/data/*.txt "$source"/data/*.csv "$package"
cp "$binaries/halvane-report" "$binaries/halvane-paper" "$binaries/halvane-map" "$binaries/halvane" "$binaries/alert63.exe" "$package"
for starter in halvane halvane-report userfolder; do
    sed "s|/opt/halvane|$package|g" "$source/packaging/debian/$starter" >"$folder/bin/$starter"
    chmod +x "$folder/bin/$starter"
done
mv "$folder/bin/userfolder" "$package"
cd "$folder/elsewhere" || exit 1

# report VARIABLE=VALUE ...: today's times with this environment only.
report() { env -i PATH="$PATH" "$@" "$folder/bin/halvane-report" today 2>"$folder/errors"; }
expect_times() {
    [ "$(report "$@" | grep -c ':')" = 6 ] || fail "no times with $*: $(cat "$folder/errors")"
}

echo "A home"
expect_times HOME="$folder/home"
own=$folder/home/.local/share/halvane
[ ! -s "$folder/errors" ] || fail "words on a sound home: $(cat "$folder/errors")"
[ -L "$own/term.vsk" ] && [ -f "$own/pref.vsk" ] && [ ! -L "$own/pref.vsk" ] || fail "the user's folder"

[ ! -e "$own/halvane-paper" ] && [ ! -e "$own/halvane-map" ] || fail "a program in the user's folder that is not started there"

echo "A PDF file, which the program beside halvane-report makes"
env -i PATH="$PATH" HOME="$folder/home" "$folder/bin/halvane-report" timetable --month 2026-02 --format pdf --output - \
    >"$folder/page.pdf" || fail "no PDF file"
[ "$(head -c 5 "$folder/page.pdf")" = %PDF- ] || fail "the PDF file"

echo "A data folder that is not absolute is ignored"
sed -i 's/^18,18,/12,12,/' "$own/pref.vsk"
users=$(report HOME="$folder/home")
[ "$users" != "$(env -i "$package/halvane-report" --folder "$package" today)" ] || fail "the settings are not the user's"
[ "$(report HOME="$folder/home" XDG_DATA_HOME=data)" = "$users" ] || fail "a relative XDG_DATA_HOME"
[ -z "$(ls -A "$folder/elsewhere")" ] || fail "something was written into the working folder"
expect_times HOME="$folder/home" XDG_DATA_HOME="$folder/home/data"
[ -f "$folder/home/data/halvane/pref.vsk" ] || fail "an absolute XDG_DATA_HOME is not taken"

echo "What a kill leaves has the name of an unfinished file of the programs, which they remove after a day"
mkdir "$folder/kills" "$folder/killed"
printf '#!/bin/sh\nkill -KILL $PPID\n' >"$folder/kills/mv"
chmod +x "$folder/kills/mv"
report HOME="$folder/killed" PATH="$folder/kills:$PATH" >/dev/null 2>&1
left=$(find "$folder/killed/.local/share/halvane" -name '.*' -type f)
grep -qE '/\.halvane-save-[A-Za-z0-9]{6}$' <<<"$left" || fail "a kill leaves \"$left\""
printf '#!/bin/sh\nkill -TERM $PPID\n' >"$folder/kills/mv"
report HOME="$folder/tidied" PATH="$folder/kills:$PATH" >/dev/null 2>&1
[ -z "$(find "$folder/tidied/.local/share/halvane" -name '.*' -type f)" ] || fail "a request to end leaves a copy"

echo "No home, or one that cannot be written to"
expect_times HOME=/dev/null
grep -q 'nothing is saved' "$folder/errors" || fail "no words: $(cat "$folder/errors")"
expect_times HOME=/proc
expect_times XDG_DATA_HOME=/dev/null/data
# A user whose home in the list of users is no folder either.
mkdir "$folder/users"
printf '#!/bin/sh\necho nobody:x:1:1::/dev/null:/bin/sh\n' >"$folder/users/getent"
chmod +x "$folder/users/getent"
expect_times PATH="$folder/users:$PATH"
expect_times PATH="$folder/users:$PATH" HOME=relative
if [ "$(id -u)" != 0 ]; then
    chmod -R a-w "$folder/home"
    [ "$(report HOME="$folder/home")" = "$users" ] || fail "the user's settings on a read-only home"
    chmod -R u+w "$folder/home"
fi

echo "Questions on the terminal make no folder"
mkdir "$folder/fresh"
env -i HOME="$folder/fresh" "$folder/bin/halvane" --version | grep -q '^halvane [0-9]' || fail "halvane --version"
env -i HOME="$folder/fresh" "$folder/bin/halvane-report" --version | grep -q '^halvane-report [0-9]' || fail "--version"
[ -z "$(ls -A "$folder/fresh")" ] || fail "a folder was made"

echo "What keeps no file in the folder makes none"
# quiet WORD ...: from an empty folder, of a user without one.
quiet() { (cd "$folder/nothing" && env -i PATH="$PATH" HOME="$folder/fresh" "$folder/bin/halvane-report" "$@"); }
mkdir "$folder/nothing"
quiet next --place Cairo --json | python3 -c '
import json, sys
told = json.load(sys.stdin)
assert told["place"] == "Cairo" and told["prayer"] in ("fajer", "dhohur", "aser", "maghreb", "isha"), told
assert 0 < told["minutes_left"] <= 24 * 60, told' || fail "next"
[ "$(quiet day --place Makkah | grep -c ':')" -ge 6 ] || fail "day"
quiet sun | grep -q '^Sunrise ' || fail "sun"
quiet hijri --place Cairo | grep -q = || fail "hijri"
quiet --now 2026-02-18T12:00 prayer --place Cairo --output - | grep -q '^18/02/2026 ' || fail "prayer --output -"
quiet crescent --date 2026-02-18 --place Makkah --short | grep -q '^Yallop: ' || fail "crescent --short"
quiet next --help | grep -q '^Examples:' || fail "next --help"
[ -z "$(ls -A "$folder/fresh")$(ls -A "$folder/nothing")" ] || fail "a folder was made"
quiet prayer --place sun >/dev/null 2>&1 && fail "a place that is none"
[ -s "$folder/fresh/.local/share/halvane/pref.vsk" ] || fail "a report makes the folder whatever its place is called"
quiet prayer --place Cairo >/dev/null || fail "prayer"
[ -s "$folder/fresh/.local/share/halvane/results.out" ] || fail "a report in the user's folder"
sed -i 's/^18,18,/12,12,/' "$folder/fresh/.local/share/halvane/pref.vsk"
[ "$(quiet prayer --output - | grep -c 'Fajer Angle: 12')" = 1 ] || fail "the user's settings once there is a folder"

echo "Menu entries of odd folders"
command -v desktop-file-validate >/dev/null || { echo "desktop-file-validate is not installed: skipped"; exit 77; }
# shellcheck disable=SC2016 # the names are meant as they stand
for name in plain 'a b' 'a"b' '$HOME' 'a`b' '50%' 'a\b' 'a&b|c' "it's" 'منبه' '<h1>'; do
    odd=$folder/odd/$name
    mkdir -p "$odd"
    cp "$source/packaging/add-to-menu" "$source/packaging/halvane.desktop.in" "$odd"
    env -i PATH="$PATH" HOME="$folder/home" XDG_DATA_HOME=share "$odd/add-to-menu" >/dev/null || fail "add-to-menu in $name"
    entry=$folder/home/.local/share/applications/halvane.desktop
    desktop-file-validate "$entry" || fail "the entry of $name: $(cat "$entry")"
    python3 - "$entry" "$odd/halvane" <<'EOF' || fail "the command of $name: $(grep ^Exec "$entry")"
import re, sys
values = dict(line.split("=", 1) for line in open(sys.argv[1], encoding="utf-8").read().splitlines() if "=" in line)
# The two steps of Desktop Entry 1.5: the string's escapes, then the quoting of the command.
string = re.sub(r"\\(.)", lambda m: {"s": " ", "n": "\n", "t": "\t", "r": "\r"}.get(m[1], m[1]), values["Exec"])
assert string[0] == string[-1] == '"'
word = re.sub(r'\\(["`$\\])', r"\1", string[1:-1]).replace("%%", "%")
path = re.sub(r"\\(.)", r"\1", values["Path"])
sys.exit(not (word == sys.argv[2] and path + "/halvane" == sys.argv[2]))
EOF
done
[ -z "$(ls -A "$folder/elsewhere")" ] || fail "a relative XDG_DATA_HOME is taken by add-to-menu"

echo "The package's own entry and its description"
desktop-file-validate "$source/packaging/debian/halvane.desktop" || fail "halvane.desktop"
command -v appstreamcli >/dev/null || { echo "appstreamcli is not installed: skipped"; exit 77; }
appstreamcli validate --no-net --no-color "$source/packaging/debian/halvane.metainfo.xml" || fail "the description"
echo "passed"
