#!/usr/bin/env bash
# The part of later-wine.sh inside its namespaces: later-wine-inside.sh SUITE CACHE TREE [COMMAND...]
#
# Makes the other system if it is missing, mounts into it what it needs of this one, and runs the command, or else the
# checks, inside. Nothing is unmounted here: the mounts end with the namespace.
set -euo pipefail

suite=$1 cache=$2 tree=$3
shift 3
root="$cache/$suite"
here=$PWD

fail() {
    echo "later-wine: $*" >&2
    exit 1
}

# Outside, the mounts would stay.
[ "$$" -eq 1 ] || fail "this is the second half of later-wine.sh; start that"

# The marker comes last: without it an earlier attempt has not come to its end.
if [ ! -f "$root.complete" ]; then
    mirror=$(scripts/debian-mirror.sh)
    echo "Later Wine: making Debian $suite in $root from $mirror"
    rm -rf --one-file-system "$root"
    debootstrap --variant=minbase --include=ca-certificates \
        --keyring=/usr/share/keyrings/debian-archive-keyring.gpg "$suite" "$root" "$mirror" >"$root.log" 2>&1 ||
        { tail -n 20 "$root.log" >&2 && fail "debootstrap failed; see $root.log"; }
    # Accept an old release file with a valid signature: the mirror may be a snapshot.
    echo 'Acquire::Check-Valid-Until "false";' >"$root/etc/apt/apt.conf.d/later-wine"
    touch "$root.complete"
fi

# mount_here SOURCE: shows a file or folder of this system at the same path in the other one.
mount_here() {
    if [ -d "$1" ]; then
        mkdir -p "$root$1"
    else
        mkdir -p "$root$(dirname "$1")"
        touch "$root$1"
    fi
    mount --bind "$1" "$root$1"
}

mount -t proc proc "$root/proc"
mount -t tmpfs -o mode=0755 dev "$root/dev"
for device in null zero full random urandom tty; do
    mount_here "/dev/$device"
done
ln -s /proc/self/fd "$root/dev/fd"
mkdir "$root/dev/shm"
mount -t tmpfs -o mode=1777 shm "$root/dev/shm"
mount -t tmpfs -o mode=1777 tmp "$root/tmp"
cat /etc/resolv.conf >"$root/etc/resolv.conf" 2>/dev/null || true
# CTest's files hold absolute paths: of the tree, and of the modules of the CMake that has configured it.
mount_here "$here"
mount_here "$(sed -n 's/^CMAKE_ROOT:INTERNAL=//p' "$tree/CMakeCache.txt")"
# The prefixes of the tree belong to this system's Wine. Inside, others lie over them.
for prefix in wine wine-second; do
    mkdir -p "$cache/$prefix" "$tree/$prefix"
    mount --bind "$cache/$prefix" "$root$here/$tree/$prefix"
done

[ $# -gt 0 ] || set -- scripts/later-wine-checks.sh "$tree"
# binutils: a test reads the symbols of the Windows build. Python: another one reads the packaged pages. Not exec: the
# first process of a namespace gets no signal that it does not handle, and must wait for orphans.
# shellcheck disable=SC2016
env -u DISPLAY -u WAYLAND_DISPLAY -u WINEPREFIX PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
    chroot "$root" /bin/bash -c 'cd "$1" && shift &&
        scripts/install-packages.sh packages-wine.txt cmake binutils-mingw-w64-x86-64 python3 && exec "$@"' - "$here" "$@"
