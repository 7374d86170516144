#include <zt_orvex_kit/tree/Traversal.h>

#include "tree/TraversalStack.h"

namespace zt::orvex::kit {

const NodeView& Visit::node() const { return stack->top().node; }

NodeKind Visit::kind() const { return stack->top().kind; }

ChildRole Visit::role() const {
    if (depth() == 0) return {};
    return stack->at(depth() - 1).children.role();
}

std::size_t Visit::depth() const { return stack->size() - 1; }

std::optional<NodeView> Visit::ancestor(std::size_t levels) const {
    if (levels > depth()) return std::nullopt;
    return stack->at(depth() - levels).node;
}

Place Visit::place() const { return stack->place(); }

namespace {

class Traversal {
public:
    explicit Traversal(const TraversalCallbacks& toCall) : callbacks(toCall) {}

    bool run(const NodeView& root) {
        if (!enter(root)) return false;
        while (!stack.empty()) {
            NodeView child = {};
            if (!isSkipping && stack.top().children.advance(child)) {
                if (!enter(child)) return false;
            } else {
                leave();
            }
        }
        return true;
    }

private:
    /// Returns false if the traversal is to stop.
    bool enter(const NodeView& node) {
        const NodeKind kind = node.getKind();
        if (!internal::isKnown(kind)) return true;
        stack.enter(node, kind);
        const Next next = callbacks.enter ? callbacks.enter(Visit(stack)) : Next::Descend;
        isSkipping = next == Next::Skip;
        return next != Next::Stop;
    }

    void leave() {
        if (callbacks.leave) callbacks.leave(Visit(stack));
        stack.leave();
        isSkipping = false;
    }

    const TraversalCallbacks& callbacks;
    internal::TraversalStack stack;
    bool isSkipping = false; ///< Whether to leave out the children of the node at the top.
};

} // namespace

bool traverse(const NodeView& root, const TraversalCallbacks& callbacks) {
    return Traversal(callbacks).run(root);
}

} // namespace zt::orvex::kit
