// Input: nodes and edges. The graph is compared with plain adjacency sets and a recursive search.
#include "Require.h"
#include "testing/Random.h"

#include <zt_orvex/flow/Digraph.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace zt::orvex;
using fuzz::require;

namespace {

using Calls = std::vector<std::pair<bool, int>>; // whether a node is entered, and the node

class Recorder final : public flow::DfsCallback<int> {
public:
    explicit Recorder(std::size_t most = ~std::size_t{0}) : limit(most) {}

    void preVisit(const int& node) override { note(true, node); }
    void postVisit(const int& node) override { note(false, node); }

    Calls calls;

private:
    void note(bool isEntered, int node) {
        if (calls.size() == limit) throw std::runtime_error("enough");
        calls.emplace_back(isEntered, node);
    }

    std::size_t limit;
};

class PlainGraph {
public:
    std::uint64_t addNode(int node) {
        const auto place = places.emplace(node, nodes.size());
        if (place.second) {
            nodes.push_back(node);
            successors.emplace_back();
        }
        return place.first->second;
    }

    void addEdge(int from, int to) {
        const std::uint64_t source = addNode(from);
        const std::uint64_t target = addNode(to);
        successors[source].insert(target);
    }

    Calls search() const {
        Calls calls;
        std::vector<bool> visited(nodes.size());
        for (std::uint64_t root = 0; root < nodes.size(); ++root)
            visit(root, visited, calls);
        return calls;
    }

    bool has(int node) const { return places.count(node) != 0; }
    std::vector<int> successorsOf(int node) const {
        std::vector<int> result;
        for (const std::uint64_t successor : successors[places.at(node)])
            result.push_back(nodes[successor]);
        return result;
    }

    std::size_t size() const { return nodes.size(); }

private:
    void visit(std::uint64_t node, std::vector<bool>& visited, Calls& calls) const {
        if (visited[node]) return;
        visited[node] = true;
        calls.emplace_back(true, nodes[node]);
        for (auto next = successors[node].rbegin(); next != successors[node].rend(); ++next)
            visit(*next, visited, calls);
        calls.emplace_back(false, nodes[node]);
    }

    std::map<int, std::uint64_t> places;
    std::vector<int> nodes;
    std::vector<std::set<std::uint64_t>> successors;
};

void requireEqual(const flow::Digraph<int>& graph, const PlainGraph& plain) {
    require(graph.size() == plain.size(), "equal size");
    const Calls expected = plain.search();
    Recorder recorder;
    graph.traverseDepthFirst(recorder);
    require(recorder.calls == expected, "the same traversal");

    std::vector<int> order;
    for (auto call = expected.rbegin(); call != expected.rend(); ++call) {
        if (!call->first) order.push_back(call->second);
    }
    require(*graph.inReversePostOrder() == order, "the same reverse post-order");
}

void requireEqualSuccessors(const flow::Digraph<int>& graph, const PlainGraph& plain, int node) {
    std::vector<int> successors;
    try {
        const auto range = graph.successors(node);
        for (const int successor : range)
            successors.push_back(successor);
        require(plain.has(node) && successors == plain.successorsOf(node), "equal successors");
        require(range.size() == successors.size(), "as many as there are");
    } catch (const std::invalid_argument&) {
        require(!plain.has(node), "only a missing node is not found");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    testing::Random random(data, size);
    flow::Digraph<int> graph;
    PlainGraph plain;
    const std::size_t names = random.between(1, 60);
    const auto node = [&] { return static_cast<int>(random.below(names)) - 7; };
    while (!random.isUsedUp()) {
        switch (random.below(16)) {
        case 0: {
            const int added = node();
            require(graph.addNode(added) == plain.addNode(added), "a node's place");
            break;
        }
        case 1:
            graph.reserve(random.below(200));
            break;
        case 2:
            requireEqualSuccessors(graph, plain, node());
            break;
        case 3: {
            Recorder recorder(random.below(20));
            try {
                graph.traverseDepthFirst(recorder);
            } catch (const std::runtime_error&) {
                // The graph must be as it was.
            }
            break;
        }
        default: {
            const int from = node();
            const int to = node();
            graph.addEdge(from, to);
            plain.addEdge(from, to);
        }
        }
    }
    requireEqual(graph, plain);
    return 0;
}
