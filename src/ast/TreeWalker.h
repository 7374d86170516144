#pragma once

#include "ast/AstViewDispatcher.h"
#include "ast/Children.h"

namespace zt::orvex::internal {

/// Walks a tree in pre-order: for each node first a hook, then the children.
///
/// `Hook` is called with the typed view of every node; its overloads choose the kinds that it cares
/// for. The walk keeps no state of its own.
///
/// One level of the tree takes one frame of an optimised build: the dispatch ends in a jump to the
/// function for the node's kind, into which all of a row of Children is inlined, and handles travel
/// in registers.
template <typename Hook>
class TreeWalker {
public:
    explicit TreeWalker(const Hook& hookToUse) : hook(hookToUse) {}

    /// Walks the tree below and including `node`.
    [[gnu::noinline]] void operator()(NodeView node) const { dispatch(*this, node); }

    template <typename View>
    [[gnu::always_inline]] inline void visit(const View& node) const {
        hook(node);
        Children<View>::visit(node, *this);
    }

private:
    const Hook& hook;
};

} // namespace zt::orvex::internal
