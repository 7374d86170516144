#pragma once

#include "source/SourceText.h"
#include "syntax/Token.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace ostrel {

/// The keyword spelled `name`, or `Keyword::None`.
Keyword keywordOf(std::u16string_view name);

/// The longest operator or bracket that begins at `at`; `Unknown` with length 1 if there is none.
/// A quote doesn't count as an operator.
struct Punctuation {
    TokenKind kind;
    std::size_t length;
};
Punctuation punctuationAt(const SourceText& source, std::size_t at);

/// Splits a source text into tokens, one per call, without blanks, continuations and comments.
///
/// Where the grammar depends on context, the parser decides: it sees which tokens follow a blank,
/// and `seek`s past what it reads on its own, such as the words of a command. The lexer itself
/// tracks only whether a `'` is a quote or the transpose operator.
///
/// To look ahead, copy the lexer; a copy is cheap and continues at the same place. The text must
/// outlive the lexer and its copies.
class Lexer {
public:
    static constexpr std::size_t NONE = std::numeric_limits<std::size_t>::max();

    explicit Lexer(const SourceText& text) : source(&text) {}

    Token next();

    /// Continues at `offset`, as if outside all brackets.
    void seek(std::size_t offset);

    /// Where the search for the next token starts.
    std::size_t position() const { return at; }

    /// From here on, collects the offsets of pragma comments in `offsets`, each once, however often
    /// it is read.
    void keepPragmas(std::vector<std::size_t>* offsets) { pragmas = offsets; }

    /// The beginning of a block comment that the text doesn't close, or NONE.
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
    std::size_t previousEnd = NONE; ///< The end of the previous token if an operand may end there.
    std::size_t openCommentAt = NONE;
    std::size_t bracketDepth = 0;
};

} // namespace ostrel
