#!/usr/bin/env bash
# Fills build/deps/include with the header-only libraries of both builds, and build/deps/licences with the licences of
# libraries that are not installed packages:
#   fmt           version 11, newer than that of Debian 12: from a later Debian suite, downloaded with an apt root of its
#                 own and checked with the Debian keyring; the packages of the machine stay as they are
#   boost, CLI, nlohmann, stb
#                 links to the system's headers, because the cross build must not see all of /usr/include
set -euo pipefail
cd "$(dirname "$0")/.."

fmt_suites="${KINETARIUM_FMT_SUITES:-forky sid}"
fmt_versions='11.*'
deps="$PWD/build/deps"
include="$deps/include"
licences="$deps/licences"
mkdir -p "$include" "$licences"

fail() {
    echo "error: $*" >&2
    exit 1
}

for name in boost CLI nlohmann stb; do
    [ -d "/usr/include/$name" ] || fail "/usr/include/$name is missing; run scripts/install-packages.sh first"
    ln -sfn "/usr/include/$name" "$include/$name"
done

has_fmt_licence() {
    [ -s "$licences/fmt.txt" ]
}

has_fmt_11() {
    [ -f "$include/fmt/base.h" ] && grep -qE '^#define FMT_VERSION 11[0-9]{4}$' "$include/fmt/base.h"
}

fetch_fmt_from() {
    local suite=$1 root="$deps/apt-$1"
    rm -rf "$root"
    mkdir -p "$root/lists/partial" "$root/cache/archives/partial" "$root/parts" "$root/download"
    : >"$root/status"
    echo "deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $mirror $suite main" >"$root/sources.list"
    # Accept an old release file with a valid signature: the mirror may be a snapshot.
    local options=(
        -o Acquire::Check-Valid-Until=false
        -o Dir::Etc::sourcelist="$root/sources.list" -o Dir::Etc::sourceparts=/dev/null
        -o Dir::Etc::preferences=/dev/null -o Dir::Etc::preferencesparts=/dev/null
        -o Dir::State::lists="$root/lists" -o Dir::State::status="$root/status" -o Dir::Cache="$root/cache"
        -o APT::Architecture=amd64 -o APT::Architectures=amd64 -o APT::Sandbox::User=root
        -o Acquire::Languages=none -o Acquire::Retries=3)
    (
        cd "$root/download"
        apt-get "${options[@]}" update -qq && apt-get "${options[@]}" download -qq "libfmt-dev=$fmt_versions"
    ) || return 1
    dpkg -x "$root"/download/libfmt-dev_*.deb "$root/unpacked" || return 1
    # Keep existing headers: new ones would recompile everything.
    if ! has_fmt_11; then
        rm -rf "$include/fmt"
        cp -r "$root/unpacked/usr/include/fmt" "$include/fmt"
    fi
    cp "$root/unpacked/usr/share/doc/libfmt-dev/copyright" "$licences/fmt.txt"
    rm -rf "$root"
    has_fmt_11 && has_fmt_licence
}

if ! has_fmt_11 || ! has_fmt_licence; then
    mirror=$(scripts/debian-mirror.sh)
    for suite in $fmt_suites; do
        echo "Fetching the headers of {fmt} 11 from Debian $suite"
        if fetch_fmt_from "$suite"; then
            break
        fi
        echo "  not available from $suite"
    done
    has_fmt_11 && has_fmt_licence || fail "no Debian suite of '$fmt_suites' gave libfmt-dev $fmt_versions"
fi
