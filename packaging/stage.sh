#!/usr/bin/env bash
# Collects the files of a package: stage.sh PROGRAMS VERSION FOLDER
#
# PROGRAMS holds the two Windows programs. The script replaces FOLDER by a new one: the programs without symbols, the guide
# as web pages with its pictures, and the licence of each library that is compiled in. If SOURCE_DATE_EPOCH is set, every
# file gets that time.
set -euo pipefail
[ $# -eq 3 ] || { echo "usage: stage.sh PROGRAMS VERSION FOLDER" >&2; exit 2; }
programs=$(cd "$1" && pwd)
version=$2
rm -rf "$3"
mkdir -p "$3"
folder=$(cd "$3" && pwd)
cd "$(dirname "$0")/.."
export LC_ALL=C
umask 022

dependencies=${KINETARIUM_DEPENDENCIES:-$PWD/build/deps/include}

fail() {
    echo "error: $*" >&2
    exit 1
}

# Converts line ends to CR LF, which every Windows editor reads.
as_windows_text() {
    sed -e 's/\r$//' -e 's/$/\r/'
}

stage_programs() {
    local name
    for name in Kinetarium.exe kinetarium-headless.exe; do
        # Without this option strip writes the present time into the program.
        x86_64-w64-mingw32-strip --preserve-dates -o "$folder/$name" "$programs/$name"
        chmod 755 "$folder/$name"
    done
}

# page MARKDOWN HTML: turns links between documents into links between pages; a link to a file outside of the package
# becomes text.
page() {
    local title
    title=$(sed -n 's/^# //p' "$1" | head -n 1)
    {
        sed "s/@TITLE@/$title/" packaging/page-head.html
        cmark-gfm --extension table --extension strikethrough "$1" |
            sed -E -e 's/href="(user-guide|experiments)\.md/href="\1.html/g' -e 's/href="\.\.\/CHANGELOG\.md/href="changelog.html/g' \
                -e 's/href="docs\/(user-guide|experiments)\.md/href="\1.html/g' -e 's/<a href="[^":]*\.md[^"]*">([^<]*)<\/a>/\1/g'
        printf '</body>\n</html>\n'
    } >"$folder/guide/$2"
}

# Fails if the file of a local link or picture is missing.
check_links() {
    local target
    while IFS= read -r target; do
        [ -e "$folder/guide/$target" ] || fail "the guide's $1 leads to $target, which is not there"
    done < <(grep -oE '(href|src)="[^"#]+' "$folder/guide/$1" | sed -E 's/^(href|src)="//' | grep -vE '^(https?|mailto):')
}

stage_guide() {
    local picture name
    mkdir -p "$folder/guide/images"
    page docs/user-guide.md user-guide.html
    page docs/experiments.md experiments.html
    [ ! -f CHANGELOG.md ] || page CHANGELOG.md changelog.html
    while IFS= read -r picture; do
        cp "docs/$picture" "$folder/guide/images/"
    done < <(grep -hoE 'src="images/[^"]+' "$folder"/guide/*.html | sed 's/^src="//' | sort -u)
    for name in "$folder"/guide/*.html; do
        check_links "$(basename "$name")"
    done
    sed "s/@VERSION@/$version/" packaging/README.txt | as_windows_text >"$folder/README.txt"
}

# licence NAME VERSION TERMS FILE TEXT...: adds an entry to the overview and copies the text from files of the system.
licence() {
    local name=$1 number=$2 terms=$3 file=$4
    shift 4
    [ -n "$number" ] || fail "the version of $name is not known"
    cat "$@" | as_windows_text >"$folder/licences/$file"
    [ -s "$folder/licences/$file" ] || fail "there is no licence text of $name"
    printf '%-27s%-11s%-43s%s\n' "$name" "$number" "$terms" "$file" >>"$folder/licences/overview"
}

# The upstream version of an installed package, or the date of its sources if it has no version.
version_of() {
    dpkg-query -W -f '${source:Upstream-Version}' "$1" | sed -E -e 's/^0\.0~git([0-9]+).*/\1/' -e 's/[+~].*//'
}

fmt_version() {
    awk '/^#define FMT_VERSION [0-9]+/ { printf "%d.%d.%d", $3 / 10000, $3 / 100 % 100, $3 % 100 }' \
        "$dependencies/fmt/base.h"
}

# Debian describes all of Boost in one file of 46,000 lines. This prints the copyright notices of the used part, without
# the names of the files, and the licence.
boost_licence() {
    awk '
        function finish() {
            if ((used && bsl) || alone) printf "%s\n", text
            text = ""; used = 0; bsl = 0; alone = 0; listing = 0; lines = 0
        }
        /^$/ { finish(); next }
        { ++lines }
        lines == 1 && /^License: BSL-1.0$/ { alone = 1 }
        /^Files:/ { listing = 1 }
        /^Copyright:/ { listing = 0 }
        /^License: BSL-1.0$/ { bsl = 1 }
        listing && /libs\/multiprecision\/(\*|include)/ { used = 1 }
        !listing { text = text $0 "\n" }
        END { finish() }
    ' /usr/share/doc/libboost1.74-dev/copyright
}

stage_licences() {
    local documents=/usr/share/doc terms=/usr/share/common-licenses gcc
    mkdir -p "$folder/licences"
    # The version of the package is that of GCC and its own: 12.2.0-14+25.2.
    gcc=$(dpkg-query -W -f '${Version}' gcc-mingw-w64-x86-64-posix-runtime)
    gcc=${gcc%%-*}
    licence "{fmt}" "$(fmt_version)" "MIT" fmt.txt "$dependencies/../licences/fmt.txt"
    licence "Boost.Multiprecision" "$(version_of libboost1.74-dev)" "Boost Software License 1.0" boost.txt <(boost_licence)
    licence "CLI11" "$(version_of libcli11-dev)" "BSD 3-Clause" cli11.txt "$documents/libcli11-dev/copyright"
    licence "zlib" "$(version_of libz-mingw-w64-dev)" "zlib" zlib.txt "$documents/libz-mingw-w64-dev/copyright"
    licence "libstdc++, libgcc, libssp" "$gcc" "GPL 3 with GCC Runtime Library Exception" gcc.txt \
        "$documents/gcc-mingw-w64-x86-64-posix-runtime/copyright"
    licence "MinGW-w64, winpthreads" "$(version_of mingw-w64-x86-64-dev)" "ZPL 2.1, MIT and others" mingw-w64.txt \
        "$documents/mingw-w64-x86-64-dev/copyright"
    licence "NSIS" "$(version_of nsis)" "zlib; LZMA: CPL 1.0 with exception" nsis.txt "$documents/nsis/copyright"
    as_windows_text <"$terms/GPL-3" >"$folder/licences/gpl-3.txt"
    {
        cat packaging/licences.txt
        cat "$folder/licences/overview"
    } | sed "s/@VERSION@/$version/" | as_windows_text >"$folder/licences/README.txt"
    rm "$folder/licences/overview"
}

stage_programs
stage_guide
stage_licences
find "$folder" -type f ! -name '*.exe' -exec chmod 644 {} +
[ -z "${SOURCE_DATE_EPOCH:-}" ] || find "$folder" -exec touch --no-dereference --date "@$SOURCE_DATE_EPOCH" {} +
