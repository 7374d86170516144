#!/usr/bin/env bash
# static libraries in place of the shared ones
PLATFORM_OPTIONS=(-D CMAKE_BUILD_TYPE=Release -D BUILD_SHARED_LIBS=OFF)
