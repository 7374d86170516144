#pragma once

#include "frontend/ParsedFile.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex_kit/body/Access.h>

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
/// of `universe`, at its index, the first read of the value that it has on entry to `body`, and its
/// last write.
///
/// The variables with a first read are those that the library finds live on entry to the body (type
/// May, mode Plain), except that `ans` follows mode Ans: an expression statement writes it.
///
/// Cost: that of a flow graph of the body, and of `UnwrittenVariables`.
std::vector<FirstAndLastUses>
findFirstAndLastUses(const ParsedFile& file, zt::orvex::StatementRangeView body,
                     const std::vector<zt::orvex::SymbolView>& universe);

} // namespace ostrel::report
