#pragma once

#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <boost/container/small_vector.hpp>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace zt::orvex::flow {

/// What a depth-first traversal tells its caller.
template <typename T>
class DfsCallback {
public:
    virtual ~DfsCallback() = default;
    /// The traversal enters the node.
    virtual void preVisit(const T& node) = 0;
    /// The traversal leaves the node: all that was unvisited and reachable from it has been left.
    virtual void postVisit(const T& node) = 0;

protected:
    DfsCallback() = default;
    DfsCallback(const DfsCallback&) = default;
    DfsCallback& operator=(const DfsCallback&) = default;
};

/// A directed graph over any values that `OrderedSet` accepts, with a depth-first traversal.
///
/// Nodes are numbered in order of first insertion, and that order settles the traversal. A repeated
/// edge is one edge; an edge from a node to itself is allowed. Not synchronised.
///
///     Digraph<std::string> graph;
///     graph.addEdge("a", "b");
///     graph.addEdge("a", "c");
///     *graph.inReversePostOrder();  // a, b, c
template <typename T>
class Digraph {
    // Ascending, without duplicates. Two fit in place, which most nodes of a flow graph need at
    // most.
    using IndexSet = boost::container::small_vector<std::uint64_t, 2>;

public:
    /// The successors of a node, in order of index. Lasts until the graph changes.
    class Successors {
    public:
        class Iterator {
        public:
            const T& operator*() const { return graph->nodes.elementAt(*position); }
            Iterator& operator++() {
                ++position;
                return *this;
            }
            friend bool operator==(Iterator a, Iterator b) { return a.position == b.position; }
            friend bool operator!=(Iterator a, Iterator b) { return a.position != b.position; }

        private:
            friend class Successors;
            Iterator(const Digraph* in, const std::uint64_t* at) : graph(in), position(at) {}

            const Digraph* graph;
            const std::uint64_t* position;
        };

        Iterator begin() const { return Iterator(graph, set->data()); }
        Iterator end() const { return Iterator(graph, set->data() + set->size()); }
        std::uint64_t size() const { return set->size(); }

    private:
        friend class Digraph;
        Successors(const Digraph* in, const IndexSet* of) : graph(in), set(of) {}

        const Digraph* graph;
        const IndexSet* set;
    };

    /// Makes room for `count` nodes in one step.
    void reserve(std::uint64_t count) {
        nodes.reserveElements(count);
        successorSets.reserve(count);
    }

    /// The node's index. Nothing else happens if the graph has the node. One hash look-up.
    std::uint64_t addNode(const T& node) {
        const std::uint64_t index = nodes.add(node);
        if (index == successorSets.size()) successorSets.emplace_back();
        return index;
    }

    /// As `addNode`, for a node that the caller knows to be new; that is not checked. No hash
    /// look-up.
    std::uint64_t addNewNode(const T& node) {
        successorSets.emplace_back();
        return nodes.appendNew(node);
    }

    /// Adds `from`, then `to`, then the edge. Two hash look-ups.
    void addEdge(const T& from, const T& to) {
        const std::uint64_t source = addNode(from);
        addEdgeBetween(source, addNode(to));
    }

    /// The same for nodes whose indices the caller has kept; both must be indices of nodes.
    void addEdgeBetween(std::uint64_t from, std::uint64_t to) {
        IndexSet& set = successorSets[from];
        if (set.empty() || set.back() < to) {
            set.push_back(to);
            return;
        }
        const auto place = std::lower_bound(set.begin(), set.end(), to);
        if (*place != to) set.insert(place, to);
    }

    std::uint64_t size() const { return nodes.size(); }

    /// Throws std::invalid_argument("element not found") if the graph lacks `node`.
    Successors successors(const T& node) const {
        return Successors(this, &successorSets[nodes.indexOf(node)]);
    }

    /// Enters and leaves every node once. Roots are the unvisited nodes of lowest index; among the
    /// successors of a node the one of highest index is entered first. Linear in nodes and edges,
    /// on a stack of its own. An exception from the callback ends the traversal; the graph must not
    /// change meanwhile.
    void traverseDepthFirst(DfsCallback<T>& callback) const;

    /// All nodes, the last to be left by the traversal first.
    std::shared_ptr<std::vector<T>> inReversePostOrder() const;

private:
    OrderedSet<T> nodes;
    std::vector<IndexSet> successorSets; // one for each node
};

template <typename T>
void Digraph<T>::traverseDepthFirst(DfsCallback<T>& callback) const {
    BitSet<T> unvisited(nodes);
    unvisited.addAll();
    BitSet<T> finished(nodes);
    std::vector<std::uint64_t> stack;

    // Nodes only ever leave `unvisited`, so the search for the next root goes on where it stood.
    for (std::uint64_t root = unvisited.findFrom(0); root != nodes.size();
         root = unvisited.findFrom(root)) {
        stack.push_back(root);
        while (!stack.empty()) {
            const std::uint64_t top = stack.back();
            if (unvisited.containsIndex(top)) {
                unvisited.removeIndex(top);
                callback.preVisit(nodes.elementAt(top));
                for (const std::uint64_t successor : successorSets[top]) {
                    if (unvisited.containsIndex(successor)) stack.push_back(successor);
                }
            } else {
                stack.pop_back();
                if (finished.containsIndex(top)) continue; // pushed twice, and left already
                finished.addIndex(top);
                callback.postVisit(nodes.elementAt(top));
            }
        }
    }
}

template <typename T>
std::shared_ptr<std::vector<T>> Digraph<T>::inReversePostOrder() const {
    /// Fills the vector from the back, so that nothing is reversed and nothing grows.
    class RpoCallback final : public DfsCallback<T> {
    public:
        explicit RpoCallback(std::shared_ptr<std::vector<T>> into)
            : result(std::move(into)), cursor(result->end()) {}
        void preVisit(const T&) override {}
        void postVisit(const T& node) override { *--cursor = node; }

    private:
        std::shared_ptr<std::vector<T>> result;
        typename std::vector<T>::iterator cursor;
    };

    auto order = std::make_shared<std::vector<T>>(nodes.size());
    RpoCallback callback(order);
    traverseDepthFirst(callback);
    return order;
}

} // namespace zt::orvex::flow
