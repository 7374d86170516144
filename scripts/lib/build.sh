# Sourced by the scripts in the parent folder: configures, builds and tests a preset.

# How many jobs to run at a time: one for each processor, but no more than there are gigabytes of
# memory, since the tests and the optimised templates need that much.
job_count() {
    local processors memory_kib by_memory
    processors=$(nproc)
    memory_kib=$(awk '/^MemAvailable:/ { print $2 }' /proc/meminfo)
    by_memory=$((memory_kib / 1048576))
    [ "$by_memory" -ge 1 ] || by_memory=1
    echo $((processors < by_memory ? processors : by_memory))
}

# build_preset PRESET [TARGET...]: builds, from the root of the tree, all targets if none is named.
build_preset() {
    local preset=$1
    shift
    echo "== Configuring the preset $preset"
    cmake --preset "$preset"
    echo "== Building the preset $preset"
    if [ $# -gt 0 ]; then
        cmake --build --preset "$preset" --parallel "$(job_count)" --target "$@"
    else
        cmake --build --preset "$preset" --parallel "$(job_count)"
    fi
}

# test_preset PRESET: runs all tests of what build_preset has built.
test_preset() {
    echo "== Testing the preset $1"
    ctest --preset "$1" --parallel "$(job_count)"
}
