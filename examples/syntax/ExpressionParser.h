#pragma once

#include "syntax/OperatorTable.h"
#include "syntax/ParserState.h"

#include <zt_orvex/ast/NodeKind.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace ostrel {

/// Parses expressions: by precedence climbing over the operator tables, and by recursive descent
/// inside brackets.
///
/// Every function starts at the current token and stops at the token after its expression. It
/// throws a SyntaxError if the text doesn't fit.
class ExpressionParser {
public:
    explicit ExpressionParser(ParserState& shared) : state(shared) {}

    NodeId expression() { return binary(level::LOOSEST); }

    /// An operand with its postfix operators, which is what may precede `=`.
    NodeId postfix();

    /// The parenthesized arguments at the current token, possibly none.
    Field argumentsInParens();
    /// Expressions separated by commas, from after the opening bracket to `closer`.
    Field expressionsTo(TokenKind closer);
    /// `(a, ~, b)`: a range of InputParameter, whose names are in scope `owner`.
    Field inputParameters(ScopeId owner);

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
    bool hasAnotherElement();
    bool isElementsEnd() const;
    bool isRowEnd() const { return state.is(TokenKind::Semicolon) || state.is(TokenKind::LineEnd); }
    NodeId subscript();
    NodeId argument();
    NodeId namedArgument();
    bool isLoneColon() const;

    NodeId primary();
    NodeId keyword();
    NodeId number();
    bool isSignWithoutOperand() const;
    NodeId literal(zt::orvex::NodeKind kind);
    NodeId parenthesized();
    NodeId inParens();
    NodeId matrix(zt::orvex::NodeKind kind, TokenKind closer);
    NodeId row();
    bool rowHasAnotherElement();
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
