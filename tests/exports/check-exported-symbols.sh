#!/usr/bin/env bash
# check-exported-symbols.sh LIBRARY LIST: fails, and shows the difference, unless the library exports
# exactly what is listed.
set -euo pipefail
folder=$(dirname "${BASH_SOURCE[0]}")

if ! diff --unified=0 "$2" <("$folder/list-exported-symbols.sh" "$1"); then
    echo "Lines with - are no longer exported, lines with + are new. If that is meant, run" >&2
    echo "scripts/update-exported-symbols.sh and say so in CHANGELOG.md." >&2
    exit 1
fi
