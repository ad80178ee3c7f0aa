#!/usr/bin/env bash
# Does the sweep of the page about sweeps, with its own commands: whole with one job and with two, interrupted and
# continued, over ssh and as an array of Slurm, the last two with stand-ins that start the commands here. Each must give
# the table of the page, byte for byte: sweeps-test.sh PROGRAM PAGE
set -u

program=$(realpath "$1")
page=$(realpath "$2")
sources=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d) || exit 1
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
mkdir home
export HOME=$folder/home # where GNU parallel keeps its files
failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

make_script() { # its text comes from standard input
    mkdir -p "$(dirname "$1")"
    { echo '#!/bin/sh' && cat; } >"$1"
    chmod +x "$1"
}

# Where the page looks for the program, a script that writes down each start of the program.
make_script build/native-release/bin/kinetarium-headless <<TEXT
echo "\$*" >>"$folder/starts"
exec "$program" "\$@"
TEXT
ln -s "$sources/examples" examples
# A host has an environment of its own.
make_script stand-ins/ssh <<TEXT
host=\$1
shift
[ "\$1" != -- ] || shift
echo "\$host" >>"$folder/hosts"
cd / && exec env -i HOME="$folder/home" SHELL=/bin/sh PATH=/usr/bin:/bin sh -c "\$*"
TEXT
make_script stand-ins/sbatch <<'TEXT'
for task in $(seq $(sed -n 's/^#SBATCH --array=\(.*\)-\(.*\)/\1 \2/p' "$1")); do
    SLURM_ARRAY_TASK_ID=$task sh "$1" || exit
done
TEXT
make_script stand-ins/srun <<'TEXT'
exec "$@"
TEXT
export PATH="$PWD/build/native-release/bin:$PWD/stand-ins:$PATH"

# The blocks of commands: 1.sh, 2.sh, ...; a block without a kind shows the output of the one before.
mkdir blocks
awk '
    /^```/ && inside { inside = 0; next }
    /^```/ { inside = 1; kind = substr($0, 4); if (kind != "") ++count; file = "blocks/" count "." (kind == "" ? "shown" : kind); next }
    inside { print >file }
' "$page"
[ "$(ls blocks | tr '\n' ' ')" = "1.sh 2.sh 3.sh 3.shown 4.sh 5.sbatch 6.sh " ] || fail "the page has other blocks: $(ls blocks)"
cp blocks/5.sbatch sweep.sbatch

run_block() {
    bash -euo pipefail "$1" >>output 2>>errors
}

start_anew() {
    rm -rf runs sweep.log table.csv starts hosts output errors
}

# Makes the table of the finished runs and compares it with that of the page.
check_table() {
    run_block blocks/3.sh || fail "$1: no table: $(cat errors)"
    diff blocks/3.shown table.csv || fail "$1: another table (>) than that of the page (<)"
}

finished_runs() {
    ls -d runs/*/summary.txt 2>/dev/null | wc -l
}

# A run that has a checkpoint and no summary.
has_halves() {
    local checkpoint
    for checkpoint in runs/*/run.ckpt; do
        [ -f "$checkpoint" ] && [ ! -f "${checkpoint%run.ckpt}summary.txt" ] && return 0
    done
    return 1
}

# Returns when no run is at work.
wait_for_locks() {
    local lock
    for lock in runs/*/lock; do
        flock "$lock" true
    done
}

# Starts the sweep with two jobs, and ends it by signal $1 in the middle of a run, after four others. A run may end
# before the signal comes; then the whole is tried again.
interrupt_by() {
    local sweep
    for _ in 1 2 3 4 5 6 7 8 9 10; do
        start_anew
        parallel --jobs 2 --joblog sweep.log --termseq TERM,60000,KILL,1000 <commands.txt >>output 2>>errors &
        sweep=$!
        while kill -0 "$sweep" 2>/dev/null && { [ "$(finished_runs)" -lt 4 ] || ! has_halves; }; do
            read -r -t 0.01 <>pause
        done
        kill "-$1" "$sweep" 2>/dev/null
        wait "$sweep" 2>/dev/null
        if has_halves; then
            return 0
        fi
    done
    return 1
}

# No run that was finished before is started again, and at least one goes on in its middle.
check_continuation() { # the number of starts before it
    local again
    again=$(tail -n "+$(($2 + 1))" starts | grep -v -- '--iterations 0 ')
    while read -r finished; do
        ! grep -qF "$finished/" <<<"$again" || fail "$1: $finished was done again"
    done <finished
    [ "$(grep -cE -- '--iterations [1-9][0-9]{0,4} .* --resume ' <<<"$again")" -gt 0 ] || fail "$1: no run went on: $again"
}

mkfifo pause
run_block blocks/1.sh || fail "the list of commands: $(cat errors)"
for jobs in 1 2; do
    start_anew
    run_block <(sed "s/--jobs 2/--jobs $jobs/" blocks/2.sh) || fail "a sweep with $jobs jobs: $(cat errors)"
    check_table "a sweep with $jobs jobs"
    [ "$(wc -l <starts)" -eq 9 ] || fail "a sweep with $jobs jobs has $(wc -l <starts) starts"
done

# Asked to end: the runs write their checkpoints.
interrupt_by TERM || fail "no run was interrupted"
wait_for_locks
ls -d runs/*/summary.txt | xargs -n 1 dirname >finished
before=$(wc -l <starts)
run_block blocks/2.sh || fail "the sweep does not go on: $(cat errors)"
check_continuation "a sweep that was interrupted" "$before"
check_table "a sweep that was interrupted"

# Killed: its runs are still at work. The same command either leaves them alone or comes after their end.
interrupt_by KILL || fail "no run was at work"
run_block blocks/2.sh
wait_for_locks
run_block blocks/2.sh || fail "a sweep that was killed does not go on: $(cat errors)"
check_table "a sweep that was killed"

start_anew
run_block blocks/4.sh || fail "the sweep over ssh: $(cat errors)"
[ "$(sort -u hosts | tr '\n' ' ')" = "alpha beta " ] || fail "the sweep used the hosts $(sort -u hosts)"
check_table "a sweep over ssh"

start_anew
run_block blocks/6.sh || fail "the array: $(cat errors)"
check_table "an array of Slurm"
before=$(wc -l <starts)
run_block blocks/6.sh || fail "the array cannot be submitted again: $(cat errors)"
[ "$(wc -l <starts)" -eq "$before" ] || fail "an array that was submitted again does runs again"

# The script by itself.
one=examples/sweep/run-one.sh
"$one" runs/alone 2>/dev/null
[ $? -eq 2 ] || fail "a call without a number of iterations has another exit code"
"$one" runs/wrong 100 --atoms none 2>/dev/null
[ $? -eq 2 ] || fail "a wrong option has another exit code"
[ ! -e runs/wrong/summary.txt ] || fail "a run that failed has a summary"
mkdir -p runs/busy
flock runs/busy/lock "$one" runs/busy 100 2>/dev/null
[ $? -eq 75 ] || fail "a run that is at work is not refused"
[ ! -e runs/busy/summary.txt ] || fail "a run that is at work was started again"
"$one" runs/none 0 --seed 1 --stats runs/none/stats.csv || fail "a run of no iterations ends with an error"
grep -qx 'iterations: 0' runs/none/summary.txt || fail "a run of no iterations has another summary"

[ "$failures" -eq 0 ] && echo "the sweep gives the table of the page in every way"
exit "$failures"
