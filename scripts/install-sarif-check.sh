#!/usr/bin/env bash
# Installs what the test of the SARIF report checks it with, the schema and a validator, in
# build/sarif-check. Without it, the test skips.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/packages.sh

command -v npm >/dev/null || ensure_packages "$NODE_PACKAGES"
source=tests/examples/report/sarif
folder=build/sarif-check
mkdir -p "$folder"
cp "$source/package.json" "$source/package-lock.json" "$source/.npmrc" "$folder"
npm ci --prefix "$folder" --ignore-scripts
