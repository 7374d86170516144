// The heap use of a whole analysis: peak bytes and allocations per statement, ours against Clang's.
// Prints a JSON object in the format of Google Benchmark.

#include "support/Contest.h"
#include "support/HeapCounter.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>

#ifdef ZT_ORVEX_HAS_CLANG
#include "peers/ClangLiveness.h"
#endif

#include <cstdio>
#include <cstdlib>
#include <string>

namespace zt::orvex::benchmarks {
namespace {

class Report {
public:
    Report() { std::printf("{\"benchmarks\": ["); }
    ~Report() { std::printf("\n]}\n"); }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    void add(const std::string& name, const HeapCounter& counted, double statements) {
        const auto bytes = static_cast<double>(counted.peakBytes());
        const auto allocations = static_cast<double>(counted.allocations());
        std::printf("%s\n  {\"name\": \"%s\", \"run_name\": \"%s\", \"run_type\": \"iteration\", "
                    "\"bytes_per_item\": %.1f, \"allocations_per_item\": %.3f}",
                    separator, name.c_str(), name.c_str(), bytes / statements,
                    allocations / statements);
        separator = ",";
    }

private:
    const char* separator = "";
};

void require(bool isRight) {
    if (isRight) return;
    std::fprintf(stderr, "wrong answer\n");
    std::exit(1);
}

void measureOurs(Report& report, const Contest& contest, const std::string& name) {
    const HeapCounter counter;
    {
        flow::TransparentLiveVariablesAnalyzerView analyzer(
            contest.tree.universe(), contest.tree.statements(), flow::AnalysisTypeView::May,
            flow::AnalysisModeView::Plain, nullptr);
        require(contest.isAnswer(analyzer.getVariablesLiveAtEntry()));
    }
    report.add("memory/ours/" + name, counter, contest.program.statements);
}

#ifdef ZT_ORVEX_HAS_CLANG
void measureClang(Report& report, const Contest& contest, const std::string& name) {
    const ClangProgram clangProgram(contest.program);
    LiveWords live(contest.expected.size());
    const HeapCounter counter;
    clangProgram.analyse(live);
    report.add("memory/clang/" + name, counter, contest.program.statements);
    require(live == contest.expected);
}
#endif

void measureAll() {
    Report report;
    for (const Shape shape : ALL_SHAPES) {
        for (const std::uint32_t variables : {16u, 256u}) {
            const Contest contest(shape, 1000, variables);
            const std::string name = nameOf(shape, 1000, variables);
            measureOurs(report, contest, name);
#ifdef ZT_ORVEX_HAS_CLANG
            measureClang(report, contest, name);
#endif
        }
    }
}

} // namespace
} // namespace zt::orvex::benchmarks

int main() { zt::orvex::benchmarks::measureAll(); }
