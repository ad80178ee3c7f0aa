#!/usr/bin/env bash
# Reads the code of both builds for likely mistakes. See --help.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
    cat <<'TEXT'
usage: scripts/lint.sh [--tree FOLDER] [--changed] [FILE...]

Installs clang-tidy and cppcheck if they are missing (Debian 12, as root) and reads every source with both: those of the
native build as it compiles them, and those of Windows as MinGW does. A finding that is none carries its reason in the
code; what is off as a whole has it in .clang-tidy and in scripts/cppcheck-suppressions.txt. The last line counts
sources, findings and seconds; the exit code is 0 only if nothing was found. All sources take clang-tidy about
an hour of one processor.

  FILE...        only these sources, in their builds
  --changed      only sources that differ from the last commit
  --tree FOLDER  for the two descriptions of the build and the logs, build/lint if nothing else is said
TEXT
}

tree=build/lint
wanted=()
while [ $# -gt 0 ]; do
    case "$1" in
    --tree) tree=${2:?} && shift ;;
    --changed) mapfile -t -O "${#wanted[@]}" wanted < <(git diff --name-only HEAD -- '*.cpp') ;;
    --help | -h) usage && exit 0 ;;
    -*) usage >&2 && exit 2 ;;
    *) wanted+=("$1") ;;
    esac
    shift
done

started=$SECONDS
scripts/install-packages.sh packages.txt packages-checks.txt
scripts/fetch-dependencies.sh
mkdir -p "$tree"

# How each build compiles its sources, but without precompiled headers: only GCC can read its own.
cmake --preset native-release -B "$tree/native" -D CMAKE_C_COMPILER=clang -D CMAKE_CXX_COMPILER=clang++ \
    -D CMAKE_DISABLE_PRECOMPILE_HEADERS=ON --log-level=WARNING >"$tree/native.log" 2>&1 ||
    { cat "$tree/native.log" >&2 && exit 1; }
cmake --preset windows-release -B "$tree/windows" -D CMAKE_DISABLE_PRECOMPILE_HEADERS=ON --log-level=WARNING \
    >"$tree/windows.log" 2>&1 ||
    { cat "$tree/windows.log" >&2 && exit 1; }

sources_of() {
    sed -n "s|^ *\"file\": \"$PWD/\(.*\.cpp\)\".*|\1|p" "$tree/$1/compile_commands.json" | grep -v '^build/' | sort -u
}
sources_of native >"$tree/native.txt"
# Of the Windows build what the native one has not seen, and what is written differently for it.
{
    sources_of windows | comm -23 - "$tree/native.txt"
    xargs grep -l '_WIN32' <"$tree/native.txt" | sort | comm -12 - <(sources_of windows)
} | sort -u >"$tree/windows.txt"

if [ ${#wanted[@]} -gt 0 ]; then
    for list in native windows; do
        printf '%s\n' "${wanted[@]}" | sort -u | comm -12 - "$tree/$list.txt" >"$tree/$list.wanted"
        mv "$tree/$list.wanted" "$tree/$list.txt"
    done
fi
count=$(($(wc -l <"$tree/native.txt") + $(wc -l <"$tree/windows.txt")))

# What only GCC understands, and what clang warns of and GCC does not, is GCC's business: it compiles the program.
# For Windows it must be told where MinGW's headers are, but for GCC's own, which it has too.
mapfile -t mingw_headers < <(x86_64-w64-mingw32-g++-posix -E -x c++ - -v </dev/null 2>&1 |
    sed -n '/^#include </,/^End/{ s/^ //p }' | grep -v '/gcc/x86_64-w64-mingw32/[^/]*/include\(-fixed\)\?$' |
    xargs realpath | sed 's/^/--extra-arg=-isystem/')
tidy=(clang-tidy-14 --quiet --extra-arg=-Wno-unknown-warning-option --extra-arg=-Wno-unused-command-line-argument)
echo "Lint: clang-tidy, $count sources"
{
    xargs -r -P "$(nproc)" -n 1 "${tidy[@]}" -p "$tree/native" <"$tree/native.txt" 2>/dev/null || true
    xargs -r -P "$(nproc)" -n 1 "${tidy[@]}" --extra-arg=--target=x86_64-w64-windows-gnu "${mingw_headers[@]}" \
        -p "$tree/windows" <"$tree/windows.txt" 2>/dev/null || true
} >"$tree/clang-tidy.log"
# A header's finding is reported with every source that includes it. The headers of libraries are not ours to mend.
grep -aE "^$PWD/.*(warning|error): " "$tree/clang-tidy.log" | grep -av "^$PWD/build/" | sort -u >"$tree/clang-tidy.findings" || true

echo "Lint: cppcheck"
cppcheck --quiet -j "$(nproc)" --std=c++20 --language=c++ --enable=warning,style,performance,portability \
    --inline-suppr --suppressions-list=scripts/cppcheck-suppressions.txt --library=googletest --template=gcc \
    -I. $(cat "$tree/native.txt") 2>"$tree/cppcheck-native.log" || true
if [ -s "$tree/windows.txt" ]; then
    cppcheck --quiet -j "$(nproc)" --std=c++20 --language=c++ --enable=warning,style,performance,portability \
        --platform=win64 --library=windows --library=googletest -D_WIN32 -DUNICODE -D_UNICODE --inline-suppr \
        --suppressions-list=scripts/cppcheck-suppressions.txt --template=gcc -I. $(cat "$tree/windows.txt") \
        2>"$tree/cppcheck-windows.log" || true
else
    : >"$tree/cppcheck-windows.log"
fi
grep -hE '(error|warning|style|performance|portability): ' "$tree"/cppcheck-*.log | sort -u >"$tree/cppcheck.findings" || true

cat "$tree/clang-tidy.findings" "$tree/cppcheck.findings"
tidy_count=$(wc -l <"$tree/clang-tidy.findings")
cppcheck_count=$(wc -l <"$tree/cppcheck.findings")
echo "Lint: $count sources, clang-tidy $tidy_count findings, cppcheck $cppcheck_count findings, $((SECONDS - started)) s"
[ $((tidy_count + cppcheck_count)) -eq 0 ]
