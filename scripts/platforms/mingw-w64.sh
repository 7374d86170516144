#!/usr/bin/env bash
# 64-bit Windows by mingw-w64, under wine
. scripts/lib/wine.sh
PLATFORM_PACKAGES='
g++-mingw-w64-x86-64-posix  the compiler
wine64                      runs what it compiles
googletest                  the sources of GoogleTest, to be compiled for this platform
'
PLATFORM_OPTIONS=(
    -D CMAKE_BUILD_TYPE=Release
    -D ZT_ORVEX_TEST_FLAGS=-O0 # compiles in half the time; what is tested is optimised
    -D "CMAKE_TOOLCHAIN_FILE=$PWD/cmake/toolchains/mingw-w64.cmake"
    -D "CMAKE_FIND_ROOT_PATH=$platform_dir/root"
)

# build_dependency FOLDER PACKAGE OPTION...: builds the source of a Debian package, which has none for
# Windows, and installs it into FOLDER.
build_dependency() {
    local folder=$1 package=$2
    local source=$folder.$package
    shift 2
    [ ! -e "$source.complete" ] || return 0
    unpack_source "$source" "$package"
    echo "== Building $package"
    cmake -S "$source" -B "$source.build" -G Ninja "${PLATFORM_OPTIONS[@]}" \
        -D BUILD_SHARED_LIBS=ON -D "CMAKE_INSTALL_PREFIX=$folder" "$@"
    cmake --build "$source.build" --parallel "$(job_count)"
    cmake --install "$source.build"
    touch "$source.complete"
}

prepare_platform() {
    local root=$platform_dir/root
    copy_headers "$root"
    build_googletest "$root" "${PLATFORM_OPTIONS[@]}"
    build_dependency "$root" utf8proc
    build_dependency "$root" onetbb -D TBB_TEST=OFF -D TBB_STRICT=OFF -D TBBMALLOC_BUILD=OFF
    # Beside the programs, where Windows looks first.
    mkdir -p "$platform_dir/bin"
    cp "$root"/bin/*.dll "$platform_dir/bin/"
    keep_wine_running
}
