#include "testing/PlainReasons.h"
#include "testing/RandomBody.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex_kit/reasons/CheckExplanation.h>
#include <zt_orvex_kit/reasons/Explain.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

namespace zt::orvex::kit {
namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;
using testing::PlainReasons;
using testing::RandomBody;

std::vector<ParforStatementView> parforsIn(const StatementRangeView& statements) {
    std::vector<ParforStatementView> found;
    for (std::uint64_t i = 0; i < statements.size(); ++i)
        forEachNodeIn(statements[i], [&](const NodeView& node) {
            if (node.getKind() == NodeKind::ParforStatement) found.emplace_back(node);
        });
    return found;
}

/// Walks from every write inside, in the graph around, until the value has left the construct and
/// is read. A state is a node and whether the value has left.
bool isUsedAfter(const FlowGraph& inside, const FlowGraph& around, std::uint64_t index) {
    std::set<std::pair<FlowNode, bool>> seen;
    std::vector<std::pair<FlowNode, bool>> waiting;
    const auto go = [&](FlowNode from, bool hasLeft) {
        for (const FlowNode next : around.successors(from)) {
            const bool leaves = hasLeft || !inside.find(around.nodeAt(next));
            if (seen.emplace(next, leaves).second) waiting.emplace_back(next, leaves);
        }
    };
    const PlainReasons plain(around, index);
    for (FlowNode node = 0; node < around.size(); ++node) {
        const bool isInside = inside.find(around.nodeAt(node)) && !around.isPseudoNode(node);
        if (isInside && plain.writes(node) && plain.isReachable(node)) go(node, false);
    }
    while (!waiting.empty()) {
        const auto [node, hasLeft] = waiting.back();
        waiting.pop_back();
        if (hasLeft && around.makesLive(node, index)) return true;
        if (!around.endsLiveness(node, index)) go(node, hasLeft);
    }
    return false;
}

/// Whether some path carries what a write inside leaves to the exit.
bool reachesExit(const FlowGraph& inside, const FlowGraph& around, std::uint64_t index) {
    const PlainReasons plain(around, index);
    for (FlowNode node = 0; node < around.size(); ++node) {
        const bool isInside = inside.find(around.nodeAt(node)) && !around.isPseudoNode(node);
        if (isInside && plain.writes(node) && plain.isReachable(node) && plain.reachesExit(node))
            return true;
    }
    return false;
}

TEST(ExplainUsedAfterRandom, ValuesAreThoseOfAPlainSearch) {
    std::size_t used = 0;
    testing::forEachRandomBody(testing::bodies(1500), [&](auto&, const RandomBody& body,
                                                          AnalysisTypeView type,
                                                          AnalysisModeView mode) {
        if (type != AnalysisTypeView::May) return;
        const FlowGraph around(body.universe, body.statements, type, mode, body.subscriptVariables);
        for (const ParforStatementView& loop : parforsIn(body.statements)) {
            const FlowGraph inside(body.universe, loop.getParforBody(), type, mode,
                                   body.subscriptVariables);
            for (std::uint64_t i = 0; i < body.universe.size(); ++i) {
                const SymbolView symbol = body.universe.elementAt(i);
                const auto reason = explainUsedAfter(inside, around, symbol);
                ASSERT_EQ(reason.has_value(), isUsedAfter(inside, around, i));
                const auto atExit = explainReachesExit(inside, around, symbol);
                ASSERT_EQ(atExit.has_value(), reachesExit(inside, around, i));
                if (atExit) {
                    ASSERT_EQ(checkReachesExit(inside, around, symbol, *atExit).objection, "");
                }
                if (!reason) continue;
                ++used;
                ASSERT_EQ(checkUsedAfter(inside, around, symbol, *reason).objection, "");
            }
        }
    });
    EXPECT_GT(used, 0U);
}

} // namespace
} // namespace zt::orvex::kit
