#include "lying/CheckTreeFixture.h"

#include <gtest/gtest.h>

// One mistake in a node at a time: what the check finds, and what an analysis answers without it.
namespace zt::orvex::kit {
namespace {

class CheckTreeNode : public CheckTreeFixture {};

TEST_F(CheckTreeNode, CorrectTreeHasNoFinding) {
    EXPECT_EQ(findings(), "");
    EXPECT_EQ(readFirst(), "a b c x");
}

TEST_F(CheckTreeNode, KindZeroIsFound) {
    answerKind(second, NodeKind::Invalid);
    EXPECT_EQ(findings(), "kind-unknown at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfBody[0]");
    EXPECT_EQ(readFirst(), "a b c");
}

TEST_F(CheckTreeNode, UnknownKindIsFound) {
    answerKind(sum, NodeKind{67});
    EXPECT_EQ(findings(), "kind-unknown at ParforStatement.getParforBody[0] > "
                          "AssignmentStatement.getAssignmentRhs");
    EXPECT_EQ(readFirst(), "c x");
}

TEST_F(CheckTreeNode, RootOfAnUnknownKindIsFound) {
    EXPECT_EQ(findings(lying.view(unknown(200))), "kind-unknown at root");
}

TEST_F(CheckTreeNode, ExpressionInPlaceOfAStatementIsFound) {
    answerElement(Operation::getStatementRangeElement, 2, lying.view(id("r")));
    EXPECT_EQ(findings(), "kind-misplaced at ParforStatement.getParforBody[2]");
    EXPECT_EQ(onlyFinding().advice,
              "This is a node of the kind Identifier (37), class expression, where statement is "
              "expected. Return the child that belongs here.");
}

TEST_F(CheckTreeNode, StatementInPlaceOfAnExpressionIsFound) {
    answerNode(Operation::getIfCondition, branch, lying.view(assign(id("b"), id("c"))));
    EXPECT_EQ(findings(), "kind-misplaced at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfCondition");
    EXPECT_EQ(readFirst(), "a b x");
}

TEST_F(CheckTreeNode, AnotherKindInPlaceOfAnElseClauseIsFound) {
    const auto statement = ifStatement(id("c"), {}, {}, otherwiseClause({}));
    EXPECT_EQ(findings(lying.view(statement)), "kind-misplaced at IfStatement.getIfElseClause");
}

TEST_F(CheckTreeNode, ExpressionInPlaceOfALoopVariableIsFound) {
    answerNode(Operation::getParforVariable, loop, lying.view(parenthesized(id("k"))));
    EXPECT_EQ(findings(), "kind-misplaced at ParforStatement.getParforVariable");
}

TEST_F(CheckTreeNode, FillerMayStandForAMissingExpression) {
    answerNode(Operation::getIfCondition, branch, lying.view(filler()));
    EXPECT_EQ(findings(), "");
}

TEST_F(CheckTreeNode, FillerMayNotBeAStatementOrALoopVariable) {
    EXPECT_EQ(findings(lying.view(print(filler()))),
              "kind-misplaced at PrintStatement.getPrintedStatement");
    EXPECT_EQ(findings(lying.view(forLoop(filler(), id("n"), {}))),
              "kind-misplaced at ForStatement.getForVariable");
    EXPECT_EQ(findings(lying.view(row({filler()}))), "kind-misplaced at Row.getRowExpressions[0]");
}

TEST_F(CheckTreeNode, AnyKindMayStandWhereATreeIsOnlyWalked) {
    EXPECT_EQ(findings(lying.view(dot(id("s"), breakStatement()))), "");
    EXPECT_EQ(findings(lying.view(program({id("a"), elseClause({}), filler()}))), "");
}

TEST_F(CheckTreeNode, RequiredChildWithANullViewIsFound) {
    answerNode(Operation::getAssignmentRhs, second, NodeView{x.node, nullptr});
    EXPECT_EQ(findings(), "view-null at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfBody[0] > AssignmentStatement.getAssignmentRhs");
    EXPECT_DEATH(readFirst(), "");
}

TEST_F(CheckTreeNode, OptionalChildWithANullViewIsFound) {
    lying.onMaybe = [](const Call& asked, boost::optional<NodeView>& node) {
        if (asked.operation == Operation::getIfElseClause) node = NodeView{0, nullptr};
    };
    EXPECT_EQ(findings(), "view-null at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfElseClause");
    EXPECT_DEATH(readFirst(), "");
}

TEST_F(CheckTreeNode, RangeWithANullViewIsFound) {
    lying.onRange = [](const Call& asked, testing::LyingAst::Words& words) {
        if (asked.operation == Operation::getIfBody) words.view = nullptr;
    };
    EXPECT_EQ(findings(), "view-null at ParforStatement.getParforBody[1] > IfStatement.getIfBody");
    EXPECT_DEATH(readFirst(), "");
}

TEST_F(CheckTreeNode, RootWithANullViewIsFound) {
    EXPECT_EQ(findings(NodeView{loop.node, nullptr}), "view-null at root");
}

TEST_F(CheckTreeNode, ChildOfAnotherTreeIsFound) {
    TreeBuilder other;
    const auto foreign = other.id("z");
    answerNode(Operation::getAssignmentRhs, second, foreign);
    EXPECT_EQ(findings(), "view-foreign at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfBody[0] > AssignmentStatement.getAssignmentRhs");
    // The first symbol of the other tree is taken for the first one of this tree.
    EXPECT_EQ(readFirst(), "a b c k");
}

TEST_F(CheckTreeNode, NodeAtTwoPlacesIsFound) {
    answerElement(Operation::getStatementRangeElement, 2, lying.view(first));
    EXPECT_EQ(findings(), "node-shared at ParforStatement.getParforBody[2]");
    EXPECT_EQ(readFirst(), "threw Equation already exists for this variable");
}

TEST_F(CheckTreeNode, CycleIsFound) {
    answerNode(Operation::getBinaryLhs, sum, lying.view(sum));
    EXPECT_EQ(findings(), "node-cycle at ParforStatement.getParforBody[0] > "
                          "AssignmentStatement.getAssignmentRhs > BinaryOperation.getBinaryLhs");
}

TEST_F(CheckTreeNode, CycleThatIsNotFoundOverflowsTheStack) {
#if defined(_WIN32)
    GTEST_SKIP() << "wine ends a program whose stack overflows as if it had succeeded";
#endif
    answerNode(Operation::getBinaryLhs, sum, lying.view(sum));
    EXPECT_DEATH(readFirst(), "");
}

TEST_F(CheckTreeNode, CycleOfStatementsIsFound) {
    lying.onNode = [&](const Call& asked, NodeView& node) {
        if (asked.operation == Operation::getStatementRangeElement && node == second) {
            node = lying.view(branch);
        }
    };
    EXPECT_EQ(findings(), "node-cycle at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfBody[0]");
    EXPECT_EQ(readFirst(), "threw Equation already exists for this variable");
}

TEST_F(CheckTreeNode, RootBelowItselfIsFound) {
    answerNode(Operation::getIfCondition, branch, lying.view(loop));
    EXPECT_EQ(findings(), "node-cycle at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfCondition");
}

TEST_F(CheckTreeNode, EqualPseudoNodesAreFound) {
    lying.onNode = [&](const Call& asked, NodeView& node) {
        if (asked.operation == Operation::getExitNode) node = lying.getEntryNode();
    };
    EXPECT_EQ(findings(), "pseudo-nodes-equal at root");
    EXPECT_NE(readFirst(), "a b c x");
}

TEST_F(CheckTreeNode, PseudoNodeWithTheHandleOfARealNodeIsFound) {
    lying.onNode = [&](const Call& asked, NodeView& node) {
        if (asked.operation == Operation::getEntryNode) node = lying.view(branch);
    };
    EXPECT_EQ(findings(), "pseudo-node-real at ParforStatement.getParforBody[1]");
    EXPECT_NE(readFirst(), "a b c x");
}

TEST_F(CheckTreeNode, ExitNodeWithTheHandleOfARealNodeIsFound) {
    lying.onNode = [&](const Call& asked, NodeView& node) {
        if (asked.operation == Operation::getExitNode) node = lying.view(last);
    };
    EXPECT_EQ(findings(), "pseudo-node-real at ParforStatement.getParforBody[2]");
}

TEST_F(CheckTreeNode, ParameterOfAnotherKindIsFound) {
    const auto parameter = inputParameterThatSays(NodeKind::Matrix, id("p"), {});
    EXPECT_EQ(findings(lying.view(parameter)),
              "parameter-unclear at InputParameter.getInputParameterKind");
}

TEST_F(CheckTreeNode, ParameterWithoutWhatItHoldsIsFound) {
    const auto parameter = inputParameterThatSays(NodeKind::Identifier, {}, {});
    EXPECT_EQ(findings(lying.view(parameter)),
              "parameter-unclear at InputParameter.getInputParameterIdentifier");
}

TEST_F(CheckTreeNode, ParameterThatHoldsAnotherKindIsFound) {
    const auto parameter = inputParameterThatSays(NodeKind::IgnoredArgument, {}, id("p"));
    EXPECT_EQ(findings(lying.view(parameter)),
              "kind-misplaced at InputParameter.getInputParameterIgnored");
}

TEST_F(CheckTreeNode, UnknownOperatorIsFound) {
    lying.onOperator = [](const Call&, std::uint32_t& op) { op = 21; };
    EXPECT_EQ(findings(), "operator-unknown at ParforStatement.getParforBody[0] > "
                          "AssignmentStatement.getAssignmentRhs > "
                          "BinaryOperation.getBinaryOperator");
}

TEST_F(CheckTreeNode, UnknownUnaryOperatorIsFound) {
    lying.onOperator = [](const Call&, std::uint32_t& op) { op = 7; };
    EXPECT_EQ(findings(lying.view(minus(id("a")))),
              "operator-unknown at UnaryOperation.getUnaryOperator");
}

} // namespace
} // namespace zt::orvex::kit
