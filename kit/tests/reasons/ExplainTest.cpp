#include "reasons/ReasonsFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>
#include <vector>

namespace zt::orvex::kit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ExplainTest : public testing::ReasonsFixture {
protected:
    using Ranks = std::vector<std::pair<FlowNode, std::uint32_t>>;
    static Ranks ranksOf(const Explanation& why) {
        Ranks ranks;
        for (const RankedNode& row : why.ranks)
            ranks.emplace_back(row.node, row.rank);
        return ranks;
    }
};

TEST_F(ExplainTest, MayLiveIsAShortestPathToARead) {
    // 1 if c, 2 a = b, end, 3 y = x
    const IdentifierView read = id("x");
    const FlowGraph& graph =
        graphOf({ifStatement(id("c"), {assign(id("a"), id("b"))}), assign(id("y"), read)});
    const Explanation why = explain(graph, "x");
    EXPECT_TRUE(why.isLive);
    EXPECT_EQ(why.kind, ReasonKind::ReadOnAPath);
    EXPECT_EQ(why.path.nodes, (Path{0, 1, 3}));
    EXPECT_EQ(why.path.end, PathEnd::Read);
    EXPECT_EQ(why.path.access->identifier, read);
    EXPECT_EQ(why.path.access->kind, AccessKind::CertainRead);
}

TEST_F(ExplainTest, PathGoesAroundAWholeWrite) {
    // 1 if c, 2 x = a, end, 3 y = x
    const FlowGraph& graph =
        graphOf({ifStatement(id("c"), {assign(id("x"), id("a"))}), assign(id("y"), id("x"))});
    EXPECT_EQ(explain(graph, "x").path.nodes, (Path{0, 1, 3}));
}

TEST_F(ExplainTest, OfSeveralShortestPathsTheOneThatComesFirstInTheSourceIsTaken) {
    // 1 if c, 2 a = x, elseif 3 b, 4 b = x, end: 2 and 3 are equally far
    const FlowGraph& graph = graphOf({ifStatement(
        id("c"), {assign(id("a"), id("x"))}, {elseIfClause(id("x"), {assign(id("b"), id("x"))})})});
    EXPECT_EQ(explain(graph, "x").path.nodes, (Path{0, 1, 2}));
}

TEST_F(ExplainTest, PartialWriteThatKeepsTheRestIsTheReasonUnderMay) {
    const FlowGraph& graph = graphOf({assign(paren(id("x"), {id("k")}), id("a"))});
    EXPECT_EQ(explain(graph, "x").path.access->kind, AccessKind::PartialWrite);
}

TEST_F(ExplainTest, MayNotLiveNamesTheFirstWrites) {
    // 1 if c, 2 x = a, else, 3 x = b, 4 x = c, end, 5 y = x
    const FlowGraph& graph =
        graphOf({ifStatement(id("c"), {assign(id("x"), id("a"))}, {},
                             elseClause({assign(id("x"), id("b")), assign(id("x"), id("c"))})),
                 assign(id("y"), id("x"))});
    const Explanation why = explain(graph, "x");
    EXPECT_FALSE(why.isLive);
    EXPECT_EQ(why.kind, ReasonKind::WrittenFirst);
    EXPECT_THAT(why.writes, ElementsAre(2, 3));
}

TEST_F(ExplainTest, WritesComeInTheOrderOfTheSource) {
    // 1 if c, 2 a = b, 3 x = a, else, 4 x = b, end, 5 y = x: a search meets 4 before 3
    const FlowGraph& graph =
        graphOf({ifStatement(id("c"), {assign(id("a"), id("b")), assign(id("x"), id("a"))}, {},
                             elseClause({assign(id("x"), id("b"))})),
                 assign(id("y"), id("x"))});
    EXPECT_THAT(explain(graph, "x").writes, ElementsAre(3, 4));
}

TEST_F(ExplainTest, WritesAfterWhichNothingReadsAreLeftOut) {
    // 1 if c, 2 x = a, 3 return, end, 4 x = b, 5 y = x
    const FlowGraph& graph =
        graphOf({ifStatement(id("c"), {assign(id("x"), id("a")), returnStatement()}),
                 assign(id("x"), id("b")), assign(id("y"), id("x"))});
    EXPECT_THAT(explain(graph, "x").writes, ElementsAre(4));
}

TEST_F(ExplainTest, VariableThatNothingReadsNeedsNoWrites) {
    const FlowGraph& graph = graphOf({assign(id("x"), id("a"))});
    EXPECT_THAT(explain(graph, "x").writes, IsEmpty());
    EXPECT_THAT(explain(graph, "n").writes, IsEmpty());
}

TEST_F(ExplainTest, MustLiveRanksWhatControlMeets) {
    // 1 if c, 2 a = x, else, 3 b = c, 4 b = x, end, 5 y = x
    const FlowGraph& graph =
        graphOf({ifStatement(id("c"), {assign(id("a"), id("x"))}, {},
                             elseClause({assign(id("b"), id("c")), assign(id("b"), id("x"))})),
                 assign(id("y"), id("x"))},
                MUST);
    const Explanation why = explain(graph, "x");
    EXPECT_TRUE(why.isLive);
    EXPECT_EQ(why.kind, ReasonKind::ReadOnEveryPath);
    EXPECT_EQ(ranksOf(why), (Ranks{{0, 3}, {1, 2}, {2, 0}, {3, 1}, {4, 0}}));
}

