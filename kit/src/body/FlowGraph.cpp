#include <zt_orvex_kit/body/FlowGraph.h>

#include "analysis/ControlFlow.h"
#include "analysis/HeadEffects.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace zt::orvex::kit {

namespace {

FlowNode checkedNumber(std::size_t number) {
    if (number >= std::numeric_limits<FlowNode>::max()) {
        throw std::length_error("too many flow nodes");
    }
    return static_cast<FlowNode>(number);
}

} // namespace

/// A sink of the library's control flow and head effects that writes them down.
class FlowGraph::Recorder {
public:
    using Node = FlowNode;

    Recorder(FlowGraph& into, const std::unordered_set<SymbolView>& subscriptVariables)
        : graph(into), effects(*graph.symbols, graph.analysisMode, subscriptVariables, *this) {}

    Node addNode(const NodeView& view) {
        const Node node = addPseudoNode(view);
        effects.report(view);
        return node;
    }

    Node addPseudoNode(const NodeView& view) {
        const Node node = checkedNumber(graph.nodes.size());
        if (graph.nodes.add(view) != node) {
            throw std::invalid_argument(
                "A node occurs at two places of the tree, or is the entry or exit node, too");
        }
        graph.accessBegin.push_back(checkedNumber(graph.allAccesses.size()));
        return node;
    }

    void addEdge(Node from, Node to) { edges.emplace_back(from, to); }

    void record(const flow::internal::Effect& effect) {
        graph.allAccesses.push_back(
            {static_cast<AccessKind>(effect.kind), effect.identifier, effect.symbol, effect.index});
    }

    void finish() {
        graph.accessBegin.push_back(checkedNumber(graph.allAccesses.size()));
        // Reversing sorts, so the second reversal gives sorted successors.
        graph.backward = reversed(grouped());
        graph.forward = reversed(graph.backward);
    }

private:
    /// The successors of each node, in the order of report.
    Neighbours grouped() const {
        Neighbours made = withRoom();
        for (const auto& [from, to] : edges)
            ++made.begin[from + 1];
        std::partial_sum(made.begin.begin(), made.begin.end(), made.begin.begin());
        std::vector<std::uint32_t> next(made.begin);
        for (const auto& [from, to] : edges)
            made.all[next[from]++] = to;
        return made;
    }

    /// The same edges, turned around, with the neighbours of each node ascending.
    Neighbours reversed(const Neighbours& neighbours) const {
        Neighbours made = withRoom();
        for (const FlowNode to : neighbours.all)
            ++made.begin[to + 1];
        std::partial_sum(made.begin.begin(), made.begin.end(), made.begin.begin());
        std::vector<std::uint32_t> next(made.begin);
        for (FlowNode from = 0; from < graph.size(); ++from) {
            for (const FlowNode to : neighbours.of(from))
                made.all[next[to]++] = from;
        }
        return made;
    }

    Neighbours withRoom() const {
        Neighbours made;
        made.begin.resize(std::size_t{graph.size()} + 1);
        made.all.resize(checkedNumber(edges.size()));
        return made;
    }

    FlowGraph& graph;
    flow::internal::HeadEffects<Recorder> effects;
    std::vector<std::pair<FlowNode, FlowNode>> edges;
};

FlowGraph::FlowGraph(const flow::OrderedSet<SymbolView>& universe,
                     const StatementRangeView& statements, flow::AnalysisTypeView type,
                     flow::AnalysisModeView mode,
                     const std::unordered_set<SymbolView>& subscriptVariables)
    : symbols(&universe), knownVariables(universe.size()), wordCount((knownVariables + 63) / 64),
      analysisType(type), analysisMode(mode) {
    Recorder recorder(*this, subscriptVariables);
    flow::internal::ControlFlow(statements, recorder).report();
    recorder.finish();
    makeRows();
    solve();
}

void FlowGraph::makeRows() {
    gen.resize(size() * wordCount);
    kill.resize(size() * wordCount);
    for (FlowNode node = 0; node < size(); ++node) {
        for (const Access& access : accesses(node)) {
            const LivenessEffect effect = livenessEffectOf(access.kind, analysisType, analysisMode);
            if (effect == LivenessEffect::None) continue;
            Rows& rows = effect == LivenessEffect::MakesLive ? gen : kill;
            rows[node * wordCount + access.index / 64] |= std::uint64_t{1} << (access.index % 64);
        }
    }
}

