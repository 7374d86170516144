#pragma once

#include "syntax/ExpressionParser.h"
#include "syntax/ParserState.h"
#include "syntax/SyntaxError.h"

#include <zt_orvex/ast/NodeKind.h>

#include <cstddef>
#include <string>
#include <vector>

namespace ostrel {

/// Parses statements and lists of them.
///
/// An error in a statement is reported, and the statement becomes a DiscardedStatement. After an
/// error in the head of a block, only the head becomes a DiscardedExpression, so that the block
/// keeps its `end`.
class StatementParser {
public:
    StatementParser(ParserState& shared, ExpressionParser& expressionParser)
        : state(shared), expressions(expressionParser) {}

    /// Must be called at the beginning of another scope.
    void beginScope() { isCutOff = false; }

    /// Appends statements up to a token that ends the list: `end`, a keyword that continues an
    /// enclosing block, `function`, `class`, or the end of the file.
    void statementsInto(NodeList& list);

    /// Consumes the `end` of the block whose keyword is at `opener`; reports it if it is missing.
    void closeBlock(std::size_t opener, const char* keyword);

    /// Consumes what ends a statement, after the `end` that `closeBlock` has consumed.
    void blockEnding();

    /// Reports an error at the first token of a statement, and skips the statement.
    NodeId reject(const std::string& message);

    /// Consumes `;`, `,` or a line end if one follows.
    void optionalEnding();

    /// Runs `read` on something that has a line of its own. After a syntax error, reports it, drops
    /// the nodes, skips the line and returns false.
    template <typename Read>
    bool attempt(Read read) {
        const TreeBuilder::Checkpoint checkpoint = state.builder.checkpoint();
        try {
            read();
            return true;
        } catch (const SyntaxError& error) {
            state.builder.rollBack(checkpoint);
            state.recoverFrom(error);
            discardedEnd = state.previousEnd();
            optionalEnding();
            return false;
        }
    }

    /// Consumes `;`, `,`, a line end or the end of the file, one of which must follow.
    enum class Ending { Silent, Printing };
    Ending ending();

private:
    /// The head of a `for` or `parfor`.
    struct LoopHead {
        NodeId variable = 0;
        NodeId expression = 0;
        Field options{0, 0};
    };

    NodeId statement();
    NodeId simple();
    NodeId simpleWithoutEnding();
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

    NodeId block();
    NodeId ifStatement();
    NodeId elseIfClause();
    NodeId elseClause();
    NodeId whileStatement();
    NodeId switchStatement();
    void dropBeforeCase();
    NodeId caseClause();
    NodeId otherwiseClause();
    NodeId tryStatement();
    NodeId catchClause();
    NodeId spmdStatement();
    NodeId forStatement();
    NodeId parforStatement();

    LoopHead loopHead();
    void loopHeadInParens(LoopHead& head, bool mayHaveOptions);
    void loopRange(LoopHead& head);
    Field options();
    NodeId head();
    NodeId discarded(zt::orvex::NodeKind kind, std::size_t begin);
    Field body(Keyword block);
    bool continuesOpenBlock() const;
    NodeId discardBlock();
    void skipBlock();

    ParserState& state;
    ExpressionParser& expressions;
    std::vector<Keyword> openBlocks;
    std::vector<NodeId> targets;  ///< What the current statement writes.
    std::size_t discardedEnd = 0; ///< The end of what was skipped last.
    bool isBlockClosed = true;    ///< Whether the last block had its `end`.
    bool isCutOff = false;        ///< Whether the file ended inside a skipped block.
};

} // namespace ostrel
