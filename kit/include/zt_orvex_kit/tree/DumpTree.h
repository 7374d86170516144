#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex_kit/Export.h>

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>

namespace zt::orvex::kit {

/// How a dump looks.
enum class DumpFormat {
    /// A line for each node, indented by its depth:
    ///
    ///     AssignmentStatement (node 0x3)
    ///       getAssignmentLhs: Identifier x (node 0x1) symbol 0x1
    ///       getAssignmentRhs: NumberLiteral 1.5 (node 0x2)
    ///
    /// Lines deeper than 40 levels stay where they are and begin with their depth, "[41] ", so that
    /// the text of a deep tree isn't quadratic.
    Text,
    /// A graph for `dot`, whose edges carry the roles.
    Dot,
    /// Nested objects with `kind`, `class`, `node`, `role`, `index`, `name`, `symbol`, `variable`,
    /// `operator`, `literal` and `children`, each where it means something. Handles are strings
    /// such as "0x3", since a number of JSON can't hold all of them.
    Json,
};

/// What a dump shows, and how.
struct DumpOptions {
    DumpFormat format = DumpFormat::Text; ///< How it looks.
    /// The text of a literal in UTF-8, which `IAstView` doesn't tell. Asked of NumberLiteral,
    /// CharacterLiteral and StringLiteral; without it the kind has to do.
    std::function<std::string(const NodeView&)> literalText = {};
    /// The dump ends after as many nodes, with "...". The JSON stays valid.
    std::size_t maxNodes = 1'000'000;
};

/// Writes a tree with names, symbols and literals, in UTF-8.
///
///     dumpTree(std::cerr, root);
///     dumpTree(file, root, {DumpFormat::Dot, [&](NodeView node) { return sourceOf(node); }});
///
/// For people who look for a mistake, so it also shows what a walk would skip: a node of an unknown
/// kind, and a child without a `view`. It asks such a child nothing. It doesn't recurse, and takes
/// less than 100 bytes a level. Exceptions of the tree and of `literalText` pass through.
ZT_ORVEX_KIT_EXPORT void dumpTree(std::ostream& stream, const NodeView& root,
                                  const DumpOptions& options = {});

/// The same as a string.
ZT_ORVEX_KIT_EXPORT std::string dumpTree(const NodeView& root, const DumpOptions& options = {});

} // namespace zt::orvex::kit
