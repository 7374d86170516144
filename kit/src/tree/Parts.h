#pragma once

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/RangeViews.h>

#include <boost/optional.hpp>

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace zt::orvex::kit::internal {

// The table of kinds as data: the children of a node for code that treats all kinds alike. The walks
// of the library come from the same table, as templates.

/// A range view of any family.
struct Range {
    std::uint64_t first;
    std::uint64_t second;
    const IAstView* view;
};

/// How to ask the ranges of a family.
struct RangeFamily {
    const char* elementName;
    const char* sizeName;
    NodeView (IAstView::*element)(std::uint64_t, std::uint64_t, std::uint64_t) const;
    std::uint64_t (IAstView::*size)(std::uint64_t, std::uint64_t) const;

    NodeView elementOf(const Range& range, std::uint64_t index) const {
        return (range.view->*element)(index, range.first, range.second);
    }
    std::uint64_t sizeOf(const Range& range) const {
        return (range.view->*size)(range.first, range.second);
    }
};

/// By the class of the range view.
template <typename View>
extern const RangeFamily FAMILY;
#define ZT_ORVEX_RANGE_FAMILY(View, element, size)                                                 \
    template <>                                                                                    \
    inline constexpr RangeFamily FAMILY<View> = {#element, #size, &IAstView::element,              \
                                                 &IAstView::size};
#include <zt_orvex/ast/RangeFamilies.def>

/// The forms that a row of the table can have, as NodeKinds.def describes them.
enum class Form : std::uint8_t { One, Maybe, Each, Held };

/// A part of a node: a child, an optional one or a range of them. Of the three accessors there is
/// the one that `form` takes.
struct Part {
    using One = NodeView (IAstView::*)(std::uint64_t) const;
    using Maybe = boost::optional<NodeView> (IAstView::*)(std::uint64_t) const;
    using Each = Range (*)(const IAstView&, std::uint64_t);

    NodeKind owner;
    const char* name;
    Form form;
    NodeKind held = NodeKind::Invalid; ///< What getInputParameterKind answers if it is there.
    One one = nullptr;
    Maybe maybe = nullptr; ///< Of the form `Held`, too.
    Each range = nullptr;
    const RangeFamily* family = nullptr;

    constexpr Part(NodeKind of, const char* named, One accessor)
        : owner(of), name(named), form(Form::One), one(accessor) {}
    constexpr Part(NodeKind of, const char* named, Maybe accessor)
        : owner(of), name(named), form(Form::Maybe), maybe(accessor) {}
    constexpr Part(NodeKind of, const char* named, Each accessor, const RangeFamily& elements)
        : owner(of), name(named), form(Form::Each), range(accessor), family(&elements) {}
    constexpr Part(NodeKind of, const char* named, Maybe accessor, NodeKind heldKind)
        : owner(of), name(named), form(Form::Held), held(heldKind), maybe(accessor) {}
};

template <typename View, View (IAstView::*accessor)(std::uint64_t) const>
Range askRange(const IAstView& view, std::uint64_t node) {
    const View range = (view.*accessor)(node);
    return {range.first, range.second, range.view};
}

/// All rows, in the order of the table.
inline constexpr Part PARTS[] = {
#define ZT_ORVEX_ONE(Kind, accessor) {NodeKind::Kind, #accessor, &IAstView::accessor},
#define ZT_ORVEX_MAYBE(Kind, accessor) {NodeKind::Kind, #accessor, &IAstView::accessor},
#define ZT_ORVEX_EACH(Kind, accessor, View)                                                        \
    {NodeKind::Kind, #accessor, &askRange<View, &IAstView::accessor>, FAMILY<View>},
#define ZT_ORVEX_HELD(Kind, accessor, Child)                                                       \
    {NodeKind::Kind, #accessor, &IAstView::accessor, NodeKind::Child},
#include <zt_orvex/ast/NodeKinds.def>
};

/// The parts of the nodes of one kind.
class PartsOf {
public:
    /// None for an unknown kind.
    constexpr explicit PartsOf(NodeKind kind) {
        const auto value = static_cast<std::uint8_t>(kind);
        if (value < std::size(STARTS.first) - 1) {
            first = PARTS + STARTS.first[value];
            last = PARTS + STARTS.first[value + 1];
        }
    }

    constexpr const Part* begin() const { return first; }
    constexpr const Part* end() const { return last; }
    constexpr bool empty() const { return first == last; }

private:
    static constexpr std::size_t KINDS = 1
#define ZT_ORVEX_NODE_KIND(Name, Class) +1
#include <zt_orvex/ast/NodeKinds.def>
        ;

    /// Where the parts of each kind begin, by kind, and at last where those of the last one end.
    struct Starts {
        std::uint8_t first[KINDS + 1] = {};
    };
    static constexpr Starts findStarts() {
        Starts starts;
        std::size_t part = 0;
        for (std::size_t kind = 0; kind <= KINDS; ++kind) {
            while (part < std::size(PARTS) && static_cast<std::size_t>(PARTS[part].owner) < kind)
                ++part;
            starts.first[kind] = static_cast<std::uint8_t>(part);
        }
        return starts;
    }
    static_assert(std::size(PARTS) <= UINT8_MAX);
    static const Starts STARTS;

    const Part* first = nullptr;
    const Part* last = nullptr;
};

inline constexpr PartsOf::Starts PartsOf::STARTS = findStarts();

/// Whether a kind is in the table.
constexpr bool isKnown(NodeKind kind) {
    constexpr std::size_t COUNT = 0
#define ZT_ORVEX_NODE_KIND(Name, Class) +1
#include <zt_orvex/ast/NodeKinds.def>
        ;
    return kind != NodeKind::Invalid && static_cast<std::uint8_t>(kind) <= COUNT;
}

} // namespace zt::orvex::kit::internal
