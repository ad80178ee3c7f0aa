#!/usr/bin/env bash
# The list of faults of mutate.sh, which includes this file: reads it, checks it and chooses from it. The format is told
# at its top.

list=scripts/mutations.txt
ids=()
declare -A file old new world suite filter reason compiler
list_errors=0

list_error() {
    echo "error       $1: $2"
    list_errors=$((list_errors + 1))
}

# A line "id:" begins a fault. Several lines "old:" or "new:" are lines of one text.
read_list() {
    local line key value id=
    while IFS= read -r line || [ -n "$line" ]; do
        case "$line" in '' | '#'*) continue ;; esac
        key=${line%%:*}
        value=${line#*:}
        value=${value# }
        case "$key" in
        id)
            id=$value
            [ -z "${file[$id]+known}" ] || list_error "$id" "there are two faults of this name"
            ids+=("$id")
            file[$id]=
            ;;
        file) file[$id]=$value ;;
        old) old[$id]=${old[$id]+${old[$id]}$'\n'}$value ;;
        new) new[$id]=${new[$id]+${new[$id]}$'\n'}$value ;;
        tests) read -r 'world[$id]' 'suite[$id]' 'filter[$id]' <<<"$value" ;;
        refused) read -r 'world[$id]' 'suite[$id]' <<<"$value" && compiler[$id]=yes ;;
        equivalent) reason[$id]=$value ;;
        *) list_error "${id:-$list}" "unknown line: $line" ;;
        esac
    done <"$list"
}

# Reads a file with all its line ends.
read_file() {
    contents=
    IFS= read -r -d '' contents <"$1" || true # the end of the file ends the text
}

check_fault() {
    local id=$1 contents rest
    if [ ! -f "${file[$id]}" ] || [ -z "${old[$id]-}" ] || [ -z "${new[$id]+there}" ]; then
        list_error "$id" "file, old or new is missing" && return
    fi
    if [ -z "${reason[$id]-}" ] && { [ -z "${suite[$id]-}" ] || [ -z "${filter[$id]-}${compiler[$id]-}" ]; }; then
        list_error "$id" "it names neither tests nor a reason" && return
    fi
    read_file "${file[$id]}"
    rest=${contents#*"${old[$id]}"}
    if [ "$rest" = "$contents" ]; then
        list_error "$id" "${file[$id]} does not hold the old text"
    elif [ "${rest#*"${old[$id]}"}" != "$rest" ]; then
        list_error "$id" "${file[$id]} holds the old text more than once"
    fi
}

# True if the value is among the other arguments, or if there are none.
is_wanted() {
    local value=$1 wanted
    shift
    [ $# -gt 0 ] || return 0
    for wanted in "$@"; do
        [ "$value" != "$wanted" ] || return 0
    done
    return 1
}

# The same for a path and folders that may hold it.
is_in_room() {
    local path=$1 folder
    shift
    [ $# -gt 0 ] || return 0
    for folder in "$@"; do
        [ "${path#"$folder/"}" = "$path" ] || return 0
    done
    return 1
}

choose() {
    local id all=("${ids[@]}")
    ids=()
    for id in "${all[@]}"; do
        is_wanted "$id" "${only[@]}" && is_in_room "${file[$id]}" "${rooms[@]}" &&
            is_wanted "${world[$id]:-none}" "${worlds[@]}" && ids+=("$id")
    done
    [ ${#ids[@]} -gt 0 ] || { echo "Mutations: no such fault" >&2 && exit 2; }
}
