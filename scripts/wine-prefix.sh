#!/usr/bin/env bash
# Makes a Wine prefix (a private "drive C" with its registry), once: wine-prefix.sh FOLDER [WIDTHxHEIGHT]
#
# With a size, every program of the prefix lives in a desktop of Wine's own: with its own window manager the order of
# focus, activation and size messages is the same in every run, and windows have title bars on a bare virtual display.
# Without a size, windows are windows of the display's own desktop. Called again with another size it changes over.
set -euo pipefail

[ $# -ge 1 ] && [ -n "$1" ] || { echo "usage: wine-prefix.sh FOLDER [WIDTHxHEIGHT]" >&2; exit 2; }
mkdir -p "$1"
prefix=$(cd "$1" && pwd)
size=${2:-}
marker="$prefix/kinetarium-prefix"
# Goes up when something below changes, so that prefixes of earlier checkouts are brought up to date.
layout=3
wanted="layout $layout, desktop ${size:-none}"

is_ready() {
    [ -f "$marker" ] && [ "$(cat "$marker")" = "$wanted" ]
}

if is_ready; then
    exit 0
fi
exec 9>"$prefix.lock"
flock 9
if is_ready; then
    exit 0
fi

export WINEPREFIX="$prefix"
export WINEARCH=win64
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
log="$prefix.log"

# A crash ends the program (a dialog would wait for ever); text is smoothed as on a Windows desktop.
registry() {
    printf 'REGEDIT4\r\n\r\n'
    printf '[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]\r\n"ShowCrashDialog"=dword:00000000\r\n\r\n'
    printf '[HKEY_CURRENT_USER\\Control Panel\\Desktop]\r\n"FontSmoothing"="2"\r\n'
    printf '"FontSmoothingType"=dword:00000002\r\n"FontSmoothingGamma"=dword:00000578\r\n'
    printf '"FontSmoothingOrientation"=dword:00000001\r\n\r\n'
    # Wine 8 draws what Direct2D presents to a child window, as the world is, nowhere. Without Direct2D the program
    # paints with GDI, as it does on Windows when Direct2D fails. Test programs keep Direct2D: they look elsewhere.
    printf '[HKEY_CURRENT_USER\\Software\\Wine\\AppDefaults\\Kinetarium.exe\\DllOverrides]\r\n"d2d1"=""\r\n\r\n'
    if [ -n "$size" ]; then
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\r\n"Desktop"="Kinetarium"\r\n\r\n'
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]\r\n"Kinetarium"="%s"\r\n' "$size"
    else
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\r\n"Desktop"=-\r\n'
    fi
}

# Debian keeps Wine's fonts where its Wine does not look. They are found in the folder of Windows' own: Tahoma, which
# labels and the status bar are written in, and Marlett, whose letters are the signs on a title bar's buttons.
link_fonts() {
    local folder="$prefix/drive_c/windows/Fonts" font
    mkdir -p "$folder"
    for font in /usr/share/wine/fonts/*.ttf; do
        ln -sf "$font" "$folder/"
    done
}

# The services of Wine must not hold on to this script's output, lock or display.
quietly() {
    "$@" </dev/null >>"$log" 2>&1 9>&-
}

finish() {
    quietly wineserver -k || true
    quietly wineserver -w || true
}

echo "Wine: making the prefix $prefix ($wanted)"
unset DISPLAY WAYLAND_DISPLAY
: >"$log"
rm -f "$marker"
trap finish EXIT
quietly timeout --foreground 180 wine wineboot -u || { echo "error: Wine cannot make $prefix; see $log" >&2; exit 1; }
link_fonts
registry >"$prefix/kinetarium.reg"
quietly timeout --foreground 60 wine regedit "Z:$prefix/kinetarium.reg" ||
    { echo "error: Wine cannot set up $prefix; see $log" >&2; exit 1; }
finish
trap - EXIT
echo "$wanted" >"$marker"
