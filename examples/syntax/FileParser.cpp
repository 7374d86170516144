#include "syntax/FileParser.h"

namespace ostrel {

using zt::orvex::NodeKind;

NodeId FileParser::parse() {
    scriptScope = state.builder.scope(ScopeKind::Script, u"");
    NodeList program(state);
    script();
    tail(program);
    if (state.openComment() != Lexer::NONE) {
        const std::size_t begin = state.openComment();
        state.report({begin, begin + 2}, "the block comment is not closed");
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
        list.add(statements.rejectEnd());
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
            program.add(functions.function(Owner::File));
        } else if (state.is(Keyword::Class)) {
            if (program.size() > 0) {
                state.report(state.place(), "a class must be alone in its file");
            }
            program.add(classes.definition(scriptScope));
            skipAfterClass();
        } else {
            statementsAfterFunctions();
        }
    }
}

void FileParser::statementsAfterFunctions() {
    const bool isEmpty = state.is(TokenKind::Semicolon) || state.is(TokenKind::Comma);
    if (!isEmpty) {
        state.report(state.place(), "statements must precede the functions of a file");
    }
    script();
}

void FileParser::skipAfterClass() {
    declarations.skipSeparators();
    if (state.is(TokenKind::EndOfFile)) return;
    state.report(state.place(), "nothing may follow the class");
    state.skipTo(state.source.size());
}

} // namespace ostrel
