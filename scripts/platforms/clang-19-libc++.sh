#!/usr/bin/env bash
# clang 19 with its own standard library
PLATFORM_PACKAGES='
clang-19            the compiler
libc++-19-dev       its standard library
libc++abi-19-dev    the runtime below it
googletest          the sources of GoogleTest, to be compiled with that library
'
# Optimised as little as lets the tests of frames pass: a build takes half as long as one with -O3.
PLATFORM_OPTIONS=(
    -D CMAKE_BUILD_TYPE=Release
    -D CMAKE_CXX_FLAGS_RELEASE=-O1
    -D ZT_ORVEX_TEST_FLAGS=-O0
    -D CMAKE_CXX_COMPILER=clang++-19
    -D CMAKE_CXX_FLAGS=-stdlib=libc++
    -D "CMAKE_PREFIX_PATH=$platform_dir/prefix"
)

prepare_platform() {
    build_googletest "$platform_dir/prefix" \
        -D CMAKE_CXX_COMPILER=clang++-19 -D CMAKE_CXX_FLAGS=-stdlib=libc++
}
