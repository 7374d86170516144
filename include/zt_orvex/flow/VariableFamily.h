#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/flow/ElementHash.h>
#include <zt_orvex/flow/Terms.h>

#include <boost/unordered/unordered_flat_map.hpp>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::flow {

/// One variable for each node, made when it is first asked for. Nodes are told apart by handle
/// alone.
template <typename V>
class VariableFamily {
public:
    using Creator = std::function<Variable<V>*(NodeView)>;

    VariableFamily(std::string named, Creator makes)
        : name(std::move(named)), creator(std::move(makes)) {}

    /// The node's variable: always the same one. One hash look-up.
    Variable<V>* at(const NodeView& node) {
        catchUp();
        const auto [entry, isNew] = cache.try_emplace(node, nullptr);
        if (isNew) entry->second = create(node, entry);
        return entry->second;
    }

    /// As `at`, for a node that the caller knows to be new; that is not checked. Nothing is hashed
    /// here: the next `at` makes up for it.
    Variable<V>* atNew(const NodeView& node) {
        Variable<V>* const created = creator(node);
        notCached.emplace_back(node, created);
        return created;
    }

    /// Makes room for `count` nodes in one step.
    void reserve(std::size_t count) { cache.reserve(count); }
    /// As `reserve`, for nodes that `atNew` adds.
    void reserveNew(std::size_t count) { notCached.reserve(count); }

private:
    using Cache = boost::unordered_flat_map<NodeView, Variable<V>*, ElementHash<NodeView>>;

    Variable<V>* create(const NodeView& node, typename Cache::iterator entry) {
        try {
            return creator(node);
        } catch (...) {
            cache.erase(entry);
            throw;
        }
    }

    void catchUp() {
        if (notCached.empty()) return;
        cache.reserve(cache.size() + notCached.size());
        for (const auto& [node, variable] : notCached)
            cache.emplace(node, variable);
        notCached.clear();
    }

    std::string name;
    Creator creator;
    Cache cache;
    std::vector<std::pair<NodeView, Variable<V>*>> notCached; // what `atNew` has added since `at`
};

} // namespace zt::orvex::flow
