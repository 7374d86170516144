#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <boost/container/small_vector.hpp>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace zt::orvex::flow::internal {

/// A directed graph whose nodes are the numbers from 0 upward, and its depth-first traversal: a
/// `Digraph` without its elements.
class IndexGraph {
public:
    /// The successors of a node, ascending, without duplicates. Most nodes of a flow graph have at
    /// most the two that fit in place.
    using Successors = boost::container::small_vector<std::uint64_t, 2>;

    std::uint64_t size() const { return successorSets.size(); }

    /// Makes room for `count` nodes in one step.
    void reserve(std::uint64_t count) { successorSets.reserve(count); }

    /// Makes room for one more node, so that the next `addNode` can't fail.
    void makeRoomForNode() {
        if (successorSets.size() == successorSets.capacity()) reserve(2 * size() + 8);
    }

    /// Adds a node, which gets the next number.
    std::uint64_t addNode() {
        successorSets.emplace_back();
        return size() - 1;
    }

    /// Both ends must be nodes. Constant where `to` is the largest successor so far, else linear in
    /// the successors of `from`.
    void addEdge(std::uint64_t from, std::uint64_t to) {
        Successors& set = successorSets[from];
        if (set.empty() || set.back() < to) {
            set.push_back(to);
            return;
        }
        const auto place = std::lower_bound(set.begin(), set.end(), to);
        if (*place != to) set.insert(place, to);
    }

    const Successors& successors(std::uint64_t node) const { return successorSets[node]; }

    /// Calls `enter(node)` and `leave(node)` once for each node. Roots are the unvisited nodes of
    /// lowest number; among the successors of a node the highest is entered first.
    template <typename Enter, typename Leave>
    void traverseDepthFirst(Enter enter, Leave leave) const {
        std::vector<bool> isVisited(size());
        std::vector<bool> isFinished(size());
        std::vector<std::uint64_t> stack;
        for (std::uint64_t root = 0; root != size(); ++root) {
            if (!isVisited[root]) stack.push_back(root);
            while (!stack.empty()) {
                const std::uint64_t top = stack.back();
                if (!isVisited[top]) {
                    isVisited[top] = true;
                    enter(top);
                    for (const std::uint64_t successor : successors(top)) {
                        if (!isVisited[successor]) stack.push_back(successor);
                    }
                } else {
                    stack.pop_back();
                    if (isFinished[top]) continue; // pushed twice, and left already
                    isFinished[top] = true;
                    leave(top);
                }
            }
        }
    }

private:
    std::vector<Successors> successorSets;
};

} // namespace zt::orvex::flow::internal
