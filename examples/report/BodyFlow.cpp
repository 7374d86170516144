#include "report/BodyFlow.h"

#include "report/HeadAccesses.h"

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>

#include <boost/dynamic_bitset.hpp>

#include <cstddef>
#include <unordered_map>
#include <utility>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

/// The state at one point of the body. Where control can't come, nothing is unwritten, which makes
/// that state the neutral element of `join`.
struct State {
    bool isReachable = false;
    boost::dynamic_bitset<> unwritten; ///< Variables that some path to here hasn't written whole.

    void join(const State& other) {
        isReachable = isReachable || other.isReachable;
        unwritten |= other.unwritten;
    }
};

class BodyTracer {
public:
    explicit BodyTracer(const std::vector<SymbolView>& universe)
        : flows(universe.size()), nowhere{false, boost::dynamic_bitset<>(universe.size())},
          state{true, ~nowhere.unwritten} {
        for (std::size_t i = 0; i < universe.size(); ++i)
            indices.emplace(universe[i].symbol, i);
    }

    std::vector<VariableFlow> trace(StatementRangeView body) {
        statements(body);
        return std::move(flows);
    }

private:
    template <typename Range>
    void statements(const Range& range) {
        for (const NodeView statement : range)
            visit(statement);
    }

    void visit(NodeView statement) {
        switch (statement.getKind()) {
        case NodeKind::BreakStatement:
        case NodeKind::ContinueStatement:
        case NodeKind::ReturnStatement:
            // All of them go to the head of a loop, past a loop or to the end of the body. The
            // state after a loop already includes that of its head, which has at least as much
            // unwritten.
            state = nowhere;
            break;
        case NodeKind::ForStatement:
            loop(statement, ForStatementView(statement).getForBody());
            break;
        case NodeKind::IfStatement:
            branches(IfStatementView(statement));
            break;
        case NodeKind::ParforStatement:
            loop(statement, ParforStatementView(statement).getParforBody());
            break;
        case NodeKind::PrintStatement:
            visit(PrintStatementView(statement).getPrintedStatement());
            break;
        case NodeKind::SpmdStatement:
            head(statement);
            statements(SpmdStatementView(statement).getSpmdBody());
            break;
        case NodeKind::SwitchStatement:
            cases(SwitchStatementView(statement));
            break;
        case NodeKind::TryStatement:
            attempt(TryStatementView(statement));
            break;
        case NodeKind::WhileStatement:
            loop(statement, WhileStatementView(statement).getWhileBody());
            break;
        default:
            head(statement);
            break;
        }
    }

    /// A loop may run no iteration, so the state after it is the one after its head.
    void loop(NodeView statement, StatementRangeView body) {
        head(statement);
        const State afterHead = state;
        statements(body);
        state = afterHead;
    }

    void branches(IfStatementView statement) {
        State end = nowhere;
        head(statement);
        branch(statement.getIfBody(), end);
        for (const NodeView clause : statement.getIfElseIfClauses()) {
            head(clause);
            branch(ElseIfClauseView(clause).getElseIfBody(), end);
        }
        if (const auto otherwise = statement.getIfElseClause())
            statements(ElseClauseView(*otherwise).getElseBody());
        state.join(end);
    }

    void cases(SwitchStatementView statement) {
        State end = nowhere;
        head(statement);
        for (const NodeView clause : statement.getSwitchCases()) {
            head(clause);
            branch(CaseClauseView(clause).getCaseBody(), end);
        }
        if (const auto otherwise = statement.getSwitchOtherwise())
            statements(OtherwiseClauseView(*otherwise).getOtherwiseBody());
        state.join(end);
    }

    /// Traces a branch that joins `end`, and continues with the state of not taking it.
    void branch(StatementRangeView body, State& end) {
        const State notTaken = state;
        statements(body);
        end.join(state);
        state = notTaken;
    }

    /// The body may fail before its first statement has had any effect.
    void attempt(TryStatementView statement) {
        const State begin = state;
        statements(statement.getTryBody());
        State end = std::exchange(state, begin);
        if (const auto clause = statement.getTryCatch()) {
            head(*clause);
            statements(CatchClauseView(*clause).getCatchBody());
        }
        state.join(end);
    }

    void head(NodeView statement) {
        if (!state.isReachable) return;
        wholeWrites.clear();
        forEachHeadAccess(statement, [&](const Access& access) { use(access, statement); });
        for (const std::size_t variable : wholeWrites)
            state.unwritten.reset(variable);
    }

    /// All reads of a statement see the values from before its writes: in `[x, x(1)] = f()` the
    /// second target keeps the rest of the old `x`.
    void use(const Access& access, NodeView statement) {
        const IdentifierView identifier(access.identifier);
        const auto found = indices.find(identifier.getIdentifierSymbol().symbol);
        if (found == indices.end()) return;
        const std::size_t variable = found->second;
        VariableFlow& flow = flows[variable];
        if (access.kind != AccessKind::WholeWrite && state.unwritten.test(variable) &&
            !flow.firstRead) {
            flow.firstRead = identifier;
            flow.isFirstReadPartWrite = access.kind == AccessKind::PartWrite;
        }
        if (access.kind != AccessKind::Read) {
            flow.lastWrite = identifier;
            flow.lastWriteStatement = statement;
        }
        if (access.kind == AccessKind::WholeWrite) wholeWrites.push_back(variable);
    }

    std::unordered_map<std::uint64_t, std::size_t> indices;
    std::vector<VariableFlow> flows;
    const State nowhere;
    State state;
    std::vector<std::size_t> wholeWrites; ///< By the current statement.
};

} // namespace

std::vector<VariableFlow> traceBody(StatementRangeView body,
                                    const std::vector<SymbolView>& universe) {
    return BodyTracer(universe).trace(body);
}

} // namespace ostrel::report
