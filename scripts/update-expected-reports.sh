#!/usr/bin/env bash
# Writes the expected reports on the example programs anew, with the program of the preset release.
# Read the difference before you commit it.
#
# The style sheet and the script of a page are left out: they are the same in all pages.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/build.sh

build_preset release orvex-report
report=$PWD/build/release/bin/orvex-report

# write_reports FOLDER: in its folder `expected`. A program with errors has a report, too.
write_reports() {
    cd "$1"
    local program name
    for program in *.ost; do
        name=expected/${program%.ost}
        "$report" --format text "$program" >"$name.txt" || [ $? -eq 1 ]
        "$report" --format json "$program" >"$name.json" || [ $? -eq 1 ]
        "$report" --format sarif "$program" >"$name.sarif" || [ $? -eq 1 ]
        { "$report" --format html "$program" || [ $? -eq 1 ]; } |
            sed -e '/^<style>$/,/^<\/style>$/{//!d}' -e '/^<script>$/,/^<\/script>$/{//!d}' \
                >"$name.html"
    done
    cd - >/dev/null
}

write_reports examples/programs
write_reports examples/programs/remarks
git --no-pager diff --stat -- examples/programs
