#!/usr/bin/env bash
# Tells what others have written of the programs of a build: linked-parts.sh PROGRAMS
#
# PROGRAMS is the folder of the linked programs and their link maps, in a build tree of Ninja. For each part it prints
#
#   PROGRAM <tab> PACKAGE <tab> PART
#
# A part is a library or an object of which the link map says that it was linked, or a folder of headers of which a linked
# object has included one, or a script that is compiled into the program as its bytes. PACKAGE is the Debian package that it comes from, or "fmt", which comes from a later suite.
set -euo pipefail
[ $# -eq 1 ] || { echo "usage: linked-parts.sh PROGRAMS" >&2; exit 2; }
programs=$(cd -P "$1" && pwd)
cd -P "$(dirname "$0")/.."
dependencies=$(realpath "${KINETARIUM_DEPENDENCIES:-build/deps/include}")
tree=$(dirname "$programs")
export LC_ALL=C

# Prints the libraries and objects from outside of the build tree in the map $1.
linked_files() {
    sed -n -E -e 's/^(\/[^ (]+\.a)\(.*/\1/p' -e 's/^LOAD (\/.+\.o)$/\1/p' "$1" | sort -u | while IFS= read -r file; do
        realpath "$file"
    done | { grep -v "^$tree/" || true; } | sort -u
}

# Prints "folder header" for each folder of header-only libraries of which an object in the map $1 has included a header. The
# compiler may name a header by the place that a link leads to.
included_folders() {
    {
        for folder in "$dependencies"/*/; do
            folder=${folder%/}
            for place in "$folder" "$(realpath "$folder")" "$(realpath --relative-to="$tree" "$folder")"; do
                printf 'place %s %s/\n' "$(basename "$folder")" "$place"
            done
        done
        sed -n -E -e 's/^lib\/lib([^ (]+)\.a\(([^)]+\.obj)\).*/linked \1 \2/p' \
            -e 's/^LOAD .*CMakeFiles\/([^ ]+)\.dir\/([^ ]+\/)?([^ /]+\.obj)$/linked \1 \3/p' "$1"
        ninja -C "$tree" -t deps
    } | awk '
        # A path may hold blanks.
        /^place / { name[substr($0, length($2) + 8)] = $2; next }
        /^linked / { linked[$2 "/" $3] = 1; next }
        /^[^ ].*: #deps/ {
            object = $0; sub(/: #deps.*$/, "", object)
            target = object; sub(/^.*CMakeFiles\//, "", target); sub(/\.dir\/.*$/, "", target)
            sub(/^.*\//, "", object)
            used = (target "/" object) in linked
            next
        }
        /^ / && used {
            header = substr($0, 5)
            if (header in seen) next
            seen[header] = 1
            for (place in name) {
                if (index(header, place) == 1 && !(name[place] in found)) {
                    found[name[place]] = 1
                    print name[place] "\t" header
                }
            }
        }' | sort
}

# Prints the scripts of the system that the program $1 is made from. The compiler does not see them: CMake turns them into
# sources.
embedded_files() {
    ninja -C "$tree" -t inputs "bin/$1" | { grep '^/usr/share/javascript/' || true; } | sort -u
}

# The package of a file of the system.
package_of() {
    dpkg-query -S "$(cd "$tree" && realpath "$1")" | sed -E -e 's/:.*//' | head -n 1
}

for name in Kinetarium kinetarium-headless; do
    map="$programs/$name.map"
    [ -s "$map" ] || { echo "error: there is no link map $map" >&2; exit 1; }
    linked_files "$map" | while IFS= read -r file; do
        printf '%s.exe\t%s\t%s\n' "$name" "$(package_of "$file")" "$(basename "$file")"
    done
    embedded_files "$name.exe" | while IFS= read -r file; do
        printf '%s.exe\t%s\t%s\n' "$name" "$(package_of "$file")" "$(basename "$file")"
    done
    included_folders "$map" | while IFS=$'\t' read -r folder header; do
        if [ "$folder" = fmt ]; then package=fmt; else package=$(package_of "$header"); fi
        printf '%s.exe\t%s\t%s\n' "$name" "$package" "$folder"
    done
done
