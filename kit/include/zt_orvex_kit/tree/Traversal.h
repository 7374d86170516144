#pragma once

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex_kit/Export.h>
#include <zt_orvex_kit/tree/Children.h>
#include <zt_orvex_kit/tree/Place.h>

#include <cstddef>
#include <functional>
#include <optional>

namespace zt::orvex::kit {

namespace internal {
class TraversalStack;
}

/// What a traversal does next.
enum class Next {
    Descend, ///< Go on with the children.
    Skip,    ///< Leave the children out. `leave` is called for the node all the same.
    Stop,    ///< End the traversal at once, without further calls.
};

/// The node that a traversal is at, and the way to it. Valid during the call that gets it.
class Visit {
public:
    /// Only a traversal makes one.
    explicit Visit(const internal::TraversalStack& of) : stack(&of) {}

    /// The node.
    ZT_ORVEX_KIT_EXPORT const NodeView& node() const;
    /// The kind that the node answered when the traversal came to it.
    ZT_ORVEX_KIT_EXPORT NodeKind kind() const;
    /// What the node is to its parent.
    ZT_ORVEX_KIT_EXPORT ChildRole role() const;
    /// How many levels the node is below the root of the traversal.
    ZT_ORVEX_KIT_EXPORT std::size_t depth() const;
    /// The ancestor `levels` above the node, from 1 for its parent; none above the root.
    ZT_ORVEX_KIT_EXPORT std::optional<NodeView> ancestor(std::size_t levels = 1) const;
    /// The way from the root. Cost: linear in the depth.
    ZT_ORVEX_KIT_EXPORT Place place() const;

private:
    const internal::TraversalStack* stack;
};

/// What to do at each node. Either may be empty.
struct TraversalCallbacks {
    std::function<Next(const Visit&)> enter; ///< Before the children; empty means `Descend`.
    std::function<void(const Visit&)> leave; ///< After the children.
};

/// Visits `root` and all nodes below it, in the order of `forEachNodeIn`. Returns false if it was
/// stopped.
///
///     traverse(root, {[&](const Visit& visit) {
///                         text += std::string(visit.depth() * 2, ' ');
///                         text += kindName(visit.kind());
///                         text += '\n';
///                         return Next::Descend;
///                     },
///                     {}});
///
/// Keeps the path in the heap, less than 100 bytes a level, and doesn't recurse: the depth of the
/// tree is limited by memory alone. A node of an unknown kind is skipped silently, as everywhere.
/// The tree must have an end; `checkTree` tells whether it has. Exceptions pass through.
ZT_ORVEX_KIT_EXPORT bool traverse(const NodeView& root, const TraversalCallbacks& callbacks);

} // namespace zt::orvex::kit
