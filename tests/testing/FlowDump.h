#pragma once

#include "analysis/Liveness.h"
#include "testing/FakeAst.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::testing {

/// Reads the edges of the control flow back from the equations of an analysis: I leads to S if the
/// equation of liveOut(I) reads liveIn(S). Nodes go by the names given with `name`, or else by
/// their labels.
class FlowDump {
public:
    using Liveness = flow::internal::Liveness;
    using Handle = std::uint64_t;

    explicit FlowDump(const Liveness& of) : liveness(of) {
        for (const Liveness::NodeVariables& node : liveness.nodes()) {
            owners[node.liveIn] = node.node;
            names[node.node.node] = label(node.node);
        }
    }

    void name(const NodeView& node, const std::string& as) { names[node.node] = as; }

    std::set<std::pair<Handle, Handle>> getEdges() const {
        std::set<std::pair<Handle, Handle>> edges;
        for (const Liveness::NodeVariables& node : liveness.nodes())
            for (const NodeView& successor : successorsOf(node))
                edges.emplace(node.node.node, successor.node);
        return edges;
    }

    /// One text like "I -> S" for each edge, sorted.
    std::vector<std::string> describeEdges() const {
        std::vector<std::string> edges;
        for (const Liveness::NodeVariables& node : liveness.nodes())
            for (const NodeView& successor : successorsOf(node))
                edges.push_back(names.at(node.node.node) + " -> " + names.at(successor.node));
        std::sort(edges.begin(), edges.end());
        return edges;
    }

    /// The right-hand side of liveOut(node), as "liveIn(S) & liveIn(T)"; empty without an equation.
    std::string describeMerge(const NodeView& at) const {
        for (const Liveness::NodeVariables& node : liveness.nodes())
            if (node.node == at) return describeMergeOf(node);
        return "not a node of the flow";
    }

private:
    using Variable = flow::Variable<Liveness::Value>;
    using Term = flow::Term<Liveness::Value>;

    std::vector<NodeView> readBy(Term& term) const {
        flow::DependencySet<Liveness::Value> read;
        term.collectDependencies(read);
        std::vector<NodeView> nodes;
        for (Variable* variable : read)
            nodes.push_back(owners.at(variable));
        return nodes;
    }

    std::vector<NodeView> successorsOf(const Liveness::NodeVariables& node) const {
        std::vector<NodeView> successors;
        const auto* equation = liveness.equations().equationOf(node.liveOut);
        if (equation == nullptr) return successors;
        for (Term* term : equation->rightHandSide)
            for (const NodeView& successor : readBy(*term))
                successors.push_back(successor);
        return successors;
    }

    std::string describeMergeOf(const Liveness::NodeVariables& node) const {
        std::string text;
        const auto* equation = liveness.equations().equationOf(node.liveOut);
        if (equation == nullptr) return text;
        for (Term* term : equation->rightHandSide) {
            if (dynamic_cast<flow::Join<Liveness::Value>*>(term) != nullptr) text += " U ";
            if (dynamic_cast<flow::Meet<Liveness::Value>*>(term) != nullptr) text += " & ";
            if (dynamic_cast<flow::Minus<Liveness::Value>*>(term) != nullptr) text += " - ";
            for (const NodeView& read : readBy(*term))
                text += "liveIn(" + names.at(read.node) + ")";
        }
        return text;
    }

    const Liveness& liveness;
    std::map<const Variable*, NodeView> owners;
    std::map<Handle, std::string> names;
};

} // namespace zt::orvex::testing
