#!/usr/bin/env bash
# Builds everything for one platform and runs the tests there, in build/platform/NAME. Installs what
# is missing first.
#
# usage: scripts/platform.sh NAME
#        scripts/platform.sh --list
#
# Each file in scripts/platforms describes a platform:
#   PLATFORM_PACKAGES   the Debian packages that it takes beside those of every build
#   PLATFORM_OPTIONS    what CMake is configured with, an array
#   prepare_platform    optional: a function that makes what no package installs, in $platform_dir
#   test_platform       optional: what to run instead of all tests
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/packages.sh
. scripts/lib/build.sh
. scripts/lib/foreign.sh

list_platforms() {
    local file
    for file in scripts/platforms/*.sh; do
        # The second line of each says in a few words what it is.
        printf '%-22s %s\n' "$(basename "$file" .sh)" "$(sed -n '2s/^# //p' "$file")"
    done
}

prepare_platform() {
    :
}

test_platform() {
    ctest --test-dir "$platform_dir" --output-on-failure --parallel "$(job_count)"
}

if [ "${1:-}" = --list ]; then
    list_platforms
    exit
fi
name=${1:-}
if [ $# -ne 1 ] || [ ! -f "scripts/platforms/$name.sh" ]; then
    echo "usage: scripts/platform.sh NAME, where NAME is one of" >&2
    list_platforms >&2
    exit 2
fi

platform_dir=$PWD/build/platform/$name
PLATFORM_PACKAGES=
PLATFORM_OPTIONS=()
. "scripts/platforms/$name.sh"

ensure_packages "$BUILD_PACKAGES$PLATFORM_PACKAGES"
mkdir -p "$platform_dir"
prepare_platform
echo "== Configuring $name"
cmake -S . -B "$platform_dir" -G Ninja -D ZT_ORVEX_DEVELOPER_MODE=ON "${PLATFORM_OPTIONS[@]}"
echo "== Building $name"
cmake --build "$platform_dir" --parallel "$(job_count)"
echo "== Testing $name"
test_platform
