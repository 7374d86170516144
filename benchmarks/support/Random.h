#pragma once

#include <cstdint>

namespace zt::orvex::benchmarks {

/// A xorshift generator: the same numbers on every machine, so that all runs measure one input.
///
/// Deliberate: not the generator of the tests. A change to that one would change what the rows
/// measure, and no figure could be compared with an older one.
class Random {
public:
    explicit Random(std::uint64_t seed) : state(seed * 0x9e3779b97f4a7c15ull + 1) {}

    std::uint64_t next() {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return state;
    }
    std::uint32_t below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(((next() >> 32) * limit) >> 32);
    }

private:
    std::uint64_t state;
};

} // namespace zt::orvex::benchmarks
