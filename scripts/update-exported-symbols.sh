#!/usr/bin/env bash
# Writes the lists of exported symbols and the descriptions of the binary interfaces in tests/exports
# and kit/tests/exports anew, from the libraries of the preset release. Read the difference before you
# commit it: a line that went or changed breaks consumers.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/build.sh

# update LIBRARY FOLDER
update() {
    local written=build/release library=$1 folder=$2
    tests/exports/list-exported-symbols.sh "$written/lib/$library.so" >"$written/exported_symbols.txt"
    tests/exports/describe-binary-interface.sh "$written/$folder/$library.so" \
        >"$written/binary_interface.xml"
    mv "$written/exported_symbols.txt" "$written/binary_interface.xml" "$folder"
}

build_preset release zt_orvex zt_orvex_described zt_orvex_kit zt_orvex_kit_described
update libzt_orvex tests/exports
update libzt_orvex_kit kit/tests/exports
git --no-pager diff --stat -- tests/exports kit/tests/exports
