#!/usr/bin/env bash
# Makes the installer of a folder of files: make-installer.sh FOLDER VERSION INSTALLER
#
# The installer unpacks every file of FOLDER to the same relative path and records what it wrote; its uninstaller deletes
# only these files. The same files with the same times give the same installer.
set -euo pipefail
[ $# -eq 3 ] || { echo "usage: make-installer.sh FOLDER VERSION INSTALLER" >&2; exit 2; }
folder=$(cd "$1" && pwd)
version=$2
mkdir -p "$(dirname "$3")"
installer=$(realpath -m "$3")
cd "$(dirname "$0")/setup"
resources=$(realpath ../../resources)

lists=$(mktemp -d)
trap 'rm -rf "$lists"' EXIT
export LC_ALL=C

# Converts paths to the form of Windows.
windows_paths() {
    tr / '\\'
}

# The order in which the installer writes the files: the uninstaller first, so that there is always one; the programs last,
# because they tell which version is installed.
files() {
    (
        cd "$folder"
        find . -type f ! -path './*.exe' -printf '%P\n' | sort
        find . -maxdepth 1 -type f -name '*.exe' -printf '%P\n' | sort -r
    )
}

# numbered: "0=first line", "1=second line" ...
numbered() {
    awk '{ print NR - 1 "=" $0 }'
}

while IFS= read -r file; do
    place=$(dirname "$file" | windows_paths)
    place=${place#.}
    printf 'SetOutPath "$Staging\\new%s"\nFile "%s"\n' "${place:+\\$place}" "$folder/$file"
done < <(files) >"$lists/unpack.nsh"
# The hash of the uninstaller is that of the file which the installer writes.
{
    printf '[Kinetarium]\nVersion=%s\n[Files]\n' "$version"
    { echo Uninstall.exe; files; } | windows_paths | numbered
    printf '[Folders]\n'
    # Innermost first.
    (cd "$folder" && find . -mindepth 1 -type d -printf '%P\n' | sort -r) | windows_paths | numbered
    printf '[SHA-256]\n'
    files | while IFS= read -r file; do
        printf '%s=%s\n' "$(windows_paths <<<"$file")" "$(sha256sum <"$folder/$file" | cut -c 1-64)"
    done
} | sed 's/$/\r/' >"$lists/installed-files.ini"
touch --date "@${SOURCE_DATE_EPOCH:-0}" "$lists/installed-files.ini"

size=$(find "$folder" -type f -printf '%s\n' | awk '{ sum += $1 } END { print int((sum + 1023) / 1024) }')
rm -f "$installer"
makensis -V2 -WX -NOCD "-DVERSION=$version" "-DOUTPUT=$installer" "-DICON=$resources/Kinetarium.ico" \
    "-DPICTURE=$resources/backdrop.bmp" "-DLISTS=$lists" "-DFILES=$(($(files | wc -l) + 1))" "-DSIZE=$size" \
    Kinetarium.nsi
