#pragma once

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/ast/TypedViews.h>

#include <unordered_set>

namespace ostrel::report {

/// The variables of which every iteration of a `parfor` uses elements of its own alone: each use in
/// the body has one index or field directly behind the name that bears the loop variable, bare and
/// at the same place, as in `x(k) = x(k) + 1` or `a(:, k)`.
///
/// The library does not ask for this. It finds such a variable live, since an iteration reads it
/// before it has written all of it, and that alone would look like a value that is carried. Nothing
/// is carried where no two iterations use the same element.
///
/// A use that removes elements, `x(k) = []`, moves the others: such a variable is not among them.
/// The caller sees to it that the body does not write the loop variable.
std::unordered_set<zt::orvex::SymbolView> findOwnElements(zt::orvex::ParforStatementView loop);

} // namespace ostrel::report
