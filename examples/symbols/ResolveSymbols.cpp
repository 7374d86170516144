#include "symbols/ResolveSymbols.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace ostrel {

namespace {

class Resolver {
public:
    explicit Resolver(TreeStorage& of) : storage(of), mentioned(of.scopes.size()) {
        storage.symbols.push_back({0, 0, false, false});
    }

    void resolve(IdentifierData& identifier) {
        identifier.symbol = symbolOf(identifier.scope, identifier.name);
        SymbolData& symbol = storage.symbols[identifier.symbol];
        if (identifier.role == Role::Written) symbol.isVariable = true;
        const bool isMention = identifier.role == Role::Mention || identifier.role == Role::Written;
        if (!isMention || symbol.isMentioned) return;
        symbol.isMentioned = true;
        mentioned[identifier.scope].push_back(identifier.symbol);
    }

    std::vector<ResolvedScope> scopes(NameId ans) {
        std::vector<ResolvedScope> result(storage.scopes.size());
        for (ScopeId scope = 0; scope < result.size(); ++scope) {
            const ScopeKind kind = storage.scopes[scope].kind;
            if (kind != ScopeKind::Script && kind != ScopeKind::Function) continue;
            result[scope].ans = symbolOf(scope, ans);
            storage.symbols[result[scope].ans].isVariable = true;
            for (const SymbolId symbol : mentioned[scope]) {
                if (storage.symbols[symbol].isVariable) result[scope].universe.push_back(symbol);
            }
        }
        return result;
    }

private:
    SymbolId symbolOf(ScopeId scope, NameId name) {
        const std::uint64_t key = (std::uint64_t{scope} << 32) | name;
        const auto next = static_cast<SymbolId>(storage.symbols.size());
        const auto [entry, isNew] = symbols.emplace(key, next);
        if (isNew) storage.symbols.push_back({name, scope, false, false});
        return entry->second;
    }

    TreeStorage& storage;
    std::unordered_map<std::uint64_t, SymbolId> symbols;
    std::vector<std::vector<SymbolId>> mentioned; ///< Of each scope, in order.
};

NameId nameOfAns(TreeStorage& storage) {
    for (std::size_t i = 0; i < storage.names.size(); ++i) {
        if (storage.names[i] == u"ans") return static_cast<NameId>(i);
    }
    storage.names.emplace_back(u"ans");
    return static_cast<NameId>(storage.names.size() - 1);
}

} // namespace

std::vector<ResolvedScope> resolveSymbols(TreeStorage& storage) {
    Resolver resolver(storage);
    for (IdentifierData& identifier : storage.identifiers)
        resolver.resolve(identifier);
    return resolver.scopes(nameOfAns(storage));
}

} // namespace ostrel
