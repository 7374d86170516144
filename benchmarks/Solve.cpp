// Solving alone: the round robin over the equations of a program, beside a hand-written limit that
// also builds its flow graph.

#include "analysis/LiveVariableAnalysis.h"
#include "support/Contest.h"
#include "support/PerItem.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace zt::orvex::benchmarks {
namespace {

void solve(benchmark::State& state, const Contest& contest) {
    flow::internal::LiveVariableAnalysis analysis(
        contest.tree.universe(), contest.tree.statements(), flow::AnalysisTypeView::May,
        flow::AnalysisModeView::Plain, {}, nullptr);
    std::uint64_t sweeps = 0;
    for (auto _ : state)
        sweeps = analysis.solver().solve();
    if (!contest.isAnswer(analysis.liveAtEntry())) state.SkipWithError("wrong answer");
    state.counters["sweeps"] = static_cast<double>(sweeps);
    reportPerItem(state, contest.program.statements);
}

void solveIdeally(benchmark::State& state, const Contest& contest) {
    LiveWords live;
    for (auto _ : state)
        live = idealRoundRobin(contest.program);
    if (live != contest.expected) state.SkipWithError("wrong answer");
    reportPerItem(state, contest.program.statements);
}

[[maybe_unused]] const bool registered = [] {
    for (const std::uint32_t variables : {16u, 256u, 4096u}) {
        const auto contest = std::make_shared<const Contest>(Shape::Nested, 1000, variables);
        const std::string name = nameOf(Shape::Nested, 1000, variables);
        benchmark::RegisterBenchmark(("solve/ours/" + name).c_str(),
                                     [=](benchmark::State& state) { solve(state, *contest); });
        benchmark::RegisterBenchmark(
            ("solve/ideal_roundrobin/" + name).c_str(),
            [=](benchmark::State& state) { solveIdeally(state, *contest); });
    }
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
