// What a flow graph and the reasons of all variables cost, beside an analysis by the library that
// answers which variables are live.

#include "support/Contest.h"
#include "support/PerItem.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex_kit/body/FlowGraph.h>
#include <zt_orvex_kit/reasons/CheckExplanation.h>
#include <zt_orvex_kit/reasons/Explain.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace zt::orvex::benchmarks {
namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;

kit::FlowGraph makeGraph(const Contest& contest, AnalysisTypeView type) {
    return kit::FlowGraph(contest.tree.universe(), contest.tree.statements(), type,
                          AnalysisModeView::Plain);
}

void analyse(benchmark::State& state, const Contest& contest, AnalysisTypeView type) {
    for (auto _ : state) {
        flow::TransparentLiveVariablesAnalyzerView analyzer(contest.tree.universe(),
                                                            contest.tree.statements(), type,
                                                            AnalysisModeView::Plain, nullptr);
        benchmark::DoNotOptimize(analyzer.getVariablesLiveAtEntry());
    }
    reportPerItem(state, contest.program.statements);
}

void graph(benchmark::State& state, const Contest& contest, AnalysisTypeView type) {
    for (auto _ : state)
        benchmark::DoNotOptimize(makeGraph(contest, type).liveAtEntry());
    reportPerItem(state, contest.program.statements);
}

/// A graph and the reasons of all variables of its universe.
void explainAll(benchmark::State& state, const Contest& contest, AnalysisTypeView type) {
    for (auto _ : state) {
        const kit::FlowGraph graph = makeGraph(contest, type);
        for (const SymbolView& symbol : contest.tree.universe())
            benchmark::DoNotOptimize(kit::explain(graph, symbol));
    }
    reportPerItem(state, contest.program.statements);
}

/// The same, and each reason checked.
void explainAndCheckAll(benchmark::State& state, const Contest& contest, AnalysisTypeView type) {
    for (auto _ : state) {
        const kit::FlowGraph graph = makeGraph(contest, type);
        for (const SymbolView& symbol : contest.tree.universe()) {
            if (!kit::checkExplanation(graph, symbol, kit::explain(graph, symbol)).isProof())
                state.SkipWithError("a reason is no proof");
        }
    }
    reportPerItem(state, contest.program.statements);
}

void registerRows(Shape shape, std::uint32_t variables, AnalysisTypeView type) {
    const auto contest = std::make_shared<const Contest>(shape, 1000, variables);
    const std::string end =
        nameOf(shape, 1000, variables) + (type == AnalysisTypeView::May ? "/may" : "/must");
    const auto add = [&](const char* what, auto run) {
        benchmark::RegisterBenchmark((what + end).c_str(),
                                     [=](benchmark::State& state) { run(state, *contest, type); });
    };
    add("reasons/analysis/", analyse);
    add("reasons/flow_graph/", graph);
    add("reasons/explain_all/", explainAll);
    add("reasons/explain_and_check_all/", explainAndCheckAll);
}

const bool areRowsRegistered = [] {
    for (const Shape shape : {Shape::Straight, Shape::Nested, Shape::Loops})
        for (const AnalysisTypeView type : {AnalysisTypeView::May, AnalysisTypeView::Must})
            registerRows(shape, 16, type);
    registerRows(Shape::Nested, 256, AnalysisTypeView::May);
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
