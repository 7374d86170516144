// Bit sets: ours, Boost's, and plain loops over the words that stop at the first difference and
// visit members bit by bit. LLVM's rows are in peers/LlvmBitSetRows.cpp.

#include "support/SetRows.h"

#include <zt_orvex/flow/BitSet.h>

#include <boost/dynamic_bitset.hpp>

#include <map>

namespace zt::orvex::benchmarks {
namespace {

/// One universe per size; they outlive the sets.
const flow::OrderedSet<std::uint64_t>& universeOf(std::size_t bits) {
    static std::map<std::size_t, flow::OrderedSet<std::uint64_t>> universes;
    flow::OrderedSet<std::uint64_t>& universe = universes[bits];
    while (universe.size() < bits)
        universe.add(universe.size());
    return universe;
}

class Ours {
public:
    explicit Ours(std::size_t bits) : set(universeOf(bits)) {}

    void insert(std::size_t bit) { set.add(bit); }
    void unite(const Ours& other) { set.unionWith(other.set); }
    void intersect(const Ours& other) { set.intersectWith(other.set); }
    void subtract(const Ours& other) { set.subtract(other.set); }
    bool equals(const Ours& other) const { return set == other.set; }
    bool isSubsetOf(const Ours& other) const { return set.isSubsetOf(other.set); }
    std::uint64_t sum() const {
        std::uint64_t indices = 0;
        set.forEachIndex([&](std::uint64_t index) { indices += index; });
        return indices;
    }

private:
    flow::BitSet<std::uint64_t> set;
};

class Boost {
public:
    explicit Boost(std::size_t bits) : set(bits) {}

    void insert(std::size_t bit) { set.set(bit); }
    void unite(const Boost& other) { set |= other.set; }
    void intersect(const Boost& other) { set &= other.set; }
    void subtract(const Boost& other) { set -= other.set; }
    bool equals(const Boost& other) const { return set == other.set; }
    bool isSubsetOf(const Boost& other) const { return set.is_subset_of(other.set); }
    std::uint64_t sum() const {
        std::uint64_t indices = 0;
        for (std::size_t i = set.find_first(); i != set.npos; i = set.find_next(i))
            indices += i;
        return indices;
    }

private:
    boost::dynamic_bitset<std::uint64_t> set;
};

class PlainLoops {
public:
    explicit PlainLoops(std::size_t bits) : words((bits + 63) / 64) {}

    void insert(std::size_t bit) { words[bit / 64] |= std::uint64_t{1} << (bit % 64); }
    void unite(const PlainLoops& other) {
        for (std::size_t i = 0; i < words.size(); ++i)
            words[i] |= other.words[i];
    }
    void intersect(const PlainLoops& other) {
        for (std::size_t i = 0; i < words.size(); ++i)
            words[i] &= other.words[i];
    }
    void subtract(const PlainLoops& other) {
        for (std::size_t i = 0; i < words.size(); ++i)
            words[i] &= ~other.words[i];
    }
    bool equals(const PlainLoops& other) const {
        for (std::size_t i = 0; i < words.size(); ++i) {
            if (words[i] != other.words[i]) return false;
        }
        return true;
    }
    bool isSubsetOf(const PlainLoops& other) const {
        for (std::size_t i = 0; i < words.size(); ++i) {
            if ((words[i] & other.words[i]) != words[i]) return false;
        }
        return true;
    }
    std::uint64_t sum() const {
        std::uint64_t indices = 0;
        for (std::size_t i = 0; i < words.size() * 64; ++i) {
            if (((words[i / 64] >> (i % 64)) & 1) != 0) indices += i;
        }
        return indices;
    }

private:
    std::vector<std::uint64_t> words;
};

[[maybe_unused]] const bool registered = [] {
    registerSetRows<Ours>("ours");
    registerSetRows<Boost>("boost_dynamic_bitset");
    registerSetRows<PlainLoops>("plain_loops");
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