TEST_F(ExplainTest, MustNotLiveShowsAWayToAWrite) {
    const IdentifierView written = id("x");
    const FlowGraph& graph = graphOf({assign(written, id("a")), assign(id("y"), id("x"))}, MUST);
    const Explanation why = explain(graph, "x");
    EXPECT_EQ(why.kind, ReasonKind::NotReadOnAPath);
    EXPECT_EQ(why.path.nodes, (Path{0, 1}));
    EXPECT_EQ(why.path.end, PathEnd::Write);
    EXPECT_EQ(why.path.access->identifier, written);
}

TEST_F(ExplainTest, MustNotLiveShowsAWayToTheExit) {
    // 1 if c, 2 y = x, end
    const FlowGraph& graph = graphOf({ifStatement(id("c"), {assign(id("y"), id("x"))})}, MUST);
    const Explanation why = explain(graph, "x");
    EXPECT_EQ(why.path.nodes, (Path{0, 1, 3}));
    EXPECT_EQ(why.path.end, PathEnd::Exit);
    EXPECT_FALSE(why.path.access);
}

TEST_F(ExplainTest, MustNotLiveShowsAWayThatGoesRoundForEver) {
    // 1 for i = n, 2 a = b, end, 3 y = x: all paths that end read x
    const FlowGraph& graph = graphOf(
        {forLoop(id("i"), id("n"), {assign(id("a"), id("b"))}), assign(id("y"), id("x"))}, MUST);
    const Explanation why = explain(graph, "x");
    EXPECT_FALSE(why.isLive);
    EXPECT_EQ(why.path.nodes, (Path{0, 1, 2, 1}));
    EXPECT_EQ(why.path.end, PathEnd::Loop);
}

TEST_F(ExplainTest, LoopWithoutABodyGoesRoundAtItsHead) {
    const FlowGraph& graph = graphOf({whileLoop(id("c"), {}), assign(id("y"), id("x"))}, MUST);
    EXPECT_EQ(explain(graph, "x").path.nodes, (Path{0, 1, 1}));
}

TEST_F(ExplainTest, EndOfThePathComesBeforeAnEquallyLongLoop) {
    // 1 while c, end, 2 x = a, 3 y = x
    const FlowGraph& graph =
        graphOf({whileLoop(id("c"), {}), assign(id("x"), id("a")), assign(id("y"), id("x"))}, MUST);
    const Explanation why = explain(graph, "x");
    EXPECT_EQ(why.path.nodes, (Path{0, 1, 2}));
    EXPECT_EQ(why.path.end, PathEnd::Write);
}

TEST_F(ExplainTest, OfEquallyLongLoopsTheOneThatComesFirstInTheSourceIsTaken) {
    // 1 if c, 2 a = b, 3 while c, end, else, 4 while c, 5 a = b, end, end, 6 y = x
    const testing::Nodes shortLoop = {assign(id("a"), id("b")), whileLoop(id("c"), {})};
    const NodeView longLoop = whileLoop(id("c"), {assign(id("a"), id("b"))});
    EXPECT_EQ(explain(graphOf({ifStatement(id("c"), shortLoop, {}, elseClause({longLoop})),
                               assign(id("y"), id("x"))},
                              MUST),
                      "x")
                  .path.nodes,
              (Path{0, 1, 2, 3, 3}));
    // 1 if c, 2 while c, 3 a = b, end, else, 4 a = b, 5 while c, end, end, 6 y = x
    EXPECT_EQ(explain(graphOf({ifStatement(id("c"), {longLoop}, {}, elseClause(shortLoop)),
                               assign(id("y"), id("x"))},
                              MUST),
                      "x")
                  .path.nodes,
              (Path{0, 1, 2, 3, 2}));
}

TEST_F(ExplainTest, ConditionalReadIsAReasonUnderMayAlone) {
    const testing::Nodes statements = {ifStatement(shortCircuitAnd(id("a"), id("b")), {})};
    EXPECT_EQ(explain(graphOf(statements), "b").path.access->kind, AccessKind::ConditionalRead);
    EXPECT_FALSE(explain(graphOf(statements, MUST), "b").isLive);
}

TEST_F(ExplainTest, ImplicitTargetEndsAPathInModeAns) {
    const testing::Nodes statements = {expressionStatement(id("ans"), id("a")),
                                       assign(id("y"), id("ans"))};
    EXPECT_THAT(explain(graphOf(statements, MAY, Mode::Ans), "ans").writes, ElementsAre(1));
    EXPECT_TRUE(explain(graphOf(statements), "ans").isLive);
}

TEST_F(ExplainTest, SymbolThatTheGraphDoesNotKnowIsRefused) {
    const FlowGraph& graph = graphOf({});
    EXPECT_THROW(kit::explain(graph, symbol("outside")), std::invalid_argument);
    universe.add(symbol("late"));
    EXPECT_THROW(kit::explain(graph, symbol("late")), std::invalid_argument);
}

} // namespace
} // namespace zt::orvex::kit
