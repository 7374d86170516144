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
    explicit RangeIterator(const Range& over) : range(over) {}

    NodeView operator*() const { return range[index]; }
    RangeIterator& operator++() {
        ++index;
        return *this;
    }
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
        std::uint64_t first;                                                                       \
        std::uint64_t second;                                                                      \
        const IAstView* view;                                                                      \
                                                                                                   \
        std::uint64_t size() const { return view->sizeOperation(first, second); }                  \
        NodeView operator[](std::uint64_t index) const {                                           \
            return view->element(index, first, second);                                            \
        }                                                                                          \
        RangeIterator<View> begin() const { return RangeIterator<View>(*this); }                   \
        RangeEnd end() const { return {}; }                                                        \
    };                                                                                             \
    static_assert(sizeof(View) == 24 && std::is_trivially_copyable_v<View>);
#include <zt_orvex/ast/RangeFamilies.def>

} // namespace zt::orvex
