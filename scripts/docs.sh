#!/usr/bin/env bash
# Builds the reference of both libraries, in build/docs, on a fresh Debian 12. Fails if a public symbol
# has no documentation or a link leads nowhere.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/packages.sh

ensure_packages "$DOCS_PACKAGES"
echo "== Building the reference"
python3 scripts/reference/build.py build/docs
echo "The reference begins at $PWD/build/docs/html/index.html"
