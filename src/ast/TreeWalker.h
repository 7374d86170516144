#pragma once

#include "ast/AstViewDispatcher.h"
#include "ast/Children.h"

namespace zt::orvex::internal {

/// Walks a tree in pre-order: for each node first a hook, then the children.
///
/// `Hook` is called with the typed view of every node; its overloads choose the kinds that it cares
/// for. The walk keeps no state of its own.
///
/// One level of the tree takes one frame, that of `enter` for the node's kind: the dispatch ends in
/// a jump to it, and handles travel in registers.
template <typename Hook>
class TreeWalker {
public:
    explicit TreeWalker(const Hook& hookToUse) : hook(hookToUse) {}

    [[gnu::noinline]] void walk(NodeView node) const { dispatch(*this, node); }

    template <typename View>
    [[gnu::always_inline]] inline void visit(const View& node) const {
        enter<View>(node);
    }

private:
    template <typename View>
    [[gnu::noinline]] void enter(NodeView node) const {
        hook(View(node));
        Children<View>::visit(node, [this](NodeView child) { walk(child); });
    }

    const Hook& hook;
};

} // namespace zt::orvex::internal
