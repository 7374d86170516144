#pragma once

#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/flow/WordLoops.h>
#include <zt_orvex/flow/WordPool.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <unordered_set>
#include <utility>

namespace zt::orvex::flow {

namespace internal {

template <typename L>
class SweepTape;

} // namespace internal

/// A subset of a universe, one bit per element.
///
/// Holds a pointer to the universe, which must outlive it. Elements added to the universe later are
/// absent until added here: a set grows when it is next used, also by operations that are `const`,
/// so it is not safe to share even for reading. Two sets that meet in an operation must have the
/// same universe; that is not checked. Whole-set operations cost one pass over the words.
///
///     OrderedSet<int> universe({7, 9});
///     BitSet<int> set(universe);
///     set.add(9);  // set.getSmallestElement() == 9
///
/// Invariants: `bitCount()` never exceeds the universe's size, and bits at or above it are zero.
/// The counting, comparing and searching operations rely on it.
template <typename T>
class BitSet {
public:
    /// The empty set.
    explicit BitSet(const OrderedSet<T>& over)
        : universe(&over), sizeAndPool(over.size() * 2), words(nullptr) {
        words = newWords(wordCount());
        std::fill_n(words, wordCount(), 0);
    }

    /// Grows `other`, and takes the universe's size of now.
    BitSet(const BitSet& other) : BitSet(other, NOT_POOLED) {
        words = newWords(wordCount());
        copyWords(words, other.words, wordCount());
    }

    /// As the copy, with the words in `from`, which must outlive this set.
    BitSet(const BitSet& other, internal::WordPool& from) : BitSet(other, POOLED) {
        words = from.allocate(wordCount());
        copyWords(words, other.words, wordCount());
    }

    /// Leaves `other` an empty set over the same universe.
    BitSet(BitSet&& other) noexcept
        : universe(other.universe), sizeAndPool(std::exchange(other.sizeAndPool, 0)),
          words(std::exchange(other.words, nullptr)) {}

    BitSet& operator=(const BitSet& other) {
        if (this != &other) *this = BitSet(other);
        return *this;
    }

    BitSet& operator=(BitSet&& other) noexcept {
        if (this != &other) {
            release();
            universe = other.universe;
            sizeAndPool = std::exchange(other.sizeAndPool, 0);
            words = std::exchange(other.words, nullptr);
        }
        return *this;
    }

    ~BitSet() { release(); }

    /// Makes `element` a member, after growing the set to its universe.
    ///
    /// Cost: one hash look-up; linear in words when growth must reallocate. Throws
    /// std::invalid_argument("element not found") if the universe lacks `element`; members don't
    /// change, though the set may have grown.
    void add(const T& element) {
        growToUniverse();
        addIndex(universe->indexOf(element));
    }

    /// Makes `element` no member. Costs and throws as `add` does.
    void remove(const T& element) {
        growToUniverse();
        removeIndex(universe->indexOf(element));
    }

    /// Whether `element` is a member. Costs and throws as `add` does.
    bool contains(const T& element) const {
        growToUniverse();
        return containsIndex(universe->indexOf(element));
    }

    // The same by index, with neither growth nor hash look-up nor check: for callers who keep the
    // index and know that it is below `bitCount()`.
    void addIndex(std::uint64_t index) { words[index / 64] |= bitOf(index); }
    void removeIndex(std::uint64_t index) { words[index / 64] &= ~bitOf(index); }
    bool containsIndex(std::uint64_t index) const {
        return (words[index / 64] & bitOf(index)) != 0;
    }

    void clear() {
        growToUniverse();
        std::fill_n(words, wordCount(), 0);
    }

    /// Makes every element of the universe a member.
    void addAll() {
        growToUniverse();
        std::fill_n(words, wordCount(), ALL_ONES);
        const std::uint64_t used = bitCount() % 64;
        if (used != 0) words[wordCount() - 1] ^= ALL_ONES << used;
    }

    bool isEmpty() const {
        growToUniverse();
        return firstUsedWord() == wordCount();
    }

    /// The member of lowest index, by reference into the universe. Grows the set. Throws
    /// std::invalid_argument("BitSet is empty; cannot getSmallestElement").
    const T& getSmallestElement() const {
        growToUniverse();
        const std::uint64_t word = firstUsedWord();
        if (word == wordCount()) {
            throw std::invalid_argument("BitSet is empty; cannot getSmallestElement");
        }
        return getSmallestElementStartingFromIndex(word * 64);
    }

