#!/usr/bin/env bash
# Makes the packages for users. See --help.
set -euo pipefail
called_from=$PWD
# The compiler records real paths: resolve links.
cd -P "$(dirname "$0")"

usage() {
    cat <<'TEXT'
usage: ./package.sh [--output FOLDER] [--check-reproducible] [--help]

Installs missing packages (Debian 12, as root), fetches {fmt} 11, builds the last commit from scratch, without later
changes, and makes in out/:

  Kinetarium-VERSION-windows-x64.zip          portable: programs, guide, licences
  Kinetarium-VERSION-windows-x64-setup.exe    the same as an installer for one user
  Kinetarium-VERSION-windows-x64-symbols.zip  the programs with symbols, to read crash reports
  SHA256SUMS                                  of the three

With the same Debian packages installed, the same commit gives the same bytes, in any folder and at any time. A second
call for the same commit builds only missing files.

  --output FOLDER       another folder than out/
  --check-reproducible  makes everything twice, here and from a second checkout in another folder, and fails if a byte
                        differs
  --help                this text
TEXT
}

fail() {
    echo "error: $*" >&2
    exit 1
}

output=out
check=no
while [ $# -gt 0 ]; do
    case "$1" in
    --output)
        [ -n "${2:-}" ] || fail "--output needs a folder"
        output=$(cd "$called_from" && realpath -m "$2") && shift 2
        ;;
    --check-reproducible) check=yes && shift ;;
    --help | -h) usage && exit 0 ;;
    *) usage >&2 && exit 2 ;;
    esac
done

step() {
    printf '\n== %s\n' "$*"
}

# The checkout may belong to another user than root.
git() {
    command git -c safe.directory='*' "$@"
}

step "Packages"
scripts/install-packages.sh
step "Libraries that Debian 12 does not have"
scripts/fetch-dependencies.sh

commit=$(git rev-parse --verify HEAD 2>/dev/null) || fail "this is no checkout of the repository: there is no commit to build"
[ -z "$(git status --porcelain --untracked-files=no)" ] ||
    echo "Note: the package does not contain the changes since the last commit."

# The result must not depend on the settings of the machine. Every source gets the time of the commit: the program's
# diagnostics print the time of their source.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C
unset CFLAGS CXXFLAGS CPPFLAGS LDFLAGS CMAKE_C_COMPILER_LAUNCHER CMAKE_CXX_COMPILER_LAUNCHER
KINETARIUM_DEPENDENCIES=$(realpath build/deps/include)
export KINETARIUM_DEPENDENCIES
work="$PWD/build/package/$commit"

step "Windows build of commit ${commit:0:12}"
for other in "$PWD"/build/package/*/; do
    [ "$other" = "$work/" ] || rm -rf "$other"
done
# In a copied or moved checkout the earlier build names the old path.
if [ "$(cat "$work/configured" 2>/dev/null)" != "$work" ]; then
    rm -rf "$work"
    mkdir -p "$work/source"
    git archive --format=tar HEAD | tar -x -C "$work/source"
    # The names and lines of all functions, for reading crash reports; they do not change the machine code. Their paths
    # do not depend on the folder either.
    symbols="-g1 \"-fdebug-prefix-map=$work/source=.\" \"-fdebug-prefix-map=$work/tree=.\""
    symbols="$symbols \"-fdebug-prefix-map=$KINETARIUM_DEPENDENCIES/=\""
    cmake --preset windows-release -S "$work/source" -B "$work/tree" --log-level=WARNING \
        -DKINETARIUM_DEPENDENCIES="$KINETARIUM_DEPENDENCIES" -DCMAKE_C_FLAGS="$symbols" -DCMAKE_CXX_FLAGS="$symbols" \
        >"$work/configure.log" 2>&1 ||
        { cat "$work/configure.log" >&2; exit 1; }
    echo "$work" >"$work/configured"
fi
cmake --build "$work/tree" --target Kinetarium kinetarium-headless
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$work/tree/CMakeCache.txt")
[ -n "$version" ] || fail "the build has no version"

# archive FOLDER ZIP: sorted names, no owners, all times are that of the commit.
archive() {
    local folder zip
    folder=$(cd "$1" && pwd)
    zip=$(realpath -m "$2")
    rm -f "$zip"
    (cd "$(dirname "$folder")" && find "$(basename "$folder")" -type f | sort | zip -X -9 -q "$zip" -@)
}

step "Packages of version $version"
name="Kinetarium-$version-windows-x64"
made="$work/made"
rm -rf "$made"
mkdir -p "$made" "$work/symbols/$name-symbols"
"$work/source/packaging/stage.sh" "$work/tree/bin" "$version" "$work/Kinetarium-$version"
archive "$work/Kinetarium-$version" "$made/$name.zip"
for program in Kinetarium.exe kinetarium-headless.exe; do
    install -m 755 "$work/tree/bin/$program" "$work/symbols/$name-symbols/"
    touch --date "@$SOURCE_DATE_EPOCH" "$work/symbols/$name-symbols/$program"
done
archive "$work/symbols/$name-symbols" "$made/$name-symbols.zip"
"$work/source/packaging/make-installer.sh" "$work/Kinetarium-$version" "$version" "$made/$name-setup.exe"
(cd "$made" && sha256sum "$name-setup.exe" "$name-symbols.zip" "$name.zip" >SHA256SUMS)

mkdir -p "$output"
install -m 644 "$made"/* "$output/"
(cd "$output" && ls -l "$name"* && cat SHA256SUMS)
[ "$check" = yes ] || exit 0

step "The same from a second checkout in another folder"
other=$(mktemp -d)
trap 'rm -rf "$other"' EXIT
mkdir "$other/a second checkout"
cp -r "$(git rev-parse --absolute-git-dir)" "$other/a second checkout/.git"
git -C "$other/a second checkout" reset --hard --quiet
(cd "$other/a second checkout" && umask 077 && TZ=Asia/Tokyo ./package.sh --output "$other/out")
step "Comparison"
differing=0
for file in "$name.zip" "$name-setup.exe" "$name-symbols.zip"; do
    if cmp "$made/$file" "$other/out/$file"; then
        echo "$file: the same bytes"
    else
        differing=$((differing + 1))
    fi
done
[ "$differing" -eq 0 ] || fail "$differing of 3 files differ"
echo "Reproducible: two checkouts give the same bytes"
