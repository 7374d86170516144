#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zt::orvex::flow::internal {

// Loops over the words of bit sets, in vectors of four words: a register where the processor has
// AVX2, two elsewhere. The vectors are written out, since whether a compiler makes some of a plain
// loop depends on a consumer's options, and how fast that loop runs on where it comes to lie.

using WordVector = std::uint64_t __attribute__((vector_size(32)));
constexpr std::uint64_t VECTOR = 4; // words

/// The number of the lowest bit of a word that is not zero.
inline std::uint64_t lowestBit(std::uint64_t word) {
    return static_cast<std::uint64_t>(__builtin_ctzll(word));
}

inline void load(WordVector& vector, const std::uint64_t* words) {
    std::memcpy(&vector, words, sizeof vector);
}
inline bool hasBits(const WordVector& vector) {
    return (vector[0] | vector[1] | vector[2] | vector[3]) != 0;
}

#if defined(__x86_64__) && defined(__GNUC__)
inline bool hasWideRegisters() { return __builtin_cpu_supports("avx2") != 0; }

template <typename Loop, typename... Args>
[[gnu::target("avx2"), gnu::noinline]] auto runInWideRegisters(Args... args) {
    return Loop::run(args...);
}
#else
inline bool hasWideRegisters() { return false; }

template <typename Loop, typename... Args>
auto runInWideRegisters(Args... args) {
    return Loop::run(args...);
}
#endif

template <typename Loop, typename... Args>
[[gnu::noinline]] auto runInNarrowRegisters(Args... args) {
    return Loop::run(args...);
}

/// Runs a loop over `count` words, in wide registers where the processor has them and the words are
/// worth it. Only the choice is inlined, so that no loop's frame is made before it.
template <typename Loop, typename... Args>
[[gnu::always_inline]] inline auto runLoop(std::uint64_t count, Args... args) {
    constexpr std::uint64_t WIDE_ENOUGH = 16;
    if (count >= WIDE_ENOUGH && hasWideRegisters()) {
        return runInWideRegisters<Loop>(args..., count);
    }
    return runInNarrowRegisters<Loop>(args..., count);
}

// Operations on a word, or on a vector of words.

struct Union {
    template <typename Words>
    static void apply(Words& words, const Words& others) {
        words |= others;
    }
};
struct Intersection {
    template <typename Words>
    static void apply(Words& words, const Words& others) {
        words &= others;
    }
};
struct Difference {
    template <typename Words>
    static void apply(Words& words, const Words& others) {
        words &= ~others;
    }
};
struct Copy {
    template <typename Words>
    static void apply(Words& words, const Words& others) {
        words = others;
    }
};
struct Clear {
    template <typename Words>
    static void apply(Words& words, const Words&) {
        words = Words{};
    }
};

/// Applies `Operation` to each word of an array and its partner in another, into `target`, which
/// may be one of the two.
template <typename Operation>
struct CombineLoop {
    [[gnu::always_inline]] static inline void run(std::uint64_t* target, const std::uint64_t* words,
                                                  const std::uint64_t* others,
                                                  std::uint64_t count) {
        std::uint64_t at = 0;
        for (; at + 4 * VECTOR <= count; at += 4 * VECTOR) {
            combine(target, words, others, at);
            combine(target, words, others, at + VECTOR);
            combine(target, words, others, at + 2 * VECTOR);
            combine(target, words, others, at + 3 * VECTOR);
        }
        if (at == count) return;
        for (; at + VECTOR <= count; at += VECTOR)
            combine(target, words, others, at);
        for (; at < count; ++at) {
            std::uint64_t word = words[at];
            Operation::apply(word, others[at]);
            target[at] = word;
        }
    }

private:
    [[gnu::always_inline]] static inline void combine(std::uint64_t* target,
                                                      const std::uint64_t* words,
                                                      const std::uint64_t* others,
                                                      std::uint64_t at) {
        WordVector vector;
        WordVector other;
        load(vector, words + at);
        load(other, others + at);
        Operation::apply(vector, other);
        std::memcpy(target + at, &vector, sizeof vector);
    }
};

/// The same into the first array.
template <typename Operation>
struct CombineInPlaceLoop {
    [[gnu::always_inline]] static inline void run(std::uint64_t* words, const std::uint64_t* others,
                                                  std::uint64_t count) {
        CombineLoop<Operation>::run(words, words, others, count);
    }
};

