#!/bin/bash
# SPDX-License-Identifier: MIT
# ./run and ./check on a machine that has all packages: no user needs apt, root or a network. The build itself is
# played by scripts.
# In     source folder
source=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
tree=$scratch/tree
calls=$scratch/calls

fail() {
    echo "FAILED: $*"
    exit 1
}

# play NAME: a program of that name that does what is read from standard input.
play() {
    { echo '#!/bin/sh'; cat; } >"$scratch/bin/$1"
    chmod 755 "$scratch/bin/$1"
}

mkdir -p "$scratch/bin" "$tree/tools"
cp "$source/run" "$source/check" "$source/CMakePresets.json" "$tree/"
cp -r "$source/tools/setup" "$tree/tools/"
mkdir "$tree/tools/campaign"
ln -s /bin/true "$tree/tools/campaign/campaign"
ln -s /bin/true "$tree/tools/tidy"
touch "$calls"
for forbidden in apt apt-get aptitude sudo su pkexec curl wget; do
    play $forbidden <<<"echo '$forbidden' \"\$@\" >>'$calls'; exit 1"
done
play cmake <<'PLAYED'
mkdir -p build/run/halvane
printf '#!/bin/sh\necho "played: $*"\n' >build/run/halvane/halvane-report
chmod 755 build/run/halvane/halvane-report
PLAYED
play clang-format <<<'true'
play ctest <<<'echo "100% tests passed, 0 tests failed out of 4"'

user=()
if [ "$(id -u)" = 0 ]; then
    user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
    chown -R 65534:65534 "$scratch"
fi
as_user() { (cd "$tree" && "${user[@]}" env -u DISPLAY -u WAYLAND_DISPLAY HOME=/nonexistent PATH="$scratch/bin:$PATH" "$@"); }

. "$source/tools/setup/packages.sh"
provided=$(dpkg-query -W -f='${Provides}, ' 2>/dev/null | tr ',' '\n' | sed 's/ *(.*//; s/^ *//; s/ *$//' | sort -u)
truly_missing=
# shellcheck disable=SC2086,SC2154 # lists of names
for package in $(missing_packages $build_packages $test_packages); do
    grep -qxF "$package" <<<"$provided" && fail "$package is a virtual name: it would be asked for at every start"
    truly_missing="$truly_missing $package"
done
[ -z "$truly_missing" ] || { echo "not installed:$truly_missing: skipped"; exit 77; }

output=$(as_user ./run 2>&1) || fail "./run: $output"
grep -q 'played: today' <<<"$output" || fail "./run did not come to its end: $output"
output=$(as_user ./check 2>&1) || fail "./check: $output"
# Each of the two rounds of the tests counts four.
[ "$(tail -1 <<<"$output")" = "12 passed, 0 failed" ] || fail "./check did not come to its end: $output"
[ ! -s "$calls" ] || fail "called: $(cat "$calls")"
echo "passed"
