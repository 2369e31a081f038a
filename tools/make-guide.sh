#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Makes resources/overview.pdf anew: takes pictures of the application's screens, and sets docs/guide/guide.html
# with them. Builds what it needs first.
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd -P)
# shellcheck source=build.sh
source "$root/tools/build.sh"
build guide_maker BUILD_TESTING=ON
# Twice the pixels, so that the pictures stay sharp when the guide is zoomed.
export QT_SCALE_FACTOR=2 QT_QUICK_BACKEND=software LC_ALL=C.UTF-8
mkdir -p -- "$buildFolder/guide"
"$buildFolder/bin/guide_maker" "$root/docs/guide/guide.html" "$buildFolder/guide" "$buildFolder/guide/overview.pdf"
size=$(stat --format=%s -- "$buildFolder/guide/overview.pdf")
((size < 1000000)) || {
    echo "The guide has $size bytes; more than a megabyte would be too much." >&2
    exit 1
}
cp -- "$buildFolder/guide/overview.pdf" "$root/resources/overview.pdf"
echo "resources/overview.pdf: $size bytes"
