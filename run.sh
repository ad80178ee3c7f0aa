#!/usr/bin/env bash
# Builds Kinetarium and starts it. See --help.
set -euo pipefail
called_from=$PWD
cd "$(dirname "$0")"

usage() {
    cat <<'TEXT'
usage: ./run.sh [--seconds N] [--screenshot FILE] [--help]

Installs missing packages (Debian 12, as root), fetches {fmt} 11, builds Kinetarium.exe and starts it under Wine.

With a display it opens the window and returns when the user closes it. Without a display, or with one of the options
below, it runs a demonstration on a virtual display: it presses Start as a user does, prints at least two statistics lines,
saves a picture of the window, presses Stop and closes the window. The exit code is 0 only if all of this succeeded. No
process is left running.

  --seconds N        run the demonstration for at least N seconds
  --screenshot FILE  the file of the picture (out/kinetarium.png)
  --help             this text
TEXT
}

fail() {
    echo "error: $*" >&2
    exit 1
}

seconds=0
picture=out/kinetarium.png
demonstration=no
[ -n "${DISPLAY:-}" ] || demonstration=yes
while [ $# -gt 0 ]; do
    case "$1" in
    --seconds)
        [[ "${2:-}" =~ ^[0-9]{1,5}$ ]] || fail "--seconds needs a whole number below 100000"
        seconds=$((10#$2)) && demonstration=yes && shift 2
        ;;
    --screenshot)
        [ -n "${2:-}" ] || fail "--screenshot needs a file"
        picture=$(cd "$called_from" && realpath -m "$2") && demonstration=yes && shift 2
        ;;
    --help | -h) usage && exit 0 ;;
    *) usage >&2 && exit 2 ;;
    esac
done

step() {
    printf '\n== %s\n' "$*"
}

step "Packages"
scripts/install-packages.sh
step "Libraries that Debian 12 does not have"
scripts/fetch-dependencies.sh
step "Windows build"
scripts/build.sh windows-release -- Kinetarium kinetarium-driver
bin=build/windows-release/bin
if ! scripts/wine-shows-direct2d.sh; then
    printf '\nNote: %s does not show Direct2D.\n' "$(wine --version 2>/dev/null)"
    echo "GDI paints instead, and the world of fixed mode stays black."
fi

if [ "$demonstration" = no ]; then
    step "Kinetarium, until its window is closed"
    code=0
    scripts/wine-session.sh --this-display --prefix build/windows-release/wine-window -- \
        wine "$bin/Kinetarium.exe" || code=$?
    [ "$code" -eq 0 ] || fail "Kinetarium.exe ended with exit code $code"
    exit 0
fi

step "Demonstration on a virtual display"
mkdir -p "$(dirname "$picture")"
rm -f "$picture"
# The driver has time limits of its own; this one ends it if they fail.
code=0
scripts/wine-session.sh -- timeout --foreground --kill-after=10 "$((seconds + 300))" \
    wine "$bin/kinetarium-driver.exe" "$bin/Kinetarium.exe" --seconds "$seconds" --screenshot "$picture" || code=$?
[ "$code" -eq 0 ] || fail "the demonstration ended with exit code $code"
[ -s "$picture" ] || fail "there is no picture at $picture"
echo "Done: the picture is $picture"
