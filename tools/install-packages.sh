#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# usage: install-packages.sh LIST...      with the lists of packages.sh
# Installs the packages of these lists that are missing, and does nothing else when none is. Succeeds when all are
# there afterwards; otherwise it has said what is missing.
set -euo pipefail
# shellcheck source=tools/packages.sh
source "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")/packages.sh"

say() { printf '%s\n' "$*" >&2; }

wantedPackages() {
    local list
    for list in "$@"; do
        local -n packages=$list
        printf '%s\n' "${packages[@]}"
    done | sort -u
}

# Without dpkg nothing counts as installed.
installedPackages() {
    dpkg-query --show --showformat='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        sed -n 's/^installed //p' | sort -u
}

missingPackages() {
    local -a wanted
    mapfile -t wanted < <(wantedPackages "$@")
    comm -23 <(printf '%s\n' "${wanted[@]}") <(installedPackages "${wanted[@]}")
}

# A machine that has just been started may be at it itself: the package lists are then locked for a while.
updateLists() {
    local -i attempts=30
    while ((attempts-- > 0)); do
        "${asRoot[@]}" apt-get update -qq >"$log" 2>&1 && return
        grep -q 'Could not get lock' "$log" || return
        sleep 4
    done
}

installPackages() {
    "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 -- "$@" >"$log" 2>&1 </dev/null
}

mapfile -t missing < <(missingPackages "$@")
((${#missing[@]})) || exit 0

if ! command -v apt-get >/dev/null; then
    say "This machine has no apt-get. What these Debian packages hold has to be there: ${missing[*]}"
    exit 1
fi
asRoot=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        say "Packages are missing, and installing them takes root or sudo. As root: apt-get install ${missing[*]}"
        exit 1
    fi
    asRoot=(sudo)
fi

say "Installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f -- "$log"' EXIT
# Sources that cannot be reached now may still be in the lists of an earlier day.
updateLists || true
if ! installPackages "${missing[@]}"; then
    tail -n 20 -- "$log" >&2
    say "These packages could not be installed: ${missing[*]}"
    exit 1
fi
