#!/usr/bin/env bash
# clang 19 with the standard library of g++
PLATFORM_PACKAGES='
clang-19            the compiler
'
PLATFORM_OPTIONS=(-D CMAKE_BUILD_TYPE=Release -D CMAKE_CXX_COMPILER=clang++-19)
