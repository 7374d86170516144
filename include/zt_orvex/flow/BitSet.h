#pragma once

#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/flow/internal/WordLoops.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <unordered_set>
#include <utility>

namespace zt::orvex::flow {

namespace internal {

struct BitSetAccess;

} // namespace internal

/// A subset of a universe, one bit per element.
///
/// Holds a pointer to the universe, which must outlive it. Elements added to the universe later are
/// absent until added here: a set grows when it is next used, also by operations that are `const`,
/// so it isn't safe to share even for reading. Two sets that meet in an operation must have the
/// same universe; that isn't checked. Whole-set operations cost one pass over the words.
///
/// Any operation that grows or copies can throw std::bad_alloc. Every set then has the members that
/// it had before, though it may have grown.
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
        : universe(&over), sizeAndOwner(over.size() * 2), words(newWords(wordCount())) {
        std::fill_n(words, wordCount(), 0);
    }

    /// Grows `other`, and takes the universe's current size.
    BitSet(const BitSet& other) : BitSet(other, newWords(other.grownWordCount()), OWNED) {}

    /// Leaves `other` an empty set over the same universe. Allocates nothing, unless `other` is the
    /// value of a `Variable` or `Constant`: words of those stay with their system, and this set gets
    /// words of its own.
    BitSet(BitSet&& other)
        : universe(other.universe), sizeAndOwner(other.bitCount() * 2), words(other.words) {
        if (other.isBorrowed()) {
            words = newWords(wordCount());
            internal::copyWords(words, other.words, wordCount());
        }
        other.words = nullptr;
        other.sizeAndOwner = 0;
    }

    /// As the copy construction. If it throws, this set is unchanged.
    BitSet& operator=(const BitSet& other) {
        if (this != &other) swapWith(BitSet(other));
        return *this;
    }

    /// As the move construction.
    BitSet& operator=(BitSet&& other) {
        if (this != &other) swapWith(BitSet(std::move(other)));
        return *this;
    }

    ~BitSet() { release(); }

    /// Makes `element` a member, after growing the set to its universe.
    ///
    /// Cost: one hash lookup; linear in words when growth must reallocate. Throws
    /// std::invalid_argument("element not found") if the universe lacks `element`; members don't
    /// change, though the set may have grown.
    void add(const T& element) {
        growToUniverse();
        addIndex(universe->indexOf(element));
    }

    /// Makes `element` absent. Costs and throws as `add` does.
    void remove(const T& element) {
        growToUniverse();
        const std::uint64_t index = universe->indexOf(element);
        words[index / 64] &= ~bitOf(index);
    }

    /// Whether `element` is a member. Costs and throws as `add` does.
    bool contains(const T& element) const {
        growToUniverse();
        return hasIndex(universe->indexOf(element));
    }

    /// Makes every element absent, after growing the set. One pass over the words.
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

    /// Whether nothing is a member, after growing the set. The search ends at the first word that
    /// isn't zero.
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

    /// The member of lowest index at or after `index`, by reference into the universe. Does not
    /// grow the set. Throws std::logic_error("getSmallestElementStartingFromIndex failed").
    const T& getSmallestElementStartingFromIndex(std::uint64_t index) const {
        const std::uint64_t found = findFrom(index);
        if (found == bitCount())
            throw std::logic_error("getSmallestElementStartingFromIndex failed");
        return universe->elementAt(found);
    }

    /// The lowest index of a member at or after `index`, or `bitCount()` when there is none.
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

    /// @{
    /// Compares the members, after growing both sets.
    friend bool operator==(const BitSet& a, const BitSet& b) {
        growBoth(a, b);
        return internal::areEqual(a.words, b.words, a.wordCount());
    }
    friend bool operator!=(const BitSet& a, const BitSet& b) { return !(a == b); }
    /// @}

    /// Whether `other` has all members of this set. Grows this set only: what lies beyond a stale
    /// `other` counts as absent from it.
    bool isSubsetOf(const BitSet& other) const {
        growToUniverse();
        const std::uint64_t shared = std::min(wordCount(), other.wordCount());
        return internal::areContained(words, other.words, shared) &&
               std::all_of(words + shared, words + wordCount(),
                           [](std::uint64_t word) { return word == 0; });
    }

    /// Adds the members of `other`. Grows both sets.
    void unionWith(const BitSet& other) { combineWith<internal::Union>(other); }
    /// Keeps only what is a member of `other`, too. Grows both sets.
    void intersectWith(const BitSet& other) { combineWith<internal::Intersection>(other); }
    /// Removes the members of `other`. Grows both sets.
    void subtract(const BitSet& other) { combineWith<internal::Difference>(other); }