    /// The member of lowest index at or behind `index`, by reference into the universe. Does not
    /// grow the set. Throws std::logic_error("getSmallestElementStartingFromIndex failed").
    const T& getSmallestElementStartingFromIndex(std::uint64_t index) const {
        const std::uint64_t found = findFrom(index);
        if (found == bitCount())
            throw std::logic_error("getSmallestElementStartingFromIndex failed");
        return universe->elementAt(found);
    }

    /// The lowest index of a member at or behind `index`, or `bitCount()` when there is none.
    /// Neither grows nor throws.
    std::uint64_t findFrom(std::uint64_t index) const {
        if (index >= bitCount()) return bitCount();
        const std::uint64_t* word = words + index / 64;
        const std::uint64_t* const end = words + wordCount();
        std::uint64_t rest = *word & (ALL_ONES << (index % 64));
        while (rest == 0) {
            if (++word == end) return bitCount();
            rest = *word;
        }
        return static_cast<std::uint64_t>(word - words) * 64 + internal::lowestBit(rest);
    }

    /// Calls `visit(index)` for each member, ascending. The set must not change meanwhile.
    template <typename Visitor>
    void forEachIndex(Visitor visit) const {
        growToUniverse();
        internal::forEachUsedWord(words, wordCount(),
                                  [&visit](std::uint64_t number, std::uint64_t word) {
                                      for (; word != 0; word &= word - 1)
                                          visit(number * 64 + internal::lowestBit(word));
                                  });
    }

    /// Grows both sets.
    friend bool operator==(const BitSet& a, const BitSet& b) {
        growBoth(a, b);
        return areEqual(a.words, b.words, a.wordCount());
    }
    friend bool operator!=(const BitSet& a, const BitSet& b) { return !(a == b); }

    /// Grows this set only: what lies beyond a stale `other` counts as absent from it.
    bool isSubsetOf(const BitSet& other) const {
        growToUniverse();
        const std::uint64_t shared = std::min(wordCount(), other.wordCount());
        return areContained(words, other.words, shared) &&
               std::all_of(words + shared, words + wordCount(),
                           [](std::uint64_t word) { return word == 0; });
    }

    /// Grows both sets, as the next two do.
    void unionWith(const BitSet& other) { combineWith<internal::Union>(other); }
    void intersectWith(const BitSet& other) { combineWith<internal::Intersection>(other); }
    void subtract(const BitSet& other) { combineWith<internal::Difference>(other); }

    /// Takes the value and the `bitCount()` of `source`, and grows neither. Keeps its words unless
    /// they are too few.
    void assign(const BitSet& source) {
        if (source.wordCount() > wordCount()) replaceWords(newWords(source.wordCount()));
        setBitCount(source.bitCount());
        copyWords(words, source.words, wordCount());
    }

    /// Copies of the members, inserted in ascending index order.
    std::unordered_set<T> toElementSet() const {
        std::unordered_set<T> members;
        forEachIndex([&](std::uint64_t index) { members.insert(universe->elementAt(index)); });
        return members;
    }

    /// Copies of the elements of the universe that are no members, in ascending index order.
    std::unordered_set<T> toComplementElementSet() const {
        growToUniverse();
        std::unordered_set<T> others;
        for (std::uint64_t index = 0; index < bitCount(); ++index) {
            if (!containsIndex(index)) others.insert(universe->elementAt(index));
        }
        return others;
    }

    /// Brings the set to the universe's size; new elements are no members. Allocates only when the
    /// universe has passed a word boundary. Every operation that needs it does it by itself.
    void growToUniverse() const {
        if (universe->size() > bitCount()) growTo(universe->size());
    }

    /// How many bits are valid: the universe's size when the set was last used.
    std::uint64_t bitCount() const { return sizeAndPool / 2; }

private:
    template <typename>
    friend class internal::SweepTape;

    static constexpr std::uint64_t ALL_ONES = ~std::uint64_t{0};
    static constexpr std::uint64_t NOT_POOLED = 0;
    static constexpr std::uint64_t POOLED = 1;

    static std::uint64_t bitOf(std::uint64_t index) { return std::uint64_t{1} << (index % 64); }
    static std::uint64_t wordsFor(std::uint64_t count) { return (count + 63) / 64; }

