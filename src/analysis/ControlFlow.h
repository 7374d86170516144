#pragma once

#include "analysis/KindGroups.h"
#include "ast/AstViewDispatcher.h"

#include <zt_orvex/ast/ControlFlow.h>
#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex/flow/SmallOrderedSet.h>

#include <boost/container/small_vector.hpp>

#include <cstdint>
#include <utility>

namespace zt::orvex::flow::internal {

/// How control flows through a range of statements, reported to a sink as nodes and edges.
///
///     while c         the nodes  entry, W, A, exit
///         a = b       the edges  entry -> W, W -> A, A -> W, W -> exit
///     end
///
/// A node is a statement, a case, else-if or catch clause, or a pseudo node: the entry or the exit
/// of the range. Else and otherwise clauses are not nodes; nothing is evaluated at their heads.
///
/// No graph is stored. The statements are walked in source order, and the nodes that still lack a
/// successor are carried along until the next node is known. The sink provides
///
///     using Node = ...;                     // its name for a node: a small value with == and hash
///     Node addNode(const NodeView&);        // a statement or clause
///     Node addPseudoNode(const NodeView&);  // entry or exit: compare it, but ask it nothing
///     void addEdge(Node from, Node to);
///
/// A node is added before its edges, the entry first and the exit last. Nodes come in source order,
/// except that a print comes before the statement that it prints. No edge comes twice, unless a
/// node occurs at two places of the tree; a sink that cares must detect that.
///
/// The recursion is as deep as the tree. Exceptions of the tree and of the sink pass through.
template <typename Sink>
class ControlFlow {
public:
    ControlFlow(const StatementRangeView& range, Sink& reportTo)
        : statements(range), entry(range.view->getEntryNode()), exit(range.view->getExitNode()),
          sink(reportTo) {}

    /// Walks the statements. Call it once.
    void report() {
        NodeSet pending;
        Jumps jumps;
        pending.insert(addNode(entry));
        addRange(statements, {pending, jumps, nullptr});
        const Node end = addNode(exit);
        addEdges(pending, end);
        // A `break` or `continue` outside of every loop ends the range, as each `return` does.
        for (const Jump& jump : jumps)
            sink.addEdge(jump.node, end);
        for (const Jump& jump : returns)
            sink.addEdge(jump.node, end);
    }

private:
    class StatementVisitor;

    using Node = typename Sink::Node;
    using NodeSet = SmallOrderedSet<Node>;

    /// A jump statement whose successor is still unknown.
    struct Jump {
        Node node;
        NodeView statement;
    };
    using Jumps = boost::container::small_vector<Jump, 2>;

    /// What the statements of a body share with those around it.
    struct Context {
        NodeSet& pending;     ///< Whose successor is the next node; empty after a jump.
        Jumps& jumps;         ///< Each `break` and `continue` of the innermost loop, or of no loop.
        NodeSet* throwPoints; ///< From where the innermost `try` body can throw; null outside.
    };

    Node addNode(const NodeView& view) {
        const bool isPseudoNode = view == entry || view == exit;
        return isPseudoNode ? sink.addPseudoNode(view) : sink.addNode(view);
    }

    void addEdges(const NodeSet& from, Node to) {
        for (const Node node : from)
            sink.addEdge(node, to);
    }

    static void continueFrom(Node node, const Context& context) {
        context.pending.clear();
        context.pending.insert(node);
    }

    /// Adds a node that follows the pending ones and takes their place.
    Node append(const NodeView& view, const Context& context) {
        const Node node = addNode(view);
        addEdges(context.pending, node);
        continueFrom(node, context);
        return node;
    }

    /// As `append`, for a node that can throw: before it has had its effect, which is to say from
    /// its predecessors, and after.
    Node appendThrowing(const NodeView& view, const Context& context) {
        if (context.throwPoints != nullptr) context.throwPoints->insertAll(context.pending);
        const Node node = append(view, context);
        if (context.throwPoints != nullptr) context.throwPoints->insert(node);
        return node;
    }

    void addJump(const NodeView& view, Jumps& jumps, const Context& context) {
        jumps.push_back({append(view, context), view});
        context.pending.clear();
    }

