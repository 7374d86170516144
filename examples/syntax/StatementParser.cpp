#include "syntax/StatementParser.h"

#include "syntax/CommandSyntax.h"
#include "syntax/Limits.h"
#include "syntax/OutsideBrackets.h"

#include <algorithm>

namespace ostrel {

using zt::orvex::NodeKind;

namespace {

bool continuesBlock(Keyword keyword) {
    switch (keyword) {
    case Keyword::Case:
    case Keyword::Catch:
    case Keyword::Else:
    case Keyword::ElseIf:
    case Keyword::Otherwise:
        return true;
    default:
        return false;
    }
}

/// Whether `keyword` may follow a body that `block` has begun.
bool mayFollow(Keyword keyword, Keyword block) {
    switch (keyword) {
    case Keyword::Case:
    case Keyword::Otherwise:
        return block == Keyword::Switch;
    case Keyword::Catch:
        return block == Keyword::Try;
    default:
        return block == Keyword::If;
    }
}

} // namespace

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
    const bool isRight = attempt([&] { result = simple(); });
    return isRight ? result : discarded(NodeKind::DiscardedStatement, begin);
}

NodeId StatementParser::reject(const std::string& message) {
    const std::size_t begin = state.token().begin;
    state.advance();
    state.recoverFrom({begin, message});
    const NodeId node = state.builder.leaf(NodeKind::DiscardedStatement, state.extentFrom(begin));
    optionalEnding();
    return node;
}

// Statements that end with their line

NodeId StatementParser::simple() {
    targets.clear();
    const NodeId inner = simpleWithoutEnding();
    const bool prints = ending() == Ending::Printing;
    for (const NodeId target : targets)
        state.write(target);
    return prints ? print(inner) : inner;
}

NodeId StatementParser::print(NodeId inner) {
    const Node node = state.builder.at(inner);
    const bool isPrinted = node.kind == NodeKind::AssignmentStatement ||
                           node.kind == NodeKind::ExpressionStatement ||
                           node.kind == NodeKind::MultiAssignmentStatement;
    if (!isPrinted) return inner;
    return state.builder.node(NodeKind::PrintStatement, {node.begin, node.end},
                              {TreeBuilder::one(inner)});
}

NodeId StatementParser::simpleWithoutEnding() {
    switch (state.token().keyword) {
    case Keyword::Break:
        return state.leafOfToken(NodeKind::BreakStatement);
    case Keyword::Continue:
        return state.leafOfToken(NodeKind::ContinueStatement);
    case Keyword::Return:
        return state.leafOfToken(NodeKind::ReturnStatement);
    case Keyword::Global:
        return declaration(NodeKind::GlobalDeclaration);
    case Keyword::Persistent:
        return declaration(NodeKind::PersistentDeclaration);
    default:
        break;
    }
    if (state.is(TokenKind::Identifier)) return nameStatement();
    if (state.is(TokenKind::ExclamationMark)) return implicitCommand();
    if (state.is(TokenKind::LeftBracket) && isMultiAssignment()) return multiAssignment();
    return assignmentOrExpression();
}

StatementParser::Ending StatementParser::ending() {
    if (state.accept(TokenKind::Semicolon)) return Ending::Silent;
    const bool isEnd = state.accept(TokenKind::Comma) || state.accept(TokenKind::LineEnd) ||
                       state.is(TokenKind::EndOfFile);
    if (!isEnd) state.fail("expected the end of the statement, found " + state.found());
    return Ending::Printing;
}

void StatementParser::blockEnding() {
    if (isBlockClosed) attempt([&] { ending(); });
}

void StatementParser::optionalEnding() {
    const bool isEnding = state.is(TokenKind::Semicolon) || state.is(TokenKind::Comma) ||
                          state.is(TokenKind::LineEnd);
    if (isEnding) state.advance();
}

NodeId StatementParser::nameStatement() {
    const Token name = state.token();
    const bool isCommand =
        hasCommandShape(state.source, name.end) && !state.isVariable(state.text(name));
    return isCommand ? command() : assignmentOrExpression();
}

NodeId StatementParser::command() {
    const Token name = state.token();
    const NodeId callee = state.identifierOfToken(Role::Mention);
    const Field commandWords = words(name.end);
    return state.builder.node(
        NodeKind::CommandStatement, state.extentFrom(name.begin),
        {TreeBuilder::one(state.implicitAns(name.begin)), TreeBuilder::one(callee), commandWords});
}

NodeId StatementParser::implicitCommand() {
    const Token mark = state.token();
    const Field commandWords = words(mark.end);
    if (commandWords.count == 0) state.failAt(mark.begin, "expected a command after '!'");
    return state.builder.node(NodeKind::ImplicitCommandStatement, state.extentFrom(mark.begin),
                              {TreeBuilder::one(state.implicitAns(mark.begin)), commandWords});
}

