#include <zt_orvex/analysis/LiveVariables.h>

#include "ast/ForEachForStatementIn.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex/ast/TypedViews.h>

#include <utility>

namespace zt::orvex::flow {

namespace {

/// The variables of all `for` loops in the statement, at any depth. Its own variable isn't one.
std::unordered_set<SymbolView> collectForLoopVariables(const ParforStatementView& statement) {
    std::unordered_set<SymbolView> variables;
    zt::orvex::internal::forEachForStatementIn(statement, [&](ForStatementView loop) {
        variables.insert(IdentifierView(loop.getForVariable()).getIdentifierSymbol());
    });
    return variables;
}

} // namespace

std::unordered_set<SymbolView>
computeLiveAsTemporaryVariables(ParforStatementView statement,
                                const OrderedSet<SymbolView>& universe,
                                std::function<std::string(NodeView)> nodePrinter) {
    return TransparentLiveVariablesAnalyzerView(universe, statement.getParforBody(),
                                                AnalysisTypeView::Must, AnalysisModeView::Plain,
                                                std::move(nodePrinter))
        .getVariablesLiveAtEntry();
}

std::unordered_set<SymbolView>
computeMaybeLiveAsTemporaryVariables(ParforStatementView statement,
                                     const OrderedSet<SymbolView>& universe,
                                     std::function<std::string(NodeView)> nodePrinter) {
    return TransparentLiveVariablesAnalyzerView(universe, statement.getParforBody(),
                                                AnalysisTypeView::May, AnalysisModeView::Plain,
                                                std::move(nodePrinter))
        .getVariablesLiveAtEntry();
}

std::unordered_set<SymbolView>
computeNotLiveAsSlicedVariables(ParforStatementView statement,
                                const OrderedSet<SymbolView>& universe,
                                std::function<std::string(NodeView)> nodePrinter) {
    const std::unordered_set<SymbolView> loopVariables = collectForLoopVariables(statement);
    return TransparentLiveVariablesAnalyzerView(universe, statement.getParforBody(),
                                                AnalysisTypeView::May, AnalysisModeView::Sliced,
                                                loopVariables, std::move(nodePrinter))
        .getVariablesNotLiveAtEntry();
}

std::unordered_set<SymbolView>
computeSpmdOutputVariables(SpmdStatementView statement, const OrderedSet<SymbolView>& universe,
                           std::function<std::string(NodeView)> nodePrinter) {
    return TransparentLiveVariablesAnalyzerView(universe, statement.getSpmdBody(),
                                                AnalysisTypeView::May, AnalysisModeView::Plain,
                                                std::move(nodePrinter))
        .getVariablesNotLiveAtEntry();
}

} // namespace zt::orvex::flow
