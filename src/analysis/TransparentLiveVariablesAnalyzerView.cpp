#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>

#include "analysis/Liveness.h"

#include <utility>

namespace zt::orvex::flow {

namespace {

const std::unordered_set<SymbolView> noSubscriptVariables;

} // namespace

class TransparentLiveVariablesAnalyzerView::Impl final {
public:
    internal::Liveness liveness;
};

TransparentLiveVariablesAnalyzerView::TransparentLiveVariablesAnalyzerView(
    const OrderedSet<SymbolView>& universe, StatementRangeView statements, AnalysisTypeView type,
    AnalysisModeView mode, const std::unordered_set<SymbolView>& subscriptVariables,
    std::function<std::string(NodeView)> nodePrinter)
    : impl(new Impl{internal::Liveness(universe, statements, type, mode, subscriptVariables,
                                       std::move(nodePrinter))}) {}

TransparentLiveVariablesAnalyzerView::TransparentLiveVariablesAnalyzerView(
    const OrderedSet<SymbolView>& universe, StatementRangeView statements, AnalysisTypeView type,
    AnalysisModeView mode, std::function<std::string(NodeView)> nodePrinter)
    : TransparentLiveVariablesAnalyzerView(universe, statements, type, mode, noSubscriptVariables,
                                           std::move(nodePrinter)) {}

TransparentLiveVariablesAnalyzerView::~TransparentLiveVariablesAnalyzerView() = default;

std::unordered_set<SymbolView> TransparentLiveVariablesAnalyzerView::getVariablesLiveAtEntry() {
    return impl->liveness.liveAtEntry().toElementSet();
}

std::unordered_set<SymbolView> TransparentLiveVariablesAnalyzerView::getVariablesNotLiveAtEntry() {
    return impl->liveness.liveAtEntry().toComplementElementSet();
}

std::string TransparentLiveVariablesAnalyzerView::toString() const {
    return "<description omitted in non-asserted builds>";
}

} // namespace zt::orvex::flow
