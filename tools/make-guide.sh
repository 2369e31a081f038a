#!/bin/bash
# SPDX-License-Identifier: MIT
# Makes resources/overview.pdf anew: takes pictures of the application's screens, and sets docs/guide/guide.html
# with them. The tree must have been built with its tests: tools/make-guide.sh [BUILD FOLDER]
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
build=${1:-$root/build/release}
maker=$build/bin/guide_maker
[[ -x $maker ]] || {
    echo "There is no $maker. Build it: cmake --build --preset release --target guide_maker" >&2
    exit 1
}
# Twice the pixels, so that the pictures stay sharp when the guide is zoomed.
export QT_SCALE_FACTOR=2 QT_QUICK_BACKEND=software LC_ALL=C.UTF-8
mkdir -p -- "$build/guide"
"$maker" "$root/docs/guide/guide.html" "$build/guide" "$build/guide/overview.pdf"
size=$(stat --format=%s -- "$build/guide/overview.pdf")
((size < 1000000)) || {
    echo "The guide has $size bytes; more than a megabyte would be too much." >&2
    exit 1
}
cp -- "$build/guide/overview.pdf" "$root/resources/overview.pdf"
echo "resources/overview.pdf: $size bytes"
