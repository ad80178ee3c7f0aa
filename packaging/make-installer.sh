#!/usr/bin/env bash
# Makes the installer of a folder of files: make-installer.sh FOLDER VERSION INSTALLER
#
# The installer unpacks every file of FOLDER to the same relative path; its uninstaller deletes only these files. The same
# files with the same times give the same installer.
set -euo pipefail
[ $# -eq 3 ] || { echo "usage: make-installer.sh FOLDER VERSION INSTALLER" >&2; exit 2; }
folder=$(cd "$1" && pwd)
version=$2
mkdir -p "$(dirname "$3")"
installer=$(realpath -m "$3")
cd "$(dirname "$0")"
resources=$(realpath ../resources)

lists=$(mktemp -d)
trap 'rm -rf "$lists"' EXIT
export LC_ALL=C

# Converts a path to the form of Windows.
windows_path() {
    printf '%s' "$1" | tr / '\\'
}

while IFS= read -r file; do
    place=$(dirname "$file")
    place=$(windows_path "${place#.}")
    printf 'SetOutPath "$INSTDIR%s"\nFile "%s"\n' "${place:+\\${place#\\}}" "$folder/$file" >>"$lists/install.nsh"
    printf 'Delete "$INSTDIR\\%s"\n' "$(windows_path "$file")" >>"$lists/uninstall.nsh"
done < <(cd "$folder" && find . -type f -printf '%P\n' | sort)
# Innermost folders first.
while IFS= read -r place; do
    printf 'RMDir "$INSTDIR\\%s"\n' "$(windows_path "$place")" >>"$lists/uninstall.nsh"
done < <(cd "$folder" && find . -mindepth 1 -type d -printf '%P\n' | sort -r)

size=$(find "$folder" -type f -printf '%s\n' | awk '{ sum += $1 } END { print int((sum + 1023) / 1024) }')
rm -f "$installer"
makensis -V2 -WX -NOCD "-DVERSION=$version" "-DOUTPUT=$installer" "-DICON=$resources/Kinetarium.ico" \
    "-DPICTURE=$resources/backdrop.bmp" "-DLISTS=$lists" "-DSIZE=$size" Kinetarium.nsi
