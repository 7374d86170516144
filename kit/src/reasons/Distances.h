#pragma once

#include <zt_orvex_kit/body/FlowGraph.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace zt::orvex::kit::internal {

/// How far each node of a graph is from the nearest of some targets, in edges, and the paths there.
class Distances {
public:
    static constexpr std::uint32_t NONE = std::numeric_limits<std::uint32_t>::max();

    /// Paths lead through nodes for which `mayPass(node)` holds; the target at their end may be any
    /// node for which `isTarget(node)` does. Paths longer than `limit` edges are left out.
    template <typename IsTarget, typename MayPass>
    Distances(const FlowGraph& in, IsTarget isTarget, MayPass mayPass, std::uint32_t limit = NONE)
        : graph(in), distances(in.size(), NONE) {
        std::vector<FlowNode> targets;
        for (FlowNode node = 0; node < graph.size(); ++node) {
            if (!isTarget(node)) continue;
            distances[node] = 0;
            targets.push_back(node);
        }
        spread(targets, mayPass, limit);
    }

    /// Paths that go on after their end: `furtherFrom[node]` edges after `node`, or NONE.
    template <typename MayPass>
    Distances(const FlowGraph& in, std::vector<std::uint32_t> furtherFrom, MayPass mayPass)
        : graph(in), distances(std::move(furtherFrom)) {
        std::vector<FlowNode> ends;
        for (FlowNode node = 0; node < graph.size(); ++node) {
            if (distances[node] != NONE) ends.push_back(node);
        }
        std::sort(ends.begin(), ends.end(), [this](FlowNode a, FlowNode b) {
            return std::make_pair(distances[a], a) < std::make_pair(distances[b], b);
        });
        spread(ends, mayPass, NONE);
    }

    /// NONE where no path leads to a target.
    std::uint32_t operator[](FlowNode node) const { return distances[node]; }

    /// The distance of the nearest successor of `node`, and NONE without one. Unlike the node's own
    /// distance, it doesn't ask whether `node` is a target or may be passed.
    std::uint32_t afterOf(FlowNode node) const {
        std::uint32_t nearest = NONE;
        for (const FlowNode next : graph.successors(node))
            nearest = std::min(nearest, distances[next]);
        return nearest;
    }

    /// Appends the shortest path after `node`, up to a target. Of several it takes the one whose
    /// nodes have the lowest numbers. There must be one.
    void appendPathAfter(FlowNode node, std::vector<FlowNode>& path) const {
        for (std::uint32_t left = afterOf(node);; --left) {
            for (const FlowNode next : graph.successors(node)) {
                if (distances[next] != left) continue;
                node = next;
                break;
            }
            path.push_back(node);
            if (left == 0) return;
        }
    }

    /// As `appendPathAfter`, with `node` first; only `node` if it is a target.
    std::vector<FlowNode> pathFrom(FlowNode node) const {
        std::vector<FlowNode> path{node};
        if (distances[node] != 0) appendPathAfter(node, path);
        return path;
    }

private:
    /// `ends` have a distance each, and come in its order.
    template <typename MayPass>
    void spread(const std::vector<FlowNode>& ends, MayPass mayPass, std::uint32_t limit) {
        std::vector<FlowNode> reached; // in order of distance, too
        std::size_t nextEnd = 0;
        std::size_t nextReached = 0;
        const auto takeNearest = [&] {
            const bool isReached = nextReached != reached.size();
            const bool isEnd = nextEnd != ends.size();
            if (isEnd &&
                (!isReached || distances[ends[nextEnd]] <= distances[reached[nextReached]])) {
                return ends[nextEnd++];
            }
            return reached[nextReached++];
        };
        while (nextEnd != ends.size() || nextReached != reached.size()) {
            const FlowNode node = takeNearest();
            const std::uint32_t distance = distances[node];
            if (distance == limit) return;
            for (const FlowNode before : graph.predecessors(node)) {
                if (distances[before] <= distance + 1 || !mayPass(before)) continue;
                distances[before] = distance + 1;
                reached.push_back(before);
            }
        }
    }

    const FlowGraph& graph;
    std::vector<std::uint32_t> distances;
};

} // namespace zt::orvex::kit::internal
