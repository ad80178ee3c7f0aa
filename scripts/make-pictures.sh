#!/usr/bin/env bash
# Builds Kinetarium and takes new pictures for docs/user-guide.md, from the running program on a virtual display. The world
# in fixed mode is drawn by kinetarium-headless, because Wine 8 cannot show it; it comes out the same every time.
#
#   make-pictures.sh [--headless] [--tree FOLDER] [--prefix FOLDER]
#
#   --headless       only the picture that kinetarium-headless draws
#   --tree FOLDER    use this build tree instead of building the preset windows-release
#   --prefix FOLDER  the Wine prefix (that of wine-session.sh)
#
# If ImageMagick's "convert" is installed, the files become half as large.
set -euo pipefail
cd "$(dirname "$0")/.."

folder=docs/images
tree=
only_headless=no
session=()
while [ $# -gt 0 ]; do
    case "$1" in
    --headless) only_headless=yes && shift ;;
    --tree) tree=${2:?--tree needs a folder} && shift 2 ;;
    --prefix) session=(--prefix "${2:?--prefix needs a folder}") && shift 2 ;;
    *) echo "make-pictures: unknown argument $1" >&2 && exit 2 ;;
    esac
done
mkdir -p "$folder"
scripts/build.sh native-release -- kinetarium-headless
build/native-release/bin/kinetarium-headless --quiet --seed 42 --width 640 --height 240 --atoms 600 --iterations 300 \
    --colour-mode fixed --factors '25%,50%,' --colours ff0000,808080,00ff00 --picture "$folder/fixed.png" >/dev/null
if [ "$only_headless" = yes ]; then
    ls -l "$folder/fixed.png"
    exit 0
fi

if [ -z "$tree" ]; then
    scripts/build.sh windows-release -- Kinetarium kinetarium-pictures
    tree=build/windows-release
fi

export KINETARIUM_SHOWN_WORLD=1
scripts/wine-session.sh "${session[@]}" timeout --foreground --kill-after=10 300 \
    scripts/wine-emulator.sh "$tree/bin/kinetarium-pictures.exe" "$tree/bin/Kinetarium.exe" "$folder"

colours=128 # enough for the backdrop's shades, the controls and the atoms
if command -v convert >/dev/null; then
    for name in panel-speed panel-fixed message lowered run; do
        convert "$folder/$name.png" -dither None -colors "$colours" -strip "PNG8:$folder/$name.small"
        mv "$folder/$name.small" "$folder/$name.png"
    done
fi
ls -l "$folder"
