#!/usr/bin/env bash
# Linux on 64-bit ARM, under qemu
PLATFORM_PACKAGES='
g++-aarch64-linux-gnu  the compiler
qemu-user-static       runs what it compiles
googletest             the sources of GoogleTest, to be compiled for this platform
'
PLATFORM_OPTIONS=(
    -D CMAKE_BUILD_TYPE=Release
    -D "CMAKE_TOOLCHAIN_FILE=$PWD/cmake/toolchains/aarch64.cmake"
    -D "CMAKE_PREFIX_PATH=$platform_dir/prefix;$platform_dir/root/usr"
)

prepare_platform() {
    unpack_packages "$platform_dir/root" arm64 libtbb12 libtbbmalloc2 libtbb-dev libutf8proc2 libutf8proc-dev
    copy_headers "$platform_dir/prefix"
    build_googletest "$platform_dir/prefix" \
        -D "CMAKE_TOOLCHAIN_FILE=$PWD/cmake/toolchains/aarch64.cmake"
}
