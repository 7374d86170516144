#pragma once

#include "syntax/ParserState.h"

namespace ostrel {

enum class Ending { Silent, Printing };

/// Consumes `;`, `,` or a line end if one follows, and tells whether one did.
inline bool acceptEnding(ParserState& state) {
    return state.accept(TokenKind::Semicolon) || state.accept(TokenKind::Comma) ||
           state.accept(TokenKind::LineEnd);
}

/// Consumes `;`, `,`, a line end or the end of the file, one of which must follow.
inline Ending expectEnding(ParserState& state) {
    if (state.accept(TokenKind::Semicolon)) return Ending::Silent;
    if (!acceptEnding(state) && !state.is(TokenKind::EndOfFile)) {
        state.failAfterExpression("expected the end of the statement, found " + state.found());
    }
    return Ending::Printing;
}

} // namespace ostrel
