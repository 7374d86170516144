#pragma once

#include <zt_orvex/ast/TypedViews.h>

#include <cstdint>
#include <string>
#include <utility>

namespace zt::orvex::internal {

/// The text about a node whose kind is 0 or above 66.
std::string composeUnhandledKind(NodeKind kind);

/// Composes the text about an unknown kind and drops it: such a node is skipped, and nobody hears.
///
/// In a function of its own that is never inlined: the string stream would otherwise stand in the
/// frame of every recursive visitor.
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
/// There are two sorts. A visitor that must cover all kinds has no handler for `NodeView`: if it
/// misses a kind, it does not compile. One that ignores most kinds has it as the fallback that
/// overload resolution takes for the kinds without a handler.
///
/// A node of an unknown kind reaches no handler, not even the fallback, and is no error. The kind
/// is asked once. Every use instantiates the whole switch; nothing virtual stands between the
/// switch and the handler. Exceptions pass.
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
    // A function for each kind, which the switch ends in a jump to: the two words travel in
    // registers and the frame of the switch is gone by then. In one function all views and all
    // handlers that the compiler inlines would share a frame, which every recursive visitor pays
    // for; without optimisation even a handle passed whole would have 66 places in it.
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