/// Starts at the empty set and only ever adds, in any order: the least solution, which is unique.
/// Nodes after which control goes on come before those from which it comes, so that a sweep carries
/// what is live through everything but the back edges of loops.
void FlowGraph::solve() {
    liveIn = gen;
    const std::vector<FlowNode> order = postOrder();
    std::vector<std::uint64_t> after(wordCount);
    for (bool hasChanged = true; hasChanged;) {
        hasChanged = false;
        for (const FlowNode node : order) {
            mergeSuccessors(node, after.data());
            const std::size_t row = node * wordCount;
            for (std::size_t word = 0; word < wordCount; ++word) {
                const std::uint64_t before = (after[word] & ~kill[row + word]) | gen[row + word];
                hasChanged = hasChanged || before != liveIn[row + word];
                liveIn[row + word] = before;
            }
        }
    }
}

/// Of a depth-first search along the successors, first from the entry, then from what it left out.
std::vector<FlowNode> FlowGraph::postOrder() const {
    struct Visit {
        FlowNode node;
        std::uint32_t nextSuccessor;
    };
    std::vector<FlowNode> order;
    order.reserve(size());
    std::vector<bool> isSeen(size());
    std::vector<Visit> stack;
    const auto enter = [&](FlowNode node) {
        if (isSeen[node]) return;
        isSeen[node] = true;
        stack.push_back({node, 0});
    };
    for (FlowNode root = 0; root < size(); ++root) {
        enter(root);
        while (!stack.empty()) {
            Visit& top = stack.back();
            const Span<FlowNode> next = successors(top.node);
            if (top.nextSuccessor < next.size()) {
                enter(next[top.nextSuccessor++]);
            } else {
                order.push_back(top.node);
                stack.pop_back();
            }
        }
    }
    return order;
}

/// What is live after a node. Nothing is, where it has no successor.
void FlowGraph::mergeSuccessors(FlowNode node, std::uint64_t* into) const {
    const Span<FlowNode> next = successors(node);
    if (next.empty()) {
        std::fill_n(into, wordCount, 0);
        return;
    }
    const auto rowOf = [this](FlowNode of) { return liveIn.data() + of * wordCount; };
    std::copy_n(rowOf(next[0]), wordCount, into);
    for (std::size_t i = 1; i < next.size(); ++i) {
        const std::uint64_t* const row = rowOf(next[i]);
        for (std::size_t word = 0; word < wordCount; ++word) {
            if (analysisType == flow::AnalysisTypeView::Must) {
                into[word] &= row[word];
            } else {
                into[word] |= row[word];
            }
        }
    }
}

boost::optional<FlowNode> FlowGraph::find(const NodeView& node) const {
    const std::uint64_t index = nodes.indexOrSize(node);
    if (index == nodes.size()) return boost::none;
    return static_cast<FlowNode>(index);
}

const Access* FlowGraph::findAccess(FlowNode node, std::uint64_t index,
                                    LivenessEffect effect) const {
    for (const Access& access : accesses(node)) {
        if (access.index == index &&
            livenessEffectOf(access.kind, analysisType, analysisMode) == effect) {
            return &access;
        }
    }
    return nullptr;
}

bool FlowGraph::isLiveAfter(FlowNode node, std::uint64_t index) const {
    const Span<FlowNode> next = successors(node);
    const auto isLive = [&](FlowNode successor) { return isLiveBefore(successor, index); };
    if (analysisType == flow::AnalysisTypeView::May) {
        return std::any_of(next.begin(), next.end(), isLive);
    }
    return !next.empty() && std::all_of(next.begin(), next.end(), isLive);
}

std::unordered_set<SymbolView> FlowGraph::liveAtEntry() const {
    return symbolsOf(liveIn.data() + entry() * wordCount);
}

std::unordered_set<SymbolView> FlowGraph::liveBefore(const NodeView& statement) const {
    return symbolsOf(liveIn.data() + require(statement) * wordCount);
}

std::unordered_set<SymbolView> FlowGraph::liveAfter(const NodeView& statement) const {
    std::vector<std::uint64_t> row(wordCount);
    mergeSuccessors(require(statement), row.data());
    return symbolsOf(row.data());
}

FlowNode FlowGraph::require(const NodeView& statement) const {
    const boost::optional<FlowNode> node = find(statement);
    if (!node) throw std::invalid_argument("The node is not a flow node of this graph");
    return *node;
}

std::unordered_set<SymbolView> FlowGraph::symbolsOf(const std::uint64_t* row) const {
    std::unordered_set<SymbolView> members;
    for (std::uint64_t index = 0; index < knownVariables; ++index) {
        if ((row[index / 64] >> (index % 64) & 1) != 0) members.insert(symbols->elementAt(index));
    }
    return members;
}

} // namespace zt::orvex::kit
