#pragma once

#include "syntax/ExpressionParser.h"
#include "syntax/ParserState.h"
#include "syntax/StatementParser.h"

#include <cstddef>

namespace ostrel {

/// Parses the blocks of declarations: of arguments, properties, events and members of enumerations,
/// and the attributes in the heads of such blocks.
class DeclarationParser {
public:
    DeclarationParser(ParserState& shared, ExpressionParser& expressionParser,
                      StatementParser& statementParser)
        : state(shared), expressions(expressionParser), statements(statementParser) {}

    // What an entry may be
    NodeId argumentDeclaration();
    NodeId propertyDefinition();
    NodeId eventDefinition();
    NodeId enumerationMember();

    using Reader = NodeId (DeclarationParser::*)();
    /// Reads entries with `read`, one to a line, up to the `end` of their block.
    Field entries(Reader read);
    /// Whether the entries last read ended at the current `function`, in place of their `end`.
    bool isFunctionInPlaceOfEnd() const { return missingEndAt == state.token().begin; }

    /// The attributes in the head of a block, to the end of that head.
    Field headAttributes();
    /// `(name = value, name)`, or nothing.
    Field attributes();

    void skipSeparators();
    void expectName(const char* what);
    /// A keyword where a name is due is meant as a name: it is skipped with an error, so that it
    /// opens and closes nothing.
    void skipKeyword(const char* what);

private:
    NodeId validation();
    NodeId typeName();
    Field checks();
    NodeId defaultValue();
    NodeId attribute();

    ParserState& state;
    ExpressionParser& expressions;
    StatementParser& statements;
    std::size_t missingEndAt = Lexer::NONE; ///< The function found in place of a missing `end`.
};

} // namespace ostrel
