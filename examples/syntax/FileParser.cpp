#include "syntax/FileParser.h"

#include "source/Utf8.h"
#include "syntax/OutsideBrackets.h"

#include <algorithm>
#include <string>
#include <vector>

namespace ostrel {

using zt::orvex::NodeKind;

namespace {

constexpr const char* STRAY_END = "this 'end' closes nothing";

bool endsFunction(const Token& token) {
    return token.kind == TokenKind::EndOfFile || token.keyword == Keyword::Function ||
           token.keyword == Keyword::Class;
}

} // namespace

// Files

NodeId FileParser::parse() {
    scriptScope = state.builder.scope(ScopeKind::Script, u"");
    NodeList program(state);
    script();
    tail(program);
    if (state.openComment() != Lexer::NONE) {
        state.report(state.openComment(), "the block comment is not closed");
    }
    return state.builder.node(NodeKind::Program, {0, state.source.size()}, {program.store()});
}

/// Appends the statements of the script to the innermost list. Parses them again until it is known
/// which names are variables.
void FileParser::script() {
    VariableGuess guess;
    const Scoped<VariableGuess*> ofScript(state.variables, &guess);
    const Scoped<ScopeId> inScript(state.scope, scriptScope);
    const ParserState::Mark mark = state.mark();
    NodeList own(state);
    while (true) {
        scriptOnce(own);
        if (!guess.startAnotherPass()) break;
        state.goBack(mark);
        own.clear();
    }
    own.moveIntoOuter();
}

void FileParser::scriptOnce(NodeList& list) {
    statements.beginScope();
    statements.statementsInto(list);
    while (state.is(Keyword::End)) {
        list.add(statements.reject(STRAY_END));
        statements.statementsInto(list);
    }
}

/// What follows the script part.
void FileParser::tail(NodeList& program) {
    while (true) {
        while (state.accept(TokenKind::LineEnd)) {
        }
        if (state.is(TokenKind::EndOfFile)) return;
        if (state.is(Keyword::Function)) {
            program.add(function(Owner::File));
        } else if (state.is(Keyword::Class)) {
            if (program.size() > 0) {
                state.report(state.token().begin, "a class must be alone in its file");
            }
            program.add(classDefinition());
            skipAfterClass();
        } else {
            statementsAfterFunctions();
        }
    }
}

void FileParser::statementsAfterFunctions() {
    const bool isEmpty = state.is(TokenKind::Semicolon) || state.is(TokenKind::Comma);
    if (!isEmpty) {
        state.report(state.token().begin, "statements must precede the functions of a file");
    }
    script();
}

// Functions

NodeId FileParser::function(Owner owner) {
    VariableGuess guess;
    const Scoped<VariableGuess*> ofFunction(state.variables, &guess);
    const ParserState::Mark mark = state.mark();
    while (true) {
        const NodeId node = functionOnce(owner);
        if (!guess.startAnotherPass()) return node;
        state.goBack(mark);
    }
}

NodeId FileParser::functionOnce(Owner owner) {
    const std::size_t begin = state.token().begin;
    statements.beginScope();
    const Scoped<ScopeId> inFunction(state.scope, state.builder.scope(ScopeKind::Function, u""));
    const NodeKind kind =
        owner == Owner::Class ? NodeKind::MethodDefinition : NodeKind::FunctionDefinition;
    state.advance();
    const Signature head = functionHead();
    const NodeId part = state.builder.leaf(NodeKind::FillerNode, {begin, begin});
    const Field blocks = argumentsBlocks();
    NodeList body(state);
    members(body, owner);
    statements.closeBlock(begin, "function");
    const NodeId node = state.builder.node(kind, state.extentFrom(begin),
                                           {TreeBuilder::one(head.name), head.inputs, head.outputs,
                                            TreeBuilder::one(part), blocks, body.store()});
    statements.blockEnding();
    return node;
}

FileParser::Signature FileParser::functionHead() {
    const std::size_t begin = state.token().begin;
    Signature head;
    const bool isRight = statements.attempt([&] {
        signature(head);
        const bool hasParens = state.source.at(state.previousEnd() - 1) == u')';
        if (hasParens) {
            statements.optionalEnding();
        } else {
            statements.ending();
        }
    });
    if (!isRight) return {state.label(u"", begin), {0, 0}, {0, 0}};
    writeParameters(head);
    return head;
}

/// `[a, b] = name(x)`, `a = name(x)`, `name(x)` or `name`.
void FileParser::signature(Signature& result) {
    if (state.is(TokenKind::LeftBracket)) {
        result.outputs = outputsInBrackets();
        state.expect(TokenKind::Assign, "expected '='");
    } else if (state.is(TokenKind::Identifier) && state.peek().kind == TokenKind::Assign) {
        const NodeId output = state.identifierOfToken(Role::Written);
        result.outputs = state.builder.each(&output, 1);
        state.advance();
    }
    if (!state.is(TokenKind::Identifier)) state.fail("expected a name, found " + state.found());
    result.name = state.identifierOfToken(Role::Label);
    state.builder.nameScope(state.scope, state.builder.identifierAt(result.name).name);
    if (state.is(TokenKind::LeftParen)) result.inputs = expressions.inputParameters(state.scope);
}

Field FileParser::outputsInBrackets() {
    NodeList outputs(state);
    state.openBracket();
    while (state.is(TokenKind::Identifier)) {
        outputs.add(state.identifierOfToken(Role::Written));
        state.accept(TokenKind::Comma);
    }
    state.closeBracket(TokenKind::RightBracket);
    return outputs.store();
}

void FileParser::writeParameters(const Signature& of) {
    for (std::uint32_t i = 0; i < of.outputs.count; ++i) {
        state.write(state.builder.element(of.outputs.begin + i));
    }
    for (std::uint32_t i = 0; i < of.inputs.count; ++i) {
        const NodeId held = state.builder.child(state.builder.element(of.inputs.begin + i), 0);
        if (state.builder.at(held).kind == NodeKind::Identifier) state.write(held);
    }
}

/// The body. An `end` too many would end the function early and cut off the rest of it: if a later
/// `end` has nothing else to close, the current one is the mistake.
void FileParser::members(NodeList& list, Owner owner) {
    statements.statementsInto(list);
    while (state.is(Keyword::End) && isExtraEnd(owner)) {
        list.add(statements.reject(STRAY_END));
        statements.statementsInto(list);
    }
}

/// Whether more `end`s follow, up to the next function, than there are blocks left to close after
/// the current `end`.
///
/// A run of extra `end`s takes one scan. In a text with words that may begin a block of a class,
/// each `end` takes one, until the budget is used up; from then on, `end` closes the function.
bool FileParser::isExtraEnd(Owner owner) {
    const std::size_t begin = state.token().begin;
    if (extraEnds.begin <= begin && begin < extraEnds.end) return true;
    OutsideBrackets ahead(state.lookAhead());
    std::vector<std::size_t> unmatched;
    std::size_t depth = 0;
    bool hasBlockWord = false;
    Token before = state.token();
    Token token = ahead.next();
    for (; !endsFunction(token); before = token, token = ahead.next()) {
        if (!mayLookAhead(token, before)) return false;
        const bool isClassBlock = before.kind == TokenKind::LineEnd && isBlockWord(token);
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
    if (!hasBlockWord) extraEnds = {begin, unmatched[unmatched.size() - expected - 1]};
    return true;
}

/// Deducts what a scan reads from `before` to `token`, and tells whether there was enough left.
bool FileParser::mayLookAhead(const Token& token, const Token& before) {
    const std::size_t units = token.end - before.end;
    if (units > lookAheadBudget) return false;
    lookAheadBudget -= units;
    return true;
}

bool FileParser::isArgumentsBlock() const {
    if (!isWord(u"arguments")) return false;
    switch (state.peek().kind) {
    case TokenKind::EndOfFile:
    case TokenKind::LineEnd:
    case TokenKind::Semicolon:
    case TokenKind::Comma:
    case TokenKind::LeftParen:
        return true;
    default:
        return false;
    }
}

Field FileParser::argumentsBlocks() {
    NodeList blocks(state);
    while (true) {
        while (state.accept(TokenKind::LineEnd)) {
        }
        if (!isArgumentsBlock()) return blocks.store();
        blocks.add(argumentsBlock());
    }
}

NodeId FileParser::argumentsBlock() {
    const std::size_t begin = state.token().begin;
    state.advance();
    const Field attributes = headAttributes();
    const Field declarations = entries(&FileParser::argumentDeclaration);
    statements.closeBlock(begin, "arguments");
    const NodeId node = state.builder.node(NodeKind::ArgumentsBlock, state.extentFrom(begin),
                                           {attributes, declarations});
    statements.blockEnding();
    return node;
}

// Declarations with a validation

NodeId FileParser::argumentDeclaration() {
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

NodeId FileParser::propertyDefinition() {
    const std::size_t begin = state.token().begin;
    expectName("a property");
    const NodeId name = state.identifierOfToken(Role::Label);
    const NodeId validated = validation();
    const NodeId value = defaultValue();
    return state.builder.node(
        NodeKind::PropertyDefinition, state.extentFrom(begin),
        {TreeBuilder::one(name), TreeBuilder::maybe(validated), TreeBuilder::maybe(value)});
}

/// `(1,:) type {check, check}`, each part optional; 0 if there is none.
NodeId FileParser::validation() {
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
NodeId FileParser::typeName() {
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

Field FileParser::checks() {
    const Scoped<bool> inBraces(state.separatedByBlanks, false);
    state.openBracket();
    return expressions.expressionsTo(TokenKind::RightBrace);
}

NodeId FileParser::defaultValue() {
    return state.accept(TokenKind::Assign) ? expressions.expression() : 0;
}

// Classes

NodeId FileParser::classDefinition() {
    const std::size_t begin = state.token().begin;
    VariableGuess guess;
    const Scoped<VariableGuess*> ofClass(state.variables, &guess);
    const Scoped<ScopeId> inClass(state.scope, scriptScope);
    state.advance();
    const ClassHead head = classHead();
    NodeList members(state);
    classMembers(members);
    while (state.is(Keyword::End) && isExtraEndOfClass()) {
        statements.reject(STRAY_END);
        classMembers(members);
    }
    statements.closeBlock(begin, "class");
    return state.builder.node(
        NodeKind::ClassDefinition, state.extentFrom(begin),
        {head.attributes, TreeBuilder::one(head.name), head.superclasses, members.store()});
}

void FileParser::skipAfterClass() {
    skipSeparators();
    if (state.is(TokenKind::EndOfFile)) return;
    state.report(state.token().begin, "nothing may follow the class");
    state.skipTo(state.source.size());
}

/// Whether a later `end` would close nothing if the current one closed the class.
bool FileParser::isExtraEndOfClass() {
    OutsideBrackets ahead(state.lookAhead());
    std::size_t depth = 0;
    Token before = state.token();
    for (Token token = ahead.next(); token.kind != TokenKind::EndOfFile;
         before = token, token = ahead.next()) {
        if (!mayLookAhead(token, before)) return false;
        const bool isClassBlock = before.kind == TokenKind::LineEnd && isBlockWord(token);
        const bool opens = beginsBlock(token.keyword) || token.keyword == Keyword::Function ||
                           (isClassBlock && depth == 0);
        if (opens) ++depth;
        if (token.keyword == Keyword::End && depth-- == 0) return true;
    }
    return false;
}

FileParser::ClassHead FileParser::classHead() {
    const std::size_t begin = state.token().begin;
    ClassHead head;
    const bool isRight = statements.attempt([&] {
        head.attributes = attributes();
        expectName("the name of the class");
        head.name = state.identifierOfToken(Role::Label);
        head.superclasses = superclasses();
        statements.ending();
    });
    if (isRight) return head;
    return {state.label(u"", begin), {0, 0}, {0, 0}};
}

/// `< Base & Base`, or nothing.
Field FileParser::superclasses() {
    NodeList list(state);
    if (state.accept(TokenKind::Less)) {
        do {
            expectName("the name of a class");
            list.add(state.identifierOfToken(Role::Mention));
        } while (state.accept(TokenKind::And));
    }
    return list.store();
}

bool FileParser::isBlockWord(const Token& token) const {
    if (token.kind != TokenKind::Identifier) return false;
    const std::u16string_view word = state.text(token);
    return word == u"properties" || word == u"methods" || word == u"events" ||
           word == u"enumeration";
}

void FileParser::classMembers(NodeList& list) {
    while (true) {
        skipSeparators();
        if (state.is(TokenKind::EndOfFile) || state.is(Keyword::End)) return;
        if (isBlockWord(state.token())) {
            list.add(classBlock());
        } else if (state.is(Keyword::Function)) {
            list.add(methodsWithoutBlock());
        } else {
            unknownMember();
        }
    }
}

NodeId FileParser::classBlock() {
    const Token word = state.token();
    state.advance();
    const Field attributeRange = headAttributes();
    NodeKind kind = NodeKind::EnumerationBlock;
    Field content{0, 0};
    if (state.text(word) == u"methods") {
        kind = NodeKind::MethodsBlock;
        content = methods();
    } else if (state.text(word) == u"properties") {
        kind = NodeKind::PropertiesBlock;
        content = entries(&FileParser::propertyDefinition);
    } else if (state.text(word) == u"events") {
        kind = NodeKind::EventsBlock;
        content = entries(&FileParser::eventDefinition);
    } else {
        content = entries(&FileParser::enumerationMember);
    }
    statements.closeBlock(word.begin, toUtf8(state.text(word)).c_str());
    const NodeId node =
        state.builder.node(kind, state.extentFrom(word.begin), {content, attributeRange});
    statements.blockEnding();
    return node;
}

/// Functions outside a block of methods. Either the block before them lacks its `end`, which has
/// been reported, and the `end` after them was meant for the methods; or there is no block at all.
NodeId FileParser::methodsWithoutBlock() {
    const std::size_t begin = state.token().begin;
    const bool isReported = state.token().begin == missingEndAt;
    if (!isReported) state.report(begin, "a method must be in a 'methods' block");
    const Field content = methods();
    if (isReported) statements.closeBlock(begin, "methods");
    return state.builder.node(NodeKind::MethodsBlock, state.extentFrom(begin), {content, {0, 0}});
}

/// Skips something that doesn't belong between the blocks of a class, as a block if it looks like
/// the head of one.
void FileParser::unknownMember() {
    const std::size_t begin = state.token().begin;
    OutsideBrackets ahead(state.lookAhead());
    Token next = ahead.next();
    if (next.kind == TokenKind::RightParen) next = ahead.next();
    const bool isName = state.is(TokenKind::Identifier);
    const bool isBlock =
        (isName && next.kind == TokenKind::LineEnd) || beginsBlock(state.token().keyword);
    statements.attempt([&] {
        if (isBlock) skipUnknownBlock();
        if (!isBlock) state.advance();
        state.failAt(begin, "expected 'properties', 'methods', 'events' or 'enumeration'");
    });
}

void FileParser::skipUnknownBlock() {
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

Field FileParser::methods() {
    NodeList list(state);
    while (true) {
        skipSeparators();
        if (state.is(Keyword::Function)) {
            list.add(function(Owner::Class));
        } else if (state.is(Keyword::End) || state.is(TokenKind::EndOfFile)) {
            return list.store();
        } else {
            NodeId declaration = 0;
            const bool isRight = statements.attempt([&] { declaration = methodDeclaration(); });
            if (isRight) list.add(declaration);
        }
    }
}

NodeId FileParser::methodDeclaration() {
    const std::size_t begin = state.token().begin;
    const Scoped<ScopeId> inMethod(state.scope, state.builder.scope(ScopeKind::Function, u""));
    skipKeyword("a method");
    Signature head;
    signature(head);
    const Extent extent = state.extentFrom(begin);
    statements.ending();
    return state.builder.node(NodeKind::MethodDeclaration, extent,
                              {TreeBuilder::one(head.name), head.inputs, head.outputs});
}

NodeId FileParser::eventDefinition() {
    const std::size_t begin = state.token().begin;
    expectName("an event");
    const NodeId name = state.identifierOfToken(Role::Label);
    return state.builder.node(NodeKind::EventDefinition, state.extentFrom(begin),
                              {TreeBuilder::one(name), TreeBuilder::maybe(0)});
}

NodeId FileParser::enumerationMember() {
    const std::size_t begin = state.token().begin;
    expectName("a member");
    const NodeId name = state.identifierOfToken(Role::Label);
    const bool hasArguments = state.is(TokenKind::LeftParen);
    const Field arguments = hasArguments ? expressions.argumentsInParens() : Field{0, 0};
    return state.builder.node(NodeKind::EnumerationMember, state.extentFrom(begin),
                              {TreeBuilder::one(name), arguments});
}

// What blocks have in common

/// The attributes in the head of a block, to the end of that head.
Field FileParser::headAttributes() {
    Field result{0, 0};
    const bool isRight = statements.attempt([&] {
        result = attributes();
        statements.ending();
    });
    return isRight ? result : Field{0, 0};
}

/// `(name = value, name)`, or nothing.
Field FileParser::attributes() {
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

NodeId FileParser::attribute() {
    const std::size_t begin = state.token().begin;
    expectName("an attribute");
    const NodeId name = state.identifierOfToken(Role::Label);
    const NodeId value = defaultValue();
    return state.builder.node(NodeKind::Attribute, state.extentFrom(begin),
                              {TreeBuilder::one(name), TreeBuilder::maybe(value)});
}

/// Reads entries with `read`, one to a line, up to the `end` of their block.
Field FileParser::entries(Reader read) {
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
            statements.ending();
        });
        if (isRight) list.add(entry);
    }
}

void FileParser::skipSeparators() {
    while (state.accept(TokenKind::LineEnd) || state.accept(TokenKind::Semicolon) ||
           state.accept(TokenKind::Comma)) {
    }
}

bool FileParser::isWord(std::u16string_view word) const {
    return state.is(TokenKind::Identifier) && state.text(state.token()) == word;
}

void FileParser::expectName(const char* what) {
    skipKeyword(what);
    if (!state.is(TokenKind::Identifier)) {
        state.fail(std::string("expected ") + what + ", found " + state.found());
    }
}

/// A keyword where a name is due is meant as a name: it is skipped with an error, so that it opens
/// and closes nothing.
void FileParser::skipKeyword(const char* what) {
    if (!state.is(TokenKind::Keyword)) return;
    const std::size_t begin = state.token().begin;
    const std::string message =
        std::string("expected ") + what + ", found the keyword " + state.found();
    state.advance();
    state.failAt(begin, message);
}

} // namespace ostrel
