#pragma once

#include "ast/AstViewDispatcher.h"
#include "ast/Children.h"

#include <cstdint>
#include <iterator>

namespace zt::orvex::internal {

/// Walks a tree in pre-order: for each node first a hook, then the children.
///
/// `Hook` is called with every node of a known kind, and its kind; others are skipped. The walk
/// keeps no state of its own.
///
/// A table of functions by kind says how to descend from a node, with no function for kinds without
/// children: a processor predicts whether a call is made better than where an indirect jump leads,
/// and half of the nodes of an expression are leaves. The benchmark row forEachNodeIn shows what
/// that is worth.
///
/// In an optimised build, one level of the tree takes one frame: visiting all children of a kind is
/// inlined into the function for that kind, and handles travel in registers.
template <typename Hook>
class TreeWalker {
public:
    explicit TreeWalker(const Hook& hookToUse) : hook(hookToUse) {}

    /// Walks the tree whose root is `node`. The frame is gone before the children are walked.
    [[gnu::noinline]] void operator()(NodeView node) const { walk(node); }

private:
    using Descent = void (*)(const TreeWalker&, std::uint64_t, const IAstView*);

    [[gnu::always_inline]] inline void walk(const NodeView& node) const {
        const NodeKind kind = node.getKind();
        if (!isKnown(kind)) return dropUnhandledKind(kind);
        const Descent descend = DESCENTS[static_cast<std::uint8_t>(kind)];
        hook(node, kind);
        if (descend != nullptr) descend(*this, node.node, node.view);
    }

    /// Most kinds of expressions have one or two children that are always there: the walk of such a
    /// child is inlined. Elsewhere the frame would grow with each child.
    template <NodeKind kind>
    static void walkChildren(const TreeWalker& walker, std::uint64_t node, const IAstView* view) {
        if constexpr (Children<kind>::IS_FIXED) {
            const auto inPlace = [&walker](const NodeView& child) __attribute__((always_inline)) {
                walker.walk(child);
            };
            Children<kind>::visit(NodeView{node, view}, inPlace);
        } else {
            Children<kind>::visit(NodeView{node, view}, walker);
        }
    }

    template <NodeKind kind>
    static constexpr Descent descentInto() {
        if constexpr (Children<kind>::IS_LEAF) {
            return nullptr;
        } else {
            return &walkChildren<kind>;
        }
    }

    static bool isKnown(NodeKind kind) {
        return kind != NodeKind::Invalid && static_cast<std::uint8_t>(kind) < std::size(DESCENTS);
    }

    // By kind.
    static constexpr Descent DESCENTS[] = {
        nullptr,
#define ZT_ORVEX_NODE_KIND(Name, Class) descentInto<NodeKind::Name>(),
#include <zt_orvex/ast/NodeKinds.def>
    };

    Hook hook;
};

} // namespace zt::orvex::internal
