#pragma once

#include "peers/FlowGraph.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace zt::orvex::benchmarks {

/// One bit per variable: whether it is live on entry to the program.
using LiveWords = std::vector<std::uint64_t>;

/// A limit for the same work: only the flow graph in arrays and one array of bits, swept in reverse
/// source order until nothing changes. It has no tree to query and keeps no names.
inline LiveWords idealRoundRobin(const GeneratedProgram& program) {
    const FlowGraph graph = buildFlowGraph(program);
    const std::uint32_t width = (program.variables + 63) / 64;
    std::vector<std::uint64_t> liveIn(std::size_t{graph.nodes + 1} * width, 0);
    std::vector<std::uint64_t> value(width);
    const auto row = [&](std::uint32_t node) { return liveIn.data() + std::size_t{node} * width; };
    const auto bit = [](std::uint32_t variable) { return std::uint64_t{1} << (variable % 64); };

    bool changed = true;
    while (changed) {
        changed = false;
        for (std::uint32_t node = graph.nodes; node-- > 0;) {
            const std::uint64_t* const first = row(graph.successors[2 * std::size_t{node}]);
            const std::uint32_t other = graph.successors[2 * std::size_t{node} + 1];
            if (other == FlowGraph::NONE) {
                std::memcpy(value.data(), first, width * 8);
            } else {
                const std::uint64_t* const second = row(other);
                for (std::uint32_t w = 0; w < width; ++w)
                    value[w] = first[w] | second[w];
            }
            const std::uint32_t defined = graph.defined[node];
            if (defined != FlowGraph::NONE) value[defined / 64] &= ~bit(defined);
            for (const std::uint32_t used : {graph.usedLeft[node], graph.usedRight[node]}) {
                if (used != FlowGraph::NONE) value[used / 64] |= bit(used);
            }
            if (std::memcmp(row(node), value.data(), width * 8) != 0) {
                std::memcpy(row(node), value.data(), width * 8);
                changed = true;
            }
        }
    }
    return LiveWords(liveIn.begin(), liveIn.begin() + width);
}

} // namespace zt::orvex::benchmarks
