# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
# For the scripts in the root of the tree, whose folder is in `root`: brings the release preset up to date. What the
# tools print is shown only when they fail.

# A stream that the caller closed would be replaced by the next file that is opened.
[[ -e /dev/fd/0 ]] || exec </dev/null
[[ -e /dev/fd/1 ]] || exec >/dev/null
[[ -e /dev/fd/2 ]] || exec 2>/dev/null

buildFolder=$root/build/release
cache=$buildFolder/CMakeCache.txt
stamp=$buildFolder/.configured

# build TARGET [ENTRY=VALUE]...      with these entries in CMake's cache
build() {
    local target=$1 entries=("${@:2}") tool
    for tool in cmake ninja c++; do
        if ! command -v "$tool" >/dev/null; then
            echo "It takes $tool to build this, and there is none." >&2
            return 1
        fi
    done
    isConfigured || configure
    quietly cmake --build --preset release --target "$target" -- --quiet
}

# A tree that was moved or copied together with its build cannot go on with that.
isConfiguredHere() { grep -qsFx "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$cache"; }

# Says whether the build can notice by itself what has changed. Packages that came or went since may change what
# CMake finds.
isConfigured() {
    [[ $stamp -nt $root/CMakePresets.json && ! /var/lib/dpkg/status -nt $stamp ]] || return
    isConfiguredHere || return
    grep -qs "^build $target:" "$buildFolder/build.ninja" || return
    local entry
    for entry in "${entries[@]}"; do
        grep -q "^${entry%%=*}:[A-Z]*=${entry#*=}\$" "$cache" || return
    done
}

configure() {
    local options=("${entries[@]/#/-D}")
    if [[ ! -f $cache ]]; then
        echo "Building for the first time; this takes some minutes." >&2
    elif ! isConfiguredHere; then
        options+=(--fresh)
    fi
    mkdir -p -- "$buildFolder"
    quietly cmake --preset release "${options[@]}" && touch -- "$stamp"
}

# The command gets a session of its own, so that all of it can be ended with this script.
quietly() {
    local log=$buildFolder/.output status=0
    setsid env --chdir="$root" -- "$@" >"$log" 2>&1 </dev/null &
    trap 'kill -- "-$!" 2>/dev/null' EXIT
    wait "$!" || status=$?
    trap - EXIT
    ((status == 0)) || cat -- "$log" >&2
    return "$status"
}
