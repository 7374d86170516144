#include <zt_orvex_kit/reasons/CheckExplanation.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zt::orvex::kit {

namespace {

/// What one node does to the variable, straight from its accesses.
class Look {
public:
    Look(const FlowGraph& in, const SymbolView& of)
        : graph(in), index(in.universe().indexOrSize(of)) {}

    bool knowsSymbol() const { return index < graph.variableCount(); }

    bool has(FlowNode node, LivenessEffect effect) const {
        for (const Access& access : graph.accesses(node)) {
            if (access.index == index && effectOf(access) == effect) return true;
        }
        return false;
    }
    bool reads(FlowNode node) const { return has(node, LivenessEffect::MakesLive); }
    bool writesWhole(FlowNode node) const { return has(node, LivenessEffect::EndsLiveness); }

    /// Whether the node has this very access to the variable.
    bool hasAccess(FlowNode node, const boost::optional<Access>& claimed) const {
        if (!claimed || claimed->index != index) return false;
        for (const Access& access : graph.accesses(node)) {
            if (access.index == index && access.kind == claimed->kind &&
                access.identifier == claimed->identifier) {
                return true;
            }
        }
        return false;
    }
    LivenessEffect effectOf(const Access& access) const {
        return livenessEffectOf(access.kind, graph.type(), graph.mode());
    }

private:
    const FlowGraph& graph;
    std::uint64_t index;
};

bool hasEdge(const FlowGraph& graph, FlowNode from, FlowNode to) {
    for (const FlowNode next : graph.successors(from)) {
        if (next == to) return true;
    }
    return false;
}

/// Whether the nodes exist and follow each other along edges.
bool isPath(const FlowGraph& graph, const std::vector<FlowNode>& nodes) {
    if (nodes.empty()) return false;
    for (const FlowNode node : nodes) {
        if (node >= graph.size()) return false;
    }
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        if (!hasEdge(graph, nodes[i - 1], nodes[i])) return false;
    }
    return true;
}

ExplanationCheck object(const char* objection) { return {objection}; }
ExplanationCheck accept() { return {}; }

/// Whether the path ends at the read that it claims, with no whole write after its first `skipped`
/// nodes and before its last.
ExplanationCheck checkWayToRead(const Look& look, const FlowPath& path, std::size_t skipped) {
    if (path.end != PathEnd::Read) return object("The path doesn't claim to end at a read.");
    for (std::size_t i = skipped; i + 1 < path.nodes.size(); ++i) {
        if (look.writesWhole(path.nodes[i])) {
            return object("The variable is written whole before the read.");
        }
    }
    if (!look.hasAccess(path.nodes.back(), path.access)) {
        return object("The last node of the path doesn't have the read.");
    }
    if (look.effectOf(*path.access) != LivenessEffect::MakesLive) {
        return object("The access at the end of the path doesn't make the variable live.");
    }
    return accept();
}

ExplanationCheck checkReadOnAPath(const FlowGraph& graph, const Look& look, const FlowPath& path) {
    if (!isPath(graph, path.nodes)) return object("The nodes aren't a path.");
    if (path.nodes.front() != graph.entry()) return object("The path doesn't begin at the entry.");
    return checkWayToRead(look, path, 0);
}

/// Which nodes some path from the entry comes to, if paths end at nodes for which `stops` holds.
template <typename Stops>
std::vector<bool> reachedNodes(const FlowGraph& graph, Stops stops) {
    std::vector<bool> isReached(graph.size());
    std::vector<FlowNode> waiting{graph.entry()};
    isReached[graph.entry()] = true;
    while (!waiting.empty()) {
        const FlowNode node = waiting.back();
        waiting.pop_back();
        if (stops(node)) continue;
        for (const FlowNode next : graph.successors(node)) {
            if (isReached[next]) continue;
            isReached[next] = true;
            waiting.push_back(next);
        }
    }
    return isReached;
}

