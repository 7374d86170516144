#pragma once

#include <zt_orvex/flow/internal/HashIndex.h>

#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <vector>

namespace zt::orvex::flow {

/// A universe: a collection that numbers its elements densely, in order of first insertion.
///
/// An element is never removed, and its index never changes. `BitSet`s over the set point to it, so
/// it must outlive them and must not be copied or moved away under them; it may grow meanwhile.
/// References to elements last until the next `add`. Not synchronised: concurrent reads are safe,
/// and nothing else is.
///
/// Handles and pointers are hashed by FNV-1a, other elements by `std::hash`.
///
///     OrderedSet<std::string> names({"a", "b", "a"});
///     names.size();         // 2
///     names.add("c");       // 2, its index
///     names.indexOf("d");   // throws
template <typename T>
class OrderedSet {
public:
    /// Gives the elements in order of index. An `add` makes it invalid.
    using const_iterator = typename std::vector<T>::const_iterator;

    /// The empty set. Allocates nothing.
    OrderedSet() = default;
    /// Adds the elements in order, so that duplicates keep their first place.
    OrderedSet(std::initializer_list<T> list) : OrderedSet(list.begin(), list.end()) {}
    /// The same for a range of any iterators.
    template <typename Iterator>
    OrderedSet(Iterator begin, Iterator end) {
        for (; begin != end; ++begin)
            add(*begin);
    }

    /// The element's index; a new element is appended and gets the next one. Hashes once. If it
    /// throws, the set is unchanged.
    std::uint64_t add(const T& element) {
        const std::uint64_t key = Index::keyOf(element);
        const std::uint64_t known = find(key, element);
        if (known != Index::NONE) return known;
        index.reserve(size() + 1);
        elements.push_back(element);
        index.insert(key, size() - 1);
        return size() - 1;
    }

    /// Whether the set has `element`. One hash lookup.
    bool contains(const T& element) const {
        return find(Index::keyOf(element), element) != Index::NONE;
    }

    /// The element's index. One hash lookup. Throws std::invalid_argument("element not found") for
    /// an unknown element.
    std::uint64_t indexOf(const T& element) const {
        const std::uint64_t known = find(Index::keyOf(element), element);
        if (known == Index::NONE) throwNotFound();
        return known;
    }

    /// The element's index, or `size()` for an unknown element. One hash lookup, and no exception.
    std::uint64_t indexOrSize(const T& element) const {
        const std::uint64_t known = find(Index::keyOf(element), element);
        return known == Index::NONE ? size() : known;
    }

    /// The number of elements, and the index that the next one gets.
    std::uint64_t size() const { return elements.size(); }

    /// The element of an index, by reference until the next `add`. `place` must be below `size()`;
    /// that isn't checked.
    const T& elementAt(std::uint64_t place) const { return elements[place]; }

    /// Makes room for `count` elements in all, in one step. If it throws, the set is unchanged.
    void reserve(std::uint64_t count) {
        index.reserve(count);
        elements.reserve(count);
    }

    /// At the element of index 0.
    const_iterator begin() const { return elements.begin(); }
    /// After the element of the highest index.
    const_iterator end() const { return elements.end(); }

private:
    using Index = internal::HashIndex<T>;

    std::uint64_t find(std::uint64_t key, const T& element) const {
        return index.find(key, [&](std::uint64_t place) { return elements[place] == element; });
    }

    [[noreturn]] static void throwNotFound() { throw std::invalid_argument("element not found"); }

    Index index;
    std::vector<T> elements;
};

} // namespace zt::orvex::flow
