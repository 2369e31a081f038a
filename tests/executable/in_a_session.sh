#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs a command in a desktop session of its own: display, message bus and runtime folder, where the accessibility bus
# puts its socket: two sessions with one folder would take it from each other.
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
dbus-run-session -- xvfb-run -a "$@"
