#include "analysis/Liveness.h"
#include "analysis/ReferenceFlowGraph.h"
#include "testing/RandomBody.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex_kit/body/FlowGraph.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <utility>

namespace zt::orvex::kit {
namespace {

using testing::RandomBody;

TEST(FlowGraphRandom, ResultIsTheAnalyzersToTheBit) {
    testing::forEachRandomBody(testing::bodies(2000), [](auto&, const RandomBody& body,
                                                         flow::AnalysisTypeView type,
                                                         flow::AnalysisModeView mode) {
        const FlowGraph graph(body.universe, body.statements, type, mode, body.subscriptVariables);
        flow::TransparentLiveVariablesAnalyzerView analyzer(body.universe, body.statements, type,
                                                            mode, body.subscriptVariables, nullptr);
        EXPECT_EQ(graph.liveAtEntry(), analyzer.getVariablesLiveAtEntry());
    });
}

TEST(FlowGraphRandom, EveryNodeIsTheAnalyzersToTheBit) {
    testing::forEachRandomBody(testing::bodies(1000), [](auto&, const RandomBody& body,
                                                         flow::AnalysisTypeView type,
                                                         flow::AnalysisModeView mode) {
        const FlowGraph graph(body.universe, body.statements, type, mode, body.subscriptVariables);
        const flow::internal::Liveness analysis(body.universe, body.statements, type, mode,
                                                body.subscriptVariables, nullptr);
        ASSERT_EQ(analysis.nodes().size(), graph.size());
        FlowNode node = 0;
        for (const auto& variables : analysis.nodes()) {
            ASSERT_EQ(variables.node, graph.nodeAt(node));
            ASSERT_EQ(graph.find(variables.node).value(), node);
            ASSERT_EQ(graph.liveBefore(variables.node), variables.liveIn->value().toElementSet());
            ASSERT_EQ(graph.liveAfter(variables.node), variables.liveOut->value().toElementSet());
            const auto gen = variables.gen->value().toElementSet();
            const auto kill = variables.kill->value().toElementSet();
            const auto after = variables.liveOut->value().toElementSet();
            for (std::uint64_t i = 0; i < body.universe.size(); ++i) {
                const SymbolView symbol = body.universe.elementAt(i);
                ASSERT_EQ(graph.makesLive(node, i), gen.count(symbol) != 0);
                ASSERT_EQ(graph.endsLiveness(node, i), kill.count(symbol) != 0);
                ASSERT_EQ(graph.isLiveAfter(node, i), after.count(symbol) != 0);
                ASSERT_EQ(graph.findAccess(node, i, LivenessEffect::MakesLive) != nullptr,
                          gen.count(symbol) != 0);
            }
            ++node;
        }
    });
}

TEST(FlowGraphRandom, EdgesAreThoseOfAPlainGraphInBothDirections) {
    testing::forEachRandomBody(testing::bodies(1000), [](auto&, const RandomBody& body,
                                                         flow::AnalysisTypeView type,
                                                         flow::AnalysisModeView mode) {
        const FlowGraph graph(body.universe, body.statements, type, mode);
        std::set<std::pair<std::uint64_t, std::uint64_t>> forward;
        std::set<std::pair<std::uint64_t, std::uint64_t>> backward;
        for (FlowNode node = 0; node < graph.size(); ++node) {
            const auto handle = [&](FlowNode of) { return graph.nodeAt(of).node; };
            for (const FlowNode next : graph.successors(node))
                forward.emplace(handle(node), handle(next));
            for (const FlowNode before : graph.predecessors(node))
                backward.emplace(handle(before), handle(node));
            const auto next = graph.successors(node);
            EXPECT_TRUE(std::is_sorted(next.begin(), next.end()));
            const auto before = graph.predecessors(node);
            EXPECT_TRUE(std::is_sorted(before.begin(), before.end()));
        }
        EXPECT_EQ(forward, testing::ReferenceFlowGraph(body.statements).getEdges());
        EXPECT_EQ(backward, forward);
    });
}

} // namespace
} // namespace zt::orvex::kit
