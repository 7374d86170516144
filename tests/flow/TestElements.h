#pragma once

#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <cstddef>
#include <functional>
#include <set>
#include <stdexcept>

namespace zt::orvex::flow {

/// Universe sizes at and around the ends of words.
constexpr int WORD_EDGE_SIZES[] = {0, 1, 2, 63, 64, 65, 127, 128, 129, 192, 193};

/// The element at index `i` of a universe made by `numbers`: never the index itself.
constexpr int number(int i) { return 5 * i - 3; }

/// Appends elements until `universe` has `size` of them.
inline void growTo(OrderedSet<int>& universe, int size) {
    while (universe.size() < static_cast<std::size_t>(size)) {
        universe.add(number(static_cast<int>(universe.size())));
    }
}

inline OrderedSet<int> numbers(int size) {
    OrderedSet<int> universe;
    growTo(universe, size);
    return universe;
}

/// The set of the elements at `indices`.
inline BitSet<int> setOf(const OrderedSet<int>& universe, const std::set<int>& indices) {
    BitSet<int> set(universe);
    for (const int index : indices)
        set.add(number(index));
    return set;
}

/// The indices of the members. Reads nothing but `toElementSet`, so it grows the set.
inline std::set<int> indicesOf(const BitSet<int>& set) {
    std::set<int> indices;
    for (const int element : set.toElementSet())
        indices.insert((element + 3) / 5);
    return indices;
}

/// The indices below `size` that `accept` accepts.
template <typename Accept>
std::set<int> indicesBelow(int size, Accept accept) {
    std::set<int> indices;
    for (int i = 0; i < size; ++i) {
        if (accept(i)) indices.insert(i);
    }
    return indices;
}

inline std::set<int> allBelow(int size) {
    return indicesBelow(size, [](int) { return true; });
}

/// An element whose hashing is counted, and whose copying is counted and can be made to fail.
struct Traced {
    int value = 0;

    static inline int hashes = 0;
    static inline int copies = 0;
    /// The copy that fails, counted down to 1; 0 for none.
    static inline int failingCopy = 0;

    Traced() = default;
    explicit Traced(int valueToHold) : value(valueToHold) {}
    Traced(const Traced& other) : value(other.value) { noteCopy(); }
    Traced& operator=(const Traced& other) {
        value = other.value;
        noteCopy();
        return *this;
    }
    ~Traced() = default;

    friend bool operator==(const Traced& a, const Traced& b) { return a.value == b.value; }

private:
    static void noteCopy() {
        ++copies;
        if (failingCopy != 0 && --failingCopy == 0) throw std::runtime_error("copy failed");
    }
};

} // namespace zt::orvex::flow

template <>
struct std::hash<zt::orvex::flow::Traced> {
    std::size_t operator()(const zt::orvex::flow::Traced& element) const {
        ++zt::orvex::flow::Traced::hashes;
        return static_cast<std::size_t>(element.value);
    }
};