    void addStatement(const NodeView& statement, const Context& context) {
        static_assert(!hasFallback<StatementVisitor>, "it would swallow new kinds of statement");
        StatementVisitor visitor(*this, context);
        zt::orvex::internal::dispatch(visitor, statement);
    }

    void addRange(const StatementRangeView& range, const Context& context) {
        for (std::uint64_t i = 0; i < range.size(); ++i)
            addStatement(range[i], context);
    }

    template <typename Use>
    static void forEachOfKind(const Jumps& jumps, NodeKind kind, Use use) {
        for (const Jump& jump : jumps) {
            if (jump.statement.getKind() == kind) use(jump.node);
        }
    }

    /// The end of the body and each `continue` lead back to the head; control leaves the loop from
    /// the head and from each `break`.
    void addLoopBody(Node head, const StatementRangeView& body, const Context& context) {
        Jumps jumps;
        addRange(body, {context.pending, jumps, context.throwPoints});
        addEdges(context.pending, head);
        forEachOfKind(jumps, NodeKind::ContinueStatement,
                      [&](Node node) { sink.addEdge(node, head); });
        continueFrom(head, context);
        forEachOfKind(jumps, NodeKind::BreakStatement,
                      [&](Node node) { context.pending.insert(node); });
    }

    /// Deliberate: no edge leads back to the head. The iterations are independent of one another,
    /// so the body runs once or not at all before the next statement, and a `continue` leads there
    /// just as a `break` does.
    void addParallelBody(Node head, const StatementRangeView& body, const Context& context) {
        Jumps jumps;
        addRange(body, {context.pending, jumps, context.throwPoints});
        context.pending.insert(head);
        const auto leave = [&](Node node) { context.pending.insert(node); };
        forEachOfKind(jumps, NodeKind::BreakStatement, leave);
        forEachOfKind(jumps, NodeKind::ContinueStatement, leave);
    }

    const StatementRangeView statements;
    const NodeView entry;
    const NodeView exit;
    Sink& sink;
    Jumps returns; // they lead to the exit, through all loops
};

/// How control flows through each kind of statement.
template <typename Sink>
class ControlFlow<Sink>::StatementVisitor {
public:
    StatementVisitor(ControlFlow& of, const Context& around) : flow(of), context(around) {}

    void visit(const AssignmentStatementView& s) { flow.appendThrowing(s, context); }
    void visit(const BareIdentifierStatementView& s) { flow.appendThrowing(s, context); }
    void visit(const CommandStatementView& s) { flow.appendThrowing(s, context); }
    void visit(const ExpressionStatementView& s) { flow.appendThrowing(s, context); }
    void visit(const MultiAssignmentStatementView& s) { flow.appendThrowing(s, context); }

    void visit(const EmptyStatementView& s) { flow.append(s, context); }
    void visit(const GlobalDeclarationView& s) { flow.append(s, context); }
    void visit(const ImplicitCommandStatementView& s) { flow.append(s, context); }
    void visit(const PersistentDeclarationView& s) { flow.append(s, context); }

    void visit(const BreakStatementView& s) { flow.addJump(s, context.jumps, context); }
    void visit(const ContinueStatementView& s) { flow.addJump(s, context.jumps, context); }
    void visit(const ReturnStatementView& s) { flow.addJump(s, flow.returns, context); }

    /// The printed statement comes first in the flow, although its node is added second.
    void visit(const PrintStatementView& s) {
        const Node print = flow.addNode(s);
        flow.addStatement(s.getPrintedStatement(), context);
        flow.addEdges(context.pending, print);
        continueFrom(print, context);
    }

    /// A nested spmd body is a straight block: control neither repeats nor bypasses it.
    void visit(const SpmdStatementView& s) {
        flow.appendThrowing(s, context);
        flow.addRange(s.getSpmdBody(), context);
    }

    // These two are visited only where they stand directly in a range, without their statement.
    void visit(const CaseClauseView& s) {
        flow.appendThrowing(s, context);
        flow.addRange(s.getCaseBody(), context);
    }
    void visit(const ElseIfClauseView& s) {
        flow.appendThrowing(s, context);
        flow.addRange(s.getElseIfBody(), context);
    }

