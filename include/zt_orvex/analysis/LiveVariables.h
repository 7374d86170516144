#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/support/Export.h>

#include <functional>
#include <string>
#include <unordered_set>

namespace zt::orvex {

// In ast/TypedViews.h, for whoever calls.
class ParforStatementView;
class SpmdStatementView;

} // namespace zt::orvex

namespace zt::orvex::flow {

/// @addtogroup analysis
/// ## Classifying variables
///
/// The classification of the variables of a parallel construct, by what is live at the entry of its
/// body. Each computation makes one `TransparentLiveVariablesAnalyzerView` over the body and reads
/// one result; see that class for costs, errors and lifetimes. The head of the construct (loop
/// variable, range and options) takes no part. Results are subsets of the universe. `nodePrinter`
/// may be empty.
///
/// A write is whole if it replaces the variable, as in `x = 1`. It is partial if it goes through a
/// subscript or a field, as in `x(k) = 1`.

/// The variables that every path through the body reads with certainty before any write of them,
/// partial writes included. Leaves out a variable that is read only after a loop.
ZT_ORVEX_EXPORT std::unordered_set<SymbolView>
computeLiveAsTemporaryVariables(ParforStatementView statement,
                                const OrderedSet<SymbolView>& universe,
                                std::function<std::string(NodeView)> nodePrinter);

/// The variables that some path through the body reads before a whole write of them. A partial
/// write counts as such a read.
ZT_ORVEX_EXPORT std::unordered_set<SymbolView>
computeMaybeLiveAsTemporaryVariables(ParforStatementView statement,
                                     const OrderedSet<SymbolView>& universe,
                                     std::function<std::string(NodeView)> nodePrinter);

/// The variables that no path reads before a whole write of them. A write through one level of
/// indexing counts as whole here, unless the variable of a nested `for` is one of the subscripts,
/// bare. Includes the variables that the body never touches.
ZT_ORVEX_EXPORT std::unordered_set<SymbolView>
computeNotLiveAsSlicedVariables(ParforStatementView statement,
                                const OrderedSet<SymbolView>& universe,
                                std::function<std::string(NodeView)> nodePrinter);

/// The variables that no path through the body reads before a whole write of them. Includes the
/// variables that the body never touches.
ZT_ORVEX_EXPORT std::unordered_set<SymbolView>
computeSpmdOutputVariables(SpmdStatementView statement, const OrderedSet<SymbolView>& universe,
                           std::function<std::string(NodeView)> nodePrinter);

} // namespace zt::orvex::flow
