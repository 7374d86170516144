#pragma once

#include "ast/AstViewDispatcher.h"
#include "ast/Children.h"

#include <cstdint>
#include <iterator>
#include <type_traits>

namespace zt::orvex::internal {

/// Walks a tree in pre-order: for each node first a hook, then the children.
///
/// `Hook` is called with every node of a known kind, and its kind; others are skipped. The walk
/// keeps no state of its own.
///
/// How to go on below a node stands in a table of functions by kind, with none for kinds without
/// children: the processor guesses whether there is one better than where a jump leads to, and half
/// of the nodes of an expression have none. A walk takes two thirds of the time that a call for
/// each node with a switch over the kinds would take.
///
/// One level of the tree takes one frame of an optimised build: all of a row of Children is inlined
/// into the function for its kind, and handles travel in registers.
template <typename Hook>
class TreeWalker {
public:
    explicit TreeWalker(const Hook& hookToUse) : hook(hookToUse) {}

    /// Walks the tree below and including `node`. The frame is gone before the children are walked.
    [[gnu::noinline]] void operator()(NodeView node) const { walk(node); }

    /// Walks the trees below a node of a kind known when compiling.
    ///
    /// The kinds of expressions, which have one or two children that are always there, get the walk
    /// of a child inlined. Elsewhere the frame would grow with each child.
    template <typename View>
    [[gnu::always_inline]] inline void visit(const View& node) const {
        if constexpr (Children<View>::IS_FIXED) {
            const auto inPlace = [this](const NodeView& child) __attribute__((always_inline)) {
                walk(child);
            };
            Children<View>::visit(node, inPlace);
        } else {
            Children<View>::visit(node, *this);
        }
    }

private:
    using Descent = void (*)(const TreeWalker&, std::uint64_t, const IAstView*);

    [[gnu::always_inline]] inline void walk(const NodeView& node) const {
        const NodeKind kind = node.getKind();
        if (!isKnown(kind)) return dropUnhandledKind(kind);
        const Descent descend = DESCENTS[static_cast<std::uint8_t>(kind)];
        hook(node, kind);
        if (descend != nullptr) descend(*this, node.node, node.view);
    }

    template <typename View>
    static void walkChildren(const TreeWalker& walker, std::uint64_t node, const IAstView* view) {
        walker.visit(View(NodeView{node, view}));
    }

    template <typename View>
    static constexpr Descent descentInto() {
        if constexpr (std::is_base_of_v<Leaf, Children<View>>) {
            return nullptr;
        } else {
            return &walkChildren<View>;
        }
    }

    static bool isKnown(NodeKind kind) {
        return kind != NodeKind::Invalid && static_cast<std::uint8_t>(kind) < std::size(DESCENTS);
    }

    // By kind.
    static constexpr Descent DESCENTS[] = {
        nullptr,
#define ZT_ORVEX_NODE_KIND(Name, Class) descentInto<Name##View>(),
#include <zt_orvex/ast/NodeKinds.def>
    };

    Hook hook;
};

} // namespace zt::orvex::internal
