#!/usr/bin/env bash
# Tests scripts/wine-prefix.sh with a fake Wine. Exit code 0 if every check has passed.
set -u
cd "$(dirname "$0")/../.." || exit 1

folder=$(mktemp -d) || exit 1
trap 'rm -rf "$folder"' EXIT
prefix="$folder/prefix"
failed=0

# This wine makes a drive C with a file that names its version.
cat >"$folder/wine" <<'WINE'
#!/usr/bin/env bash
version=$(cat "$(dirname "$0")/version")
case "$1" in
--version) echo "$version" ;;
wineboot) mkdir -p "$WINEPREFIX/drive_c" && touch "$WINEPREFIX/drive_c/of-$version" ;;
esac
WINE
printf '#!/bin/sh\n' >"$folder/wineserver"
chmod +x "$folder/wine" "$folder/wineserver"
export PATH="$folder:$PATH"

# make VERSION SIZE
make() {
    echo "$1" >"$folder/version"
    scripts/wine-prefix.sh "$prefix" "$2" >"$folder/output" 2>&1 || fail "wine-prefix.sh: $(cat "$folder/output")"
}

fail() {
    echo "FAILED: $*"
    failed=$((failed + 1))
}

has_direct2d() {
    ! grep -q '"d2d1"=""' "$prefix/kinetarium.reg"
}

make wine-8.0 800x600
has_direct2d && fail "Wine 8 does not show Direct2D, but the program keeps it"
touch "$prefix/note-of-the-user" "$prefix/drive_c/later"

make wine-8.0 800x600
[ -s "$folder/output" ] && fail "a prefix that is ready is made again"

make wine-8.0 640x480
[ -f "$prefix/drive_c/later" ] || fail "another size makes the prefix anew"

make wine-10.0 640x480
has_direct2d || fail "Wine 10 shows Direct2D, but the program does without it"
[ -e "$prefix/drive_c/later" ] && fail "the prefix of another Wine is not made anew"
[ -e "$prefix/drive_c/of-wine-8.0" ] && fail "files of the former Wine are left"
[ -f "$prefix/note-of-the-user" ] || fail "a file that is not Wine's was deleted"

make wine-9.0 640x480
has_direct2d && fail "Wine 9 was not tried, but the program keeps Direct2D"

echo "prefix-test: $failed failed"
[ "$failed" -eq 0 ]
