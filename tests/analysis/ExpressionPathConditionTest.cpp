#include "analysis/AnalysisFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace zt::orvex::testing {
namespace {

// Whether the right operand of a logical operation is conditional, by the path that leads to it.
class ConditionalOperands : public AnalysisFixture {
protected:
    // What an expression reads.
    std::string reads(const NodeView& expression, Type type) {
        return effects(assign(number(), expression), type);
    }

    // What the condition of an if statement reads for certain.
    std::string certain(const NodeView& condition) {
        return effects(ifStatement(condition, {}), MUST);
    }
};

TEST_F(ConditionalOperands, RightOperandOfAShortCircuitIsConditionalEverywhere) {
    EXPECT_EQ(certain(shortCircuitAnd(id("a"), id("b"))), "gen a");
    EXPECT_EQ(certain(shortCircuitOr(id("a"), id("b"))), "gen a");
    EXPECT_EQ(reads(shortCircuitAnd(id("a"), id("b")), MUST), "gen a");
    EXPECT_EQ(reads(paren(id("c"), {shortCircuitOr(id("a"), id("b"))}), MUST), "gen a c");
}

TEST_F(ConditionalOperands, ConditionalReadCountsUnderMay) {
    EXPECT_EQ(effects(ifStatement(shortCircuitAnd(id("a"), id("b")), {}), MAY), "gen a b");
    EXPECT_EQ(reads(shortCircuitOr(id("a"), id("b")), MAY), "gen a b");
}

TEST_F(ConditionalOperands, RightOperandOfElementwiseLogicIsConditionalInConditionsOnly) {
    const auto either = [&] { return elementOr(id("a"), id("b")); };
    const auto both = [&] { return elementAnd(id("a"), id("b")); };
    EXPECT_EQ(effects(ifStatement(either(), {}), MUST), "gen a");
    EXPECT_EQ(effects(ifStatement(both(), {}), MUST), "gen a");
    EXPECT_EQ(effects(elseIfClause(either(), {}), MUST), "gen a");
    EXPECT_EQ(effects(whileLoop(either(), {}), MUST), "gen a");

    EXPECT_EQ(effects(assign(number(), either()), MUST), "gen a b");
    EXPECT_EQ(effects(expressionStatement(number(), both()), MUST), "gen a b");
    EXPECT_EQ(effects(forLoop(number(), either(), {}), MUST), "gen a b");
    EXPECT_EQ(effects(switchStatement(either(), {}), MUST), "gen a b");
    EXPECT_EQ(effects(caseClause(either(), {}), MUST), "gen a b");
    EXPECT_EQ(effects(spmd({}, {either()}), MUST), "gen a b");
    EXPECT_EQ(effects(parforLoop(number(), both(), {}, {}), MUST), "gen a b");
}

TEST_F(ConditionalOperands, OperandsOfOtherOperatorsAreCertainInConditions) {
    for (int op = 0; op <= static_cast<int>(BinaryOperator::At); ++op) {
        const auto asked = static_cast<BinaryOperator>(op);
        const bool isLogic =
            asked == BinaryOperator::ShortCircuitAnd || asked == BinaryOperator::ShortCircuitOr ||
            asked == BinaryOperator::ElementAnd || asked == BinaryOperator::ElementOr;
        EXPECT_EQ(certain(binary(asked, id("a"), id("b"))), isLogic ? "gen a" : "gen a b") << op;
    }
}

TEST_F(ConditionalOperands, ParenthesesKeepShortCircuiting) {
    // while (a | b) & c
    const NodeView condition = elementAnd(parenthesized(elementOr(id("a"), id("b"))), id("c"));
    EXPECT_EQ(effects(whileLoop(condition, {}), MUST), "gen a");
}

TEST_F(ConditionalOperands, MatrixOfOneElementKeepsShortCircuiting) {
    // if [a | b]
    EXPECT_EQ(certain(matrix({row({elementOr(id("a"), id("b"))})})), "gen a");
    // if [a | b, c]
    EXPECT_EQ(certain(matrix({row({elementOr(id("a"), id("b")), id("c")})})), "gen a b c");
    // if [a | b; c]
    EXPECT_EQ(certain(matrix({row({elementOr(id("a"), id("b"))}), row({id("c")})})), "gen a b c");
    // if [a | b; ]
    EXPECT_EQ(certain(matrix({row({elementOr(id("a"), id("b"))}), row({})})), "gen a b");
}

TEST_F(ConditionalOperands, RowAloneKeepsShortCircuiting) {
    EXPECT_EQ(certain(row({elementOr(id("a"), id("b")), elementAnd(id("c"), id("d"))})), "gen a c");
}

TEST_F(ConditionalOperands, CellArrayEndsShortCircuiting) {
    EXPECT_EQ(certain(cellArray({row({elementOr(id("a"), id("b"))})})), "gen a b");
}

TEST_F(ConditionalOperands, ShortCircuitEndsShortCircuitingOfElementwiseLogicOnItsLeft) {
    // if (a | b) && c
    EXPECT_EQ(certain(shortCircuitAnd(parenthesized(elementOr(id("a"), id("b"))), id("c"))),
              "gen a b");
    // if a && (b | c)
    EXPECT_EQ(certain(shortCircuitAnd(id("a"), parenthesized(elementOr(id("b"), id("c"))))),
              "gen a");
}

TEST_F(ConditionalOperands, OtherExpressionsEndShortCircuiting) {
    const auto either = [&] { return elementOr(id("a"), id("b")); };
    EXPECT_EQ(certain(paren(id("sin"), {either()})), "gen a b"); // if f(a | b)
    EXPECT_EQ(certain(paren(either(), {})), "gen a b");
    EXPECT_EQ(certain(brace(id("sin"), {either()})), "gen a b");
    EXPECT_EQ(certain(unary(UnaryOperator::Tilde, parenthesized(either()))), "gen a b");
    EXPECT_EQ(certain(binary(BinaryOperator::Less, either(), number())), "gen a b");
    EXPECT_EQ(certain(binary(BinaryOperator::Less, number(), either())), "gen a b");
    EXPECT_EQ(certain(dot(either(), id("x"))), "gen a b");
    EXPECT_EQ(certain(dynamicField(id("sin"), either())), "gen a b");
    EXPECT_EQ(certain(colonOperation(either(), {}, number())), "gen a b");
    EXPECT_EQ(certain(namedArgument(id("x"), either())), "gen a b");
    EXPECT_EQ(certain(anonymousFunction({}, either())), "gen a b");
}

TEST_F(ConditionalOperands, ShortCircuitingIsDecidedAnewForEachOperandOfACondition) {
    // if (a + (b | c)) | d | [e | x] : only inside the sum does `|` not short-circuit
    const NodeView sum = add(id("a"), parenthesized(elementOr(id("b"), id("c"))));
    const NodeView condition = elementOr(elementOr(parenthesized(sum), id("d")),
                                         matrix({row({elementOr(id("e"), id("x"))})}));
    EXPECT_EQ(certain(condition), "gen a b c");

    // if f(a | b) | (c | d) : the other way around
    const NodeView call = paren(id("sin"), {elementOr(id("a"), id("b"))});
    EXPECT_EQ(certain(elementOr(call, parenthesized(elementOr(id("c"), id("d"))))), "gen a b");

    // if [a | b, c] | d, in a row that holds two matrices
    const NodeView two = matrix({row({elementOr(id("a"), id("b")), id("c")})});
    const NodeView one = matrix({row({elementOr(id("d"), id("e"))})});
    EXPECT_EQ(certain(row({two, one})), "gen a b c d");
}

TEST_F(ConditionalOperands, PartsOfAConditionalOperandAreConditional) {
    // a && f(b, x{c}, [y; z], n.t, s:k, -d, (e))
    const NodeView call =
        paren(id("b"), {brace(id("x"), {id("c")}), matrix({row({id("y")}), row({id("z")})}),
                        dynamicField(id("n"), id("t")), colonOperation(id("s"), {}, id("k")),
                        minus(id("d")), parenthesized(id("e")), anonymousFunction({}, id("g")),
                        cellArray({row({id("ans")})})});
    EXPECT_EQ(reads(shortCircuitAnd(id("a"), call), MUST), "gen a");
}

TEST_F(ConditionalOperands, SubscriptOfATargetIsNotACondition) {
    EXPECT_EQ(effects(assign(paren(id("x"), {elementOr(id("a"), id("b"))}), number()), MUST),
              "gen a b kill x");
    EXPECT_EQ(effects(assign(paren(id("x"), {shortCircuitOr(id("a"), id("b"))}), number()), MUST),
              "gen a kill x");
}

TEST_F(ConditionalOperands, ConditionalReadDoesNotUndoACertainOne) {
    EXPECT_EQ(certain(add(shortCircuitAnd(id("a"), id("b")), id("b"))), "gen a b");
}

} // namespace
} // namespace zt::orvex::testing
