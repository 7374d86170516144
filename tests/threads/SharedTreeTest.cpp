// Many analyzers work on one tree at the same time, each with a universe of its own. Built with
// ThreadSanitizer, it fails if two of them share anything that one of them changes.
#include "frontend/ParsedFile.h"
#include "testing/RandomProgram.h"
#include "threads/RunTogether.h"

#include <zt_orvex/zt_orvex.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace zt::orvex::testing {
namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;

constexpr std::size_t THREADS = 8;

/// A script that is one loop around random statements.
std::string loopAroundRandomStatements(Random& random) {
    return "parfor k = 1:n\n" + RandomProgram(random).statements(0, 12) + "\nend\n";
}

/// A file with its variables, of which thread `number` knows all but each eighth.
struct Case {
    explicit Case(const std::string& text) : file(ostrel::parseOstrel("random.ost", text)) {}

    flow::OrderedSet<SymbolView> universeOf(std::size_t number) const {
        flow::OrderedSet<SymbolView> universe;
        std::size_t place = number;
        for (const SymbolView& symbol : file.scopes[0].universe) {
            if (++place % THREADS != 0) universe.add(symbol);
        }
        return universe;
    }

    ostrel::ParsedFile file;
};

/// The handles in ascending order.
std::string textOf(const std::unordered_set<SymbolView>& symbols) {
    std::set<std::uint64_t> sorted;
    for (const SymbolView& symbol : symbols)
        sorted.insert(symbol.symbol);
    std::string text = "{";
    for (const std::uint64_t symbol : sorted)
        text += std::to_string(symbol) + " ";
    return text + "} ";
}

/// The answers to all questions about a loop, for the universe of one thread.
std::string answers(const Case& about, ParforStatementView loop, std::size_t number) {
    const flow::OrderedSet<SymbolView> universe = about.universeOf(number);
    std::string text = textOf(flow::computeLiveAsTemporaryVariables(loop, universe, nullptr)) +
                       textOf(flow::computeMaybeLiveAsTemporaryVariables(loop, universe, nullptr)) +
                       textOf(flow::computeNotLiveAsSlicedVariables(loop, universe, nullptr)) +
                       std::to_string(flow::isAnsPossiblyReadBeforeBeingWritten(
                           loop, about.file.scopes[0].ans, nullptr));
    for (const AnalysisTypeView type : {AnalysisTypeView::May, AnalysisTypeView::Must}) {
        for (const AnalysisModeView mode :
             {AnalysisModeView::Plain, AnalysisModeView::Sliced, AnalysisModeView::Ans}) {
            flow::TransparentLiveVariablesAnalyzerView analyzer(universe, loop.getParforBody(),
                                                                type, mode, nullptr);
            text += textOf(analyzer.getVariablesLiveAtEntry());
        }
    }
    std::size_t nodes = 0;
    forEachNodeIn(loop, [&nodes](const NodeView&) { ++nodes; });
    return text + std::to_string(nodes);
}

TEST(SharedTree, AnalyzersOfEightThreadsAnswerAsOneByOne) {
    Random random;
    std::size_t loops = 0;
    std::set<std::string> different;
    for (std::size_t round = 0; round < 60; ++round) {
        const Case about(loopAroundRandomStatements(random));
        if (about.file.hasErrors()) continue;
        const ParforStatementView loop(about.file.constructs.front().node);
        // The threads go first, so that they find a tree that nobody has asked before.
        const std::vector<std::string> together =
            runTogether(THREADS, [&](std::size_t number) { return answers(about, loop, number); });
        for (std::size_t number = 0; number < THREADS; ++number) {
            const std::string alone = answers(about, loop, number);
            EXPECT_EQ(together[number], alone) << "round " << round << ", thread " << number;
            different.insert(alone);
        }
        ++loops;
    }
    // Most programs have no errors, and the universes matter.
    EXPECT_GT(loops, 40U);
    EXPECT_GT(different.size(), 2 * loops);
}

} // namespace
} // namespace zt::orvex::testing
