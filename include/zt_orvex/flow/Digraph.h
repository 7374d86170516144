#pragma once

#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/flow/internal/IndexGraph.h>

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
    /// The traversal leaves the node: everything unvisited that was reachable from it has been left.
    virtual void postVisit(const T& node) = 0;

protected:
    DfsCallback() = default;
    /// @{
    /// Copies nothing: there is nothing to copy.
    DfsCallback(const DfsCallback&) = default;
    DfsCallback& operator=(const DfsCallback&) = default;
    /// @}
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
public:
    /// The successors of a node, in order of index. Lasts until the graph changes.
    class Successors {
    public:
        /// Steps through the successors. Lasts as long as they do.
        class Iterator {
        public:
            /// The successor, by reference into the graph.
            const T& operator*() const { return nodes->elementAt(*position); }
            /// Goes on to the next successor.
            Iterator& operator++() {
                ++position;
                return *this;
            }
            /// @{
            /// Compares positions; both iterators must belong to the same successors.
            friend bool operator==(Iterator a, Iterator b) { return a.position == b.position; }
            friend bool operator!=(Iterator a, Iterator b) { return a.position != b.position; }
            /// @}

        private:
            friend class Successors;
            Iterator(const OrderedSet<T>* of, const std::uint64_t* at) : nodes(of), position(at) {}

            const OrderedSet<T>* nodes;
            const std::uint64_t* position;
        };

        /// At the successor of lowest index.
        Iterator begin() const { return Iterator(nodes, indices->data()); }
        /// After the last successor.
        Iterator end() const { return Iterator(nodes, indices->data() + indices->size()); }
        /// The number of successors.
        std::uint64_t size() const { return indices->size(); }

    private:
        friend class Digraph;
        Successors(const OrderedSet<T>* of, const internal::IndexGraph::Successors* at)
            : nodes(of), indices(at) {}

        const OrderedSet<T>* nodes;
        const internal::IndexGraph::Successors* indices;
    };

    /// Makes room for `count` nodes in one step. If it throws, the graph is unchanged.
    void reserve(std::uint64_t count) {
        nodes.reserve(count);
        edges.reserve(count);
    }

    /// The node's index. Nothing else happens if the graph has the node. One hash lookup. If it
    /// throws, the graph is unchanged.
    std::uint64_t addNode(const T& node) {
        edges.makeRoomForNode(); // so that nothing can fail once the node is there
        const std::uint64_t index = nodes.add(node);
        if (index == edges.size()) edges.addNode();
        return index;
    }

    /// Adds `from`, then `to`, then the edge. Two hash lookups; constant beside them where edges of
    /// a node are added in ascending order of their targets' indices, else linear in the node's
    /// successors. If it throws, the ends may have become nodes, without the edge.
    void addEdge(const T& from, const T& to) {
        const std::uint64_t source = addNode(from);
        edges.addEdge(source, addNode(to));
    }

    /// The number of nodes.
    std::uint64_t size() const { return nodes.size(); }

    /// The nodes to which an edge leads from `node`. One hash lookup. Throws
    /// std::invalid_argument("element not found") if the graph lacks `node`.
    Successors successors(const T& node) const {
        return Successors(&nodes, &edges.successors(nodes.indexOf(node)));
    }

    /// Enters and leaves every node once. Roots are the unvisited nodes of lowest index; among the
    /// successors of a node the one of highest index is entered first. Linear in nodes and edges,
    /// on a stack of its own. An exception from the callback ends the traversal; the graph must not
    /// change meanwhile.
    void traverseDepthFirst(DfsCallback<T>& callback) const {
        edges.traverseDepthFirst(
            [&](std::uint64_t node) { callback.preVisit(nodes.elementAt(node)); },
            [&](std::uint64_t node) { callback.postVisit(nodes.elementAt(node)); });
    }

    /// All nodes; the last that the traversal leaves comes first. Linear in nodes and edges.
    std::shared_ptr<std::vector<T>> inReversePostOrder() const;

private:
    OrderedSet<T> nodes;
    internal::IndexGraph edges; // the same nodes, by index
};

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
