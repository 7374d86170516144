#pragma once

#include "tree/Tree.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>

#include <optional>
#include <vector>

namespace ostrel::report {

/// What a body does to one variable, and where.
struct VariableFlow {
    /// The name at the first read in source order that some path reaches before a whole write.
    std::optional<zt::orvex::NodeView> firstRead;
    bool isFirstReadPartWrite = false;

    /// The name at the last write in source order that control reaches, and its statement.
    std::optional<zt::orvex::NodeView> lastWrite;
    std::optional<zt::orvex::NodeView> lastWriteStatement;
};

/// Finds the places behind the library's answers, which name variables alone: for each variable of
/// `universe`, at its index, the first read of what it held at the begin of `body`, and its last
/// write.
///
/// The variables with a first read are those that the library finds live at the entry of the body
/// (type May, mode Plain), but for `ans`, which goes by the mode Ans: an expression statement
/// writes it.
///
/// One pass in source order is enough, with no fixed point: what is not yet written can only get
/// less along a path, so a loop's way back brings nothing to its head that the way in has not
/// brought. Cost: linear in the body, times the words of a set of variables at each branch.
std::vector<VariableFlow> traceBody(zt::orvex::StatementRangeView body,
                                    const std::vector<zt::orvex::SymbolView>& universe);

} // namespace ostrel::report
