#!/bin/bash
# SPDX-License-Identifier: MIT
# Builds the Debian package and tries it on this machine: testpackage.sh [PACKAGE.deb [OLDER.deb]]. Needs root and a Debian
# 12 that may be changed: it installs the package, over an older one where that is given, makes two users, lets both work
# at once, installs again, purges, and removes the users. Installs through apt what is missing for that.
set -eu
cd "$(dirname "$0")/.."
. tools/setup/packages.sh
[ "$(id -u)" = 0 ] || { echo "testpackage.sh needs root" >&2; exit 1; }
# shellcheck disable=SC2086 # a list of names
install_packages $package_packages

package=${1:-}
if [ -z "$package" ]; then
    # shellcheck disable=SC2086
    install_packages $build_packages
    cmake --preset release -B build/package -DHALVANE_TESTS=OFF -DHALVANE_BENCHMARKS=OFF >/dev/null
    cmake --build build/package
    (cd build/package && cpack -G DEB)
    package=$(ls -t build/package/halvane_*.deb | head -1)
fi
package=$(realpath "$package")
older=${2:+$(realpath "$2")}

users="halvane-try-one halvane-try-two"
scratch=$(mktemp -d)
chmod 755 "$scratch"
programs=()
screens=()

finish() {
    status=$?
    for process in "${programs[@]}" "${screens[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    sleep 1
    DEBIAN_FRONTEND=noninteractive apt-get purge -y -qq halvane >/dev/null 2>&1 || true
    for user in $users; do
        userdel -r "$user" 2>/dev/null || true
        rm -rf "/tmp/runtime-$user"
    done
    rm -rf "$scratch"
    [ $status = 0 ] && echo "passed" || echo "FAILED"
    exit $status
}
trap finish EXIT

fail() {
    echo "FAILED: $*"
    exit 1
}

installs() { DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "$@" >/dev/null; }
home_of() { getent passwd "$1" | cut -d: -f6; }
own_folder() { echo "$(home_of "$1")/.local/share/halvane"; }
state() { (cd "$(own_folder "$1")" && find . -type f ! -name 'halvane' -exec cksum {} + | sort -k3); }

# as USER COMMAND ...: with the environment of a fresh session.
as() {
    runuser -u "$1" -- env -i HOME="$(home_of "$1")" USER="$1" PATH=/usr/bin:/bin LANG=C.UTF-8 TZ=Asia/Amman \
        ${display:+DISPLAY="$display"} QT_LOGGING_RULES='*=false' "${@:2}"
}

# Opens a screen; its name goes to $display.
open_screen() {
    exec 3>"$scratch/display"
    Xvfb -displayfd 3 -screen 0 1280x960x24 -nolisten tcp -noreset -ac 2>/dev/null &
    screens+=($!)
    for _ in $(seq 200); do
        [ -s "$scratch/display" ] && break
        sleep 0.05
    done
    display=:$(cat "$scratch/display")
    exec 3>&-
}

# start USER COMMAND: without waiting; its process is remembered.
start() {
    rm -f "$scratch/process"
    as "$1" sh -c "echo \$\$; exec $2" >"$scratch/process" 2>>"$scratch/errors" &
    for _ in $(seq 100); do
        [ -s "$scratch/process" ] && break
        sleep 0.05
    done
    process=$(head -1 "$scratch/process")
    programs+=("$process")
}

wait_for_window() {
    for _ in $(seq 200); do
        DISPLAY=$display xdotool search --name "^$1\$" >/dev/null 2>&1 && return
        sleep 0.05
    done
    fail "no window \"$1\" on $display: $(cat "$scratch/errors")"
}

installed_traces() { find /opt /usr /etc /var/lib/dpkg/info -xdev -iname '*halvane*' 2>/dev/null | sort; }

# The first user works with the older package, then finds the own files as they were, and the same reports.
reports="prayer moon phases crescent ephemeris"
print_reports() {
    mkdir "$1"
    for task in $reports; do
        as "$user" halvane-report "$task" >/dev/null
        as "$user" cat "$(own_folder "$user")/results.out" >"$1/$task"
        [ -s "$1/$task" ] || fail "no report: $task"
    done
}
use_older() {
    user=${users%% *}
    as "$user" halvane-report today >/dev/null
    as "$user" sed -i 's/#FALSE#/#TRUE#/' "$(own_folder "$user")/date.vsk"
    print_reports "$scratch/older"
    state "$user" | grep -v alert63 >"$scratch/kept"
    older_version=$(dpkg-query -W -f '${Version}' halvane)
}
find_unchanged() {
    version=$(dpkg-query -W -f '${Version}' halvane)
    echo "Upgraded from $older_version to $version"
    dpkg --compare-versions "$version" gt "$older_version" || fail "$version is not above $older_version"
    as "$user" halvane-report today >/dev/null
    cmp /opt/halvane/alert63.exe "$(own_folder "$user")/alert63.exe" || fail "the program was not brought up to date"
    state "$user" | grep -v alert63 | diff "$scratch/kept" - || fail "the upgrade touched the user's files"
    print_reports "$scratch/newer"
    diff -r "$scratch/older" "$scratch/newer" || fail "the reports changed"
}

