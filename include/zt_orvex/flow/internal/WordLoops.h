#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <algorithm>
#include <cstdint>

namespace zt::orvex::flow::internal {

// Loops over the words of bit sets: in blocks of four words where the processor has registers for
// them (AVX2), else word by word, as far as the compiler doesn't do better.
//
// Which of the two is chosen when the program runs, because these templates are compiled with a
// consumer's options. A library of vectors such as xsimd fixes the registers at compile time, and
// then has to do without AVX2: the row "BitSet union, 64,000 bits" takes twice as long, "BitSet
// iteration 1 per mille" four times. Highway chooses at run time, but only in code that is compiled
// and linked apart.

using WordBlock = std::uint64_t __attribute__((vector_size(32)));

template <typename Words>
constexpr std::uint64_t WORDS_IN = sizeof(Words) / sizeof(std::uint64_t);

// A block in memory lies wherever a word may. The alignment belongs to the name: clang ignores one
// that stands with the type, and then moves blocks by instructions that fault at other addresses.
using WordBlockInMemory __attribute__((aligned(8), may_alias)) = WordBlock;
static_assert(__alignof__(WordBlockInMemory) == alignof(std::uint64_t));

inline void load(WordBlock& block, const std::uint64_t* words) {
    block = *reinterpret_cast<const WordBlockInMemory*>(words);
}
inline void load(std::uint64_t& word, const std::uint64_t* words) { word = *words; }

inline void store(std::uint64_t* words, const WordBlock& block) {
    *reinterpret_cast<WordBlockInMemory*>(words) = block;
}
inline void store(std::uint64_t* words, std::uint64_t word) { *words = word; }

inline bool hasBits(const WordBlock& block) {
    return (block[0] | block[1] | block[2] | block[3]) != 0;
}
inline bool hasBits(std::uint64_t word) { return word != 0; }

/// The number of the lowest bit of a word that isn't zero.
inline std::uint64_t lowestBit(std::uint64_t word) {
    return static_cast<std::uint64_t>(__builtin_ctzll(word));
}

// For Windows, g++ may keep a block at an address of the stack that isn't aligned and then move it by an
// instruction that faults there, so it takes words alone.
#if defined(__x86_64__) && defined(__GNUC__) && (defined(__clang__) || !defined(_WIN32))
inline bool hasRegistersForBlocks() { return __builtin_cpu_supports("avx2") != 0; }

template <typename Loop, typename... Args>
[[gnu::target("avx2"), gnu::noinline]] auto runByBlocks(Args... args) {
    return Loop::template run<WordBlock>(args...);
}
#else
inline bool hasRegistersForBlocks() { return false; }

template <typename Loop, typename... Args>
auto runByBlocks(Args... args) {
    return Loop::template run<WordBlock>(args...);
}
#endif

template <typename Loop, typename... Args>
[[gnu::noinline]] auto runByWords(Args... args) {
    return Loop::template run<std::uint64_t>(args...);
}

/// Runs a loop over `count` words: by blocks where the processor has registers for them and there
/// are `Loop::BLOCKS_FROM` words or more. Only the choice is inlined, so that no loop's frame is
/// made before it.
template <typename Loop, typename... Args>
[[gnu::always_inline]] inline auto runLoop(std::uint64_t count, Args... args) {
    if (count >= Loop::BLOCKS_FROM && hasRegistersForBlocks()) {
        return runByBlocks<Loop>(args..., count);
    }
    return runByWords<Loop>(args..., count);
}

/// From how many words on a single operation is faster by blocks; see the rows "BitSet union" of
/// 1,000 bits, which are 16 words.
constexpr std::uint64_t WORTH_BLOCKS = 16;

// Operations on a word or on a block.

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

/// Applies `Operation` to each word of an array and its partner in another.
template <typename Operation>
struct CombineLoop {
    static constexpr std::uint64_t BLOCKS_FROM = WORTH_BLOCKS;

    template <typename Words>
    [[gnu::always_inline]] static inline void run(std::uint64_t* words, const std::uint64_t* others,
                                                  std::uint64_t count) {
        constexpr std::uint64_t STEP = WORDS_IN<Words>;
        std::uint64_t at = 0;
        for (; at + 4 * STEP <= count; at += 4 * STEP) {
            combine<Words>(words + at, others + at);
            combine<Words>(words + at + STEP, others + at + STEP);
            combine<Words>(words + at + 2 * STEP, others + at + 2 * STEP);
            combine<Words>(words + at + 3 * STEP, others + at + 3 * STEP);
        }
        if (at == count) return;
        for (; at + STEP <= count; at += STEP)
            combine<Words>(words + at, others + at);
        for (; at < count; ++at)
            combine<std::uint64_t>(words + at, others + at);
    }

private:
    template <typename Words>
    [[gnu::always_inline]] static inline void combine(std::uint64_t* words,
                                                      const std::uint64_t* others) {
        Words these;
        Words those;
        load(these, words);
        load(those, others);
        Operation::apply(these, those);
        store(words, these);
    }
};

/// Whether one array has no bit that another lacks. Decides once for several blocks.
struct SubsetLoop {
    static constexpr std::uint64_t BLOCKS_FROM = WORTH_BLOCKS;

