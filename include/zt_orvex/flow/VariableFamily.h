#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/flow/Terms.h>
#include <zt_orvex/flow/internal/HashIndex.h>

#include <cstddef>
#include <cstdint>
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
    /// Makes the variable of a node. Called once for each node.
    using Creator = std::function<Variable<V>*(NodeView)>;

    /// A family without variables. `named` has no effect in this build.
    VariableFamily(std::string named, Creator makes)
        : name(std::move(named)), creator(std::move(makes)) {}

    /// The node's variable: always the same one. One hash lookup. If it throws, the family is
    /// unchanged.
    Variable<V>* at(const NodeView& node) {
        const std::uint64_t key = Index::keyOf(node);
        const auto isAt = [&](std::uint64_t place) { return members[place].first == node; };
        const std::uint64_t known = cache.find(key, isAt);
        if (known != Index::NONE) return members[known].second;
        cache.reserve(members.size() + 1);
        members.emplace_back(node, creator(node));
        cache.insert(key, members.size() - 1);
        return members.back().second;
    }

    /// Makes room for `count` nodes in one step. If it throws, the family is unchanged.
    void reserve(std::size_t count) {
        cache.reserve(count);
        members.reserve(count);
    }

private:
    using Index = internal::HashIndex<NodeView>;

    std::string name;
    Creator creator;
    Index cache; // of the members, by node
    std::vector<std::pair<NodeView, Variable<V>*>> members;
};

} // namespace zt::orvex::flow
