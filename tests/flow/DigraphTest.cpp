#include <zt_orvex/flow/Digraph.h>

#include "flow/ExpectThrows.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace zt::orvex::flow {
namespace {

using testing::expectThrows;
using testing::Random;
using testing::rounds;

/// Writes down the calls: `+a` for entering a, `-a` for leaving it.
class Trace final : public DfsCallback<std::string> {
public:
    void preVisit(const std::string& node) override { note("+" + node); }
    void postVisit(const std::string& node) override { note("-" + node); }

    std::string text;

private:
    void note(const std::string& call) { text += (text.empty() ? "" : " ") + call; }
};

using Graph = Digraph<std::string>;

std::string traceOf(const Graph& graph) {
    Trace trace;
    graph.traverseDepthFirst(trace);
    return trace.text;
}

std::string orderOf(const Graph& graph) {
    const auto order = graph.inReversePostOrder(); // outlives the loop over what it holds
    std::string text;
    for (const std::string& node : *order) {
        text += (text.empty() ? "" : " ") + node;
    }
    return text;
}

std::string successorsOf(const Graph& graph, const std::string& node) {
    std::string text;
    for (const std::string& successor : graph.successors(node)) {
        text += (text.empty() ? "" : " ") + successor;
    }
    return text;
}

/// The nodes first, in the order given, then the edges, each written as "ab" for a to b.
Graph graphOf(const std::string& nodes, const std::vector<std::string>& edges) {
    Graph graph;
    for (const char node : nodes)
        graph.addNode(std::string(1, node));
    for (const std::string& edge : edges)
        graph.addEdge(edge.substr(0, 1), edge.substr(1, 1));
    return graph;
}

TEST(Digraph, EmptyGraphMakesNoCallAndHasAnEmptyOrder) {
    const Graph graph;
    EXPECT_EQ(traceOf(graph), "");
    const std::shared_ptr<std::vector<std::string>> order = graph.inReversePostOrder();
    ASSERT_NE(order, nullptr);
    EXPECT_TRUE(order->empty());
}

TEST(Digraph, IsolatedNodesAreRootsInAscendingOrder) {
    const Graph graph = graphOf("abc", {});
    EXPECT_EQ(traceOf(graph), "+a -a +b -b +c -c");
    EXPECT_EQ(orderOf(graph), "c b a");
}

TEST(Digraph, HighestSuccessorIsEnteredFirst) {
    const Graph graph = graphOf("abc", {"ab", "ac"});
    EXPECT_EQ(traceOf(graph), "+a +c -c +b -b -a");
    EXPECT_EQ(orderOf(graph), "a b c");
}

TEST(Digraph, OrderOfEdgesDoesNotMatter) {
    EXPECT_EQ(traceOf(graphOf("abc", {"ac", "ab"})), "+a +c -c +b -b -a");
    EXPECT_EQ(successorsOf(graphOf("abcd", {"ad", "ab", "ac"}), "a"), "b c d");
}

TEST(Digraph, NodePushedTwiceIsLeftOnce) {
    const Graph graph = graphOf("abc", {"ab", "ac", "cb"});
    EXPECT_EQ(traceOf(graph), "+a +c +b -b -c -a");
    EXPECT_EQ(orderOf(graph), "a c b");
}

TEST(Digraph, NodePushedByManyIsEnteredFromItsTopmostCopy) {
    // e stands on the stack four times before it is entered, from d.
    const Graph graph = graphOf("abcde", {"ae", "ab", "ac", "ad", "be", "ce", "de", "db", "bc"});
    EXPECT_EQ(traceOf(graphOf("aebcd", {"ae", "ab", "ac", "ad", "be", "ce", "de", "dc", "cb"})),
              "+a +d +c +b +e -e -b -c -d -a");
    EXPECT_EQ(traceOf(graph), "+a +e -e +d +b +c -c -b -d -a");
    EXPECT_EQ(orderOf(graph), "a d b c e");
}

TEST(Digraph, CycleIsEnteredAtItsLowestNode) {
    const Graph graph = graphOf("ab", {"ab", "ba"});
    EXPECT_EQ(traceOf(graph), "+a +b -b -a");
    EXPECT_EQ(orderOf(graph), "a b");
    EXPECT_EQ(orderOf(graphOf("ba", {"ab", "ba"})), "b a");
    EXPECT_EQ(traceOf(graphOf("abc", {"ab", "bc", "ca"})), "+a +b +c -c -b -a");
}

TEST(Digraph, SelfEdgeIsEnteredAndLeftOnce) {
    Graph graph = graphOf("a", {"aa"});
    EXPECT_EQ(traceOf(graph), "+a -a");
    EXPECT_EQ(orderOf(graph), "a");
    EXPECT_EQ(successorsOf(graph, "a"), "a");
    graph = graphOf("abc", {"aa", "ab", "bb", "ba", "ac"});
    EXPECT_EQ(traceOf(graph), "+a +c -c +b -b -a");
}

TEST(Digraph, LaterRootReachesNothingAgain) {
    const Graph graph = graphOf("abcd", {"ba", "bc", "db", "cd"});
    EXPECT_EQ(traceOf(graph), "+a -a +b +c +d -d -c -b");
    EXPECT_EQ(orderOf(graph), "b c d a");
}

TEST(Digraph, EdgeBringsItsEndsWithItSourceFirst) {
    Graph graph;
    graph.addEdge("b", "a");
    EXPECT_EQ(traceOf(graph), "+b +a -a -b");
    graph.addEdge("c", "c");
    EXPECT_EQ(traceOf(graph), "+b +a -a -b +c -c");
    EXPECT_EQ(orderOf(graph), "c b a");
}

TEST(Digraph, RepeatedEdgeChangesNothing) {
    Graph graph = graphOf("abc", {"ab", "ac"});
    for (int i = 0; i < 3; ++i) {
        graph.addEdge("a", "b");
        graph.addEdge("a", "c");
    }
    EXPECT_EQ(successorsOf(graph, "a"), "b c");
    EXPECT_EQ(graph.successors("a").size(), 2u);
    EXPECT_EQ(traceOf(graph), "+a +c -c +b -b -a");
}

TEST(Digraph, KnownNodeKeepsItsPlaceAndItsSuccessors) {
    Graph graph = graphOf("abc", {"ab"});
    graph.addNode("a");
    graph.addNode("c");
    graph.addNode("a");
    EXPECT_EQ(successorsOf(graph, "a"), "b");
    EXPECT_EQ(successorsOf(graph, "c"), "");
    graph.addEdge("c", "a");
    EXPECT_EQ(successorsOf(graph, "c"), "a");
    EXPECT_EQ(traceOf(graph), "+a +b -b -a +c -c");
}

TEST(Digraph, EachNodeHasItsOwnSuccessors) {
    const Graph graph = graphOf("dcba", {"ab", "ac", "ba", "dd"});
    EXPECT_EQ(successorsOf(graph, "a"), "c b") << "in order of first insertion";
    EXPECT_EQ(successorsOf(graph, "b"), "a");
    EXPECT_EQ(successorsOf(graph, "c"), "");
    EXPECT_EQ(successorsOf(graph, "d"), "d");
}

TEST(Digraph, SuccessorsOfUnknownNodeAreAnError) {
    Graph graph;
    expectThrows<std::invalid_argument>([&] { graph.successors("a"); }, "element not found");
    graph.addNode("b");
    expectThrows<std::invalid_argument>([&] { graph.successors("a"); }, "element not found");
    EXPECT_EQ(traceOf(graph), "+b -b") << "asking adds no node";
}

/// Throws at one of its calls.
class Failing final : public DfsCallback<std::string> {
public:
    explicit Failing(int callToFail) : left(callToFail) {}
    void preVisit(const std::string& node) override { count(node); }
    void postVisit(const std::string& node) override { count(node); }

private:
    void count(const std::string& node) {
        if (--left == 0) throw std::runtime_error("at " + node);
    }
    int left;
};

TEST(Digraph, ExceptionFromCallbackLeavesTheGraphAsItWas) {
    const Graph graph = graphOf("abcd", {"ab", "ac", "cb", "ba"});
    const char* const nodes[] = {"a", "c", "b", "b", "c", "a", "d", "d"};
    for (int call = 1; call <= 8; ++call) {
        Failing callback(call);
        expectThrows<std::runtime_error>([&] { graph.traverseDepthFirst(callback); },
                                         std::string("at ") + nodes[call - 1]);
        EXPECT_EQ(traceOf(graph), "+a +c +b -b -c -a +d -d");
    }
}

TEST(Digraph, GraphMayGrowBetweenTraversals) {
    Graph graph = graphOf("ab", {"ab"});
    EXPECT_EQ(orderOf(graph), "a b");
    graph.addEdge("b", "c");
    graph.addEdge("d", "a");
    EXPECT_EQ(orderOf(graph), "d a b c");
}

TEST(Digraph, OrderIsSharedAndNewForEachCall) {
    const Graph graph = graphOf("ab", {"ab"});
    const auto first = graph.inReversePostOrder();
    const auto second = graph.inReversePostOrder();
    static_assert(std::is_same_v<decltype(first), const std::shared_ptr<std::vector<std::string>>>);
    EXPECT_NE(first, second);
    EXPECT_EQ(*first, *second);
}

TEST(Digraph, CallbackIsAnAbstractClassWithVirtualDestructor) {
    static_assert(std::is_abstract_v<DfsCallback<int>>);
    static_assert(std::has_virtual_destructor_v<DfsCallback<int>>);
}

TEST(Digraph, NodesMayBePointers) {
    const int values[] = {0, 0, 0};
    Digraph<const int*> graph;
    graph.addEdge(&values[2], &values[0]);
    graph.addEdge(&values[2], &values[1]);
    EXPECT_EQ(*graph.inReversePostOrder(),
              std::vector<const int*>({&values[2], &values[0], &values[1]}));
}

/// The plainest depth-first search: recursive, highest successor first.
class PlainSearch {
public:
    PlainSearch(int count, const std::vector<std::set<int>>& edgesToUse)
        : edges(edgesToUse), visited(static_cast<std::size_t>(count)) {
        for (int root = 0; root < count; ++root)
            visit(root);
    }

