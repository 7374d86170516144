#pragma once

#include "syntax/CompoundAssignment.h"
#include "syntax/ExpressionParser.h"
#include "syntax/Misspelling.h"
#include "syntax/ParserState.h"
#include "syntax/StatementEnding.h"

#include <zt_orvex/ast/NodeKind.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace ostrel {

/// Parses the statements that contain no others: assignments, expressions, commands, declarations
/// and jumps.
class SimpleStatementParser {
public:
    SimpleStatementParser(ParserState& shared, ExpressionParser& expressionParser)
        : state(shared), expressions(expressionParser) {}

    /// Must be called at the beginning of another scope.
    void beginScope() { suspects.clear(); }

    /// A statement with its ending. Throws a SyntaxError if the text doesn't fit, which tells what
    /// was probably meant where that can be seen.
    NodeId statement();

    /// A statement of the scope that was probably meant to begin a block; each is told once.
    std::optional<Misspelling> takeMisspelledBlock() { return suspects.takeLast(state.source); }

private:
    NodeId statementOfKnownStart();
    NodeId withoutEnding();
    NodeId print(NodeId inner);
    NodeId nameStatement();
    NodeId command();
    NodeId implicitCommand();
    Field words(std::size_t from);
    NodeId assignmentOrExpression();
    NodeId expressionStatement(NodeId expression);
    bool isMultiAssignment() const;
    NodeId multiAssignment();
    NodeId multiTarget();
    NodeId declaration(zt::orvex::NodeKind kind);
    void willWrite(NodeId target);
    NodeId assignedName(NodeId target) const;

    void suspect(const Token& first, NodeId statement);
    void explain(SyntaxError& error, Extent first) const;
    std::string writtenOut(const CompoundAssignment& compound) const;
    bool isShort(Extent text) const;

    ParserState& state;
    ExpressionParser& expressions;
    std::vector<NodeId> targets; ///< What the current statement writes.
    SuspectWords suspects;
};

} // namespace ostrel
