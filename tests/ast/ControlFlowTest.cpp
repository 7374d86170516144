#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/ControlFlow.h>

#include <gtest/gtest.h>

#include <set>

namespace zt::orvex::flow {
namespace {

using testing::TreeBuilder;

TEST(IsControlFlowNode, EveryByteIsAnsweredAsListedHere) {
    // The 21 kinds of statement, then CaseClause, CatchClause and ElseIfClause.
    const std::set<int> controlFlow = {5,  7,  10, 18, 19, 21, 26, 32, 34, 36, 38, 40,
                                       46, 52, 53, 54, 58, 60, 62, 63, 66, 11, 12, 25};
    ASSERT_EQ(controlFlow.size(), 24U);
    TreeBuilder t;
    for (int kind = 0; kind <= 255; ++kind) {
        EXPECT_EQ(isControlFlowNode(t.unknown(kind)), controlFlow.count(kind) == 1) << kind;
    }
}

TEST(IsControlFlowNode, ElseIfClauseIsOneAndElseClauseIsNone) {
    TreeBuilder t;
    EXPECT_TRUE(isControlFlowNode(t.elseIfClause(t.id("c"), {})));
    EXPECT_FALSE(isControlFlowNode(t.elseClause({})));
}

TEST(IsControlFlowNode, CaseClauseIsOneAndOtherwiseClauseIsNone) {
    TreeBuilder t;
    EXPECT_TRUE(isControlFlowNode(t.caseClause(t.id("c"), {})));
    EXPECT_TRUE(isControlFlowNode(t.catchClause({}, {})));
    EXPECT_FALSE(isControlFlowNode(t.otherwiseClause({})));
}

TEST(IsControlFlowNode, ExpressionsAndMethodsAreNone) {
    TreeBuilder t;
    EXPECT_FALSE(isControlFlowNode(t.matrix({})));
    EXPECT_FALSE(isControlFlowNode(t.methodDefinition({}, t.id("f"), {}, t.filler(), {}, {})));
}

TEST(IsControlFlowNode, AsksTheKindAlone) {
    TreeBuilder t;
    const auto node = t.whileLoop(t.id("c"), {});
    t.ast.startRecording();
    isControlFlowNode(node);
    ASSERT_EQ(t.ast.calls().size(), 1U);
    EXPECT_EQ(t.ast.calls()[0].operation, testing::Operation::getNodeKind);
}

} // namespace
} // namespace zt::orvex::flow
