#pragma once

#include <zt_orvex/flow/internal/HashIndex.h>

#include <boost/container/small_vector.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace zt::orvex::flow {

/// A set of values that are cheap to copy, iterated in order of first insertion, regardless of
/// their addresses.
///
/// Up to four elements are kept in place and searched one by one, without allocation; a larger set
/// adds a hash index.
template <typename T>
class SmallOrderedSet {
public:
    /// Does nothing when `element` is a member already. If it throws, the set is unchanged.
    void insert(T element) {
        if (contains(element)) return;
        if (elements.size() >= IN_PLACE) index.reserve(elements.size() + 1);
        elements.push_back(element);
        if (elements.size() == IN_PLACE + 1) {
            for (std::size_t place = 0; place < elements.size(); ++place)
                enter(place);
        } else if (elements.size() > IN_PLACE) {
            enter(elements.size() - 1);
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
        if (&others == this) return;
        if (others.size() > size()) std::swap(*this, others);
        insertAll(others);
        others.clear();
    }

    bool contains(T element) const {
        if (elements.size() > IN_PLACE) {
            const auto isAt = [&](std::uint64_t place) { return elements[place] == element; };
            return index.find(Index::keyOf(element), isAt) != Index::NONE;
        }
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
    using Index = internal::HashIndex<T>;
    static constexpr std::size_t IN_PLACE = 4;

    void enter(std::size_t place) { index.insert(Index::keyOf(elements[place]), place); }

    boost::container::small_vector<T, IN_PLACE> elements;
    Index index; // of the elements, used only beyond IN_PLACE of them
};

} // namespace zt::orvex::flow