/// As CombineLoop, and tells whether the result differs from `previous`.
template <typename Operation>
struct ChangeLoop {
    [[gnu::always_inline]] static inline bool run(std::uint64_t* target, const std::uint64_t* words,
                                                  const std::uint64_t* others,
                                                  const std::uint64_t* previous,
                                                  std::uint64_t count) {
        WordVector difference = {};
        std::uint64_t at = 0;
        for (; at + VECTOR <= count; at += VECTOR) {
            WordVector vector;
            WordVector other;
            WordVector before;
            load(vector, words + at);
            load(other, others + at);
            load(before, previous + at);
            Operation::apply(vector, other);
            std::memcpy(target + at, &vector, sizeof vector);
            difference |= vector ^ before;
        }
        bool differs = hasBits(difference);
        for (; at < count; ++at) {
            std::uint64_t word = words[at];
            Operation::apply(word, others[at]);
            target[at] = word;
            differs |= word != previous[at];
        }
        return differs;
    }
};

/// Whether no bit of one array is missing in another. Looks once a block for one that is.
struct SubsetLoop {
    [[gnu::always_inline]] static inline bool
    run(const std::uint64_t* words, const std::uint64_t* allowed, std::uint64_t count) {
        std::uint64_t at = 0;
        for (; at + BLOCK <= count; at += BLOCK) {
            WordVector missing = {};
            for (std::uint64_t i = at; i < at + BLOCK; i += 2 * VECTOR) {
                addMissing(missing, words + i, allowed + i);
                addMissing(missing, words + i + VECTOR, allowed + i + VECTOR);
            }
            if (hasBits(missing)) return false;
        }
        if (at + VECTOR <= count) {
            WordVector missing = {};
            for (; at + VECTOR <= count; at += VECTOR)
                addMissing(missing, words + at, allowed + at);
            if (hasBits(missing)) return false;
        }
        std::uint64_t missing = 0;
        for (; at < count; ++at)
            missing |= words[at] & ~allowed[at];
        return missing == 0;
    }

private:
    static constexpr std::uint64_t BLOCK = 64;

    [[gnu::always_inline]] static inline void
    addMissing(WordVector& missing, const std::uint64_t* words, const std::uint64_t* allowed) {
        WordVector vector;
        WordVector other;
        load(vector, words);
        load(other, allowed);
        missing |= vector & ~other;
    }
};

/// Which words of an array have members: bit i of mask m for word 64 m + i.
struct UsedWordsLoop {
    [[gnu::always_inline]] static inline void run(const std::uint64_t* words, std::uint64_t* masks,
                                                  std::uint64_t count) {
        for (; count >= 64; count -= 64) {
            *masks++ = maskOfBlock(words);
            words += 64;
        }
        std::uint64_t mask = 0;
        for (std::uint64_t at = 0; at < count; ++at)
            mask |= std::uint64_t{words[at] != 0} << at;
        if (count != 0) *masks = mask;
    }

private:
    [[gnu::always_inline]] static inline std::uint64_t maskOfBlock(const std::uint64_t* words) {
        WordVector unused = {};
        WordVector bits = {1, 2, 4, 8};
        for (std::uint64_t at = 0; at < 64; at += 4 * VECTOR) {
            addUnused(unused, words + at, bits);
            addUnused(unused, words + at + VECTOR, bits << VECTOR);
            addUnused(unused, words + at + 2 * VECTOR, bits << 2 * VECTOR);
            addUnused(unused, words + at + 3 * VECTOR, bits << 3 * VECTOR);
            bits <<= 4 * VECTOR;
        }
        return ~(unused[0] | unused[1] | unused[2] | unused[3]);
    }

    [[gnu::always_inline]] static inline void
    addUnused(WordVector& unused, const std::uint64_t* words, const WordVector& bits) {
        WordVector vector;
        load(vector, words);
        unused |= reinterpret_cast<WordVector>(vector == 0) & bits;
    }
};

/// Calls `visit(number, word)` for each word that is not zero, ascending.
///
/// Finds such words first and visits them then: with a branch at each word, a processor that can't
/// foresee it takes four times as long where one bit in a thousand is set.
template <typename Visitor>
void forEachUsedWord(const std::uint64_t* words, std::uint64_t count, Visitor visit) {
    constexpr std::uint64_t MASKS = 16;
    constexpr std::uint64_t CHUNK = 64 * MASKS; // words
    std::uint64_t masks[MASKS];
    for (std::uint64_t chunk = 0; chunk < count; chunk += CHUNK) {
        const std::uint64_t size = std::min(CHUNK, count - chunk);
        runLoop<UsedWordsLoop>(size, words + chunk, masks);
        for (std::uint64_t block = 0; block * 64 < size; ++block) {
            for (std::uint64_t used = masks[block]; used != 0; used &= used - 1) {
                const std::uint64_t number = chunk + block * 64 + lowestBit(used);
                visit(number, words[number]);
            }
        }
    }
}

} // namespace zt::orvex::flow::internal
