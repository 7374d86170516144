#pragma once

#include <zt_orvex/flow/BitSet.h>

#include <cstddef>
#include <cstdint>
#include <memory_resource>

namespace zt::orvex::flow::internal {

/// What evaluators and analyses may do with a set beyond its interface. Nothing is checked.
struct BitSetAccess {
    template <typename T>
    static std::uint64_t* words(BitSet<T>& set) {
        return set.words;
    }
    template <typename T>
    static const std::uint64_t* words(const BitSet<T>& set) {
        return set.words;
    }

    template <typename T>
    static const OrderedSet<T>* universe(const BitSet<T>& set) {
        return set.universe;
    }

    /// Makes the element of this index, which is below `bitCount()`, a member.
    template <typename T>
    static void addIndex(BitSet<T>& set, std::uint64_t index) {
        set.addIndex(index);
    }

    /// A copy of `set`, which grows, with its words in `memory`. They are never given back to it, so
    /// it must free them all at once, after the copy has gone.
    template <typename T>
    static BitSet<T> copyIn(std::pmr::memory_resource& memory, const BitSet<T>& set) {
        const std::uint64_t count = set.grownWordCount();
        return BitSet<T>(set, allocateWords(memory, count), BitSet<T>::BORROWED);
    }

private:
    /// Long arrays begin at a cache line: what is loaded from across two lines is loaded twice. The
    /// row "solve alone, nested, V 4096" shows it.
    static std::uint64_t* allocateWords(std::pmr::memory_resource& memory, std::uint64_t count) {
        constexpr std::uint64_t LONG = 16;
        constexpr std::size_t CACHE_LINE = 64; // bytes
        return static_cast<std::uint64_t*>(memory.allocate(
            count * sizeof(std::uint64_t), count < LONG ? alignof(std::uint64_t) : CACHE_LINE));
    }
};

/// A copy of a value, with what it allocates in `memory` if values of its type can do that.
template <typename V>
V copyIn(std::pmr::memory_resource&, const V& value) {
    return value;
}
template <typename T>
BitSet<T> copyIn(std::pmr::memory_resource& memory, const BitSet<T>& set) {
    return BitSetAccess::copyIn(memory, set);
}

} // namespace zt::orvex::flow::internal
