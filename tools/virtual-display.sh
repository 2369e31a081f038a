#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# shellcheck disable=SC2317 # Traps and awaiting call functions by their names.
# usage: virtual-display.sh APPLICATION [ARGUMENT...]
# Runs the application on a display in memory that this user alone can reach, and prints the address at which a
# browser on this machine shows it as soon as the application says that it is ready. Ends with the application, with
# its exit status, or by INT, TERM or HUP; nothing that was started or written here stays behind.
set -euo pipefail

readonly readyLine="Giggle Archives is ready."
readonly webPages=/usr/share/novnc
readonly patience=5 # seconds to end in after a polite signal

folder=
children=() # process ids in the order of their start; each leads a process group

say() { printf '%s\n' "$*" >&2; }

fail() {
    say "The virtual display cannot be used: $*"
    [[ ! -s $folder/log ]] || tail -n 20 -- "$folder/log" >&2
    exit 1
}

# Starts a command that Ctrl+C in this terminal does not reach, so that the order of ending is ours, and that
# ends even when this script is killed. Its process id is in `child` then.
start() {
    setsid setpriv --pdeathsig TERM -- "$@" </dev/null &
    child=$!
    children+=("$child")
}

startServant() { start "$@" >>"$folder/log" 2>&1; }

isRunning() { kill -0 "$1" 2>/dev/null; }

hasEnded() {
    local -i turns=$((patience * 20))
    while isRunning "$1"; do
        ((turns-- > 0)) || return
        sleep 0.05
    done
}

end() {
    kill -TERM -- "-$1" 2>/dev/null || return 0
    hasEnded "$1" || kill -KILL -- "-$1" 2>/dev/null || true
}

# Programs that the application or the session bus started away from their group still carry our environment.
strays() {
    local file
    while IFS= read -r file; do
        basename -- "${file%/environ}"
    done < <(grep -lsFzx "XAUTHORITY=$folder/authority" /proc/[0-9]*/environ)
}

