#pragma once

#include "syntax/Lexer.h"
#include "syntax/Token.h"

#include <cstddef>

namespace ostrel {

/// Yields the tokens outside all brackets, and the brackets that close the outermost ones.
///
/// A line end closes everything that is still open, so that the shape of an erroneous text can be
/// found too.
class OutsideBrackets {
public:
    explicit OutsideBrackets(const Lexer& from, std::size_t openBrackets = 0)
        : lexer(from), depth(openBrackets) {}

    Token next() {
        while (true) {
            const Token token = lexer.next();
            const bool isLineEnd =
                token.kind == TokenKind::LineEnd || token.kind == TokenKind::EndOfFile;
            if (isLineEnd) depth = 0;
            if (isClosingBracket(token.kind) && depth > 0) --depth;
            if (depth == 0 && !isOpeningBracket(token.kind)) return token;
            if (isOpeningBracket(token.kind)) ++depth;
        }
    }

private:
    Lexer lexer;
    std::size_t depth;
};

} // namespace ostrel
