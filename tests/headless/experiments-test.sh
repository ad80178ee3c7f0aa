#!/usr/bin/env bash
# Runs every block of commands of the page about experiments, in its order and in one folder, and compares the outputs
# that the page shows, except for times: experiments-test.sh PROGRAM PAGE
set -u

program=$(realpath "$1")
page=$(realpath "$2")
folder=$(mktemp -d) || exit 1
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
# Where the page looks for the program, from the folder of the sources.
mkdir -p build/native-release/bin blocks
ln -s "$program" build/native-release/bin/kinetarium-headless
export PATH="$PWD/build/native-release/bin:$PATH"
# A file of the window, which the page takes for granted.
printf '[Settings]\r\nWorld_width=600\r\nTot_atoms=300\r\nAtom_colour_2_factor=\r\nWndLeft=10\r\n' >Kinetarium.ini
# A player would open a window, and encoders are large: a program that decodes the whole stream stands in for them.
mkdir players
printf '#!/bin/sh\nexec y4mtoppm >/dev/null\n' | tee players/mpv >players/ffmpeg
chmod +x players/*
export PATH="$PWD/players:$PATH"
failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

# blocks/01.sh, blocks/02.sh, ...; the output that the page shows below a block has its number and the ending .shown.
awk '
    /^```/ && inside { inside = 0; next }
    /^```/ {
        inside = 1
        kind = substr($0, 4)
        if (kind != "") ++count
        file = sprintf("blocks/%02d.%s", count, kind == "" ? "shown" : kind)
        next
    }
    inside { print >file }
' "$page"

# Drops what differs from machine to machine: the values of the times, and the last column of the sweep.
without_times() {
    sed -E -e 's/(\(ms\)): .*/\1/' -e 's/^([0-9]+,[0-9.]+,[0-9.]+),[0-9.]+$/\1/' "$1"
}

count=0
for block in blocks/*.sh; do
    if ! bash -euo pipefail "$block" >"${block%.sh}.output" 2>"${block%.sh}.errors"; then
        fail "this block ended with an error:"
        cat "$block" "${block%.sh}.errors"
    fi
    shown=${block%.sh}.shown
    if [ -f "$shown" ] && ! diff <(without_times "$shown") <(without_times "${block%.sh}.output"); then
        fail "the page shows another output (<) than this block gives (>):"
        cat "$block"
    fi
    count=$((count + 1))
done
[ "$(ls blocks/*.shown | wc -l)" -eq 3 ] || fail "the page does not show three outputs"
[ "$count" -ge 11 ] || fail "the page has only $count blocks of commands"

# The outputs that the page tells in words.
output_of() { # the output of the block that holds this text
    cat "$(grep -lF -- "$1" blocks/*.sh | sed 's/sh$/output/')"
}
[ "$(output_of 'seed=$(kinetarium' | uniq | grep -c '^state hash: ')" -eq 1 ] || fail "a seed gave two worlds"
[ "$(output_of 'later.csv whole.csv' | tail -n 1)" = "the same to the bit" ] || fail "the pieces of a run are not the whole"
[ "$(output_of 'million.csv again.csv' | tail -n 1)" = "the same bytes" ] || fail "a state has changed on the disk"
output_of '--settings Kinetarium.ini' | grep -qx 'width: 800' || fail "an option does not win over the settings"
output_of '--settings Kinetarium.ini' | grep -qx 'atoms: 300' || fail "the settings are not used"
[ "$(output_of 'ls burst' | grep -c '^burst.*png$')" -eq 4 ] || fail "there are not four pictures"
cmp burst-300.png burst.png || fail "the last two pictures differ"
[ "$(grep -c '^[0-9]*;' stats-comma.csv)" -eq 5 ] && ! grep -q '[.]' stats-comma.csv || fail "stats-comma.csv has dots"
[ "$(output_of 'cut -d , -f 1,7,18 gas.csv' | grep -c '00,0[.].*,0[.]')" -eq 10 ] || fail "gas.csv has other rows"
[ "$(output_of '--histogram speeds.csv' | awk '/^[0-9]/ { sum += $3; ++n } END { print n, sum }')" = "41 20000" ] ||
    fail "the histogram does not hold every atom once"

# The blocks of Python are one session of the system's Python, which has ASE.
python=$(cat blocks/*.python | /usr/bin/python3) || fail "the blocks of Python ended with an error"
hash=$(kinetarium-headless --load-state end.csv --width 512 --height 512 --iterations 0 | sed -n 's/^state hash: //p')
grep -qx "$hash" <<<"$python" || fail "Python computes another hash"
grep -q '^256 atoms,' <<<"$python" || fail "Python reads another number of atoms"

[ "$(grep -c 'mean of v squared' <<<"$python")" -eq 11 ] || fail "Python does not read 11 frames"
[ "$(y4mtoppm <gas.y4m 2>players/errors | wc -c)" -eq $((31 * (15 + 3 * 512 * 512))) ] || fail "gas.y4m does not have 31 frames"

[ "$failures" -eq 0 ] && echo "$count blocks of commands do what the page says"
exit "$failures"
