#include "syntax/ClassParser.h"

#include "syntax/OutsideBrackets.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace ostrel {

using zt::orvex::NodeKind;

namespace {

struct BlockRow {
    std::string_view name;
    NodeKind kind;
    DeclarationParser::Reader entry; ///< Null for methods, which aren't entries of one line.
};

constexpr BlockRow BLOCKS[] = {
    {"enumeration", NodeKind::EnumerationBlock, &DeclarationParser::enumerationMember},
    {"events", NodeKind::EventsBlock, &DeclarationParser::eventDefinition},
    {"methods", NodeKind::MethodsBlock, nullptr},
    {"properties", NodeKind::PropertiesBlock, &DeclarationParser::propertyDefinition},
};

/// The row of a word for which `isClassBlockWord` holds.
const BlockRow& rowOf(std::u16string_view word) {
    return *std::find_if(std::begin(BLOCKS), std::end(BLOCKS), [=](const BlockRow& row) {
        return std::equal(row.name.begin(), row.name.end(), word.begin(), word.end());
    });
}

} // namespace

NodeId ClassParser::definition(ScopeId scope) {
    const std::size_t begin = state.token().begin;
    VariableGuess guess;
    const Scoped<VariableGuess*> ofClass(state.variables, &guess);
    const Scoped<ScopeId> inClass(state.scope, scope);
    const BlockId block = statements.openBlock("class");
    const Head read = head();
    NodeList list(state);
    members(list);
    while (state.is(Keyword::End) && extraEnds.isExtraInClass()) {
        statements.rejectEnd();
        members(list);
    }
    statements.closeBlock(block);
    return state.builder.node(
        NodeKind::ClassDefinition, state.extentFrom(begin),
        {read.attributes, TreeBuilder::one(read.name), read.superclasses, list.store()});
}

ClassParser::Head ClassParser::head() {
    const std::size_t begin = state.token().begin;
    Head result;
    const bool isRight = statements.attempt([&] {
        result.attributes = declarations.attributes();
        declarations.expectName("the name of the class");
        result.name = state.identifierOfToken(Role::Label);
        result.superclasses = superclasses();
        expectEnding(state);
    });
    if (isRight) return result;
    return {state.label(u"", begin), {0, 0}, {0, 0}};
}

/// `< Base & Base`, or nothing.
Field ClassParser::superclasses() {
    NodeList list(state);
    if (state.accept(TokenKind::Less)) {
        do {
            declarations.expectName("the name of a class");
            list.add(state.identifierOfToken(Role::Mention));
        } while (state.accept(TokenKind::And));
    }
    return list.store();
}

void ClassParser::members(NodeList& list) {
    while (true) {
        declarations.skipSeparators();
        if (state.is(TokenKind::EndOfFile) || state.is(Keyword::End)) return;
        if (isClassBlockWord(state, state.token())) {
            list.add(block());
        } else if (state.is(Keyword::Function)) {
            list.add(methodsWithoutBlock());
        } else {
            unknownMember();
        }
    }
}

NodeId ClassParser::block() {
    const std::size_t begin = state.token().begin;
    const BlockRow& row = rowOf(state.text(state.token()));
    const BlockId opened = statements.openBlock(row.name);
    const Field attributes = declarations.headAttributes();
    const Field content = row.entry == nullptr ? methods() : declarations.entries(row.entry);
    statements.closeBlock(opened);
    const NodeId node =
        state.builder.node(row.kind, state.extentFrom(begin), {content, attributes});
    statements.blockEnding();
    return node;
}

/// Functions outside a block of methods. Either the block before them lacks its `end`, which has
/// been reported, and the `end` after them was meant for the methods; or no such block exists.
NodeId ClassParser::methodsWithoutBlock() {
    const Extent first = state.place();
    const std::size_t begin = first.begin;
    const bool isReported = declarations.isFunctionInPlaceOfEnd();
    if (!isReported) state.report(first, "a method must be in a 'methods' block");
    const BlockId block = isReported ? state.blocks.open(first, "methods") : 0;
    const Field content = methods();
    if (isReported) statements.closeBlock(block);
    return state.builder.node(NodeKind::MethodsBlock, state.extentFrom(begin), {content, {0, 0}});
}

/// Skips something that doesn't belong between the blocks of a class, as a block if it looks like
/// the head of one.
void ClassParser::unknownMember() {
    const Extent first = state.place();
    OutsideBrackets ahead(state.lookAhead());
    Token next = ahead.next();
    if (next.kind == TokenKind::RightParen) next = ahead.next();
    const bool isName = state.is(TokenKind::Identifier);
    const bool isBlock =
        (isName && next.kind == TokenKind::LineEnd) || beginsBlock(state.token().keyword);
    statements.attempt([&] {
        if (isBlock) skipUnknownBlock();
        if (!isBlock) state.advance();
        state.failAt(first, "expected 'properties', 'methods', 'events' or 'enumeration'");
    });
}

void ClassParser::skipUnknownBlock() {
    OutsideBrackets ahead(state.lookAhead());
    Token token;
    for (std::size_t depth = 1; depth > 0;) {
        token = ahead.next();
        if (token.kind == TokenKind::EndOfFile) break;
        if (beginsBlock(token.keyword) || token.keyword == Keyword::Function) ++depth;
        if (token.keyword == Keyword::End) --depth;
    }
    state.skipTo(token.end);
}

Field ClassParser::methods() {
    NodeList list(state);
    while (true) {
        declarations.skipSeparators();
        if (state.is(Keyword::Function)) {
            list.add(functions.function(Owner::Class));
        } else if (state.is(Keyword::End) || state.is(TokenKind::EndOfFile)) {
            return list.store();
        } else {
            NodeId declaration = 0;
            const bool isRight =
                statements.attempt([&] { declaration = functions.methodDeclaration(); });
            if (isRight) list.add(declaration);
        }
    }
}

} // namespace ostrel
