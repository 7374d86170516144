#pragma once

#include "tree/ChildCursor.h"

#include <zt_orvex_kit/tree/Place.h>
#include <zt_orvex_kit/tree/Traversal.h>

#include <cstddef>
#include <vector>

namespace zt::orvex::kit::internal {

/// The path from the root of a traversal to the node that it is at.
class TraversalStack {
public:
    struct Level {
        NodeView node;
        NodeKind kind;
        ChildCursor children; ///< Beyond the node's child on the path.
    };

    void enter(const NodeView& node, NodeKind kind) {
        levels.push_back({node, kind, ChildCursor(node, kind)});
    }
    void leave() { levels.pop_back(); }

    bool empty() const { return levels.empty(); }
    std::size_t size() const { return levels.size(); }
    Level& top() { return levels.back(); }
    const Level& top() const { return levels.back(); }
    /// From 0 for the root.
    const Level& at(std::size_t depth) const { return levels[depth]; }

    /// The way from the root to the top.
    Place place() const {
        Place steps;
        for (std::size_t depth = 0; depth + 1 < levels.size(); ++depth)
            steps.push_back({levels[depth].kind, levels[depth].children.role()});
        return steps;
    }

private:
    std::vector<Level> levels;
};

} // namespace zt::orvex::kit::internal
