#pragma once

#include "Require.h"
#include "frontend/ParsedFile.h"
#include "source/UnsafeCharacters.h"
#include "source/Utf8.h"
#include "syntax/Limits.h"
#include "syntax/Printer.h"
#include "tree/Dump.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <cstddef>
#include <string>

namespace zt::orvex::fuzz {

inline bool isSafeLine(const std::string& utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        char32_t character = 0;
        const std::size_t length = ostrel::readCodePoint(utf8, at, character);
        if (length == 0 || ostrel::isUnsafeToShow(character)) return false;
        at += length;
    }
    return true;
}

inline void checkDiagnostics(const ostrel::ParsedFile& file) {
    std::size_t last = 0;
    for (const ostrel::Diagnostic& diagnostic : file.diagnostics) {
        require(last <= diagnostic.place.offset, "errors are in source order");
        last = diagnostic.place.offset;
        const ostrel::Position place = file.source.position(diagnostic.place.offset);
        require(place.line == diagnostic.place.line && place.column == diagnostic.place.column,
                "an error's line and column are those of its offset");
        require(!diagnostic.message.empty(), "an error says what it is");
        require(diagnostic.place.offset + diagnostic.place.length <= file.source.size(),
                "an error lies in the text");
        require(isSafeLine(diagnostic.message) && isSafeLine(diagnostic.help),
                "an error is one line that is safe to show");
    }
}

inline void checkTree(const ostrel::ParsedFile& file) {
    require(file.tree->height() <= ostrel::MAX_TREE_HEIGHT, "the tree is within the limit");
    forEachNodeIn(file.root, [&](const NodeView& node) {
        require(file.tree->beginOffset(node) <= file.tree->endOffset(node) &&
                    file.tree->endOffset(node) <= file.source.size(),
                "a node lies in the text");
        if (node.getKind() != NodeKind::Identifier) return;
        const SymbolView symbol = file.tree->getIdentifierSymbol(node.node);
        require(file.tree->symbolName(symbol) == file.tree->getIdentifierName(node.node),
                "a symbol has its identifier's name");
    });
    for (const ostrel::Construct& construct : file.constructs)
        require(construct.scope < file.scopes.size(), "a construct has a scope");
}

/// A program without errors prints as text of the same tree, which prints as the same text.
inline void checkPrinting(const ostrel::ParsedFile& file) {
    const std::string printed = printSource(*file.tree);
    if (file.hasErrors()) return;
    const ostrel::ParsedFile second = ostrel::parseOstrel("printed.ost", printed);
    require(!second.hasErrors(), "printed text has no errors");
    require(isSameTree(*file.tree, *second.tree), "printed text parses to the same tree");
    require(printSource(*second.tree) == printed, "it prints as itself");
}

inline void checkParsedFile(const ostrel::ParsedFile& file) {
    checkDiagnostics(file);
    checkTree(file);
    checkPrinting(file);
}

} // namespace zt::orvex::fuzz
