#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zt::orvex::flow::internal {

// Words of a bit set in registers: one as it is, or four.

/// A vector register that every target has, or is given.
using WordPair = std::uint64_t __attribute__((vector_size(16)));

/// Two registers. A vector of four words would do with less text, but compilers keep it in memory
/// where registers are narrower: solving takes a fifth less time at 256 variables with these.
struct FourWords {
    WordPair low;
    WordPair high;

    friend FourWords operator|(const FourWords& a, const FourWords& b) {
        return {a.low | b.low, a.high | b.high};
    }
    friend FourWords operator&(const FourWords& a, const FourWords& b) {
        return {a.low & b.low, a.high & b.high};
    }
    friend FourWords operator^(const FourWords& a, const FourWords& b) {
        return {a.low ^ b.low, a.high ^ b.high};
    }
    friend FourWords operator~(const FourWords& a) { return {~a.low, ~a.high}; }
};

template <typename Block>
constexpr std::size_t WORDS_OF = sizeof(Block) / sizeof(std::uint64_t);

inline void load(std::uint64_t& block, const std::uint64_t* words) { block = *words; }
inline void store(std::uint64_t* words, std::uint64_t block) { *words = block; }

// Half by half: a copy of the whole would pass through memory.
inline void load(FourWords& block, const std::uint64_t* words) {
    std::memcpy(&block.low, words, sizeof block.low);
    std::memcpy(&block.high, words + WORDS_OF<WordPair>, sizeof block.high);
}
inline void store(std::uint64_t* words, const FourWords& block) {
    std::memcpy(words, &block.low, sizeof block.low);
    std::memcpy(words + WORDS_OF<WordPair>, &block.high, sizeof block.high);
}

template <typename Block>
Block loaded(const std::uint64_t* words) {
    Block block;
    load(block, words);
    return block;
}

inline bool hasBits(std::uint64_t word) { return word != 0; }
inline bool hasBits(const FourWords& block) {
    const WordPair both = block.low | block.high;
    return (both[0] | both[1]) != 0;
}

} // namespace zt::orvex::flow::internal