    void visit(const ForStatementView& s) {
        const Node head = flow.appendThrowing(s, context);
        flow.addLoopBody(head, s.getForBody(), context);
    }
    void visit(const WhileStatementView& s) {
        const Node head = flow.appendThrowing(s, context);
        flow.addLoopBody(head, s.getWhileBody(), context);
    }
    void visit(const ParforStatementView& s) {
        const Node head = flow.appendThrowing(s, context);
        flow.addParallelBody(head, s.getParforBody(), context);
    }

    /// Each condition follows the one before it.
    void visit(const IfStatementView& s) {
        const Node head = flow.appendThrowing(s, context);
        NodeSet branchEnds;
        flow.addRange(s.getIfBody(), context);
        endBranch(branchEnds, head);
        const ElseIfClauseRangeView clauses = s.getIfElseIfClauses();
        for (std::uint64_t i = 0; i < clauses.size(); ++i) {
            const ElseIfClauseView clause(clauses[i]);
            const Node condition = flow.appendThrowing(clause, context);
            flow.addRange(clause.getElseIfBody(), context);
            endBranch(branchEnds, condition);
        }
        const boost::optional<NodeView> otherwise = s.getIfElseClause();
        if (otherwise) flow.addRange(ElseClauseView(*otherwise).getElseBody(), context);
        joinBranches(branchEnds);
    }

    /// Each case expression follows the one before it; no body falls through to the next.
    void visit(const SwitchStatementView& s) {
        flow.appendThrowing(s, context);
        NodeSet branchEnds;
        const CaseClauseRangeView clauses = s.getSwitchCases();
        for (std::uint64_t i = 0; i < clauses.size(); ++i) {
            const CaseClauseView clause(clauses[i]);
            const Node condition = flow.appendThrowing(clause, context);
            flow.addRange(clause.getCaseBody(), context);
            endBranch(branchEnds, condition);
        }
        const boost::optional<NodeView> otherwise = s.getSwitchOtherwise();
        if (otherwise) flow.addRange(OtherwiseClauseView(*otherwise).getOtherwiseBody(), context);
        joinBranches(branchEnds);
    }

    /// Deliberate: a try statement is not a throw point of the try around it.
    void visit(const TryStatementView& s) {
        NodeSet throwPoints;
        throwPoints.insert(flow.append(s, context));
        flow.addRange(s.getTryBody(), {context.pending, context.jumps, &throwPoints});
        const boost::optional<NodeView> clause = s.getTryCatch();
        if (clause) {
            addCatch(CatchClauseView(*clause), throwPoints);
        } else {
            context.pending.merge(throwPoints); // the error is swallowed
        }
    }

    /// Deliberate: every other kind is asked whether it is a flow node, and the answer is dropped.
    /// It is yes for a DiscardedStatement, which is passed over all the same.
    template <typename View>
    std::enable_if_t<isInGroups<
        View, Definitions, Expressions,
        KindGroup<CatchClauseView, DiscardedStatementView, ElseClauseView, OtherwiseClauseView>>>
    visit(const View& other) {
        static_cast<void>(isControlFlowNode(other));
    }

private:
    /// The next branch begins where `condition` is false.
    void endBranch(NodeSet& branchEnds, Node condition) {
        branchEnds.merge(context.pending);
        continueFrom(condition, context);
    }

    /// Without an else, the last condition is one of the ends: it can be false.
    void joinBranches(NodeSet& branchEnds) { context.pending.merge(branchEnds); }

    /// The catch body throws to the enclosing try, if there is one.
    void addCatch(const CatchClauseView& clause, NodeSet& throwPoints) {
        NodeSet normalEnds = std::exchange(context.pending, std::move(throwPoints));
        flow.append(clause, context);
        flow.addRange(clause.getCatchBody(), context);
        context.pending.merge(normalEnds);
    }

    ControlFlow& flow;
    const Context& context;
};

} // namespace zt::orvex::flow::internal
