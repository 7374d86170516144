#pragma once

#include "analysis/ReferenceEffects.h"
#include "analysis/ReferenceFlowGraph.h"
#include "testing/Random.h"

#include <boost/optional.hpp>

#include <cstddef>
#include <map>
#include <string>

namespace zt::orvex::testing {

/// A second opinion on which variables are live at the entry of a range of statements: plain sets,
/// an explicit graph, and nothing in common with the library's framework of equations.
class ReferenceAnalysis {
public:
    /// The graph must outlive the analysis.
    ReferenceAnalysis(const ReferenceFlowGraph& graph, ReferenceSettings settings);

    const Effects& getEffects(ReferenceFlowGraph::Handle node) const { return effects.at(node); }

    /// The least solution, worked up from empty sets by touching the nodes in a random order until
    /// none changes. The order can't matter.
    Symbols getLiveAtEntry(Random& random) const;

    /// Walks every path from the entry to the exit and asks each of them. The graph must have no
    /// cycle. None if there are more than `limit` paths. Only under `May` is this the same question
    /// as that of the least solution.
    boost::optional<Symbols> getReadFirstOnSomePath(std::size_t limit) const;

    /// The graph and the sets, for a failure.
    std::string describe() const;

private:
    Symbols liveBefore(ReferenceFlowGraph::Handle node,
                       const std::map<ReferenceFlowGraph::Handle, Symbols>& live) const;
    bool walkPaths(ReferenceFlowGraph::Handle node, const Symbols& overwritten, Symbols& readFirst,
                   std::size_t& left) const;

    ReferenceSettings settings;
    const ReferenceFlowGraph& graph;
    std::map<ReferenceFlowGraph::Handle, Effects> effects;
};

} // namespace zt::orvex::testing
