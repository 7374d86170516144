#pragma once

#include "syntax/ExpressionParser.h"
#include "syntax/ParserState.h"
#include "syntax/SyntaxError.h"

#include <zt_orvex/ast/NodeKind.h>

#include <cstddef>
#include <string>
#include <vector>

namespace ostrel {

/// Reads statements and lists of them.
///
/// What is wrong in a statement is reported, and the statement becomes a DiscardedStatement. What
/// is wrong in the head of a block becomes a DiscardedExpression, so that the block keeps its
/// `end`.
class StatementParser {
public:
    StatementParser(ParserState& shared, ExpressionParser& expressionParser)
        : state(shared), expressions(expressionParser) {}

    /// Must be called where the text of another scope begins.
    void beginScope() { isCutOff = false; }

    /// Appends statements up to a token that ends the list: `end`, a keyword that goes on with a
    /// block around it, `function`, `class`, or the end of the file.
    void statementsInto(NodeList& list);

    /// Takes the `end` of the block whose keyword stands at `opener`, and reports it if missing.
    void closeBlock(std::size_t opener, const char* keyword);

    /// What ends a statement, behind the `end` that `closeBlock` has taken.
    void blockEnding();

    /// A statement that goes wrong with its first token: skipped, with an error.
    NodeId reject(const std::string& message);

    /// `;`, `,` or a line end, if one follows.
    void optionalEnding();

    /// Reads something on a line of its own. When it is wrong, reports that, forgets its nodes,
    /// skips the line and gives false.
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

    /// `;`, `,`, a line end or the end of the file, which must follow.
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
    bool goesOnWithOpenBlock() const;
    NodeId discardBlock();
    void skipBlock();

    ParserState& state;
    ExpressionParser& expressions;
    std::vector<Keyword> openBlocks;
    std::vector<NodeId> targets;  ///< What the statement under way writes.
    std::size_t discardedEnd = 0; ///< Where the last thing ends that was skipped.
    bool isBlockClosed = true;    ///< Whether the last block had its `end`.
    bool isCutOff = false;        ///< The file ended within a block that was skipped.
};

} // namespace ostrel
