#pragma once

#include <cstddef>
#include <cstdint>

namespace ostrel {

enum class TokenKind : std::uint8_t {
    EndOfFile,
    LineEnd,
    Semicolon,
    Comma,
    Identifier,
    Keyword,
    Number,        ///< Begins like a number; checked later.
    CharacterText, ///< '...'
    StringText,    ///< "..."
    OpenText,      ///< An unclosed quote and the rest of its line.
    Unknown,       ///< A character that begins no token.
    LeftParen,
    RightParen,
    LeftBracket,
    RightBracket,
    LeftBrace,
    RightBrace,
    Assign,
    Dot,
    Colon,
    At,
    QuestionMark,
    ExclamationMark,
    Tilde,
    Apostrophe, ///< The transpose operator, not a quote.
    DotApostrophe,
    Plus,
    Minus,
    Star,
    Slash,
    Backslash,
    Caret,
    DotStar,
    DotSlash,
    DotBackslash,
    DotCaret,
    LessEqual,
    Less,
    GreaterEqual,
    Greater,
    EqualEqual,
    TildeEqual,
    AndAnd,
    And,
    OrOr,
    Or,
};

enum class Keyword : std::uint8_t {
    None,
    Break,
    Case,
    Catch,
    Class,
    Continue,
    Else,
    ElseIf,
    End,
    For,
    Function,
    Global,
    If,
    Otherwise,
    Parfor,
    Persistent,
    Return,
    Spmd,
    Switch,
    Try,
    While,
};

struct Token {
    TokenKind kind = TokenKind::EndOfFile;
    Keyword keyword = Keyword::None; ///< Of a Keyword; else None.
    bool blankBefore = false;        ///< Whether blanks or a continuation precede it.
    std::size_t begin = 0;
    std::size_t end = 0;
};

constexpr bool isOpeningBracket(TokenKind kind) {
    return kind == TokenKind::LeftParen || kind == TokenKind::LeftBracket ||
           kind == TokenKind::LeftBrace;
}

constexpr bool isClosingBracket(TokenKind kind) {
    return kind == TokenKind::RightParen || kind == TokenKind::RightBracket ||
           kind == TokenKind::RightBrace;
}

/// Whether a token outside brackets ends any statement.
constexpr bool endsStatement(TokenKind kind) {
    return kind == TokenKind::EndOfFile || kind == TokenKind::LineEnd ||
           kind == TokenKind::Semicolon || kind == TokenKind::Comma;
}

/// Whether the keyword opens a block of statements that `end` closes.
constexpr bool beginsBlock(Keyword keyword) {
    switch (keyword) {
    case Keyword::For:
    case Keyword::If:
    case Keyword::Parfor:
    case Keyword::Spmd:
    case Keyword::Switch:
    case Keyword::Try:
    case Keyword::While:
        return true;
    default:
        return false;
    }
}

/// Whether the keyword continues a block: begins another body, or a clause.
constexpr bool continuesBlock(Keyword keyword) {
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

/// Whether `keyword`, which continues a block, may follow a body that `block` has begun.
constexpr bool mayFollow(Keyword keyword, Keyword block) {
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

} // namespace ostrel
