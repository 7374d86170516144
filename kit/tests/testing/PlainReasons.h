#pragma once

#include <zt_orvex_kit/body/FlowGraph.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace zt::orvex::testing {

/// How long the shortest reasons are, found anew without anything of the kit's search: forward, in
/// plain sets, and for endless paths by trying every node of the graph.
class PlainReasons {
public:
    static constexpr std::size_t NONE = std::numeric_limits<std::size_t>::max();

    PlainReasons(const kit::FlowGraph& of, std::uint64_t variable) : graph(of), index(variable) {}

    /// The edges of the shortest path from the entry to a read without a whole write.
    std::size_t lengthToRead() const {
        return search(
            graph.entry(), [&](kit::FlowNode node) { return reads(node); },
            [&](kit::FlowNode node) { return !ends(node); });
    }

    /// The edges of the shortest path from the entry to a write, the exit or itself, without a
    /// certain read.
    std::size_t lengthWithoutRead() const {
        const auto isNeutral = [&](kit::FlowNode node) { return !reads(node) && !ends(node); };
        std::size_t shortest = search(
            graph.entry(),
            [&](kit::FlowNode node) {
                return !reads(node) && (ends(node) || graph.successors(node).empty());
            },
            isNeutral);
        for (kit::FlowNode turn = 0; turn < graph.size(); ++turn) {
            if (!isNeutral(turn)) continue;
            const auto isTurn = [&](kit::FlowNode node) { return node == turn; };
            const std::size_t there = search(graph.entry(), isTurn, isNeutral);
            std::size_t round = NONE;
            for (const kit::FlowNode next : graph.successors(turn))
                round = std::min(round, search(next, isTurn, isNeutral));
            if (there != NONE && round != NONE) shortest = std::min(shortest, there + round + 1);
        }
        return shortest;
    }

    /// Whether some path carries what a write leaves to the exit.
    bool reachesExit(kit::FlowNode write) const {
        for (const kit::FlowNode next : graph.successors(write)) {
            const auto isExit = [&](kit::FlowNode node) { return node == graph.exit(); };
            const auto keeps = [&](kit::FlowNode node) { return !ends(node); };
            if (search(next, isExit, keeps) != NONE) return true;
        }
        return false;
    }

    bool isReachable(kit::FlowNode target) const {
        return search(
                   graph.entry(), [&](kit::FlowNode node) { return node == target; },
                   [](kit::FlowNode) { return true; }) != NONE;
    }

    bool writes(kit::FlowNode node) const {
        for (const kit::Access& access : graph.accesses(node)) {
            if (access.index == index && kit::isWrite(access.kind) &&
                kit::livenessEffectOf(access.kind, graph.type(), graph.mode()) !=
                    kit::LivenessEffect::None) {
                return true;
            }
        }
        return false;
    }

private:
    bool reads(kit::FlowNode node) const { return graph.makesLive(node, index); }
    bool ends(kit::FlowNode node) const { return graph.endsLiveness(node, index); }

    template <typename IsTarget, typename MayPass>
    std::size_t search(kit::FlowNode from, IsTarget isTarget, MayPass mayPass) const {
        std::set<kit::FlowNode> seen{from};
        std::deque<std::pair<kit::FlowNode, std::size_t>> waiting{{from, 0}};
        while (!waiting.empty()) {
            const auto [node, length] = waiting.front();
            waiting.pop_front();
            if (isTarget(node)) return length;
            if (!mayPass(node)) continue;
            for (const kit::FlowNode next : graph.successors(node))
                if (seen.insert(next).second) waiting.emplace_back(next, length + 1);
        }
        return NONE;
    }

    const kit::FlowGraph& graph;
    std::uint64_t index;
};

} // namespace zt::orvex::testing
