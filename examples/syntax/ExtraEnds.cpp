#include "syntax/ExtraEnds.h"

#include "syntax/OutsideBrackets.h"

#include <vector>

namespace ostrel {

namespace {

bool endsFunction(const Token& token) {
    return token.kind == TokenKind::EndOfFile || token.keyword == Keyword::Function ||
           token.keyword == Keyword::Class;
}

} // namespace

bool isClassBlockWord(const ParserState& state, const Token& token) {
    if (token.kind != TokenKind::Identifier) return false;
    const std::u16string_view word = state.text(token);
    return word == u"properties" || word == u"methods" || word == u"events" ||
           word == u"enumeration";
}

bool ExtraEnds::isExtra(Owner owner) {
    const std::size_t begin = state.token().begin;
    if (known.begin <= begin && begin < known.end) return true;
    OutsideBrackets ahead(state.lookAhead());
    std::vector<std::size_t> unmatched;
    std::size_t depth = 0;
    bool hasBlockWord = false;
    Token before = state.token();
    Token token = ahead.next();
    for (; !endsFunction(token); before = token, token = ahead.next()) {
        if (!mayLookAhead(token, before)) return false;
        const bool isClassBlock =
            before.kind == TokenKind::LineEnd && isClassBlockWord(state, token);
        const bool opensClassBlock = isClassBlock && unmatched.size() == 1 && depth == 0;
        hasBlockWord = hasBlockWord || isClassBlock;
        if (beginsBlock(token.keyword) || opensClassBlock) ++depth;
        if (token.keyword != Keyword::End) continue;
        if (depth == 0) {
            unmatched.push_back(token.begin);
        } else {
            --depth;
        }
    }
    // After the last method of a class, the block of methods and the class are still open; after a
    // method before another block, only its own block is.
    const bool isLast = token.kind == TokenKind::EndOfFile;
    const std::size_t expected = owner == Owner::File ? 0 : isLast ? 2 : depth;
    if (unmatched.size() <= expected) return false;
    if (!hasBlockWord) known = {begin, unmatched[unmatched.size() - expected - 1]};
    return true;
}

/// Deducts what a scan reads from `before` to `token`, and tells whether there was enough left.
bool ExtraEnds::mayLookAhead(const Token& token, const Token& before) {
    const std::size_t units = token.end - before.end;
    if (units > budget) return false;
    budget -= units;
    return true;
}

bool ExtraEnds::isExtraInClass() {
    OutsideBrackets ahead(state.lookAhead());
    std::size_t depth = 0;
    Token before = state.token();
    for (Token token = ahead.next(); token.kind != TokenKind::EndOfFile;
         before = token, token = ahead.next()) {
        if (!mayLookAhead(token, before)) return false;
        const bool isClassBlock =
            before.kind == TokenKind::LineEnd && isClassBlockWord(state, token);
        const bool opens = beginsBlock(token.keyword) || token.keyword == Keyword::Function ||
                           (isClassBlock && depth == 0);
        if (opens) ++depth;
        if (token.keyword == Keyword::End && depth-- == 0) return true;
    }
    return false;
}

} // namespace ostrel
