#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zt::orvex::flow::internal {

// Words of bit sets in registers: one, or a power of two of them. The operations are written out by
// recursion and not in loops, since compilers keep an array that a loop goes over in memory.

/// A vector register that every target has, or is given.
using WordPair = std::uint64_t __attribute__((vector_size(16)));

template <typename Half>
struct TwoBlocks {
    Half low;
    Half high;

    friend TwoBlocks operator|(const TwoBlocks& a, const TwoBlocks& b) {
        return {a.low | b.low, a.high | b.high};
    }
    friend TwoBlocks operator&(const TwoBlocks& a, const TwoBlocks& b) {
        return {a.low & b.low, a.high & b.high};
    }
    friend TwoBlocks operator^(const TwoBlocks& a, const TwoBlocks& b) {
        return {a.low ^ b.low, a.high ^ b.high};
    }
    friend TwoBlocks operator~(const TwoBlocks& a) { return {~a.low, ~a.high}; }
};

using FourWords = TwoBlocks<WordPair>;

template <typename Block>
constexpr std::size_t WORDS_OF = sizeof(Block) / sizeof(std::uint64_t);

template <typename Block>
struct BlockMemory {
    static Block load(const std::uint64_t* words) {
        Block block;
        std::memcpy(&block, words, sizeof block);
        return block;
    }
    static void store(std::uint64_t* words, const Block& block) {
        std::memcpy(words, &block, sizeof block);
    }
};

template <typename Half>
struct BlockMemory<TwoBlocks<Half>> {
    static TwoBlocks<Half> load(const std::uint64_t* words) {
        return {BlockMemory<Half>::load(words), BlockMemory<Half>::load(words + WORDS_OF<Half>)};
    }
    static void store(std::uint64_t* words, const TwoBlocks<Half>& block) {
        BlockMemory<Half>::store(words, block.low);
        BlockMemory<Half>::store(words + WORDS_OF<Half>, block.high);
    }
};

inline bool hasBits(std::uint64_t word) { return word != 0; }
inline bool hasBits(const WordPair& words) { return (words[0] | words[1]) != 0; }
template <typename Half>
bool hasBits(const TwoBlocks<Half>& block) {
    return hasBits(block.low | block.high);
}

} // namespace zt::orvex::flow::internal
