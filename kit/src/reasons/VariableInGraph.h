#pragma once

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex_kit/body/FlowGraph.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <stdexcept>

namespace zt::orvex::kit::internal {

/// What the nodes of a graph do to one variable.
class VariableInGraph {
public:
    /// Throws std::invalid_argument("element not found") for a symbol that the graph doesn't know.
    VariableInGraph(const FlowGraph& in, const SymbolView& symbol)
        : graph(in), index(in.universe().indexOf(symbol)) {
        if (index >= graph.variableCount()) throw std::invalid_argument("element not found");
    }

    bool isRead(FlowNode node) const { return graph.makesLive(node, index); }
    bool endsLiveness(FlowNode node) const { return graph.endsLiveness(node, index); }
    bool isLiveAtEntry() const { return graph.isLiveBefore(graph.entry(), index); }

    boost::optional<Access> accessWith(FlowNode node, LivenessEffect effect) const {
        const Access* const access = graph.findAccess(node, index, effect);
        return access == nullptr ? boost::optional<Access>() : *access;
    }

    /// The first access that makes the variable live and for which `isChosen` holds.
    template <typename IsChosen>
    boost::optional<Access> firstRead(FlowNode node, IsChosen isChosen) const {
        if (!isRead(node)) return boost::none;
        return first(node, [&](const Access& access) {
            return effectOf(access) == LivenessEffect::MakesLive && isChosen(access);
        });
    }

    /// The first write of the variable, whole or partial, that has any effect and for which
    /// `isChosen` holds.
    template <typename IsChosen>
    boost::optional<Access> firstWrite(FlowNode node, IsChosen isChosen) const {
        return first(node, [&](const Access& access) {
            return isWrite(access.kind) && effectOf(access) != LivenessEffect::None &&
                   isChosen(access);
        });
    }

    boost::optional<Access> firstWrite(FlowNode node) const {
        return firstWrite(node, [](const Access&) { return true; });
    }

private:
    template <typename IsWanted>
    boost::optional<Access> first(FlowNode node, IsWanted isWanted) const {
        for (const Access& access : graph.accesses(node)) {
            if (access.index == index && isWanted(access)) return access;
        }
        return boost::none;
    }

    LivenessEffect effectOf(const Access& access) const {
        return livenessEffectOf(access.kind, graph.type(), graph.mode());
    }

    const FlowGraph& graph;
    std::uint64_t index;
};

} // namespace zt::orvex::kit::internal
