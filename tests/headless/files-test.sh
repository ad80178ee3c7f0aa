#!/usr/bin/env bash
# Tests what kinetarium-headless does with files that only a program of its own shows: files-test.sh PROGRAM
# The folders of another user, a folder that vanishes in the middle of a run, streams that are redirected.
set -u

program=$(realpath "$1")
folder=$(mktemp -d) || exit 1
trap 'chmod -R u+w "$folder"; rm -rf "$folder"' EXIT
cd "$folder" || exit 1
chmod 755 "$folder"
export TMPDIR="$folder/elsewhere"
mkdir "$TMPDIR"
chmod 777 "$TMPDIR"
failures=0

expect() { # WHAT ACTUAL EXPECTED
    if [ "$2" != "$3" ]; then
        printf 'FAILED: %s\n  is:       %s\n  expected: %s\n' "$1" "$2" "$3"
        failures=$((failures + 1))
    fi
}

# Root may write everywhere, so it becomes nobody.
plain_user=()
[ "$(id -u)" -ne 0 ] || plain_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)

# A run of years, which must not begin. The limit ends a program that breaks its promise.
refused() {
    timeout 60 "$@" --iterations 1000000000000 --quiet 2>&1
}

cp "$program" program && chmod 755 program
mkdir closed && touch closed/old.csv && chmod 666 closed/old.csv && chmod 555 closed
for option in --save-state --stats --histogram --trajectory --video --picture; do
    for name in closed/new.csv closed/old.csv; do
        expect "$option in a folder that cannot be written" "$(refused "${plain_user[@]}" ./program "$option" "$name")" \
            "error: $name: cannot be written: Permission denied"
    done
done

# The statistics go through a pipe that the test reads, so the run waits in the middle.
mkdir gone && mkfifo pipe
./program --seed 4 --atoms 5 --iterations 20000 --stats pipe --save-state gone/state.csv >summary 2>errors &
pid=$!
exec 3<pipe
read -r _ <&3
rm -r gone
cat <&3 >stats.csv
exec 3<&-
wait "$pid"
expect "exit code without the folder" $? 1
saved=$(echo "$TMPDIR"/kinetarium-state-*.csv)
expect "message without the folder" "$(cat errors)" \
    "error: gone/state.csv: cannot be written: its folder does not exist; the state is in $saved instead"
expect "summary without the folder" "$(grep -c '^state hash: ' summary)" 1
expect "rows of the statistics" "$(wc -l <stats.csv)" 20000
./program --seed 4 --atoms 5 --iterations 20000 --save-state right.csv >right-summary
expect "state elsewhere" "$(cmp "$saved" right.csv && echo same)" same
expect "hash without the folder" "$(tail -n 1 summary)" "$(tail -n 1 right-summary)"

expect "standard output is the statistics" "$(refused ./program --stats redirected.csv >redirected.csv; cat redirected.csv)" \
    "error: standard output: '/dev/stdout' is the same file as --stats: 'redirected.csv'; allowed is another file for each
kinetarium-headless --help shows all options."

expect "a state through a pipe" \
    "$(./program --load-state - --width 512 --height 512 --iterations 0 --save-state - <right.csv 2>errors | cmp - right.csv && echo same)" same
expect "where that state came from" "$(grep '^start: ' errors)" "start: standard input"
timeout 60 ./program --iterations 1000000000000 --video - --quiet 2>errors | head -c 1000 >beginning
expect "exit code of a video whose reader goes away" "${PIPESTATUS[0]}" 1
expect "message of a video whose reader goes away" "$(cat errors)" "error: standard output: cannot be written"
expect "beginning of a video" "$(head -n 1 beginning)" "YUV4MPEG2 W512 H512 F60:1 Ip A1:1 C444 XCOLORRANGE=LIMITED"
./program --help >/dev/full 2>errors
expect "exit code of help that cannot be written" $? 1
expect "message of help that cannot be written" "$(cat errors)" "error: standard output: cannot be written"

[ "$failures" -eq 0 ] && echo "all promises held"
exit "$failures"
