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
#   PLATFORM_TARGETS    optional: what to build, an array; everything if it is empty
#   test_platform       optional: what to run instead of all tests
# $name is the name that was asked for. LEVEL and STANDARD in the name of a file stand for a number.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/packages.sh
. scripts/lib/build.sh
. scripts/lib/foreign.sh

# The file that describes the platform of that name, if there is one.
platform_file() {
    local file pattern
    for file in scripts/platforms/*.sh; do
        pattern=$(basename "$file" .sh | sed -E 's/[+.]/\\&/g; s/(LEVEL|STANDARD)/[0-9]+/g')
        if [[ $1 =~ ^$pattern$ ]]; then
            echo "$file"
        fi
    done
}

list_platforms() {
    local file
    for file in scripts/platforms/*.sh; do
        # The second line of each says in a few words what it is.
        printf '%-28s %s\n' "$(basename "$file" .sh)" "$(sed -n '2s/^# //p' "$file")"
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
file=$(platform_file "$name")
if [ $# -ne 1 ] || [ -z "$file" ]; then
    echo "usage: scripts/platform.sh NAME, where NAME is one of" >&2
    list_platforms >&2
    exit 2
fi

platform_dir=$PWD/build/platform/$name
PLATFORM_PACKAGES=
PLATFORM_OPTIONS=()
PLATFORM_TARGETS=()
. "$file"

ensure_packages "$BUILD_PACKAGES$PLATFORM_PACKAGES"
mkdir -p "$platform_dir"
prepare_platform
echo "== Configuring $name"
cmake -S . -B "$platform_dir" -G Ninja -D ZT_ORVEX_DEVELOPER_MODE=ON "${PLATFORM_OPTIONS[@]}"
echo "== Building $name"
cmake --build "$platform_dir" --parallel "$(job_count)" \
    ${PLATFORM_TARGETS[0]:+--target "${PLATFORM_TARGETS[@]}"}
echo "== Testing $name"
test_platform
