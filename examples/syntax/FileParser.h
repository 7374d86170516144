#pragma once

#include "syntax/ExpressionParser.h"
#include "syntax/ParserState.h"
#include "syntax/StatementParser.h"

#include <zt_orvex/ast/NodeKind.h>

#include <cstddef>
#include <string_view>

namespace ostrel {

/// Parses a file: a script followed by functions, functions alone, or a class.
class FileParser {
public:
    explicit FileParser(const SourceText& source)
        : state(source), expressions(state), statements(state, expressions),
          lookAheadBudget(8 * source.size() + 65536) {}

    /// Parses the whole file and returns its Program. Call it only once.
    NodeId parse();

    ParserState state;

private:
    struct Signature {
        NodeId name = 0;
        Field outputs{0, 0};
        Field inputs{0, 0};
    };
    struct ClassHead {
        NodeId name = 0;
        Field attributes{0, 0};
        Field superclasses{0, 0};
    };
    enum class Owner { File, Class };

    // Files
    void script();
    void scriptOnce(NodeList& list);
    void tail(NodeList& program);
    void statementsAfterFunctions();
    void skipAfterClass();

    // Functions
    NodeId function(Owner owner);
    NodeId functionOnce(Owner owner);
    Signature functionHead();
    void signature(Signature& result);
    Field outputsInBrackets();
    void writeParameters(const Signature& of);
    void members(NodeList& list, Owner owner);
    bool isExtraEnd(Owner owner);
    bool isArgumentsBlock() const;
    Field argumentsBlocks();
    NodeId argumentsBlock();

    // Declarations with a validation
    NodeId argumentDeclaration();
    NodeId propertyDefinition();
    NodeId declaredName();
    NodeId validation();
    NodeId typeName();
    Field checks();
    NodeId defaultValue();

    // Classes
    NodeId classDefinition();
    bool isExtraEndOfClass();
    bool mayLookAhead(const Token& token, const Token& before);
    ClassHead classHead();
    Field superclasses();
    bool isBlockWord(const Token& token) const;
    void classMembers(NodeList& list);
    NodeId classBlock();
    NodeId methodsWithoutBlock();
    void unknownMember();
    void skipUnknownBlock();
    Field methods();
    NodeId methodDeclaration();
    NodeId eventDefinition();
    NodeId enumerationMember();

    // What blocks have in common
    using Reader = NodeId (FileParser::*)();
    Field headAttributes();
    Field attributes();
    NodeId attribute();
    Field entries(Reader read);
    void skipSeparators();
    bool isWord(std::u16string_view word) const;
    void expectName(const char* what);
    void skipKeyword(const char* what);

    ExpressionParser expressions;
    StatementParser statements;
    ScopeId scriptScope = 0;
    std::size_t missingEndAt = Lexer::NONE; ///< The function found in place of a missing `end`.

    /// Between these offsets, each `end` that would close a function closes nothing.
    struct {
        std::size_t begin = 0;
        std::size_t end = 0;
    } extraEnds;

    /// How much text may still be read ahead for the sake of extra `end`s. Linear in the text, and
    /// so is all reading.
    std::size_t lookAheadBudget;
};

} // namespace ostrel
