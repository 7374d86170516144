#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/support/Export.h>

namespace zt::orvex::flow {

/// Whether control can stand at `node`: true for every statement and for `CaseClause`,
/// `CatchClause` and `ElseIfClause`; false for all other kinds, those outside 1 to 66 included.
///
/// Deliberate: `ElseClause` and `OtherwiseClause` are no flow nodes although their siblings are.
/// Nothing is evaluated at their head: control enters their bodies straight from the statement.
ZT_ORVEX_EXPORT bool isControlFlowNode(const NodeView& node);

} // namespace zt::orvex::flow
