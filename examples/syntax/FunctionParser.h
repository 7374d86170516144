#pragma once

#include "syntax/DeclarationParser.h"
#include "syntax/ExpressionParser.h"
#include "syntax/ExtraEnds.h"
#include "syntax/ParserState.h"
#include "syntax/StatementParser.h"

namespace ostrel {

/// Parses functions and methods.
class FunctionParser {
public:
    FunctionParser(ParserState& shared, ExpressionParser& expressionParser,
                   StatementParser& statementParser, DeclarationParser& declarationParser,
                   ExtraEnds& extra)
        : state(shared), expressions(expressionParser), statements(statementParser),
          declarations(declarationParser), extraEnds(extra) {}

    /// The function at the current keyword. Parses it again until it is known which names are
    /// variables.
    NodeId function(Owner owner);

    /// The signature of a method without a body, and the end of its line.
    NodeId methodDeclaration();

private:
    struct Signature {
        NodeId name = 0;
        Field outputs{0, 0};
        Field inputs{0, 0};
    };

    NodeId functionOnce(Owner owner);
    Signature functionHead();
    void signature(Signature& result);
    Field outputsInBrackets();
    void writeParameters(const Signature& of);
    void members(NodeList& list, Owner owner);
    bool isArgumentsBlock() const;
    Field argumentsBlocks();
    NodeId argumentsBlock();

    ParserState& state;
    ExpressionParser& expressions;
    StatementParser& statements;
    DeclarationParser& declarations;
    ExtraEnds& extraEnds;
};

} // namespace ostrel
