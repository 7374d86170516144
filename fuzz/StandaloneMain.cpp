// Runs a fuzzer without a fuzzing engine.
//
//   X_standalone [--bytes TEXT] [--seed N] [--rounds N]   on random inputs
//   X_standalone FILE...                                  on the given files
//
// Half of the random inputs draw from all bytes uniformly; the other half draw from zeros and the
// bytes of TEXT, so that the bytes that matter to the fuzzer meet often.
#include "testing/Random.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using zt::orvex::testing::Random;
using Bytes = std::vector<std::uint8_t>;

struct Options {
    Bytes bytes{0, 0, 0, 0};
    unsigned long seed = 1;
    unsigned long rounds = 50000;
};

void fill(Bytes& input, const Bytes& from, Random& random) {
    for (std::uint8_t& byte : input)
        byte = random.pick(from);
}

void runOnRandomInputs(const Options& options) {
    std::printf("seed %lu, %lu rounds\n", options.seed, options.rounds);
    std::fflush(stdout);

    Bytes all;
    for (unsigned byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<std::uint8_t>(byte));
    Random random(options.seed);
    for (unsigned long round = 0; round < options.rounds; ++round) {
        Bytes input(random.below(64));
        fill(input, round % 2 == 0 ? options.bytes : all, random);
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
}

bool runOnFile(const char* name) {
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "cannot read %s\n", name);
        return false;
    }
    const Bytes input((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(input.data(), input.size());
    return true;
}

/// Whether `name` is an option; if so, sets it to `value`.
bool takeOption(Options& options, const char* name, const char* value) {
    if (std::strcmp(name, "--bytes") == 0)
        options.bytes.insert(options.bytes.end(), value, value + std::strlen(value));
    else if (std::strcmp(name, "--seed") == 0)
        options.seed = std::strtoul(value, nullptr, 10);
    else if (std::strcmp(name, "--rounds") == 0)
        options.rounds = std::strtoul(value, nullptr, 10);
    else
        return false;
    return true;
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    int next = 1;
    while (next + 1 < argc && takeOption(options, argv[next], argv[next + 1]))
        next += 2;
    if (next == argc) runOnRandomInputs(options);

    bool isRead = true;
    for (; next < argc; ++next)
        isRead = runOnFile(argv[next]) && isRead;
    return isRead ? 0 : 1;
}
