// Clang's LiveVariables on the programs of Liveness.cpp.

#include "peers/ClangLiveness.h"
#include "support/Contest.h"
#include "support/FreedMemory.h"
#include "support/PerItem.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace zt::orvex::benchmarks {
namespace {

void registerRow(Shape shape, std::uint32_t statements, std::uint32_t variables) {
    const GeneratedProgram program = generateProgram(shape, statements, variables);
    const auto parsed = std::make_shared<const ClangProgram>(program);
    const LiveWords expected = idealRoundRobin(program);
    const double items = program.statements;
    const auto row = [&](const std::string& what, auto prepare) {
        const std::string name = what + "/clang/" + nameOf(shape, statements, variables);
        benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
            LiveWords live;
            for (auto _ : state) {
                prepare();
                state.SetIterationTime(parsed->analyse(live));
            }
            if (live != expected) state.SkipWithError("wrong answer");
            reportPerItem(state, items);
        })->UseManualTime();
    };
    row("analysis", [] {});
    row("analysis_in_fresh_memory", giveFreedMemoryBack);
}

[[maybe_unused]] const bool registered = [] {
    for (const Shape shape : ALL_SHAPES) {
        for (const std::uint32_t variables : {16u, 256u})
            registerRow(shape, 1000, variables);
    }
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
