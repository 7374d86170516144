#include "analysis/LiveVariableAnalysis.h"

#include "ast/AstViewDispatcher.h"

#include <zt_orvex/ast/ControlFlow.h>
#include <zt_orvex/ast/TypedViews.h>

#include <utility>

namespace zt::orvex::flow::internal {

using zt::orvex::internal::dispatch;

static const std::string OMITTED = "<names omitted in non-asserted builds>";

/// How control passes through each kind of statement.
class LiveVariableAnalysis::StatementVisitor {
public:
    StatementVisitor(LiveVariableAnalysis& of, const Flow& carried) : analysis(of), flow(carried) {}

    void visit(const AssignmentStatementView& s) { analysis.enterNode(s, flow); }
    void visit(const BareIdentifierStatementView& s) { analysis.enterNode(s, flow); }
    void visit(const CommandStatementView& s) { analysis.enterNode(s, flow); }
    void visit(const ExpressionStatementView& s) { analysis.enterNode(s, flow); }
    void visit(const MultiAssignmentStatementView& s) { analysis.enterNode(s, flow); }

    void visit(const EmptyStatementView& s) { analysis.enterNodeUntracked(s, flow); }
    void visit(const GlobalDeclarationView& s) { analysis.enterNodeUntracked(s, flow); }
    void visit(const ImplicitCommandStatementView& s) { analysis.enterNodeUntracked(s, flow); }
    void visit(const PersistentDeclarationView& s) { analysis.enterNodeUntracked(s, flow); }

    void visit(const BreakStatementView& s) { jump(s, flow.jumps); }
    void visit(const ContinueStatementView& s) { jump(s, flow.jumps); }
    void visit(const ReturnStatementView& s) { jump(s, analysis.returns); }

    /// The inner statement stands before the print in the flow.
    void visit(const PrintStatementView& s) {
        FlowNode* const print = analysis.addNodeEquations(s);
        analysis.processStatement(s.getPrintedStatement(), flow);
        analysis.connect(flow.pending, print);
        become(print);
    }

    /// A nested spmd body is a straight block: no loop, no bypass.
    void visit(const SpmdStatementView& s) {
        analysis.enterNode(s, flow);
        analysis.processStatementRange(s.getSpmdBody(), flow);
    }
    // Clauses get here only when they stand directly in a range.
    void visit(const CaseClauseView& s) {
        analysis.enterNode(s, flow);
        analysis.processStatementRange(s.getCaseBody(), flow);
    }
    void visit(const ElseIfClauseView& s) {
        analysis.enterNode(s, flow);
        analysis.processStatementRange(s.getElseIfBody(), flow);
    }

    void visit(const ForStatementView& s) {
        FlowNode* const loop = analysis.enterNode(s, flow);
        NodeSet jumps;
        analysis.processStatementRange(s.getForBody(), {flow.pending, jumps, flow.tryNodes});
        analysis.closeLoop(loop, jumps, flow);
    }
    void visit(const WhileStatementView& s) {
        FlowNode* const loop = analysis.enterNode(s, flow);
        NodeSet jumps;
        analysis.processStatementRange(s.getWhileBody(), {flow.pending, jumps, flow.tryNodes});
        analysis.closeLoop(loop, jumps, flow);
    }
    void visit(const ParforStatementView& s) {
        FlowNode* const loop = analysis.enterNode(s, flow);
        NodeSet jumps;
        analysis.processStatementRange(s.getParforBody(), {flow.pending, jumps, flow.tryNodes});
        analysis.closeParallelLoop(loop, jumps, flow);
    }

    /// Each condition is a successor of the condition before it.
    void visit(const IfStatementView& s) {
        FlowNode* const head = analysis.enterNode(s, flow);
        NodeSet branchEnds;
        analysis.processStatementRange(s.getIfBody(), flow);
        endBranch(branchEnds, head);
        const ElseIfClauseRangeView clauses = s.getIfElseIfClauses();
        for (std::uint64_t i = 0; i < clauses.size(); ++i) {
            const ElseIfClauseView clause(clauses[i]);
            FlowNode* const condition = analysis.enterNode(clause, flow);
            analysis.processStatementRange(clause.getElseIfBody(), flow);
            endBranch(branchEnds, condition);
        }
        const boost::optional<NodeView> otherwise = s.getIfElseClause();
        if (otherwise) {
            analysis.processStatementRange(ElseClauseView(*otherwise).getElseBody(), flow);
        }
        joinBranches(branchEnds);
    }

