#!/usr/bin/env bash
# Prints the address of the Debian mirror in this machine's apt sources.
set -euo pipefail

address='(https?|mirror[^:]*)://[^][:space:]]+/debian/?([[:space:]]|$)'
found=$(cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources 2>/dev/null |
    grep -vE '^[[:space:]]*#' | grep -oE "$address" | head -n 1 | tr -d '[:space:]') || true
if [ -z "$found" ]; then
    echo "error: no Debian mirror found in /etc/apt/sources.list and /etc/apt/sources.list.d" >&2
    exit 1
fi
echo "$found"
