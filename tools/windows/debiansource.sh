# SPDX-License-Identifier: MIT
# Sourced by what builds libraries for Windows.

# debian_source CACHE PACKAGE: unpacks Debian's source package into CACHE/source, once, and prints the folder.
# Debian's sources file names packages alone; a private copy names sources too.
debian_source() (
    cache=$1 package=$2
    kept=$cache/source/$package.unpacked
    if [ ! -e "$kept" ]; then
        mkdir -p "$cache/apt/parts" "$cache/apt/lists/partial" "$cache/source"
        sed 's/^Types: deb$/Types: deb deb-src/' /etc/apt/sources.list.d/debian.sources >"$cache/apt/parts/debian.sources"
        cd "$cache/source"
        set -- -qq -o "Dir::Etc::sourceparts=$cache/apt/parts" -o Dir::Etc::sourcelist=/dev/null \
            -o "Dir::State::lists=$cache/apt/lists" -o APT::Sandbox::User=root
        ls "$cache"/apt/lists/*_Sources* >/dev/null 2>&1 || apt-get "$@" update >&2
        apt-get "$@" source "$package" >&2
        find "$cache/source" -maxdepth 1 -type d -name "$package-*" >"$kept"
    fi
    cat "$kept"
)
