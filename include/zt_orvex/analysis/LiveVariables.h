#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/support/Export.h>

#include <functional>
#include <string>
#include <unordered_set>

namespace zt::orvex::flow {

// What the variables of a parallel construct are. Each computation makes one
// TransparentLiveVariablesAnalyzerView over the construct's body and reads one result; that class
// tells the costs, the errors and who must outlive whom. The construct's own header (loop variable,
// range, options) takes no part. Results are subsets of the universe. `nodePrinter` may be empty.
//
// A write is whole when it replaces the variable: `x = 1`. It is partial when it goes through a
// subscript or a field: `x(k) = 1`.

/// The variables that every path through the body reads with certainty before any write of them,
/// partial writes included. Leaves out a variable whose only reads lie behind a loop.
ZT_ORVEX_EXPORT std::unordered_set<SymbolView>
computeLiveAsTemporaryVariables(ParforStatementView statement,
                                const OrderedSet<SymbolView>& universe,
                                std::function<std::string(NodeView)> nodePrinter);

/// The variables that some path through the body reads before a whole write of them; a partial
/// write counts as such a read.
ZT_ORVEX_EXPORT std::unordered_set<SymbolView>
computeMaybeLiveAsTemporaryVariables(ParforStatementView statement,
                                     const OrderedSet<SymbolView>& universe,
                                     std::function<std::string(NodeView)> nodePrinter);

/// The variables that no path reads before a whole write of them, where one level of indexing
/// counts as whole, unless the variable of a nested `for` stands bare among the subscripts. A
/// variable that the body never touches is among them.
ZT_ORVEX_EXPORT std::unordered_set<SymbolView>
computeNotLiveAsSlicedVariables(ParforStatementView statement,
                                const OrderedSet<SymbolView>& universe,
                                std::function<std::string(NodeView)> nodePrinter);

/// The variables that no path through the body reads before a whole write of them. A variable that
/// the body never touches is among them.
ZT_ORVEX_EXPORT std::unordered_set<SymbolView>
computeSpmdOutputVariables(SpmdStatementView statement, const OrderedSet<SymbolView>& universe,
                           std::function<std::string(NodeView)> nodePrinter);

} // namespace zt::orvex::flow
