#!/usr/bin/env bash
# Installs missing Debian packages; quick if none is missing. Needs Debian 12 and, to install, root.
#
#   install-packages.sh [LIST | PACKAGE]...
#
# A LIST is a file of this folder, all its packages. Without arguments: what test.sh and run.sh need.
set -euo pipefail
cd "$(dirname "$0")"

[ $# -gt 0 ] || set -- packages.txt packages-wine.txt packages-browser.txt
wanted=$(for name in "$@"; do
    if [ -f "$name" ]; then sed 's/#.*//' "$name"; else echo "$name"; fi
done | awk 'NF > 0 { print $1 }')

missing=()
for package in $wanted; do
    status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || status=none
    if [ "$status" != installed ]; then
        missing+=("$package")
    fi
done
if [ ${#missing[@]} -eq 0 ]; then
    echo "Packages: all installed"
    exit 0
fi

echo "Packages: installing ${missing[*]}"
if [ "$(id -u)" -ne 0 ]; then
    echo "error: installing needs root; run this again as root, or install them yourself:" >&2
    echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
fi

# apt must not ask questions, and must wait while another package manager is busy (a fresh machine updates itself).
export DEBIAN_FRONTEND=noninteractive
options=(-o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 -o Dpkg::Use-Pty=0 -qq)
apt-get "${options[@]}" update
apt-get "${options[@]}" install -y --no-install-recommends "${missing[@]}"
echo "Packages: installed"
