#!/usr/bin/env bash
# Configures and builds presets: build.sh PRESET... [-- TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."

presets=()
while [ $# -gt 0 ] && [ "$1" != -- ]; do
    presets+=("$1")
    shift
done
[ $# -eq 0 ] || shift
targets=()
[ $# -eq 0 ] || targets=(--target "$@")

for preset in "${presets[@]}"; do
    tree="build/$preset"
    scripts/drop-moved-tree.sh "$tree"
    # Only the first time: afterwards the build itself configures again when a CMakeLists.txt has changed.
    if [ ! -f "$tree/build.ninja" ]; then
        echo "Build: configuring $preset"
        cmake --preset "$preset" --log-level=WARNING >"$tree.log" 2>&1 || { cat "$tree.log" >&2; exit 1; }
    fi
    echo "Build: building $preset"
    cmake --build "$tree" "${targets[@]}"
done
