#pragma once

#include <zt_orvex/ast/NodeView.h>

#include <functional>

namespace ostrel::report {

enum class AccessKind {
    Read,
    PartWrite, ///< Of the variable under an index or a field; the rest of it stays.
    WholeWrite,
};

/// One use of a name by a statement.
struct Access {
    AccessKind kind;
    zt::orvex::NodeView identifier;
};

/// Passes to `found` every name that the head of a statement, or of an `ElseIfClause`, `CaseClause`
/// or `CatchClause`, uses: reads first, then writes, which is the order of evaluation. The body
/// doesn't count. Names of fields and others that aren't variables are included.
void forEachHeadAccess(zt::orvex::NodeView statement,
                       const std::function<void(const Access&)>& found);

/// The name under the indices and fields of a target; a node of another kind if there is none.
zt::orvex::NodeView baseOfTarget(zt::orvex::NodeView target);

} // namespace ostrel::report
