#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/flow/ElementHash.h>
#include <zt_orvex/flow/Terms.h>

#include <boost/unordered/unordered_flat_map.hpp>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

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
    Variable<V>* at(NodeView node) {
        const auto [entry, isNew] = cache.try_emplace(node, nullptr);
        if (isNew) entry->second = create(node, entry);
        return entry->second;
    }

    /// Makes room for `count` nodes in one step.
    void reserve(std::size_t count) { cache.reserve(count); }

private:
    using Cache = boost::unordered_flat_map<NodeView, Variable<V>*, ElementHash<NodeView>>;

    Variable<V>* create(NodeView node, typename Cache::iterator entry) {
        try {
            return creator(node);
        } catch (...) {
            cache.erase(entry);
            throw;
        }
    }

    std::string name;
    Creator creator;
    Cache cache;
};

} // namespace zt::orvex::flow
