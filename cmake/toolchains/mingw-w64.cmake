# 64-bit Windows, compiled by Debian's mingw-w64 and tried under wine.
#
# CMAKE_FIND_ROOT_PATH names the folder that has the libraries for it: nothing of this machine is
# searched for them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
# Of the two builds of the compiler, the one whose standard library has threads.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../../scripts/run-under-wine.sh")

include("${CMAKE_CURRENT_LIST_DIR}/foreign-roots.cmake")
if(CMAKE_FIND_ROOT_PATH)
    # pkg-config knows nothing of CMake's roots.
    list(GET CMAKE_FIND_ROOT_PATH 0 root)
    set(ENV{PKG_CONFIG_LIBDIR} "${root}/lib/pkgconfig")
endif()
