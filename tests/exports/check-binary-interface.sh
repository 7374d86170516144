#!/usr/bin/env bash
# check-binary-interface.sh LIBRARY DESCRIPTION: fails, and shows the difference, unless the library's
# binary interface is the one described.
set -euo pipefail
folder=$(dirname "${BASH_SOURCE[0]}")
actual=$(mktemp --suffix=.xml)
trap 'rm -f "$actual"' EXIT

"$folder/describe-binary-interface.sh" "$1" >"$actual"
if ! abidiff "$2" "$actual"; then
    echo "A consumer that was compiled before this change would misbehave. If it is meant, run" >&2
    echo "scripts/update-exported-symbols.sh and say so in CHANGELOG.md." >&2
    exit 1
fi