Field StatementParser::words(std::size_t from) {
    const CommandWords read = readCommandWords(state.source, from);
    NodeList list(state);
    for (const CommandWord& word : read.words) {
        const auto spelling =
            std::u16string_view(state.source.text()).substr(word.begin, word.end - word.begin);
        list.add(
            state.builder.literal(NodeKind::CharacterLiteral, spelling, {word.begin, word.end}));
    }
    state.seek(read.end);
    if (read.openQuote != Lexer::NONE)
        state.failAt(read.openQuote, "the quoted text is not closed");
    return list.store();
}

NodeId StatementParser::assignmentOrExpression() {
    const std::size_t begin = state.token().begin;
    const NodeId lhs = expressions.expression();
    if (!state.is(TokenKind::Assign)) return expressionStatement(lhs);
    willWrite(lhs);
    state.advance();
    const NodeId rhs = expressions.expression();
    return state.builder.node(NodeKind::AssignmentStatement, state.extentFrom(begin),
                              {TreeBuilder::one(lhs), TreeBuilder::one(rhs)});
}

NodeId StatementParser::expressionStatement(NodeId expression) {
    const Node node = state.builder.at(expression);
    const Extent extent{node.begin, node.end};
    if (node.kind == NodeKind::Identifier) {
        const std::u16string_view name =
            std::u16string_view(state.source.text()).substr(node.begin, node.end - node.begin);
        if (!state.isVariable(name)) {
            return state.builder.node(NodeKind::BareIdentifierStatement, extent,
                                      {TreeBuilder::one(expression)});
        }
    }
    return state.builder.node(
        NodeKind::ExpressionStatement, extent,
        {TreeBuilder::one(state.implicitAns(node.begin)), TreeBuilder::one(expression)});
}

/// Whether the current bracket is closed on its line and `=` follows.
bool StatementParser::isMultiAssignment() const {
    OutsideBrackets ahead(state.lookAhead(), 1);
    const bool isClosed = ahead.next().kind == TokenKind::RightBracket;
    return isClosed && ahead.next().kind == TokenKind::Assign;
}

NodeId StatementParser::multiAssignment() {
    const std::size_t begin = state.token().begin;
    NodeList list(state);
    {
        const Scoped<bool> inBrackets(state.separatedByBlanks, true);
        state.openBracket();
        do {
            list.add(multiTarget());
        } while (state.accept(TokenKind::Comma) ||
                 (state.token().blankBefore && !state.is(TokenKind::RightBracket)));
        state.closeBracket(TokenKind::RightBracket);
    }
    state.expect(TokenKind::Assign, "expected '='");
    const NodeId rhs = expressions.expression();
    return state.builder.node(NodeKind::MultiAssignmentStatement, state.extentFrom(begin),
                              {list.store(), TreeBuilder::one(rhs)});
}

NodeId StatementParser::multiTarget() {
    if (state.is(TokenKind::Tilde)) return state.leafOfToken(NodeKind::IgnoredArgument);
    const NodeId target = expressions.postfix();
    willWrite(target);
    return target;
}

void StatementParser::willWrite(NodeId target) {
    const NodeId name = expressions.assignedName(target);
    if (name == 0) {
        state.failAt(state.builder.at(target).begin, "this expression cannot be assigned to");
    }
    targets.push_back(name);
}

NodeId StatementParser::declaration(NodeKind kind) {
    const std::size_t begin = state.token().begin;
    state.advance();
    if (!state.is(TokenKind::Identifier)) state.fail("expected a name, found " + state.found());
    NodeList names(state);
    while (state.is(TokenKind::Identifier)) {
        const NodeId name = state.identifierOfToken(Role::Written);
        targets.push_back(name);
        names.add(name);
    }
    return state.builder.node(kind, state.extentFrom(begin), {names.store()});
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

void StatementParser::closeBlock(std::size_t opener, const char* keyword) {
    isBlockClosed = state.is(Keyword::End);
    if (isBlockClosed) {
        state.advance();
    } else if (!isCutOff && state.openComment() == Lexer::NONE) {
        state.report(opener, std::string("'") + keyword + "' has no 'end'");
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
        ending();
    });
    return isRight ? result : discarded(NodeKind::DiscardedExpression, begin);
}

NodeId StatementParser::ifStatement() {
    const std::size_t begin = state.token().begin;
    state.advance();
    const NodeId condition = head();
    const Field statements = body(Keyword::If);
    NodeList clauses(state);
    while (state.is(Keyword::ElseIf))
        clauses.add(elseIfClause());
    const NodeId otherwise = state.is(Keyword::Else) ? elseClause() : 0;
    closeBlock(begin, "if");
    return state.builder.node(
        NodeKind::IfStatement, state.extentFrom(begin),
        {TreeBuilder::one(condition), statements, clauses.store(), TreeBuilder::maybe(otherwise)});
}

NodeId StatementParser::elseIfClause() {
    const std::size_t begin = state.token().begin;
    state.advance();
    const NodeId condition = head();
    const Field statements = body(Keyword::If);
    return state.builder.node(NodeKind::ElseIfClause, state.extentFrom(begin),
                              {TreeBuilder::one(condition), statements});
}

