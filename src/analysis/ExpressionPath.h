#pragma once

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>

#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zt::orvex::flow::internal {

/// The expressions from a child of a statement down to the one under visit, and the two rules that
/// depend on all of them: whether a write is whole, and whether an operand is conditional.
class ExpressionPath {
public:
    /// `subscripts`: under `Sliced`, an indexed write is partial if one of these variables is among
    /// its subscripts, bare.
    ExpressionPath(AnalysisModeView analysisMode, std::unordered_set<SymbolView> subscripts)
        : mode(analysisMode), subscriptVariables(std::move(subscripts)) {}

    void push(const NodeView& expression) { path.push_back(expression); }
    void pop() {
        path.pop_back();
        shortCircuitingPrefix = std::min(shortCircuitingPrefix, path.size());
    }

    /// Whether a write to the identifier at the end of the path reaches all of the variable.
    bool isWholeWrite() const {
        const std::size_t levels = path.size() - 1;
        if (levels == 0) return true;
        return levels == 1 && mode == AnalysisModeView::Sliced && isWholeSlice();
    }

    /// Whether the right operand of the operation at the end of the path is evaluated
    /// conditionally. `head` is the statement or clause that the path is in.
    bool isRhsConditional(const BinaryOperationView& operation, const NodeView& head) {
        switch (operation.getBinaryOperator()) {
        case BinaryOperator::ShortCircuitAnd:
        case BinaryOperator::ShortCircuitOr:
            return true;
        case BinaryOperator::ElementAnd:
        case BinaryOperator::ElementOr:
            return isShortCircuited(head);
        default:
            return false;
        }
    }

private:
    bool isWholeSlice() const;
    bool hasSubscriptVariable(const ExpressionRangeView& subscripts) const;
    bool isSubscriptVariable(NodeView subscript) const;
    bool isShortCircuited(const NodeView& head);

    AnalysisModeView mode;
    std::unordered_set<SymbolView> subscriptVariables;
    std::vector<NodeView> path; // outermost first

    // How many expressions, from the outermost, are known to keep `&` and `|` short-circuiting.
    // Without it each operand of a1 | a2 | ... | an would ask about the whole path anew.
    std::size_t shortCircuitingPrefix = 0;
};

} // namespace zt::orvex::flow::internal
