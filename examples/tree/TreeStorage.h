#pragma once

#include <zt_orvex/ast/NodeKind.h>

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace ostrel {

/// Indices into the arrays of a `TreeStorage`. 0 is "none" for nodes.
using NodeId = std::uint32_t;
using NameId = std::uint32_t;
using ScopeId = std::uint32_t;
using SymbolId = std::uint32_t;

/// One field of a node: the child itself and a count of 1 or 0, or a run of `elements`. The field
/// after those of a literal's kind is its spelling, a run of `characters`.
struct Field {
    std::uint32_t begin;
    std::uint32_t count;
};

/// One node. `data` is the index of its first field; of an identifier, its index in `identifiers`.
struct Node {
    zt::orvex::NodeKind kind;
    std::uint8_t op;      ///< The operator of a BinaryOperation or UnaryOperation.
    std::uint16_t height; ///< Levels of the tree from here down: 1 for a leaf.
    std::uint32_t begin;  ///< Offset in the source.
    std::uint32_t end;    ///< Offset after the node's last token.
    std::uint32_t data;
};

/// How an identifier takes part in its scope.
enum class Role : std::uint8_t {
    Mention,  ///< Occurs in the scope's text.
    Written,  ///< Occurs in the scope's text and makes its symbol a variable there.
    Implicit, ///< The `ans` of a statement without a target: doesn't occur in the text.
    Label,    ///< A name that isn't a variable of any scope: a field, a function, an attribute.
};

struct IdentifierData {
    NameId name;
    ScopeId scope;
    SymbolId symbol; ///< Set by `resolveSymbols` after the whole text has been read.
    Role role;
};

/// What a scope belongs to.
enum class ScopeKind : std::uint8_t {
    Labels,    ///< Scope 0: names that aren't looked up.
    Script,    ///< The script part of a file; in a class file, what is outside of the methods.
    Function,  ///< A function or a method.
    Anonymous, ///< The parameters of an anonymous function.
};

struct ScopeData {
    ScopeKind kind;
    NameId name; ///< The function's bare name; the empty name for a script.
};

struct SymbolData {
    NameId name;
    ScopeId scope;
    bool isVariable;
    bool isMentioned; ///< Whether the text of the scope names it.
};

/// The arrays of a tree. A child comes before its parent in `nodes`, and identifiers are in the
/// order of the text.
struct TreeStorage {
    std::vector<Node> nodes;
    std::vector<Field> fields;
    std::vector<NodeId> elements;
    std::vector<IdentifierData> identifiers;
    std::vector<ScopeData> scopes;
    std::vector<SymbolData> symbols;
    std::u16string characters;
    std::deque<std::u16string> names; ///< A deque: names never move.
};

} // namespace ostrel
