#pragma once

#include "analysis/ControlFlow.h"
#include "testing/FakeAst.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::testing {

/// The control flow of a range as a graph: what `ControlFlow` reported, in the order in which it
/// did. Nodes go by the names given with `name`, or else by their labels.
class RecordedControlFlow {
public:
    /// The number of a node, in order of report.
    using Node = std::size_t;

    explicit RecordedControlFlow(const StatementRangeView& statements) {
        flow::internal::ControlFlow(statements, *this).report();
    }

    // The sink
    Node addNode(const NodeView& view) {
        views.push_back(view);
        return views.size() - 1;
    }
    Node addPseudoNode(const NodeView& view) {
        pseudoNodes.push_back(views.size());
        return addNode(view);
    }
    void addEdge(Node from, Node to) { edges.emplace_back(from, to); }

    void name(const NodeView& node, const std::string& as) { names[node.node] = as; }

    const std::vector<NodeView>& nodes() const { return views; }

    std::vector<std::string> describeNodes() const {
        std::vector<std::string> texts;
        for (const NodeView& view : views)
            texts.push_back(nameOf(view));
        return texts;
    }

    std::vector<std::string> describePseudoNodes() const {
        std::vector<std::string> texts;
        for (const Node node : pseudoNodes)
            texts.push_back(nameOf(views[node]));
        return texts;
    }

    /// One text like "I -> S" for each edge, in order of report.
    std::vector<std::string> describeEdges() const {
        std::vector<std::string> texts;
        for (const auto& [from, to] : edges)
            texts.push_back(nameOf(views[from]) + " -> " + nameOf(views[to]));
        return texts;
    }

private:
    std::string nameOf(const NodeView& view) const {
        const auto named = names.find(view.node);
        return named == names.end() ? label(view) : named->second;
    }

    std::vector<NodeView> views;
    std::vector<Node> pseudoNodes;
    std::vector<std::pair<Node, Node>> edges;
    std::map<std::uint64_t, std::string> names;
};

} // namespace zt::orvex::testing
