#!/usr/bin/env bash
# Compiles a consumer with the headers of other versions of Boost, links it to the library of the
# preset release, which was compiled with the installed version, and runs it.
#
# usage: scripts/test-boost-versions.sh [VERSION...]
#
# The versions are numbers such as 1.74, which is taken when none is given. Their headers come from
# Debian's packages, of the system's own release or else of trixie (1.83, 1.88). They are unpacked into
# build/boost; nothing is installed.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/build.sh

versions=("${@:-1.74}")
folder=$PWD/build/boost
library=$PWD/build/release/lib

# Runs an apt tool on the packages of trixie, with lists and caches of its own.
of_trixie() {
    local tool=$1 state=$folder/trixie
    shift
    mkdir -p "$state/lists/partial" "$state/cache/archives/partial"
    echo "deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg]" \
        "http://deb.debian.org/debian trixie main" >"$state/sources.list"
    "$tool" -o "Dir::Etc::SourceList=$state/sources.list" -o Dir::Etc::SourceParts=- \
        -o "Dir::State::Lists=$state/lists" -o "Dir::Cache=$state/cache" "$@"
}

# fetch VERSION: unpacks the headers into build/boost/VERSION.
fetch() {
    local package=libboost$1-dev
    [ ! -e "$folder/$1/usr/include/boost/version.hpp" ] || return 0
    mkdir -p "$folder/$1"
    (
        cd "$folder"
        rm -f "$package"_*.deb
        if ! apt-get download "$package" 2>/dev/null; then
            of_trixie apt-get --quiet update
            of_trixie apt-get download "$package"
        fi
        dpkg -x "$package"_*.deb "$1"
    )
}

build_preset release zt_orvex
for version in "${versions[@]}"; do
    echo "== Boost $version"
    fetch "$version"
    for compiler in g++ clang++; do
        command -v "$compiler" >/dev/null || continue
        "$compiler" -std=c++17 -O1 -isystem "$folder/$version/usr/include" -I include \
            -I tests/install/consumer -I examples/base tests/install/boost/main.cpp \
            -o "$folder/consumer" -L "$library" -lzt_orvex "-Wl,-rpath,$library"
        printf '%s: ' "$compiler"
        "$folder/consumer" | tee "$folder/output"
        grep --quiet "^Boost ${version/./_}: " "$folder/output"
    done
done