    /// Case expressions form a chain; no body falls through to the next.
    void visit(const SwitchStatementView& s) {
        analysis.enterNode(s, flow);
        NodeSet branchEnds;
        const CaseClauseRangeView clauses = s.getSwitchCases();
        for (std::uint64_t i = 0; i < clauses.size(); ++i) {
            const CaseClauseView clause(clauses[i]);
            FlowNode* const condition = analysis.enterNode(clause, flow);
            analysis.processStatementRange(clause.getCaseBody(), flow);
            endBranch(branchEnds, condition);
        }
        const boost::optional<NodeView> otherwise = s.getSwitchOtherwise();
        if (otherwise) {
            analysis.processStatementRange(OtherwiseClauseView(*otherwise).getOtherwiseBody(),
                                           flow);
        }
        joinBranches(branchEnds);
    }

    /// Deliberate: a try statement does not report itself to the one around it.
    void visit(const TryStatementView& s) {
        NodeSet failing;
        failing.insert(analysis.enterNodeUntracked(s, flow));
        analysis.processStatementRange(s.getTryBody(), {flow.pending, flow.jumps, &failing});
        const boost::optional<NodeView> clause = s.getTryCatch();
        if (clause) {
            processCatch(CatchClauseView(*clause), std::move(failing));
        } else {
            flow.pending.merge(failing); // a failure is swallowed
        }
    }

    /// Deliberate: every other kind is asked whether it is a flow node, and the answer is dropped.
    /// It would be yes for a DiscardedStatement, which is ignored all the same.
    void visit(const NodeView& other) { static_cast<void>(isControlFlowNode(other)); }

private:
    void become(FlowNode* node) {
        flow.pending.clear();
        flow.pending.insert(node);
    }

    void jump(const NodeView& statement, NodeSet& waiting) {
        FlowNode* const node = analysis.addNodeEquations(statement);
        analysis.connect(flow.pending, node);
        waiting.insert(node);
        flow.pending.clear();
    }

    /// The next branch begins where `condition` fails.
    void endBranch(NodeSet& branchEnds, FlowNode* condition) {
        branchEnds.merge(flow.pending);
        become(condition);
    }

    /// Without an else, the last condition is among the ends: no branch was taken.
    void joinBranches(NodeSet& branchEnds) { flow.pending.merge(branchEnds); }

    void processCatch(const CatchClauseView& clause, NodeSet failing) {
        FlowNode* const node = analysis.addNodeEquations(clause);
        NodeSet normalEnds = std::exchange(flow.pending, std::move(failing));
        analysis.connect(flow.pending, node);
        become(node);
        // The catch body reports to the enclosing try, if there is one.
        analysis.processStatementRange(clause.getCatchBody(), flow);
        flow.pending.merge(normalEnds);
    }

