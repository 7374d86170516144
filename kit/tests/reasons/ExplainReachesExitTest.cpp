#include "reasons/ReasonsFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace zt::orvex::kit {
namespace {

class ExplainReachesExitTest : public testing::ReasonsFixture {
protected:
    const FlowGraph& bodyOf(const ParforStatementView& loop) {
        body = std::make_unique<FlowGraph>(universe, loop.getParforBody(), MAY, Mode::Plain);
        return *body;
    }

    boost::optional<ValueUsedAfter> reachesExit(const ParforStatementView& loop,
                                                const testing::Nodes& around,
                                                std::string_view name) {
        const FlowGraph& inside = bodyOf(loop);
        const FlowGraph& outside = graphOf(around);
        const auto reason = explainReachesExit(inside, outside, symbol(name));
        if (reason) {
            EXPECT_EQ(checkReachesExit(inside, outside, symbol(name), *reason).objection, "");
        }
        return reason;
    }

private:
    std::unique_ptr<FlowGraph> body;
};

TEST_F(ExplainReachesExitTest, LastValueOfALoopIsThereAtTheEnd) {
    // around: 1 parfor, 2 x = i, end, 3 y = x, 4 the exit
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("x"), id("i"))});
    const auto reason = reachesExit(loop, {loop, assign(id("y"), id("x"))}, "x");
    ASSERT_TRUE(reason);
    EXPECT_EQ(reason->write.kind, AccessKind::WholeWrite);
    EXPECT_EQ(reason->path.nodes, (Path{2, 3, 4}));
    EXPECT_EQ(reason->path.end, PathEnd::Exit);
    EXPECT_FALSE(reason->path.access);
}

TEST_F(ExplainReachesExitTest, ValueOverwrittenAfterTheLoopIsNot) {
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("x"), id("i"))});
    EXPECT_FALSE(reachesExit(loop, {loop, assign(id("x"), id("a"))}, "x"));
}

TEST_F(ExplainReachesExitTest, ValueWrittenOutsideAloneIsNot) {
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("x"), id("i"))});
    EXPECT_FALSE(reachesExit(loop, {loop, assign(id("y"), id("a"))}, "y"));
}

TEST_F(ExplainReachesExitTest, VariableOfTheLoopComesFromItsHead) {
    // around: 1 parfor, 2 y = i, end, 3 the exit    the construct: the whole statement
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("y"), id("i"))});
    const FlowGraph& around = graphOf({loop});
    const FlowGraph& statement = graphOf({loop});
    const auto reason = explainReachesExit(statement, around, symbol("i"));
    ASSERT_TRUE(reason);
    EXPECT_EQ(checkReachesExit(statement, around, symbol("i"), *reason).objection, "");
    EXPECT_EQ(reason->path.nodes, (Path{1, 3}));
}

TEST_F(ExplainReachesExitTest, CheckRefusesAPathThatStopsBeforeTheExit) {
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("x"), id("i"))});
    const FlowGraph& inside = bodyOf(loop);
    const FlowGraph& around = graphOf({loop, assign(id("y"), id("x"))});
    ValueUsedAfter reason = *explainReachesExit(inside, around, symbol("x"));
    reason.path.nodes.pop_back();
    EXPECT_EQ(checkReachesExit(inside, around, symbol("x"), reason).objection,
              "The value doesn't reach the exit.");
    EXPECT_EQ(checkUsedAfter(inside, around, symbol("x"), reason).objection,
              "The path doesn't claim to end at a read.");
}

TEST_F(ExplainReachesExitTest, CheckRefusesAWriteBetween) {
    const ParforStatementView loop = parforLoop(id("i"), id("n"), {assign(id("x"), id("i"))});
    const FlowGraph& inside = bodyOf(loop);
    const FlowGraph& around = graphOf({loop, assign(id("x"), id("a"))});
    const ValueUsedAfter reason{
        symbol("x"),
        inside.accesses(1)[1],
        {{2, 3, 4}, PathEnd::Exit, boost::none},
    };
    EXPECT_EQ(checkReachesExit(inside, around, symbol("x"), reason).objection,
              "The value is overwritten.");
}

TEST_F(ExplainReachesExitTest, GraphOfTypeMustIsRefused) {
    const FlowGraph& may = graphOf({});
    const FlowGraph& must = graphOf({}, MUST);
    EXPECT_THROW(explainReachesExit(may, must, symbol("x")), std::invalid_argument);
    EXPECT_THROW(explainReachesExit(must, may, symbol("x")), std::invalid_argument);
}

} // namespace
} // namespace zt::orvex::kit
