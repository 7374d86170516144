#pragma once

#include "analysis/RandomTree.h"
#include "testing/Random.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <string>
#include <unordered_set>

namespace zt::orvex::testing {

constexpr flow::AnalysisTypeView TYPES[] = {flow::AnalysisTypeView::May,
                                            flow::AnalysisTypeView::Must};
constexpr flow::AnalysisModeView MODES[] = {
    flow::AnalysisModeView::Plain, flow::AnalysisModeView::Sliced, flow::AnalysisModeView::Ans};

/// How many random bodies a test tries: ZT_ORVEX_TEST_ROUNDS from the environment, or `usual`.
inline std::size_t bodies(std::size_t usual) {
    const char* const text = std::getenv("ZT_ORVEX_TEST_ROUNDS");
    return text != nullptr ? std::strtoull(text, nullptr, 0) : rounds(usual);
}

/// A random range of statements, with a universe and subscript variables.
struct RandomBody {
    RandomBody(Random& random, const RandomTreeShape& shape)
        : statements(builder.block(RandomTree(builder, random, shape).statements())) {
        for (const std::string& name : RandomTree::names()) {
            if (name != "outside") universe.add(builder.symbol(name));
            if (random.oneIn(3)) subscriptVariables.insert(builder.symbol(name));
        }
    }

    TreeBuilder builder;
    StatementRangeView statements;
    flow::OrderedSet<SymbolView> universe;
    std::unordered_set<SymbolView> subscriptVariables;
};

/// Now and then weirder, deeper or wider than usual.
inline RandomTreeShape randomShape(Random& random) {
    RandomTreeShape shape;
    shape.isWeird = random.oneIn(3);
    if (random.oneIn(4)) {
        shape.statementDepth = 6;
        shape.breadth = 2;
    } else if (random.oneIn(4)) {
        shape.statementDepth = 2;
        shape.breadth = 10;
    }
    return shape;
}

/// Calls `test(random, body, type, mode)` for random bodies in all settings until one fails.
template <typename Test>
void forEachRandomBody(std::size_t count, Test test) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t i = 0; i < count; ++i) {
        SCOPED_TRACE("body " + std::to_string(i));
        const RandomBody body(random, randomShape(random));
        for (const flow::AnalysisTypeView type : TYPES) {
            for (const flow::AnalysisModeView mode : MODES) {
                SCOPED_TRACE("type " + std::to_string(static_cast<int>(type)) + ", mode " +
                             std::to_string(static_cast<int>(mode)));
                test(random, body, type, mode);
                if (::testing::Test::HasFailure()) return;
            }
        }
    }
}

} // namespace zt::orvex::testing
