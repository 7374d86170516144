#include "testing/RandomBody.h"

#include <zt_orvex_kit/reasons/CheckExplanation.h>
#include <zt_orvex_kit/reasons/Explain.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zt::orvex::kit {
namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;
using testing::Random;
using testing::RandomBody;

/// Changes a reason at random, now and then beyond recognition.
class Distortion {
public:
    Distortion(Random& from, const FlowGraph& of) : random(from), graph(of) {}

    Explanation distort(Explanation why) {
        for (std::size_t changes = random.between(1, 4); changes > 0; --changes)
            change(why);
        return why;
    }

private:
    FlowNode anyNode() {
        // Also one that the graph doesn't have.
        return static_cast<FlowNode>(random.below(std::size_t{graph.size()} + 1));
    }

    void changeNodes(std::vector<FlowNode>& nodes) {
        if (nodes.empty() || random.oneIn(3)) {
            nodes.insert(nodes.begin() +
                             static_cast<std::ptrdiff_t>(random.below(nodes.size() + 1)),
                         anyNode());
        } else if (random.oneIn(2)) {
            nodes.erase(nodes.begin() + static_cast<std::ptrdiff_t>(random.below(nodes.size())));
        } else {
            nodes[random.below(nodes.size())] = anyNode();
        }
    }

    void change(Explanation& why) {
        switch (random.below(8)) {
        case 0:
            why.isLive = !why.isLive;
            return;
        case 1:
            why.kind = static_cast<ReasonKind>(random.below(5));
            return;
        case 2:
            why.path.end = static_cast<PathEnd>(random.below(5));
            return;
        case 3:
            changeNodes(why.path.nodes);
            return;
        case 4:
            changeNodes(why.writes);
            return;
        case 5:
            why.ranks.push_back({anyNode(), static_cast<std::uint32_t>(random.below(4))});
            return;
        case 6:
            if (!why.ranks.empty()) why.ranks[random.below(why.ranks.size())].rank = 0;
            return;
        default:
            changeAccess(why.path);
        }
    }

    void changeAccess(FlowPath& path) {
        const FlowNode node = anyNode();
        if (node == graph.size() || graph.accesses(node).empty()) {
            path.access = boost::none;
        } else {
            path.access = random.pick(graph.accesses(node));
            if (!path.nodes.empty()) path.nodes.back() = node;
        }
    }

    Random& random;
    const FlowGraph& graph;
};

TEST(CheckExplanationRandom, NothingProvesTheContraryOfTheVerdict) {
    std::size_t accepted = 0;
    testing::forEachRandomBody(testing::bodies(1000), [&](Random& random, const RandomBody& body,
                                                          AnalysisTypeView type,
                                                          AnalysisModeView mode) {
        const FlowGraph graph(body.universe, body.statements, type, mode, body.subscriptVariables);
        Distortion distortion(random, graph);
        for (const SymbolView& symbol : body.universe) {
            const Explanation why = explain(graph, symbol);
            // Distorts this reason, and that of another symbol.
            Explanation borrowed =
                explain(graph, body.universe.elementAt(random.below(body.universe.size())));
            borrowed.symbol = symbol;
            for (const Explanation& origin : {why, borrowed}) {
                for (int i = 0; i < 10; ++i) {
                    const Explanation distorted = distortion.distort(origin);
                    if (!checkExplanation(graph, symbol, distorted).isProof()) continue;
                    ++accepted;
                    ASSERT_EQ(distorted.isLive, why.isLive);
                }
            }
        }
    });
    EXPECT_GT(accepted, 0U) << "some changes do no harm";
}

} // namespace
} // namespace zt::orvex::kit
