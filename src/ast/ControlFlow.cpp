#include <zt_orvex/ast/ControlFlow.h>

#include "ast/NodeClass.h"

namespace zt::orvex::flow {

bool isControlFlowNode(const NodeView& node) {
    const NodeKind kind = node.getKind();
    return internal::kindHasClass(kind, internal::StatementNode) || kind == NodeKind::CaseClause ||
           kind == NodeKind::CatchClause || kind == NodeKind::ElseIfClause;
}

} // namespace zt::orvex::flow
