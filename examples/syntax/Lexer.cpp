#include "syntax/Lexer.h"

#include "source/Utf8.h"
#include "syntax/Characters.h"

#include <algorithm>
#include <array>

namespace ostrel {

namespace {

struct KeywordRow {
    std::u16string_view name;
    Keyword keyword;
};

constexpr std::array<KeywordRow, 20> KEYWORDS{{
    {u"break", Keyword::Break},
    {u"case", Keyword::Case},
    {u"catch", Keyword::Catch},
    {u"class", Keyword::Class},
    {u"continue", Keyword::Continue},
    {u"else", Keyword::Else},
    {u"elseif", Keyword::ElseIf},
    {u"end", Keyword::End},
    {u"for", Keyword::For},
    {u"function", Keyword::Function},
    {u"global", Keyword::Global},
    {u"if", Keyword::If},
    {u"otherwise", Keyword::Otherwise},
    {u"parfor", Keyword::Parfor},
    {u"persistent", Keyword::Persistent},
    {u"return", Keyword::Return},
    {u"spmd", Keyword::Spmd},
    {u"switch", Keyword::Switch},
    {u"try", Keyword::Try},
    {u"while", Keyword::While},
}};

struct PunctuationRow {
    std::u16string_view spelling;
    TokenKind kind;
};

// Of two spellings with a common prefix, the longer comes first.
constexpr std::array<PunctuationRow, 36> PUNCTUATION{{
    {u",", TokenKind::Comma},          {u";", TokenKind::Semicolon},
    {u"(", TokenKind::LeftParen},      {u")", TokenKind::RightParen},
    {u"[", TokenKind::LeftBracket},    {u"]", TokenKind::RightBracket},
    {u"{", TokenKind::LeftBrace},      {u"}", TokenKind::RightBrace},
    {u"==", TokenKind::EqualEqual},    {u"=", TokenKind::Assign},
    {u".*", TokenKind::DotStar},       {u"./", TokenKind::DotSlash},
    {u".\\", TokenKind::DotBackslash}, {u".^", TokenKind::DotCaret},
    {u".'", TokenKind::DotApostrophe}, {u".", TokenKind::Dot},
    {u":", TokenKind::Colon},          {u"+", TokenKind::Plus},
    {u"-", TokenKind::Minus},          {u"*", TokenKind::Star},
    {u"/", TokenKind::Slash},          {u"\\", TokenKind::Backslash},
    {u"^", TokenKind::Caret},          {u"@", TokenKind::At},
    {u"~=", TokenKind::TildeEqual},    {u"~", TokenKind::Tilde},
    {u"<=", TokenKind::LessEqual},     {u"<", TokenKind::Less},
    {u">=", TokenKind::GreaterEqual},  {u">", TokenKind::Greater},
    {u"&&", TokenKind::AndAnd},        {u"&", TokenKind::And},
    {u"||", TokenKind::OrOr},          {u"|", TokenKind::Or},
    {u"?", TokenKind::QuestionMark},   {u"!", TokenKind::ExclamationMark},
}};

bool isSign(char16_t unit) { return unit == u'+' || unit == u'-'; }

bool isExponentMark(char16_t unit) {
    return unit == u'e' || unit == u'E' || unit == u'd' || unit == u'D';
}

/// Whether the point at `at`, which follows digits, belongs to the number.
bool isPointOfNumber(const SourceText& source, std::size_t at) {
    if (source.at(at) != u'.') return false;
    const char16_t next = source.at(at + 1);
    const bool isOperator = std::u16string_view(u"*/\\^'").find(next) != std::u16string_view::npos;
    const bool isContinued = isContinuation(source, at) && source.at(at + 3) != u'.';
    return !isOperator && !isContinued;
}

std::size_t skipDigits(const SourceText& source, std::size_t at) {
    while (isDigit(source.at(at)))
        ++at;
    return at;
}

std::size_t skipName(const SourceText& source, std::size_t at) {
    while (isNamePart(source.at(at)))
        ++at;
    return at;
}

/// The offset after an exponent such as `e-3`; `at` if there is none with digits.
std::size_t skipExponent(const SourceText& source, std::size_t at) {
    if (!isExponentMark(source.at(at))) return at;
    const std::size_t digits = at + (isSign(source.at(at + 1)) ? 2U : 1U);
    return isDigit(source.at(digits)) ? skipDigits(source, digits) : at;
}

bool isOperandEnd(TokenKind kind) {
    switch (kind) {
    case TokenKind::Identifier:
    case TokenKind::Number:
    case TokenKind::StringText:
    case TokenKind::RightParen:
    case TokenKind::RightBracket:
    case TokenKind::RightBrace:
    case TokenKind::Apostrophe:
    case TokenKind::DotApostrophe:
        return true;
    default:
        return false;
    }
}

} // namespace

std::size_t skipQuoted(const SourceText& source, std::size_t at) {
    const char16_t quote = source.at(at);
    for (++at; !isEndOfLine(source, at); ++at) {
        if (source.at(at) != quote) continue;
        if (source.at(at + 1) != quote) return at + 1;
        ++at;
    }
    return Lexer::NONE;
}

Keyword keywordOf(std::u16string_view name) {
    const auto row =
        std::lower_bound(KEYWORDS.begin(), KEYWORDS.end(), name,
                         [](const KeywordRow& a, std::u16string_view b) { return a.name < b; });
    return row != KEYWORDS.end() && row->name == name ? row->keyword : Keyword::None;
}

Punctuation punctuationAt(const SourceText& source, std::size_t at) {
    const auto rest = std::u16string_view(source.text()).substr(std::min(at, source.size()), 2);
    for (const PunctuationRow& row : PUNCTUATION) {
        if (rest.substr(0, row.spelling.size()) == row.spelling) {
            return {row.kind, row.spelling.size()};
        }
    }
    return {TokenKind::Unknown, 1};
}

Token Lexer::next() {
    const std::size_t from = at;
    skipBlanksAndComments();
    Token result = scan();
    result.blankBefore = result.begin != from;
    at = result.end;
    remember(result);
    return result;
}

void Lexer::seek(std::size_t offset) {
    at = offset;
    previousEnd = NONE;
    bracketDepth = 0;
}

void Lexer::skipBlanksAndComments() {
    at = skipBlanks(*source, at);
    if (source->at(at) == u'%') skipComment();
}

void Lexer::skipComment() {
    if (source->at(at + 1) == u'{' && isAloneOnLine(at, 2)) return skipBlockComment();
    const bool isPragma = source->at(at + 1) == u'#';
    const bool isNew = pragmas != nullptr && (pragmas->empty() || pragmas->back() < at);
    if (isPragma && isNew) pragmas->push_back(at);
    at = skipToLineEnd(*source, at);
}

bool Lexer::isAloneOnLine(std::size_t begin, std::size_t length) const {
    std::size_t before = begin;
    while (before > 0 && isBlank(source->at(before - 1)))
        --before;
    if (before > 0 && !isLineEnd(source->at(before - 1))) return false;
    std::size_t after = begin + length;
    while (isBlank(source->at(after)))
        ++after;
    return isEndOfLine(*source, after);
}

/// Skips from the `%{` at `at` to the end of the line with its `%}`, line by line.
void Lexer::skipBlockComment() {
    const std::size_t opening = at;
    std::size_t depth = 0;
    while (true) {
        while (isBlank(source->at(at)))
            ++at;
        const bool isMark = source->at(at) == u'%' && isAloneOnLine(at, 2);
        if (isMark && source->at(at + 1) == u'{') ++depth;
        if (isMark && source->at(at + 1) == u'}') --depth;
        at = skipToLineEnd(*source, at);
        if (depth == 0) return;
        if (at >= source->size()) break;
        at = skipLineEnd(*source, at);
    }
    openCommentAt = opening;
}

Token Lexer::scan() {
    const char16_t unit = source->at(at);
    if (at >= source->size()) return token(TokenKind::EndOfFile, 0);
    if (isLineEnd(unit)) return token(TokenKind::LineEnd, skipLineEnd(*source, at) - at);
    if (isLetter(unit)) return scanName();
    if (isDigit(unit) || (unit == u'.' && isDigit(source->at(at + 1)))) return scanNumber();
    if (unit == u'"') return scanQuoted(TokenKind::StringText);
    if (unit == u'\'') {
        return isTransposePlace() ? token(TokenKind::Apostrophe, 1)
                                  : scanQuoted(TokenKind::CharacterText);
    }
    if (isHighSurrogate(unit) && isLowSurrogate(source->at(at + 1))) {
        return token(TokenKind::Unknown, 2);
    }
    const Punctuation punctuation = punctuationAt(*source, at);
    return token(punctuation.kind, punctuation.length);
}

Token Lexer::token(TokenKind kind, std::size_t length) const {
    Token result;
    result.kind = kind;
    result.begin = at;
    result.end = at + length;
    return result;
}

Token Lexer::scanName() const {
    const std::size_t length = skipName(*source, at) - at;
    Token result = token(TokenKind::Identifier, length);
    result.keyword = keywordOf(std::u16string_view(source->text()).substr(at, length));
    if (result.keyword != Keyword::None) result.kind = TokenKind::Keyword;
    return result;
}

/// Includes letters and further points, so that a malformed number is one token.
Token Lexer::scanNumber() const {
    std::size_t end = skipDigits(*source, at);
    if (isPointOfNumber(*source, end)) end = skipDigits(*source, end + 1);
    end = skipName(*source, skipExponent(*source, end));
    while (source->at(end) == u'.' && isDigit(source->at(end + 1)))
        end = skipName(*source, end + 1);
    return token(TokenKind::Number, end - at);
}

Token Lexer::scanQuoted(TokenKind kind) const {
    const std::size_t end = skipQuoted(*source, at);
    if (end == NONE) return token(TokenKind::OpenText, skipToLineEnd(*source, at) - at);
    return token(kind, end - at);
}

bool Lexer::isTransposePlace() const { return previousEnd == at; }

void Lexer::remember(const Token& token) {
    if (isOpeningBracket(token.kind)) ++bracketDepth;
    if (isClosingBracket(token.kind) && bracketDepth > 0) --bracketDepth;
    const bool isEndInSubscript = token.keyword == Keyword::End && bracketDepth > 0;
    previousEnd = isOperandEnd(token.kind) || isEndInSubscript ? token.end : NONE;
}

} // namespace ostrel
