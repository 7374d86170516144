#!/usr/bin/env bash
# Says what the changes since a version do to the number of the next one, and why.
#
# usage: scripts/next-version.sh [OLD [NEW]]
#
#   OLD   what to compare with: a revision of git, or a folder with an older source tree; the last
#         tag v* if nothing is given
#   NEW   the same for the newer one; this source tree if nothing is given
#
#   major   the interface lost something, or something in it changed: a consumer that was compiled or
#           written before may fail
#   minor   the interface gained something
#   patch   the interface is the same
#
# Nothing is built: the lists of symbols and the descriptions of the binary interfaces that are checked
# in are compared, and the public headers. Tests hold the libraries to both. The exit status is 1 if
# a symbol was added to a symbol version that OLD has already, where no loader would miss it.
set -euo pipefail
folder=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
LEVELS=(patch minor major)
level=0
status=0

# raise LEVEL REASON: the next version differs at least that much.
raise() {
    printf '%s: %s\n' "${LEVELS[$1]}" "$2"
    if [ "$1" -gt "$level" ]; then level=$1; fi
}

# tree_of NAME: prints a folder with the tree of a revision, or the folder itself.
tree_of() {
    if [ -d "$1" ]; then
        echo "$1"
        return
    fi
    local tree
    tree=$(mktemp -d "$scratch/tree.XXXX")
    git -C "$folder" archive "$1" | tar -x -C "$tree"
    echo "$tree"
}

version_of() {
    sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' "$1/CMakeLists.txt" | head -n 1
}

# symbols LIST: each symbol of a list, with its version before it.
symbols() {
    awk '/^[A-Z_0-9.]+:$/ { version = $0; next } { print version, $0 }' "$1" | LC_ALL=C sort
}

# compare_symbols LIBRARY OLD_LIST NEW_LIST
compare_symbols() {
    local removed added known
    removed=$(LC_ALL=C comm -23 <(symbols "$2") <(symbols "$3") | wc -l)
    added=$(LC_ALL=C comm -13 <(symbols "$2") <(symbols "$3"))
    if [ "$removed" -gt 0 ]; then raise 2 "$1 lacks $removed symbols that it had"; fi
    [ -n "$added" ] || return 0
    raise 1 "$1 has $(wc -l <<<"$added") new symbols"
    known=$(symbols "$2" | cut -d' ' -f1 | sort -u)
    if [ "$removed" -eq 0 ] && grep -F "$known" <<<"$added" >"$scratch/misplaced"; then
        echo "error: these came after the version that they carry; give them one of their own in the map:" >&2
        cat "$scratch/misplaced" >&2
        status=1
    fi
}

# run_abidiff ARGUMENT...: prints whether there are changes: 0, or the bits that abidiff tells them by.
run_abidiff() {
    local result=0
    abidiff "$@" >"$scratch/report" 2>&1 || result=$?
    if [ $((result & 3)) -ne 0 ]; then
        cat "$scratch/report" >&2
        return 1
    fi
    echo "$result"
}

# compare_descriptions LIBRARY OLD NEW
compare_descriptions() {
    local all changed
    all=$(run_abidiff --harmless "$2" "$3")
    [ "$all" -ne 0 ] || return 0
    changed=$(run_abidiff --no-added-syms "$2" "$3")
    # The bit 8 is for what went; abidiff leaves it to us to judge changed layouts.
    if [ $((all & 8)) -ne 0 ] || [ "$changed" -ne 0 ]; then
        raise 2 "the binary interface of $1 changed; abidiff says:"
        run_abidiff --no-added-syms "$2" "$3" >/dev/null
        sed -n '/./s/^/    /p' "$scratch/report" | head -n 40
    else
        raise 1 "the binary interface of $1 gained functions or enumerators"
    fi
}

# compare_library NAME FOLDER: what is checked in about a library, in the folder of both trees.
compare_library() {
    local file
    for file in exported_symbols.txt binary_interface.xml; do
        if [ ! -e "$old/$2/$file" ]; then
            echo "note: the older tree has no $2/$file to compare with"
        elif [ $file = exported_symbols.txt ]; then
            compare_symbols "$1" "$old/$2/$file" "$new/$2/$file"
        else
            compare_descriptions "$1" "$old/$2/$file" "$new/$2/$file"
        fi
    done
}

# code_of HEADER: without comments and blank lines.
code_of() {
    g++ -fpreprocessed -dD -E -P -x c++ "$1" 2>/dev/null
}

# compare_headers FOLDER: templates and inline functions are in no list of symbols.
compare_headers() {
    local header name
    while read -r name; do
        header=$1/$name
        if [ ! -e "$new/$header" ]; then
            raise 2 "$header is gone"
        elif [ ! -e "$old/$header" ]; then
            raise 1 "$header is new"
        elif cmp --quiet "$old/$header" "$new/$header"; then
            continue
        elif ! diff <(code_of "$old/$header") <(code_of "$new/$header") >"$scratch/difference"; then
            raise 1 "$header has other code"
            if grep -q '^<' "$scratch/difference"; then
                echo "    Some of it went or changed: if a consumer no longer compiles, it is major."
            fi
        fi
    done < <(
        for tree in "$old" "$new"; do
            (cd "$tree/$1" && find . -name '*.h' -o -name '*.def' | cut -c3-)
        done | LC_ALL=C sort -u
    )
}

next_number() {
    local major minor patch
    IFS=. read -r major minor patch <<<"$1"
    case $level in
    2) echo "$((major + 1)).0.0" ;;
    1) echo "$major.$((minor + 1)).0" ;;
    0) echo "$major.$minor.$((patch + 1))" ;;
    esac
}

case ${1-} in
-*) sed -n '2,17s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
'')
    if ! base=$(git -C "$folder" describe --tags --abbrev=0 --match 'v*' 2>/dev/null); then
        echo "No version has been released: there is no tag v*. The next one is $(version_of "$folder")."
        exit
    fi
    ;;
*) base=$1 ;;
esac
command -v abidiff >/dev/null || {
    echo "abidiff is missing: install abigail-tools" >&2
    exit 2
}
old=$(tree_of "$base")
new=$(tree_of "${2-$folder}")

compare_library libzt_orvex tests/exports
compare_library libzt_orvex_kit kit/tests/exports
compare_headers include
compare_headers kit/include
number=$(version_of "$old")
echo "After $number comes $(next_number "$number"), a ${LEVELS[$level]} version."
exit $status