    std::vector<int> calls; // n + 1 for entering node n, -(n + 1) for leaving it
    std::vector<int> postOrder;

private:
    void visit(int node) {
        const auto index = static_cast<std::size_t>(node);
        if (visited[index]) return;
        visited[index] = true;
        calls.push_back(node + 1);
        for (auto next = edges[index].rbegin(); next != edges[index].rend(); ++next)
            visit(*next);
        calls.push_back(-(node + 1));
        postOrder.push_back(node);
    }

    const std::vector<std::set<int>>& edges;
    std::vector<bool> visited;
};

class CallRecorder final : public DfsCallback<int> {
public:
    void preVisit(const int& node) override { calls.push_back(node + 1); }
    void postVisit(const int& node) override { calls.push_back(-(node + 1)); }
    std::vector<int> calls;
};

TEST(DigraphRandom, TraversalAgreesWithPlainRecursion) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < rounds(2000); ++round) {
        const auto count = static_cast<int>(random.between(1, random.oneIn(10) ? 200 : 15));
        const auto below = [&] {
            return static_cast<int>(random.below(static_cast<std::size_t>(count)));
        };
        Digraph<int> graph;
        for (int node = 0; node < count; ++node)
            graph.addNode(node);
        std::vector<std::set<int>> edges(static_cast<std::size_t>(count));
        for (std::size_t left = random.below(static_cast<std::size_t>(3 * count)); left > 0;
             --left) {
            const int from = below();
            const int to = below();
            graph.addEdge(from, to);
            edges[static_cast<std::size_t>(from)].insert(to);
        }
        const PlainSearch plain(count, edges);
        CallRecorder recorder;
        graph.traverseDepthFirst(recorder);
        ASSERT_EQ(recorder.calls, plain.calls) << "round " << round;
        ASSERT_EQ(*graph.inReversePostOrder(),
                  std::vector<int>(plain.postOrder.rbegin(), plain.postOrder.rend()));
        for (int node = 0; node < count; ++node) {
            std::vector<int> successors;
            for (const int successor : graph.successors(node))
                successors.push_back(successor);
            const std::set<int>& expected = edges[static_cast<std::size_t>(node)];
            ASSERT_EQ(successors, std::vector<int>(expected.begin(), expected.end()));
        }
    }
}

