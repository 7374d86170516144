// Runs a fuzzer without a fuzzing engine.
//
//   X_standalone [--bytes TEXT] [--length N] [--seed N] [--rounds N]   on random inputs
//   X_standalone PATH...             on the given files, and on each file of the given folders
//
// Random inputs have at most --length bytes. A sanitizer makes them a tenth as many.
// Half of the random inputs draw from all bytes uniformly; the other half draw from zeros and the
// bytes of TEXT, so that the bytes that matter to the fuzzer meet often.
#include "testing/Random.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using zt::orvex::testing::Random;
using Bytes = std::vector<std::uint8_t>;

struct Options {
    Bytes bytes{0, 0, 0, 0};
    unsigned long length = 64;
    unsigned long seed = 1;
    unsigned long rounds = 50000;
};

void fill(Bytes& input, const Bytes& from, Random& random) {
    for (std::uint8_t& byte : input)
        byte = random.pick(from);
}

void runOnRandomInputs(const Options& options) {
    const std::size_t rounds = zt::orvex::testing::rounds(options.rounds);
    std::printf("seed %lu, %zu rounds\n", options.seed, rounds);
    std::fflush(stdout);

    Bytes all;
    for (unsigned byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<std::uint8_t>(byte));
    Random random(options.seed);
    for (std::size_t round = 0; round < rounds; ++round) {
        Bytes input(random.below(options.length + 1));
        fill(input, round % 2 == 0 ? options.bytes : all, random);
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
}

bool runOnFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "cannot read %s\n", path.string().c_str());
        return false;
    }
    const Bytes input((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(input.data(), input.size());
    return true;
}

/// A folder without a file is a mistake: nothing would run.
bool runOnFolder(const std::filesystem::path& path) {
    std::size_t files = 0;
    bool isRead = true;
    for (const auto& entry : std::filesystem::directory_iterator(path)) {
        isRead = runOnFile(entry.path()) && isRead;
        ++files;
    }
    std::printf("%zu files in %s\n", files, path.string().c_str());
    return isRead && files > 0;
}

bool runOnPath(const std::filesystem::path& path) {
    return std::filesystem::is_directory(path) ? runOnFolder(path) : runOnFile(path);
}

/// Whether `name` is an option; if so, sets it to `value`.
bool takeOption(Options& options, const char* name, const char* value) {
    if (std::strcmp(name, "--bytes") == 0)
        options.bytes.insert(options.bytes.end(), value, value + std::strlen(value));
    else if (std::strcmp(name, "--length") == 0)
        options.length = std::strtoul(value, nullptr, 10);
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
        isRead = runOnPath(argv[next]) && isRead;
    return isRead ? 0 : 1;
}
