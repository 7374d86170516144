#!/usr/bin/env bash
# g++ 12 for processors with AVX2 and without, under qemu
PLATFORM_PACKAGES='
qemu-user-static    is such a processor
'
PLATFORM_OPTIONS=(-D CMAKE_BUILD_TYPE=Release)
PLATFORM_TARGETS=(flow_tests analysis_tests platform_probe)

# The sets are combined by blocks where the processor has AVX2, and else word by word. The emulator is
# slow, so the random tests run fewer rounds.
test_platform() {
    local processor program
    for processor in Nehalem SandyBridge Haswell; do
        echo "== A processor such as $processor"
        for program in flow_tests analysis_tests; do
            ZT_ORVEX_TEST_ROUNDS=20 qemu-x86_64-static -cpu "$processor" "$platform_dir/bin/$program" \
                --gtest_brief=1
        done
    done
    ctest --test-dir "$platform_dir" --output-on-failure -R '^Platform[.]'
}
