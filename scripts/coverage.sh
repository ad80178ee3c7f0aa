#!/usr/bin/env bash
# Measures the line coverage of the portable half. See --help.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
    cat <<'TEXT'
usage: scripts/coverage.sh [--html] [--tree FOLDER]

Installs gcovr if it is missing (Debian 12, as root), builds the portable half with counters and -O1, runs its tests, and
prints for each folder the number of lines and of covered lines. The last line is the total; the exit code is 0 only if it
is at least 95 %.

  --html         also writes coverage/index.html into the tree, line by line
  --tree FOLDER  the build tree (build/native-coverage)
TEXT
}

least=95
html=no
tree=build/native-coverage
while [ $# -gt 0 ]; do
    case "$1" in
    --html) html=yes ;;
    --tree) tree=${2:?} && shift ;;
    --help | -h) usage && exit 0 ;;
    *) usage >&2 && exit 2 ;;
    esac
    shift
done

scripts/install-packages.sh packages.txt gcovr
scripts/fetch-dependencies.sh
scripts/drop-moved-tree.sh "$tree"
if [ ! -f "$tree/build.ninja" ]; then
    cmake --preset native-coverage -B "$tree" --log-level=WARNING >/dev/null
fi
echo "Coverage: building"
cmake --build "$tree" >"$tree/build.log" || { cat "$tree/build.log" >&2 && exit 1; }
# Otherwise the counts of earlier runs add to these.
find "$tree" -name '*.gcda' -delete
echo "Coverage: testing"
ctest --test-dir "$tree" --output-on-failure --no-tests=error --parallel "$(nproc)" >"$tree/tests.log" ||
    { tail -n 60 "$tree/tests.log" >&2 && exit 1; }
tail -n 3 "$tree/tests.log"

# Branches that only an exception takes, and lines without machine code, do not count.
report=(gcovr --root . --object-directory "$tree" --exclude-throw-branches --exclude-unreachable-branches
    --filter 'app/' --filter 'classes/' --filter 'diagnostics/' --filter 'headless/' --filter 'settings/' --filter 'simulation/'
    --filter 'strings/' --filter 'view/' "$tree")
"${report[@]}" --csv "$tree/coverage.csv" --txt "$tree/coverage.txt"
if [ "$html" = yes ]; then
    mkdir -p "$tree/coverage"
    "${report[@]}" --html-details "$tree/coverage/index.html"
fi

# Columns of the table: file, lines, lines reached.
awk -F, -v least="$least" '
    NR == 1 { next }
    {
        folder = $1
        sub(/\/[^\/]*$/, "", folder)
        lines[folder] += $2
        reached[folder] += $3
        allLines += $2
        allReached += $3
    }
    END {
        printf "%-20s %8s %8s %8s\n", "folder", "lines", "reached", "percent"
        for (folder in lines)
            printf "%-20s %8d %8d %7.1f%%\n", folder, lines[folder], reached[folder], 100 * reached[folder] / lines[folder] | "sort"
        close("sort")
        percent = allLines > 0 ? 100 * allReached / allLines : 0
        printf "Coverage: %d of %d lines of the portable half, %.1f %%, at least %d %% are wanted\n", allReached, allLines, percent, least
        exit percent < least
    }' "$tree/coverage.csv"
