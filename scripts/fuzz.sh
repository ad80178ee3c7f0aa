#!/usr/bin/env bash
# Searches for inputs that break a rule or a reader. See --help.
set -euo pipefail
cd "$(dirname "$0")/.."

# Each fuzzer with the folder of its corpus.
declare -A fuzzers=(
    [checkpoint]=FuzzCheckpoint
    [colours]=FuzzColourRules
    [factors]=FuzzFactorRules
    [layout]=FuzzLayout
    [monitors]=FuzzMonitorFitting
    [numbers]=FuzzNumbers
    [pairs]=FuzzCellPairs
    [placement]=FuzzWorldPlacement
    [settings]=FuzzSettings
    [state]=FuzzState
)
all=$(printf '%s\n' "${!fuzzers[@]}" | sort | paste -sd ' ')

usage() {
    cat <<TEXT
usage: scripts/fuzz.sh [--seconds N] [--tree FOLDER] [TARGET...]

Installs clang if it is missing (Debian 12, as root), builds the fuzzers with libFuzzer and the address and
undefined-behaviour sanitizers, and runs each target for N seconds (60), as many at a time as there are processors.
libFuzzer mutates the corpus in tests/fuzz/corpus and the inputs that earlier searches have kept below the build tree;
nothing in the repository changes. The last line counts; the exit code is 0 only if there is no finding. For each finding
the script prints the file of its input; the fuzzer with this file as its only argument repeats the finding.

  targets        $all
  --tree FOLDER  the build tree (build/native-fuzz)
TEXT
}

seconds=60
tree=build/native-fuzz
targets=()
while [ $# -gt 0 ]; do
    case "$1" in
    --seconds) seconds=${2:?} && shift ;;
    --tree) tree=${2:?} && shift ;;
    --help | -h) usage && exit 0 ;;
    *) [ -n "${fuzzers[$1]:-}" ] || { usage >&2 && exit 2; } && targets+=("$1") ;;
    esac
    shift
done
[ ${#targets[@]} -gt 0 ] || read -ra targets <<<"$all"

scripts/install-packages.sh packages.txt clang libclang-rt-dev llvm
scripts/fetch-dependencies.sh
scripts/drop-moved-tree.sh "$tree"
if [ ! -f "$tree/build.ninja" ]; then
    cmake --preset native-fuzz -B "$tree" --log-level=WARNING >/dev/null
fi
echo "Fuzz: building"
cmake --build "$tree" --target fuzzers >"$tree/build.log" || { cat "$tree/build.log" >&2 && exit 1; }

work="$PWD/$tree/fuzz"
rm -rf "$work/findings"
mkdir -p "$work/findings"

# Runs one target, with all output in its log. The limit of the input's length keeps it fast: smaller inputs reach the
# same code.
run() {
    local target=$1 program=$2
    mkdir -p "$work/kept/$target"
    "$tree/tests-bin/$program" -max_total_time="$seconds" -max_len=4000 -timeout=10 -print_final_stats=1 \
        -dict=tests/fuzz/words.dict -artifact_prefix="$work/findings/$target-" \
        "$work/kept/$target" "tests/fuzz/corpus/$target" >"$work/$target.log" 2>&1 || touch "$work/findings/$target.failed"
    echo "Fuzz: $target, $(executions "$target") executions"
}

executions() {
    sed -n 's/^stat::number_of_executed_units: *//p' "$work/$1.log" | tail -n 1 | grep . || echo 0
}

echo "Fuzz: running ${#targets[@]} targets, $seconds s each"
for target in "${targets[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$(nproc)" ]; do
        wait -n
    done
    run "$target" "${fuzzers[$target]}" &
done
wait

total=0
findings=0
for target in "${targets[@]}"; do
    total=$((total + $(executions "$target")))
    [ -e "$work/findings/$target.failed" ] || continue
    findings=$((findings + 1))
    grep -hE '^finding:|runtime error|^SUMMARY|^==[0-9]+== *ERROR|Test unit written' "$work/$target.log" || tail -n 20 "$work/$target.log"
done >&2
echo "Fuzz: ${#targets[@]} targets, $total executions, $findings findings$([ $findings -eq 0 ] || echo ", in $work/findings")"
[ "$findings" -eq 0 ]
