#pragma once

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/NodeView.h>

#include <cstdint>
#include <type_traits>

namespace zt::orvex {

/// The end of an iteration over a range view: reached when the index is no longer below the size.
struct RangeEnd {};

/// Iterates over the elements of a range view by index. Asks the size anew before each element.
template <typename Range>
class RangeIterator {
public:
    /// At the first element of `over`, which is copied.
    explicit RangeIterator(const Range& over) : range(over) {}

    /// The element, asked of the tree by each call.
    NodeView operator*() const { return range[index]; }
    /// Goes on to the next element, and asks nothing.
    RangeIterator& operator++() {
        ++index;
        return *this;
    }
    /// Whether there is an element here: asks the tree for the size.
    friend bool operator!=(const RangeIterator& a, RangeEnd) { return a.index < a.range.size(); }

private:
    Range range;
    std::uint64_t index = 0;
};

// A range view for each family: an ordered list of nodes in a consumer's tree.
//
// Three words, copied freely, owning nothing, valid as long as the tree: two opaque ones that mean
// something only to the IAstView, then the pointer to it. Each call of `size()` and `operator[]`
// calls the IAstView once. The index counts from 0 and must be below the size; it isn't checked.
//
//     for (NodeView statement : forStatement.getForBody()) use(statement);
#define ZT_ORVEX_RANGE_FAMILY(View, element, sizeOperation)                                        \
    class View {                                                                                   \
    public:                                                                                        \
        /** Names the range to `view`, together with `second`; the library never looks inside. */  \
        std::uint64_t first;                                                                       \
        /** The other word of the name. */                                                         \
        std::uint64_t second;                                                                      \
        /** The tree to ask; must outlive the range. */                                            \
        const IAstView* view;                                                                      \
                                                                                                   \
        /** How many elements there are: asks the tree. */                                         \
        std::uint64_t size() const { return view->sizeOperation(first, second); }                  \
        /** Asks the tree for the element. `index` must be below `size()`; that isn't checked. */  \
        NodeView operator[](std::uint64_t index) const {                                           \
            return view->element(index, first, second);                                            \
        }                                                                                          \
        /** At the first element; asks nothing. */                                                 \
        RangeIterator<View> begin() const { return RangeIterator<View>(*this); }                   \
        /** What an iterator is compared with to learn whether it has an element. */               \
        RangeEnd end() const { return {}; }                                                        \
    };                                                                                             \
    static_assert(sizeof(View) == 24 && std::is_trivially_copyable_v<View>);
#include <zt_orvex/ast/RangeFamilies.def>

} // namespace zt::orvex
