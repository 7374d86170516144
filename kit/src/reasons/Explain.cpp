#include <zt_orvex_kit/reasons/Explain.h>

#include "reasons/Distances.h"
#include "reasons/VariableInGraph.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <utility>
#include <vector>

namespace zt::orvex::kit {

namespace {

using internal::Distances;
using internal::VariableInGraph;

/// How far each node is from a read, by paths without a whole write.
Distances distancesToRead(const FlowGraph& graph, const VariableInGraph& variable) {
    return {graph, [&](FlowNode node) { return variable.isRead(node); },
            [&](FlowNode node) { return !variable.endsLiveness(node); }};
}

FlowPath endedByRead(std::vector<FlowNode> nodes, const VariableInGraph& variable) {
    const FlowNode last = nodes.back();
    return {std::move(nodes), PathEnd::Read, variable.accessWith(last, LivenessEffect::MakesLive)};
}

void addReadOnAPath(const FlowGraph& graph, const VariableInGraph& variable, Explanation& to) {
    to.kind = ReasonKind::ReadOnAPath;
    to.path = endedByRead(distancesToRead(graph, variable).pathFrom(graph.entry()), variable);
}

/// Which nodes some path from the entry reaches, if paths end at nodes for which `goesOn` fails.
template <typename GoesOn>
std::vector<bool> reachableNodes(const FlowGraph& graph, GoesOn goesOn) {
    std::vector<bool> isReached(graph.size());
    std::vector<FlowNode> reached{graph.entry()};
    isReached[graph.entry()] = true;
    for (std::size_t i = 0; i < reached.size(); ++i) {
        if (!goesOn(reached[i])) continue;
        for (const FlowNode next : graph.successors(reached[i])) {
            if (isReached[next]) continue;
            isReached[next] = true;
            reached.push_back(next);
        }
    }
    return isReached;
}

std::vector<bool> reachableNodes(const FlowGraph& graph) {
    return reachableNodes(graph, [](FlowNode) { return true; });
}

/// The first whole writes on the paths from the entry, of those after which a read may come.
void addWrittenFirst(const FlowGraph& graph, const VariableInGraph& variable, Explanation& to) {
    to.kind = ReasonKind::WrittenFirst;
    const Distances toAnyRead(
        graph, [&](FlowNode node) { return variable.isRead(node); }, [](FlowNode) { return true; });
    const auto keepsFromRead = [&](FlowNode node) {
        return variable.endsLiveness(node) && toAnyRead[node] != Distances::NONE;
    };
    const std::vector<bool> isReached =
        reachableNodes(graph, [&](FlowNode node) { return !keepsFromRead(node); });
    for (FlowNode node = 0; node < graph.size(); ++node) {
        if (isReached[node] && keepsFromRead(node)) to.writes.push_back(node);
    }
}

constexpr std::uint32_t UNRANKED = Distances::NONE;

/// The round in which the solution reaches each node, if each round looks at what the round before
/// has left.
std::vector<std::uint32_t> ranksOf(const FlowGraph& graph, const VariableInGraph& variable) {
    std::vector<std::uint32_t> ranks(graph.size(), UNRANKED);
    std::vector<std::size_t> unranked(graph.size()); // how many of the successors
    std::vector<FlowNode> ranked;                    // in order of rank
    for (FlowNode node = 0; node < graph.size(); ++node) {
        unranked[node] = graph.successors(node).size();
        if (!variable.isRead(node)) continue;
        ranks[node] = 0;
        ranked.push_back(node);
    }
    for (std::size_t i = 0; i < ranked.size(); ++i) {
        for (const FlowNode before : graph.predecessors(ranked[i])) {
            if (--unranked[before] != 0 || ranks[before] != UNRANKED) continue;
            if (variable.endsLiveness(before)) continue;
            ranks[before] = ranks[ranked[i]] + 1;
            ranked.push_back(before);
        }
    }
    return ranks;
}

/// The ranks of what control meets from the entry to the reads.
void addReadOnEveryPath(const FlowGraph& graph, const VariableInGraph& variable, Explanation& to) {
    to.kind = ReasonKind::ReadOnEveryPath;
    const std::vector<std::uint32_t> ranks = ranksOf(graph, variable);
    std::vector<bool> isMet(graph.size());
    const auto meet = [&](FlowNode node) {
        if (isMet[node]) return;
        isMet[node] = true;
        to.ranks.push_back({node, ranks[node]});
    };
    meet(graph.entry());
    for (std::size_t i = 0; i < to.ranks.size(); ++i) {
        const RankedNode met = to.ranks[i];
        if (met.rank == 0) continue;
        for (const FlowNode next : graph.successors(met.node))
            meet(next);
    }
    std::sort(to.ranks.begin(), to.ranks.end(),
              [](const RankedNode& a, const RankedNode& b) { return a.node < b.node; });
}

/// Finds the shortest path that goes round a loop for ever.
class EndlessPath {
public:
    template <typename MayPass>
    EndlessPath(const FlowGraph& in, MayPass mayPass, std::uint32_t shorterThan)
        : graph(in), length(shorterThan) {
        for (const FlowNode head : headsInOrderOfDistance(mayPass))
            tryHead(head, mayPass);
    }

