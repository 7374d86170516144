#include "syntax/StatementParser.h"

#include "syntax/Limits.h"
#include "syntax/OutsideBrackets.h"

#include <algorithm>

namespace ostrel {

using zt::orvex::NodeKind;

// Lists

void StatementParser::statementsInto(NodeList& list) {
    while (true) {
        while (state.accept(TokenKind::LineEnd)) {
        }
        const bool isEnd = state.is(TokenKind::EndOfFile) || state.is(Keyword::End) ||
                           state.is(Keyword::Function) || state.is(Keyword::Class) ||
                           continuesOpenBlock();
        if (isEnd) return;
        list.add(statement());
    }
}

bool StatementParser::continuesOpenBlock() const {
    const Keyword keyword = state.token().keyword;
    return continuesBlock(keyword) &&
           std::any_of(openBlocks.begin(), openBlocks.end(),
                       [=](Keyword block) { return mayFollow(keyword, block); });
}

Field StatementParser::body(Keyword block) {
    openBlocks.push_back(block);
    NodeList list(state);
    statementsInto(list);
    openBlocks.pop_back();
    return list.store();
}

NodeId StatementParser::statement() {
    const std::size_t begin = state.token().begin;
    if (state.is(TokenKind::Semicolon) || state.is(TokenKind::Comma)) {
        return state.leafOfToken(NodeKind::EmptyStatement);
    }
    if (beginsBlock(state.token().keyword)) {
        return openBlocks.size() < MAX_BLOCK_NESTING ? block() : discardBlock();
    }
    if (continuesBlock(state.token().keyword)) {
        return reject(state.found() + " is outside its block");
    }
    if (isClosingBracket(state.token().kind)) return reject(state.found() + " closes nothing");
    NodeId result = 0;
    const bool isRight = attempt([&] { result = simple.statement(); });
    return isRight ? result : discarded(NodeKind::DiscardedStatement, begin);
}

NodeId StatementParser::reject(const std::string& message) {
    return reject({state.place(), message});
}

NodeId StatementParser::rejectEnd() {
    const auto misspelled = simple.takeMisspelledBlock();
    if (!misspelled) return reject("this 'end' closes nothing");
    return reject({misspelled->word,
                   "'" + state.shown(misspelled->word) + "' begins no block, so the 'end' at " +
                       state.named(state.token().begin) + " closes nothing",
                   didYouMean(*misspelled)});
}

NodeId StatementParser::reject(const SyntaxError& error) {
    const std::size_t begin = state.token().begin;
    state.advance();
    state.recoverFrom(error);
    const NodeId node = state.builder.leaf(NodeKind::DiscardedStatement, state.extentFrom(begin));
    acceptEnding(state);
    return node;
}

void StatementParser::blockEnding() {
    if (isBlockClosed) attempt([&] { expectEnding(state); });
}

// Blocks

NodeId StatementParser::block() {
    const auto read = [&] {
        switch (state.token().keyword) {
        case Keyword::For:
            return forStatement();
        case Keyword::If:
            return ifStatement();
        case Keyword::Parfor:
            return parforStatement();
        case Keyword::Spmd:
            return spmdStatement();
        case Keyword::Switch:
            return switchStatement();
        case Keyword::Try:
            return tryStatement();
        default:
            return whileStatement();
        }
    };
    const NodeId node = read();
    blockEnding();
    return node;
}

BlockId StatementParser::openBlock(std::string_view name) {
    const Extent keyword = state.place();
    state.advance();
    return state.blocks.open(keyword, name);
}

void StatementParser::closeBlock(BlockId block) {
    isBlockClosed = state.is(Keyword::End);
    if (isBlockClosed) {
        state.blocks.close(block, state.token().begin);
        state.advance();
    } else {
        state.blocks.closeWithoutEnd(block, isCutOff || state.openComment() != Lexer::NONE);
    }
    for (const MissingEnd& missing : state.blocks.takeMissing()) {
        const SyntaxError error = errorOf(missing, state.source);
        state.report(error.place, error.message, error.help);
    }
}

/// A leaf in place of what was skipped.
NodeId StatementParser::discarded(NodeKind kind, std::size_t begin) {
    return state.builder.leaf(kind, {begin, std::max(begin, discardedEnd)});
}

/// An expression and the end of its statement.
NodeId StatementParser::head() {
    const std::size_t begin = state.token().begin;
    NodeId result = 0;
    const bool isRight = attempt([&] {
        result = expressions.expression();
        expectEnding(state);
    });
    return isRight ? result : discarded(NodeKind::DiscardedExpression, begin);
}

NodeId StatementParser::condition() {
    const Scoped<bool> inCondition(state.isInCondition, true);
    return head();
}

NodeId StatementParser::ifStatement() {
    const Extent keyword = state.place();
    const std::size_t begin = keyword.begin;
    const bool isElseIf = elseIf.end == keyword.end;
    const BlockId block =
        isElseIf ? state.blocks.openElseIf(elseIf) : state.blocks.open(keyword, "if");
    state.advance();
    const NodeId test = condition();
    const Field statements = body(Keyword::If);
    NodeList clauses(state);
    while (state.is(Keyword::ElseIf))
        clauses.add(elseIfClause());
    const NodeId otherwise = state.is(Keyword::Else) ? elseClause() : 0;
    closeBlock(block);
    return state.builder.node(
        NodeKind::IfStatement, state.extentFrom(begin),
        {TreeBuilder::one(test), statements, clauses.store(), TreeBuilder::maybe(otherwise)});
}

NodeId StatementParser::elseIfClause() {
    const std::size_t begin = state.token().begin;
    state.advance();
    const NodeId test = condition();
    const Field statements = body(Keyword::If);
    return state.builder.node(NodeKind::ElseIfClause, state.extentFrom(begin),
                              {TreeBuilder::one(test), statements});
}

NodeId StatementParser::elseClause() {
    const std::size_t begin = state.token().begin;
    state.advance();
    if (state.is(Keyword::If)) elseIf = {begin, state.token().end};
    acceptEnding(state);
    const Field statements = body(Keyword::Else);
    return state.builder.node(NodeKind::ElseClause, state.extentFrom(begin), {statements});
}

NodeId StatementParser::whileStatement() {
    const std::size_t begin = state.token().begin;
    const BlockId block = openBlock("while");
    const NodeId test = condition();
    const Field statements = body(Keyword::While);
    closeBlock(block);
    return state.builder.node(NodeKind::WhileStatement, state.extentFrom(begin),
                              {TreeBuilder::one(test), statements});
}

NodeId StatementParser::switchStatement() {
    const std::size_t begin = state.token().begin;
    const BlockId block = openBlock("switch");
    const NodeId subject = head();
    dropBeforeCase();
    NodeList cases(state);
    while (state.is(Keyword::Case))
        cases.add(caseClause());
    const NodeId otherwise = state.is(Keyword::Otherwise) ? otherwiseClause() : 0;
    closeBlock(block);
    return state.builder.node(
        NodeKind::SwitchStatement, state.extentFrom(begin),
        {TreeBuilder::one(subject), cases.store(), TreeBuilder::maybe(otherwise)});
}

/// Drops statements between `switch` and its first `case`, where none may be.
void StatementParser::dropBeforeCase() {
    const auto skipEmpty = [&] {
        const std::size_t before = state.token().begin;
        acceptEnding(state);
        return state.token().begin != before;
    };
    while (skipEmpty()) {
    }
    const Extent first = state.place();
    const ParserState::Mark mark = state.mark();
    openBlocks.push_back(Keyword::Switch);
    NodeList dropped(state);
    statementsInto(dropped);
    openBlocks.pop_back();
    if (dropped.size() == 0) return;
    state.forgetNodes(mark);
    state.report(first, "this statement belongs to no 'case'");
}

NodeId StatementParser::caseClause() {
    const std::size_t begin = state.token().begin;
    state.advance();
    const NodeId expression = head();
    const Field statements = body(Keyword::Switch);
    return state.builder.node(NodeKind::CaseClause, state.extentFrom(begin),
                              {TreeBuilder::one(expression), statements});
}

NodeId StatementParser::otherwiseClause() {
    const std::size_t begin = state.token().begin;
    state.advance();
    acceptEnding(state);
    const Field statements = body(Keyword::Otherwise);
    return state.builder.node(NodeKind::OtherwiseClause, state.extentFrom(begin), {statements});
}

NodeId StatementParser::tryStatement() {
    const std::size_t begin = state.token().begin;
    const BlockId block = openBlock("try");
    acceptEnding(state);
    const Field statements = body(Keyword::Try);
    const NodeId handler = state.is(Keyword::Catch) ? catchClause() : 0;
    closeBlock(block);
    return state.builder.node(NodeKind::TryStatement, state.extentFrom(begin),
                              {statements, TreeBuilder::maybe(handler)});
}

NodeId StatementParser::catchClause() {
    const std::size_t begin = state.token().begin;
    state.advance();
    NodeId variable = 0;
    const bool isRight = attempt([&] {
        if (state.is(TokenKind::Identifier)) variable = state.identifierOfToken(Role::Mention);
        expectEnding(state);
    });
    if (!isRight) variable = 0;
    if (variable != 0) state.write(variable);
    const Field statements = body(Keyword::Catch);
    return state.builder.node(NodeKind::CatchClause, state.extentFrom(begin),
                              {TreeBuilder::maybe(variable), statements});
}

NodeId StatementParser::spmdStatement() {
    const std::size_t begin = state.token().begin;
    const BlockId block = openBlock("spmd");
    const Field optionRange = options();
    acceptEnding(state);
    const Field statements = body(Keyword::Spmd);
    closeBlock(block);
    const NodeId node = state.builder.node(NodeKind::SpmdStatement, state.extentFrom(begin),
                                           {optionRange, statements});
    state.constructs.push_back({node, state.scope});
    return node;
}

Field StatementParser::options() {
    const std::size_t begin = state.token().begin;
    Field result{0, 0};
    if (!state.is(TokenKind::LeftParen)) return result;
    const bool isRight = attempt([&] {
        const Scoped<bool> inParens(state.separatedByBlanks, false);
        state.openBracket();
        result = expressions.expressionsTo(TokenKind::RightParen);
    });
    if (isRight) return result;
    const NodeId instead = discarded(NodeKind::DiscardedExpression, begin);
    return state.builder.each(&instead, 1);
}

NodeId StatementParser::forStatement() {
    const std::size_t begin = state.token().begin;
    const BlockId block = openBlock("for");
    const LoopHead head = loopHead(false);
    const Field statements = body(Keyword::For);
    closeBlock(block);
    return state.builder.node(
        NodeKind::ForStatement, state.extentFrom(begin),
        {TreeBuilder::one(head.variable), TreeBuilder::one(head.expression), statements});
}

NodeId StatementParser::parforStatement() {
    const std::size_t begin = state.token().begin;
    const BlockId block = openBlock("parfor");
    const LoopHead head = loopHead(true); // only a parfor may have options
    const Field statements = body(Keyword::Parfor);
    closeBlock(block);
    const NodeId node =
        state.builder.node(NodeKind::ParforStatement, state.extentFrom(begin),
                           {TreeBuilder::one(head.variable), TreeBuilder::one(head.expression),
                            head.options, statements});
    const bool hasVariable = state.builder.at(head.variable).kind == NodeKind::Identifier;
    if (hasVariable) state.constructs.push_back({node, state.scope});
    return node;
}

/// The head of a loop, after its keyword.
StatementParser::LoopHead StatementParser::loopHead(bool mayHaveOptions) {
    const std::size_t begin = state.token().begin;
    LoopHead head;
    const bool isRight = attempt([&] {
        if (state.is(TokenKind::LeftParen)) {
            loopHeadInParens(head, mayHaveOptions);
        } else {
            loopRange(head);
            expectEnding(state);
        }
    });
    if (isRight) {
        state.write(head.variable);
        return head;
    }
    return {discarded(NodeKind::DiscardedExpression, begin),
            discarded(NodeKind::DiscardedExpression, begin),
            {0, 0}};
}

void StatementParser::loopHeadInParens(LoopHead& head, bool mayHaveOptions) {
    const Scoped<bool> inParens(state.separatedByBlanks, false);
    state.openBracket();
    loopRange(head);
    if (mayHaveOptions && state.accept(TokenKind::Comma)) {
        head.options = expressions.expressionsTo(TokenKind::RightParen);
        if (head.options.count == 0) state.fail("expected an option");
    } else {
        state.closeBracket(TokenKind::RightParen);
    }
    acceptEnding(state);
}

void StatementParser::loopRange(LoopHead& head) {
    if (!state.is(TokenKind::Identifier)) {
        state.fail("expected a loop variable, found " + state.found());
    }
    head.variable = state.identifierOfToken(Role::Mention);
    state.expect(TokenKind::Assign, "expected '='");
    head.expression = expressions.expression();
}

// What nests too deeply

NodeId StatementParser::discardBlock() {
    const std::size_t begin = state.token().begin;
    state.report(state.place(),
                 "blocks are nested deeper than " + std::to_string(MAX_BLOCK_NESTING) + " levels");
    skipBlock();
    const NodeId node = state.builder.leaf(NodeKind::DiscardedStatement, state.extentFrom(begin));
    if (!isCutOff) attempt([&] { expectEnding(state); });
    return node;
}

/// Skips past the `end` of the current block. If the text ends first, the enclosing blocks lack
/// their `end` too, which isn't worth another error.
void StatementParser::skipBlock() {
    OutsideBrackets ahead(state.lookAhead());
    Token token;
    for (std::size_t depth = 1; depth > 0;) {
        token = ahead.next();
        isCutOff = token.kind == TokenKind::EndOfFile || token.keyword == Keyword::Function;
        if (isCutOff) break;
        if (beginsBlock(token.keyword)) ++depth;
        if (token.keyword == Keyword::End) --depth;
    }
    state.skipTo(isCutOff ? token.begin : token.end);
}

} // namespace ostrel
