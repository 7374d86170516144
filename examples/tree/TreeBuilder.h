#pragma once

#include "tree/TreeStorage.h"

#include <zt_orvex/ast/NodeKind.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ostrel {

/// A place in a source text: where it begins, and where it ends.
struct Extent {
    std::size_t begin;
    std::size_t end;
};

/// Builds the arrays of a tree from the leaves up, and can roll back to an earlier state.
///
///     TreeBuilder builder;
///     const NodeId x = builder.identifier(builder.intern(u"x"), scope, Role::Written, {0, 1});
///     const NodeId one = builder.literal(NodeKind::NumberLiteral, u"1", {4, 5});
///     builder.node(NodeKind::AssignmentStatement, {0, 5}, {builder.one(x), builder.one(one)});
class TreeBuilder {
public:
    /// The state that `rollBack` returns to: nodes and scopes made since are dropped, names stay.
    struct Checkpoint {
        std::size_t nodes;
        std::size_t fields;
        std::size_t elements;
        std::size_t identifiers;
        std::size_t scopes;
        std::size_t characters;
    };

    TreeBuilder();

    static Field one(NodeId child) { return {child, 1}; }
    static Field maybe(NodeId child) { return {child, child == 0 ? 0U : 1U}; }
    Field each(const NodeId* children, std::size_t count);

    /// A node of a kind with fields: all of them, in the order in which a walk visits them.
    NodeId node(zt::orvex::NodeKind kind, Extent extent, std::initializer_list<Field> fields,
                std::uint8_t op = 0);
    NodeId leaf(zt::orvex::NodeKind kind, Extent extent);
    /// A literal or a command word. The optional parts that its kind has are absent.
    NodeId literal(zt::orvex::NodeKind kind, std::u16string_view spelling, Extent extent);
    NodeId identifier(NameId name, ScopeId scope, Role role, Extent extent);

    ScopeId scope(ScopeKind kind, std::u16string_view name);
    void nameScope(ScopeId scope, NameId name) { storage.scopes[scope].name = name; }

    NameId intern(std::u16string_view name);

    const Node& at(NodeId node) const { return storage.nodes[node]; }
    const IdentifierData& identifierAt(NodeId node) const {
        return storage.identifiers[at(node).data];
    }
    /// The child in field `index` of a node that has a child there.
    NodeId child(NodeId node, std::size_t index) const {
        return storage.fields[at(node).data + index].begin;
    }
    NodeId element(std::size_t index) const { return storage.elements[index]; }
    void setRole(NodeId identifier, Role role) {
        storage.identifiers[at(identifier).data].role = role;
    }

    Checkpoint checkpoint() const;
    void rollBack(const Checkpoint& to);

    /// The finished arrays; the builder is empty afterwards.
    TreeStorage release();

private:
    NodeId add(zt::orvex::NodeKind kind, Extent extent, std::size_t data, std::uint8_t op = 0,
               std::size_t height = 1);
    std::size_t heightOf(zt::orvex::NodeKind kind, std::initializer_list<Field> fields) const;

    TreeStorage storage;
    std::unordered_map<std::u16string_view, NameId> nameIds;
};

} // namespace ostrel
