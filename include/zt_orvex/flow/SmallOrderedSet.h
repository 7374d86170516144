#pragma once

#include <zt_orvex/flow/ElementHash.h>

#include <boost/container/small_vector.hpp>
#include <boost/unordered/unordered_flat_set.hpp>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zt::orvex::flow {

/// A set of values that are cheap to copy, iterated in order of first insertion, whatever their
/// addresses.
///
/// Up to four elements are kept in place and searched one by one, without allocation; a larger set
/// adds a hash index.
template <typename T>
class SmallOrderedSet {
public:
    /// Does nothing when `element` is a member already.
    void insert(T element) {
        if (contains(element)) return;
        elements.push_back(element);
        if (elements.size() == IN_PLACE + 1) {
            index.insert(elements.begin(), elements.end());
        } else if (elements.size() > IN_PLACE) {
            index.insert(element);
        }
    }

    template <typename Range>
    void insertAll(const Range& others) {
        for (const T& other : others)
            insert(other);
    }

    /// Adds all of `others`, and empties it. The smaller set goes into the larger, which then comes
    /// first in the order: merging many sets into one stays cheap however often it is done.
    void merge(SmallOrderedSet& others) {
        if (others.size() > size()) std::swap(*this, others);
        insertAll(others);
        others.clear();
    }

    bool contains(T element) const {
        if (elements.size() > IN_PLACE) return index.find(element) != index.end();
        return std::find(elements.begin(), elements.end(), element) != elements.end();
    }

    void clear() {
        // A fresh index: clearing one that was large costs its whole table every time.
        if (elements.size() > IN_PLACE) index = {};
        elements.clear();
    }

    std::size_t size() const { return elements.size(); }
    bool empty() const { return elements.empty(); }
    auto begin() const { return elements.begin(); }
    auto end() const { return elements.end(); }

private:
    static constexpr std::size_t IN_PLACE = 4;

    boost::container::small_vector<T, IN_PLACE> elements;
    boost::unordered_flat_set<T, ElementHash<T>> index; // used only beyond IN_PLACE elements
};

} // namespace zt::orvex::flow
