#include "syntax/CommandSyntax.h"

#include "syntax/Characters.h"
#include "syntax/Lexer.h"

namespace ostrel {

namespace {

bool endsCommand(const SourceText& source, std::size_t at) {
    const char16_t unit = source.at(at);
    return isEndOfLine(source, at) || unit == u';' || unit == u',' || unit == u'%';
}

bool isQuote(char16_t unit) { return unit == u'\'' || unit == u'"'; }

bool isOperator(TokenKind kind) {
    switch (kind) {
    case TokenKind::Unknown:
    case TokenKind::Dot:
    case TokenKind::ExclamationMark:
    case TokenKind::LeftBracket:
    case TokenKind::LeftBrace:
    case TokenKind::RightParen:
    case TokenKind::RightBracket:
    case TokenKind::RightBrace:
        return false;
    default:
        return true;
    }
}

/// The offset after the word that begins at `at`. Quoted runs belong to it, blanks included.
std::size_t skipWord(const SourceText& source, std::size_t at, std::size_t& openQuote) {
    while (!endsCommand(source, at) && !isBlank(source.at(at)) && !isContinuation(source, at)) {
        if (!isQuote(source.at(at))) {
            ++at;
            continue;
        }
        const std::size_t after = skipQuoted(source, at);
        if (after == Lexer::NONE) {
            openQuote = at;
            return skipToLineEnd(source, at);
        }
        at = after;
    }
    return at;
}

} // namespace

bool hasCommandShape(const SourceText& source, std::size_t nameEnd) {
    const std::size_t at = skipBlanks(source, nameEnd);
    if (at == nameEnd || endsCommand(source, at)) return false;
    if (isLetter(source.at(at)) || isDigit(source.at(at)) || isQuote(source.at(at))) return true;
    const Punctuation first = punctuationAt(source, at);
    if (first.kind == TokenKind::LeftParen || first.kind == TokenKind::Assign) return false;
    const std::size_t next = at + first.length;
    const bool isBlankNext = isBlank(source.at(next)) || isContinuation(source, next);
    return !(isOperator(first.kind) && isBlankNext);
}

CommandWords readCommandWords(const SourceText& source, std::size_t at) {
    CommandWords result{{}, at, Lexer::NONE};
    while (true) {
        at = skipBlanks(source, at);
        if (endsCommand(source, at)) break;
        const std::size_t begin = at;
        at = skipWord(source, begin, result.openQuote);
        result.words.push_back({begin, at});
    }
    result.end = at;
    return result;
}

} // namespace ostrel