    template <typename Words>
    [[gnu::always_inline]] static inline bool
    run(const std::uint64_t* words, const std::uint64_t* allowed, std::uint64_t count) {
        std::uint64_t at = 0;
        for (; at + STRIDE <= count; at += STRIDE) {
            Words missing = {};
            for (std::uint64_t i = at; i < at + STRIDE; i += 2 * WORDS_IN<Words>) {
                addMissing(missing, words + i, allowed + i);
                addMissing(missing, words + i + WORDS_IN<Words>, allowed + i + WORDS_IN<Words>);
            }
            if (hasBits(missing)) return false;
        }
        std::uint64_t missing = 0;
        for (; at < count; ++at)
            addMissing(missing, words + at, allowed + at);
        return missing == 0;
    }

private:
    static constexpr std::uint64_t STRIDE = 64; // words between two decisions

    template <typename Words>
    [[gnu::always_inline]] static inline void addMissing(Words& missing, const std::uint64_t* words,
                                                         const std::uint64_t* allowed) {
        Words these;
        Words those;
        load(these, words);
        load(those, allowed);
        missing |= these & ~those;
    }
};

/// Which words of an array have members: bit i of mask m stands for word 64 m + i.
struct UsedWordsLoop {
    static constexpr std::uint64_t BLOCKS_FROM = WORTH_BLOCKS;

    template <typename Words>
    [[gnu::always_inline]] static inline void run(const std::uint64_t* words, std::uint64_t* masks,
                                                  std::uint64_t count) {
        for (; count >= 64; count -= 64) {
            *masks++ = maskOf64(words, Words{});
            words += 64;
        }
        if (count != 0) *masks = maskOf(words, count);
    }

private:
    [[gnu::always_inline]] static inline std::uint64_t maskOf(const std::uint64_t* words,
                                                              std::uint64_t count) {
        std::uint64_t mask = 0;
        for (std::uint64_t at = 0; at < count; ++at)
            mask |= std::uint64_t{words[at] != 0} << at;
        return mask;
    }

    [[gnu::always_inline]] static inline std::uint64_t maskOf64(const std::uint64_t* words,
                                                                std::uint64_t) {
        return maskOf(words, 64);
    }

    [[gnu::always_inline]] static inline std::uint64_t maskOf64(const std::uint64_t* words,
                                                                const WordBlock&) {
        constexpr std::uint64_t STEP = WORDS_IN<WordBlock>;
        WordBlock unused = {};
        WordBlock bits = {1, 2, 4, 8};
        for (std::uint64_t at = 0; at < 64; at += 4 * STEP) {
            addUnused(unused, words + at, bits);
            addUnused(unused, words + at + STEP, bits << STEP);
            addUnused(unused, words + at + 2 * STEP, bits << 2 * STEP);
            addUnused(unused, words + at + 3 * STEP, bits << 3 * STEP);
            bits <<= 4 * STEP;
        }
        return ~(unused[0] | unused[1] | unused[2] | unused[3]);
    }

    [[gnu::always_inline]] static inline void
    addUnused(WordBlock& unused, const std::uint64_t* words, const WordBlock& bits) {
        WordBlock block;
        load(block, words);
        unused |= reinterpret_cast<WordBlock>(block == 0) & bits;
    }
};

// What a set does with its words. Most sets have one word, for which a call costs more than the
// work.

inline void copyWords(std::uint64_t* target, const std::uint64_t* source, std::uint64_t count) {
    if (count == 1) {
        *target = *source;
    } else {
        std::copy_n(source, count, target);
    }
}

inline bool areEqual(const std::uint64_t* a, const std::uint64_t* b, std::uint64_t count) {
    return count == 1 ? *a == *b : std::equal(a, a + count, b);
}

inline bool areContained(const std::uint64_t* words, const std::uint64_t* in, std::uint64_t count) {
    return count == 1 ? (*words & ~*in) == 0 : runLoop<SubsetLoop>(count, words, in);
}

template <typename Operation>
void combineWords(std::uint64_t* words, const std::uint64_t* others, std::uint64_t count) {
    if (count == 1) {
        Operation::apply(*words, *others);
    } else {
        runLoop<CombineLoop<Operation>>(count, words, others);
    }
}

/// Calls `visit(number, word)` for each word that isn't zero, ascending.
///
/// Finds such words first and visits them then: a branch at each word is mispredicted where few
/// words are used (the row "BitSet iteration 1 per mille").
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
