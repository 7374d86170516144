#!/usr/bin/env bash
# Compiles a consumer with the headers of other versions of Boost, links it to the library of the
# preset release, which was compiled with the installed version, and runs it.
#
# usage: scripts/test-boost-versions.sh [VERSION|FOLDER...]
#
# A VERSION is a number such as 1.74, which is taken when nothing is given: its headers are unpacked
# from the package of the Debian release that apt is set up for into build/boost, and nothing is
# installed. A FOLDER has the headers of any other version, so that it holds boost/version.hpp.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/build.sh

versions=("${@:-1.74}")
folder=$PWD/build/boost
library=$PWD/build/release/lib

# fetch VERSION: unpacks the headers into build/boost/VERSION.
fetch() {
    [ ! -e "$folder/$1/usr/include/boost/version.hpp" ] || return 0
    mkdir -p "$folder/$1"
    (
        cd "$folder"
        rm -f "libboost$1-dev"_*.deb
        apt-get download "libboost$1-dev"
        dpkg -x "libboost$1-dev"_*.deb "$1"
    )
}

build_preset release zt_orvex
for version in "${versions[@]}"; do
    case $version in
    */*) headers=$version ;;
    *) fetch "$version" && headers=$folder/$version/usr/include ;;
    esac
    name=$(sed -n 's/^#define BOOST_LIB_VERSION "\(.*\)"/\1/p' "$headers/boost/version.hpp")
    echo "== Boost $name"
    mkdir -p "$folder"
    for compiler in g++ clang++; do
        command -v "$compiler" >/dev/null || continue
        "$compiler" -std=c++17 -O1 -isystem "$headers" -I include -I tests/install/consumer \
            tests/install/boost/main.cpp -o "$folder/consumer" \
            -L "$library" -lzt_orvex "-Wl,-rpath,$library"
        printf '%s: ' "$compiler"
        "$folder/consumer" | tee "$folder/output"
        grep --quiet "^Boost $name: " "$folder/output"
    done
done
