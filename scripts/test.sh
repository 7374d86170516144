#!/usr/bin/env bash
# Builds everything on a fresh Debian 12 and runs all tests.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/packages.sh
. scripts/lib/build.sh

ensure_packages "$BUILD_PACKAGES"
build_preset release
test_preset release