    /// Empty if there is none.
    std::vector<FlowNode> nodes;

private:
    /// A shortest endless path comes round to where it entered the loop, the loop's head, to which
    /// control comes from further down in the source. So only such nodes are tried.
    bool mayBeHead(FlowNode node) const {
        const Span<FlowNode> before = graph.predecessors(node);
        return !before.empty() && before[before.size() - 1] >= node;
    }

    template <typename MayPass>
    std::vector<FlowNode> headsInOrderOfDistance(MayPass mayPass) {
        fromEntry.assign(graph.size(), Distances::NONE);
        std::vector<FlowNode> reached{graph.entry()};
        std::vector<FlowNode> heads;
        fromEntry[graph.entry()] = 0;
        for (std::size_t i = 0; i < reached.size(); ++i) {
            if (mayBeHead(reached[i])) heads.push_back(reached[i]);
            for (const FlowNode next : graph.successors(reached[i])) {
                if (fromEntry[next] != Distances::NONE || !mayPass(next)) continue;
                fromEntry[next] = fromEntry[reached[i]] + 1;
                reached.push_back(next);
            }
        }
        return heads;
    }

    template <typename MayPass>
    void tryHead(FlowNode head, MayPass mayPass) {
        if (fromEntry[head] >= length) return; // round the loop is one edge at least
        const Distances toHead(
            graph, [&](FlowNode node) { return node == head; }, mayPass, length);
        const std::uint32_t round = toHead.afterOf(head);
        if (round == Distances::NONE) return;
        const std::uint32_t lengthHere = fromEntry[head] + round + 1;
        if (lengthHere > length || (lengthHere == length && nodes.empty())) return;
        std::vector<FlowNode> here = toHead.pathFrom(graph.entry());
        toHead.appendPathAfter(head, here);
        if (lengthHere == length && nodes < here) return;
        nodes = std::move(here);
        length = lengthHere;
    }

