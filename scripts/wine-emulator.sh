#!/usr/bin/env bash
# Runs a Windows program under Wine: wine-emulator.sh PROGRAM [ARGUMENT...]
#
# CMake starts every program of the Windows build through this. The program's output goes through a file, because Wine's
# services inherit whatever the program writes to: a pipe would stay open after the program's end, and a reader such as
# CTest would wait for those services. Input is empty for the same reason.
#
# The Wine prefix (its private "drive C" and registry) is WINEPREFIX or else the one of the build tree that PROGRAM lies in,
# which is made if it is missing. There is no other default: the prefix in the home folder belongs to the user.
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
export WINEDEBUG="${WINEDEBUG:--all}"
# No offers to install a .NET or HTML engine, and no entries in the desktop's menus.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=;winemenubuilder.exe=d}"
# This Wine shows nothing of what Direct2D draws into a child window, and takes a hundred times as long for it: tests of
# the whole program run as on a machine without Direct2D, where GDI draws.
[ -z "${KINETARIUM_WITHOUT_DIRECT2D:-}" ] || WINEDLLOVERRIDES="$WINEDLLOVERRIDES;d2d1="
# Direct2D's frames are presented by the thread that draws them: with a thread of its own for that, Wine and the software
# renderer can lock each other out for ever. It is also a third faster.
export WINE_D3D_CONFIG="${WINE_D3D_CONFIG:-csmt=0x0}"

# One test at a time on a desktop; those of the second one move over if there is a second one.
if [ -n "${KINETARIUM_DESKTOP:-}" ]; then
    if [ "$KINETARIUM_DESKTOP" = second ] && [ -n "${KINETARIUM_SECOND_PREFIX:-}" ]; then
        export WINEPREFIX="$KINETARIUM_SECOND_PREFIX" DISPLAY="$KINETARIUM_SECOND_DISPLAY"
    fi
    exec 7>"$WINEPREFIX.desktop"
    flock 7
fi

output=$(mktemp) || fail "no room for a temporary file"
trap 'rm -f "$output"' EXIT
wine "$@" </dev/null >"$output" 2>&1 7>&-
code=$?
cat "$output"
exit "$code"
