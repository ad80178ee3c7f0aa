#!/usr/bin/env bash
# Drives the program's own window through random sequences of steps (minimise, full screen, clicks, scroll bars, closing
# and many more) and compares it with a model after each step. A sequence that fails is shrunk to its shortest form and
# printed as a test, which can be pasted into tests/windows/sequences/ScriptedSequenceTests.cpp.
#
#   sequences.sh [--count N] [--seed N] [--tree FOLDER] [--prefix FOLDER]
#
#   --count N        the number of sequences (2000: an hour or two); test.sh runs 200
#   --seed N         the seed of the first one, the next one has the next seed; by default a random one
#   --tree FOLDER    use this build tree instead of building the preset windows-release
#   --prefix FOLDER  the Wine prefix (that of wine-session.sh)
set -euo pipefail
cd "$(dirname "$0")/.."

count=2000
seed=$((RANDOM * 32768 + RANDOM + 1))
tree=
session=()
while [ $# -gt 0 ]; do
    case "$1" in
    --count) count=${2:?--count needs a number} && shift 2 ;;
    --seed) seed=${2:?--seed needs a number} && shift 2 ;;
    --tree) tree=${2:?--tree needs a folder} && shift 2 ;;
    --prefix) session=(--prefix "${2:?--prefix needs a folder}") && shift 2 ;;
    *) echo "sequences: unknown argument $1" >&2 && exit 2 ;;
    esac
done
case "$count$seed" in *[!0-9]*) echo "sequences: a number is wanted" >&2 && exit 2 ;; esac
if [ -z "$tree" ]; then
    scripts/install-packages.sh
    scripts/fetch-dependencies.sh
    scripts/build.sh windows-release -- WindowSequencesTests
    tree=build/windows-release
fi

# A process for each hundred, so that its lines appear when it ends and each has a time limit of its own.
at_once=100
limit=3600
log=$(mktemp)
trap 'rm -f "$log"' EXIT
run=0
failed=0
start=$SECONDS
while [ "$run" -lt "$count" ]; do
    part=$((count - run < at_once ? count - run : at_once))
    code=0
    KINETARIUM_SHOWN_WORLD=1 KINETARIUM_SEQUENCES_SEED=$((seed + run)) KINETARIUM_SEQUENCES_COUNT=$part \
        scripts/wine-session.sh "${session[@]}" timeout --foreground --kill-after=10 "$limit" \
        scripts/wine-emulator.sh "$tree/tests-bin/WindowSequencesTests/WindowSequencesTests.exe" --gtest_filter='ManySequences.*' \
        >"$log" 2>&1 || code=$?
    grep -v -e '^\[' -e '^Note:' -e '^Running main' -e '^[[:space:]]*$' -e 'FAILED TEST' "$log" || true
    # A filter without a matching test must not count as passed.
    if [ "$code" -ne 0 ] || ! grep -q '^\[  PASSED  \] 1 test' "$log"; then
        failed=$((failed + 1))
    fi
    run=$((run + part))
done
echo "Sequences: seeds $seed to $((seed + run - 1)) run in $(((SECONDS - start + 59) / 60)) min, $failed failed"
[ "$failed" -eq 0 ]
