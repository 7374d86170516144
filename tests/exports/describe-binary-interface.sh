#!/usr/bin/env bash
# describe-binary-interface.sh LIBRARY: prints, as XML for abidiff, the layouts of the classes that
# consumers see, their virtual functions in order, and the exported functions.
#
# The library must have debug information. Nothing in the output depends on the machine; a class of
# the standard library or of Boost is there with its name and size alone.
set -euo pipefail
folder=$(dirname "${BASH_SOURCE[0]}")

abidw --exported-interfaces-only --type-id-style hash --no-parameter-names --no-show-locs \
    --no-corpus-path --no-comp-dir-path --no-elf-needed --no-write-default-sizes "$1" |
    python3 "$folder/prune_description.py" zt ConvertibleBasicStringView
