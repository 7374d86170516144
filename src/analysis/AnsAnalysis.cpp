#include <zt_orvex/analysis/AnsAnalysis.h>

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <utility>

namespace zt::orvex::flow {

namespace {

bool isLiveAtEntry(const StatementRangeView& body, const SymbolView& ans,
                   std::function<std::string(NodeView)> nodePrinter) {
    const OrderedSet<SymbolView> universe({ans});
    TransparentLiveVariablesAnalyzerView analyzer(universe, body, AnalysisTypeView::May,
                                                  AnalysisModeView::Ans, std::move(nodePrinter));
    return !analyzer.getVariablesLiveAtEntry().empty();
}

} // namespace

bool isAnsPossiblyReadBeforeBeingWritten(ParforStatementView statement, SymbolView ans,
                                         std::function<std::string(NodeView)> nodePrinter) {
    return isLiveAtEntry(statement.getParforBody(), ans, std::move(nodePrinter));
}

bool isAnsPossiblyReadBeforeBeingWritten(SpmdStatementView statement, SymbolView ans,
                                         std::function<std::string(NodeView)> nodePrinter) {
    return isLiveAtEntry(statement.getSpmdBody(), ans, std::move(nodePrinter));
}

} // namespace zt::orvex::flow
