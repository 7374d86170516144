#pragma once

#include <zt_orvex_kit/body/FlowGraph.h>

#include <boost/dynamic_bitset.hpp>

#include <cstdint>
#include <vector>

namespace ostrel::report {

/// For each node of a body, the variables that may still have their value from the entry there:
/// those that some path from the entry brings to the node without writing them whole.
///
/// A forward search. The graph itself answers the opposite question: what is read from a node on.
class UnwrittenVariables {
public:
    /// `body` must be of type May. Cost: linear in the graph, times the words of a set of variables
    /// at each edge. Keeps a set for each node, and nothing of the graph.
    explicit UnwrittenVariables(const zt::orvex::kit::FlowGraph& body);

    /// Whether some path leads from the entry to the node.
    bool isReachable(zt::orvex::kit::FlowNode node) const { return isReached[node]; }

    /// Whether one of these paths doesn't write the variable whole before it gets to the node.
    bool contain(zt::orvex::kit::FlowNode node, std::uint64_t index) const {
        return isReached[node] && before[node].test(index);
    }

private:
    using Variables = boost::dynamic_bitset<>;

    /// Returns whether there is anything new in `variables`, or in getting there at all.
    bool add(zt::orvex::kit::FlowNode node, const Variables& variables);

    std::vector<bool> isReached;
    std::vector<Variables> before; ///< Empty where control can't come.
};

} // namespace ostrel::report
