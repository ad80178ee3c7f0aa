#!/usr/bin/env bash
# Takes the pictures of README.md and of the user guide. See --help.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
    cat <<'TEXT'
usage: scripts/make-pictures.sh [--output FOLDER] [--this-session] [--tree FOLDER]

Builds Kinetarium, uses it on a virtual display as the guide describes, and replaces the PNG files in docs/images by what
the screen shows then. It does so under the Wine of a later Debian, which shows the world that Direct2D draws; see
scripts/later-wine.sh, which makes that system the first time.

  --output FOLDER  another folder than docs/images, inside of this checkout
  --this-session   instead: under the Wine and on the display of the session that has started this script, without
                   building; so does a test
  --tree FOLDER    with --this-session: the build tree (build/windows-release)
TEXT
}

output=docs/images
tree=build/windows-release
this_session=no
while [ $# -gt 0 ]; do
    case "$1" in
    --output) output=${2:?--output needs a folder} && shift 2 ;;
    --this-session) this_session=yes && shift ;;
    --tree) tree=${2:?--tree needs a folder} && shift 2 ;;
    --help | -h) usage && exit 0 ;;
    *) usage >&2 && exit 2 ;;
    esac
done

if [ "$this_session" = no ]; then
    exec scripts/later-wine.sh scripts/wine-session.sh scripts/make-pictures.sh --this-session --output "$output"
fi

# Windows smooths the edges of what Direct2D draws. Wine does so only if it takes several samples of each pixel.
export WINE_D3D_CONFIG="csmt=0x0,SampleCount=4"
mkdir -p "$output"
# If it fails in the middle, the folder keeps pictures of one and the same program. A Windows program takes an argument
# that begins with a slash for an option.
tree=$(realpath --relative-to=. "$tree")
folder=$(mktemp -d "$tree/pictures.XXXXXX")
trap 'rm -rf "$folder"' EXIT
timeout --foreground --kill-after=10 300 \
    scripts/wine-emulator.sh "$tree/bin/kinetarium-pictures.exe" "$tree/bin/Kinetarium.exe" "$folder"
rm -f "$output"/*.png
for picture in "$folder"/*.png; do
    install -m 644 "$picture" "$output/"
done
(cd "$output" && ls -l -- *.png)
