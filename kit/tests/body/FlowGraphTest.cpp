#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex_kit/body/FlowGraph.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace zt::orvex::kit {
namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Nodes;
using ::testing::UnorderedElementsAre;

class FlowGraphTest : public ::testing::Test, protected testing::TreeBuilder {
protected:
    FlowGraphTest() {
        for (const char* name : {"a", "b", "c", "i", "x", "y"})
            universe.add(symbol(name));
    }

    FlowGraph graphOf(const Nodes& statements, AnalysisTypeView type = AnalysisTypeView::May) {
        return FlowGraph(universe, block(statements), type, AnalysisModeView::Plain);
    }

    std::uint64_t indexOf(const char* name) { return universe.indexOf(symbol(name)); }

    static std::vector<FlowNode> numbers(const Span<FlowNode>& span) {
        return {span.begin(), span.end()};
    }

    flow::OrderedSet<SymbolView> universe;
};

TEST_F(FlowGraphTest, EmptyRangeHasTheTwoPseudoNodesAlone) {
    const FlowGraph graph = graphOf({});
    EXPECT_EQ(graph.size(), 2U);
    EXPECT_TRUE(graph.isPseudoNode(graph.entry()));
    EXPECT_TRUE(graph.isPseudoNode(graph.exit()));
    EXPECT_THAT(numbers(graph.successors(0)), ElementsAre(1));
    EXPECT_THAT(numbers(graph.predecessors(1)), ElementsAre(0));
    EXPECT_THAT(graph.liveAtEntry(), IsEmpty());
}

TEST_F(FlowGraphTest, NodesAreStatementsAndClausesInSourceOrder) {
    const NodeView inner = assign(id("a"), id("b"));
    const NodeView clause = elseIfClause(id("c"), {inner});
    const NodeView branch = ifStatement(id("x"), {}, {ElseIfClauseView(clause)});
    const FlowGraph graph = graphOf({branch});
    ASSERT_EQ(graph.size(), 5U);
    EXPECT_EQ(graph.nodeAt(1), branch);
    EXPECT_EQ(graph.nodeAt(2), clause);
    EXPECT_EQ(graph.nodeAt(3), inner);
    EXPECT_EQ(graph.find(inner).value(), FlowNode{3});
    EXPECT_THAT(numbers(graph.successors(1)), ElementsAre(2, 4));
    EXPECT_THAT(numbers(graph.predecessors(4)), ElementsAre(1, 2, 3));
}

TEST_F(FlowGraphTest, FindsNothingForWhatIsNoFlowNode) {
    const IdentifierView read = id("b");
    const FlowGraph graph = graphOf({assign(id("a"), read)});
    EXPECT_FALSE(graph.find(read));
    EXPECT_FALSE(graph.find(assign(id("a"), id("b"))));
}

TEST_F(FlowGraphTest, AccessesTellIdentifierAndKind) {
    const IdentifierView target = id("x");
    const IdentifierView subscript = id("i");
    const IdentifierView sure = id("a");
    const IdentifierView unsure = id("b");
    const FlowGraph graph =
        graphOf({assign(paren(target, {subscript}), shortCircuitAnd(sure, unsure))});
    const Span<Access> accesses = graph.accesses(1);
    ASSERT_EQ(accesses.size(), 4U);
    EXPECT_EQ(accesses[0].kind, AccessKind::CertainRead);
    EXPECT_EQ(accesses[0].identifier, sure);
    EXPECT_EQ(accesses[1].kind, AccessKind::ConditionalRead);
    EXPECT_EQ(accesses[1].identifier, unsure);
    EXPECT_EQ(accesses[2].kind, AccessKind::CertainRead);
    EXPECT_EQ(accesses[2].identifier, subscript);
    EXPECT_EQ(accesses[3].kind, AccessKind::PartialWrite);
    EXPECT_EQ(accesses[3].identifier, target);
    EXPECT_EQ(accesses[3].symbol, symbol("x"));
    EXPECT_EQ(accesses[3].index, indexOf("x"));
    EXPECT_THAT(graph.accesses(0), IsEmpty());
}

