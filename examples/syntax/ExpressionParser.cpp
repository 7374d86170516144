#include "syntax/ExpressionParser.h"

#include "syntax/Characters.h"
#include "syntax/ExpressionNesting.h"
#include "syntax/NumberCheck.h"
#include "syntax/ParametersInForce.h"

#include <string>

namespace ostrel {

using zt::orvex::BinaryOperator;
using zt::orvex::NodeKind;
using zt::orvex::UnaryOperator;

namespace {

template <typename Operator>
std::uint8_t code(Operator op) {
    return static_cast<std::uint8_t>(op);
}

} // namespace

// Operators

NodeId ExpressionParser::binary(int loosest) {
    const ExpressionNesting nested(nesting, state);
    NodeId lhs = prefixed();
    while (true) {
        const BinaryRow* row = findRow(BINARY_OPERATORS, state.token().kind);
        if (row == nullptr || row->level < loosest || beginsNewElement()) return lhs;
        if (row->level == level::COLON) {
            lhs = colon(lhs);
        } else {
            state.advance();
            lhs = makeBinary(*row, lhs, binary(row->level + 1));
        }
    }
}

/// `a:b` or `a:step:b`; a fourth part begins a new operation whose start is this one.
NodeId ExpressionParser::colon(NodeId start) {
    state.advance();
    NodeId step = 0;
    NodeId stop = binary(level::COLON + 1);
    if (state.accept(TokenKind::Colon)) {
        step = stop;
        stop = binary(level::COLON + 1);
    }
    return make(NodeKind::ColonOperation, state.builder.at(start).begin,
                {TreeBuilder::one(start), TreeBuilder::maybe(step), TreeBuilder::one(stop)});
}

NodeId ExpressionParser::prefixed() {
    const UnaryRow* row = findRow(PREFIX_OPERATORS, state.token().kind);
    return row == nullptr ? power() : prefix(*row, &ExpressionParser::prefixed);
}

/// A prefix operator, and its operand as `read` reads it.
NodeId ExpressionParser::prefix(const UnaryRow& row, NodeId (ExpressionParser::*read)()) {
    const ExpressionNesting nested(nesting, state);
    const std::size_t begin = state.token().begin;
    state.advance();
    const NodeId operand = (this->*read)();
    return make(NodeKind::UnaryOperation, begin, {TreeBuilder::one(operand)}, code(row.op));
}

NodeId ExpressionParser::power() {
    NodeId lhs = postfix();
    while (true) {
        const TokenKind token = state.token().kind;
        if (const UnaryRow* transpose = findRow(TRANSPOSE_OPERATORS, token)) {
            state.advance();
            lhs = make(NodeKind::UnaryOperation, state.builder.at(lhs).begin,
                       {TreeBuilder::one(lhs)}, code(transpose->op));
        } else if (const BinaryRow* row = findRow(POWER_OPERATORS, token)) {
            state.advance();
            lhs = makeBinary(*row, lhs, exponent());
        } else {
            return lhs;
        }
    }
}

NodeId ExpressionParser::exponent() {
    const UnaryRow* row = findRow(PREFIX_OPERATORS, state.token().kind);
    return row == nullptr ? postfix() : prefix(*row, &ExpressionParser::exponent);
}

/// Whether the current operator is the sign of a new element: `[a -b]`, not `[a - b]`.
bool ExpressionParser::beginsNewElement() const {
    const bool isSign = state.is(TokenKind::Plus) || state.is(TokenKind::Minus);
    return isSign && state.separatedByBlanks && state.token().blankBefore &&
           !isBlankAfter(state.source, state.token().end);
}

// What follows an operand

NodeId ExpressionParser::postfix() {
    NodeId base = primary();
    while (true) {
        const bool isNewElement = state.separatedByBlanks && state.token().blankBefore;
        if (state.is(TokenKind::LeftParen) && !isNewElement) {
            base = call(base);
        } else if (state.is(TokenKind::LeftBrace) && !isNewElement) {
            base = brace(base);
        } else if (state.is(TokenKind::Dot)) {
            base = dot(base);
        } else if (state.is(TokenKind::At) && isNameBefore(base)) {
            base = atClass(base);
        } else {
            return base;
        }
    }
}

NodeId ExpressionParser::call(NodeId base) {
    const Field arguments = argumentsInParens();
    return make(NodeKind::ParenOperation, state.builder.at(base).begin,
                {TreeBuilder::one(base), arguments});
}

Field ExpressionParser::argumentsInParens() {
    const Scoped<bool> inParens(state.separatedByBlanks, false);
    const Scoped<std::size_t> subscript(state.subscriptDepth, state.subscriptDepth + 1);
    state.openBracket();
    return elementsTo(TokenKind::RightParen, &ExpressionParser::argument);
}

NodeId ExpressionParser::brace(NodeId base) {
    const Scoped<bool> inBraces(state.separatedByBlanks, true);
    const Scoped<std::size_t> subscript(state.subscriptDepth, state.subscriptDepth + 1);
    state.openBracket();
    const Field arguments = elementsTo(TokenKind::RightBrace, &ExpressionParser::subscript);
    return make(NodeKind::BraceOperation, state.builder.at(base).begin,
                {TreeBuilder::one(base), arguments});
}

NodeId ExpressionParser::dot(NodeId base) {
    const std::size_t begin = state.builder.at(base).begin;
    state.advance();
    if (state.is(TokenKind::LeftParen)) {
        const NodeId field = inParens();
        return make(NodeKind::DynamicFieldOperation, begin,
                    {TreeBuilder::one(base), TreeBuilder::one(field)});
    }
    if (!state.is(TokenKind::Identifier))
        state.fail("expected a field name, found " + state.found());
    const NodeId field = state.identifierOfToken(Role::Label);
    return make(NodeKind::DotOperation, begin, {TreeBuilder::one(base), TreeBuilder::one(field)});
}

/// Whether `base` is a name that the current `@` follows directly.
bool ExpressionParser::isNameBefore(NodeId base) const {
    return state.builder.at(base).kind == NodeKind::Identifier && !state.token().blankBefore;
}

NodeId ExpressionParser::atClass(NodeId name) {
    const ExpressionNesting nested(nesting, state);
    state.advance();
    const NodeId operand = postfix();
    return make(NodeKind::BinaryOperation, state.builder.at(name).begin,
                {TreeBuilder::one(name), TreeBuilder::one(operand)}, code(BinaryOperator::At));
}

// Lists of expressions

/// Reads elements with `read`, from the opening bracket to `closer`.
Field ExpressionParser::elementsTo(TokenKind closer, NodeId (ExpressionParser::*read)()) {
    NodeList elements(state);
    while (!state.is(closer)) {
        elements.add((this->*read)());
        if (!hasAnotherElement()) break;
    }
    state.closeBracket(closer);
    return elements.store();
}

/// Whether another element follows, after a comma, or after a blank where blanks separate.
bool ExpressionParser::hasAnotherElement() {
    if (state.accept(TokenKind::Comma)) {
        const bool isClosed = state.is(TokenKind::RightParen) || state.is(TokenKind::RightBrace);
        if (isClosed) state.fail("expected an expression, found " + state.found());
        return true;
    }
    return state.separatedByBlanks && state.token().blankBefore && !isElementsEnd();
}

bool ExpressionParser::isElementsEnd() const {
    return state.is(TokenKind::RightBracket) || state.is(TokenKind::RightBrace) ||
           state.is(TokenKind::RightParen) || isRowEnd() || state.is(TokenKind::EndOfFile);
}

Field ExpressionParser::expressionsTo(TokenKind closer) {
    return elementsTo(closer, &ExpressionParser::expression);
}

NodeId ExpressionParser::subscript() {
    return isLoneColon() ? state.leafOfToken(NodeKind::Colon) : expression();
}

NodeId ExpressionParser::argument() {
    const bool isNamed = state.is(TokenKind::Identifier) && state.peek().kind == TokenKind::Assign;
    return isNamed ? namedArgument() : subscript();
}

NodeId ExpressionParser::namedArgument() {
    const std::size_t begin = state.token().begin;
    const NodeId name = state.identifierOfToken(Role::Label);
    state.advance();
    const NodeId value = expression();
    return make(NodeKind::NamedArgument, begin, {TreeBuilder::one(name), TreeBuilder::one(value)});
}

bool ExpressionParser::isLoneColon() const {
    if (!state.is(TokenKind::Colon)) return false;
    const Token next = state.peek();
    return next.kind == TokenKind::Comma || next.kind == TokenKind::RightParen ||
           next.kind == TokenKind::RightBrace || (state.separatedByBlanks && next.blankBefore);
}

// Operands

NodeId ExpressionParser::primary() {
    switch (state.token().kind) {
    case TokenKind::Identifier:
        return state.identifierOfToken(Role::Mention);
    case TokenKind::Number:
        return number();
    case TokenKind::CharacterText:
        return literal(NodeKind::CharacterLiteral);
    case TokenKind::StringText:
        return literal(NodeKind::StringLiteral);
    case TokenKind::LeftParen:
        return parenthesized();
    case TokenKind::LeftBracket:
        return matrix(NodeKind::Matrix, TokenKind::RightBracket);
    case TokenKind::LeftBrace:
        return matrix(NodeKind::CellArray, TokenKind::RightBrace);
    case TokenKind::At:
        return functionHandle();
    case TokenKind::QuestionMark:
        return onName(UnaryOperator::QuestionMark);
    case TokenKind::OpenText:
        state.fail("the quoted text is not closed");
    case TokenKind::Keyword:
        return keyword();
    default:
        state.fail("expected an expression, found " + state.found());
    }
}

/// `end` in a subscript. Any other keyword is an error; it is skipped, because it is meant as a
/// name and opens or closes no block.
NodeId ExpressionParser::keyword() {
    if (state.is(Keyword::End) && state.subscriptDepth > 0) {
        return state.leafOfToken(NodeKind::End);
    }
    const Extent place = state.place();
    const std::string message = "expected an expression, found the keyword " + state.found();
    state.advance();
    state.failAt(place, message);
}

/// A malformed number doesn't spoil the rest of its line, so parsing goes on.
NodeId ExpressionParser::number() {
    const Token token = state.token();
    const auto mistake = checkNumber(state.text(token));
    if (!mistake) return literal(NodeKind::NumberLiteral);
    Extent place{token.begin + mistake->begin, token.begin + mistake->end};
    const NodeId node = state.leafOfToken(NodeKind::DiscardedExpression);
    if (mistake->isOpenExponent && isSignWithoutOperand()) {
        place.end = state.token().end;
        state.advance();
    }
    state.report(place, mistake->message);
    return node;
}

/// Whether the current token is the sign of an exponent without digits, as in `1e+;`.
bool ExpressionParser::isSignWithoutOperand() const {
    const bool isSign = state.is(TokenKind::Plus) || state.is(TokenKind::Minus);
    const TokenKind next = state.peek().kind;
    return isSign && !state.token().blankBefore && (endsStatement(next) || isClosingBracket(next));
}

NodeId ExpressionParser::literal(NodeKind kind) {
    const Token token = state.token();
    state.advance();
    return state.builder.literal(kind, state.text(token), {token.begin, token.end});
}

NodeId ExpressionParser::parenthesized() {
    const std::size_t begin = state.token().begin;
    const NodeId inner = inParens();
    return make(NodeKind::ParenthesizedExpression, begin, {TreeBuilder::one(inner)});
}

NodeId ExpressionParser::inParens() {
    const Scoped<bool> parens(state.separatedByBlanks, false);
    state.openBracket();
    const NodeId inner = expression();
    state.closeBracket(TokenKind::RightParen);
    return inner;
}

NodeId ExpressionParser::matrix(NodeKind kind, TokenKind closer) {
    const Scoped<bool> inMatrix(state.separatedByBlanks, true);
    const std::size_t begin = state.token().begin;
    state.openBracket();
    NodeList rows(state);
    while (true) {
        while (isRowEnd())
            state.advance();
        if (state.is(closer)) break;
        rows.add(row());
        if (!isRowEnd()) break;
    }
    state.closeBracket(closer);
    return make(kind, begin, {rows.store()});
}

NodeId ExpressionParser::row() {
    const std::size_t begin = state.token().begin;
    NodeList elements(state);
    do {
        elements.add(expression());
    } while (rowHasAnotherElement());
    return make(NodeKind::Row, begin, {elements.store()});
}

/// Whether another element of the row follows. A trailing comma is allowed.
bool ExpressionParser::rowHasAnotherElement() {
    const bool isSeparated = state.accept(TokenKind::Comma) || state.token().blankBefore;
    return isSeparated && !isElementsEnd();
}

NodeId ExpressionParser::functionHandle() {
    const std::size_t begin = state.token().begin;
    if (state.peek().kind != TokenKind::LeftParen) return onName(UnaryOperator::UnaryAt);
    state.advance();
    return anonymousFunction(begin);
}

NodeId ExpressionParser::onName(UnaryOperator op) {
    const std::size_t begin = state.token().begin;
    state.advance();
    if (!state.is(TokenKind::Identifier)) state.fail("expected a name, found " + state.found());
    const NodeId name = state.identifierOfToken(Role::Mention);
    return make(NodeKind::UnaryOperation, begin, {TreeBuilder::one(name)}, code(op));
}

NodeId ExpressionParser::anonymousFunction(std::size_t begin) {
    const ScopeId inner = state.builder.scope(ScopeKind::Anonymous, u"");
    const Field inputs = inputParameters(inner);
    const ParametersInForce inForce(state, inputs, inner);
    const NodeId body = expression();
    return make(NodeKind::AnonymousFunction, begin, {inputs, TreeBuilder::one(body)});
}

Field ExpressionParser::inputParameters(ScopeId owner) {
    const Scoped<bool> inParens(state.separatedByBlanks, false);
    const Scoped<ScopeId> ofOwner(parameterScope, owner);
    state.openBracket();
    return elementsTo(TokenKind::RightParen, &ExpressionParser::inputParameter);
}

NodeId ExpressionParser::inputParameter() {
    const std::size_t begin = state.token().begin;
    NodeId held = 0;
    if (state.is(TokenKind::Tilde)) {
        held = state.leafOfToken(NodeKind::IgnoredArgument);
    } else if (state.is(TokenKind::Identifier)) {
        held = state.identifierOfToken(Role::Written, parameterScope);
    } else {
        state.fail("expected a parameter, found " + state.found());
    }
    return make(NodeKind::InputParameter, begin, {TreeBuilder::one(held)});
}

// Nodes

NodeId ExpressionParser::makeBinary(const BinaryRow& row, NodeId lhs, NodeId rhs) {
    return make(NodeKind::BinaryOperation, state.builder.at(lhs).begin,
                {TreeBuilder::one(lhs), TreeBuilder::one(rhs)}, code(row.op));
}

NodeId ExpressionParser::make(NodeKind kind, std::size_t begin, std::initializer_list<Field> fields,
                              std::uint8_t op) {
    const NodeId node = state.builder.node(kind, state.extentFrom(begin), fields, op);
    if (state.builder.at(node).height > MAX_EXPRESSION_HEIGHT)
        state.failAt({begin, state.previousEnd()}, expressionTooDeep());
    return node;
}

} // namespace ostrel
