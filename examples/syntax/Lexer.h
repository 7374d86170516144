#pragma once

#include "source/SourceText.h"
#include "syntax/Token.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace ostrel {

/// The keyword that `name` is, or `Keyword::None`.
Keyword keywordOf(std::u16string_view name);

/// The operator or bracket that begins at `at`, the longest one; `Unknown` with length 1 when there
/// is none. A quote is no operator here.
struct Punctuation {
    TokenKind kind;
    std::size_t length;
};
Punctuation punctuationAt(const SourceText& source, std::size_t at);

/// Cuts a source text into tokens, one at a call, leaving out blanks, continuations and comments.
///
/// Where the grammar depends on context, the parser decides: it sees which tokens have blanks
/// before them, and `seek`s behind what it has read on its own, such as the words of a command. The
/// lexer itself knows one thing of context: whether a `'` is a quote or the transpose operator.
///
/// A copy is cheap and reads on from the same place; that is how to look ahead. The text must
/// outlive the lexer and its copies.
class Lexer {
public:
    static constexpr std::size_t NONE = std::numeric_limits<std::size_t>::max();

    explicit Lexer(const SourceText& text) : source(&text) {}

    Token next();

    /// Goes on at `offset`, outside of all brackets.
    void seek(std::size_t offset);

    /// Where the next token is looked for.
    std::size_t position() const { return at; }

    /// Gathers the offsets of pragma comments in `offsets` from here on; a comment that is read
    /// twice is kept once.
    void keepPragmas(std::vector<std::size_t>* offsets) { pragmas = offsets; }

    /// Where a block comment begins that the text does not close, or NONE.
    std::size_t openComment() const { return openCommentAt; }

private:
    void skipBlanksAndComments();
    void skipComment();
    void skipBlockComment();
    bool isAloneOnLine(std::size_t begin, std::size_t length) const;
    Token scan();
    Token token(TokenKind kind, std::size_t length) const;
    Token scanName() const;
    Token scanNumber() const;
    Token scanQuoted(TokenKind kind) const;
    bool isTransposePlace() const;
    void remember(const Token& token);

    const SourceText* source;
    std::vector<std::size_t>* pragmas = nullptr;
    std::size_t at = 0;
    std::size_t previousEnd = NONE; ///< The end of the token before, if it is an operand's last.
    std::size_t openCommentAt = NONE;
    std::size_t bracketDepth = 0;
};

} // namespace ostrel
