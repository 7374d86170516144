# Sourced by files in scripts/platforms: what the platforms have in common that are Linux on another processor,
# compiled by Debian's cross compiler and tried under qemu.

# describe_emulated_linux PROCESSOR ARCHITECTURE: describes the platform, where Debian may have another
# name for the processor.
describe_emulated_linux() {
    processor=$1
    architecture=$2
    PLATFORM_PACKAGES="
g++-$processor-linux-gnu  the compiler
qemu-user-static       runs what it compiles
googletest             the sources of GoogleTest, to be compiled for this platform
"
    # All libraries of the platform, where its toolchain file has CMake look for them.
    PLATFORM_OPTIONS=(
        -D CMAKE_BUILD_TYPE=Release
        -D ZT_ORVEX_TEST_FLAGS=-O1 # compiles faster; what is tested is optimised
        -D "CMAKE_TOOLCHAIN_FILE=$PWD/cmake/toolchains/$processor.cmake"
        -D "CMAKE_FIND_ROOT_PATH=$platform_dir/root"
    )
}

prepare_platform() {
    unpack_packages "$platform_dir/root" "$architecture" \
        libtbb12 libtbbbind-2-5 libtbbmalloc2 libtbb-dev libutf8proc2 libutf8proc-dev
    copy_headers "$platform_dir/root/usr"
    build_googletest "$platform_dir/root/usr" "${PLATFORM_OPTIONS[@]}"
}
