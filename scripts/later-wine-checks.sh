#!/usr/bin/env bash
# What later-wine.sh runs in the later Debian: later-wine-checks.sh TREE
#
# The last line counts. The exit code is 0 only if every step has succeeded.
set -uo pipefail
cd "$(dirname "$0")/.." || exit 1

tree=$1
failed=0
started=$SECONDS
log=$(mktemp)
trap 'rm -f "$log"' EXIT

if ! scripts/wine-shows-direct2d.sh; then
    echo "later-wine: $(wine --version) does not show Direct2D in child windows" >&2
    exit 1
fi

step() {
    printf '\n== %s\n' "$*"
}

# As in test.sh, on two desktops side by side.
step "Windows tests under $(wine --version)"
scripts/wine-session.sh --second --prefix "$tree/wine-second" -- scripts/wine-session.sh -- \
    ctest --test-dir "$tree" --output-on-failure --no-tests=error --parallel "$(($(nproc) + 1))" 2>&1 | tee "$log" ||
    failed=$((failed + 1))
tests=$(grep -oE '[0-9]+ tests failed out of [0-9]+' "$log" | tail -n 1)

# The same tests again, for what they print. Without Direct2D they would pass with GDI's drawings.
step "The world on the screen and the software drawing"
KINETARIUM_SHOWN_WORLD=1 scripts/wine-session.sh timeout --foreground --kill-after=10 300 scripts/wine-emulator.sh \
    "$tree/tests-bin/WindowsTests.exe" --gtest_filter='DrawnWorld.*' >"$log" 2>&1 || failed=$((failed + 1))
sed -n 's/^\[ RUN      \] DrawnWorld\.\(.*\)/\1:/p; /^Direct2D: /p; /^GDI: /p; /Failure$/,/^\[/p' "$log"
drawings=$(grep -c '^Direct2D: ' "$log")
[ "$drawings" -gt 0 ] || failed=$((failed + 1))

step "Pictures of the window"
scripts/wine-session.sh timeout --foreground --kill-after=10 300 scripts/wine-emulator.sh \
    "$tree/bin/kinetarium-pictures.exe" --worlds "$tree/bin/Kinetarium.exe" out/later-wine || failed=$((failed + 1))

echo
echo "Later Wine ($(wine --version)): ${tests:-no tests}, $drawings drawings by Direct2D compared," \
    "$([ "$failed" -eq 0 ] && echo all passed || echo FAILED), $(((SECONDS - started + 59) / 60)) min"
[ "$failed" -eq 0 ]