endStrays() {
    local -a pids
    local signal
    for signal in TERM KILL; do
        mapfile -t pids < <(strays)
        ((${#pids[@]})) || return 0
        kill -s "$signal" "${pids[@]}" 2>/dev/null || true
        sleep 0.2
    done
}

cleanUp() {
    trap '' INT TERM HUP
    local -i last
    for ((last = ${#children[@]} - 1; last >= 0; last--)); do
        end "${children[last]}"
    done
    endStrays
    # A document portal may have mounted a file system of the user's own files in there.
    rm -rf --one-file-system -- "$folder"
}

# Dies of the signal, as whoever sent it expects.
endBy() {
    trap - EXIT
    cleanUp
    trap - "$1"
    kill -s "$1" "$$"
}

# awaiting CONDITION...: false when the child that was started last ends before the condition is met.
awaiting() {
    until "$@"; do
        isRunning "$child" || return
        sleep 0.05
    done
}

# The number is chosen by hand because -displayfd does not lock it: two servers could get the same.
startServer() {
    local -i number
    for ((number = 90; number < 190; number++)); do
        isDisplayTaken "$number" && continue
        display=:$number
        xauth -q -f "$folder/authority" source - <<<"add $display . $(mcookie)" >>"$folder/log" 2>&1
        # With -rfbport 0 instead of -1 it would listen on every interface as well.
        startServant Xtigervnc "$display" -auth "$folder/authority" -nolisten tcp -noreset -s 0 \
            -geometry 1280x800 -depth 24 -desktop "Giggle Archives" -localhost -rfbport -1 \
            -rfbunixpath "$folder/vnc" -rfbunixmode 384 -SecurityTypes VncAuth \
            -PasswordFile "$folder/password" -AlwaysShared
        awaiting test -S "$folder/vnc" && return
        unset 'children[-1]'
        isDisplayTaken "$number" || break
    done
    fail "its server did not start."
}

isDisplayTaken() { [[ -e /tmp/.X$1-lock || -e /tmp/.X11-unix/X$1 ]]; }

startWebPage() {
    for ((port = 6080; port < 6180; port++)); do
        [[ -z $(listener) ]] || continue
        startServant websockify --web "$webPages" --unix-target "$folder/vnc" "127.0.0.1:$port"
        awaiting isServing && return
        unset 'children[-1]'
    done
    fail "its web page did not start."
}

# The socket that listens at the port, if there is one; state 0A is listening.
listener() {
    awk -v port="$(printf ':%04X' "$port")" '$4 == "0A" && index($2, port) { print "socket:[" $10 "]" }' /proc/net/tcp
}

# Another program may have been quicker to take the port, and would answer at it.
isServing() {
    local socket
    socket=$(listener)
    [[ -n $socket ]] && readlink "/proc/$child/fd/"* 2>/dev/null | grep -qFx "$socket"
}

# Passes the application's lines on.
relay() {
    local line
    while IFS= read -r line || [[ -n $line ]]; do
        printf '%s\n' "$line"
        if [[ $line == "$readyLine" ]]; then
            printf 'Open this address in a browser on this machine:\n%s\n' "$1"
        fi
    done
}

for program in Xtigervnc tigervncpasswd xauth matchbox-window-manager websockify; do
    command -v "$program" >/dev/null || fail "there is no $program."
done
[[ -f $webPages/vnc.html ]] || fail "there is no $webPages/vnc.html."

trap cleanUp EXIT
trap 'endBy INT' INT
trap 'endBy TERM' TERM
trap 'endBy HUP' HUP
# Not in TMPDIR: the names of sockets are limited to 107 bytes.
folder=$(mktemp -d /tmp/giggle-archives.XXXXXXXX)
mkdir -m 0700 -- "$folder/runtime"

# Other users of this machine and pages in the same browser reach the address too, but not past the password. The
# protocol takes eight characters.
password=$(head -c 6 /dev/urandom | base64 | tr '+/' '-_')
tigervncpasswd -f <<<"$password" >"$folder/password"

startServer
inside=(
    env --default-signal -u WAYLAND_DISPLAY
    DISPLAY="$display"
    XAUTHORITY="$folder/authority"
    XDG_RUNTIME_DIR="$folder/runtime"
)
# The window manager gives dialogs and their parents the focus and windows the size of the browser's. Its own keys
# would take some of the application's.
echo '<alt>f4=close' >"$folder/keys"
startServant "${inside[@]}" matchbox-window-manager -use_titlebar no -kbdconfig "$folder/keys"
# Screen readers and portals that belong to the virtual display, not to a session of the user elsewhere.
if command -v dbus-daemon >/dev/null; then
    inside+=(DBUS_SESSION_BUS_ADDRESS="unix:path=$folder/bus")
    startServant "${inside[@]}" dbus-daemon --session --nofork --nopidfile --nosyslog --address="unix:path=$folder/bus"
    awaiting test -S "$folder/bus" || fail "its session bus did not start."
    # An application offers itself to screen readers only if their bus is there when it starts.
    "${inside[@]}" dbus-send --session --reply-timeout=5000 --print-reply --dest=org.a11y.Bus /org/a11y/bus \
        org.a11y.Bus.GetAddress >>"$folder/log" 2>&1 </dev/null || true
fi
startWebPage

mkfifo -- "$folder/output"
relay "http://127.0.0.1:$port/vnc.html#autoconnect=true&resize=remote&password=$password" <"$folder/output" &
relay=$!
# Drawing by processor takes a third of the time that a graphics driver without a graphics card takes.
start "${inside[@]}" QT_QPA_PLATFORM=xcb \
    QT_QUICK_BACKEND="${QT_QUICK_BACKEND:-software}" "$@" >"$folder/output"

status=0
{ wait -n -p ended "${children[@]}" || status=$?; } 2>/dev/null # bash's own words about how it ended
[[ $ended == "$child" ]] || fail "a part of it ended."
trap - EXIT
cleanUp
wait "$relay" || true
exit "$status"
