#include "syntax/DeclarationParser.h"

#include <string>

namespace ostrel {

using zt::orvex::NodeKind;

NodeId DeclarationParser::argumentDeclaration() {
    const std::size_t begin = state.token().begin;
    expectName("an argument");
    const NodeId name = state.identifierOfToken(Role::Mention);
    const NodeId validated = validation();
    const NodeId value = defaultValue();
    return state.builder.node(NodeKind::ArgumentDeclaration, state.extentFrom(begin),
                              {TreeBuilder::one(name), TreeBuilder::maybe(validated),
                               TreeBuilder::maybe(value), TreeBuilder::maybe(0),
                               TreeBuilder::maybe(0)});
}

NodeId DeclarationParser::propertyDefinition() {
    const std::size_t begin = state.token().begin;
    expectName("a property");
    const NodeId name = state.identifierOfToken(Role::Label);
    const NodeId validated = validation();
    const NodeId value = defaultValue();
    return state.builder.node(
        NodeKind::PropertyDefinition, state.extentFrom(begin),
        {TreeBuilder::one(name), TreeBuilder::maybe(validated), TreeBuilder::maybe(value)});
}

NodeId DeclarationParser::eventDefinition() {
    const std::size_t begin = state.token().begin;
    expectName("an event");
    const NodeId name = state.identifierOfToken(Role::Label);
    return state.builder.node(NodeKind::EventDefinition, state.extentFrom(begin),
                              {TreeBuilder::one(name), TreeBuilder::maybe(0)});
}

NodeId DeclarationParser::enumerationMember() {
    const std::size_t begin = state.token().begin;
    expectName("a member");
    const NodeId name = state.identifierOfToken(Role::Label);
    const bool hasArguments = state.is(TokenKind::LeftParen);
    const Field arguments = hasArguments ? expressions.argumentsInParens() : Field{0, 0};
    return state.builder.node(NodeKind::EnumerationMember, state.extentFrom(begin),
                              {TreeBuilder::one(name), arguments});
}

/// `(1,:) type {check, check}`, each part optional; 0 if there is none.
NodeId DeclarationParser::validation() {
    const std::size_t begin = state.token().begin;
    const bool hasSizes = state.is(TokenKind::LeftParen);
    const Field sizes = hasSizes ? expressions.argumentsInParens() : Field{0, 0};
    const NodeId type = typeName();
    const bool hasChecks = state.is(TokenKind::LeftBrace);
    const Field checked = hasChecks ? checks() : Field{0, 0};
    if (!hasSizes && type == 0 && !hasChecks) return 0;
    return state.builder.node(NodeKind::ValidationSpecification, state.extentFrom(begin),
                              {sizes, TreeBuilder::maybe(type), checked});
}

/// `name` or `package.name`; 0 if there is none.
NodeId DeclarationParser::typeName() {
    if (!state.is(TokenKind::Identifier)) return 0;
    const std::size_t begin = state.token().begin;
    NodeId name = state.identifierOfToken(Role::Mention);
    while (state.accept(TokenKind::Dot)) {
        expectName("a type");
        const NodeId part = state.identifierOfToken(Role::Label);
        name = state.builder.node(NodeKind::DotOperation, state.extentFrom(begin),
                                  {TreeBuilder::one(name), TreeBuilder::one(part)});
    }
    return name;
}

Field DeclarationParser::checks() {
    const Scoped<bool> inBraces(state.separatedByBlanks, false);
    state.openBracket();
    return expressions.expressionsTo(TokenKind::RightBrace);
}

NodeId DeclarationParser::defaultValue() {
    return state.accept(TokenKind::Assign) ? expressions.expression() : 0;
}

Field DeclarationParser::headAttributes() {
    Field result{0, 0};
    const bool isRight = statements.attempt([&] {
        result = attributes();
        expectEnding(state);
    });
    return isRight ? result : Field{0, 0};
}

Field DeclarationParser::attributes() {
    NodeList list(state);
    if (!state.is(TokenKind::LeftParen)) return list.store();
    const Scoped<bool> inParens(state.separatedByBlanks, false);
    state.openBracket();
    do {
        list.add(attribute());
    } while (state.accept(TokenKind::Comma));
    state.closeBracket(TokenKind::RightParen);
    return list.store();
}

NodeId DeclarationParser::attribute() {
    const std::size_t begin = state.token().begin;
    expectName("an attribute");
    const NodeId name = state.identifierOfToken(Role::Label);
    const NodeId value = defaultValue();
    return state.builder.node(NodeKind::Attribute, state.extentFrom(begin),
                              {TreeBuilder::one(name), TreeBuilder::maybe(value)});
}

Field DeclarationParser::entries(Reader read) {
    NodeList list(state);
    while (true) {
        skipSeparators();
        if (state.is(Keyword::Function)) missingEndAt = state.token().begin;
        const bool isEnd =
            state.is(Keyword::End) || state.is(Keyword::Function) || state.is(TokenKind::EndOfFile);
        if (isEnd) return list.store();
        NodeId entry = 0;
        const bool isRight = statements.attempt([&] {
            entry = (this->*read)();
            expectEnding(state);
        });
        if (isRight) list.add(entry);
    }
}

void DeclarationParser::skipSeparators() {
    while (state.accept(TokenKind::LineEnd) || state.accept(TokenKind::Semicolon) ||
           state.accept(TokenKind::Comma)) {
    }
}

void DeclarationParser::expectName(const char* what) {
    skipKeyword(what);
    if (!state.is(TokenKind::Identifier)) {
        state.fail(std::string("expected ") + what + ", found " + state.found());
    }
}

void DeclarationParser::skipKeyword(const char* what) {
    if (!state.is(TokenKind::Keyword)) return;
    const Extent place = state.place();
    const std::string message =
        std::string("expected ") + what + ", found the keyword " + state.found();
    state.advance();
    state.failAt(place, message);
}

} // namespace ostrel
