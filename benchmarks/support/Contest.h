#pragma once

#include "peers/IdealLiveness.h"
#include "support/GeneratedProgram.h"
#include "support/ProgramTree.h"

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/BitSet.h>

#include <cstdint>
#include <string>
#include <unordered_set>

namespace zt::orvex::benchmarks {

/// One program of the liveness benchmarks in the forms that need no peer, and its answer.
struct Contest {
    Contest(Shape shape, std::uint32_t statements, std::uint32_t variables)
        : program(generateProgram(shape, statements, variables)), tree(program),
          expected(idealRoundRobin(program)) {}

    bool isAnswer(const std::unordered_set<SymbolView>& live) const {
        LiveWords words(expected.size(), 0);
        for (const SymbolView symbol : live)
            words[symbol.symbol / 64] |= std::uint64_t{1} << (symbol.symbol % 64);
        return words == expected;
    }
    bool isAnswer(const flow::BitSet<SymbolView>& live) const {
        LiveWords words(expected.size(), 0);
        live.forEachIndex(
            [&](std::uint64_t index) { words[index / 64] |= std::uint64_t{1} << (index % 64); });
        return words == expected;
    }

    GeneratedProgram program;
    ProgramTree tree;
    LiveWords expected;
};

/// The end of the name of a row, such as "nested/S:1000/V:16".
inline std::string nameOf(Shape shape, std::uint32_t statements, std::uint32_t variables) {
    return std::string(nameOf(shape)) + "/S:" + std::to_string(statements) +
           "/V:" + std::to_string(variables);
}

} // namespace zt::orvex::benchmarks
