#!/usr/bin/env bash
# Runs a command with a Wine and a display of its own, and ends both afterwards:
#
#   wine-session.sh [--prefix FOLDER] [--size WIDTHxHEIGHT] [--this-display] [--second] COMMAND [ARGUMENT...]
#
#   --prefix FOLDER    the Wine prefix, made if it is missing (build/windows-release/wine)
#   --size WIDTHxHEIGHT  of the display and of Wine's desktop on it (1280x1024)
#   --this-display     open windows on the display of DISPLAY instead of a private one
#   --second           the second desktop: sets KINETARIUM_SECOND_PREFIX and KINETARIUM_SECOND_DISPLAY for the command,
#                      which starts another session for the first desktop
#
# The exit code is that of the command. However the session ends (the command ends, a signal, even SIGKILL), it ends the
# display and every program of the prefix, which it knows by process id and prefix, and nothing else.
set -u

cd "$(dirname "$0")/.." || exit 1
prefix=build/windows-release/wine
size=1280x1024
private=yes
second=no

fail() {
    echo "wine-session: $*" >&2
    exit 1
}

while [ $# -gt 0 ]; do
    case "$1" in
    --prefix) prefix=${2:?--prefix needs a folder} && shift 2 ;;
    --size) size=${2:?--size needs WIDTHxHEIGHT} && shift 2 ;;
    --this-display) private=no && shift ;;
    --second) second=yes && shift ;;
    --) shift && break ;;
    -*) fail "unknown option $1" ;;
    *) break ;;
    esac
done
[ $# -ge 1 ] || fail "no command given"
[ "$private" = yes ] || [ -n "${DISPLAY:-}" ] || fail "--this-display needs DISPLAY"

mkdir -p "$prefix"
prefix=$(cd "$prefix" && pwd)
folder=$(mktemp -d) || exit 1
display_pid=
command_pid=
guard_pid=

# One session per prefix: ending one must not end the programs of another.
exec 8>"$prefix.session"
if ! flock -n 8; then
    echo "Wine: waiting for another session of $prefix to end"
    flock 8
fi

export WINEPREFIX="$prefix" WINEARCH=win64 WINEDEBUG="${WINEDEBUG:--all,err+all}"
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
# The drawing thread also presents Direct2D's frames: with a second thread for that, Wine and the software renderer can
# deadlock. One thread is also a third faster.
export WINE_D3D_CONFIG="${WINE_D3D_CONFIG:-csmt=0x0}"

# At a random address the heap of a program may cover the fixed address of Wine's shared user data, so that Wine does not
# start. Some containers forbid to switch the randomisation off; wine-emulator.sh then starts the program again.
fixed_addresses=(setarch --addr-no-randomize)
"${fixed_addresses[@]}" true 2>/dev/null || fixed_addresses=()

end_process() {
    [ -n "$1" ] || return 0
    kill "$1" 2>/dev/null
    for _ in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do
        kill -0 "$1" 2>/dev/null || return 0
        sleep 0.1
    done
    kill -KILL "$1" 2>/dev/null
}

end_session() {
    [ -z "$command_pid" ] || kill -TERM -- "-$command_pid" 2>/dev/null
    end_process "$command_pid"
    wineserver -k </dev/null >/dev/null 2>&1 8>&-
    wineserver -w </dev/null >/dev/null 2>&1 8>&-
    end_process "$display_pid"
    rm -rf "$folder"
}

# $1 = exit code
finish() {
    trap '' INT TERM HUP
    trap - EXIT
    end_session
    [ -z "$guard_pid" ] || end_process "$guard_pid"
    exit "$1"
}

trap 'finish $?' EXIT
trap 'finish 130' INT
trap 'finish 143' TERM
trap 'finish 129' HUP

# SIGKILL gives this script no chance to clean up. The guard watches it and then cleans up in its place. It has a process
# group of its own, because the whole group of this script may be killed, and it keeps the session's lock until the end.
start_guard() {
    set -m
    (
        set +m
        trap - EXIT
        trap 'exit 0' INT TERM HUP
        exec </dev/null >/dev/null 2>&1
        while kill -0 $$ 2>/dev/null; do
            sleep 0.2 8>&-
        done
        [ ! -s "$folder/command" ] || command_pid=$(cat "$folder/command")
        [ ! -s "$folder/display-pid" ] || display_pid=$(cat "$folder/display-pid")
        end_session
    ) &
    guard_pid=$!
    set +m
}

# Runs a command as a process group of its own, so that a signal can end all of it, and waits for it. The command runs in
# the background: a shell handles no signal while it waits for a command in the foreground.
run() {
    local code
    set -m
    "${fixed_addresses[@]}" "$@" </dev/null 8>&- &
    command_pid=$!
    set +m
    echo "$command_pid" >"$folder/command"
    wait "$command_pid"
    code=$?
    command_pid=
    : >"$folder/command"
    return "$code"
}

# Xvfb chooses a free display number and writes it into the file when it accepts connections.
start_display() {
    : >"$folder/display"
    Xvfb -displayfd 5 -screen 0 "${size}x24" -nolisten tcp -noreset </dev/null \
        5>"$folder/display" >"$folder/xvfb.log" 2>&1 8>&- &
    display_pid=$!
    echo "$display_pid" >"$folder/display-pid"
    for _ in $(seq 100); do
        if [ -s "$folder/display" ]; then
            DISPLAY=":$(cat "$folder/display")"
            export DISPLAY
            unset WAYLAND_DISPLAY XAUTHORITY
            return 0
        fi
        kill -0 "$display_pid" 2>/dev/null || break
        sleep 0.1
    done
    cat "$folder/xvfb.log" >&2
    fail "the virtual display does not start"
}

start_guard
if [ "$private" = yes ]; then
    run scripts/wine-prefix.sh "$prefix" "$size" || fail "no Wine prefix"
    start_display
else
    run scripts/wine-prefix.sh "$prefix" || fail "no Wine prefix"
fi

# With a persistent server a program starts 20 times quicker than with one that ends after each program.
wineserver -p </dev/null >/dev/null 2>&1 8>&-
run timeout --foreground 120 wine wineboot >/dev/null 2>&1 || fail "Wine does not start in $prefix"

if [ "$second" = yes ]; then
    export KINETARIUM_SECOND_PREFIX="$WINEPREFIX" KINETARIUM_SECOND_DISPLAY="$DISPLAY"
fi

run "$@"
finish $?
