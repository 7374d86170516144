#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::testing {

/// A second opinion on how control flows through a range of statements: an explicit graph with a
/// node for each statement and each clause that has a head, an entry and an exit.
///
/// It is built backward: each statement is told where control goes when it is done, and answers
/// where control enters it. The library works forward, so the two share no idea.
class ReferenceFlowGraph {
public:
    using Handle = std::uint64_t;

    explicit ReferenceFlowGraph(const StatementRangeView& statements);

    Handle getEntry() const { return entry; }
    Handle getExit() const { return exit; }

    /// Entry and exit included, in order of handle.
    const std::map<Handle, NodeView>& getNodes() const { return nodes; }
    const std::set<Handle>& getSuccessors(Handle node) const;
    /// Whether some path leads from a node back to it.
    bool hasCycle() const;
    /// All edges, ordered by handles.
    std::set<std::pair<Handle, Handle>> getEdges() const;

private:
    // Where control goes next. A back edge doesn't make its source a throw point of the head.
    struct Target {
        Handle node;
        bool isBackToLoop;
    };
    // Where the jumps go.
    struct Jumps {
        Target ofBreak;
        Target ofContinue;
    };
    // The statements directly inside one `try` body that can throw; null outside.
    using Failing = std::set<Handle>;

    Target addStatement(const NodeView& statement, Target next, const Jumps& jumps,
                        Failing* failing);
    Target addRange(const StatementRangeView& statements, Target next, const Jumps& jumps,
                    Failing* failing);
    Target addLoop(const NodeView& loop, const StatementRangeView& body, Target next,
                   Failing* failing);
    Target addParfor(const NodeView& parfor, Target next, Failing* failing);
    Target addIf(const NodeView& statement, Target next, const Jumps& jumps, Failing* failing);
    Target addSwitch(const NodeView& statement, Target next, const Jumps& jumps, Failing* failing);
    Target addTry(const NodeView& statement, Target next, const Jumps& jumps, Failing* failing);
    Target addJump(const NodeView& statement, Target to);

    Target addNode(const NodeView& node, Failing* failing);
    void addEdge(Handle from, Target to);

    Handle entry;
    Handle exit;
    std::map<Handle, NodeView> nodes;
    std::map<Handle, std::set<Handle>> successors;
    // The edges into a statement, without back edges.
    std::map<Handle, std::set<Handle>> entered;
};

} // namespace zt::orvex::testing
