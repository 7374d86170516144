#pragma once

#include "syntax/ClassParser.h"
#include "syntax/DeclarationParser.h"
#include "syntax/ExpressionParser.h"
#include "syntax/ExtraEnds.h"
#include "syntax/FunctionParser.h"
#include "syntax/ParserState.h"
#include "syntax/StatementParser.h"

namespace ostrel {

/// Parses a file: a script followed by functions, functions alone, or a class.
class FileParser {
public:
    explicit FileParser(const SourceText& source)
        : state(source), expressions(state), statements(state, expressions),
          declarations(state, expressions, statements), extraEnds(state),
          functions(state, expressions, statements, declarations, extraEnds),
          classes(state, statements, declarations, functions, extraEnds) {}
    FileParser(const FileParser&) = delete;
    FileParser& operator=(const FileParser&) = delete;

    /// Parses the whole file and returns its Program. Call it only once.
    NodeId parse();

    ParserState state;

private:
    void script();
    void scriptOnce(NodeList& list);
    void tail(NodeList& program);
    void statementsAfterFunctions();
    void skipAfterClass();

    ExpressionParser expressions;
    StatementParser statements;
    DeclarationParser declarations;
    ExtraEnds extraEnds;
    FunctionParser functions;
    ClassParser classes;
    ScopeId scriptScope = 0;
};

} // namespace ostrel
