#include "syntax/ParserState.h"

#include "source/UnsafeCharacters.h"
#include "source/Utf8.h"

#include <algorithm>
#include <utility>

namespace ostrel {

using zt::orvex::NodeKind;

namespace {

const char* spelling(TokenKind bracket) {
    switch (bracket) {
    case TokenKind::LeftParen:
        return "(";
    case TokenKind::LeftBracket:
        return "[";
    default:
        return "{";
    }
}

/// Updates a stack of open brackets with a token.
void track(std::vector<TokenKind>& open, TokenKind token) {
    if (isOpeningBracket(token)) open.push_back(token);
    if (isClosingBracket(token) && !open.empty()) open.pop_back();
}

} // namespace

ParserState::ParserState(const SourceText& text)
    : source(text), blocks(text), lexer(text), rereadBudget(4 * text.size() + 65536) {
    lexer.keepPragmas(&pragmas);
    current = lexer.next();
}

// Tokens

void ParserState::advance() {
    lastEnd = current.end;
    if (is(TokenKind::LineEnd)) ++linesRead;
    current = lexer.next();
}

bool ParserState::accept(TokenKind kind) {
    if (!is(kind)) return false;
    advance();
    return true;
}

void ParserState::expect(TokenKind kind, const char* message) {
    if (!accept(kind)) fail(std::string(message) + ", found " + found());
}

Lexer ParserState::lookAhead() const {
    Lexer ahead = lexer;
    ahead.keepPragmas(nullptr);
    return ahead;
}

void ParserState::seek(std::size_t offset) {
    lexer.seek(offset);
    lastEnd = offset;
    current = lexer.next();
}

std::u16string_view ParserState::text(const Token& token) const {
    return std::u16string_view(source.text()).substr(token.begin, token.end - token.begin);
}

// Brackets

void ParserState::openBracket() {
    brackets.push_back({current.kind, current.begin, linesRead});
    advance();
}

void ParserState::closeBracket(TokenKind closer) {
    if (!is(closer)) {
        failAfterExpression(std::string("'") + spelling(brackets.back().kind) +
                            "' is not closed before " + found());
    }
    brackets.pop_back();
    advance();
}

void ParserState::recoverFrom(const SyntaxError& error) {
    const std::vector<OpenBracket> open = std::exchange(brackets, {});
    std::vector<TokenKind> kinds;
    for (const OpenBracket& bracket : open)
        kinds.push_back(bracket.kind);
    const std::size_t end = open.empty() ? current.begin : findClosers(kinds);
    if (end != Lexer::NONE) {
        report(error.place, error.message, error.help);
        skipTo(end);
        skipToStatementEnd();
        return;
    }
    const bool isBracketWrong =
        is(TokenKind::EndOfFile) || is(TokenKind::LineEnd) || linesRead > open.back().line;
    if (isBracketWrong) {
        const std::size_t begin = open.back().offset;
        report({begin, begin + 1},
               std::string("'") + spelling(open.back().kind) + "' is not closed");
    } else {
        report(error.place, error.message, error.help);
    }
    leaveOpenBrackets(open);
}

/// Whether a token can't occur inside open brackets, and so shows that they are never closed.
bool ParserState::showsOpenBracket(const Token& token, const Token& before, TokenKind innermost) {
    const bool isInParens = innermost == TokenKind::LeftParen;
    switch (token.kind) {
    case TokenKind::EndOfFile:
        return true;
    case TokenKind::LineEnd:
        return isInParens;
    case TokenKind::Assign:
        return !isInParens;
    case TokenKind::Keyword:
        return token.keyword != Keyword::End || before.kind == TokenKind::LineEnd;
    default:
        return false;
    }
}

/// Where the outermost of the open brackets is closed, from the current token on, or NONE.
std::size_t ParserState::findClosers(std::vector<TokenKind> open) {
    Lexer ahead = lookAhead();
    Token before;
    for (Token token = current; !open.empty(); token = ahead.next()) {
        if (showsOpenBracket(token, before, open.back())) return Lexer::NONE;
        if (!spend(token.end - token.begin + 1)) return Lexer::NONE;
        track(open, token.kind);
        before = token;
    }
    return before.end;
}

void ParserState::skipTo(std::size_t end) {
    while (current.begin < end)
        advance();
}

void ParserState::skipToStatementEnd() {
    std::vector<TokenKind> open;
    while (!is(TokenKind::EndOfFile)) {
        if (open.empty()) {
            const bool isEnd = is(TokenKind::LineEnd) || is(TokenKind::Semicolon) ||
                               is(TokenKind::Comma) || is(TokenKind::Keyword);
            if (isEnd) return;
        } else if (is(TokenKind::LineEnd)) {
            const std::size_t end = findClosers(open);
            if (end == Lexer::NONE) return;
            skipTo(end);
            open.clear();
            continue;
        }
        track(open, current.kind);
        advance();
    }
}

/// Goes back to the end of the line with the outermost bracket. If too much of the text has been
/// read more than once already, skips the rest of the current line instead.
void ParserState::leaveOpenBrackets(const std::vector<OpenBracket>& open) {
    const std::size_t outermost = open.front().offset;
    if (linesRead > open.front().line && spend(current.begin - outermost)) seek(outermost);
    while (!is(TokenKind::LineEnd) && !is(TokenKind::EndOfFile))
        advance();
}

bool ParserState::spend(std::size_t units) {
    if (units > rereadBudget) return false;
    rereadBudget -= units;
    return true;
}

// Errors

void ParserState::fail(const std::string& message, const std::string& help) const {
    failAt(place(), message, help);
}

void ParserState::failAt(Extent place, const std::string& message, const std::string& help) const {
    throw SyntaxError{place, message, help};
}

void ParserState::failAfterExpression(const std::string& message) const {
    if (isInCondition && is(TokenKind::Assign))
        fail("'=' assigns and can't be part of a condition", "did you mean '=='?");
    const bool isUnequal = is(TokenKind::ExclamationMark) && source.at(current.end) == u'=';
    if (isUnequal)
        failAt({current.begin, current.end + 1}, "'!=' is not an operator", "did you mean '~='?");
    fail(message);
}

void ParserState::report(Extent place, const std::string& message, const std::string& help) {
    Diagnostic diagnostic;
    diagnostic.place.offset = place.begin;
    diagnostic.place.length = place.end - place.begin;
    diagnostic.message = message;
    diagnostic.help = help;
    diagnostics.push_back(diagnostic);
}

Extent ParserState::place() const {
    const bool isEnd = is(TokenKind::LineEnd) || is(TokenKind::EndOfFile);
    return {current.begin, isEnd ? current.begin : current.end};
}

std::string ParserState::found() const {
    constexpr std::size_t LONGEST = 40;
    switch (current.kind) {
    case TokenKind::EndOfFile:
        return "the end of the file";
    case TokenKind::LineEnd:
        return "the end of the line";
    case TokenKind::OpenText:
        return "an unclosed quoted text";
    default: {
        const bool isCut = current.end - current.begin > LONGEST;
        if (isCut) return "'" + shown({current.begin, current.begin + LONGEST}) + "...'";
        return "'" + shown({current.begin, current.end}) + "'";
    }
    }
}

std::string ParserState::shown(Extent piece) const {
    std::u16string units = source.text().substr(piece.begin, piece.end - piece.begin);
    std::replace_if(units.begin(), units.end(), isUnsafeToShow, u'\xFFFD');
    return toUtf8(units);
}

std::string ParserState::named(std::size_t offset) const {
    const Position position = source.position(offset);
    return std::to_string(position.line) + ":" + std::to_string(position.column);
}

// Nodes

NodeId ParserState::leafOfToken(NodeKind kind) {
    const NodeId node = builder.leaf(kind, {current.begin, current.end});
    advance();
    return node;
}

/// A name of the current scope, or a parameter of an enclosing anonymous function.
NodeId ParserState::identifierOfToken(Role role) {
    if (role == Role::Label) return identifierOfToken(role, 0);
    const auto parameter = parameters.find(builder.intern(text(current)));
    return identifierOfToken(role, parameter == parameters.end() ? scope : parameter->second);
}

NodeId ParserState::identifierOfToken(Role role, ScopeId owner) {
    const NameId name = builder.intern(text(current));
    const NodeId node = builder.identifier(name, owner, role, {current.begin, current.end});
    advance();
    return node;
}

NodeId ParserState::label(std::u16string_view name, std::size_t offset) {
    return builder.identifier(builder.intern(name), 0, Role::Label, {offset, offset});
}

NodeId ParserState::implicitAns(std::size_t offset) {
    return builder.identifier(builder.intern(u"ans"), scope, Role::Implicit, {offset, offset});
}

void ParserState::write(NodeId identifier) {
    builder.setRole(identifier, Role::Written);
    variables->write(builder.identifierAt(identifier).name);
}

bool ParserState::isVariable(std::u16string_view name) {
    return name == u"ans" || variables->isVariable(builder.intern(name));
}

ParserState::Mark ParserState::mark() const {
    return {builder.checkpoint(), blocks.mark(),     diagnostics.size(),
            pragmas.size(),       constructs.size(), current.begin};
}

void ParserState::forgetNodes(const Mark& mark) {
    builder.rollBack(mark.tree);
    constructs.erase(constructs.begin() + static_cast<std::ptrdiff_t>(mark.constructs),
                     constructs.end());
}

void ParserState::goBack(const Mark& mark) {
    forgetNodes(mark);
    diagnostics.erase(diagnostics.begin() + static_cast<std::ptrdiff_t>(mark.diagnostics),
                      diagnostics.end());
    blocks.goBack(mark.blocks);
    pragmas.resize(mark.pragmas);
    seek(mark.offset);
}

} // namespace ostrel
