#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex_kit/Export.h>

#include <string>
#include <unordered_map>
#include <unordered_set>

namespace zt::orvex::kit {

/// The names of the symbols of a tree, which only its identifiers know.
///
///     const SymbolNames names(root);
///     std::cout << names.list(computeSpmdOutputVariables(spmd, universe, {}));   // a b total
///
/// Walks the tree once, when it is made. Keeps nothing of it.
class SymbolNames {
public:
    /// Walks `root` and all nodes below it. Exceptions of the tree pass through.
    ZT_ORVEX_KIT_EXPORT explicit SymbolNames(const NodeView& root);

    /// The name of the first identifier with the symbol, in UTF-8; "symbol 0x11" if there is none.
    ZT_ORVEX_KIT_EXPORT std::string of(const SymbolView& symbol) const;

    /// @{
    /// The names, in the order of their UTF-8 bytes and separated by blanks.
    ZT_ORVEX_KIT_EXPORT std::string list(const std::unordered_set<SymbolView>& symbols) const;
    ZT_ORVEX_KIT_EXPORT std::string list(const flow::OrderedSet<SymbolView>& symbols) const;
    /// @}

private:
    std::unordered_map<SymbolView, std::string> names;
};

} // namespace zt::orvex::kit
