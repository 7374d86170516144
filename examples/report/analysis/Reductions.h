#pragma once

#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>

#include <string>
#include <unordered_map>

namespace ostrel::report {

/// The variables that a body only combines with further values by one operation, and the operation:
/// all statements that name the variable are assignments of the same of these forms, in which no `e`
/// names it.
///
///     x = x op e, x = e op x    by op: one of + .* * & |
///     x = x - e                 by -
///     x = [x, e], x = [x; e]    by [,] or [;]
///     x = f(x, e)               by f, the name of a function
///
/// There may be several `e` where the operation stands several times: `x = x + a + b`. Iterations
/// may combine in any order, so such a variable stops no loop from running in parallel. Whether a
/// function is associative isn't known here.
///
/// Cost: linear in the body.
std::unordered_map<zt::orvex::SymbolView, std::string>
findReductions(zt::orvex::StatementRangeView body);

} // namespace ostrel::report
