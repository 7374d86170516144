#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/support/Export.h>

#include <functional>
#include <string>

namespace zt::orvex {

// In ast/TypedViews.h, for whoever calls.
class ParforStatementView;
class SpmdStatementView;

} // namespace zt::orvex

namespace zt::orvex::flow {

/// @{
/// Whether some path through the body reads `ans`, or writes a part of it, before it writes all of
/// it.
///
/// An expression or command statement whose target is named "ans" counts as a whole write. The name
/// decides, not the symbol: a symbol with another name is analysed as an ordinary variable. Costs
/// and errors are those of `TransparentLiveVariablesAnalyzerView`. `nodePrinter` may be empty.
ZT_ORVEX_EXPORT bool
isAnsPossiblyReadBeforeBeingWritten(ParforStatementView statement, SymbolView ans,
                                    std::function<std::string(NodeView)> nodePrinter);
ZT_ORVEX_EXPORT bool
isAnsPossiblyReadBeforeBeingWritten(SpmdStatementView statement, SymbolView ans,
                                    std::function<std::string(NodeView)> nodePrinter);
/// @}

} // namespace zt::orvex::flow
