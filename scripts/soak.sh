#!/usr/bin/env bash
# Runs long tests of the finished program from another process, through its real window on a virtual display, and compares
# its resources before and after: threads, kernel handles, GDI objects, windows, heap blocks and their bytes.
#
#   soak.sh [--short] [--seed N] [--only NAME] [--tree FOLDER] [--prefix FOLDER]
#
# The long form takes about half an hour: twice 2,100 rounds of start and stop, the second time of a world with helpers, 540
# clicks in the world, 300 full-screen toggles, 60 s of random input, 10 minutes with 100,000 atoms. test.sh runs the short
# one.
#
#   --short          the form of test.sh
#   --seed N         the seed of the random choices; by default a random one, which is printed
#   --only NAME      only the soaks with NAME in their name, for example Clicks
#   --tree FOLDER    use this build tree instead of building the preset windows-release
#   --prefix FOLDER  the Wine prefix (that of wine-session.sh)
set -euo pipefail
cd "$(dirname "$0")/.."

form=long
only=
tree=
session=()
while [ $# -gt 0 ]; do
    case "$1" in
    --short) form=short && shift ;;
    --seed) export KINETARIUM_SOAK_SEED=${2:?--seed needs a number} && shift 2 ;;
    --only) only=${2:?--only needs a name} && shift 2 ;;
    --tree) tree=${2:?--tree needs a folder} && shift 2 ;;
    --prefix) session=(--prefix "${2:?--prefix needs a folder}") && shift 2 ;;
    *) echo "soak: unknown argument $1" >&2 && exit 2 ;;
    esac
done
if [ -z "$tree" ]; then
    scripts/install-packages.sh
    scripts/fetch-dependencies.sh
    scripts/build.sh windows-release -- Kinetarium EndToEndTests
    tree=build/windows-release
fi

# One process per soak, so that its lines appear when it ends and each has a time limit of its own.
limit=1800
soaks=(RoundsOfStartAndStop RoundsOfALargeWorld ClicksInTheWorld FullScreenToggles AStormOfRandomInput
    ALongRunOfAHundredThousandAtoms)
log=$(mktemp)
trap 'rm -f "$log"' EXIT
run=0
failed=0
start=$SECONDS
for soak in "${soaks[@]}"; do
    case "$soak" in *"$only"*) ;; *) continue ;; esac
    run=$((run + 1))
    code=0
    KINETARIUM_SOAK=$form scripts/wine-session.sh "${session[@]}" timeout --foreground --kill-after=10 "$limit" \
        scripts/wine-emulator.sh "$tree/tests-bin/EndToEndTests.exe" --gtest_filter="Soak.$soak*" >"$log" 2>&1 || code=$?
    grep -v -e '^\[[-=]*\]' -e '^Note:' -e '^Running main' -e '^[[:space:]]*$' -e '^\[  PASSED' "$log" || true
    # A filter without a matching test must not count as passed.
    if [ "$code" -ne 0 ] || ! grep -q '^\[  PASSED  \] 1 test' "$log"; then
        failed=$((failed + 1))
    fi
done
[ "$run" -gt 0 ] || { echo "soak: no soak is named $only" >&2 && exit 2; }
echo "Soak ($form): $run run in $(((SECONDS - start + 59) / 60)) min, $failed failed"
[ "$failed" -eq 0 ]
