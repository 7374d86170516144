#include "reasons/ReasonsFixture.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zt::orvex::kit {
namespace {

class ExplainCarriedTest : public testing::ReasonsFixture {
protected:
    boost::optional<CarriedValue> carried(const FlowGraph& graph, std::string_view name) {
        const auto reason = explainCarried(graph, symbol(name));
        if (reason) {
            EXPECT_EQ(checkCarried(graph, symbol(name), *reason).objection, "");
        }
        return reason;
    }
};

TEST_F(ExplainCarriedTest, SumIsCarriedByItsOwnStatement) {
    const FlowGraph& graph = graphOf({assign(id("s"), add(id("s"), id("x")))});
    const auto reason = carried(graph, "s");
    ASSERT_TRUE(reason);
    EXPECT_EQ(reason->write.nodes, (Path{1, 2}));
    EXPECT_EQ(reason->write.access->kind, AccessKind::WholeWrite);
    EXPECT_EQ(reason->read.nodes, (Path{0, 1}));
    EXPECT_FALSE(carried(graph, "x"));
}

TEST_F(ExplainCarriedTest, ValueWrittenAnewBeforeEveryReadIsNotCarried) {
    const FlowGraph& graph = graphOf({assign(id("s"), id("a")), assign(id("y"), id("s"))});
    EXPECT_FALSE(carried(graph, "s"));
}

TEST_F(ExplainCarriedTest, ValueOverwrittenBeforeTheEndIsNotTheOneThatIsCarried) {
    // 1 y = s, 2 s = a, 3 s = b
    const FlowGraph& graph =
        graphOf({assign(id("y"), id("s")), assign(id("s"), id("a")), assign(id("s"), id("b"))});
    const auto reason = carried(graph, "s");
    ASSERT_TRUE(reason);
    EXPECT_EQ(reason->write.nodes, (Path{3, 4}));
}

TEST_F(ExplainCarriedTest, WriteThatNoPathReachesCarriesNothing) {
    const FlowGraph& graph =
        graphOf({assign(id("y"), id("s")), returnStatement(), assign(id("s"), id("a"))});
    EXPECT_FALSE(carried(graph, "s"));
}

TEST_F(ExplainCarriedTest, PartialWriteIsCarried) {
    const FlowGraph& graph = graphOf({assign(paren(id("x"), {id("k")}), id("a"))});
    const auto reason = carried(graph, "x");
    ASSERT_TRUE(reason);
    EXPECT_EQ(reason->write.access->kind, AccessKind::PartialWrite);
}

TEST_F(ExplainCarriedTest, GraphOfTypeMustIsRefused) {
    const FlowGraph& graph = graphOf({}, MUST);
    try {
        explainCarried(graph, symbol("x"));
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "The graph is not one of type May");
    }
}

} // namespace
} // namespace zt::orvex::kit
