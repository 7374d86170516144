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
    const Part* part; ///< The one that the level is at.
    const Part* end;
    NameScopes::ScopeId scope; ///< That of the names in the node.
    NodeKind kind;
    NodeKind held;             ///< What a parameter says that it holds.
    Use use;                   ///< What becomes of the node.
    bool isInRange = false;    ///< Whether the elements of `part` are being checked.
    bool isChildBegun = false; ///< Whether the child that the level is at has been checked.
};

/// A range whose elements are being checked.
struct CheckRange {
    Range range;
    Range again; ///< The second answer to the question for the range.
    std::uint64_t size;
    std::uint64_t index = 0;
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

    /// The range that the top is in.
    CheckRange& range() { return ranges.back(); }
    void enterRange(const CheckRange& range) {
        levels.back().isInRange = true;
        ranges.push_back(range);
    }
    void leaveRange() {
        levels.back().isInRange = false;
        ranges.pop_back();
    }

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
        auto range = ranges.begin();
        for (const CheckLevel& level : levels) {
            const std::uint64_t index = level.isInRange ? (range++)->index : 0;
            place.push_back({level.kind, {level.part->name, index, level.isInRange}});
        }
        return place;
    }

private:
    std::vector<CheckLevel> levels;
    std::vector<CheckRange> ranges; ///< Of the levels that are in one, in their order.
};

} // namespace zt::orvex::kit::internal
