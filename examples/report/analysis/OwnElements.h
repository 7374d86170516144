#pragma once

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>

#include <unordered_set>

namespace ostrel::report {

/// The variables of which every iteration of a `parfor` uses only its own elements: in each use in
/// the body, the index that directly follows the name has the bare loop variable at the same
/// position, as in `x(k) = x(k) + 1` or `a(:, k)`.
///
/// The library has no such rule. It finds such a variable live, because an iteration reads it
/// before it has written all of it, and that alone would look like a carried value. But nothing is
/// carried if no two iterations use the same element.
///
/// A use that removes elements, `x(k) = []`, moves the others, and so disqualifies the variable. The
/// body must not write the loop variable; the caller checks that.
std::unordered_set<zt::orvex::SymbolView> findOwnElements(zt::orvex::ParforStatementView loop);

} // namespace ostrel::report
