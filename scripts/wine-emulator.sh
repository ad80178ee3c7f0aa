#!/usr/bin/env bash
# Runs a Windows program under Wine: wine-emulator.sh PROGRAM [ARGUMENT...]
#
# CMake starts every program of the Windows build with this script. The program writes into a file: Wine's services inherit
# its output and keep it open, so a reader of a pipe, such as CTest, would wait for them after the program's end. Input is
# empty for the same reason.
#
# The Wine prefix (a private "drive C" and registry) is WINEPREFIX, or else that of the build tree that holds PROGRAM; the
# script makes it if it is missing. It never uses the prefix in the home folder, which belongs to the user.
#
# Of a program that fails, Wine's own errors are printed too. If it printed nothing at all, the script says so and names
# its exit code: then Wine may not have started it.
set -u

here=$(cd "$(dirname "$0")" && pwd)

fail() {
    echo "wine-emulator: $*" >&2
    exit 125
}

[ $# -ge 1 ] || fail "usage: wine-emulator.sh PROGRAM [ARGUMENT...]"

# The first folder above the program that holds a CMakeCache.txt.
build_tree_of() {
    local folder
    folder=$(cd "$(dirname "$1")" 2>/dev/null && pwd) || return 1
    while [ "$folder" != / ]; do
        if [ -f "$folder/CMakeCache.txt" ]; then
            echo "$folder"
            return 0
        fi
        folder=$(dirname "$folder")
    done
    return 1
}

if [ -z "${WINEPREFIX:-}" ]; then
    tree=$(build_tree_of "$1") || fail "WINEPREFIX is not set, and $1 lies in no build tree"
    WINEPREFIX="$tree/wine"
    [ -f "$WINEPREFIX/kinetarium-prefix" ] || "$here/wine-prefix.sh" "$WINEPREFIX" 1280x1024 >&2 ||
        fail "the Wine prefix $WINEPREFIX cannot be made"
fi
export WINEPREFIX
# Errors only. With "-all" in front Debian's wine does not complain about its missing 32-bit half.
export WINEDEBUG="${WINEDEBUG:--all,err+all}"
# Do not offer to install a .NET or HTML engine; make no entries in the desktop's menus.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=;winemenubuilder.exe=d}"
# Tests of the whole program run without Direct2D where Wine does not show it; GDI draws instead.
if [ -n "${KINETARIUM_SHOWN_WORLD:-}" ] && ! "$here/wine-shows-direct2d.sh"; then
    WINEDLLOVERRIDES="$WINEDLLOVERRIDES;d2d1="
fi
# The drawing thread also presents Direct2D's frames: with a second thread for that, Wine and the software renderer can
# deadlock. One thread is also a third faster.
export WINE_D3D_CONFIG="${WINE_D3D_CONFIG:-csmt=0x0}"

# Run one test at a time on a desktop. Tests of the second desktop use it if the session has one.
if [ -n "${KINETARIUM_DESKTOP:-}" ]; then
    if [ "$KINETARIUM_DESKTOP" = second ] && [ -n "${KINETARIUM_SECOND_PREFIX:-}" ]; then
        export WINEPREFIX="$KINETARIUM_SECOND_PREFIX" DISPLAY="$KINETARIUM_SECOND_DISPLAY"
    fi
    exec 7>"$WINEPREFIX.desktop"
    flock 7
fi

# "0024:err:module:...", or without the thread before there is one.
wine_error='^([0-9a-f]+:)?err:[a-z0-9_]+:'

memory() {
    awk '/^(MemAvailable|SwapFree):/ { printf "%s %d MB ", $1, $2 / 1024 }' /proc/meminfo
}

output=$(mktemp) || fail "no room for a temporary file"
trap 'rm -f "$output"' EXIT
for _ in 1 2 3 4 5; do
    wine "$@" </dev/null >"$output" 2>&1 7>&-
    code=$?
    # Once in about a thousand starts the random address of the heap covers the fixed one of Wine's shared user data. Then
    # Wine ends before it starts the program, so starting again is safe. wine-session.sh prevents it where it can.
    [ "$code" -ne 0 ] && grep -aqE "$wine_error.*failed to map the shared user data" "$output" || break
    echo "wine-emulator: Wine could not map its shared user data; starting again" >&2
done
if [ "$code" -eq 0 ]; then
    grep -avE "$wine_error" "$output"
else
    cat "$output"
    grep -aqvE "$wine_error" "$output" ||
        echo "wine-emulator: exit code $code and no output of $1: Wine may not have started it; $(memory)" >&2
fi
exit "$code"
