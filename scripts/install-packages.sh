#!/usr/bin/env bash
# Installs the packages of scripts/packages.txt, or of the lists named, that are missing. Quick when none is. Needs
# Debian 12 and, if something is missing, root.
#
#   install-packages.sh [LIST...]
set -euo pipefail
cd "$(dirname "$0")"

[ $# -gt 0 ] || set -- packages.txt
wanted=$(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$@" | awk '{ print $1 }')

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

# Nothing may stop to ask a question, and a package manager that is busy (a fresh machine updates itself) is waited for.
export DEBIAN_FRONTEND=noninteractive
options=(-o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 -o Dpkg::Use-Pty=0 -qq)
apt-get "${options[@]}" update
apt-get "${options[@]}" install -y --no-install-recommends "${missing[@]}"
echo "Packages: installed"
