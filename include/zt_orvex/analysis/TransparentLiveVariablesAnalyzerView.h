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

/// Tells which variables are live at the entry of a statement range: those that may, or must, be
/// read before they are written in one pass through the range.
///
/// The constructor does the whole analysis. Nothing is live at the end of the range, even if the
/// code after it reads the variable. Only symbols of the universe are tracked. Under `Must` the
/// solution is the least one, so a variable that is read only after a loop is not live.
///
/// Ownership: the universe, the tree and its `IAstView` must outlive the analyzer; the set of
/// subscript variables and `nodePrinter` are copied. `nodePrinter` may be empty: nothing calls it.
/// Cost: one pass over the statements, and over their equations one pass to sort them and at most two
/// sweeps more than loops nest. Heap memory in proportion to the statements, and to the statements
/// times the variables of the universe; freed with the analyzer. The recursion is as deep as the
/// tree, and nothing checks the stack.
///
/// Errors, all from the constructor: std::logic_error("Maximum iterations exceeded in
/// SystemOfEquations::solve") for loops nested about a thousand deep;
/// std::invalid_argument("Equation already exists for this variable") for a tree that holds one
/// node at two places, or has equal entry and exit nodes; std::logic_error("IdentifierView type is
/// expected in the downcast argument.") and the like for a tree that changes its answers; and every
/// exception of the tree. A node of an unknown kind is skipped.
///
/// An analyzer belongs to one thread. Several may work on one tree if it allows concurrent reads.
///
///     TransparentLiveVariablesAnalyzerView analyzer(universe, loop.getParforBody(),
///         AnalysisTypeView::May, AnalysisModeView::Plain, nullptr);
///     for (SymbolView symbol : analyzer.getVariablesLiveAtEntry()) use(symbol);
class ZT_ORVEX_EXPORT TransparentLiveVariablesAnalyzerView {
public:
    /// `subscriptVariables`: under `Sliced`, an indexed write is partial if one of them is among
    /// its subscripts, bare.
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

    /// The elements of the universe that are live, copied into a new set without a defined order.
    std::unordered_set<SymbolView> getVariablesLiveAtEntry();

    /// The other elements of the universe, including those added after the construction.
    std::unordered_set<SymbolView> getVariablesNotLiveAtEntry();

    /// Always "<description omitted in non-asserted builds>".
    std::string toString() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl;
};

} // namespace zt::orvex::flow
