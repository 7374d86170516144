#include "syntax/FunctionParser.h"

namespace ostrel {

using zt::orvex::NodeKind;

NodeId FunctionParser::function(Owner owner) {
    VariableGuess guess;
    const Scoped<VariableGuess*> ofFunction(state.variables, &guess);
    const ParserState::Mark mark = state.mark();
    while (true) {
        const NodeId node = functionOnce(owner);
        if (!guess.startAnotherPass()) return node;
        state.goBack(mark);
    }
}

NodeId FunctionParser::functionOnce(Owner owner) {
    const std::size_t begin = state.token().begin;
    statements.beginScope();
    const Scoped<ScopeId> inFunction(state.scope, state.builder.scope(ScopeKind::Function, u""));
    const NodeKind kind =
        owner == Owner::Class ? NodeKind::MethodDefinition : NodeKind::FunctionDefinition;
    const BlockId block = statements.openBlock("function");
    const Signature head = functionHead();
    const NodeId part = state.builder.leaf(NodeKind::FillerNode, {begin, begin});
    const Field blocks = argumentsBlocks();
    NodeList body(state);
    members(body, owner);
    statements.closeBlock(block);
    const NodeId node = state.builder.node(kind, state.extentFrom(begin),
                                           {TreeBuilder::one(head.name), head.inputs, head.outputs,
                                            TreeBuilder::one(part), blocks, body.store()});
    statements.blockEnding();
    return node;
}

FunctionParser::Signature FunctionParser::functionHead() {
    const std::size_t begin = state.token().begin;
    Signature head;
    const bool isRight = statements.attempt([&] {
        signature(head);
        const bool hasParens = state.source.at(state.previousEnd() - 1) == u')';
        if (hasParens) {
            acceptEnding(state);
        } else {
            expectEnding(state);
        }
    });
    if (!isRight) return {state.label(u"", begin), {0, 0}, {0, 0}};
    writeParameters(head);
    return head;
}

/// `[a, b] = name(x)`, `a = name(x)`, `name(x)` or `name`.
void FunctionParser::signature(Signature& result) {
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

Field FunctionParser::outputsInBrackets() {
    NodeList outputs(state);
    state.openBracket();
    while (state.is(TokenKind::Identifier)) {
        outputs.add(state.identifierOfToken(Role::Written));
        state.accept(TokenKind::Comma);
    }
    state.closeBracket(TokenKind::RightBracket);
    return outputs.store();
}

void FunctionParser::writeParameters(const Signature& of) {
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
void FunctionParser::members(NodeList& list, Owner owner) {
    statements.statementsInto(list);
    while (state.is(Keyword::End) && extraEnds.isExtra(owner)) {
        list.add(statements.rejectEnd());
        statements.statementsInto(list);
    }
}

bool FunctionParser::isArgumentsBlock() const {
    const bool isWord =
        state.is(TokenKind::Identifier) && state.text(state.token()) == u"arguments";
    if (!isWord) return false;
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

Field FunctionParser::argumentsBlocks() {
    NodeList blocks(state);
    while (true) {
        while (state.accept(TokenKind::LineEnd)) {
        }
        if (!isArgumentsBlock()) return blocks.store();
        blocks.add(argumentsBlock());
    }
}

NodeId FunctionParser::argumentsBlock() {
    const std::size_t begin = state.token().begin;
    const BlockId block = statements.openBlock("arguments");
    const Field attributes = declarations.headAttributes();
    const Field entries = declarations.entries(&DeclarationParser::argumentDeclaration);
    statements.closeBlock(block);
    const NodeId node = state.builder.node(NodeKind::ArgumentsBlock, state.extentFrom(begin),
                                           {attributes, entries});
    statements.blockEnding();
    return node;
}

NodeId FunctionParser::methodDeclaration() {
    const std::size_t begin = state.token().begin;
    const Scoped<ScopeId> inMethod(state.scope, state.builder.scope(ScopeKind::Function, u""));
    declarations.skipKeyword("a method");
    Signature head;
    signature(head);
    const Extent extent = state.extentFrom(begin);
    expectEnding(state);
    return state.builder.node(NodeKind::MethodDeclaration, extent,
                              {TreeBuilder::one(head.name), head.inputs, head.outputs});
}

} // namespace ostrel