    const FlowGraph& graph;
    std::vector<std::uint32_t> fromEntry;
    std::uint32_t length; // of `nodes`; until there are any, the first length that is too long
};

void addNotReadOnAPath(const FlowGraph& graph, const VariableInGraph& variable, Explanation& to) {
    to.kind = ReasonKind::NotReadOnAPath;
    const auto isWrite = [&](FlowNode node) {
        return variable.endsLiveness(node) && !variable.isRead(node);
    };
    const auto mayPass = [&](FlowNode node) {
        return !variable.endsLiveness(node) && !variable.isRead(node);
    };
    const Distances toEnd(
        graph, [&](FlowNode node) { return isWrite(node) || node == graph.exit(); }, mayPass);
    const std::uint32_t distance = toEnd[graph.entry()];
    EndlessPath endless(graph, mayPass, distance);
    if (!endless.nodes.empty()) {
        to.path = {std::move(endless.nodes), PathEnd::Loop, boost::none};
        return;
    }
    to.path.nodes = toEnd.pathFrom(graph.entry());
    to.path.access = variable.accessWith(to.path.nodes.back(), LivenessEffect::EndsLiveness);
    to.path.end = to.path.access ? PathEnd::Write : PathEnd::Exit;
}

void requireMay(const FlowGraph& graph) {
    if (graph.type() != flow::AnalysisTypeView::May) {
        throw std::invalid_argument("The graph is not one of type May");
    }
}

/// The shortest path from a write that control reaches to the exit, with no whole write after the
/// first node. `writeAt(node)` is the write of a node, or nothing. Without nodes if there is none.
template <typename WriteAt>
FlowPath pathFromWriteToExit(const FlowGraph& graph, const VariableInGraph& variable,
                             WriteAt writeAt) {
    const Distances toExit(
        graph, [&](FlowNode node) { return node == graph.exit(); },
        [&](FlowNode node) { return !variable.endsLiveness(node); });
    const std::vector<bool> isReachable = reachableNodes(graph);
    FlowNode nearest = graph.exit();
    for (FlowNode node = 0; node < graph.exit(); ++node) {
        if (!isReachable[node] || !writeAt(node)) continue;
        if (toExit.afterOf(node) == Distances::NONE) continue;
        const bool isNearer =
            nearest == graph.exit() || toExit.afterOf(node) < toExit.afterOf(nearest);
        if (isNearer) nearest = node;
    }
    FlowPath path;
    if (nearest == graph.exit()) return path;
    path.nodes.push_back(nearest);
    toExit.appendPathAfter(nearest, path.nodes);
    path.access = writeAt(nearest);
    return path;
}

/// The shortest path from the entry to one of the chosen reads, with no whole write before. Without
/// nodes if there is none.
template <typename IsChosen>
FlowPath pathToRead(const FlowGraph& graph, const VariableInGraph& variable, IsChosen isChosen) {
    const auto readAt = [&](FlowNode node) { return variable.firstRead(node, isChosen); };
    const Distances toRead(
        graph, [&](FlowNode node) { return readAt(node).has_value(); },
        [&](FlowNode node) { return !variable.endsLiveness(node); });
    if (toRead[graph.entry()] == Distances::NONE) return {};
    FlowPath path{toRead.pathFrom(graph.entry()), PathEnd::Read, boost::none};
    path.access = readAt(path.nodes.back());
    return path;
}

std::vector<bool> nodesInside(const FlowGraph& construct, const FlowGraph& around) {
    std::vector<bool> inside(around.size());
    for (FlowNode node = 1; node + 1 < construct.size(); ++node) {
        const boost::optional<FlowNode> found = around.find(construct.nodeAt(node));
        if (found) inside[*found] = true;
    }
    return inside;
}

/// Finds the shortest path from a write inside a construct, out of it, to a read.
class PathOutOf {
public:
    PathOutOf(const FlowGraph& construct, const FlowGraph& in, const VariableInGraph& of)
        : graph(in), variable(of), isInside(nodesInside(construct, in)),
          toRead(distancesToRead(in, of)),
          toReadOutside(in, edgesOutToRead(), [this](FlowNode node) { return maySkip(node); }) {}

    /// Without nodes if there is none.
    FlowPath find() const {
        const std::vector<bool> isReachable = reachableNodes(graph);
        FlowNode nearest = graph.exit();
        std::uint32_t length = Distances::NONE;
        for (FlowNode node = 0; node < graph.exit(); ++node) {
            if (!isInside[node] || !isReachable[node] || !variable.firstWrite(node)) continue;
            const std::uint32_t here = lengthAfter(node);
            if (here >= length) continue;
            nearest = node;
            length = here;
        }
        return length == Distances::NONE ? FlowPath() : pathFrom(nearest);
    }

private:
    bool maySkip(FlowNode node) const { return isInside[node] && !variable.endsLiveness(node); }

    /// For a node inside after which control may leave the construct: the edges from it to a read.
    std::vector<std::uint32_t> edgesOutToRead() const {
        std::vector<std::uint32_t> edges(graph.size(), Distances::NONE);
        for (FlowNode node = 0; node < graph.size(); ++node) {
            if (maySkip(node)) edges[node] = edgesOut(node);
        }
        return edges;
    }

    std::uint32_t edgesOut(FlowNode node) const {
        std::uint32_t fewest = Distances::NONE;
        for (const FlowNode next : graph.successors(node)) {
            if (isInside[next] || toRead[next] == Distances::NONE) continue;
            fewest = std::min(fewest, toRead[next] + 1);
        }
        return fewest;
    }