ExplanationCheck checkWrittenFirst(const FlowGraph& graph, const Look& look,
                                   const std::vector<FlowNode>& writes) {
    std::vector<bool> isWrite(graph.size());
    for (const FlowNode node : writes) {
        if (node >= graph.size() || !look.writesWhole(node)) {
            return object("A node doesn't write the variable whole.");
        }
        isWrite[node] = true;
    }
    const std::vector<bool> isReached =
        reachedNodes(graph, [&](FlowNode node) { return isWrite[node]; });
    for (FlowNode node = 0; node < graph.size(); ++node) {
        if (isReached[node] && look.reads(node)) {
            return object("A path comes to a read by none of the writes.");
        }
        if (isWrite[node] && !isReached[node]) {
            return object("No path comes to one of the writes first.");
        }
    }
    return accept();
}

ExplanationCheck checkReadOnEveryPath(const FlowGraph& graph, const Look& look,
                                      const std::vector<RankedNode>& ranked) {
    constexpr std::uint64_t NONE = ~std::uint64_t{0};
    std::vector<std::uint64_t> ranks(graph.size(), NONE);
    for (const RankedNode& row : ranked) {
        if (row.node >= graph.size()) return object("A node isn't in the graph.");
        if (ranks[row.node] != NONE) return object("A node has two ranks.");
        ranks[row.node] = row.rank;
    }
    if (ranks[graph.entry()] == NONE) return object("The entry has no rank.");
    for (const RankedNode& row : ranked) {
        if (row.rank == 0) {
            if (!look.reads(row.node)) return object("A node of rank 0 doesn't read for certain.");
            continue;
        }
        if (look.writesWhole(row.node)) return object("The variable is written before the read.");
        if (graph.successors(row.node).empty()) return object("A path ends without a read.");
        for (const FlowNode next : graph.successors(row.node)) {
            if (ranks[next] >= row.rank) {
                return object("A successor has no rank, or one that isn't lower.");
            }
        }
    }
    return accept();
}

ExplanationCheck checkNotReadOnAPath(const FlowGraph& graph, const Look& look,
                                     const FlowPath& path) {
    const std::vector<FlowNode>& nodes = path.nodes;
    if (!isPath(graph, nodes)) return object("The nodes aren't a path.");
    if (nodes.front() != graph.entry()) return object("The path doesn't begin at the entry.");
    for (const FlowNode node : nodes) {
        if (look.reads(node)) return object("A node of the path reads for certain.");
    }
    for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
        if (look.writesWhole(nodes[i])) return object("The path goes on after a write.");
    }
    switch (path.end) {
    case PathEnd::Write:
        if (!look.hasAccess(nodes.back(), path.access) ||
            look.effectOf(*path.access) != LivenessEffect::EndsLiveness) {
            return object("The last node of the path doesn't have the write.");
        }
        return accept();
    case PathEnd::Exit:
        if (!graph.successors(nodes.back()).empty()) {
            return object("The path doesn't end at the exit.");
        }
        return accept();
    case PathEnd::Loop:
        for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
            if (nodes[i] == nodes.back()) return accept();
        }
        return object("The path doesn't come round.");
    case PathEnd::Read:
        break;
    }
    return object("The path claims to end at a read.");
}

ExplanationCheck checkReason(const FlowGraph& graph, const Look& look,
                             const Explanation& explanation) {
    const bool isMay = graph.type() == flow::AnalysisTypeView::May;
    const auto proves = [&](bool ofMay, bool live) {
        return isMay == ofMay && explanation.isLive == live;
    };
    constexpr const char* WRONG_KIND = "A reason of this kind doesn't prove the verdict.";
    switch (explanation.kind) {
    case ReasonKind::ReadOnAPath:
        if (!proves(true, true)) return object(WRONG_KIND);
        return checkReadOnAPath(graph, look, explanation.path);
    case ReasonKind::WrittenFirst:
        if (!proves(true, false)) return object(WRONG_KIND);
        return checkWrittenFirst(graph, look, explanation.writes);
    case ReasonKind::ReadOnEveryPath:
        if (!proves(false, true)) return object(WRONG_KIND);
        return checkReadOnEveryPath(graph, look, explanation.ranks);
    case ReasonKind::NotReadOnAPath:
        if (!proves(false, false)) return object(WRONG_KIND);
        return checkNotReadOnAPath(graph, look, explanation.path);
    }
    return object(WRONG_KIND);
}

