#!/usr/bin/env bash
# Makes faults in a copy of the program and looks whether the tests notice. See --help.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
    cat <<'TEXT'
usage: scripts/mutate.sh [--only ID]... [--room FOLDER]... [--world native|windows] [--list | --check]

Makes the faults of scripts/mutations.txt, one at a time, in copies of this tree below build/mutants. For each it builds
the suite that must notice, runs the tests that the list names, and takes the fault away again. First these tests must
pass without any fault. Native and Windows suites run side by side. A line for each fault says

  killed      a test has failed (or the compiler has refused the fault, where the list wants that)
  timed out   a test did not end, which counts as killed
  survived    every test has passed
  equivalent  not tried: the list tells why no test can notice
  error       the list is wrong: the text is not there exactly once, the fault does not compile, or no test has run

The last line counts. The exit code is 0 only if the list has no error and at least 95 % of the faults that are not
equivalent are killed.

  --only ID       only this fault
  --room FOLDER   only faults in this folder and below, such as classes/windows
  --world WORLD   only faults that native, or Windows, suites must notice
  --list          prints the faults with their files and suites
  --check         only looks whether each text occurs exactly once (a test does so)
TEXT
}

least=95
patience=120 # seconds for the tests of one fault
root=$PWD/build/mutants
arguments=("$@")
. scripts/mutation-list.sh
only=()
rooms=()
worlds=()
action=run
lane=
results=
while [ $# -gt 0 ]; do
    case "$1" in
    --only) only+=("${2:?}") && shift ;;
    --room) rooms+=("${2:?}") && shift ;;
    --world) worlds+=("${2:?}") && shift ;;
    --list) action=list ;;
    --check) action=check ;;
    --lane) action=lane && lane=${2:?} && results=${3:?} && shift 2 ;; # for the script itself
    --help | -h) usage && exit 0 ;;
    *) usage >&2 && exit 2 ;;
    esac
    shift
done

# --- One lane: the faults of one world, in a copy of the tree ---------------------------------------------------------

# Files that are equal keep their time, so that only what has changed is built anew.
copy_tree() {
    local tree=$1 path
    mkdir -p "$tree/build"
    git ls-files -co --exclude-standard -z | while IFS= read -r -d '' path; do
        if [ -f "$path" ] && ! cmp -s "$path" "$tree/$path"; then
            mkdir -p "$tree/$(dirname "$path")"
            cp "$path" "$tree/$path"
        fi
    done
    [ -e "$tree/build/deps" ] || ln -s "$PWD/build/deps" "$tree/build/deps"
}

build() {
    # The two lanes share the processors.
    cmake --build "$build" --parallel $((($(nproc) + 1) / 2)) --target "$@" >"$build/build.log" 2>&1
}

# Runs tests of a suite; their output is in $build/tests.log.
run_tests() {
    local program=(timeout --kill-after=5 "$patience")
    if [ "$lane" = windows ]; then
        program+=(scripts/wine-emulator.sh "$build/tests-bin/$1.exe")
        [ "$1" != WindowsTests ] || program=(env KINETARIUM_SHOWN_WORLD=1 "${program[@]}")
    else
        program+=("$build/tests-bin/$1")
    fi
    "${program[@]}" --gtest_brief=1 --gtest_filter="$2" </dev/null >"$build/tests.log" 2>&1
}

# Prints what became of a fault, and notes it for the count.
tell() {
    printf '%-11s %-34s %s\n' "$1" "$2" "$3"
    printf '%s\n' "$1" >>"$results"
}

