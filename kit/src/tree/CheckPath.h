#pragma once

#include "tree/NameScopes.h"
#include "tree/Parts.h"
#include "tree/Roles.h"

#include <zt_orvex_kit/tree/Place.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zt::orvex::kit::internal {

/// A node on the path of a check, and how far the check of its parts has come.
struct CheckLevel {
    NodeView node;
    NodeKind kind;
    NodeKind held;             ///< What a parameter says that it holds.
    Use use;                   ///< What becomes of the node.
    bool isInRange = false;    ///< Whether the elements of `part` are being checked.
    bool isChildBegun = false; ///< Whether the child that the level is at has been checked.
    NameScopes::ScopeId scope; ///< That of the names in the node.
    const Part* part;          ///< The one that the level is at.
    const Part* end;
    // If `part` is a range: the two answers to one question, and where in the range the level is.
    Range range = {};
    Range again = {};
    std::uint64_t size = 0;
    std::uint64_t index = 0;

    ChildRole role() const { return {part->name, isInRange ? index : 0, isInRange}; }
};

/// The nodes from the root to where a check is.
class CheckPath {
public:
    bool empty() const { return levels.empty(); }
    std::size_t size() const { return levels.size(); }
    CheckLevel& top() { return levels.back(); }
    const CheckLevel& top() const { return levels.back(); }
    void push(const CheckLevel& level) { levels.push_back(level); }
    void pop() { levels.pop_back(); }

    bool contains(const NodeView& node) const {
        for (const CheckLevel& level : levels) {
            if (level.node == node) return true;
        }
        return false;
    }

    /// The place of the child that the top is at; that of the root if the path is empty.
    Place placeOfChild() const {
        Place place;
        place.reserve(levels.size() + 1);
        for (const CheckLevel& level : levels)
            place.push_back({level.kind, level.role()});
        return place;
    }

private:
    std::vector<CheckLevel> levels;
};

} // namespace zt::orvex::kit::internal
