#pragma once

#include "syntax/Lexer.h"
#include "syntax/Token.h"

#include <cstddef>

namespace ostrel {

/// Gives the tokens that stand outside of all brackets, and the brackets that close the outermost.
///
/// A line end closes what is still open: this serves to find the shape of a text, also of a wrong
/// one.
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
