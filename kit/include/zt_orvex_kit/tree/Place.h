#pragma once

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex_kit/Export.h>
#include <zt_orvex_kit/tree/Children.h>

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace zt::orvex::kit {

/// One step down a tree: from a node of a kind to a child of it.
struct PlaceStep {
    NodeKind kind;  ///< The kind of the parent.
    ChildRole role; ///< What the child is to it.
};

/// Where a node is in a tree: the steps from the root to it. The root's place has none.
using Place = std::vector<PlaceStep>;

/// A place for people to read: "ParforStatement.getParforBody[2] > IfStatement.getIfCondition".
///
/// The root's is "root". Of a place of more than 64 steps the text has the first 32 and the last
/// 31, and says how many it leaves out: "... > (1000 more) > ...".
ZT_ORVEX_KIT_EXPORT std::string toText(const Place& place);

/// The place of `node` below `root`, or none if it isn't there. Walks the tree until it is found.
ZT_ORVEX_KIT_EXPORT std::optional<Place> findPlace(const NodeView& root, const NodeView& node);

} // namespace zt::orvex::kit
