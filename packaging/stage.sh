#!/usr/bin/env bash
# Collects the files of a package: stage.sh PROGRAMS VERSION FOLDER
#
# PROGRAMS holds the two Windows programs and their link maps, in a build tree of Ninja. The script replaces FOLDER by a new one: the programs without symbols, the guide
# as web pages with its pictures, the licence of each library that is compiled in, and the bill of materials. If
# SOURCE_DATE_EPOCH is set, every file gets that time.
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

# page MARKDOWN HTML: for users of Windows; turns links between documents into links between pages; a link to a file
# outside of the package becomes text.
page() {
    local title
    awk -f packaging/windows-page.awk "$1" >"$work/page.md"
    title=$(sed -n 's/^# //p' "$1" | head -n 1)
    {
        sed "s/@TITLE@/$title/" packaging/page-head.html
        cmark-gfm --extension table --extension strikethrough "$work/page.md" | awk -f packaging/heading-ids.awk |
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

# The version of the part whose line of components.txt has this documentation and file.
version_of_part() {
    case "$2" in
    fmt.txt) fmt_version ;;
    boost.txt) version_of libboost1.74-dev ;;
    # The version of the package is that of GCC and its own: 12.2.0-14+25.2.
    gcc.txt) dpkg-query -W -f '${Version}' "$1" | sed 's/-.*//' ;;
    *) version_of "$1" ;;
    esac
}

licence_text() {
    case "$2" in
    fmt.txt) cat "$dependencies/../licences/fmt.txt" ;;
    boost.txt) boost_licence ;;
    *) cat "/usr/share/doc/$1/copyright" ;;
    esac
}

# The line of components.txt for a package.
component_of() {
    local pattern line
    while IFS= read -r line; do
        pattern=${line%%|*}
        # shellcheck disable=SC2053
        if [[ -n "$pattern" && "$pattern" != '#'* && "$1" == $pattern ]]; then
            echo "$line"
            return
        fi
    done <packaging/components.txt
    fail "packaging/components.txt has no line for $1, which is in the programs"
}

# Writes work/parts: "FILE <tab> PROGRAM <tab> PART" for everything that the link maps and the installer contain.
find_parts() {
    local program package part line
    packaging/linked-parts.sh "$programs" >"$work/linked"
    while IFS=$'\t' read -r program package part; do
        line=$(component_of "$package") || exit 1
        printf '%s\t%s\t%s\n' "${line##*|}" "$program" "$part"
    done <"$work/linked" >"$work/parts"
    printf 'nsis.txt\tinstaller\tmakensis\n' >>"$work/parts"
}

# The programs that contain the part with this licence file, with a separator.
where_is() {
    awk -F '\t' -v "file=$1" -v "separator=$2" '
        $1 == file && !($2 in seen) { seen[$2] = 1; text = text (text == "" ? "" : separator) $2 }
        END { print text }' "$work/parts"
}

# A line of the bill of materials.
library_line() {
    local name=$1 number=$2 spdx=$3 file=$4 parts
    parts=$(awk -F '\t' -v "file=$file" '
        $1 == file && !($3 in seen) {
            seen[$3] = 1
            printf ", {\"name\": \"kinetarium:part\", \"value\": \"%s\"}", $3
        }' "$work/parts")
    printf '    {"type": "library", "bom-ref": "%s", "name": "%s", "version": "%s", ' "${file%.txt}" "$name" "$number"
    printf '"licenses": [{"expression": "%s"}], ' "$spdx"
    printf '"properties": [{"name": "kinetarium:licence", "value": "licences/%s"}%s]}' "$file" "$parts"
}

program_line() {
    printf '    {"type": "application", "bom-ref": "%s", "name": "%s", "version": "%s", ' "$1" "$1" "$version"
    printf '"hashes": [{"alg": "SHA-256", "content": "%s"}]}' "$(sha256sum <"$folder/$1" | cut -c 1-64)"
}

dependency_line() {
    printf '    {"ref": "%s", "dependsOn": [%s]}' "$1" "$(awk -F '\t' -v "program=$1" '
        $2 == program && !($1 in seen) {
            seen[$1] = 1
            name = $1; sub(/\.txt$/, "", name)
            text = text (text == "" ? "" : ", ") "\"" name "\""
        }
        END { print text }' "$work/parts")"
}

# The bill of materials in the form of CycloneDX, one component per line.
write_bill_of_materials() {
    printf '{\n  "bomFormat": "CycloneDX",\n  "specVersion": "1.5",\n  "version": 1,\n'
    printf '  "metadata": {"component": {"type": "application", "bom-ref": "Kinetarium", "name": "Kinetarium", '
    printf '"version": "%s"}},\n  "components": [\n' "$version"
    program_line Kinetarium.exe && printf ',\n'
    program_line kinetarium-headless.exe && printf ',\n'
    printf '    {"type": "application", "bom-ref": "installer", "name": "installer", "version": "%s"}' "$version"
    cat "$work/libraries"
    printf '\n  ],\n  "dependencies": [\n'
    dependency_line Kinetarium.exe && printf ',\n'
    dependency_line kinetarium-headless.exe && printf ',\n'
    dependency_line installer
    printf '\n  ]\n}\n'
}

stage_licences() {
    local documentation name spdx words file number
    mkdir -p "$folder/licences"
    find_parts
    : >"$work/libraries"
    while IFS='|' read -r _ documentation name spdx words file; do
        [ -n "$(where_is "$file" x)" ] || continue
        number=$(version_of_part "$documentation" "$file")
        [ -n "$number" ] || fail "the version of $name is not known"
        licence_text "$documentation" "$file" | as_windows_text >"$folder/licences/$file"
        [ -s "$folder/licences/$file" ] || fail "there is no licence text of $name"
        printf '%s, version %s\n    licence:  %s (%s)\n    part of:  %s\n\n' "$name" "$number" "$words" "$file" \
            "$(where_is "$file" ', ')" >>"$work/overview"
        { printf ',\n' && library_line "$name" "$number" "$spdx" "$file"; } >>"$work/libraries"
    done < <(grep -vE '^(#|$)' packaging/components.txt)
    as_windows_text </usr/share/common-licenses/GPL-3 >"$folder/licences/gpl-3.txt"
    cat packaging/licences.txt "$work/overview" | sed "s/@VERSION@/$version/" |
        as_windows_text >"$folder/licences/README.txt"
    write_bill_of_materials >"$folder/licences/bill-of-materials.cdx.json"
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
stage_programs
stage_guide
stage_licences
find "$folder" -type f ! -name '*.exe' -exec chmod 644 {} +
[ -z "${SOURCE_DATE_EPOCH:-}" ] || find "$folder" -exec touch --no-dereference --date "@$SOURCE_DATE_EPOCH" {} +
