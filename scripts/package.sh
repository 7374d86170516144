#!/usr/bin/env bash
# Makes Debian's packages of the libraries and the programs, in build/package.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/packages.sh
. scripts/lib/build.sh

ensure_packages "$BUILD_PACKAGES$DEBIAN_PACKAGES"
# The same tree gives the same packages: the time in them is that of the last commit.
if [ -z "${SOURCE_DATE_EPOCH-}" ] && time_of_commit=$(git log -1 --format=%ct 2>/dev/null); then
    export SOURCE_DATE_EPOCH=$time_of_commit
fi
rm -f build/package/*.deb
build_preset package all
cmake --build --preset package --target package
