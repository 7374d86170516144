#pragma once

#include "tree/CheckReport.h"
#include "tree/NameScopes.h"
#include "tree/Roles.h"

#include <zt_orvex_kit/tree/CheckTree.h>

#include <boost/unordered/unordered_flat_map.hpp>

#include <cstdint>
#include <optional>
#include <string_view>

namespace zt::orvex::kit::internal {

/// Checks the names and symbols of identifiers, against each other and against the universe.
class IdentifierChecker {
public:
    IdentifierChecker(const IAstView* of, const CheckTreeOptions& optionsToUse,
                      CheckReport& reportTo)
        : tree(of), options(optionsToUse), report(reportTo) {}

    NameScopes& scopes() { return names; }

    /// `use` is what becomes of the identifier, in `scope`.
    void check(const NodeView& identifier, Use use, NameScopes::ScopeId scope);

    /// Reports the symbols of the universe that no identifier had.
    void checkUniverseIsUsed();

private:
    struct Symbol {
        bool isVariable;
        bool isReported = false; ///< As one that the universe lacks.
    };
    struct Identifier {
        NodeView node;
        Use use;
        NameScopes::ScopeId scope;
        std::u16string_view name;
        SymbolView symbol;
    };

    std::optional<std::u16string_view> askName(const NodeView& node);
    bool isReadable(const Question& question, std::u16string_view name);
    std::optional<SymbolView> askSymbol(const NodeView& node);
    Symbol* askWhetherVariable(const Identifier& identifier);
    bool checkNameIsOne(const Identifier& identifier);
    void checkWrite(const Identifier& identifier, const Symbol& symbol);
    void checkUniverseHas(const Identifier& identifier, Symbol& symbol);
    bool mustBeInUniverse(const Identifier& identifier, const Symbol& symbol) const;
    void checkAns(const Identifier& identifier);

    const IAstView* tree;
    const CheckTreeOptions& options;
    CheckReport& report;
    NameScopes names;
    boost::unordered_flat_map<std::uint64_t, Symbol> symbols;
};

} // namespace zt::orvex::kit::internal
