#include "syntax/CompoundAssignment.h"

#include "syntax/Characters.h"
#include "syntax/Lexer.h"
#include "syntax/OperatorTable.h"
#include "syntax/OutsideBrackets.h"

namespace ostrel {

namespace {

/// Whether a token outside brackets ends an assignment. A keyword belongs to no expression.
bool endsAssignment(TokenKind kind) { return endsStatement(kind) || kind == TokenKind::Keyword; }

bool isBinaryOperator(TokenKind kind) {
    return findRow(BINARY_OPERATORS, kind) != nullptr || findRow(POWER_OPERATORS, kind) != nullptr;
}

/// Whether other languages combine the operator with `=`.
bool isCombined(TokenKind kind) {
    const BinaryRow* row = findRow(BINARY_OPERATORS, kind);
    if (row == nullptr) return findRow(POWER_OPERATORS, kind) != nullptr;
    const bool isElementwiseLogic = row->op == zt::orvex::BinaryOperator::ElementOr ||
                                    row->op == zt::orvex::BinaryOperator::ElementAnd;
    return row->level > level::COLON || isElementwiseLogic;
}

/// Whether a token outside brackets belongs to a target such as `a(1).b`.
bool belongsToTarget(TokenKind kind) {
    return kind == TokenKind::Identifier || kind == TokenKind::Dot || isClosingBracket(kind);
}

/// From `begin`, where `first` or its brackets begin, to the end of the statement; empty if a
/// bracket in it isn't closed on its line.
Extent restOfStatement(const SourceText& source, std::size_t begin, OutsideBrackets tokens,
                       const Token& first) {
    Extent rest{begin, begin};
    Token token = first;
    for (; !endsAssignment(token.kind); token = tokens.next())
        rest.end = token.end;
    const std::size_t after = skipBlanks(source, rest.end);
    const bool isWhole = after == token.begin || source.at(after) == u'%';
    return isWhole ? rest : Extent{begin, begin};
}

} // namespace

std::optional<CompoundAssignment> compoundAssignmentAt(const SourceText& source, std::size_t begin,
                                                       std::size_t stuckAt) {
    Lexer lexer(source);
    lexer.seek(begin);
    OutsideBrackets tokens(lexer);
    Extent target{begin, begin};
    Token token = tokens.next();
    for (; belongsToTarget(token.kind) && token.end <= stuckAt; token = tokens.next())
        target.end = token.end;
    const Token sign = token;
    const Token second = tokens.next();
    const Token third = tokens.next();
    if (!isCombined(sign.kind) || second.begin != sign.end) return {};
    const std::size_t size = sign.end - sign.begin;
    const Extent both{sign.begin, second.end};
    if (second.kind == TokenKind::Assign && second.begin == stuckAt)
        return CompoundAssignment{
            target, both, size, false,
            restOfStatement(source, skipBlanks(source, second.end), tokens, third)};
    const bool isStep = sign.kind == TokenKind::Plus || sign.kind == TokenKind::Minus;
    const bool isDoubled = isStep && second.kind == sign.kind && third.begin == stuckAt;
    if (isDoubled && endsAssignment(third.kind))
        return CompoundAssignment{target, both, size, true, {stuckAt, stuckAt}};
    return {};
}

bool needsParentheses(const SourceText& source, Extent operand) {
    Lexer lexer(source);
    lexer.seek(operand.begin);
    OutsideBrackets tokens(lexer);
    for (Token token = tokens.next(); token.begin < operand.end; token = tokens.next()) {
        if (isBinaryOperator(token.kind)) return true;
    }
    return false;
}

} // namespace ostrel
