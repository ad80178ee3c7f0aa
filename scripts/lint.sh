#!/usr/bin/env bash
# Reads the code of both builds for likely mistakes. See --help.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
    cat <<'TEXT'
usage: scripts/lint.sh [--tree FOLDER] [--changed] [FILE...]

Runs clang-tidy and cppcheck over every source, with the compiler options of its build (native or Windows), and installs
them if they are missing (Debian 12, as root). A false finding is switched off in the code, with its reason; a check that
is off everywhere has its reason in .clang-tidy or scripts/cppcheck-suppressions.txt. The last line counts sources,
findings and seconds; the exit code is 0 only if nothing was found. All sources take about an hour of one processor.

  FILE...        only these sources; for a header, every source that includes it, also through other headers
  --changed      the same for the files that differ from the last commit or are untracked
  --tree FOLDER  for the two compile databases and the logs (build/lint)
TEXT
}

tree=build/lint
restricted=no
wanted=()

list_changed() {
    git diff --name-only --diff-filter=d HEAD -- '*.cpp' '*.h'
    git ls-files --others --exclude-standard -- '*.cpp' '*.h'
}

# Reads names of files; prints the sources among them, and those that include one of the headers, directly or not. All
# includes of our own files name the path from the top folder.
find_sources() {
    awk '
        NR == FNR { wanted[$0] = 1; next }
        { split($0, parts, /:#include "|"/); includer[++count] = parts[1]; included[count] = parts[2] }
        END {
            do {
                grown = 0
                for (i = 1; i <= count; ++i)
                    if ((included[i] in wanted) && !(includer[i] in wanted)) { wanted[includer[i]] = 1; grown = 1 }
            } while (grown)
            for (name in wanted) if (name ~ /\.cpp$/) print name
        }' - <(git ls-files --cached --others --exclude-standard -- '*.cpp' '*.h' |
        xargs -d '\n' grep -s '^#include "' /dev/null) | sort -u
}
while [ $# -gt 0 ]; do
    case "$1" in
    --tree) tree=${2:?} && shift ;;
    --changed) restricted=yes && mapfile -t -O "${#wanted[@]}" wanted < <(list_changed) ;;
    --help | -h) usage && exit 0 ;;
    -*) usage >&2 && exit 2 ;;
    *) restricted=yes && wanted+=("$1") ;;
    esac
    shift
done

if [ "$restricted" = yes ]; then
    [ ${#wanted[@]} -eq 0 ] || mapfile -t wanted < <(printf '%s\n' "${wanted[@]}" | find_sources)
    [ ${#wanted[@]} -gt 0 ] || { echo "Lint: no source has changed" && exit 0; }
fi

started=$SECONDS
scripts/install-packages.sh packages.txt clang clang-tidy cppcheck
scripts/fetch-dependencies.sh
for build in native windows; do
    scripts/drop-moved-tree.sh "$tree/$build"
done
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
# Of the Windows build: the sources that are not in the native build, and those with code for Windows alone.
{
    sources_of windows | comm -23 - "$tree/native.txt"
    xargs grep -l '_WIN32' <"$tree/native.txt" | sort | comm -12 - <(sources_of windows)
} | sort -u >"$tree/windows.txt"

if [ "$restricted" = yes ]; then
    for list in native windows; do
        printf '%s\n' "${wanted[@]}" | sort -u | comm -12 - "$tree/$list.txt" >"$tree/$list.wanted"
        mv "$tree/$list.wanted" "$tree/$list.txt"
    done
fi
count=$(($(wc -l <"$tree/native.txt") + $(wc -l <"$tree/windows.txt")))

# GCC compiles the program: clang's own warnings about options and GCC's warning names do not count. For Windows clang
# needs the paths of MinGW's headers, except GCC's built-in ones: it has its own.
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
# Every source that includes a header repeats its findings: count them once. Leave out the headers of libraries.
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
