#pragma once

#include "syntax/DeclarationParser.h"
#include "syntax/ExtraEnds.h"
#include "syntax/FunctionParser.h"
#include "syntax/ParserState.h"
#include "syntax/StatementParser.h"

namespace ostrel {

/// Parses a class and its blocks.
class ClassParser {
public:
    ClassParser(ParserState& shared, StatementParser& statementParser,
                DeclarationParser& declarationParser, FunctionParser& functionParser,
                ExtraEnds& extra)
        : state(shared), statements(statementParser), declarations(declarationParser),
          functions(functionParser), extraEnds(extra) {}

    /// The class at the current keyword. What is outside of its methods is in `scope`.
    NodeId definition(ScopeId scope);

private:
    struct Head {
        NodeId name = 0;
        Field attributes{0, 0};
        Field superclasses{0, 0};
    };

    Head head();
    Field superclasses();
    void members(NodeList& list);
    NodeId block();
    NodeId methodsWithoutBlock();
    void unknownMember();
    void skipUnknownBlock();
    Field methods();

    ParserState& state;
    StatementParser& statements;
    DeclarationParser& declarations;
    FunctionParser& functions;
    ExtraEnds& extraEnds;
};

} // namespace ostrel
