// Solving alone: round-robin iteration over the equations of a program, against a hand-written
// limit that also builds its flow graph.

#include "analysis/Liveness.h"
#include "support/Contest.h"
#include "support/PerItem.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>

namespace zt::orvex::benchmarks {
namespace {

void solve(
    benchmark::State& state, const Contest& contest, const flow::OrderedSet<SymbolView>& universe,
    const std::function<void()>& prepare = [] {}) {
    flow::internal::Liveness analysis(universe, contest.tree.statements(),
                                      flow::AnalysisTypeView::May, flow::AnalysisModeView::Plain,
                                      {}, nullptr);
    prepare();
    std::uint64_t sweeps = 0;
    for (auto _ : state)
        sweeps = analysis.solver().solve();
    if (!contest.isAnswer(analysis.liveAtEntry())) state.SkipWithError("wrong answer");
    state.counters["sweeps"] = static_cast<double>(sweeps);
    reportPerItem(state, contest.program.statements);
}

/// If the universe has grown since the equations were built, the solver evaluates the terms.
void solveOverTerms(benchmark::State& state, const Contest& contest) {
    flow::OrderedSet<SymbolView> universe = contest.tree.universe();
    const SymbolView another{contest.program.variables, contest.tree.statements().view};
    solve(state, contest, universe, [&] { universe.add(another); });
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
        benchmark::RegisterBenchmark(("solve/ours/" + name).c_str(), [=](benchmark::State& state) {
            solve(state, *contest, contest->tree.universe());
        });
        benchmark::RegisterBenchmark(
            ("solve/ours_over_terms/" + name).c_str(),
            [=](benchmark::State& state) { solveOverTerms(state, *contest); });
        benchmark::RegisterBenchmark(
            ("solve/ideal_roundrobin/" + name).c_str(),
            [=](benchmark::State& state) { solveIdeally(state, *contest); });
    }
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
