#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>

#include <vector>

namespace ostrel::report {

/// The names in a body that the library lists as restricted and that aren't variables of the scope:
/// in an expression, as the callee of a command, or alone. The heads of nested constructs count;
/// names of fields and of named arguments don't. In the order of the walk.
std::vector<zt::orvex::NodeView> findRestrictedUses(zt::orvex::StatementRangeView body);

} // namespace ostrel::report
