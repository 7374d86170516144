#pragma once

#include <zt_orvex/ast/TypedViews.h>

#include <cstdint>
#include <string>
#include <utility>

namespace zt::orvex::internal {

/// The message about a node of an unknown kind.
std::string composeUnhandledKind(NodeKind kind);

/// Composes the message about an unknown kind and drops it: the node is skipped silently.
///
/// A function of its own that is never inlined: otherwise the string stream would be in the frame
/// of every recursive visitor.
[[gnu::cold, gnu::noinline]] void dropUnhandledKind(NodeKind kind);

/// Asks a node's kind and jumps to the visitor's handler for it.
///
/// A visitor is any class with an overload set of handlers, each taking the typed view of a kind by
/// reference to const and then the further arguments of the dispatch:
///
///   struct Printer {
///       void visit(const IfStatementView& statement, int indent);
///       void visit(const WhileStatementView& statement, int indent);
///       void visit(const NodeView&, int) {}  // All other kinds.
///   };
///   dispatch(printer, node, 4);
///
/// A visitor that must cover all kinds has no handler for `NodeView`: if it misses a kind, it
/// doesn't compile. A visitor that ignores most kinds has one, as the fallback that overload
/// resolution picks for kinds without a handler of their own.
///
/// A node of an unknown kind reaches no handler, not even the fallback, and isn't an error. The
/// kind is asked once. Every use instantiates the whole switch; there is no virtual call between
/// the switch and the handler. Exceptions propagate.
template <typename Visitor>
class AstViewDispatcher {
public:
    template <typename... Args>
    [[gnu::always_inline]] static inline void dispatch(Visitor& visitor, const NodeView& node,
                                                       Args&&... args) {
        const NodeKind kind = node.getKind();
        switch (kind) {
#define ZT_ORVEX_NODE_KIND(Name, Class)                                                            \
    case NodeKind::Name:                                                                           \
        return handle<Name##View>(visitor, node.node, node.view, std::forward<Args>(args)...);
#include <zt_orvex/ast/NodeKinds.def>
        case NodeKind::Invalid:
            break;
        }
        dropUnhandledKind(kind);
    }

private:
    // A function for each kind, reached by a tail call: the two words travel in registers, and the
    // frame of the switch is gone by then. In a single function, all views and all inlined handlers
    // would share one frame, and every recursive visitor would pay for it; without optimisation the
    // frame would even hold a copy of the handle for each kind.
    template <typename View, typename... Args>
    [[gnu::noinline]] static void handle(Visitor& visitor, std::uint64_t node, const IAstView* view,
                                         Args&&... args) {
        visitor.visit(View(NodeView{node, view}), std::forward<Args>(args)...);
    }
};

template <typename Visitor, typename... Args>
[[gnu::always_inline]] inline void dispatch(Visitor& visitor, const NodeView& node,
                                            Args&&... args) {
    AstViewDispatcher<Visitor>::dispatch(visitor, node, std::forward<Args>(args)...);
}

} // namespace zt::orvex::internal
