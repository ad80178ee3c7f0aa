#!/bin/sh
# Does one run of a sweep, or what is left of it: run-one.sh FOLDER ITERATIONS [OPTION]...
#
# FOLDER belongs to the run alone. After ITERATIONS iterations in all, FOLDER/summary.txt holds the summary, and a further
# call does nothing. A call after an interruption goes on at FOLDER/run.ckpt, so the OPTIONs of a run must not change.
# They go to kinetarium-headless, which must be on the path; --checkpoint, --resume and --iterations are added here.
#
# Exit code: that of the program, 2 for a wrong call, 75 if another process is at work on FOLDER.
set -eu

if [ $# -lt 2 ]; then
    echo "usage: run-one.sh FOLDER ITERATIONS [OPTION]..." >&2
    exit 2
fi
folder=$1
iterations=$2
shift 2

mkdir -p "$folder"
# The program inherits the lock: a run whose script was killed is still known to be at work.
exec 9>"$folder/lock"
if ! flock --nonblock 9; then
    echo "run-one.sh: another process is at work on $folder" >&2
    exit 75
fi
[ ! -f "$folder/summary.txt" ] || exit 0

# The program ends at a signal, after its checkpoint. A script with a trap waits for this end.
trap : HUP INT TERM

checkpoint=$folder/run.ckpt
left=$iterations
if [ -f "$checkpoint" ]; then
    # No iteration more: only the summary of what was done before.
    summary=$(kinetarium-headless --resume "$checkpoint" --iterations 0 --no-overlaps --quiet)
    left=$((iterations - $(printf '%s\n' "$summary" | sed -n 's/^iterations: //p')))
    set -- --resume "$checkpoint" "$@"
fi
kinetarium-headless --quiet --iterations "$left" --checkpoint "$checkpoint" "$@" >"$folder/summary.new"
mv "$folder/summary.new" "$folder/summary.txt"
