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

/// Reads the control flow that an analysis has laid over the statements back out of its equations.
///
/// The library builds no graph: that I leads to S stands only in the equation of liveOut(I), which
/// reads liveIn(S). Nodes go by the names given with `name`, by their label without one.
class FlowDump {
public:
    using Analysis = flow::internal::Liveness;
    using Handle = std::uint64_t;

    explicit FlowDump(const Analysis& of) : analysis(of) {
        for (const Analysis::NodeVariables& node : analysis.nodes()) {
            owners[node.liveIn] = node.node;
            names[node.node.node] = label(node.node);
        }
    }

    void name(const NodeView& node, const std::string& as) { names[node.node] = as; }

    std::set<std::pair<Handle, Handle>> getEdges() const {
        std::set<std::pair<Handle, Handle>> edges;
        for (const Analysis::NodeVariables& node : analysis.nodes())
            for (const NodeView& successor : successorsOf(node))
                edges.emplace(node.node.node, successor.node);
        return edges;
    }

    /// One text like "I -> S" for each edge, sorted.
    std::vector<std::string> describeEdges() const {
        std::vector<std::string> edges;
        for (const Analysis::NodeVariables& node : analysis.nodes())
            for (const NodeView& successor : successorsOf(node))
                edges.push_back(names.at(node.node.node) + " -> " + names.at(successor.node));
        std::sort(edges.begin(), edges.end());
        return edges;
    }

    /// The right-hand side of liveOut(node), as "liveIn(S) & liveIn(T)"; empty without an equation.
    std::string describeMerge(const NodeView& at) const {
        for (const Analysis::NodeVariables& node : analysis.nodes())
            if (node.node == at) return describeMergeOf(node);
        return "no flow node";
    }

private:
    using Variable = flow::Variable<Analysis::Value>;
    using Term = flow::Term<Analysis::Value>;

    std::vector<NodeView> readBy(Term& term) const {
        flow::DependencySet<Analysis::Value> read;
        term.collectDependencies(read);
        std::vector<NodeView> nodes;
        for (Variable* variable : read)
            nodes.push_back(owners.at(variable));
        return nodes;
    }

    std::vector<NodeView> successorsOf(const Analysis::NodeVariables& node) const {
        std::vector<NodeView> successors;
        const auto* equation = analysis.equations().equationOf(node.liveOut);
        if (equation == nullptr) return successors;
        for (Term* term : equation->rightHandSide)
            for (const NodeView& successor : readBy(*term))
                successors.push_back(successor);
        return successors;
    }

    std::string describeMergeOf(const Analysis::NodeVariables& node) const {
        std::string text;
        const auto* equation = analysis.equations().equationOf(node.liveOut);
        if (equation == nullptr) return text;
        for (Term* term : equation->rightHandSide) {
            if (dynamic_cast<flow::Join<Analysis::Value>*>(term) != nullptr) text += " U ";
            if (dynamic_cast<flow::Meet<Analysis::Value>*>(term) != nullptr) text += " & ";
            if (dynamic_cast<flow::Minus<Analysis::Value>*>(term) != nullptr) text += " - ";
            for (const NodeView& read : readBy(*term))
                text += "liveIn(" + names.at(read.node) + ")";
        }
        return text;
    }

    const Analysis& analysis;
    std::map<const Variable*, NodeView> owners;
    std::map<Handle, std::string> names;
};

} // namespace zt::orvex::testing
