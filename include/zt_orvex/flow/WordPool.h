#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

namespace zt::orvex::flow::internal {

/// Hands out arrays of 64-bit words from large blocks, and frees them all at once.
///
/// An array is never given back singly. The pool must outlive every user of its words.
class WordPool {
public:
    WordPool() = default;
    WordPool(const WordPool&) = delete;
    WordPool& operator=(const WordPool&) = delete;

    /// An array of `count` words of any content, from a cache line's begin if it takes two lines or
    /// more: what is loaded from across two lines is loaded twice. Solving takes a tenth less time
    /// at 4,096 variables. Cost: a subtraction, or a new block.
    std::uint64_t* allocate(std::size_t count) {
        if (count >= LONG) skip(wordsToNextLine());
        if (count > left) startBlock(count);
        std::uint64_t* const words = next;
        skip(count);
        return words;
    }

    /// An array of elements that take a word each, constructed.
    template <typename Element>
    Element* allocateArray(std::size_t count) {
        static_assert(sizeof(Element) == sizeof(std::uint64_t) &&
                      std::is_trivially_destructible_v<Element>);
        auto* const array = reinterpret_cast<Element*>(allocate(count));
        std::uninitialized_value_construct_n(array, count);
        return array;
    }

private:
    void startBlock(std::size_t count) {
        const std::size_t size = std::max(count + LINE, blockSize);
        blocks.emplace_back(new std::uint64_t[size]);
        next = blocks.back().get();
        left = size;
        skip(wordsToNextLine());
        blockSize = std::min(2 * blockSize, LARGEST_BLOCK);
    }

    /// Leaves out `count` words, or what the block has.
    void skip(std::size_t count) {
        count = std::min(count, left);
        next += count;
        left -= count;
    }

    std::size_t wordsToNextLine() const {
        return (0 - reinterpret_cast<std::uintptr_t>(next) / sizeof(std::uint64_t)) % LINE;
    }

    static constexpr std::size_t LINE = 8; // words
    static constexpr std::size_t LONG = 2 * LINE;
    static constexpr std::size_t FIRST_BLOCK = 256;
    static constexpr std::size_t LARGEST_BLOCK = 8192; // 64 KiB: little is lost in the last block

    std::vector<std::unique_ptr<std::uint64_t[]>> blocks;
    std::uint64_t* next = nullptr;
    std::size_t left = 0;
    std::size_t blockSize = FIRST_BLOCK;
};

} // namespace zt::orvex::flow::internal
