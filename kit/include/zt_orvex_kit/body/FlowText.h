#pragma once

#include <zt_orvex_kit/Export.h>
#include <zt_orvex_kit/body/FlowGraph.h>

#include <string>

namespace zt::orvex::kit {

/// A flow graph as text, in UTF-8, with the names of its variables: a paragraph for each node.
///
///     2 AssignmentStatement (node 0x7)
///         certain read a, whole write x
///         next: 1
///         live before: a n
///         live after: n x
///
/// Lines about nothing are left out. Variables come in the order of the universe, and equal names
/// of different variables aren't told apart. Exceptions of the tree pass through.
ZT_ORVEX_KIT_EXPORT std::string toText(const FlowGraph& graph);

/// The same for `dot`: boxes with the accesses, and what is live on each edge.
ZT_ORVEX_KIT_EXPORT std::string toDot(const FlowGraph& graph);

} // namespace zt::orvex::kit
