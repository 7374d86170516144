#!/usr/bin/env bash
# g++ 12 with -O0 to -O3 and C++17, 20 or 23, such as gcc-O2-c++20
if ! [[ $name =~ ^gcc-O([0-3])-c\+\+(17|20|23)$ ]]; then
    echo "$name: the level is 0, 1, 2 or 3, and the standard 17, 20 or 23" >&2
    exit 2
fi
PLATFORM_OPTIONS=(
    -D CMAKE_BUILD_TYPE=Release
    -D CMAKE_CXX_COMPILER=g++
    -D "CMAKE_CXX_FLAGS_RELEASE=-O${BASH_REMATCH[1]} -DNDEBUG"
    -D "CMAKE_CXX_STANDARD=${BASH_REMATCH[2]}"
)
