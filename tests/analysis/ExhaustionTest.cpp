// A program of its own: it replaces the global allocation functions.

#include "testing/Exhaustion.h"
#include "analysis/AnalysisFixture.h"
#include "analysis/RandomTree.h"
#include "testing/Random.h"

#include <zt_orvex/analysis/AnsAnalysis.h>
#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>

namespace zt::orvex::testing {
namespace {

class AnalysisExhaustion : public AnalysisFixture {
protected:
    /// A body with a statement of every kind that the analyses treat in a way of its own.
    Nodes oneOfEach() {
        const auto partial = [this] { return assign(paren(id("a"), {id("k")}), id("b")); };
        return {assign(id("x"), add(id("a"), id("b"))),
                partial(),
                forLoop(id("k"), id("n"), {partial(), ifStatement(id("c"), {breakStatement()})}),
                ifStatement(id("c"), {assign(id("y"), id("x"))},
                            {elseIfClause(id("d"), {assign(id("z"), id("y"))})}),
                whileLoop(id("c"), {assign(id("s"), id("t")), continueStatement()}),
                tryStatement({partial(), expressionStatement(id("ans"), id("f"))}),
                switchStatement(id("c"), {caseClause(id("d"), {assign(id("t"), id("s"))})})};
    }

    /// Tries both results of an analyzer, in every setting.
    void expectAnalyzersToBeRightOrThrow(const StatementRangeView& range) {
        for (const Type type : {MAY, MUST})
            for (const Mode mode : {PLAIN, SLICED, ANS})
                expectRightOrThrow([&] {
                    flow::TransparentLiveVariablesAnalyzerView analyzer(universe, range, type, mode,
                                                                        symbols("k"), nullptr);
                    return std::make_pair(analyzer.getVariablesLiveAtEntry(),
                                          analyzer.getVariablesNotLiveAtEntry());
                });
    }
};

TEST_F(AnalysisExhaustion, AnalyzerOverEachStatementIsRightOrThrows) {
    expectAnalyzersToBeRightOrThrow(block(oneOfEach()));
    expectAnalyzersToBeRightOrThrow(block({}));
}

TEST_F(AnalysisExhaustion, AnalyzerOverManyStatementsIsRightOrThrows) {
    Nodes many;
    for (int i = 0; i < 300; ++i)
        many.push_back(assign(id("x"), id("y")));
    const StatementRangeView range = block(many);
    expectRightOrThrow([&] {
        return flow::TransparentLiveVariablesAnalyzerView(universe, range, MAY, PLAIN, nullptr)
            .getVariablesLiveAtEntry();
    });
}

TEST_F(AnalysisExhaustion, ComputationsAreRightOrThrow) {
    const ParforStatementView parfor = parforLoop(id("i"), id("n"), oneOfEach());
    const SpmdStatementView spmdStatement = spmd(oneOfEach());
    const SymbolView ans = symbol("ans");
    expectRightOrThrow(
        [&] { return flow::computeLiveAsTemporaryVariables(parfor, universe, nullptr); });
    expectRightOrThrow(
        [&] { return flow::computeMaybeLiveAsTemporaryVariables(parfor, universe, nullptr); });
    expectRightOrThrow(
        [&] { return flow::computeNotLiveAsSlicedVariables(parfor, universe, nullptr); });
    expectRightOrThrow(
        [&] { return flow::computeSpmdOutputVariables(spmdStatement, universe, nullptr); });
    expectRightOrThrow(
        [&] { return flow::isAnsPossiblyReadBeforeBeingWritten(parfor, ans, nullptr); });
    expectRightOrThrow(
        [&] { return flow::isAnsPossiblyReadBeforeBeingWritten(spmdStatement, ans, nullptr); });
}

TEST_F(AnalysisExhaustion, FirstAnalysisOfAProcessIsRightOrThrows) {
    const ParforStatementView parfor = parforLoop(id("i"), id("n"), oneOfEach());
    expectRightOrThrowAtFirstUse(
        [&] { return flow::computeLiveAsTemporaryVariables(parfor, universe, nullptr); });
}

TEST_F(AnalysisExhaustion, AnalyzersOverRandomTreesAreRightOrThrow) {
    Random random;
    SCOPED_TRACE(random.describe());
    RandomTreeShape shape;
    shape.isWeird = true;
    for (std::size_t round = 0; round < rounds(30); ++round)
        expectAnalyzersToBeRightOrThrow(block(RandomTree(*this, random, shape).statements()));
}

} // namespace
} // namespace zt::orvex::testing
