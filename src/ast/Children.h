#pragma once

#include <zt_orvex/ast/TypedViews.h>

#include <boost/optional.hpp>

#include <cstdint>

namespace zt::orvex::internal {

// The children of a node, in the order in which a walk visits them: the order of NodeKinds.def.
//
// How a part of a node asks the tree is settled here, once for each form that a row of the table
// can have.

/// A child that is always there.
template <NodeView (IAstView::*accessor)(std::uint64_t) const>
struct One {
    template <typename Walk>
    static void visit(const NodeView& node, const Walk& walk) {
        walk((node.view->*accessor)(node.node));
    }
};

/// A child that may be absent.
template <boost::optional<NodeView> (IAstView::*accessor)(std::uint64_t) const>
struct Maybe {
    /// Asks once to see whether the child is there and again to use it. A tree that changes its
    /// answer in between has no child here.
    template <typename Walk>
    static void visit(const NodeView& node, const Walk& walk) {
        if (!isThere(node)) return;
        const boost::optional<NodeView> child = (node.view->*accessor)(node.node);
        if (child) walk(*child);
    }

private:
    static bool isThere(const NodeView& node) {
        return (node.view->*accessor)(node.node).has_value();
    }
};

/// The elements of a range.
template <auto accessor>
struct Each {
    /// Asks the size anew before each element: a range that shrinks during the walk ends early.
    template <typename Walk>
    static void visit(const NodeView& node, const Walk& walk) {
        const auto range = (node.view->*accessor)(node.node);
        for (std::uint64_t i = 0; i < range.size(); ++i)
            walk(range[i]);
    }
};

/// The one child of an InputParameter, which says by kind in which of two accessors it is.
struct Held {
    /// Asks the accessor once: the kind has already told that the child is there. If it isn't after
    /// all, or if the kind is any other, the parameter has no child.
    template <typename Walk>
    static void visit(const NodeView& node, const Walk& walk) {
        const boost::optional<NodeView> held = getHeld(InputParameterView(node));
        if (held) walk(*held);
    }

private:
    static boost::optional<NodeView> getHeld(const InputParameterView& parameter) {
        switch (parameter.getInputParameterKind()) {
#define ZT_ORVEX_HELD(Kind, accessor, Held)                                                        \
    case NodeKind::Held:                                                                           \
        return parameter.accessor();
#include <zt_orvex/ast/NodeKinds.def>
        default:
            return boost::none;
        }
    }
};

/// The children of the nodes of one kind.
template <NodeKind kind>
struct Children {
    /// Whether every part is one child that is always there. So it is for kinds without parts.
    static constexpr bool IS_FIXED = kind != NodeKind::InputParameter
#define ZT_ORVEX_MAYBE(Kind, accessor) &&kind != NodeKind::Kind
#define ZT_ORVEX_EACH(Kind, accessor, View) &&kind != NodeKind::Kind
#include <zt_orvex/ast/NodeKinds.def>
        ;

    /// Whether no node of the kind has a child.
    static constexpr bool IS_LEAF = IS_FIXED
#define ZT_ORVEX_ONE(Kind, accessor) &&kind != NodeKind::Kind
#include <zt_orvex/ast/NodeKinds.def>
        ;

    /// Calls walk(NodeView) for each child of `node`.
    template <typename Walk>
    static void visit(const NodeView& node, const Walk& walk) {
#define ZT_ORVEX_ONE(Kind, accessor)                                                               \
    if constexpr (kind == NodeKind::Kind) One<&IAstView::accessor>::visit(node, walk);
#define ZT_ORVEX_MAYBE(Kind, accessor)                                                             \
    if constexpr (kind == NodeKind::Kind) Maybe<&IAstView::accessor>::visit(node, walk);
#define ZT_ORVEX_EACH(Kind, accessor, View)                                                        \
    if constexpr (kind == NodeKind::Kind) Each<&IAstView::accessor>::visit(node, walk);
#include <zt_orvex/ast/NodeKinds.def>
        if constexpr (kind == NodeKind::InputParameter) Held::visit(node, walk);
    }
};

} // namespace zt::orvex::internal