NodeId StatementParser::elseClause() {
    const std::size_t begin = state.token().begin;
    state.advance();
    optionalEnding();
    const Field statements = body(Keyword::Else);
    return state.builder.node(NodeKind::ElseClause, state.extentFrom(begin), {statements});
}

NodeId StatementParser::whileStatement() {
    const std::size_t begin = state.token().begin;
    state.advance();
    const NodeId condition = head();
    const Field statements = body(Keyword::While);
    closeBlock(begin, "while");
    return state.builder.node(NodeKind::WhileStatement, state.extentFrom(begin),
                              {TreeBuilder::one(condition), statements});
}

NodeId StatementParser::switchStatement() {
    const std::size_t begin = state.token().begin;
    state.advance();
    const NodeId subject = head();
    dropBeforeCase();
    NodeList cases(state);
    while (state.is(Keyword::Case))
        cases.add(caseClause());
    const NodeId otherwise = state.is(Keyword::Otherwise) ? otherwiseClause() : 0;
    closeBlock(begin, "switch");
    return state.builder.node(
        NodeKind::SwitchStatement, state.extentFrom(begin),
        {TreeBuilder::one(subject), cases.store(), TreeBuilder::maybe(otherwise)});
}

/// Drops statements between `switch` and its first `case`, where none may be.
void StatementParser::dropBeforeCase() {
    const auto skipEmpty = [&] {
        const std::size_t before = state.token().begin;
        optionalEnding();
        return state.token().begin != before;
    };
    while (skipEmpty()) {
    }
    const std::size_t begin = state.token().begin;
    const ParserState::Mark mark = state.mark();
    openBlocks.push_back(Keyword::Switch);
    NodeList dropped(state);
    statementsInto(dropped);
    openBlocks.pop_back();
    if (dropped.size() == 0) return;
    state.forgetNodes(mark);
    state.report(begin, "this statement belongs to no 'case'");
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
    optionalEnding();
    const Field statements = body(Keyword::Otherwise);
    return state.builder.node(NodeKind::OtherwiseClause, state.extentFrom(begin), {statements});
}

NodeId StatementParser::tryStatement() {
    const std::size_t begin = state.token().begin;
    state.advance();
    optionalEnding();
    const Field statements = body(Keyword::Try);
    const NodeId handler = state.is(Keyword::Catch) ? catchClause() : 0;
    closeBlock(begin, "try");
    return state.builder.node(NodeKind::TryStatement, state.extentFrom(begin),
                              {statements, TreeBuilder::maybe(handler)});
}

NodeId StatementParser::catchClause() {
    const std::size_t begin = state.token().begin;
    state.advance();
    NodeId variable = 0;
    const bool isRight = attempt([&] {
        if (state.is(TokenKind::Identifier)) variable = state.identifierOfToken(Role::Mention);
        ending();
    });
    if (!isRight) variable = 0;
    if (variable != 0) state.write(variable);
    const Field statements = body(Keyword::Catch);
    return state.builder.node(NodeKind::CatchClause, state.extentFrom(begin),
                              {TreeBuilder::maybe(variable), statements});
}

NodeId StatementParser::spmdStatement() {
    const std::size_t begin = state.token().begin;
    state.advance();
    const Field optionRange = options();
    optionalEnding();
    const Field statements = body(Keyword::Spmd);
    closeBlock(begin, "spmd");
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
    const LoopHead head = loopHead();
    const Field statements = body(Keyword::For);
    closeBlock(begin, "for");
    return state.builder.node(
        NodeKind::ForStatement, state.extentFrom(begin),
        {TreeBuilder::one(head.variable), TreeBuilder::one(head.expression), statements});
}

NodeId StatementParser::parforStatement() {
    const std::size_t begin = state.token().begin;
    const LoopHead head = loopHead();
    const Field statements = body(Keyword::Parfor);
    closeBlock(begin, "parfor");
    const NodeId node =
        state.builder.node(NodeKind::ParforStatement, state.extentFrom(begin),
                           {TreeBuilder::one(head.variable), TreeBuilder::one(head.expression),
                            head.options, statements});
    const bool hasVariable = state.builder.at(head.variable).kind == NodeKind::Identifier;
    if (hasVariable) state.constructs.push_back({node, state.scope});
    return node;
}

/// The head of the current loop; only that of a `parfor` may have options.
StatementParser::LoopHead StatementParser::loopHead() {
    const bool mayHaveOptions = state.is(Keyword::Parfor);
    state.advance();
    const std::size_t begin = state.token().begin;
    LoopHead head;
    const bool isRight = attempt([&] {
        if (state.is(TokenKind::LeftParen)) {
            loopHeadInParens(head, mayHaveOptions);
        } else {
            loopRange(head);
            ending();
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
    optionalEnding();
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
    state.report(begin,
                 "blocks are nested deeper than " + std::to_string(MAX_BLOCK_NESTING) + " levels");
    skipBlock();
    const NodeId node = state.builder.leaf(NodeKind::DiscardedStatement, state.extentFrom(begin));
    if (!isCutOff) attempt([&] { ending(); });
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
