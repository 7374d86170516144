#pragma once

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/support/Export.h>

#include <functional>
#include <memory>
#include <string>
#include <unordered_set>

namespace zt::orvex::flow {

/// Tells which variables are live at the entry of a statement range: may, or must, be read in one
/// pass through the range before they are written.
///
/// The whole analysis happens in the constructor. Nothing is live at the end of the range, whatever
/// the code behind it does. Only symbols of the universe are tracked. Under `Must` the solution is
/// the least one, so a variable whose only reads lie behind a loop is not live.
///
/// Ownership: the universe, the tree and its `IAstView` must outlive the analyzer; the set of
/// subscript variables and `nodePrinter` are copied. `nodePrinter` may be empty: nothing calls it.
/// Cost: one pass over the statements and a few over their equations; heap for each statement, all
/// freed with the analyzer. The recursion is as deep as the tree.
///
/// Errors, all from the constructor: std::logic_error("Maximum iterations exceeded in
/// SystemOfEquations::solve") for loops nested about a thousand deep;
/// std::invalid_argument("Equation already exists for this variable") for a tree that holds one
/// node at two places, or equal entry and exit nodes; std::logic_error("IdentifierView type is
/// expected in the downcast argument.") and its like for a tree that changes its answers; whatever
/// the tree throws. A node of unknown kind is skipped.
///
/// One analyzer belongs to one thread. Several may work on one tree if that allows concurrent
/// reads.
///
///     TransparentLiveVariablesAnalyzerView analyzer(universe, loop.getParforBody(),
///         AnalysisTypeView::May, AnalysisModeView::Plain, nullptr);
///     for (SymbolView symbol : analyzer.getVariablesLiveAtEntry()) use(symbol);
class ZT_ORVEX_EXPORT TransparentLiveVariablesAnalyzerView {
public:
    /// `subscriptVariables`: under `Sliced`, an indexed write with one of them bare among its
    /// subscripts is partial.
    TransparentLiveVariablesAnalyzerView(const OrderedSet<SymbolView>& universe,
                                         StatementRangeView statements, AnalysisTypeView type,
                                         AnalysisModeView mode,
                                         const std::unordered_set<SymbolView>& subscriptVariables,
                                         std::function<std::string(NodeView)> nodePrinter);
    /// The same without subscript variables.
    TransparentLiveVariablesAnalyzerView(const OrderedSet<SymbolView>& universe,
                                         StatementRangeView statements, AnalysisTypeView type,
                                         AnalysisModeView mode,
                                         std::function<std::string(NodeView)> nodePrinter);
    TransparentLiveVariablesAnalyzerView(const TransparentLiveVariablesAnalyzerView&) = delete;
    TransparentLiveVariablesAnalyzerView&
    operator=(const TransparentLiveVariablesAnalyzerView&) = delete;
    ~TransparentLiveVariablesAnalyzerView();

    /// Copies of the elements of the universe that are live, in a new set of no defined order.
    std::unordered_set<SymbolView> getVariablesLiveAtEntry();

    /// The other elements of the universe, those added after the construction included.
    std::unordered_set<SymbolView> getVariablesNotLiveAtEntry();

    /// "<description omitted in non-asserted builds>", whatever was found.
    std::string toString() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl;
};

} // namespace zt::orvex::flow
