#pragma once

#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex_kit/body/FlowGraph.h>
#include <zt_orvex_kit/reasons/CheckExplanation.h>
#include <zt_orvex_kit/reasons/Explain.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string_view>
#include <vector>

namespace zt::orvex::testing {

/// What tests of reasons share: a universe of single letters, and a graph that lasts as long as the
/// test.
class ReasonsFixture : public ::testing::Test, protected TreeBuilder {
protected:
    using Type = flow::AnalysisTypeView;
    using Mode = flow::AnalysisModeView;
    using Path = std::vector<kit::FlowNode>;

    static constexpr Type MAY = Type::May;
    static constexpr Type MUST = Type::Must;

    ReasonsFixture() {
        for (const char* name : {"a", "b", "c", "i", "k", "n", "s", "x", "y", "ans"})
            universe.add(symbol(name));
    }

    const kit::FlowGraph& graphOf(const Nodes& statements, Type type = Type::May,
                                  Mode mode = Mode::Plain) {
        graphs.push_back(std::make_unique<kit::FlowGraph>(universe, block(statements), type, mode));
        return *graphs.back();
    }

    /// Explains, and requires that the reason is a proof.
    kit::Explanation explain(const kit::FlowGraph& graph, std::string_view name) {
        const kit::Explanation why = kit::explain(graph, symbol(name));
        EXPECT_EQ(why.symbol, symbol(name));
        EXPECT_EQ(kit::checkExplanation(graph, symbol(name), why).objection, "");
        return why;
    }

    flow::OrderedSet<SymbolView> universe;

private:
    std::vector<std::unique_ptr<kit::FlowGraph>> graphs;
};

} // namespace zt::orvex::testing
