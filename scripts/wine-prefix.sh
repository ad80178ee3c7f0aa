#!/usr/bin/env bash
# Makes a Wine prefix (a private "drive C" with its registry), once: wine-prefix.sh FOLDER [WIDTHxHEIGHT]
#
# With a size, the programs of the prefix run in a desktop of Wine: with Wine's own window manager the order of focus,
# activation and size messages is the same in every run, and windows have title bars, though Xvfb has no window manager.
# Without a size, windows belong to the desktop of the display. A second call with another size changes the prefix. If it
# was made by another version of Wine, it is made anew.
set -euo pipefail

[ $# -ge 1 ] && [ -n "$1" ] || { echo "usage: wine-prefix.sh FOLDER [WIDTHxHEIGHT]" >&2; exit 2; }
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$1"
prefix=$(cd "$1" && pwd)
size=${2:-}
marker="$prefix/kinetarium-prefix"
# Raise it when something below changes: then prefixes of earlier checkouts are updated.
layout=4
version=$(wine --version 2>/dev/null) || { echo "error: there is no Wine; run scripts/install-packages.sh first" >&2; exit 1; }
wanted="layout $layout, desktop ${size:-none}, $version"

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

# Without this, a crash opens a dialog and the program never ends. Text is smoothed as on a Windows desktop.
registry() {
    printf 'REGEDIT4\r\n\r\n'
    printf '[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]\r\n"ShowCrashDialog"=dword:00000000\r\n\r\n'
    printf '[HKEY_CURRENT_USER\\Control Panel\\Desktop]\r\n"FontSmoothing"="2"\r\n'
    printf '"FontSmoothingType"=dword:00000002\r\n"FontSmoothingGamma"=dword:00000578\r\n'
    printf '"FontSmoothingOrientation"=dword:00000001\r\n\r\n'
    # Where Wine does not show the world that Direct2D draws, the program paints with GDI, as it does on Windows when
    # Direct2D fails. Test programs keep Direct2D: they show it in a top-level window.
    "$here/wine-shows-direct2d.sh" ||
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\AppDefaults\\Kinetarium.exe\\DllOverrides]\r\n"d2d1"=""\r\n\r\n'
    if [ -n "$size" ]; then
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\r\n"Desktop"="Kinetarium"\r\n\r\n'
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]\r\n"Kinetarium"="%s"\r\n' "$size"
    else
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\r\n"Desktop"=-\r\n'
    fi
}

# Debian installs Wine's fonts in a folder that Wine does not search, so link them into the prefix's folder of fonts:
# Tahoma for the labels and the status bar, Marlett for the symbols on the buttons of a title bar.
link_fonts() {
    local folder="$prefix/drive_c/windows/Fonts" font
    mkdir -p "$folder"
    for font in /usr/share/wine/fonts/*.ttf; do
        ln -sf "$font" "$folder/"
    done
}

# Only Wine's own files: the folder may hold others.
drop_prefix_of_another_wine() {
    [ -f "$marker" ] && [[ $(cat "$marker") != *", $version" ]] || return 0
    rm -rf "$prefix/drive_c" "$prefix/dosdevices" "$prefix/.update-timestamp" "$prefix"/{system,user,userdef}.reg
}

# Wine's services must not inherit this script's output and lock.
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
drop_prefix_of_another_wine
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
