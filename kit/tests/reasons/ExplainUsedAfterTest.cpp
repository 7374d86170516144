#include "reasons/ReasonsFixture.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zt::orvex::kit {
namespace {

class ExplainUsedAfterTest : public testing::ReasonsFixture {
protected:
    const FlowGraph& bodyOf(const ParforStatementView& loop) {
        body = std::make_unique<FlowGraph>(universe, loop.getParforBody(), MAY, Mode::Plain);
        return *body;
    }

    boost::optional<ValueUsedAfter> usedAfter(const ParforStatementView& loop,
                                              const testing::Nodes& around, std::string_view name) {
        const FlowGraph& inside = bodyOf(loop);
        const FlowGraph& outside = graphOf(around);
        const auto reason = explainUsedAfter(inside, outside, symbol(name));
        if (reason) {
            EXPECT_EQ(checkUsedAfter(inside, outside, symbol(name), *reason).objection, "");
        }
        return reason;
    }

private:
    std::unique_ptr<FlowGraph> body;
};

TEST_F(ExplainUsedAfterTest, LastValueOfALoopIsUsed) {
    // around: 1 parfor, 2 x = i, end, 3 y = x    body: 1 x = i
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("x"), id("i"))});
    const auto reason = usedAfter(loop, {loop, assign(id("y"), id("x"))}, "x");
    ASSERT_TRUE(reason);
    EXPECT_EQ(reason->write.kind, AccessKind::WholeWrite);
    EXPECT_EQ(reason->path.nodes, (Path{2, 3}));
}

TEST_F(ExplainUsedAfterTest, ValueOverwrittenAfterTheLoopIsNot) {
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("x"), id("i"))});
    EXPECT_FALSE(usedAfter(loop, {loop, assign(id("x"), id("a")), assign(id("y"), id("x"))}, "x"));
}

TEST_F(ExplainUsedAfterTest, VariableThatTheLoopDoesNotWriteIsNot) {
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("x"), id("i"))});
    EXPECT_FALSE(usedAfter(loop, {loop, assign(id("y"), id("a"))}, "a"));
}

TEST_F(ExplainUsedAfterTest, NextRoundOfALoopAroundMayUseIt) {
    // around: 1 while c, 2 y = x, 3 parfor, 4 x = i, end, end
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("x"), id("i"))});
    const auto reason =
        usedAfter(loop, {whileLoop(id("c"), {assign(id("y"), id("x")), loop})}, "x");
    ASSERT_TRUE(reason);
    EXPECT_EQ(reason->path.nodes, (Path{4, 1, 2}));
}

TEST_F(ExplainUsedAfterTest, ErrorMayCarryAValueOutOfTheMiddleOfTheLoop) {
    // around: 1 try, 2 parfor, 3 x = i, 4 x = a, end, 5 x = b, 6 catch, 7 y = x, end
    const ParforStatementView loop =
        parforLoop(id("i"), id("n"), {assign(id("x"), id("i")), assign(id("x"), id("a"))});
    const auto reason = usedAfter(loop,
                                  {tryStatement({loop, assign(id("x"), id("b"))},
                                                catchClause({}, {assign(id("y"), id("x"))}))},
                                  "x");
    ASSERT_TRUE(reason);
    EXPECT_EQ(reason->path.nodes, (Path{3, 6, 7}));
}

TEST_F(ExplainUsedAfterTest, GraphThatDoesNotHoldTheConstructGivesNoReason) {
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("x"), id("i"))});
    EXPECT_FALSE(usedAfter(loop, {assign(id("y"), id("x"))}, "x"));
}

TEST_F(ExplainUsedAfterTest, GraphOfTypeMustIsRefused) {
    const FlowGraph& may = graphOf({});
    const FlowGraph& must = graphOf({}, MUST);
    EXPECT_THROW(explainUsedAfter(may, must, symbol("x")), std::invalid_argument);
    EXPECT_THROW(explainUsedAfter(must, may, symbol("x")), std::invalid_argument);
}

} // namespace
} // namespace zt::orvex::kit
