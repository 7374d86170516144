#include "report/analysis/Reductions.h"

#include "source/Utf8.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/ast/TypedViews.h>

#include <cstddef>
#include <optional>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

/// The operators of a reduction, and where else than first the variable may stand.
struct OperatorRow {
    BinaryOperator op;
    bool mayBeLast;
};

constexpr OperatorRow OPERATORS[] = {
    {BinaryOperator::Add, true},
    {BinaryOperator::ElementMultiply, true},
    {BinaryOperator::MatrixMultiply, true},
    {BinaryOperator::ElementAnd, true},
    {BinaryOperator::ElementOr, true},
    {BinaryOperator::Subtract, false},
};

bool isNamed(NodeView expression, SymbolView symbol) {
    return expression.getKind() == NodeKind::Identifier &&
           IdentifierView(expression).getIdentifierSymbol() == symbol;
}

/// Whether `x` is the first of the operands, as in `(x + a) + b`.
bool isFirstOperand(BinaryOperationView operation, SymbolView x) {
    const BinaryOperator op = operation.getBinaryOperator();
    NodeView first = operation.getBinaryLhs();
    while (first.getKind() == NodeKind::BinaryOperation &&
           BinaryOperationView(first).getBinaryOperator() == op)
        first = BinaryOperationView(first).getBinaryLhs();
    return isNamed(first, x);
}

std::optional<std::string> combinationBy(BinaryOperationView operation, SymbolView x) {
    for (const OperatorRow& row : OPERATORS) {
        if (row.op != operation.getBinaryOperator()) continue;
        const bool isLast = row.mayBeLast && isNamed(operation.getBinaryRhs(), x);
        if (isLast || isFirstOperand(operation, x)) return toString(row.op);
    }
    return {};
}

std::optional<std::string> appending(MatrixView matrix, SymbolView x) {
    const RowRangeView rows = matrix.getMatrixRows();
    if (rows.size() == 0) return {};
    const ExpressionRangeView first = RowView(rows[0]).getRowExpressions();
    if (first.size() == 0 || !isNamed(first[0], x)) return {};
    if (rows.size() == 1 && first.size() > 1) return "[,]";
    if (rows.size() > 1 && first.size() == 1) return "[;]";
    return {};
}

std::optional<std::string> call(ParenOperationView operation, SymbolView x) {
    const NodeView function = operation.getParenBase();
    const ExpressionRangeView arguments = operation.getParenArguments();
    if (function.getKind() != NodeKind::Identifier || arguments.size() != 2) return {};
    const SymbolView symbol = IdentifierView(function).getIdentifierSymbol();
    if (symbol.view->isVariableSymbol(symbol.symbol) || !isNamed(arguments[0], x)) return {};
    return toUtf8(IdentifierView(function).getIdentifierName());
}

/// By what the value combines `x` with something, if it does.
std::optional<std::string> combination(NodeView value, SymbolView x) {
    switch (value.getKind()) {
    case NodeKind::BinaryOperation:
        return combinationBy(BinaryOperationView(value), x);
    case NodeKind::Matrix:
        return appending(MatrixView(value), x);
    case NodeKind::ParenOperation:
        return call(ParenOperationView(value), x);
    default:
        return {};
    }
}

/// What is known of one variable.
struct Uses {
    std::size_t mentions = 0;
    std::size_t combinations = 0; ///< Assignments that combine it by `operation`.
    std::string operation;
    bool isMixed = false;
};

class ReductionFinder {
public:
    void visit(NodeView node) {
        if (node.getKind() == NodeKind::Identifier) {
            ++uses[IdentifierView(node).getIdentifierSymbol()].mentions;
        } else if (node.getKind() == NodeKind::AssignmentStatement) {
            note(AssignmentStatementView(node));
        }
    }

    /// A combination names its variable twice. If there are more mentions, there is another use.
    std::unordered_map<SymbolView, std::string> result() const {
        std::unordered_map<SymbolView, std::string> found;
        for (const auto& [symbol, of] : uses) {
            const bool isReduction =
                of.combinations > 0 && !of.isMixed && of.mentions == 2 * of.combinations;
            if (isReduction) found.emplace(symbol, of.operation);
        }
        return found;
    }

private:
    void note(AssignmentStatementView assignment) {
        const NodeView target = assignment.getAssignmentLhs();
        if (target.getKind() != NodeKind::Identifier) return;
        const SymbolView symbol = IdentifierView(target).getIdentifierSymbol();
        const auto operation = combination(assignment.getAssignmentRhs(), symbol);
        if (!operation) return;
        Uses& of = uses[symbol];
        of.isMixed = of.isMixed || (of.combinations > 0 && of.operation != *operation);
        of.operation = *operation;
        ++of.combinations;
    }

    std::unordered_map<SymbolView, Uses> uses;
};

} // namespace

std::unordered_map<SymbolView, std::string> findReductions(StatementRangeView body) {
    ReductionFinder finder;
    for (const NodeView statement : body)
        forEachNodeIn(statement, [&](NodeView node) { finder.visit(node); });
    return finder.result();
}

} // namespace ostrel::report
