# Linux on CMAKE_SYSTEM_PROCESSOR, compiled by Debian's cross compiler for it and tried under qemu.
# Included by the toolchain file of each processor.
#
# CMAKE_FIND_ROOT_PATH names the folder that has the libraries of that system, in usr/: nothing of
# this machine is searched for them.
set(CMAKE_SYSTEM_NAME Linux)
set(triplet ${CMAKE_SYSTEM_PROCESSOR}-linux-gnu)
set(CMAKE_C_COMPILER ${triplet}-gcc)
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${triplet})

# The C library is that of the cross compiler.
set(CMAKE_CROSSCOMPILING_EMULATOR "qemu-${CMAKE_SYSTEM_PROCESSOR}-static;-L;/usr/${triplet}")

include("${CMAKE_CURRENT_LIST_DIR}/foreign-roots.cmake")
if(CMAKE_FIND_ROOT_PATH)
    # pkg-config knows nothing of CMake's roots.
    list(GET CMAKE_FIND_ROOT_PATH 0 root)
    set(ENV{PKG_CONFIG_SYSROOT_DIR} "${root}")
    set(ENV{PKG_CONFIG_LIBDIR} "${root}/usr/lib/${triplet}/pkgconfig:${root}/usr/share/pkgconfig")
endif()
