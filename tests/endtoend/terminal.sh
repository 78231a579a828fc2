#!/bin/bash
# SPDX-License-Identifier: MIT
# --version and --help of the programs with windows answer on the terminal, without a display and without files.
# In     folder of the built programs
set -u
binaries=$1
empty=$(mktemp -d)
trap 'rm -rf "$empty"' EXIT
cp "$binaries/halvane" "$binaries/alert63.exe" "$empty"

fail() {
    echo "FAILED: $*"
    exit 1
}

for program in halvane alert63.exe; do
    for display in "" ":99999"; do
        version=$(env -i DISPLAY="$display" "$empty/$program" --version 2>&1) || fail "$program --version"
        [[ $version =~ ^$program\ [0-9]+\.[0-9]+\.[0-9]+(\ \(commit\ [0-9a-f]+(-dirty)?\))?$ ]] || fail "$program --version says: $version"
        for word in --help -h; do
            help=$(env -i DISPLAY="$display" "$empty/$program" $word 2>&1) || fail "$program $word"
            [ "${help%%$'\n'*}" = "Usage: $program [--help] [--version]" ] || fail "$program $word says: $help"
        done
    done
    env -i "$empty/$program" --version >/dev/full 2>&1 && fail "$program passes over a full disk"
done
[ "$(find "$empty" -type f | wc -l)" = 2 ] || fail "a file was written"
echo "passed"
