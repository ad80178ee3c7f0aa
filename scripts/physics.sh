#!/usr/bin/env bash
# Measures the figures of docs/physics.md and draws its plots. See --help.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
    cat <<'TEXT'
usage: scripts/physics.sh [--write]

Installs the missing packages (Debian 12, as root), builds kinetarium-headless, measures every figure of docs/physics.md
(two minutes), and compares figures and plots with those of the page. The last line counts; the exit code is 0 only if all
of them are the same. The plots are those of Debian 12's matplotlib, to the byte.

  --write  writes figures and plots into docs instead
TEXT
}

mode=--long
case "${1:-}" in
"") ;;
--write) mode=--write ;;
--help | -h) usage && exit 0 ;;
*) usage >&2 && exit 2 ;;
esac

scripts/install-packages.sh packages.txt python3-matplotlib
scripts/fetch-dependencies.sh
scripts/build.sh native-release -- kinetarium-headless
exec scripts/physics.py "$mode" build/native-release/bin/kinetarium-headless
