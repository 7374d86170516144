#include "WalkTraces.h"
#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/ControlFlow.h>

#include <gtest/gtest.h>

namespace zt::orvex::flow {
namespace {

using testing::KindClass;
using testing::TreeBuilder;

TEST(IsControlFlowNode, HoldsForStatementsAndThreeClausesAlone) {
    TreeBuilder t;
    for (int kind = 0; kind <= 255; ++kind) {
        const KindClass expected = testing::expectedClass(static_cast<std::size_t>(kind));
        const bool isOne = expected == KindClass::Statement || expected == KindClass::Clause;
        EXPECT_EQ(isControlFlowNode(t.unknown(kind)), isOne) << kind;
    }
}

TEST(IsControlFlowNode, HoldsForElseIfClauseAndNotForElseClause) {
    TreeBuilder t;
    EXPECT_TRUE(isControlFlowNode(t.elseIfClause(t.id("c"), {})));
    EXPECT_FALSE(isControlFlowNode(t.elseClause({})));
}

TEST(IsControlFlowNode, HoldsForCaseClauseAndNotForOtherwiseClause) {
    TreeBuilder t;
    EXPECT_TRUE(isControlFlowNode(t.caseClause(t.id("c"), {})));
    EXPECT_TRUE(isControlFlowNode(t.catchClause({}, {})));
    EXPECT_FALSE(isControlFlowNode(t.otherwiseClause({})));
}

TEST(IsControlFlowNode, DoesNotHoldForExpressionsAndMethods) {
    TreeBuilder t;
    EXPECT_FALSE(isControlFlowNode(t.matrix({})));
    EXPECT_FALSE(isControlFlowNode(t.methodDefinition({}, t.id("f"), {}, t.filler(), {}, {})));
}

TEST(IsControlFlowNode, AsksNothingButTheKind) {
    TreeBuilder t;
    const auto node = t.whileLoop(t.id("c"), {});
    t.ast.startRecording();
    isControlFlowNode(node);
    ASSERT_EQ(t.ast.calls().size(), 1U);
    EXPECT_EQ(t.ast.calls()[0].operation, testing::Operation::getNodeKind);
}

} // namespace
} // namespace zt::orvex::flow
