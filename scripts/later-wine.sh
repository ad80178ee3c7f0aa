#!/usr/bin/env bash
# Runs the Windows tests under the Wine of a later Debian, which shows the world that Direct2D draws. See --help.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
    cat <<'TEXT'
usage: scripts/later-wine.sh [--cache FOLDER] [COMMAND [ARGUMENT...]]

Builds the Windows half, makes a system of Debian trixie with Wine 10 in a folder (the first time only; 2 GB, two minutes),
and runs there every Windows test and the end-to-end tests, with Direct2D on. Then it prints how far the world on the
screen differs from the software drawing, in speed mode, in fixed mode, scrolled and in full screen, and saves pictures of
the window in out/later-wine. The exit code is 0 only if all of this succeeded; the last line counts.

  --cache FOLDER  the folder of that system and its Wine prefixes (build/later-wine, or KINETARIUM_LATER_WINE)
  COMMAND         instead: build, and run this command there, in the same folder as here; for example
                  scripts/wine-session.sh ctest --preset windows-release -R FullScreen

Needs Debian 12 and root. Everything runs in mount and process namespaces of its own. The kernel ends their processes and
removes their mounts when this script ends, however it ends.
TEXT
}

fail() {
    echo "later-wine: $*" >&2
    exit 1
}

suite=trixie
cache=${KINETARIUM_LATER_WINE:-build/later-wine}
tree=build/windows-release
while [ $# -gt 0 ]; do
    case "$1" in
    --cache) cache=${2:?--cache needs a folder} && shift 2 ;;
    --help | -h) usage && exit 0 ;;
    -*) usage >&2 && exit 2 ;;
    *) break ;;
    esac
done
[ "$(id -u)" -eq 0 ] || fail "needs root, to mount the tree into another system"

scripts/install-packages.sh packages.txt debootstrap
scripts/fetch-dependencies.sh
scripts/build.sh windows-release
mkdir -p "$cache" out/later-wine
cache=$(cd "$cache" && pwd)

# One run per folder. Every process of the run inherits the lock, so whoever gets it knows that all of them have ended.
exec 8>"$cache/lock"
if ! flock -n 8; then
    echo "Later Wine: waiting for another run in $cache to end"
    flock 8
fi

namespaces=
# $1 = exit code
finish() {
    trap '' INT TERM HUP
    trap - EXIT
    if [ -n "$namespaces" ]; then
        kill -KILL "$namespaces" 2>/dev/null || true
        wait "$namespaces" 2>/dev/null || true # without the shell's own message
        exec 8>&-
        exec 7>"$cache/lock"
        flock --timeout 20 7 || echo "later-wine: some process of the later Wine does not end" >&2
    fi
    exit "$1"
}
trap 'finish $?' EXIT
trap 'finish 130' INT
trap 'finish 143' TERM
trap 'finish 129' HUP

# The first process of the namespaces ends when this script ends (SIGKILL included), and with it all the others. It runs
# in the background: a shell handles no signal while it waits for a command in the foreground.
setpriv --pdeathsig KILL unshare --mount --pid --ipc --fork --kill-child --mount-proc \
    scripts/later-wine-inside.sh "$suite" "$cache" "$tree" "$@" </dev/null &
namespaces=$!
code=0
wait "$namespaces" || code=$?
namespaces=
finish "$code"