    /// Takes the value and the `bitCount()` of `source`, and grows neither. Keeps its words unless
    /// they are too few.
    void assign(const BitSet& source) {
        if (source.wordCount() > wordCount()) replaceWords(newWords(source.wordCount()));
        setBitCount(source.bitCount());
        internal::copyWords(words, source.words, wordCount());
    }

    /// Copies of the members, inserted in ascending index order.
    std::unordered_set<T> toElementSet() const {
        std::unordered_set<T> members;
        forEachIndex([&](std::uint64_t index) { members.insert(universe->elementAt(index)); });
        return members;
    }

    /// Copies of the universe's other elements, inserted in ascending index order.
    std::unordered_set<T> toComplementElementSet() const {
        growToUniverse();
        std::unordered_set<T> others;
        for (std::uint64_t index = 0; index < bitCount(); ++index) {
            if (!hasIndex(index)) others.insert(universe->elementAt(index));
        }
        return others;
    }

    /// Brings the set to the universe's size; new elements aren't members. Allocates only when the
    /// universe has passed a word boundary. Operations that need it do it themselves.
    void growToUniverse() const {
        if (universe->size() > bitCount()) growTo(universe->size());
    }

    /// How many bits are valid: the universe's size when the set last grew.
    std::uint64_t bitCount() const { return sizeAndOwner / 2; }

private:
    friend struct internal::BitSetAccess; // the one way in for `internal/`

    static constexpr std::uint64_t ALL_ONES = ~std::uint64_t{0};
    static constexpr std::uint64_t OWNED = 0;
    static constexpr std::uint64_t BORROWED = 1;

    static std::uint64_t bitOf(std::uint64_t index) { return std::uint64_t{1} << (index % 64); }
    static std::uint64_t wordsFor(std::uint64_t count) { return (count + 63) / 64; }
    static std::uint64_t* newWords(std::uint64_t count) {
        return count == 0 ? nullptr : new std::uint64_t[count];
    }

    /// A copy of `other`, which has grown, in the array `into`.
    BitSet(const BitSet& other, std::uint64_t* into, std::uint64_t owner)
        : universe(other.universe), sizeAndOwner(other.bitCount() * 2 | owner), words(into) {
        internal::copyWords(words, other.words, wordCount());
    }

    std::uint64_t wordCount() const { return wordsFor(bitCount()); }
    std::uint64_t grownWordCount() const {
        growToUniverse();
        return wordCount();
    }
    bool isBorrowed() const { return (sizeAndOwner & BORROWED) != 0; }
    void setBitCount(std::uint64_t count) const {
        sizeAndOwner = count * 2 | (sizeAndOwner & BORROWED);
    }

    void addIndex(std::uint64_t index) { words[index / 64] |= bitOf(index); }
    bool hasIndex(std::uint64_t index) const { return (words[index / 64] & bitOf(index)) != 0; }

    /// The number of words if all are zero.
    std::uint64_t firstUsedWord() const {
        const auto isUsed = [](std::uint64_t word) { return word != 0; };
        return static_cast<std::uint64_t>(std::find_if(words, words + wordCount(), isUsed) - words);
    }

    /// Sets that meet have one universe, so that one look at it answers for both.
    static void growBoth(const BitSet& a, const BitSet& b) {
        const bool haveOneSize = (a.sizeAndOwner ^ b.sizeAndOwner) <= BORROWED;
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
        internal::combineWords<Operation>(words, other.words, wordCount());
    }

    void release() const {
        if (!isBorrowed()) delete[] words;
    }
    void replaceWords(std::uint64_t* array) const {
        release();
        words = array;
        sizeAndOwner &= ~BORROWED;
    }
    void swapWith(BitSet&& other) noexcept {
        std::swap(universe, other.universe);
        std::swap(sizeAndOwner, other.sizeAndOwner);
        std::swap(words, other.words);
    }

    // Growth doesn't change the value, so it also happens under const.
    const OrderedSet<T>* universe;
    // Twice the number of valid bits, plus BORROWED if the words belong to somebody else.
    // Deliberate: not a bit-field. A flag that is stored as a byte and read at once as part of the
    // size stalls the processor, in each set that an analysis makes.
    mutable std::uint64_t sizeAndOwner;
    mutable std::uint64_t* words;
};

} // namespace zt::orvex::flow
