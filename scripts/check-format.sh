#!/usr/bin/env bash
# Fails if a C++ file differs from the layout of .clang-format; with --fix it changes the files instead. Versions of
# clang-format differ in details: 14 decides.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(--dry-run -Werror)
case "${1:-}" in
"") ;;
--fix) mode=(-i) ;;
*) echo "usage: check-format.sh [--fix]" >&2 && exit 2 ;;
esac

formatter=$(command -v clang-format-14 || command -v clang-format)
case "$("$formatter" --version)" in
*"version 14."*) ;;
*) echo "error: clang-format 14 is needed; found: $("$formatter" --version)" >&2 && exit 1 ;;
esac

# Without a repository (an unpacked archive), check every file.
list_files() {
    git -c safe.directory='*' ls-files -z -- '*.cpp' '*.h' 2>/dev/null ||
        find . \( -path ./build -o -path ./out \) -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0
}

list_files | xargs -0 "$formatter" "${mode[@]}"
echo "Format: as .clang-format says"
