#!/usr/bin/env bash
# Builds the example consumer on a fresh Debian 12 and prints its report of the example programs.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/packages.sh
. scripts/lib/build.sh

ensure_packages "$BUILD_PACKAGES"
build_preset release orvex-report
echo "== Reporting on examples/programs"
status=0
build/release/bin/orvex-report examples/programs/*.ost || status=$?
# Status 1 means that a program has errors; one of the examples is there to show that.
[ "$status" -le 1 ] || exit "$status"
