// Runs a fuzzer without a fuzzing engine: on the files that are named, or else on random inputs.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;

void runOnRandomInputs() {
    // Few different bytes, so that quotes and brackets meet.
    static constexpr std::uint8_t BYTES[] = {0, 0, 0, 0, '\'', '\'', '\'', '(', ')', '[', '}', 'x'};
    std::mt19937 random(1);
    for (int round = 0; round < 100000; ++round) {
        Bytes input(random() % 64);
        for (std::uint8_t& byte : input)
            byte = BYTES[random() % std::size(BYTES)];
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

} // namespace

int main(int argc, char** argv) {
    if (argc == 1) runOnRandomInputs();
    bool isRead = true;
    for (int i = 1; i < argc; ++i)
        isRead = runOnFile(argv[i]) && isRead;
    return isRead ? 0 : 1;
}
