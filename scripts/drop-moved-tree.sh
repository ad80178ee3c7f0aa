#!/usr/bin/env bash
# Deletes a build tree that was configured at another path: drop-moved-tree.sh TREE
#
# In a copied or moved checkout the build tree still names the old path everywhere, also in its Wine prefixes. CMake
# refuses such a tree. The next configuration makes it again.
set -euo pipefail

tree=${1:?usage: drop-moved-tree.sh TREE}
cache="$tree/CMakeCache.txt"
[ -f "$cache" ] || exit 0
configured=$(sed -n 's/^CMAKE_CACHEFILE_DIR:INTERNAL=//p' "$cache")
if ! [ "$configured" -ef "$tree" ]; then
    echo "Build: $tree was configured as $configured; starting again"
    rm -rf "$tree"
fi
