#pragma once

#include <zt_orvex/ast/NodeView.h>

#include <functional>

namespace ostrel::report {

enum class AccessKind {
    Read,
    PartWrite, ///< The variable beneath an index or a field: the rest of it stays.
    WholeWrite,
};

/// One use of a name by a statement.
struct Access {
    AccessKind kind;
    zt::orvex::NodeView identifier;
};

/// Gives `found` every name that a statement, or an `ElseIfClause`, `CaseClause` or `CatchClause`,
/// uses in its own head: reads first, then writes, which is how it is evaluated. What stands in its
/// body is not part of it. Field names and other names that are no variables come too.
void forEachHeadAccess(zt::orvex::NodeView statement,
                       const std::function<void(const Access&)>& found);

/// The name under a target's indices and fields; a node of another kind where there is none.
zt::orvex::NodeView baseOfTarget(zt::orvex::NodeView target);

} // namespace ostrel::report
