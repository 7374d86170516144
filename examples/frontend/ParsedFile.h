#pragma once

#include "source/Diagnostic.h"
#include "source/SourceText.h"
#include "tree/Tree.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {

/// A pragma comment, from its `%#` to the end of its line, outside of block comments. Give `text`
/// to `zt::orvex::parsePragma`.
struct PragmaComment {
    std::size_t offset;
    std::u16string text;
};

/// A function or method, or the script part of a file.
struct Scope {
    std::string name; ///< The bare name in UTF-8; empty for the script.

    /// The variables in order of first appearance in the text: the universe of every construct in
    /// the scope. It excludes the parameters of anonymous functions.
    std::vector<zt::orvex::SymbolView> universe;

    zt::orvex::SymbolView ans; ///< In `universe` only if the text names it.
};

/// A `parfor` or `spmd` statement, nested ones included.
struct Construct {
    zt::orvex::NodeView node; ///< A ParforStatement, whose variable is an Identifier, or a
                              ///< SpmdStatement.
    std::size_t offset;       ///< Of the keyword.
    std::size_t scope;        ///< Index in `ParsedFile::scopes`.
};

/// A parsed source file, in terms of the library.
///
/// Its views point into `tree`, so they live as long as it does; the struct may be moved.
///
///     const ParsedFile file = parseOstrel("sum.ost", text);
///     for (const Construct& construct : file.constructs) {
///         const Scope& scope = file.scopes[construct.scope];
///         flow::OrderedSet<SymbolView> universe(scope.universe.begin(), scope.universe.end());
///         ...
///     }
struct ParsedFile {
    std::string path;
    bool isUtf8 = true;         ///< If not, there is one diagnostic, and the program is empty.
    SourceText source;          ///< If the file isn't UTF-8, what precedes the first wrong byte.
    std::unique_ptr<Tree> tree; ///< Never null.
    zt::orvex::NodeView root{}; ///< The Program: what could be parsed.

    std::vector<Scope> scopes;           ///< In source order.
    std::vector<Construct> constructs;   ///< In source order.
    std::vector<PragmaComment> pragmas;  ///< In source order.
    std::vector<Diagnostic> diagnostics; ///< In source order.

    bool hasErrors() const { return !diagnostics.empty(); }
};

/// Parses the text of a file. `path` is stored, not opened.
///
/// Never throws because of the text: every mistake becomes one entry of `diagnostics` and costs the
/// line that it is on; a text of more than MAX_SOURCE_SIZE bytes is one, and isn't read. Cost:
/// linear in the text. Recursion is bounded (see syntax/Limits.h), and so is the depth of the tree,
/// on which walkers recurse.
ParsedFile parseOstrel(std::string path, std::string_view utf8Text);

} // namespace ostrel
