#include "RandomConstruct.h"

#include "frontend/ParsedFile.h"
#include "report/analysis/LibraryAnswers.h"
#include "report/analysis/UnwrittenVariables.h"
#include "testing/Random.h"

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>

namespace ostrel::report::testing {

namespace {

using namespace zt::orvex;
using kit::FlowNode;

/// The body of the first construct of a program, with the variables of its scope.
struct Body {
    explicit Body(const std::string& text)
        : file(parseOstrel("test.ost", text)), construct(file.constructs.at(0)),
          universe(file.scopes[construct.scope].universe.begin(),
                   file.scopes[construct.scope].universe.end()),
          graph(universe, bodyOf(construct), flow::AnalysisTypeView::May,
                flow::AnalysisModeView::Plain) {}

    const ParsedFile file;
    const ostrel::Construct& construct;
    const flow::OrderedSet<SymbolView> universe;
    const kit::FlowGraph graph;
};

/// The nodes to which a path brings one variable unwritten, by sweeps over all edges.
std::set<FlowNode> nodesReachedUnwritten(const kit::FlowGraph& graph, std::uint64_t index) {
    std::set<FlowNode> reached{graph.entry()};
    for (std::size_t before = 0; before != reached.size();) {
        before = reached.size();
        for (FlowNode node = 0; node < graph.size(); ++node) {
            if (reached.count(node) == 0 || graph.endsLiveness(node, index)) continue;
            for (const FlowNode next : graph.successors(node))
                reached.insert(next);
        }
    }
    return reached;
}

std::set<FlowNode> foundBy(const UnwrittenVariables& unwritten, const kit::FlowGraph& graph,
                           std::uint64_t index) {
    std::set<FlowNode> found;
    for (FlowNode node = 0; node < graph.size(); ++node) {
        if (unwritten.contain(node, index)) found.insert(node);
    }
    return found;
}

TEST(UnwrittenVariables, ReachTheNodesThatASearchForEachVariableReaches) {
    zt::orvex::testing::Random random;
    SCOPED_TRACE(random.describe());
    RandomConstruct programs(random);
    for (std::size_t i = zt::orvex::testing::rounds(300); i > 0; --i) {
        const std::string text = programs.next();
        const Body body(text);
        const UnwrittenVariables unwritten(body.graph);
        for (std::uint64_t index = 0; index < body.universe.size(); ++index) {
            ASSERT_EQ(foundBy(unwritten, body.graph, index),
                      nodesReachedUnwritten(body.graph, index))
                << "variable " << index << " of\n"
                << text;
        }
    }
}

TEST(UnwrittenVariables, NothingIsUnwrittenWhereControlCannotCome) {
    const Body body("x = 1;\nparfor k = 1:3\n return\n y = x;\nend");
    const UnwrittenVariables unwritten(body.graph);
    const FlowNode jump = body.graph.entry() + 1;
    EXPECT_TRUE(unwritten.isReachable(jump));
    EXPECT_FALSE(unwritten.isReachable(jump + 1));
    EXPECT_FALSE(unwritten.contain(jump + 1, 0));
    EXPECT_TRUE(unwritten.isReachable(body.graph.exit()));
}

TEST(UnwrittenVariables, NodeIsReachableWhereNothingIsUnwritten) {
    const Body body("spmd\n x = 1;\n x = 2;\nend");
    const UnwrittenVariables unwritten(body.graph);
    const FlowNode second = body.graph.entry() + 2;
    EXPECT_FALSE(unwritten.contain(second, 0));
    EXPECT_TRUE(unwritten.isReachable(second));
}

TEST(UnwrittenVariables, BodyWithoutVariablesIsReachable) {
    const auto file = parseOstrel("test.ost", "spmd\n f(1);\nend");
    const flow::OrderedSet<SymbolView> none;
    const kit::FlowGraph graph(none, bodyOf(file.constructs.at(0)), flow::AnalysisTypeView::May,
                               flow::AnalysisModeView::Plain);
    EXPECT_TRUE(UnwrittenVariables(graph).isReachable(graph.exit()));
}

} // namespace

} // namespace ostrel::report::testing
