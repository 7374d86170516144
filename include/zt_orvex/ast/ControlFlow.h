#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/support/Export.h>

namespace zt::orvex::flow {

/// Whether `node` is a node of the control flow: true for every statement and for `CaseClause`,
/// `CatchClause` and `ElseIfClause`, false for all other kinds, unknown ones included.
///
/// Deliberate: `ElseClause` and `OtherwiseClause` aren't flow nodes although their siblings are.
/// They evaluate nothing themselves: control enters their bodies directly from the statement.
ZT_ORVEX_EXPORT bool isControlFlowNode(const NodeView& node);

} // namespace zt::orvex::flow