    /// The edges from a write to a read outside.
    std::uint32_t lengthAfter(FlowNode write) const {
        const std::uint32_t inside = toReadOutside.afterOf(write);
        return std::min(edgesOut(write), inside == Distances::NONE ? inside : inside + 1);
    }

    FlowPath pathFrom(FlowNode write) const {
        std::vector<FlowNode> nodes{write};
        for (std::uint32_t left = lengthAfter(write); isInside[nodes.back()]; --left)
            nodes.push_back(stepFrom(nodes.back(), left - 1));
        const std::vector<FlowNode> outside = toRead.pathFrom(nodes.back());
        nodes.insert(nodes.end(), outside.begin() + 1, outside.end());
        return endedByRead(std::move(nodes), variable);
    }

    /// The first successor from which a read is `left` edges away.
    FlowNode stepFrom(FlowNode node, std::uint32_t left) const {
        for (const FlowNode next : graph.successors(node)) {
            if ((isInside[next] ? toReadOutside : toRead)[next] == left) return next;
        }
        return node;
    }

    const FlowGraph& graph;
    const VariableInGraph& variable;
    std::vector<bool> isInside;
    Distances toRead;
    Distances toReadOutside; // from a node inside: to a read that comes after control has left
};

} // namespace

Explanation explain(const FlowGraph& graph, const SymbolView& symbol) {
    const VariableInGraph variable(graph, symbol);
    Explanation explanation{symbol, variable.isLiveAtEntry(), {}, {}, {}, {}};
    if (graph.type() == flow::AnalysisTypeView::May) {
        (explanation.isLive ? addReadOnAPath : addWrittenFirst)(graph, variable, explanation);
    } else {
        (explanation.isLive ? addReadOnEveryPath : addNotReadOnAPath)(graph, variable, explanation);
    }
    return explanation;
}

boost::optional<CarriedValue> explainCarried(const FlowGraph& body, const SymbolView& symbol) {
    return explainCarried(body, symbol, {});
}

boost::optional<CarriedValue> explainCarried(const FlowGraph& body, const SymbolView& symbol,
                                             const AccessChoice& among) {
    requireMay(body);
    const VariableInGraph variable(body, symbol);
    if (!variable.isLiveAtEntry()) return boost::none;
    const auto isRead = [&](const Access& access) { return !among.isRead || among.isRead(access); };
    const auto isWrite = [&](const Access& access) {
        return !among.isWrite || among.isWrite(access);
    };
    FlowPath read = pathToRead(body, variable, isRead);
    if (read.nodes.empty()) return boost::none;
    FlowPath write = pathFromWriteToExit(
        body, variable, [&](FlowNode node) { return variable.firstWrite(node, isWrite); });
    if (write.nodes.empty()) return boost::none;
    return CarriedValue{symbol, std::move(write), std::move(read)};
}

boost::optional<ValueUsedAfter>
explainUsedAfter(const FlowGraph& construct, const FlowGraph& around, const SymbolView& symbol) {
    requireMay(construct);
    requireMay(around);
    const VariableInGraph written(construct, symbol); // must know the symbol, too
    const VariableInGraph variable(around, symbol);
    FlowPath path = PathOutOf(construct, around, variable).find();
    if (path.nodes.empty()) return boost::none;
    const Access write = *variable.firstWrite(path.nodes.front());
    return ValueUsedAfter{symbol, write, std::move(path)};
}

boost::optional<ValueUsedAfter>
explainReachesExit(const FlowGraph& construct, const FlowGraph& around, const SymbolView& symbol) {
    requireMay(construct);
    requireMay(around);
    const VariableInGraph written(construct, symbol); // must know the symbol, too
    const VariableInGraph variable(around, symbol);
    const std::vector<bool> isInside = nodesInside(construct, around);
    FlowPath path = pathFromWriteToExit(around, variable, [&](FlowNode node) {
        return isInside[node] ? variable.firstWrite(node) : boost::none;
    });
    if (path.nodes.empty()) return boost::none;
    const Access write = *path.access;
    path.access = boost::none;
    return ValueUsedAfter{symbol, write, std::move(path)};
}

} // namespace zt::orvex::kit
