#pragma once

#include "report/analysis/UnwrittenVariables.h"
#include "tree/Tree.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex_kit/body/Access.h>
#include <zt_orvex_kit/body/FlowGraph.h>

#include <optional>
#include <vector>

namespace ostrel::report {

/// One use of a variable by the head of a statement or clause.
struct Use {
    zt::orvex::NodeView statement;
    zt::orvex::kit::Access access;
};

/// Where a body reads and writes one variable.
struct FirstAndLastUses {
    /// The first read, in source order, that some path reaches before a whole write. In a statement
    /// that also writes a part of the variable, which keeps the rest, a plain read comes first.
    std::optional<Use> firstRead;

    /// The last write, in source order, that some path reaches.
    std::optional<Use> lastWrite;
};

/// Finds the places that explain the library's answers, which only name variables: for each variable
/// that the graph knows, at its index, the first read of the value that it has on entry to the body,
/// and its last write.
///
/// The variables with a first read are those that the library finds live on entry to the body (type
/// May, mode Plain), except that `ans` follows mode Ans: an expression statement writes it.
/// Cost: linear in the graph.
std::vector<FirstAndLastUses> findFirstAndLastUses(const Tree& tree,
                                                   const zt::orvex::kit::FlowGraph& body,
                                                   const UnwrittenVariables& unwritten);

} // namespace ostrel::report
