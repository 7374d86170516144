#include "analysis/AnalysisFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zt::orvex::testing {
namespace {

class ExpressionEffects : public AnalysisFixture {
protected:
    NodeView x() { return id("x"); }
    NodeView y() { return id("y"); }

    // What a read of an expression adds, as the right side of an assignment to nothing.
    std::string reads(const NodeView& expression, Type type = MAY) {
        return effects(assign(number(), expression), type);
    }

    // What a write to a target adds.
    std::string writes(const NodeView& target, Type type = MAY, Mode mode = PLAIN) {
        return effects(assign(target, number()), type, mode);
    }
};

// Expressions under a read

TEST_F(ExpressionEffects, ReadOfAnIdentifierCounts) { EXPECT_EQ(reads(x()), "gen x"); }

TEST_F(ExpressionEffects, ReadOfANameThatIsNotAVariableDoesNotCount) {
    EXPECT_EQ(reads(id("sin")), "");
}

TEST_F(ExpressionEffects, ReadOfAVariableOutsideTheUniverseDoesNotCount) {
    EXPECT_EQ(reads(id("outside")), "");
}

TEST_F(ExpressionEffects, AnonymousFunctionReadsItsBodyWhereItIsCreated) {
    EXPECT_EQ(reads(anonymousFunction({inputParameter(id("outside"))}, add(id("outside"), y()))),
              "gen y");
}

TEST_F(ExpressionEffects, AnonymousParameterOfTheUniverseCountsInTheBodyOnly) {
    EXPECT_EQ(reads(anonymousFunction({inputParameter(id("t"))}, add(id("t"), y()))), "gen t y");
    EXPECT_EQ(reads(anonymousFunction({inputParameter(id("t"))}, y())), "gen y");
}

TEST_F(ExpressionEffects, BinaryOperationReadsBothOperands) {
    EXPECT_EQ(reads(add(x(), y()), MUST), "gen x y");
}

TEST_F(ExpressionEffects, SubscriptsAndBasesAreRead) {
    EXPECT_EQ(reads(paren(x(), {y(), id("z")})), "gen x y z");
    EXPECT_EQ(reads(brace(x(), {y(), id("z")})), "gen x y z");
}

TEST_F(ExpressionEffects, CellArrayMatrixAndRowReadTheirElements) {
    EXPECT_EQ(reads(cellArray({row({x(), y()}), row({id("z")})})), "gen x y z");
    EXPECT_EQ(reads(matrix({row({x(), y()}), row({id("z")})})), "gen x y z");
    EXPECT_EQ(reads(row({x(), y()})), "gen x y");
}

TEST_F(ExpressionEffects, ColonOperationReadsStartStepAndStop) {
    EXPECT_EQ(reads(colonOperation(x(), NodeView(y()), id("z"))), "gen x y z");
    EXPECT_EQ(reads(colonOperation(x(), {}, id("z"))), "gen x z");
}

TEST_F(ExpressionEffects, FieldNameIsNotAVariable) { EXPECT_EQ(reads(dot(x(), y())), "gen x"); }

TEST_F(ExpressionEffects, ComputedFieldIsRead) {
    EXPECT_EQ(reads(dynamicField(x(), y())), "gen x y");
}

TEST_F(ExpressionEffects, NamedArgumentReadsItsValueAndNotItsName) {
    EXPECT_EQ(reads(namedArgument(x(), y())), "gen y");
}

TEST_F(ExpressionEffects, ParenthesesAndUnaryOperationsReadTheirOperands) {
    EXPECT_EQ(reads(parenthesized(x())), "gen x");
    EXPECT_EQ(reads(minus(x())), "gen x");
}

TEST_F(ExpressionEffects, LeavesHaveNoEffect) {
    const std::vector<NodeView> leaves = {
        characterLiteral(NodeView(x())), colon(), end(), ignoredArgument(), number(),
        stringLiteral(NodeView(x()))};
    for (const NodeView& leaf : leaves) {
        EXPECT_EQ(reads(leaf), "") << label(leaf);
        EXPECT_EQ(writes(leaf), "") << label(leaf);
    }
}

TEST_F(ExpressionEffects, KindsNotExpectedInAnExpressionArePassedOver) {
    const std::vector<NodeView> others = {anyExpression(),  discardedExpression(), filler(),
                                          assign(x(), y()), inputParameter(x()),   unknown(0),
                                          unknown(128),     unknown(200)};
    for (const NodeView& other : others) {
        EXPECT_EQ(reads(other), "") << static_cast<int>(other.getKind());
        EXPECT_EQ(writes(other), "") << static_cast<int>(other.getKind());
        // Its neighbours count all the same.
        EXPECT_EQ(reads(row({x(), other, y()})), "gen x y") << static_cast<int>(other.getKind());
    }
}

// Expressions under a write

TEST_F(ExpressionEffects, WriteOfAVariableOutsideTheUniverseDoesNotCount) {
    EXPECT_EQ(writes(id("outside")), "");
}

TEST_F(ExpressionEffects, WriteDoesNotAskWhetherTheNameIsAVariable) {
    EXPECT_EQ(writes(id("sin")), "kill sin");
    EXPECT_EQ(writes(paren(id("sin"), {number()})), "gen sin");
    ast.startRecording();
    writes(id("sin"));
    EXPECT_EQ(ast.count(Operation::isVariableSymbol), 0u);
}

TEST_F(ExpressionEffects, WritePassesAlongTheSpineOfATargetAndReadsWhatHangsOffIt) {
    EXPECT_EQ(writes(paren(x(), {y()}), MUST), "gen y kill x");
    EXPECT_EQ(writes(brace(x(), {y()}), MUST), "gen y kill x");
    EXPECT_EQ(writes(dot(x(), y()), MUST), "kill x");
    EXPECT_EQ(writes(dynamicField(x(), y()), MUST), "gen y kill x");
    EXPECT_EQ(writes(parenthesized(x()), MUST), "kill x");
    EXPECT_EQ(writes(minus(x()), MUST), "kill x");
    EXPECT_EQ(writes(namedArgument(y(), x()), MUST), "kill x");
    EXPECT_EQ(writes(colonOperation(x(), NodeView(y()), id("z")), MUST), "kill x y z");
}

TEST_F(ExpressionEffects, ExpressionsThatCannotBeTargetsAreReadEvenAsTargets) {
    EXPECT_EQ(writes(add(x(), y())), "gen x y");
    EXPECT_EQ(writes(matrix({row({x(), y()})})), "gen x y");
    EXPECT_EQ(writes(cellArray({row({x(), y()})})), "gen x y");
    EXPECT_EQ(writes(row({x(), y()})), "gen x y");
    EXPECT_EQ(writes(anonymousFunction({}, x())), "gen x");
}

TEST_F(ExpressionEffects, TargetWithoutAnIdentifierAtTheBottomWritesNothing) {
    EXPECT_EQ(writes(number()), "");
    EXPECT_EQ(writes(paren(number(), {})), "");
    EXPECT_EQ(writes(paren(stringLiteral(), {x()})), "gen x");
}

TEST_F(ExpressionEffects, SubscriptThatIsTheVariableItselfIsOneBit) {
    EXPECT_EQ(writes(paren(x(), {x()}), MAY, PLAIN), "gen x");
    EXPECT_EQ(writes(paren(x(), {x()}), MUST, PLAIN), "gen x kill x");
}

TEST_F(ExpressionEffects, EndInASubscriptReadsNothing) {
    EXPECT_EQ(writes(paren(x(), {end()}), MUST), "kill x");
}

TEST_F(ExpressionEffects, MultiAssignmentTargetsFollowTheirOwnRules) {
    const auto statement = [&] {
        return multiAssign({id("a"), paren(id("b"), {number()}), ignoredArgument()},
                           paren(id("f"), {id("c")}));
    };
    universe.add(symbol("f"));
    EXPECT_EQ(effects(statement(), MAY), "gen b c f kill a");
    EXPECT_EQ(effects(statement(), MUST), "gen c f kill a b");
}

} // namespace
} // namespace zt::orvex::testing
