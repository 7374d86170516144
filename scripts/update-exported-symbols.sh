#!/usr/bin/env bash
# Writes tests/exports/exported_symbols.txt anew, from the library of the preset release. Read the
# difference before committing it: a line that goes breaks consumers.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/build.sh

build_preset release zt_orvex
tests/exports/list-exported-symbols.sh build/release/lib/libzt_orvex.so \
    >build/release/exported_symbols.txt
mv build/release/exported_symbols.txt tests/exports/exported_symbols.txt
git --no-pager diff --stat -- tests/exports/exported_symbols.txt
