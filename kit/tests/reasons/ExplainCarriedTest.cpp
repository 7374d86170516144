#include "reasons/ReasonsFixture.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zt::orvex::kit {
namespace {

class ExplainCarriedTest : public testing::ReasonsFixture {
protected:
    boost::optional<CarriedValue> carried(const FlowGraph& graph, std::string_view name,
                                          const AccessChoice& among = {}) {
        const auto reason = explainCarried(graph, symbol(name), among);
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

TEST_F(ExplainCarriedTest, ReadIsOneOfTheChosen) {
    // 1 y = x, 2 b = x, 3 x = a
    const IdentifierView second = id("x");
    const FlowGraph& graph =
        graphOf({assign(id("y"), id("x")), assign(id("b"), second), assign(id("x"), id("a"))});
    AccessChoice among;
    among.isRead = [&](const Access& access) { return access.identifier == second; };
    const auto reason = carried(graph, "x", among);
    ASSERT_TRUE(reason);
    EXPECT_EQ(reason->read.nodes, (Path{0, 1, 2}));
    EXPECT_EQ(reason->read.access->identifier, second);
}

TEST_F(ExplainCarriedTest, WriteIsOneOfTheChosen) {
    // 1 y = x, 2 if c, 3 x = a, else, 4 x = b, end
    const IdentifierView second = id("x");
    const FlowGraph& graph =
        graphOf({assign(id("y"), id("x")), ifStatement(id("c"), {assign(id("x"), id("a"))}),
                 ifStatement(id("c"), {assign(second, id("b"))})});
    AccessChoice among;
    among.isWrite = [&](const Access& access) { return access.identifier == second; };
    const auto reason = carried(graph, "x", among);
    ASSERT_TRUE(reason);
    EXPECT_EQ(reason->write.nodes, (Path{5, 6}));
}

TEST_F(ExplainCarriedTest, WithoutAChosenReadOrWriteNothingIsCarried) {
    const FlowGraph& graph = graphOf({assign(id("s"), add(id("s"), id("x")))});
    AccessChoice noRead;
    noRead.isRead = [](const Access&) { return false; };
    EXPECT_FALSE(carried(graph, "s", noRead));
    AccessChoice noWrite;
    noWrite.isWrite = [](const Access&) { return false; };
    EXPECT_FALSE(carried(graph, "s", noWrite));
}

TEST_F(ExplainCarriedTest, WriteThatIsNotChosenStillEndsTheWay) {
    // 1 y = x, 2 x = a, 3 x = b
    const IdentifierView first = id("x");
    const FlowGraph& graph =
        graphOf({assign(id("y"), id("x")), assign(first, id("a")), assign(id("x"), id("b"))});
    AccessChoice among;
    among.isWrite = [&](const Access& access) { return access.identifier == first; };
    EXPECT_FALSE(carried(graph, "x", among));
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
