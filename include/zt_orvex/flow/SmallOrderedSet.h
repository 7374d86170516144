#pragma once

#include <zt_orvex/flow/internal/HashIndex.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace zt::orvex::flow {

/// A set of values that are cheap to copy and to default-construct, iterated in order of first
/// insertion, regardless of their addresses.
///
/// Up to four elements are kept in place and searched one by one, without allocation; a larger set
/// has an array and a hash index.
template <typename T>
class SmallOrderedSet {
public:
    /// Appends `element`, unless it is a member already. If it throws, the set is unchanged.
    void insert(T element) {
        if (contains(element)) return;
        reserve(count + 1);
        append(element);
    }

    /// Inserts the elements of a range, in its order. If it throws, the elements before the one
    /// that failed have been inserted.
    template <typename Range>
    void insertAll(const Range& others) {
        for (const T& other : others)
            insert(other);
    }

    /// Adds all of `others`, and empties it. The smaller set goes into the larger, which then comes
    /// first in the order: merging many sets into one stays cheap however often it is done. If it
    /// throws, both sets are unchanged.
    void merge(SmallOrderedSet& others) {
        if (&others == this) return;
        const bool isSmaller = others.size() > size();
        (isSmaller ? others : *this).reserve(size() + others.size());
        // Nothing can fail from here on.
        if (isSmaller) std::swap(*this, others);
        insertAll(others);
        others.clear();
    }

    /// Whether `element` is a member. At most four comparisons, or one hash lookup.
    bool contains(T element) const {
        if (count <= IN_PLACE) return std::find(begin(), end(), element) != end();
        const auto isAt = [&](std::uint64_t place) { return many[place] == element; };
        return index.find(Index::keyOf(element), isAt) != Index::NONE;
    }

    /// Removes all elements.
    void clear() {
        // A fresh index: clearing one that was large costs its whole table every time.
        if (count > IN_PLACE) index = {};
        many.clear();
        count = 0;
    }

    /// The number of elements.
    std::size_t size() const { return count; }
    /// Whether the set is empty.
    bool empty() const { return count == 0; }
    /// At the element that was inserted first. Lasts until the set changes.
    const T* begin() const { return count <= IN_PLACE ? few.data() : many.data(); }
    /// After the element that was inserted last.
    const T* end() const { return begin() + count; }

private:
    using Index = internal::HashIndex<T>;
    static constexpr std::size_t IN_PLACE = 4;

    /// Makes room for `total` elements, so that `append` can't fail.
    void reserve(std::size_t total) {
        if (total <= IN_PLACE) return;
        index.reserve(total);
        if (total > many.capacity()) many.reserve(std::max(total, 2 * many.capacity()));
    }

    void append(T element) {
        if (count < IN_PLACE) {
            few[count++] = element;
            return;
        }
        if (count == IN_PLACE) {
            for (const T known : few)
                appendToMany(known);
        }
        appendToMany(element);
        ++count;
    }

    void appendToMany(T element) {
        index.insert(Index::keyOf(element), many.size());
        many.push_back(element);
    }

    std::size_t count = 0;
    std::array<T, IN_PLACE> few{}; // the elements, while there are at most so many
    std::vector<T> many;           // the elements, when there are more
    Index index;                   // of `many`
};

} // namespace zt::orvex::flow
