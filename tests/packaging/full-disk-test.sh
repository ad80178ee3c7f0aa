#!/usr/bin/env bash
# Updates an installed Kinetarium while no file can grow beyond a limit, as on a full disk: full-disk-test.sh PACKAGE
#
# PACKAGE is the folder of the installers. For each of some limits the update must fail and leave the earlier version as it
# was; without a limit it must succeed. Exit code 0 if every check has passed.
set -u
cd "$(dirname "$0")/../.." || exit 1
[ $# -eq 1 ] || { echo "usage: full-disk-test.sh PACKAGE" >&2; exit 2; }

folder=$(mktemp -d) || exit 1
place="$folder/place"
entry='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Kinetarium'
failed=0

wine_run() {
    scripts/wine-emulator.sh "$@"
}

clean() {
    [ ! -f "$place/Uninstall.exe" ] || wine_run "$place/Uninstall.exe" /S "_?=Z:${place//\//\\}" >/dev/null 2>&1
    rm -rf "$folder"
}
trap clean EXIT

# Wine reports an old Windows unless it is told to report another one to a program of this name.
for version in 1.9.0 new; do
    wine_run reg add "HKCU\\Software\\Wine\\AppDefaults\\full-disk-$version.exe" /v Version /d win10 /f >/dev/null || exit 1
done
cp "$1/Kinetarium-1.9.0-setup.exe" "$folder/full-disk-1.9.0.exe" || exit 1
for installer in "$1"/Kinetarium-*-setup.exe; do
    case "$installer" in
    *-1.9.0-setup.exe) ;;
    *) cp "$installer" "$folder/full-disk-new.exe" || exit 1 ;;
    esac
done

install() {
    wine_run "$folder/full-disk-$1.exe" /S "/D=Z:${place//\//\\}"
}

# All files with their content, and what the list of installed programs says.
state() {
    (cd "$place" && find . -type f -exec sha256sum {} + | sort)
    wine_run reg query "$entry"
}

check() {
    if [ "$2" != "$3" ]; then
        printf 'FAILED: %s\n--- is\n%s\n--- should be\n%s\n' "$1" "$2" "$3"
        failed=$((failed + 1))
    fi
}

install 1.9.0 || { echo "FAILED: the earlier version cannot be installed"; exit 1; }
before=$(state)
# In units of 1024 bytes: the first limit stops the unpacking of the small files, the last that of the largest program.
for limit in 64 512 1536; do
    output=$(trap '' XFSZ && ulimit -f "$limit" && install new 2>&1)
    check "the exit code at a limit of $limit KiB: $output" "$?" 2
    check "what is installed after a limit of $limit KiB" "$(state)" "$before"
done
install new
check "the exit code without a limit" "$?" 0
check "the files of an unfinished update" "$(find "$place" -name 'Kinetarium-update*')" ""
exit "$((failed > 0))"
