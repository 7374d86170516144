#pragma once

#include "syntax/BlockLog.h"
#include "syntax/ExpressionParser.h"
#include "syntax/ParserState.h"
#include "syntax/SimpleStatementParser.h"
#include "syntax/StatementEnding.h"
#include "syntax/SyntaxError.h"

#include <zt_orvex/ast/NodeKind.h>

#include <cstddef>
#include <string>
#include <string_view>
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
        : state(shared), expressions(expressionParser), simple(shared, expressionParser) {}

    /// Must be called at the beginning of another scope.
    void beginScope() {
        isCutOff = false;
        simple.beginScope();
    }

    /// Appends statements up to a token that ends the list: `end`, a keyword that continues an
    /// enclosing block, `function`, `class`, or the end of the file.
    void statementsInto(NodeList& list);

    /// Consumes the keyword of a block of this name, which must outlive the parser.
    BlockId openBlock(std::string_view name);

    /// Consumes the `end` of a block. Once an outermost block is closed, reports those in it whose
    /// `end` is missing.
    void closeBlock(BlockId block);

    /// Consumes what ends a statement, after the `end` that `closeBlock` has consumed.
    void blockEnding();

    /// Reports an error at the first token of a statement, and skips the statement.
    NodeId reject(const std::string& message);

    /// Rejects an `end` that closes nothing. If a statement before it may be the head of its block,
    /// with a misspelled keyword, the error is there.
    NodeId rejectEnd();

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
            acceptEnding(state);
            return false;
        }
    }

private:
    /// The head of a `for` or `parfor`.
    struct LoopHead {
        NodeId variable = 0;
        NodeId expression = 0;
        Field options{0, 0};
    };

    NodeId statement();
    NodeId reject(const SyntaxError& error);

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

    LoopHead loopHead(bool mayHaveOptions);
    void loopHeadInParens(LoopHead& head, bool mayHaveOptions);
    void loopRange(LoopHead& head);
    Field options();
    NodeId head();
    NodeId condition();
    NodeId discarded(zt::orvex::NodeKind kind, std::size_t begin);
    Field body(Keyword block);
    bool continuesOpenBlock() const;
    NodeId discardBlock();
    void skipBlock();

    ParserState& state;
    ExpressionParser& expressions;
    SimpleStatementParser simple;
    std::vector<Keyword> openBlocks;
    Extent elseIf{0, 0};          ///< The last `else` with an `if` on its line.
    std::size_t discardedEnd = 0; ///< The end of what was skipped last.
    bool isBlockClosed = true;    ///< Whether the last block had its `end`.
    bool isCutOff = false;        ///< Whether the file ended inside a skipped block.
};

} // namespace ostrel