echo "Lintian"
lintian --fail-on error "$package"

for user in $users; do
    useradd -m -s /bin/sh "$user"
done

echo "Install"
before=$(installed_traces)
[ -z "$before" ] || fail "there are traces of Halvane already: $before"
if [ -n "$older" ]; then
    installs "$older"
    use_older
fi
installs "$package"
[ -z "$older" ] || find_unchanged
tests/tools/hardening_test.sh /opt/halvane/halvane /opt/halvane/alert63.exe /opt/halvane/halvane-report \
    /opt/halvane/halvane-paper /opt/halvane/halvane-map || fail "the programs are not hardened"
desktop-file-validate /usr/share/applications/halvane.desktop
appstreamcli validate --no-net --no-color /usr/share/metainfo/org.tarsine.halvane.metainfo.xml
command=$(sed -n 's/^Exec=//p' /usr/share/applications/halvane.desktop)

echo "Two users at once"
declare -A display_of
for user in $users; do
    open_screen
    display_of[$user]=$display
    start "$user" "$command"
done
for user in $users; do
    display=${display_of[$user]}
    wait_for_window "Halvane 5.3.9"
    [ "$(stat -c %U "$(own_folder "$user")/pref.vsk")" = "$user" ] || fail "the stored files are not the user's"
    start "$user" "$(own_folder "$user")/alert63.exe"
    wait_for_window "Halvane Alerts"
done
for process in "${programs[@]}"; do
    kill -0 "$process" || fail "a program ended: $(cat "$scratch/errors")"
done
[ ${#programs[@]} = 4 ] || fail "not four programs"

echo "Each has files of one's own"
read -r one two <<<"$users"
display=
state "$two" >"$scratch/two"
as "$one" sed -i 's/#TRUE#/#FALSE#/' "$(own_folder "$one")/pref.vsk"
as "$one" halvane-report prayer >/dev/null
[ -s "$(own_folder "$one")/results.out" ] || fail "no report in the user's folder"
state "$two" | diff "$scratch/two" - || fail "the other user's files changed"
as "$two" halvane-report today | grep -q '^Dhohur 1[0-9]:[0-9][0-9]' || fail "no times of today"
as "$two" sh -c "cd && mkdir other && cp $(own_folder "$two")/*.vsk other && halvane-report --folder other prayer" \
    >/dev/null
[ -s "$(home_of "$two")/other/results.out" ] || fail "--folder is not taken"

echo "What keeps no file makes no folder"
useradd -m -s /bin/sh halvane-try-three
users="$users halvane-try-three"
as halvane-try-three sh -c 'cd && mkdir empty && cd empty && halvane-report next --place Cairo --json' |
    grep -q '"place":"Cairo"' || fail "no next prayer at Cairo"
[ ! -e "$(own_folder halvane-try-three)" ] || fail "a folder was made"
[ -z "$(ls -A "$(home_of halvane-try-three)/empty")" ] || fail "a file was made"

echo "Without a home, and with a data folder that is not absolute"
as "$two" env -u HOME halvane-report today | grep -q '^Dhohur' || fail "no times without HOME"
as "$two" env HOME=/proc halvane-report today | grep -q '^Dhohur' || fail "no times on a home that is read-only"
as "$two" env XDG_DATA_HOME=data sh -c 'cd && halvane-report today && [ ! -e data ]' >/dev/null ||
    fail "a relative XDG_DATA_HOME is taken"
as "$two" halvane --version | grep -q '^halvane ' || fail "halvane --version"

echo "Install again"
state "$one" | grep -v alert63 >"$scratch/one"
echo "an older program" | as "$one" tee "$(own_folder "$one")/alert63.exe.new" >/dev/null
as "$one" mv "$(own_folder "$one")/alert63.exe.new" "$(own_folder "$one")/alert63.exe"
installs --reinstall "$package"
as "$one" halvane-report today >/dev/null
cmp /opt/halvane/alert63.exe "$(own_folder "$one")/alert63.exe" || fail "the program was not refreshed"
state "$one" | grep -v alert63 | diff "$scratch/one" - || fail "the installation touched the user's files"
[ "$(readlink "$(own_folder "$one")/term.vsk")" = /opt/halvane/term.vsk ] || fail "the series are no links"

echo "Purge"
for process in "${programs[@]}"; do
    kill "$process"
done
programs=()
DEBIAN_FRONTEND=noninteractive apt-get purge -y -qq halvane >/dev/null
after=$(installed_traces)
[ -z "$after" ] || fail "left behind: $after"
[ ! -e /opt/halvane ] || fail "/opt/halvane is left"
for user in "$one" "$two"; do
    [ -s "$(own_folder "$user")/pref.vsk" ] || fail "the user's folder went with the package"
done