    /// The begin of a copy: all but the words.
    BitSet(const BitSet& other, std::uint64_t pooled) : universe(other.universe), words(nullptr) {
        other.growToUniverse();
        sizeAndPool = other.bitCount() * 2 | pooled;
    }

    std::uint64_t wordCount() const { return wordsFor(bitCount()); }
    bool isPooled() const { return (sizeAndPool & POOLED) != 0; }
    void setBitCount(std::uint64_t count) const {
        sizeAndPool = count * 2 | (sizeAndPool & POOLED);
    }

    // The solver copies and compares a set for each equation of each sweep, and the sets of most
    // programs take a word or a few: for these the calls of the library functions cost more than
    // the work. Solving takes a quarter less time at 16 and at 256 variables.

    struct WordPair {
        std::uint64_t words[2];
    };

    static void copyWords(std::uint64_t* target, const std::uint64_t* source, std::uint64_t count) {
        if (count == 1) {
            *target = *source;
        } else if (count == 2 || count == 3 || count == 4) {
            // Two pieces, which overlap where there are not four words.
            WordPair first;
            WordPair last;
            std::memcpy(&first, source, sizeof first);
            std::memcpy(&last, source + count - 2, sizeof last);
            std::memcpy(target, &first, sizeof first);
            std::memcpy(target + count - 2, &last, sizeof last);
        } else {
            std::copy_n(source, count, target);
        }
    }

    static bool areEqual(const std::uint64_t* a, const std::uint64_t* b, std::uint64_t count) {
        if (count == 1) return *a == *b;
        if (count <= 8) {
            std::uint64_t difference = 0;
            for (std::uint64_t i = 0; i < count; ++i)
                difference |= a[i] ^ b[i];
            return difference == 0;
        }
        return std::memcmp(a, b, count * sizeof(std::uint64_t)) == 0;
    }

    static bool areContained(const std::uint64_t* words, const std::uint64_t* in,
                             std::uint64_t count) {
        if (count == 1) return (*words & ~*in) == 0;
        return internal::runLoop<internal::SubsetLoop>(count, words, in);
    }

    /// The number of the first word with a member, or `wordCount()`.
    std::uint64_t firstUsedWord() const {
        std::uint64_t word = 0;
        while (word != wordCount() && words[word] == 0)
            ++word;
        return word;
    }

    /// Sets that meet have one universe, so that one look at it answers for both.
    static void growBoth(const BitSet& a, const BitSet& b) {
        const bool haveOneSize = (a.sizeAndPool ^ b.sizeAndPool) <= POOLED;
        if (haveOneSize && a.universe->size() == a.bitCount()) return;
        a.growToUniverse();
        b.growToUniverse();
    }

    // Out of line: every operation asks whether to grow, and hardly any does.
    [[gnu::noinline]] void growTo(std::uint64_t count) const {
        const std::uint64_t oldWords = wordCount();
        const std::uint64_t needed = wordsFor(count);
        if (needed > oldWords) {
            std::uint64_t* const grown = newWords(needed);
            std::copy_n(words, oldWords, grown);
            std::fill_n(grown + oldWords, needed - oldWords, 0);
            replaceWords(grown);
        }
        setBitCount(count);
    }

    template <typename Operation>
    void combineWith(const BitSet& other) {
        growBoth(*this, other);
        const std::uint64_t count = wordCount();
        if (count == 1) { // as in most programs, and then half the time of a call
            Operation::apply(*words, *other.words);
        } else {
            internal::runLoop<internal::CombineInPlaceLoop<Operation>>(count, words, other.words);
        }
    }

    static std::uint64_t* newWords(std::uint64_t count) {
        return count == 0 ? nullptr : new std::uint64_t[count];
    }
    void release() const {
        if (!isPooled()) delete[] words;
    }
    void replaceWords(std::uint64_t* array) const {
        release();
        words = array;
        sizeAndPool &= ~POOLED;
    }

    // Growth is no change of value, so it also happens under const.
    const OrderedSet<T>* universe;
    // Twice the number of valid bits, plus one if the words belong to a pool, not to this set.
    // Deliberate: no bit-fields. A flag that is stored as a byte and read at once as a part of the
    // size makes the processor wait: making the variables took four times as long.
    mutable std::uint64_t sizeAndPool;
    mutable std::uint64_t* words;
};

} // namespace zt::orvex::flow
