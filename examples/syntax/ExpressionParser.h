#pragma once

#include "syntax/OperatorTable.h"
#include "syntax/ParserState.h"

#include <zt_orvex/ast/NodeKind.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace ostrel {

/// Reads expressions: precedence climbing over the operator tables, and recursive descent for what
/// stands in brackets.
///
/// Every function begins at the current token and leaves the one behind its expression; where the
/// text does not fit it throws a SyntaxError.
class ExpressionParser {
public:
    explicit ExpressionParser(ParserState& shared) : state(shared) {}

    NodeId expression() { return binary(level::LOOSEST); }

    /// What may stand left of `=`: a name, with what follows it.
    NodeId postfix();

    /// The arguments in parentheses at the current token, which may be empty.
    Field argumentsInParens();
    /// Expressions parted by commas, up to `closer`, behind the opening bracket.
    Field expressionsTo(TokenKind closer);
    /// `(a, ~, b)`: a range of InputParameter, their names in scope `owner`.
    Field inputParameters(ScopeId owner);

    /// The name that an assignment to `target` writes; 0 if it cannot be assigned to.
    NodeId assignedName(NodeId target) const;

private:
    using Reader = NodeId (ExpressionParser::*)();

    NodeId binary(int loosest);
    NodeId colon(NodeId start);
    NodeId prefixed();
    NodeId prefix(const UnaryRow& row, Reader read);
    NodeId power();
    NodeId exponent();
    bool beginsNewElement() const;

    NodeId call(NodeId base);
    NodeId brace(NodeId base);
    NodeId dot(NodeId base);
    bool isNameBefore(NodeId base) const;
    NodeId atClass(NodeId name);

    Field elementsTo(TokenKind closer, Reader read);
    bool goesOn();
    bool isElementsEnd() const;
    bool isRowEnd() const;
    NodeId subscript();
    NodeId argument();
    NodeId namedArgument();
    bool isLoneColon() const;

    NodeId primary();
    NodeId keyword();
    NodeId number();
    NodeId literal(zt::orvex::NodeKind kind);
    NodeId parenthesized();
    NodeId inParens();
    NodeId matrix(zt::orvex::NodeKind kind, TokenKind closer);
    NodeId row();
    bool continuesRow();
    NodeId functionHandle();
    NodeId onName(zt::orvex::UnaryOperator op);
    NodeId anonymousFunction(std::size_t begin);
    NodeId inputParameter();

    NodeId makeBinary(const BinaryRow& row, NodeId lhs, NodeId rhs);
    NodeId make(zt::orvex::NodeKind kind, std::size_t begin, std::initializer_list<Field> fields,
                std::uint8_t op = 0);

    ParserState& state;
    std::size_t nesting = 0;
    ScopeId parameterScope = 0;
};

} // namespace ostrel
