#include "analysis/AnalysisFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace zt::orvex::testing {
namespace {

class StatementEffects : public AnalysisFixture {
protected:
    // `x` is read and `y` is written.
    NodeView x() { return id("x"); }
    NodeView y() { return id("y"); }
};

TEST_F(StatementEffects, AssignmentReadsItsRightSideAndWritesItsLeftSide) {
    EXPECT_EQ(effects(assign(y(), x())), "gen x kill y");
}

TEST_F(StatementEffects, BareIdentifierIsWritten) {
    EXPECT_EQ(effects(bareIdentifier(y())), "kill y");
}

TEST_F(StatementEffects, CaseReadsItsExpressionAndNotItsBody) {
    EXPECT_EQ(effects(caseClause(x(), {assign(y(), id("z"))})), "gen x");
}

TEST_F(StatementEffects, CatchWritesItsIdentifierAndNotItsBody) {
    EXPECT_EQ(effects(catchClause(NodeView(y()), {assign(id("z"), x())})), "kill y");
    EXPECT_EQ(effects(catchClause({}, {assign(id("z"), x())})), "");
}

TEST_F(StatementEffects, CommandReadsItsCalleeWritesItsTargetAndSkipsItsWords) {
    EXPECT_EQ(effects(command(y(), x(), {characterLiteral(NodeView(id("z")))})), "gen x kill y");
    ast.startRecording();
    effects(command(y(), x(), {characterLiteral(), characterLiteral()}));
    EXPECT_EQ(ast.count(Operation::getCommandWords), 0u);
}

TEST_F(StatementEffects, ElseIfReadsItsConditionAndNotItsBody) {
    EXPECT_EQ(effects(elseIfClause(x(), {assign(y(), id("z"))})), "gen x");
}

TEST_F(StatementEffects, ExpressionStatementReadsItsExpressionAndWritesItsTarget) {
    EXPECT_EQ(effects(expressionStatement(y(), x())), "gen x kill y");
}

TEST_F(StatementEffects, ForReadsItsRangeWritesItsVariableAndSkipsItsBody) {
    EXPECT_EQ(effects(forLoop(y(), x(), {assign(id("z"), id("a"))})), "gen x kill y");
}

TEST_F(StatementEffects, IfReadsItsConditionAndNothingElse) {
    const NodeView statement = ifStatement(x(), {assign(y(), id("z"))}, {elseIfClause(id("a"), {})},
                                           NodeView(elseClause({assign(id("b"), id("c"))})));
    EXPECT_EQ(effects(statement), "gen x");
}

TEST_F(StatementEffects, ImplicitCommandWritesItsTargetAndSkipsItsWords) {
    EXPECT_EQ(effects(implicitCommand(y(), {characterLiteral(NodeView(x()))})), "kill y");
    ast.startRecording();
    effects(implicitCommand(y(), {characterLiteral()}));
    EXPECT_EQ(ast.count(Operation::getImplicitCommandWords), 0u);
}

TEST_F(StatementEffects, MultiAssignmentReadsItsRightSideAndWritesEachTarget) {
    EXPECT_EQ(effects(multiAssign({y(), id("z")}, x())), "gen x kill y z");
}

TEST_F(StatementEffects, ParforReadsItsOptionsAndRangeAndWritesItsVariable) {
    const NodeView loop =
        parforLoop(y(), x(), {assign(id("z"), id("c"))}, {id("a"), add(id("b"), number())});
    EXPECT_EQ(effects(loop), "gen a b x kill y");
}

TEST_F(StatementEffects, SpmdReadsItsOptionsAndNotItsBody) {
    EXPECT_EQ(effects(spmd({assign(y(), x())}, {id("a"), id("b")})), "gen a b");
}

TEST_F(StatementEffects, SwitchReadsItsSubjectAndNotItsCases) {
    const NodeView statement =
        switchStatement(x(), {caseClause(y(), {assign(id("z"), id("a"))})},
                        NodeView(otherwiseClause({assign(id("b"), id("c"))})));
    EXPECT_EQ(effects(statement), "gen x");
}

TEST_F(StatementEffects, WhileReadsItsConditionAndNotItsBody) {
    EXPECT_EQ(effects(whileLoop(x(), {assign(y(), id("z"))})), "gen x");
}

TEST_F(StatementEffects, StatementsWithAnEmptyHeadReadAndWriteNothing) {
    const std::vector<NodeView> statements = {
        breakStatement(),
        continueStatement(),
        emptyStatement(),
        global({x(), y()}),
        persistent({x(), y()}),
        print(assign(y(), x())),
        returnStatement(),
        tryStatement({assign(y(), x())}, NodeView(catchClause(NodeView(id("z")), {})))};
    for (const NodeView& statement : statements) {
        EXPECT_EQ(effects(statement, MAY), "") << label(statement);
        EXPECT_EQ(effects(statement, MUST), "") << label(statement);
    }
}

TEST_F(StatementEffects, OtherKindsArePassedOver) {
    const std::vector<NodeView> others = {discardedStatement(),
                                          elseClause({assign(y(), x())}),
                                          filler(),
                                          otherwiseClause({assign(y(), x())}),
                                          program({x()}),
                                          x(),
                                          unknown(0),
                                          unknown(128),
                                          add(x(), y()),
                                          unknown(255)};
    for (const NodeView& other : others)
        EXPECT_EQ(effects(other), "") << static_cast<int>(other.getKind());
}

TEST_F(StatementEffects, FifteenKindsHaveAHeadAndNoOtherKindIsAskedForOne) {
    std::vector<NodeKind> asked;
    for (int kind = 0; kind <= 255; ++kind) {
        // A node without parts answers only for its kind, and refuses every other question.
        const NodeView node = unknown(kind);
        try {
            EXPECT_EQ(effects(node), "") << kind;
        } catch (const std::logic_error&) {
            asked.push_back(node.getKind());
        }
    }
    EXPECT_THAT(asked,
                ::testing::ElementsAre(
                    NodeKind::AssignmentStatement, NodeKind::BareIdentifierStatement,
                    NodeKind::CaseClause, NodeKind::CatchClause, NodeKind::CommandStatement,
                    NodeKind::ElseIfClause, NodeKind::ExpressionStatement, NodeKind::ForStatement,
                    NodeKind::IfStatement, NodeKind::ImplicitCommandStatement,
                    NodeKind::MultiAssignmentStatement, NodeKind::ParforStatement,
                    NodeKind::SpmdStatement, NodeKind::SwitchStatement, NodeKind::WhileStatement));
}

} // namespace
} // namespace zt::orvex::testing
