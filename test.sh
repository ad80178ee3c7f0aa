#!/usr/bin/env bash
# Builds and tests everything. See --help.
set -euo pipefail
cd "$(dirname "$0")"

usage() {
    cat <<'TEXT'
usage: ./test.sh [--asan | --tsan] [--help]

Installs missing packages (Debian 12, as root), fetches {fmt} 11, checks the layout of the source, builds the native and
the Windows half and runs every test of both, the Windows tests under Wine on displays of their own. The fuzzers replay
their corpora. The last lines are CTest's summary; the exit code is 0 only if everything passed. A second call builds only
what has changed.

  --asan   instead: the native half with the address and undefined-behaviour sanitizers, also the fuzzers' corpora
  --tsan   instead: the native half with the thread sanitizer
  --help   this text
TEXT
}

sanitized=
for argument in "$@"; do
    case "$argument" in
    --asan) sanitized=native-asan ;;
    --tsan) sanitized=native-tsan ;;
    --help | -h) usage && exit 0 ;;
    *) usage >&2 && exit 2 ;;
    esac
done

step() {
    printf '\n== %s\n' "$*"
}

step "Packages"
scripts/install-packages.sh
step "Libraries that Debian 12 does not have"
scripts/fetch-dependencies.sh
step "Layout of the source"
scripts/check-format.sh

# One test more than processors: the tests on the desktops mostly wait.
tests=(ctest --output-on-failure --no-tests=error --parallel "$(($(nproc) + 1))")

if [ -n "$sanitized" ]; then
    step "Native build with sanitizers"
    scripts/build.sh "$sanitized"
    step "Tests"
    exec "${tests[@]}" --test-dir "build/$sanitized"
fi

step "Native build"
scripts/build.sh native-release
step "Windows build"
scripts/build.sh windows-release

step "Tests, native and Windows"
# One CTest over both trees, so that one summary counts everything.
mkdir -p build/all
printf 'subdirs("%s" "%s")\n' "$PWD/build/native-release" "$PWD/build/windows-release" >build/all/CTestTestfile.cmake
# The tests that open windows run on two desktops side by side.
exec scripts/wine-session.sh --second --prefix build/windows-release/wine-second -- \
    scripts/wine-session.sh -- "${tests[@]}" --test-dir build/all
