// A program of its own: it replaces the global allocation functions.

#include "ast/ForEachForStatementIn.h"
#include "testing/AllocationCounter.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>

namespace zt::orvex::testing {
namespace {

class WalkAllocation : public ::testing::Test, protected TreeBuilder {
protected:
    NodeView makeTree() {
        return program(
            {ifStatement(id("c"), {assign(id("x"), add(id("a"), matrix({row({id("b")})})))},
                         {elseIfClause(id("d"), {})}, elseClause({print(emptyStatement())})),
             forLoop(id("i"), colonOperation(id("a"), id("b"), id("c")),
                     {tryStatement({breakStatement()}, catchClause(MaybeNode(id("e")), {}))}),
             functionDefinition({id("o")}, id("f"), {inputParameter(id("p"))}, filler(),
                                {argumentsBlock({}, {argumentDeclaration(id("p"))})}, {})});
    }
};

TEST_F(WalkAllocation, WalkOfEveryNodeAllocatesNothing) {
    const NodeView root = makeTree();
    std::size_t calls = 0;
    const std::function<void(NodeView)> callback = [&](const NodeView&) { ++calls; };
    EXPECT_EQ(allocationsOf([&] { forEachNodeIn(root, callback); }), 0U);
    EXPECT_EQ(calls, ast.size());
}

TEST_F(WalkAllocation, WalkOfForStatementsAllocatesNothing) {
    const NodeView root = makeTree();
    std::size_t calls = 0;
    const std::function<void(ForStatementView)> callback = [&](const ForStatementView&) {
        ++calls;
    };
    EXPECT_EQ(allocationsOf([&] { internal::forEachForStatementIn(root, callback); }), 0U);
    EXPECT_EQ(calls, 1U);
}

} // namespace
} // namespace zt::orvex::testing
