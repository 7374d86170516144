#!/usr/bin/env bash
# check-next-version.sh VERSION OLD_LIBRARY NEW_LIBRARY [OLD_HEADER NEW_HEADER]: fails unless
# scripts/next-version.sh says that VERSION comes after 1.2.3, or refuses the change if VERSION is
# "refused". The headers are text; an empty one isn't there.
set -euo pipefail
exports=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# describe FOLDER LIBRARY: what is checked in about a library.
describe() {
    mkdir -p "$1"
    "$exports/list-exported-symbols.sh" "$2" >"$1/exported_symbols.txt"
    "$exports/describe-binary-interface.sh" "$2" >"$1/binary_interface.xml"
}

# make_tree FOLDER DESCRIPTION HEADER: what the script reads of a source tree. The second library is
# the same in both trees.
make_tree() {
    mkdir -p "$1"/{tests,kit/tests,include,kit/include}
    printf 'project(sample\n    VERSION 1.2.3\n    LANGUAGES CXX)\n' >"$1/CMakeLists.txt"
    cp -r "$2" "$1/tests/exports"
    cp -r "$work/description" "$1/kit/tests/exports"
    [ -z "$3" ] || printf '%s\n' "$3" >"$1/include/sample.h"
}

describe "$work/description" "$2"
make_tree "$work/old" "$work/description" "${4-}"
if [ "$2" != "$3" ]; then
    describe "$work/changed" "$3"
    make_tree "$work/new" "$work/changed" "${5-}"
else
    make_tree "$work/new" "$work/description" "${5-}"
fi
status=0
output=$("$exports/../../scripts/next-version.sh" "$work/old" "$work/new" 2>&1) || status=$?
echo "$output"
if [ "$1" = refused ]; then
    [ $status -eq 1 ] && [[ $output == *"give them one of their own in the map"*"countTwice"* ]]
else
    [ $status -eq 0 ] && [[ $output == *"After 1.2.3 comes $1, "* ]]
fi
