// Live variables, from the program to the answer: our analyzer (constructor, one getter,
// destructor, and all its questions to the tree) against a hand-written limit. Clang's rows are in
// peers/ClangLivenessRows.cpp.

#include "support/Contest.h"
#include "support/FreedMemory.h"
#include "support/PerItem.h"
#include "support/ThreadClock.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>

#include <benchmark/benchmark.h>

#include <memory>

namespace zt::orvex::benchmarks {
namespace {

std::unordered_set<SymbolView> liveAtEntry(const Contest& contest) {
    flow::TransparentLiveVariablesAnalyzerView analyzer(
        contest.tree.universe(), contest.tree.statements(), flow::AnalysisTypeView::May,
        flow::AnalysisModeView::Plain, nullptr);
    return analyzer.getVariablesLiveAtEntry();
}

void analyse(benchmark::State& state, const Contest& contest) {
    std::unordered_set<SymbolView> live;
    for (auto _ : state)
        live = liveAtEntry(contest);
    if (!contest.isAnswer(live)) state.SkipWithError("wrong answer");
    reportPerItem(state, contest.program.statements);
}

/// The memory that the first analysis of a process meets.
void analyseInFreshMemory(benchmark::State& state, const Contest& contest) {
    std::unordered_set<SymbolView> live;
    for (auto _ : state) {
        giveFreedMemoryBack();
        const double start = threadSeconds();
        live = liveAtEntry(contest);
        state.SetIterationTime(threadSeconds() - start);
    }
    if (!contest.isAnswer(live)) state.SkipWithError("wrong answer");
    reportPerItem(state, contest.program.statements);
}

void analyseIdeally(benchmark::State& state, const Contest& contest) {
    LiveWords live;
    for (auto _ : state)
        live = idealRoundRobin(contest.program);
    if (live != contest.expected) state.SkipWithError("wrong answer");
    reportPerItem(state, contest.program.statements);
}

void registerRows(Shape shape, std::uint32_t statements, std::uint32_t variables) {
    const auto contest = std::make_shared<const Contest>(shape, statements, variables);
    const std::string name = nameOf(shape, statements, variables);
    benchmark::RegisterBenchmark(("analysis/ours/" + name).c_str(),
                                 [=](benchmark::State& state) { analyse(state, *contest); });
    benchmark::RegisterBenchmark(
        ("analysis_in_fresh_memory/ours/" + name).c_str(),
        [=](benchmark::State& state) { analyseInFreshMemory(state, *contest); })
        ->UseManualTime();
    benchmark::RegisterBenchmark(("analysis/ideal_roundrobin/" + name).c_str(),
                                 [=](benchmark::State& state) { analyseIdeally(state, *contest); });
}

[[maybe_unused]] const bool registered = [] {
    keepFreedMemory();
    for (const Shape shape : ALL_SHAPES) {
        for (const std::uint32_t variables : {16u, 256u}) {
            registerRows(shape, 1000, variables);
            registerRows(shape, 10000, variables);
        }
    }
    registerRows(Shape::Nested, 1000, 4096);
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
