// A program of its own: it replaces the operators new and delete to count what is allocated.
#include "ast/ForEachForStatementIn.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <new>

namespace {
std::size_t allocationCount = 0;
}

// Not inlined: the compiler would take a `free` for a mistake where it sees a `new` beside it.
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocationCount;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

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

TEST_F(WalkAllocation, IsCounted) {
    const std::size_t before = allocationCount;
    const auto* number = new int(1);
    EXPECT_GT(allocationCount, before);
    delete number;
}

TEST_F(WalkAllocation, WalkOfEveryNodeAllocatesNothing) {
    const NodeView root = makeTree();
    std::size_t calls = 0;
    const std::function<void(NodeView)> callback = [&](const NodeView&) { ++calls; };
    const std::size_t before = allocationCount;
    forEachNodeIn(root, callback);
    EXPECT_EQ(allocationCount, before);
    EXPECT_EQ(calls, ast.size());
}

TEST_F(WalkAllocation, WalkOfForStatementsAllocatesNothing) {
    const NodeView root = makeTree();
    std::size_t calls = 0;
    const std::function<void(ForStatementView)> callback = [&](const ForStatementView&) {
        ++calls;
    };
    const std::size_t before = allocationCount;
    internal::forEachForStatementIn(root, callback);
    EXPECT_EQ(allocationCount, before);
    EXPECT_EQ(calls, 1U);
}

} // namespace
} // namespace zt::orvex::testing
