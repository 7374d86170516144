#pragma once

#include <boost/unordered/unordered_flat_map.hpp>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace zt::orvex::kit::internal {

/// Which symbol each name of a scope has.
///
/// An anonymous function is a scope of its parameters; all other names in it belong to the scope
/// around it.
class NameScopes {
public:
    using ScopeId = std::uint32_t;
    static constexpr ScopeId ROOT = 0;

    /// What is known of a name in a scope.
    struct Name {
        std::uint64_t symbol; ///< Its first one.
        bool isParameter;     ///< Of an anonymous function.
        bool isReported = false;
    };

    /// A new scope in `around`.
    ScopeId open(ScopeId around, bool isAnonymousFunction) {
        scopes.push_back({around, isAnonymousFunction});
        return static_cast<ScopeId>(scopes.size() - 1);
    }

    bool isAnonymousFunction(ScopeId scope) const { return scopes[scope].isAnonymousFunction; }

    /// Whether the names that aren't parameters are those of the root.
    bool isInRoot(ScopeId scope) const { return ownerOf(scope) == ROOT; }

    /// The name as `scope` itself has it. A new name gets `symbol`.
    Name& declare(ScopeId scope, std::u16string_view name, std::uint64_t symbol) {
        return findOrAdd(scope, name, symbol);
    }

    /// The name as an expression in `scope` has it. A new name gets `symbol`.
    Name& use(ScopeId scope, std::u16string_view name, std::uint64_t symbol) {
        for (; scopes[scope].isAnonymousFunction; scope = scopes[scope].around) {
            const auto found = names.find(Key{scope, name});
            if (found != names.end()) return found->second;
        }
        return findOrAdd(scope, name, symbol);
    }

private:
    struct Scope {
        ScopeId around;
        bool isAnonymousFunction;
    };

    struct Key {
        ScopeId scope;
        std::u16string_view name;
        friend bool operator==(const Key& a, const Key& b) {
            return a.scope == b.scope && a.name == b.name;
        }
        friend std::size_t hash_value(const Key& key) {
            std::uint64_t hash = key.scope + 0xcbf29ce484222325;
            for (const char16_t unit : key.name)
                hash = (hash ^ unit) * 0x100000001b3;
            return static_cast<std::size_t>(hash);
        }
    };

    ScopeId ownerOf(ScopeId scope) const {
        while (scopes[scope].isAnonymousFunction)
            scope = scopes[scope].around;
        return scope;
    }

    Name& findOrAdd(ScopeId scope, std::u16string_view name, std::uint64_t symbol) {
        const auto found = names.find(Key{scope, name});
        if (found != names.end()) return found->second;
        // A copy: the tree's own text may be gone at the next question.
        texts.emplace_back(name);
        const Name added = {symbol, scopes[scope].isAnonymousFunction};
        return names.emplace(Key{scope, texts.back()}, added).first->second;
    }

    std::vector<Scope> scopes = {{ROOT, false}};
    std::deque<std::u16string> texts;
    boost::unordered_flat_map<Key, Name> names;
};

} // namespace zt::orvex::kit::internal