TEST_F(FlowGraphTest, AnswersForNestedStatements) {
    const NodeView inner = assign(id("x"), id("y"));
    const NodeView last = assign(id("a"), id("x"));
    const FlowGraph graph = graphOf({forLoop(id("i"), id("c"), {inner}), last});
    EXPECT_THAT(graph.liveBefore(inner), UnorderedElementsAre(symbol("c"), symbol("y")));
    EXPECT_THAT(graph.liveAfter(inner),
                UnorderedElementsAre(symbol("c"), symbol("x"), symbol("y")));
    EXPECT_THAT(graph.liveBefore(last), UnorderedElementsAre(symbol("x")));
    EXPECT_THAT(graph.liveAfter(last), IsEmpty());
    EXPECT_THAT(graph.liveAtEntry(), UnorderedElementsAre(symbol("c"), symbol("x"), symbol("y")));
}

TEST_F(FlowGraphTest, MustMeetsWhereControlParts) {
    const NodeView branch = ifStatement(id("c"), {assign(id("a"), id("x"))});
    EXPECT_THAT(graphOf({branch}, AnalysisTypeView::Must).liveAtEntry(),
                UnorderedElementsAre(symbol("c")));
}

TEST_F(FlowGraphTest, AnswersForUnreachableStatements) {
    const NodeView unreachable = assign(id("a"), id("b"));
    const FlowGraph graph = graphOf({returnStatement(), unreachable});
    EXPECT_THAT(graph.liveBefore(unreachable), UnorderedElementsAre(symbol("b")));
    EXPECT_THAT(numbers(graph.predecessors(2)), IsEmpty());
    EXPECT_THAT(graph.liveAtEntry(), IsEmpty());
}

TEST_F(FlowGraphTest, QuestionAboutAnotherNodeIsRefused) {
    const FlowGraph graph = graphOf({});
    const NodeView other = emptyStatement();
    try {
        graph.liveBefore(other);
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "The node is not a flow node of this graph");
    }
    EXPECT_THROW(graph.liveAfter(other), std::invalid_argument);
}

TEST_F(FlowGraphTest, NodeAtTwoPlacesIsRefused) {
    const NodeView twice = assign(id("a"), id("b"));
    try {
        graphOf({twice, twice});
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "A node occurs at two places of the tree, or is the entry or "
                                   "exit node, too");
    }
}

TEST_F(FlowGraphTest, SymbolAddedToTheUniverseLaterIsNeverLive) {
    const FlowGraph graph = graphOf({assign(id("a"), id("late"))});
    const std::uint64_t late = universe.add(symbol("late"));
    EXPECT_EQ(graph.variableCount(), 6U);
    EXPECT_FALSE(graph.isLiveBefore(graph.entry(), late));
    EXPECT_FALSE(graph.isLiveAfter(graph.entry(), late));
    EXPECT_FALSE(graph.makesLive(1, late));
    EXPECT_THAT(graph.liveAtEntry(), IsEmpty());
}

TEST_F(FlowGraphTest, EmptyUniverseHasNoAccesses) {
    universe = flow::OrderedSet<SymbolView>();
    const FlowGraph graph = graphOf({assign(id("a"), id("b"))});
    EXPECT_THAT(graph.accesses(1), IsEmpty());
    EXPECT_THAT(graph.liveAtEntry(), IsEmpty());
}

TEST_F(FlowGraphTest, UniverseMayBeWiderThanAWord) {
    for (int i = 0; i < 200; ++i)
        universe.add(symbol("v" + std::to_string(i)));
    const FlowGraph graph = graphOf({assign(id("v0"), id("v199")), assign(id("v70"), id("v0"))});
    EXPECT_THAT(graph.liveAtEntry(), UnorderedElementsAre(symbol("v199")));
}

TEST_F(FlowGraphTest, LoopsMayNestDeeperThanTheLibraryTakes) {
    NodeView nest = assign(id("a"), id("b"));
    for (int i = 0; i < 1200; ++i)
        nest = whileLoop(id("c"), {nest});
    EXPECT_THAT(graphOf({nest}).liveAtEntry(), UnorderedElementsAre(symbol("b"), symbol("c")));
    EXPECT_THAT(graphOf({nest}, AnalysisTypeView::Must).liveAtEntry(),
                UnorderedElementsAre(symbol("c")));
}

TEST_F(FlowGraphTest, StatementReadsBeforeItWrites) {
    const FlowGraph graph = graphOf({assign(id("x"), id("x"))});
    EXPECT_TRUE(graph.makesLive(1, indexOf("x")));
    EXPECT_TRUE(graph.endsLiveness(1, indexOf("x")));
    EXPECT_TRUE(graph.isLiveBefore(1, indexOf("x")));
}

} // namespace
} // namespace zt::orvex::kit
