#!/usr/bin/env bash
# Measures how much memory the library takes, how deep it goes and what it settles, and rewrites the
# tables of docs/limits.md between its two markers. Builds the preset release; takes a minute.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/build.sh

page=docs/limits.md
build_preset release measure_limits
tables=$(mktemp)
trap 'rm -f "$tables"' EXIT
build/release/bin/measure_limits >"$tables"
awk -v tables="$tables" '
    /^<!-- end: / { while ((getline line <tables) > 0) print line; print ""; skip = 0 }
    !skip { print }
    /^<!-- begin: / { skip = 1 }
' "$page" >"$page.new"
mv "$page.new" "$page"
echo "== Rewrote the tables of $page"
