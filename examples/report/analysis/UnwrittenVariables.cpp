#include "report/analysis/UnwrittenVariables.h"

#include <set>

namespace ostrel::report {

using namespace zt::orvex::kit;

// The lowest pending node comes next, which is after all its predecessors but those that a loop jumps
// back from. These bring nothing new to the head of the loop, since the set only shrinks along a
// path. So each node is visited once; in a graph of another shape, some would be visited again.
UnwrittenVariables::UnwrittenVariables(const FlowGraph& body)
    : isReached(body.size()), before(body.size()) {
    std::set<FlowNode> pending;
    const auto bring = [&](FlowNode node, const Variables& variables) {
        if (add(node, variables)) pending.insert(node);
    };
    bring(body.entry(), ~Variables(body.variableCount()));
    while (!pending.empty()) {
        const FlowNode node = *pending.begin();
        pending.erase(pending.begin());
        Variables after = before[node];
        for (const Access& access : body.accesses(node)) {
            const LivenessEffect effect = livenessEffectOf(access.kind, body.type(), body.mode());
            if (effect == LivenessEffect::EndsLiveness) after.reset(access.index);
        }
        for (const FlowNode next : body.successors(node))
            bring(next, after);
    }
}

bool UnwrittenVariables::add(FlowNode node, const Variables& variables) {
    if (!isReached[node]) {
        isReached[node] = true;
        before[node] = variables;
        return true;
    }
    if (variables.is_subset_of(before[node])) return false;
    before[node] |= variables;
    return true;
}

} // namespace ostrel::report
