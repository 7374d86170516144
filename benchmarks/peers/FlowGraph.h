#pragma once

#include "support/GeneratedProgram.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace zt::orvex::benchmarks {

/// A flow graph in arrays: one node per statement, in source order, and an exit with the number
/// `nodes`. A node has at most two successors, defines one variable and uses two.
struct FlowGraph {
    static constexpr std::uint32_t NONE = ~std::uint32_t{0};

    std::uint32_t nodes = 0;
    std::vector<std::uint32_t> successors; ///< of node i at 2 * i and 2 * i + 1
    std::vector<std::uint32_t> defined, usedLeft, usedRight;
};

inline FlowGraph buildFlowGraph(const GeneratedProgram& program) {
    struct Frame {
        std::uint32_t head;
        bool isLoop;
        bool hasElse;
        std::vector<std::uint32_t> ends; // breaks, or the end of the branch before `else`
    };
    FlowGraph graph;
    graph.successors.assign(2 * std::size_t{program.statements}, FlowGraph::NONE);
    graph.defined.assign(program.statements, FlowGraph::NONE);
    graph.usedLeft.assign(program.statements, FlowGraph::NONE);
    graph.usedRight.assign(program.statements, FlowGraph::NONE);
    std::vector<Frame> frames;
    std::vector<std::uint32_t> pending; // indices of successors to set to the next node
    const auto connect = [&](std::uint32_t to) {
        for (const std::uint32_t place : pending)
            graph.successors[place] = to;
        pending.clear();
    };
    for (const Instruction& i : program.code) {
        const std::uint32_t node = graph.nodes;
        switch (i.op) {
        case Op::Assign:
            graph.defined[node] = i.target;
            graph.usedLeft[node] = i.left;
            graph.usedRight[node] = i.right;
            connect(node);
            pending.push_back(2 * node);
            ++graph.nodes;
            break;
        case Op::While:
        case Op::If:
            graph.usedLeft[node] = i.left;
            graph.usedRight[node] = i.right;
            connect(node);
            pending.push_back(2 * node);
            ++graph.nodes;
            frames.push_back({node, i.op == Op::While, false, {}});
            break;
        case Op::EndWhile:
            connect(frames.back().head);
            pending.swap(frames.back().ends);
            pending.push_back(2 * frames.back().head + 1);
            frames.pop_back();
            break;
        case Op::Else:
            frames.back().hasElse = true;
            frames.back().ends.swap(pending);
            pending.assign(1, 2 * frames.back().head + 1);
            break;
        case Op::EndIf: {
            const Frame& frame = frames.back();
            if (!frame.hasElse) pending.push_back(2 * frame.head + 1);
            pending.insert(pending.end(), frame.ends.begin(), frame.ends.end());
            frames.pop_back();
            break;
        }
        case Op::Break:
        case Op::Continue: {
            connect(node);
            ++graph.nodes;
            std::size_t loop = frames.size() - 1;
            while (!frames[loop].isLoop)
                --loop;
            if (i.op == Op::Break) {
                frames[loop].ends.push_back(2 * node);
            } else {
                graph.successors[2 * node] = frames[loop].head;
            }
            break;
        }
        }
    }
    connect(graph.nodes);
    return graph;
}

} // namespace zt::orvex::benchmarks
