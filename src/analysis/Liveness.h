#pragma once

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <unordered_set>

namespace zt::orvex::flow::internal {

/// Which variables are live before each node of a statement range: a system of equations, solved.
///
/// For each node n of the control flow, with the successors s:
///
///     liveIn(n)  = (liveOut(n) - kill(n)) U gen(n)
///     liveOut(n) = the union, or under Must the intersection, of liveIn(s)
///
/// The exit has no equation for liveOut: nothing is live at the end of the range. The constructor
/// does the whole analysis; `TransparentLiveVariablesAnalyzerView` tells its costs and errors.
class Liveness {
public:
    using Lattice = PowerSetLattice<SymbolView>;
    using Value = BitSet<SymbolView>;

    struct NodeVariables {
        NodeView node;
        Variable<Value>* liveIn;
        Variable<Value>* liveOut;
        Variable<Value>* gen;
        Variable<Value>* kill;
    };

    Liveness(const OrderedSet<SymbolView>& universe, const StatementRangeView& statements,
             AnalysisTypeView type, AnalysisModeView mode,
             const std::unordered_set<SymbolView>& subscriptVariables,
             std::function<std::string(NodeView)> printer);
    Liveness(const Liveness&) = delete;
    Liveness& operator=(const Liveness&) = delete;

    const Value& liveAtEntry() const { return variables.front().liveIn->value(); }

    // For tests and benchmarks.
    const std::deque<NodeVariables>& nodes() const { return variables; }
    const SystemOfEquationsBuilder<Lattice>& equations() const { return builder; }
    SystemOfEquations<Lattice>& solver() { return *system; }
    std::uint64_t numberOfSweeps() const { return sweeps; }

private:
    std::function<std::string(NodeView)> nodePrinter;
    Lattice lattice;
    SystemOfEquationsBuilder<Lattice> builder;
    std::deque<NodeVariables> variables; // of each node, the entry first
    std::shared_ptr<SystemOfEquations<Lattice>> system;
    std::uint64_t sweeps = 0;
};

} // namespace zt::orvex::flow::internal
