#pragma once

#include "tree/TreeStorage.h"

#include <vector>

namespace ostrel {

/// What a scope of text comes to.
struct ResolvedScope {
    SymbolId ans;
    std::vector<SymbolId> universe; ///< Its variables, in order of first mention.
};

/// Gives every identifier its symbol: one for each name and scope.
///
/// A symbol is a variable when one of its identifiers is written; `ans` always is. Symbol 0 is that
/// of no identifier. The result is indexed by scope and has entries of use for scripts and
/// functions; the universe of an anonymous function's parameters stays empty. Cost: linear.
std::vector<ResolvedScope> resolveSymbols(TreeStorage& storage);

} // namespace ostrel
