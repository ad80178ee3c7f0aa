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
    # The build describes itself anew when a description changed; only the first time it must be asked to.
    if [ ! -f "$tree/build.ninja" ]; then
        echo "Build: configuring $preset"
        cmake --preset "$preset" --log-level=WARNING >"$tree.log" 2>&1 || { cat "$tree.log" >&2; exit 1; }
    fi
    echo "Build: building $preset"
    cmake --build "$tree" "${targets[@]}"
done
