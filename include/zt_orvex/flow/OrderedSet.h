#pragma once

#include <zt_orvex/flow/ElementHash.h>

#include <boost/unordered/unordered_flat_map.hpp>

#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <vector>

namespace zt::orvex::flow {

/// A universe: a collection that numbers its elements densely, in order of first insertion.
///
/// An element is never removed, and its index never changes. `BitSet`s over the set point to it, so
/// it must outlive them, and must not be copied or moved away under them; it may grow meanwhile.
/// References to elements last until the next `add`. Not synchronised: concurrent reading alone is
/// safe.
///
///     OrderedSet<std::string> names({"a", "b", "a"});
///     names.size();         // 2
///     names.add("c");       // 2, its index
///     names.indexOf("d");   // throws
template <typename T>
class OrderedSet {
public:
    using const_iterator = typename std::vector<T>::const_iterator;

    OrderedSet() = default;
    /// Adds the elements in order, so that duplicates keep their first place.
    OrderedSet(std::initializer_list<T> list) : OrderedSet(list.begin(), list.end()) {}
    template <typename Iterator>
    OrderedSet(Iterator begin, Iterator end) {
        for (; begin != end; ++begin)
            add(*begin);
    }

    /// The element's index; a new element is appended and gets the next one. One hash look-up.
    std::uint64_t add(const T& element) {
        catchUp();
        const auto [entry, isNew] = indices.try_emplace(element, elements.size());
        if (isNew) append(element, entry);
        return entry->second;
    }

    /// As `add`, for an element that the caller knows to be new; that is not checked. Nothing is
    /// hashed here: the next look-up makes up for it, so do one before threads share the set.
    std::uint64_t appendNew(const T& element) {
        elements.push_back(element);
        return elements.size() - 1;
    }

    /// One hash look-up.
    bool contains(const T& element) const {
        catchUp();
        return indices.find(element) != indices.end();
    }

    /// One hash look-up. Throws std::invalid_argument("element not found") for an unknown element.
    std::uint64_t indexOf(const T& element) const {
        catchUp();
        const auto entry = indices.find(element);
        if (entry == indices.end()) throwNotFound();
        return entry->second;
    }

    /// The element's index, or `size()` for an unknown element. One hash look-up, and no exception.
    std::uint64_t indexOrSize(const T& element) const {
        catchUp();
        const auto entry = indices.find(element);
        return entry == indices.end() ? size() : entry->second;
    }

    std::uint64_t size() const { return elements.size(); }

    /// The index must be below `size()`; that is not checked.
    const T& elementAt(std::uint64_t index) const { return elements[index]; }

    /// Makes room for `count` elements in all, in one step.
    void reserve(std::uint64_t count) {
        indices.reserve(count);
        elements.reserve(count);
    }

    /// As `reserve`, but leaves the hash index: for sets that are only appended to.
    void reserveElements(std::uint64_t count) { elements.reserve(count); }

    /// Iterates in order of index.
    const_iterator begin() const { return elements.begin(); }
    const_iterator end() const { return elements.end(); }

private:
    using Indices = boost::unordered_flat_map<T, std::uint64_t, ElementHash<T>>;

    // The index comes before the element, so that an element is hashed once; a failure to store the
    // element takes the index back.
    void append(const T& element, typename Indices::iterator entry) {
        try {
            elements.push_back(element);
        } catch (...) {
            indices.erase(entry);
            throw;
        }
    }

    void catchUp() const {
        if (indices.size() != elements.size()) indexNewElements();
    }
    void indexNewElements() const {
        indices.reserve(elements.size());
        for (std::uint64_t index = indices.size(); index < elements.size(); ++index) {
            indices.emplace(elements[index], index);
        }
    }

    [[noreturn]] static void throwNotFound() { throw std::invalid_argument("element not found"); }

    mutable Indices indices; // lacks what `appendNew` has added since the last look-up
    std::vector<T> elements;
};

} // namespace zt::orvex::flow
