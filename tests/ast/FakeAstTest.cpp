#include "testing/FakeAst.h"
#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace zt::orvex::testing {
namespace {

class FakeAstTest : public ::testing::Test, protected TreeBuilder {};

TEST_F(FakeAstTest, AnswersWhatItWasBuiltWith) {
    const auto statement = ifStatement(id("c"), {assign(id("x"), add(id("a"), id("b")))},
                                       {elseIfClause(id("d"), {})}, elseClause({breakStatement()}));
    EXPECT_EQ(statement.getKind(), NodeKind::IfStatement);
    EXPECT_EQ(label(statement.getIfCondition()), "c");
    ASSERT_EQ(statement.getIfBody().size(), 1U);
    const AssignmentStatementView assignment(statement.getIfBody()[0]);
    EXPECT_EQ(label(assignment.getAssignmentLhs()), "x");
    EXPECT_EQ(BinaryOperationView(assignment.getAssignmentRhs()).getBinaryOperator(),
              BinaryOperator::Add);
    EXPECT_EQ(label(statement.getIfElseIfClauses()[0]), "ElseIfClause");
    ASSERT_TRUE(statement.getIfElseClause());
    EXPECT_EQ(label(ElseClauseView(*statement.getIfElseClause()).getElseBody()[0]),
              "BreakStatement");
    EXPECT_FALSE(ifStatement(id("c"), {}).getIfElseClause());
}

TEST_F(FakeAstTest, OneNameHasOneSymbol) {
    EXPECT_EQ(id("x").getIdentifierSymbol(), id("x").getIdentifierSymbol());
    EXPECT_NE(id("x").getIdentifierSymbol(), id("y").getIdentifierSymbol());
    EXPECT_EQ(symbol("x"), id("x").getIdentifierSymbol());
    EXPECT_EQ(id("x").getIdentifierName(), u"x");
    EXPECT_TRUE(ast.isVariableSymbol(symbol("x").symbol));
    ast.setIsVariable(u"x", false);
    EXPECT_FALSE(ast.isVariableSymbol(symbol("x").symbol));
}

TEST_F(FakeAstTest, RecordsCallsWithTheirArguments) {
    const auto body = block({id("a"), id("b")});
    ast.startRecording();
    body[1];
    ASSERT_EQ(ast.calls().size(), 1U);
    EXPECT_EQ(ast.calls()[0].operation, Operation::getStatementRangeElement);
    EXPECT_EQ(ast.calls()[0].arguments[0], 1U);
    EXPECT_EQ(ast.calls()[0].arguments[1], body.first);
    EXPECT_EQ(ast.calls()[0].arguments[2], body.second);
    EXPECT_EQ(ast.count(Operation::getStatementRangeElement), 1U);
    EXPECT_EQ(ast.count(Operation::getStatementRangeSize), 0U);
}

TEST_F(FakeAstTest, RefusesQuestionsThatACorrectCallerNeverAsks) {
    const auto node = paren(id("f"), {id("a")});
    const auto arguments = node.getParenArguments();
    EXPECT_THROW(ast.getBraceBase(node.node), std::logic_error);
    EXPECT_THROW(arguments[1], std::logic_error);
    EXPECT_THROW(ast.getStatementRangeSize(arguments.first, arguments.second), std::logic_error);
    EXPECT_THROW(ast.getIdentifierName(node.node), std::logic_error);
    EXPECT_THROW(ast.getNodeKind(FakeAst::ENTRY_NODE), std::logic_error);
    EXPECT_THROW(ast.isVariableSymbol(node.node), std::logic_error);
    EXPECT_THROW(ast.reservedOperation4(), std::logic_error);
    EXPECT_THROW(ast.getNumberOperation1(node.node), std::logic_error);
}

TEST_F(FakeAstTest, CallsItsHookBeforeItAnswers) {
    const auto node = colonOperation(id("a"), id("step"), id("b"));
    ast.onCall = [&](const Call& call) {
        if (call.operation == Operation::getColonStep) ast.setSize(node, call.operation, 0);
        if (call.operation == Operation::getColonStop) throw std::runtime_error("no stop");
    };
    EXPECT_FALSE(node.getColonStep());
    EXPECT_THROW(node.getColonStop(), std::runtime_error);
}

TEST_F(FakeAstTest, PrintsKindsByName) {
    const auto number = std::to_string(static_cast<int>(NodeKind::IfStatement));
    EXPECT_EQ(::testing::PrintToString(NodeKind::IfStatement), "IfStatement (" + number + ")");
    EXPECT_EQ(::testing::PrintToString(static_cast<NodeKind>(200)), "unknown (200)");
    EXPECT_EQ(::testing::PrintToString(NodeView(id("x"))), "x (0x1000)");
    EXPECT_EQ(::testing::PrintToString(ast.getEntryNode()), "entry (0xe000000000000001)");
}

} // namespace
} // namespace zt::orvex::testing
