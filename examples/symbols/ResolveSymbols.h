#pragma once

#include "tree/TreeStorage.h"

#include <vector>

namespace ostrel {

/// The variables of one scope.
struct ResolvedScope {
    SymbolId ans;
    std::vector<SymbolId> universe; ///< Its variables, in order of first mention.
};

/// Gives every identifier its symbol: one for each name and scope.
///
/// A symbol is a variable if one of its identifiers is written; `ans` always is. No identifier has
/// symbol 0. The result is indexed by scope; only the entries of scripts and functions are filled
/// in, so the universe of an anonymous function stays empty. Cost: linear.
std::vector<ResolvedScope> resolveSymbols(TreeStorage& storage);

} // namespace ostrel
