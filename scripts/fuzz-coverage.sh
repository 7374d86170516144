#!/usr/bin/env bash
# Prints the lines of the library that no fuzzer reaches, with its seeds and the inputs that
# scripts/fuzz.sh has kept in build/fuzz/corpus, and at the end how many there are.
#
# usage: scripts/fuzz-coverage.sh [FOLDER...]     (src include)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/packages.sh
. scripts/lib/build.sh

ensure_packages '
clang-14            whose coverage is read
libclang-rt-14-dev  counts the lines
llvm-14             reads what it counted
'
build_preset fuzz-coverage
BUILD=build/fuzz-coverage
PROFILES=$BUILD/profiles
rm -rf "$PROFILES"
mkdir -p "$PROFILES"

objects=()
for program in "$BUILD"/bin/*_fuzzer_standalone; do
    name=$(basename "$program" _standalone)
    folders=(fuzz/*/seeds/"$name")
    if [ -n "$(ls "build/fuzz/corpus/$name" 2>/dev/null)" ]; then
        folders+=("build/fuzz/corpus/$name")
    fi
    LLVM_PROFILE_FILE=$PROFILES/$name "$program" "${folders[@]}" >/dev/null
    objects+=(-object "$program")
done
llvm-profdata-14 merge -o "$BUILD/profile" "$PROFILES"/*

if [ $# -eq 0 ]; then set -- src include; fi
llvm-cov-14 export -format=lcov -instr-profile="$BUILD/profile" "$BUILD/lib/libzt_orvex.so" \
    "${objects[@]}" | python3 scripts/lib/unreached_lines.py "$@"
