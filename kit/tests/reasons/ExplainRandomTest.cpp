#include "testing/PlainReasons.h"
#include "testing/RandomBody.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex_kit/reasons/CheckExplanation.h>
#include <zt_orvex_kit/reasons/Explain.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace zt::orvex::kit {
namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;
using testing::PlainReasons;
using testing::RandomBody;

TEST(ExplainRandom, EverySymbolHasAReasonThatProvesTheAnalyzersVerdict) {
    testing::forEachRandomBody(testing::bodies(2000), [](auto&, const RandomBody& body,
                                                         AnalysisTypeView type,
                                                         AnalysisModeView mode) {
        const FlowGraph graph(body.universe, body.statements, type, mode, body.subscriptVariables);
        const auto live =
            flow::TransparentLiveVariablesAnalyzerView(body.universe, body.statements, type, mode,
                                                       body.subscriptVariables, nullptr)
                .getVariablesLiveAtEntry();
        for (const SymbolView& symbol : body.universe) {
            const Explanation why = explain(graph, symbol);
            ASSERT_EQ(why.isLive, live.count(symbol) != 0);
            ASSERT_EQ(checkExplanation(graph, symbol, why).objection, "");
        }
    });
}

TEST(ExplainRandom, PathsAreTheShortest) {
    testing::forEachRandomBody(testing::bodies(300), [](auto&, const RandomBody& body,
                                                        AnalysisTypeView type,
                                                        AnalysisModeView mode) {
        const FlowGraph graph(body.universe, body.statements, type, mode, body.subscriptVariables);
        for (std::uint64_t i = 0; i < body.universe.size(); ++i) {
            const Explanation why = explain(graph, body.universe.elementAt(i));
            if (why.path.nodes.empty()) continue;
            const PlainReasons plain(graph, i);
            ASSERT_EQ(why.path.nodes.size() - 1,
                      why.isLive ? plain.lengthToRead() : plain.lengthWithoutRead());
        }
    });
}

TEST(ExplainRandom, CarriedValuesAreThoseOfAPlainSearch) {
    testing::forEachRandomBody(testing::bodies(500), [](auto&, const RandomBody& body,
                                                        AnalysisTypeView type,
                                                        AnalysisModeView mode) {
        if (type != AnalysisTypeView::May) return;
        const FlowGraph graph(body.universe, body.statements, type, mode, body.subscriptVariables);
        for (std::uint64_t i = 0; i < body.universe.size(); ++i) {
            const SymbolView symbol = body.universe.elementAt(i);
            const PlainReasons plain(graph, i);
            bool isCarried = false;
            for (FlowNode node = 0; node < graph.size(); ++node)
                isCarried = isCarried || (plain.writes(node) && plain.isReachable(node) &&
                                          plain.reachesExit(node));
            isCarried = isCarried && plain.lengthToRead() != PlainReasons::NONE;
            const auto carried = explainCarried(graph, symbol);
            ASSERT_EQ(carried.has_value(), isCarried);
            if (carried) {
                ASSERT_EQ(checkCarried(graph, symbol, *carried).objection, "");
            }
        }
    });
}

} // namespace
} // namespace zt::orvex::kit
