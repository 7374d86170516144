#include "analysis/ExpressionPath.h"

#include "ast/Downcasts.h"
#include "ast/NodeClass.h"

#include <cstdint>

namespace zt::orvex::flow::internal {

using zt::orvex::internal::isKind;

namespace {

/// Whether a matrix only wraps one expression, like the brackets in `if [a | b]`.
bool wrapsOneExpression(const MatrixView& matrix) {
    const RowRangeView rows = matrix.getMatrixRows();
    return rows.size() == 1 && RowView(rows[0]).getRowExpressions().size() == 1;
}

/// Whether `&` and `|` that short-circuit around `expression` also do directly inside it.
/// Deliberate: not inside `&&` and `||`, so in `(a | b) && c` the read of b is certain.
bool keepsShortCircuiting(const NodeView& expression) {
    if (isKind(expression, NodeKind::BinaryOperation)) {
        const BinaryOperator op =
            zt::orvex::internal::toBinaryOperationView(expression).getBinaryOperator();
        return op == BinaryOperator::ElementAnd || op == BinaryOperator::ElementOr;
    }
    if (isKind(expression, NodeKind::Matrix)) {
        return wrapsOneExpression(zt::orvex::internal::toMatrixView(expression));
    }
    return isKind(expression, NodeKind::ParenthesizedExpression) ||
           isKind(expression, NodeKind::Row);
}

} // namespace

/// Whether a write through one level of indexing or field access is whole under `Sliced`.
bool ExpressionPath::isWholeSlice() const {
    const NodeView& access = path.front();
    if (isKind(access, NodeKind::ParenOperation)) {
        return !hasSubscriptVariable(
            zt::orvex::internal::toParenOperationView(access).getParenArguments());
    }
    if (isKind(access, NodeKind::BraceOperation)) {
        return !hasSubscriptVariable(
            zt::orvex::internal::toBraceOperationView(access).getBraceArguments());
    }
    return true;
}

bool ExpressionPath::hasSubscriptVariable(const ExpressionRangeView& subscripts) const {
    for (std::uint64_t i = 0; i < subscripts.size(); ++i) {
        if (isSubscriptVariable(subscripts[i])) return true;
    }
    return false;
}

/// Only a bare variable counts, in any number of parentheses: `k + 1` doesn't match k.
bool ExpressionPath::isSubscriptVariable(NodeView subscript) const {
    while (isKind(subscript, NodeKind::ParenthesizedExpression)) {
        subscript =
            zt::orvex::internal::toParenthesizedExpressionView(subscript).getParenthesizedInner();
    }
    if (!isKind(subscript, NodeKind::Identifier)) return false;
    const IdentifierView identifier = zt::orvex::internal::toIdentifierView(subscript);
    return subscriptVariables.count(identifier.getIdentifierSymbol()) != 0;
}

/// Whether an elementwise `&` or `|` at the end of the path short-circuits: only where its value
/// decides a condition.
bool ExpressionPath::isShortCircuited(const NodeView& head) {
    const NodeKind kind = head.getKind();
    const bool isCondition = kind == NodeKind::IfStatement || kind == NodeKind::ElseIfClause ||
                             kind == NodeKind::WhileStatement;
    if (!isCondition) return false;
    while (shortCircuitingPrefix < path.size() && keepsShortCircuiting(path[shortCircuitingPrefix]))
        ++shortCircuitingPrefix;
    return shortCircuitingPrefix == path.size();
}

} // namespace zt::orvex::flow::internal
