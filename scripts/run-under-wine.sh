#!/usr/bin/env bash
# Runs a program for Windows. The toolchain file mingw-w64.cmake names this as the emulator.
#
# usage: scripts/run-under-wine.sh PROGRAM ARGUMENT...
#
# The program finds the DLLs of the compiler, those beside itself, and those in the folders that WINEPATH
# names already.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib/wine.sh"

folder_of_dll() {
    dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name="$1")"
}

for dll in libstdc++-6.dll libwinpthread-1.dll; do
    WINEPATH="${WINEPATH:+$WINEPATH;}Z:$(folder_of_dll "$dll")"
done
export WINEPATH
exec "$(wine_tool wine64)" "$@"
