#!/usr/bin/env bash
# Writes the lists of exported symbols and the description of the binary interface in tests/exports
# and kit/tests/exports anew, from the libraries of the preset release. Read the difference before you commit it: a line
# that went or changed breaks consumers.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/build.sh

build_preset release zt_orvex zt_orvex_described zt_orvex_kit
folder=tests/exports
written=build/release
$folder/list-exported-symbols.sh $written/lib/libzt_orvex.so >$written/exported_symbols.txt
$folder/describe-binary-interface.sh $written/$folder/libzt_orvex.so >$written/binary_interface.xml
mv $written/exported_symbols.txt $written/binary_interface.xml $folder
kit_list=kit/tests/exports/exported_symbols.txt
$folder/list-exported-symbols.sh $written/lib/libzt_orvex_kit.so >$written/kit_symbols.txt
mv $written/kit_symbols.txt $kit_list
git --no-pager diff --stat -- $folder $kit_list
