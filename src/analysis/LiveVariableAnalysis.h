#pragma once

#include "analysis/ReadWriteCollector.h"

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/SmallOrderedSet.h>
#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <unordered_set>

namespace zt::orvex::flow::internal {

/// Turns a statement range into equations of live variables, and solves them.
///
/// It lays a control-flow graph over the statements without building one: walking them in source
/// order, it carries the nodes whose successor is still unknown, and connects them when the next
/// node is known. For each node n, with the successors s:
///
///     liveIn(n)  = (liveOut(n) - kill(n)) U gen(n)
///     liveOut(n) = the union, or under Must the intersection, of liveIn(s)
///
/// A flow node is a statement, a case, else-if or catch clause, or the entry or exit of the range.
/// An else or otherwise clause is none: its statements are processed directly.
class LiveVariableAnalysis {
public:
    using Lattice = PowerSetLattice<SymbolView>;
    using Value = BitSet<SymbolView>;

    /// A node with its variables, which are looked up once.
    struct FlowNode {
        FlowNode(const NodeView& of, Variable<Value>* in, Variable<Value>* out,
                 Variable<Value>* generated, Variable<Value>* killed)
            : node(of), liveIn(in), liveOut(out), gen(generated), kill(killed) {}

        NodeView node;
        Variable<Value>* liveIn;
        Variable<Value>* liveOut;
        Variable<Value>* gen;
        Variable<Value>* kill;
    };

    /// Does the whole analysis.
    LiveVariableAnalysis(const OrderedSet<SymbolView>& universe,
                         const StatementRangeView& statements, AnalysisTypeView type,
                         AnalysisModeView mode,
                         const std::unordered_set<SymbolView>& subscriptVariables,
                         std::function<std::string(NodeView)> nodePrinter);
    LiveVariableAnalysis(const LiveVariableAnalysis&) = delete;
    LiveVariableAnalysis& operator=(const LiveVariableAnalysis&) = delete;

    const Value& liveAtEntry() const { return entry->liveIn->value(); }

    // What tests and benchmarks look at.
    const std::deque<FlowNode>& flowNodes() const { return nodes; }
    const SystemOfEquationsBuilder<Lattice>& equations() const { return builder; }
    SystemOfEquations<Lattice>& solver() { return *system; }
    std::uint64_t numberOfSweeps() const { return sweeps; }

private:
    class StatementVisitor;

    using NodeSet = SmallOrderedSet<FlowNode*>;

    /// What statements hand on while they are processed.
    struct Flow {
        NodeSet& pending;  ///< From where control reaches the next statement; empty after a jump.
        NodeSet& jumps;    ///< Each `break` and `continue` of the innermost loop, or of none.
        NodeSet* tryNodes; ///< Where the innermost `try` body can fail; null outside of any.
    };

    void reserve(std::uint64_t count);
    static NodeSet selectByKind(const NodeSet& set, NodeKind kind);
    FlowNode* addNodeEquations(const NodeView& node);
    void connect(const NodeSet& predecessors, FlowNode* successor);
    FlowNode* enterNode(const NodeView& node, const Flow& flow);
    FlowNode* enterNodeUntracked(const NodeView& node, const Flow& flow);
    void processStatement(const NodeView& statement, const Flow& flow);
    void processStatementRange(const StatementRangeView& range, const Flow& flow);
    void closeLoop(FlowNode* loop, const NodeSet& bodyJumps, const Flow& flow);
    void closeParallelLoop(FlowNode* loop, const NodeSet& bodyJumps, const Flow& flow);

    NodeView entryNode;
    NodeView exitNode;
    std::function<std::string(NodeView)> nodePrinter;
    AnalysisTypeView type;
    Lattice lattice;
    SystemOfEquationsBuilder<Lattice> builder;
    VariableFamily<Value> liveIn;
    VariableFamily<Value> liveOut;
    ReadWriteCollector collector;
    VariableFamily<Value> gen;
    VariableFamily<Value> kill;
    std::shared_ptr<SystemOfEquations<Lattice>> system;

    std::deque<FlowNode> nodes; // in order of addNodeEquations
    NodeSet returns;            // they wait for the exit, whatever loops enclose them
    FlowNode* entry = nullptr;
    std::uint64_t sweeps = 0;
};

} // namespace zt::orvex::flow::internal
