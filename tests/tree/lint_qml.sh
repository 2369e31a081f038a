#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs qmllint over every page: lint_qml.sh <qmllint> <root of the tree> <folder with the built QML module>
# A warning fails.
set -eu
qmllint=$1
root=$2
modules=$3

cd "$root"
set -- $(find . -name '*.qml' -not -path './build/*' | sort)
[ $# -gt 0 ] || { echo "no QML files below $root"; exit 1; }
output=$("$qmllint" -I "$modules" "$@" 2>&1) && status=0 || status=$?
printf '%s\n' "$output"
case $output in *Warning:* | *Error:*) status=1 ;; esac
[ "$status" -eq 0 ] && echo "$# pages, no warning"
exit "$status"
