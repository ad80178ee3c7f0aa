#!/usr/bin/env bash
# Tests scripts/wine-emulator.sh with a fake Wine. Exit code 0 if every check has passed.
set -u
cd "$(dirname "$0")/../.." || exit 1

folder=$(mktemp -d) || exit 1
trap 'rm -rf "$folder"' EXIT
failed=0

# This wine fails as Wine does when its heap covers its shared user data. The file "failures" says how often; afterwards it
# runs program.sh.
cat >"$folder/wine" <<'WINE'
#!/usr/bin/env bash
folder=$(dirname "$0")
if [ "$1" = --version ]; then
    cat "$folder/version"
    exit 0
fi
failures=$(cat "$folder/failures")
echo x >>"$folder/starts"
if [ "$(wc -l <"$folder/starts")" -le "$failures" ]; then
    echo "err:virtual:virtual_alloc_first_teb wine: failed to map the shared user data: c0000018"
    exit 1
fi
. "$folder/program.sh"
WINE
chmod +x "$folder/wine"

# check NAME FAILURES PROGRAM CODE STARTS OUTPUT: OUTPUT is a pattern of everything that is printed.
check() {
    local name=$1 code starts output
    echo "$2" >"$folder/failures"
    echo "$3" >"$folder/program.sh"
    rm -f "$folder/starts"
    output=$(PATH="$folder:$PATH" WINEPREFIX="$folder" KINETARIUM_DESKTOP='' scripts/wine-emulator.sh program.exe 2>&1)
    code=$?
    starts=$(wc -l <"$folder/starts")
    # shellcheck disable=SC2053
    if [ "$code" -ne "$4" ] || [ "$starts" -ne "$5" ] || [[ $output != $6 ]]; then
        echo "FAILED: $name: exit code $code, $starts starts, output: $output"
        failed=$((failed + 1))
    fi
}

noise='echo 0024:err:ole:noise'
check "output without Wine's errors" 0 "$noise; echo text" 0 1 "text"
check "Wine's errors of a failed program" 0 "$noise; echo text; exit 3" 3 1 "0024:err:ole:noise?text"
check "a failed program without output" 0 "exit 4" 4 1 "*exit code 4 and no output of program.exe*"
check "a start in vain" 2 "echo text" 0 3 "*starting again*starting again*text"
check "only starts in vain" 99 "echo text" 1 5 "*failed to map the shared user data*no output of program.exe*"
check "the exit code after a start in vain" 1 "echo text; exit 5" 5 2 "*starting again*text"

# shellcheck disable=SC2016
overrides='echo "$WINEDLLOVERRIDES"'
echo "wine-8.0 (Debian 8.0~repack-4)" >"$folder/version"
export KINETARIUM_SHOWN_WORLD=1
check "no Direct2D where Wine does not show it" 0 "$overrides" 0 1 "*;d2d1="
echo "wine-10.0 (Debian 10.0~repack-6)" >"$folder/version"
check "Direct2D where Wine shows it" 0 "$overrides" 0 1 "*winemenubuilder.exe=d"
echo "wine-8.0" >"$folder/version"
unset KINETARIUM_SHOWN_WORLD
check "Direct2D where nobody looks at the world" 0 "$overrides" 0 1 "*winemenubuilder.exe=d"

echo "emulator-test: $failed failed"
[ "$failed" -eq 0 ]
