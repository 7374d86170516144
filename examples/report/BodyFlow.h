#pragma once

#include "tree/Tree.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>

#include <optional>
#include <vector>

namespace ostrel::report {

/// Where a body reads and writes one variable.
struct VariableFlow {
    /// The identifier of the first read, in source order, that some path reaches before a whole
    /// write.
    std::optional<zt::orvex::NodeView> firstRead;
    bool isFirstReadPartWrite = false;

    /// The identifier of the last reachable write in source order, and its statement.
    std::optional<zt::orvex::NodeView> lastWrite;
    std::optional<zt::orvex::NodeView> lastWriteStatement;
};

/// Finds the places that explain the library's answers, which only name variables: for each
/// variable of `universe`, at its index, the first read of the value that it has on entry to
/// `body`, and its last write.
///
/// The variables with a first read are those that the library finds live on entry to the body (type
/// May, mode Plain), except that `ans` follows mode Ans: an expression statement writes it.
///
/// One pass in source order suffices, without a fixed point: the set of unwritten variables only
/// shrinks along a path, so a loop's back edge adds nothing to what its head has on entry. Cost:
/// linear in the body, times the words of a set of variables at each branch.
std::vector<VariableFlow> traceBody(zt::orvex::StatementRangeView body,
                                    const std::vector<zt::orvex::SymbolView>& universe);

} // namespace ostrel::report
