#include "analysis/ReferenceFlowGraph.h"

#include <zt_orvex/ast/TypedViews.h>

#include <functional>

namespace zt::orvex::testing {

ReferenceFlowGraph::ReferenceFlowGraph(const StatementRangeView& statements)
    : entry(statements.view->getEntryNode().node), exit(statements.view->getExitNode().node) {
    addNode(statements.view->getEntryNode(), nullptr);
    addNode(statements.view->getExitNode(), nullptr);
    const Target atEnd{exit, false};
    addEdge(entry, addRange(statements, atEnd, Jumps{atEnd, atEnd}, nullptr));
}

const std::set<ReferenceFlowGraph::Handle>& ReferenceFlowGraph::getSuccessors(Handle node) const {
    static const std::set<Handle> NONE;
    const auto found = successors.find(node);
    return found == successors.end() ? NONE : found->second;
}

bool ReferenceFlowGraph::hasCycle() const {
    // Removes nodes without successors until there are none. What is left, if anything, is a cycle
    // and what leads to it.
    std::map<Handle, std::set<Handle>> rest;
    for (const auto& [handle, node] : nodes)
        rest[handle] = getSuccessors(handle);
    for (bool removed = true; removed;) {
        removed = false;
        for (auto node = rest.begin(); node != rest.end(); ++node) {
            if (!node->second.empty()) continue;
            const Handle gone = node->first;
            rest.erase(node);
            for (auto& [handle, targets] : rest)
                targets.erase(gone);
            removed = true;
            break;
        }
    }
    return !rest.empty();
}

std::set<std::pair<ReferenceFlowGraph::Handle, ReferenceFlowGraph::Handle>>
ReferenceFlowGraph::getEdges() const {
    std::set<std::pair<Handle, Handle>> edges;
    for (const auto& [from, targets] : successors)
        for (const Handle to : targets)
            edges.emplace(from, to);
    return edges;
}

ReferenceFlowGraph::Target ReferenceFlowGraph::addNode(const NodeView& node, Failing* failing) {
    nodes.emplace(node.node, node);
    if (failing != nullptr) failing->insert(node.node);
    return Target{node.node, false};
}

void ReferenceFlowGraph::addEdge(Handle from, Target to) {
    successors[from].insert(to.node);
    if (!to.isBackToLoop) entered[to.node].insert(from);
}

ReferenceFlowGraph::Target ReferenceFlowGraph::addRange(const StatementRangeView& statements,
                                                        Target next, const Jumps& jumps,
                                                        Failing* failing) {
    for (std::uint64_t i = statements.size(); i > 0; --i)
        next = addStatement(statements[i - 1], next, jumps, failing);
    return next;
}

ReferenceFlowGraph::Target ReferenceFlowGraph::addStatement(const NodeView& statement, Target next,
                                                            const Jumps& jumps, Failing* failing) {
    switch (statement.getKind()) {
    case NodeKind::AssignmentStatement:
    case NodeKind::BareIdentifierStatement:
    case NodeKind::CommandStatement:
    case NodeKind::ExpressionStatement:
    case NodeKind::MultiAssignmentStatement: {
        const Target self = addNode(statement, failing);
        addEdge(self.node, next);
        return self;
    }
    // Statements that can't throw.
    case NodeKind::EmptyStatement:
    case NodeKind::GlobalDeclaration:
    case NodeKind::ImplicitCommandStatement:
    case NodeKind::PersistentDeclaration: {
        const Target self = addNode(statement, nullptr);
        addEdge(self.node, next);
        return self;
    }
    case NodeKind::BreakStatement:
        return addJump(statement, jumps.ofBreak);
    case NodeKind::ContinueStatement:
        return addJump(statement, jumps.ofContinue);
    case NodeKind::ReturnStatement:
        return addJump(statement, Target{exit, false});
    case NodeKind::PrintStatement: {
        const Target printing = addNode(statement, nullptr);
        addEdge(printing.node, next);
        return addStatement(PrintStatementView(statement).getPrintedStatement(), printing, jumps,
                            failing);
    }
    case NodeKind::SpmdStatement: {
        const Target self = addNode(statement, failing);
        addEdge(self.node,
                addRange(SpmdStatementView(statement).getSpmdBody(), next, jumps, failing));
        return self;
    }
    // A clause without its statement.
    case NodeKind::CaseClause: {
        const Target self = addNode(statement, failing);
        addEdge(self.node, addRange(CaseClauseView(statement).getCaseBody(), next, jumps, failing));
        return self;
    }
    case NodeKind::ElseIfClause: {
        const Target self = addNode(statement, failing);
        addEdge(self.node,
                addRange(ElseIfClauseView(statement).getElseIfBody(), next, jumps, failing));
        return self;
    }
    case NodeKind::ForStatement:
        return addLoop(statement, ForStatementView(statement).getForBody(), next, failing);
    case NodeKind::WhileStatement:
        return addLoop(statement, WhileStatementView(statement).getWhileBody(), next, failing);
    case NodeKind::ParforStatement:
        return addParfor(statement, next, failing);
    case NodeKind::IfStatement:
        return addIf(statement, next, jumps, failing);
    case NodeKind::SwitchStatement:
        return addSwitch(statement, next, jumps, failing);
    case NodeKind::TryStatement:
        return addTry(statement, next, jumps, failing);
    default: // passed over
        return next;
    }
}

ReferenceFlowGraph::Target ReferenceFlowGraph::addJump(const NodeView& statement, Target to) {
    const Target self = addNode(statement, nullptr);
    addEdge(self.node, to);
    return self;
}

ReferenceFlowGraph::Target ReferenceFlowGraph::addLoop(const NodeView& loop,
                                                       const StatementRangeView& body, Target next,
                                                       Failing* failing) {
    const Target self = addNode(loop, failing);
    const Target again{loop.node, true};
    addEdge(loop.node, addRange(body, again, Jumps{next, again}, failing));
    addEdge(loop.node, next);
    return self;
}

ReferenceFlowGraph::Target ReferenceFlowGraph::addParfor(const NodeView& parfor, Target next,
                                                         Failing* failing) {
    const Target self = addNode(parfor, failing);
    const StatementRangeView body = ParforStatementView(parfor).getParforBody();
    addEdge(parfor.node, addRange(body, next, Jumps{next, next}, failing));
    addEdge(parfor.node, next);
    return self;
}

ReferenceFlowGraph::Target ReferenceFlowGraph::addIf(const NodeView& statement, Target next,
                                                     const Jumps& jumps, Failing* failing) {
    const IfStatementView view(statement);
    Target otherwise = next;
    if (const auto clause = view.getIfElseClause())
        otherwise = addRange(ElseClauseView(*clause).getElseBody(), next, jumps, failing);
    const ElseIfClauseRangeView clauses = view.getIfElseIfClauses();
    for (std::uint64_t i = clauses.size(); i > 0; --i) {
        const ElseIfClauseView clause(clauses[i - 1]);
        const Target condition = addNode(clause, failing);
        addEdge(condition.node, addRange(clause.getElseIfBody(), next, jumps, failing));
        addEdge(condition.node, otherwise);
        otherwise = condition;
    }
    const Target self = addNode(statement, failing);
    addEdge(self.node, addRange(view.getIfBody(), next, jumps, failing));
    addEdge(self.node, otherwise);
    return self;
}

ReferenceFlowGraph::Target ReferenceFlowGraph::addSwitch(const NodeView& statement, Target next,
                                                         const Jumps& jumps, Failing* failing) {
    const SwitchStatementView view(statement);
    Target otherwise = next;
    if (const auto clause = view.getSwitchOtherwise())
        otherwise = addRange(OtherwiseClauseView(*clause).getOtherwiseBody(), next, jumps, failing);
    const CaseClauseRangeView clauses = view.getSwitchCases();
    for (std::uint64_t i = clauses.size(); i > 0; --i) {
        const CaseClauseView clause(clauses[i - 1]);
        const Target test = addNode(clause, failing);
        addEdge(test.node, addRange(clause.getCaseBody(), next, jumps, failing));
        addEdge(test.node, otherwise);
        otherwise = test;
    }
    const Target self = addNode(statement, failing);
    addEdge(self.node, otherwise);
    return self;
}

ReferenceFlowGraph::Target ReferenceFlowGraph::addTry(const NodeView& statement, Target next,
                                                      const Jumps& jumps, Failing* failing) {
    const TryStatementView view(statement);
    const Target self = addNode(statement, nullptr);
    Failing inBody;
    addEdge(self.node, addRange(view.getTryBody(), next, jumps, &inBody));

    // A statement throws before it has had its effect, when control comes from its predecessors, or
    // after.
    std::set<Handle> failures{statement.node};
    for (const Handle failed : inBody) {
        failures.insert(failed);
        failures.insert(entered[failed].begin(), entered[failed].end());
    }

    Target onFailure = next;
    if (const auto clause = view.getTryCatch()) {
        onFailure = addNode(*clause, nullptr);
        addEdge(onFailure.node,
                addRange(CatchClauseView(*clause).getCatchBody(), next, jumps, failing));
    }
    for (const Handle failure : failures)
        addEdge(failure, onFailure);
    return self;
}

} // namespace zt::orvex::testing
