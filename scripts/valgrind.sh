#!/usr/bin/env bash
# Runs the native tests under valgrind. See --help.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
    cat <<'TEXT'
usage: scripts/valgrind.sh [--tree FOLDER] [PROGRAM...]

Installs valgrind if it is missing (Debian 12, as root), builds the native tests and runs them under memcheck with a leak
check at the end. The exit code is 0 only if there is no finding and every test has passed; the last line counts.

  programs       ClassesCoreTests DiagnosticsTests StringsTests SimulationTests ViewTests AppTests HeadlessTests
  --tree FOLDER  the build tree (build/native-release)
TEXT
}

# Tests left out, by program: those that take minutes under valgrind (other tests run the same code with smaller scenes),
# and the comparison of a short wait with a long one, which is meaningless at this speed.
declare -A left_out=(
    [ClassesCoreTests]="Profile.TheTableBeginsWithTheLargestTotal"
    [SimulationTests]="*GoldenHash*:Differential*:*CellsOfEveryDensity*"
)

tree=build/native-release
programs=()
while [ $# -gt 0 ]; do
    case "$1" in
    --tree) tree=${2:?} && shift ;;
    --help | -h) usage && exit 0 ;;
    -*) usage >&2 && exit 2 ;;
    *) programs+=("$1") ;;
    esac
    shift
done
[ ${#programs[@]} -gt 0 ] ||
    programs=(ClassesCoreTests DiagnosticsTests StringsTests SimulationTests ViewTests AppTests HeadlessTests)

scripts/install-packages.sh packages.txt valgrind
scripts/fetch-dependencies.sh
scripts/drop-moved-tree.sh "$tree"
if [ ! -f "$tree/build.ninja" ]; then
    cmake --preset native-release -B "$tree" --log-level=WARNING >/dev/null
fi
echo "Valgrind: building"
cmake --build "$tree" --target "${programs[@]}" >"$tree/valgrind-build.log" ||
    { cat "$tree/valgrind-build.log" >&2 && exit 1; }
work="$tree/valgrind"
rm -rf "$work"
mkdir -p "$work"

# Valgrind knows no AVX-512 instruction.
export KINETARIUM_CPU=baseline
run() {
    local program=$1
    # fair-sched: a test with threads must not starve one of them.
    # nouserintercepts: valgrind does not replace the tests' own operator new, which fails on demand.
    valgrind --quiet --fair-sched=yes --leak-check=full --errors-for-leak-kinds=definite,possible \
        --error-exitcode=99 --soname-synonyms=somalloc=nouserintercepts \
        --suppressions=scripts/valgrind-suppressions.txt "$tree/tests-bin/$program" --gtest_brief=1 \
        --gtest_filter="*-${left_out[$program]:-}" >"$work/$program.log" 2>&1 || touch "$work/$program.failed"
    sed -n 's/^\[==========\] \(.* ran\.\).*/\1/p' "$work/$program.log" | sed "s/^/Valgrind: $program, /"
}

started=$SECONDS
for program in "${programs[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$(nproc)" ]; do
        wait -n
    done
    run "$program" &
done
wait

failed=0
for program in "${programs[@]}"; do
    [ -e "$work/$program.failed" ] || continue
    failed=$((failed + 1))
    echo "== $program" && cat "$work/$program.log"
done >&2
echo "Valgrind: ${#programs[@]} programs, $failed with findings, $((SECONDS - started)) s"
[ "$failed" -eq 0 ]