    LiveVariableAnalysis& analysis;
    const Flow& flow;
};

LiveVariableAnalysis::LiveVariableAnalysis(const OrderedSet<SymbolView>& universe,
                                           const StatementRangeView& statements,
                                           AnalysisTypeView analysisType, AnalysisModeView mode,
                                           const std::unordered_set<SymbolView>& subscriptVariables,
                                           std::function<std::string(NodeView)> printer)
    : entryNode(statements.view->getEntryNode()), exitNode(statements.view->getExitNode()),
      nodePrinter(std::move(printer)), type(analysisType), lattice(universe),
      builder(lattice, &nodePrinter), liveIn(builder.createVariableFamily("liveIn", false)),
      liveOut(builder.createVariableFamily("liveOut", false)),
      collector(analysisType, mode, subscriptVariables, universe),
      gen(builder.createVariableFamily("gen", false)),
      kill(builder.createVariableFamily("kill", false)) {
    reserve(statements.size() + 2);
    entry = addNodeEquations(entryNode);
    NodeSet pending;
    NodeSet jumps;
    pending.insert(entry);
    processStatementRange(statements, {pending, jumps, nullptr});
    FlowNode* const exit = addNodeEquations(exitNode);
    connect(pending, exit);
    // A return ends here, and so does a break or continue that no loop encloses.
    connect(jumps, exit);
    connect(returns, exit);
    system = builder.build();
    sweeps = system->solve();
}

/// Makes room for `count` flow nodes: as many as there are at least.
void LiveVariableAnalysis::reserve(std::uint64_t count) {
    liveIn.reserve(count);
    builder.reserve(4 * count);
}

LiveVariableAnalysis::FlowNode* LiveVariableAnalysis::addNodeEquations(const NodeView& node) {
    collector.clear();
    if (node != entryNode && node != exitNode) collector.collect(node);

    // One family tells whether the node is new, and the equation of its variable is refused if not;
    // the others need not look the node up.
    Variable<Value>* const in = liveIn.at(node);
    FlowNode& added =
        nodes.emplace_back(node, in, builder.createVariable(OMITTED),
                           builder.createVariable(OMITTED), builder.createVariable(OMITTED));
    builder.addEquation(added.gen, {builder.createConstant(collector.gen())});
    builder.addEquation(added.kill, {builder.createConstant(collector.kill())});
    builder.addEquation(added.liveIn, {added.liveOut, builder.createMinus(added.kill),
                                       builder.createJoin(added.gen)});
    return &added;
}

/// The first successor of a node assigns, each further one folds in. A node without one keeps the
/// empty set: nothing is live at the end of the range.
void LiveVariableAnalysis::connect(const NodeSet& predecessors, FlowNode* successor) {
    for (FlowNode* predecessor : predecessors) {
        Variable<Value>* const out = predecessor->liveOut;
        if (!builder.hasEquation(out)) {
            builder.addEquation(out, {successor->liveIn});
        } else if (type == AnalysisTypeView::Must) {
            builder.extendEquation(out, {builder.createMeet(successor->liveIn)});
        } else {
            builder.extendEquation(out, {builder.createJoin(successor->liveIn)});
        }
    }
}

/// The common opening of a statement: it follows what is pending, and an enclosing try body can
/// fail in it and in what precedes it.
LiveVariableAnalysis::FlowNode* LiveVariableAnalysis::enterNode(const NodeView& node,
                                                                const Flow& flow) {
    FlowNode* const added = addNodeEquations(node);
    if (flow.tryNodes != nullptr) {
        flow.tryNodes->insertAll(flow.pending);
        flow.tryNodes->insert(added);
    }
    connect(flow.pending, added);
    flow.pending.clear();
    flow.pending.insert(added);
    return added;
}

LiveVariableAnalysis::FlowNode* LiveVariableAnalysis::enterNodeUntracked(const NodeView& node,
                                                                         const Flow& flow) {
    return enterNode(node, {flow.pending, flow.jumps, nullptr});
}

void LiveVariableAnalysis::processStatement(const NodeView& statement, const Flow& flow) {
    StatementVisitor visitor(*this, flow);
    dispatch(visitor, statement);
}

void LiveVariableAnalysis::processStatementRange(const StatementRangeView& range,
                                                 const Flow& flow) {
    for (std::uint64_t i = 0; i < range.size(); ++i)
        processStatement(range[i], flow);
}

/// The end of the body and each `continue` flow back to the head; the head and each `break` leave
/// the loop.
void LiveVariableAnalysis::closeLoop(FlowNode* loop, const NodeSet& bodyJumps, const Flow& flow) {
    connect(flow.pending, loop);
    const NodeSet continues = selectByKind(bodyJumps, NodeKind::ContinueStatement);
    connect(continues, loop);
    flow.pending.clear();
    flow.pending.insert(loop);
    flow.pending.insertAll(selectByKind(bodyJumps, NodeKind::BreakStatement));
}

/// Deliberate: no back edge. Iterations are independent of one another, so the body runs once or
/// not at all on the way to the next statement, and a `continue` flows forward like a `break`.
void LiveVariableAnalysis::closeParallelLoop(FlowNode* loop, const NodeSet& bodyJumps,
                                             const Flow& flow) {
    flow.pending.insert(loop);
    flow.pending.insertAll(selectByKind(bodyJumps, NodeKind::BreakStatement));
    flow.pending.insertAll(selectByKind(bodyJumps, NodeKind::ContinueStatement));
}

LiveVariableAnalysis::NodeSet LiveVariableAnalysis::selectByKind(const NodeSet& set,
                                                                 NodeKind kind) {
    NodeSet selected;
    for (FlowNode* member : set) {
        if (member->node.getKind() == kind) selected.insert(member);
    }
    return selected;
}

} // namespace zt::orvex::flow::internal