# The tests must pass without a fault, or their failing would prove nothing.
check_without_faults() {
    local id wanted suites=() failed=no
    declare -A done=()
    for id in "${ids[@]}"; do
        is_wanted "${suite[$id]}" "${suites[@]}" && [ ${#suites[@]} -gt 0 ] || suites+=("${suite[$id]}")
    done
    build "${suites[@]}" || { cat "$build/build.log" >&2 && return 1; }
    for id in "${ids[@]}"; do
        wanted="${suite[$id]} ${filter[$id]-}"
        [ -n "${filter[$id]-}" ] && [ -z "${done[$wanted]-}" ] || continue
        done[$wanted]=yes
        run_tests "${suite[$id]}" "${filter[$id]}" || run_tests "${suite[$id]}" "${filter[$id]}" ||
            { echo "Mutations: $wanted fails without a fault" >&2 && cat "$build/tests.log" >&2 && failed=yes; }
        ! grep -q '\] 0 tests from' "$build/tests.log" || { echo "Mutations: there is no test $wanted" >&2 && failed=yes; }
    done
    [ "$failed" = no ]
}

try_fault() {
    local id=$1 contents code=0
    read_file "${file[$id]}"
    printf '%s' "${contents/"${old[$id]}"/"${new[$id]}"}" >"${file[$id]}"
    if ! build "${suite[$id]}"; then
        if [ -n "${compiler[$id]-}" ] && grep -q 'static assertion failed' "$build/build.log"; then
            tell killed "$id" "the compiler"
        else
            tell error "$id" "it does not compile:" && grep -m 3 'error:' "$build/build.log" || true
        fi
    elif [ -n "${compiler[$id]-}" ]; then
        tell survived "$id" "the compiler"
    else
        run_tests "${suite[$id]}" "${filter[$id]}" || code=$?
        if [ "$code" -eq 0 ]; then
            tell survived "$id" "${suite[$id]} ${filter[$id]}"
        elif [ "$code" -eq 124 ] || [ "$code" -eq 137 ]; then
            tell "timed out" "$id" "${suite[$id]} ${filter[$id]}"
        elif ! grep -q 'gtest' "$build/tests.log"; then
            tell error "$id" "${suite[$id]} did not run"
        else
            tell killed "$id" "$(sed -n 's/^\[  FAILED  \] \([^ ]*\.[^ ,]*\).*/\1/p' "$build/tests.log" | head -n 1)"
        fi
    fi
    printf '%s' "$contents" >"${file[$id]}"
}

run_lane() {
    local id
    build=build/$lane-release
    scripts/drop-moved-tree.sh "$build"
    [ -f "$build/build.ninja" ] || cmake --preset "$lane-release" --log-level=WARNING >/dev/null
    check_without_faults
    for id in "${ids[@]}"; do
        try_fault "$id"
    done
}

start_lane() {
    local session=()
    copy_tree "$root/$1"
    [ "$1" != windows ] || session=("$root/$1/scripts/wine-session.sh" --)
    exec "${session[@]}" "$root/$1/scripts/mutate.sh" "${arguments[@]}" --lane "$1" "$root/$1.results"
}

# --- All --------------------------------------------------------------------------------------------------------------

count() {
    cat "$root"/*.results 2>/dev/null | grep -cx "$1" || true
}

lane_pids=()

run_all() {
    local id wanted failed=no killed slow survived equivalent errors
    scripts/fetch-dependencies.sh
    mkdir -p "$root"
    rm -f "$root"/*.results
    for wanted in native windows; do
        for id in "${ids[@]}"; do
            [ -z "${reason[$id]-}" ] && [ "${world[$id]}" = "$wanted" ] || continue
            start_lane "$wanted" &
            lane_pids+=($!)
            break
        done
    done
    trap 'kill "${lane_pids[@]}" 2>/dev/null || true' EXIT
    results=$root/equivalent.results
    for id in "${ids[@]}"; do
        [ -z "${reason[$id]-}" ] || tell equivalent "$id" "${reason[$id]}"
    done
    for wanted in "${lane_pids[@]}"; do
        wait "$wanted" || failed=yes
    done
    trap - EXIT
    killed=$(count killed) slow=$(count 'timed out') survived=$(count survived)
    equivalent=$(count equivalent) errors=$(count error)
    local tried=$((killed + slow + survived))
    echo "Mutations: ${#ids[@]} faults, $killed killed, $slow timed out, $survived survived, $equivalent equivalent," \
        "$errors errors: $((tried == 0 ? 100 : 100 * (killed + slow) / tried)) % killed"
    [ "$failed" = no ] && [ "$errors" -eq 0 ] && [ $((100 * (killed + slow))) -ge $((least * tried)) ]
}

read_list
choose
case "$action" in
list)
    for id in "${ids[@]}"; do
        printf '%-34s %-48s %s\n' "$id" "${file[$id]}" "${reason[$id]:+equivalent}${suite[$id]-}"
    done
    ;;
lane)
    chosen=("${ids[@]}")
    ids=()
    for id in "${chosen[@]}"; do
        [ -n "${reason[$id]-}" ] || [ "${world[$id]}" != "$lane" ] || ids+=("$id")
    done
    run_lane
    ;;
*)
    for id in "${ids[@]}"; do
        check_fault "$id"
    done
    if [ "$list_errors" -gt 0 ]; then
        echo "Mutations: $list_errors errors in $list" >&2 && exit 1
    fi
    if [ "$action" = run ]; then
        run_all
    else
        echo "Mutations: each text of ${#ids[@]} faults occurs once"
    fi
    ;;
esac