TEST(DigraphLarge, ChainOfAMillionNodesIsOrderedWithoutRecursion) {
    const int length = static_cast<int>(rounds(1000000));
    Digraph<int> graph;
    for (int node = 0; node + 1 < length; ++node)
        graph.addEdge(node, node + 1);
    const auto order = graph.inReversePostOrder();
    ASSERT_EQ(order->size(), static_cast<std::size_t>(length));
    for (int node = 0; node < length; ++node) {
        ASSERT_EQ((*order)[static_cast<std::size_t>(node)], node);
    }
}

TEST(DigraphLarge, NodesWithoutEdgesCostNoSearchForEachRoot) {
    const int count = 400000;
    Digraph<int> graph;
    for (int node = 0; node < count; ++node)
        graph.addNode(node);
    const auto order = graph.inReversePostOrder();
    ASSERT_EQ(order->size(), static_cast<std::size_t>(count));
    EXPECT_EQ(order->front(), count - 1);
    EXPECT_EQ(order->back(), 0);
}

TEST(DigraphLarge, EveryNodePushedByEveryOtherIsVisitedOnce) {
    constexpr int COUNT = 300;
    Digraph<int> graph;
    for (int from = 0; from < COUNT; ++from) {
        for (int to = 0; to < COUNT; ++to)
            graph.addEdge(from, to);
    }
    CallRecorder recorder;
    graph.traverseDepthFirst(recorder);
    EXPECT_EQ(recorder.calls.size(), 2u * COUNT);
    const auto order = graph.inReversePostOrder();
    EXPECT_EQ(order->front(), 0);
    EXPECT_EQ((*order)[1], COUNT - 1);
    EXPECT_EQ(order->back(), 1);
}

} // namespace
} // namespace zt::orvex::flow
