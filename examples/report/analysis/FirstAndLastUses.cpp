#include "report/analysis/FirstAndLastUses.h"

#include <utility>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

class UseFinder {
public:
    UseFinder(const Tree& program, const kit::FlowGraph& body, const UnwrittenVariables& variables)
        : tree(program), graph(body), unwritten(variables), found(body.variableCount()) {}

    std::vector<FirstAndLastUses> run() {
        for (kit::FlowNode node = 0; node < graph.size(); ++node) {
            if (!unwritten.isReachable(node)) continue;
            for (const kit::Access& access : graph.accesses(node))
                note(node, access);
        }
        return std::move(found);
    }

private:
    /// All reads of a statement see the values from before its writes: in `[x, x(1)] = f()` the
    /// second target keeps the rest of the old `x`.
    void note(kit::FlowNode node, const kit::Access& access) {
        FirstAndLastUses& uses = found[access.index];
        const Use use{graph.nodeAt(node), access};
        if (readsValueFromEntry(node, access) && isEarlierRead(use, uses.firstRead))
            uses.firstRead = use;
        if (kit::isWrite(access.kind)) uses.lastWrite = use;
    }

    bool readsValueFromEntry(kit::FlowNode node, const kit::Access& access) const {
        return kit::livenessEffectOf(access.kind, graph.type(), graph.mode()) ==
                   kit::LivenessEffect::MakesLive &&
               unwritten.contain(node, access.index);
    }

    /// Statements come in source order, but the accesses of one don't: those of the value of an
    /// assignment come before those of its target.
    bool isEarlierRead(const Use& use, const std::optional<Use>& known) const {
        if (!known) return true;
        return use.statement == known->statement && rankOf(use) < rankOf(*known);
    }

    std::pair<bool, std::size_t> rankOf(const Use& use) const {
        return {kit::isWrite(use.access.kind), tree.beginOffset(use.access.identifier)};
    }

    const Tree& tree;
    const kit::FlowGraph& graph;
    const UnwrittenVariables& unwritten;
    std::vector<FirstAndLastUses> found;
};

} // namespace

std::vector<FirstAndLastUses> findFirstAndLastUses(const Tree& tree, const kit::FlowGraph& body,
                                                   const UnwrittenVariables& unwritten) {
    return UseFinder(tree, body, unwritten).run();
}

} // namespace ostrel::report