/// Whether the path begins at a write to which some path comes.
ExplanationCheck checkWriteAtBeginning(const FlowGraph& graph, const Look& look,
                                       const std::vector<FlowNode>& nodes,
                                       const boost::optional<Access>& write) {
    if (graph.type() != flow::AnalysisTypeView::May) {
        return object("The graph isn't one of type May.");
    }
    if (!isPath(graph, nodes)) return object("The nodes from the write aren't a path.");
    const std::vector<bool> isReached = reachedNodes(graph, [](FlowNode) { return false; });
    if (!isReached[nodes.front()]) return object("No path comes to the write.");
    if (!look.hasAccess(nodes.front(), write) || !isWrite(write->kind) ||
        look.effectOf(*write) == LivenessEffect::None) {
        return object("The first node doesn't have the write.");
    }
    return accept();
}

/// Whether the path leads from the write to the exit, with no whole write after the first node.
ExplanationCheck checkWriteToExit(const FlowGraph& graph, const Look& look, const FlowPath& path) {
    const ExplanationCheck write = checkWriteAtBeginning(graph, look, path.nodes, path.access);
    if (!write.isProof()) return write;
    for (std::size_t i = 1; i < path.nodes.size(); ++i) {
        if (look.writesWhole(path.nodes[i])) return object("The value is overwritten.");
    }
    if (path.end != PathEnd::Exit || path.nodes.back() != graph.exit()) {
        return object("The value doesn't reach the exit.");
    }
    return accept();
}

bool concerns(const Look& look, const SymbolView& symbol, const SymbolView& claimed) {
    return look.knowsSymbol() && symbol == claimed;
}

constexpr const char* ANOTHER_SYMBOL = "The reason is about another symbol, or the graph lacks it.";

/// Whether the path begins at a write inside the construct, and leaves it.
ExplanationCheck checkWayOut(const FlowGraph& construct, const FlowGraph& around,
                             const SymbolView& symbol, const ValueUsedAfter& reason) {
    const Look look(around, symbol);
    if (!concerns(look, symbol, reason.symbol) ||
        !concerns(Look(construct, symbol), symbol, reason.symbol)) {
        return object(ANOTHER_SYMBOL);
    }
    const std::vector<FlowNode>& nodes = reason.path.nodes;
    const ExplanationCheck write = checkWriteAtBeginning(around, look, nodes, reason.write);
    if (!write.isProof()) return write;
    const auto isInside = [&](FlowNode node) {
        return !around.isPseudoNode(node) && construct.find(around.nodeAt(node));
    };
    if (!isInside(nodes.front())) return object("The write isn't inside the construct.");
    if (std::all_of(nodes.begin(), nodes.end(), isInside)) {
        return object("The path doesn't leave the construct.");
    }
    return accept();
}

} // namespace

ExplanationCheck checkExplanation(const FlowGraph& graph, const SymbolView& symbol,
                                  const Explanation& explanation) {
    const Look look(graph, symbol);
    if (!concerns(look, symbol, explanation.symbol)) return object(ANOTHER_SYMBOL);
    return checkReason(graph, look, explanation);
}

ExplanationCheck checkCarried(const FlowGraph& body, const SymbolView& symbol,
                              const CarriedValue& reason) {
    const Look look(body, symbol);
    if (!concerns(look, symbol, reason.symbol)) return object(ANOTHER_SYMBOL);
    const ExplanationCheck write = checkWriteToExit(body, look, reason.write);
    return write.isProof() ? checkReadOnAPath(body, look, reason.read) : write;
}

ExplanationCheck checkUsedAfter(const FlowGraph& construct, const FlowGraph& around,
                                const SymbolView& symbol, const ValueUsedAfter& reason) {
    const ExplanationCheck wayOut = checkWayOut(construct, around, symbol, reason);
    if (!wayOut.isProof()) return wayOut;
    return checkWayToRead(Look(around, symbol), reason.path, 1);
}

ExplanationCheck checkReachesExit(const FlowGraph& construct, const FlowGraph& around,
                                  const SymbolView& symbol, const ValueUsedAfter& reason) {
    const ExplanationCheck wayOut = checkWayOut(construct, around, symbol, reason);
    if (!wayOut.isProof()) return wayOut;
    FlowPath path = reason.path;
    path.access = reason.write;
    return checkWriteToExit(around, Look(around, symbol), path);
}

} // namespace zt::orvex::kit
