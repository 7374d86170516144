#include "analysis/AnalysisFixture.h"

#include <zt_orvex/flow/BitSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace zt::orvex::testing {
namespace {

class ReadWriteCollector : public AnalysisFixture {
protected:
    // `x` is read and `y` is written by what the argument of `make` stands in.
    NodeView x() { return id("x"); }
    NodeView y() { return id("y"); }

    // What a read of an expression adds, as the right side of an assignment to nothing.
    std::string reads(const NodeView& expression, Type type = MAY) {
        return effects(assign(number(), expression), type);
    }

    // What a write to a target adds.
    std::string writes(const NodeView& target, Type type = MAY, Mode mode = PLAIN,
                       const std::string& subscriptVariables = "") {
        return effects(assign(target, number()), type, mode, subscriptVariables);
    }

    // What a condition reads for certain.
    std::string certain(const NodeView& condition) {
        return effects(ifStatement(condition, {}), MUST);
    }
};

// Statements: what is read, what is written

TEST_F(ReadWriteCollector, AssignmentReadsItsRightSideAndWritesItsLeftSide) {
    EXPECT_EQ(effects(assign(y(), x())), "gen x kill y");
}

TEST_F(ReadWriteCollector, BareIdentifierIsWritten) {
    EXPECT_EQ(effects(bareIdentifier(y())), "kill y");
}

TEST_F(ReadWriteCollector, CaseReadsItsExpressionAndNotItsBody) {
    EXPECT_EQ(effects(caseClause(x(), {assign(y(), id("z"))})), "gen x");
}

TEST_F(ReadWriteCollector, CatchWritesItsIdentifierAndNotItsBody) {
    EXPECT_EQ(effects(catchClause(NodeView(y()), {assign(id("z"), x())})), "kill y");
    EXPECT_EQ(effects(catchClause({}, {assign(id("z"), x())})), "");
}

TEST_F(ReadWriteCollector, CommandReadsItsCalleeWritesItsTargetAndSkipsItsWords) {
    EXPECT_EQ(effects(command(y(), x(), {characterLiteral(NodeView(id("z")))})), "gen x kill y");
    ast.startRecording();
    effects(command(y(), x(), {characterLiteral(), characterLiteral()}));
    EXPECT_EQ(ast.count(Operation::getCommandWords), 0u);
}

TEST_F(ReadWriteCollector, ElseIfReadsItsConditionAndNotItsBody) {
    EXPECT_EQ(effects(elseIfClause(x(), {assign(y(), id("z"))})), "gen x");
}

TEST_F(ReadWriteCollector, ExpressionStatementReadsItsExpressionAndWritesItsTarget) {
    EXPECT_EQ(effects(expressionStatement(y(), x())), "gen x kill y");
}

TEST_F(ReadWriteCollector, ForReadsItsRangeWritesItsVariableAndSkipsItsBody) {
    EXPECT_EQ(effects(forLoop(y(), x(), {assign(id("z"), id("a"))})), "gen x kill y");
}

TEST_F(ReadWriteCollector, IfReadsItsConditionAndNothingElse) {
    const NodeView statement = ifStatement(x(), {assign(y(), id("z"))}, {elseIfClause(id("a"), {})},
                                           NodeView(elseClause({assign(id("b"), id("c"))})));
    EXPECT_EQ(effects(statement), "gen x");
}

TEST_F(ReadWriteCollector, ImplicitCommandWritesItsTargetAndSkipsItsWords) {
    EXPECT_EQ(effects(implicitCommand(y(), {characterLiteral(NodeView(x()))})), "kill y");
    ast.startRecording();
    effects(implicitCommand(y(), {characterLiteral()}));
    EXPECT_EQ(ast.count(Operation::getImplicitCommandWords), 0u);
}

TEST_F(ReadWriteCollector, MultiAssignmentReadsItsRightSideAndWritesEachTarget) {
    EXPECT_EQ(effects(multiAssign({y(), id("z")}, x())), "gen x kill y z");
}

TEST_F(ReadWriteCollector, ParforReadsItsOptionsAndRangeAndWritesItsVariable) {
    const NodeView loop =
        parforLoop(y(), x(), {assign(id("z"), id("c"))}, {id("a"), add(id("b"), number())});
    EXPECT_EQ(effects(loop), "gen a b x kill y");
}

TEST_F(ReadWriteCollector, SpmdReadsItsOptionsAndNotItsBody) {
    EXPECT_EQ(effects(spmd({assign(y(), x())}, {id("a"), id("b")})), "gen a b");
}

TEST_F(ReadWriteCollector, SwitchReadsItsSubjectAndNotItsCases) {
    const NodeView statement =
        switchStatement(x(), {caseClause(y(), {assign(id("z"), id("a"))})},
                        NodeView(otherwiseClause({assign(id("b"), id("c"))})));
    EXPECT_EQ(effects(statement), "gen x");
}

TEST_F(ReadWriteCollector, WhileReadsItsConditionAndNotItsBody) {
    EXPECT_EQ(effects(whileLoop(x(), {assign(y(), id("z"))})), "gen x");
}

TEST_F(ReadWriteCollector, StatementsWithoutAHeaderReadAndWriteNothing) {
    const std::vector<NodeView> statements = {
        breakStatement(),
        continueStatement(),
        emptyStatement(),
        global({x(), y()}),
        persistent({x(), y()}),
        print(assign(y(), x())),
        returnStatement(),
        tryStatement({assign(y(), x())}, NodeView(catchClause(NodeView(id("z")), {})))};
    for (const NodeView& statement : statements) {
        EXPECT_EQ(effects(statement, MAY), "") << label(statement);
        EXPECT_EQ(effects(statement, MUST), "") << label(statement);
    }
}

TEST_F(ReadWriteCollector, OtherKindsAreIgnoredAsStatements) {
    const std::vector<NodeView> others = {discardedStatement(),
                                          elseClause({assign(y(), x())}),
                                          filler(),
                                          otherwiseClause({assign(y(), x())}),
                                          program({x()}),
                                          x(),
                                          unknown(0),
                                          unknown(67),
                                          add(x(), y()),
                                          unknown(255)};
    for (const NodeView& other : others)
        EXPECT_EQ(effects(other), "") << static_cast<int>(other.getKind());
}

TEST_F(ReadWriteCollector, FifteenKindsHaveAHeaderAndAllOthersAreNotAskedForOne) {
    std::vector<NodeKind> asked;
    for (int kind = 0; kind <= 255; ++kind) {
        // A node without parts answers only for its kind, and refuses every other question.
        const NodeView node = unknown(kind);
        try {
            EXPECT_EQ(effects(node), "") << kind;
        } catch (const std::logic_error&) {
            asked.push_back(node.getKind());
        }
    }
    EXPECT_THAT(asked,
                ::testing::ElementsAre(
                    NodeKind::AssignmentStatement, NodeKind::BareIdentifierStatement,
                    NodeKind::CaseClause, NodeKind::CatchClause, NodeKind::CommandStatement,
                    NodeKind::ElseIfClause, NodeKind::ExpressionStatement, NodeKind::ForStatement,
                    NodeKind::IfStatement, NodeKind::ImplicitCommandStatement,
                    NodeKind::MultiAssignmentStatement, NodeKind::ParforStatement,
                    NodeKind::SpmdStatement, NodeKind::SwitchStatement, NodeKind::WhileStatement));
}

// Expressions under a read

TEST_F(ReadWriteCollector, ReadOfAnIdentifierCounts) { EXPECT_EQ(reads(x()), "gen x"); }

TEST_F(ReadWriteCollector, ReadOfANameThatIsNoVariableDoesNotCount) {
    EXPECT_EQ(reads(id("sin")), "");
}

TEST_F(ReadWriteCollector, ReadOfAVariableOutsideTheUniverseDoesNotCount) {
    EXPECT_EQ(reads(id("outside")), "");
}

TEST_F(ReadWriteCollector, AnonymousFunctionReadsItsBodyWhereItIsMade) {
    EXPECT_EQ(reads(anonymousFunction({inputParameter(id("outside"))}, add(id("outside"), y()))),
              "gen y");
}

TEST_F(ReadWriteCollector, AnonymousParameterOfTheUniverseCountsInTheBodyOnly) {
    EXPECT_EQ(reads(anonymousFunction({inputParameter(id("t"))}, add(id("t"), y()))), "gen t y");
    EXPECT_EQ(reads(anonymousFunction({inputParameter(id("t"))}, y())), "gen y");
}

TEST_F(ReadWriteCollector, BinaryOperationReadsBothOperands) {
    EXPECT_EQ(reads(add(x(), y()), MUST), "gen x y");
}

TEST_F(ReadWriteCollector, SubscriptsAndBasesAreRead) {
    EXPECT_EQ(reads(paren(x(), {y(), id("z")})), "gen x y z");
    EXPECT_EQ(reads(brace(x(), {y(), id("z")})), "gen x y z");
}

TEST_F(ReadWriteCollector, CellArrayMatrixAndRowReadTheirElements) {
    EXPECT_EQ(reads(cellArray({row({x(), y()}), row({id("z")})})), "gen x y z");
    EXPECT_EQ(reads(matrix({row({x(), y()}), row({id("z")})})), "gen x y z");
    EXPECT_EQ(reads(row({x(), y()})), "gen x y");
}

TEST_F(ReadWriteCollector, ColonOperationReadsStartStepAndStop) {
    EXPECT_EQ(reads(colonOperation(x(), NodeView(y()), id("z"))), "gen x y z");
    EXPECT_EQ(reads(colonOperation(x(), {}, id("z"))), "gen x z");
}

TEST_F(ReadWriteCollector, FieldNameIsNoVariable) { EXPECT_EQ(reads(dot(x(), y())), "gen x"); }

TEST_F(ReadWriteCollector, ComputedFieldIsRead) {
    EXPECT_EQ(reads(dynamicField(x(), y())), "gen x y");
}

TEST_F(ReadWriteCollector, NamedArgumentReadsItsValueAndNotItsName) {
    EXPECT_EQ(reads(namedArgument(x(), y())), "gen y");
}

TEST_F(ReadWriteCollector, ParenthesesAndUnaryOperationsPassReadsOn) {
    EXPECT_EQ(reads(parenthesized(x())), "gen x");
    EXPECT_EQ(reads(minus(x())), "gen x");
}

TEST_F(ReadWriteCollector, LeavesHaveNoEffect) {
    const std::vector<NodeView> leaves = {
        characterLiteral(NodeView(x())), colon(), end(), ignoredArgument(), number(),
        stringLiteral(NodeView(x()))};
    for (const NodeView& leaf : leaves) {
        EXPECT_EQ(reads(leaf), "") << label(leaf);
        EXPECT_EQ(writes(leaf), "") << label(leaf);
    }
}

TEST_F(ReadWriteCollector, OtherKindsAreIgnoredAsExpressions) {
    const std::vector<NodeView> others = {anyExpression(),  discardedExpression(), filler(),
                                          assign(x(), y()), inputParameter(x()),   unknown(0),
                                          unknown(67),      unknown(200)};
    for (const NodeView& other : others) {
        EXPECT_EQ(reads(other), "") << static_cast<int>(other.getKind());
        EXPECT_EQ(writes(other), "") << static_cast<int>(other.getKind());
        // The neighbours of an ignored element count all the same.
        EXPECT_EQ(reads(row({x(), other, y()})), "gen x y") << static_cast<int>(other.getKind());
    }
}

// Expressions under a write

TEST_F(ReadWriteCollector, WriteOfAVariableOutsideTheUniverseDoesNotCount) {
    EXPECT_EQ(writes(id("outside")), "");
}

TEST_F(ReadWriteCollector, WriteDoesNotAskWhetherTheNameIsAVariable) {
    EXPECT_EQ(writes(id("sin")), "kill sin");
    EXPECT_EQ(writes(paren(id("sin"), {number()})), "gen sin");
    ast.startRecording();
    writes(id("sin"));
    EXPECT_EQ(ast.count(Operation::isVariableSymbol), 0u);
}

TEST_F(ReadWriteCollector, WritePassesThroughTheSpineOfATargetAndReadsWhatHangsOffIt) {
    EXPECT_EQ(writes(paren(x(), {y()}), MUST), "gen y kill x");
    EXPECT_EQ(writes(brace(x(), {y()}), MUST), "gen y kill x");
    EXPECT_EQ(writes(dot(x(), y()), MUST), "kill x");
    EXPECT_EQ(writes(dynamicField(x(), y()), MUST), "gen y kill x");
    EXPECT_EQ(writes(parenthesized(x()), MUST), "kill x");
    EXPECT_EQ(writes(minus(x()), MUST), "kill x");
    EXPECT_EQ(writes(namedArgument(y(), x()), MUST), "kill x");
    EXPECT_EQ(writes(colonOperation(x(), NodeView(y()), id("z")), MUST), "kill x y z");
}

TEST_F(ReadWriteCollector, ExpressionsThatCannotBeTargetsAreReadAlsoUnderAWrite) {
    EXPECT_EQ(writes(add(x(), y())), "gen x y");
    EXPECT_EQ(writes(matrix({row({x(), y()})})), "gen x y");
    EXPECT_EQ(writes(cellArray({row({x(), y()})})), "gen x y");
    EXPECT_EQ(writes(row({x(), y()})), "gen x y");
    EXPECT_EQ(writes(anonymousFunction({}, x())), "gen x");
}

TEST_F(ReadWriteCollector, TargetWithoutAnIdentifierAtTheBottomRecordsNothing) {
    EXPECT_EQ(writes(number()), "");
    EXPECT_EQ(writes(paren(number(), {})), "");
    EXPECT_EQ(writes(paren(stringLiteral(), {x()})), "gen x");
}

TEST_F(ReadWriteCollector, SubscriptThatIsTheVariableItselfIsOneBit) {
    EXPECT_EQ(writes(paren(x(), {x()}), MAY, PLAIN), "gen x");
    EXPECT_EQ(writes(paren(x(), {x()}), MUST, PLAIN), "gen x kill x");
}

TEST_F(ReadWriteCollector, EndInASubscriptReadsNothing) {
    EXPECT_EQ(writes(paren(x(), {end()}), MUST), "kill x");
}

TEST_F(ReadWriteCollector, MultiAssignmentTargetsFollowTheirOwnRules) {
    const auto statement = [&] {
        return multiAssign({id("a"), paren(id("b"), {number()}), ignoredArgument()},
                           paren(id("f"), {id("c")}));
    };
    universe.add(symbol("f"));
    EXPECT_EQ(effects(statement(), MAY), "gen b c f kill a");
    EXPECT_EQ(effects(statement(), MUST), "gen c f kill a b");
}

// What a write of x does, by target, type and mode

struct WriteRule {
    const char* target;
    const char* must;
    const char* mayPlainOrAns;
    const char* maySliced;
};

class WriteTable : public AnalysisFixture {
protected:
    // k is a subscript variable, n is none; both are outside of the universe here.
    NodeView make(const std::string& target) {
        const NodeView x = id("x");
        if (target == "x") return x;
        if (target == "x(n)") return paren(x, {id("n")});
        if (target == "x{n}") return brace(x, {id("n")});
        if (target == "x()") return paren(x, {});
        if (target == "x(k)") return paren(x, {id("k")});
        if (target == "x{k}") return brace(x, {id("k")});
        if (target == "x(1,k)") return paren(x, {number(), id("k")});
        if (target == "x{k,:}") return brace(x, {id("k"), colon()});
        if (target == "x((k))") return paren(x, {parenthesized(parenthesized(id("k")))});
        if (target == "x(k+1)") return paren(x, {add(id("k"), number())});
        if (target == "x(-k)") return paren(x, {minus(id("k"))});
        if (target == "x.a") return dot(x, id("n"));
        if (target == "x.k") return dot(x, id("k"));
        if (target == "x.(n)") return dynamicField(x, id("n"));
        if (target == "x.(k)") return dynamicField(x, id("k"));
        if (target == "x(n).a") return dot(paren(x, {id("n")}), id("n"));
        if (target == "x{n}(n)") return paren(brace(x, {id("n")}), {id("n")});
        if (target == "x.a.b") return dot(dot(x, id("n")), id("n"));
        if (target == "x(n)(n)(n)") return paren(paren(paren(x, {id("n")}), {id("n")}), {id("n")});
        if (target == "(x)") return parenthesized(x);
        if (target == "(x(n))") return parenthesized(paren(x, {id("n")}));
        throw std::invalid_argument(target);
    }
};

TEST_F(WriteTable, EveryRowUnderEveryTypeAndMode) {
    static const WriteRule RULES[] = {
        {"x", "kill x", "kill x", "kill x"},        {"x(n)", "kill x", "gen x", "kill x"},
        {"x{n}", "kill x", "gen x", "kill x"},      {"x()", "kill x", "gen x", "kill x"},
        {"x(k)", "kill x", "gen x", "gen x"},       {"x{k}", "kill x", "gen x", "gen x"},
        {"x(1,k)", "kill x", "gen x", "gen x"},     {"x{k,:}", "kill x", "gen x", "gen x"},
        {"x((k))", "kill x", "gen x", "gen x"},     {"x(k+1)", "kill x", "gen x", "kill x"},
        {"x(-k)", "kill x", "gen x", "kill x"},     {"x.a", "kill x", "gen x", "kill x"},
        {"x.k", "kill x", "gen x", "kill x"},       {"x.(n)", "kill x", "gen x", "kill x"},
        {"x.(k)", "kill x", "gen x", "kill x"},     {"x(n).a", "kill x", "gen x", "gen x"},
        {"x{n}(n)", "kill x", "gen x", "gen x"},    {"x.a.b", "kill x", "gen x", "gen x"},
        {"x(n)(n)(n)", "kill x", "gen x", "gen x"}, {"(x)", "kill x", "gen x", "kill x"},
        {"(x(n))", "kill x", "gen x", "gen x"},
    };
    universe = Universe();
    fill(universe, "x");
    for (const WriteRule& rule : RULES) {
        const NodeView statement = assign(make(rule.target), number());
        for (const Mode mode : {PLAIN, SLICED, ANS})
            EXPECT_EQ(effects(statement, MUST, mode, "k"), rule.must) << rule.target;
        EXPECT_EQ(effects(statement, MAY, PLAIN, "k"), rule.mayPlainOrAns) << rule.target;
        EXPECT_EQ(effects(statement, MAY, ANS, "k"), rule.mayPlainOrAns) << rule.target;
        EXPECT_EQ(effects(statement, MAY, SLICED, "k"), rule.maySliced) << rule.target;
    }
}

TEST_F(WriteTable, ComputedFieldIsReadWhileItsBaseIsWrittenWhole) {
    EXPECT_EQ(effects(assign(dynamicField(id("x"), id("n")), number()), MAY, SLICED),
              "gen n kill x");
}

TEST_F(WriteTable, SubscriptVariablesNeedNotBelongToTheUniverse) {
    EXPECT_EQ(effects(assign(paren(id("x"), {id("outside")}), number()), MAY, SLICED, "outside"),
              "gen x");
}

TEST_F(WriteTable, LoopVariableThatIsIndexedFollowsTheSameRules) {
    EXPECT_EQ(effects(forLoop(paren(id("x"), {id("n")}), id("y"), {}), MAY, PLAIN), "gen n x y");
    EXPECT_EQ(effects(forLoop(paren(id("x"), {id("n")}), id("y"), {}), MAY, SLICED),
              "gen n y kill x");
}

// Operands that may be skipped

TEST_F(ReadWriteCollector, ShortCircuitMakesItsRightOperandUncertainEverywhere) {
    EXPECT_EQ(certain(shortCircuitAnd(id("a"), id("b"))), "gen a");
    EXPECT_EQ(certain(shortCircuitOr(id("a"), id("b"))), "gen a");
    EXPECT_EQ(reads(shortCircuitAnd(id("a"), id("b")), MUST), "gen a");
    EXPECT_EQ(reads(paren(id("c"), {shortCircuitOr(id("a"), id("b"))}), MUST), "gen a c");
}

TEST_F(ReadWriteCollector, UnderMayAnUncertainReadCounts) {
    EXPECT_EQ(effects(ifStatement(shortCircuitAnd(id("a"), id("b")), {}), MAY), "gen a b");
    EXPECT_EQ(reads(shortCircuitOr(id("a"), id("b")), MAY), "gen a b");
}

TEST_F(ReadWriteCollector, ElementwiseLogicIsUncertainInConditionsOnly) {
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

TEST_F(ReadWriteCollector, OtherOperatorsAreCertainInConditions) {
    for (int op = 0; op <= static_cast<int>(BinaryOperator::At); ++op) {
        const auto asked = static_cast<BinaryOperator>(op);
        const bool isLogic =
            asked == BinaryOperator::ShortCircuitAnd || asked == BinaryOperator::ShortCircuitOr ||
            asked == BinaryOperator::ElementAnd || asked == BinaryOperator::ElementOr;
        EXPECT_EQ(certain(binary(asked, id("a"), id("b"))), isLogic ? "gen a" : "gen a b") << op;
    }
}

TEST_F(ReadWriteCollector, ParenthesesKeepTheChainOfACondition) {
    // while (a | b) & c
    const NodeView condition = elementAnd(parenthesized(elementOr(id("a"), id("b"))), id("c"));
    EXPECT_EQ(effects(whileLoop(condition, {}), MUST), "gen a");
}

TEST_F(ReadWriteCollector, MatrixOfOneElementKeepsTheChainOfACondition) {
    // if [a | b]
    EXPECT_EQ(certain(matrix({row({elementOr(id("a"), id("b"))})})), "gen a");
    // if [a | b, c]
    EXPECT_EQ(certain(matrix({row({elementOr(id("a"), id("b")), id("c")})})), "gen a b c");
    // if [a | b; c]
    EXPECT_EQ(certain(matrix({row({elementOr(id("a"), id("b"))}), row({id("c")})})), "gen a b c");
    // if [a | b; ]
    EXPECT_EQ(certain(matrix({row({elementOr(id("a"), id("b"))}), row({})})), "gen a b");
}

TEST_F(ReadWriteCollector, RowAloneKeepsTheChainOfACondition) {
    EXPECT_EQ(certain(row({elementOr(id("a"), id("b")), elementAnd(id("c"), id("d"))})), "gen a c");
}

TEST_F(ReadWriteCollector, CellArrayBreaksTheChainOfACondition) {
    EXPECT_EQ(certain(cellArray({row({elementOr(id("a"), id("b"))})})), "gen a b");
}

TEST_F(ReadWriteCollector, ShortCircuitAroundElementwiseLogicBreaksTheChainOnItsLeft) {
    // if (a | b) && c
    EXPECT_EQ(certain(shortCircuitAnd(parenthesized(elementOr(id("a"), id("b"))), id("c"))),
              "gen a b");
    // if a && (b | c)
    EXPECT_EQ(certain(shortCircuitAnd(id("a"), parenthesized(elementOr(id("b"), id("c"))))),
              "gen a");
}

TEST_F(ReadWriteCollector, OtherExpressionsBreakTheChainOfACondition) {
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

TEST_F(ReadWriteCollector, ChainIsJudgedAnewForEachOperandOfACondition) {
    // if (a + (b | c)) | d | [e | x] : the sum breaks the chain of its own part only
    const NodeView sum = add(id("a"), parenthesized(elementOr(id("b"), id("c"))));
    const NodeView condition = elementOr(elementOr(parenthesized(sum), id("d")),
                                         matrix({row({elementOr(id("e"), id("x"))})}));
    EXPECT_EQ(certain(condition), "gen a b c");

    // if f(a | b) | (c | d) : the same the other way round
    const NodeView call = paren(id("sin"), {elementOr(id("a"), id("b"))});
    EXPECT_EQ(certain(elementOr(call, parenthesized(elementOr(id("c"), id("d"))))), "gen a b");

    // if [a | b, c] | d, in a row that holds two matrices
    const NodeView two = matrix({row({elementOr(id("a"), id("b")), id("c")})});
    const NodeView one = matrix({row({elementOr(id("d"), id("e"))})});
    EXPECT_EQ(certain(row({two, one})), "gen a b c d");
}

TEST_F(ReadWriteCollector, UncertaintyIsInheritedByAllBelow) {
    // a && f(b, x{c}, [y; z], n.t, s:k, -d, (e))
    const NodeView call =
        paren(id("b"), {brace(id("x"), {id("c")}), matrix({row({id("y")}), row({id("z")})}),
                        dynamicField(id("n"), id("t")), colonOperation(id("s"), {}, id("k")),
                        minus(id("d")), parenthesized(id("e")), anonymousFunction({}, id("g")),
                        cellArray({row({id("ans")})})});
    EXPECT_EQ(reads(shortCircuitAnd(id("a"), call), MUST), "gen a");
}

TEST_F(ReadWriteCollector, ReadInTheTargetOfAnAssignmentIsNoCondition) {
    EXPECT_EQ(writes(paren(x(), {elementOr(id("a"), id("b"))}), MUST), "gen a b kill x");
    EXPECT_EQ(writes(paren(x(), {shortCircuitOr(id("a"), id("b"))}), MUST), "gen a kill x");
}

TEST_F(ReadWriteCollector, UncertainReadDoesNotUndoACertainOne) {
    EXPECT_EQ(certain(add(shortCircuitAnd(id("a"), id("b")), id("b"))), "gen a b");
}

// Writes of ans

struct AnsRule {
    const char* statement;
    const char* ansMode;
    const char* otherUnderMay;
    const char* otherUnderMust;
};

class AnsTable : public AnalysisFixture {
protected:
    NodeView make(const std::string& statement, const NodeView& target) {
        if (statement == "expression") return expressionStatement(target, id("x"));
        if (statement == "command") return command(target, id("x"), {});
        if (statement == "bare identifier") return bareIdentifier(target);
        if (statement == "implicit command") return implicitCommand(target, {});
        if (statement == "assignment") return assign(target, id("x"));
        if (statement == "multi-assignment") return multiAssign({target}, id("x"));
        if (statement == "for") return forLoop(target, id("x"), {});
        if (statement == "parfor") return parforLoop(target, id("x"), {});
        if (statement == "catch") return catchClause(target, {});
        throw std::invalid_argument(statement);
    }
};

TEST_F(AnsTable, EveryRowUnderEveryMode) {
    static const AnsRule RULES[] = {
        {"expression", "kill ans", "", "kill ans"},
        {"command", "kill ans", "", "kill ans"},
        {"bare identifier", "", "", ""},
        {"implicit command", "", "", ""},
        {"assignment", "kill ans", "kill ans", "kill ans"},
        {"multi-assignment", "kill ans", "kill ans", "kill ans"},
        {"for", "kill ans", "kill ans", "kill ans"},
        {"parfor", "kill ans", "kill ans", "kill ans"},
        {"catch", "kill ans", "kill ans", "kill ans"},
    };
    universe = Universe();
    fill(universe, "ans");
    for (const AnsRule& rule : RULES) {
        const NodeView statement = make(rule.statement, id("ans"));
        EXPECT_EQ(effects(statement, MAY, ANS), rule.ansMode) << rule.statement;
        for (const Mode mode : {PLAIN, SLICED}) {
            EXPECT_EQ(effects(statement, MAY, mode), rule.otherUnderMay) << rule.statement;
            EXPECT_EQ(effects(statement, MUST, mode), rule.otherUnderMust) << rule.statement;
        }
    }
}

TEST_F(AnsTable, UnderMustTheAnsModeIsLikeTheOthers) {
    EXPECT_EQ(effects(make("expression", id("ans")), MUST, ANS), "gen x kill ans");
    EXPECT_EQ(effects(make("command", id("ans")), MUST, ANS), "gen x kill ans");
    EXPECT_EQ(effects(make("bare identifier", id("ans")), MUST, ANS), "");
    EXPECT_EQ(effects(make("implicit command", id("ans")), MUST, ANS), "");
}

TEST_F(AnsTable, PartOfAnsFollowsTheGeneralRuleOnlyWhereTheTargetIsWritten) {
    const auto part = [&] { return paren(id("ans"), {number()}); };
    EXPECT_EQ(effects(assign(part(), number()), MAY, ANS), "gen ans");
    EXPECT_EQ(effects(assign(part(), number()), MAY, PLAIN), "gen ans");
    EXPECT_EQ(effects(assign(part(), number()), MAY, SLICED), "kill ans");
    EXPECT_EQ(effects(assign(part(), number()), MUST, ANS), "kill ans");
    // The statement decides before the shape of the target does.
    EXPECT_EQ(effects(expressionStatement(part(), number()), MAY, ANS), "kill ans");
    EXPECT_EQ(effects(expressionStatement(part(), number()), MAY, PLAIN), "");
    EXPECT_EQ(effects(bareIdentifier(part()), MAY, ANS), "");
}

TEST_F(AnsTable, ReadsOfTheExpressionStay) {
    EXPECT_EQ(effects(expressionStatement(id("ans"), id("x")), MAY, PLAIN), "gen x");
    EXPECT_EQ(effects(expressionStatement(id("ans"), id("ans")), MAY, PLAIN), "gen ans");
    EXPECT_EQ(effects(expressionStatement(id("ans"), id("ans")), MAY, ANS), "gen ans kill ans");
}

TEST_F(AnsTable, OnlyTheExactNameCounts) {
    for (const char* name : {"an", "ansx", "Ans", "ANS", "answer"}) {
        universe = Universe();
        fill(universe, name);
        const std::string kill = std::string("kill ") + name;
        EXPECT_EQ(effects(expressionStatement(id(name), number()), MAY, PLAIN), kill);
        EXPECT_EQ(effects(bareIdentifier(id(name)), MAY, PLAIN), kill);
        EXPECT_EQ(effects(implicitCommand(id(name), {}), MAY, PLAIN), kill);
        EXPECT_EQ(effects(command(id(name), number(), {}), MAY, PLAIN), kill);
    }
}

TEST_F(AnsTable, EachUnitOfTheNameCounts) {
    // 0x0161 and 0x6161 end in the byte of 'a'.
    for (const char16_t* name : {u"\u0161ns", u"an\u6173", u"ans\u0300"}) {
        universe = Universe();
        universe.add(ast.symbol(name));
        EXPECT_NE(effects(bareIdentifier(id(std::u16string_view(name))), MAY, PLAIN), "");
    }
}

TEST_F(AnsTable, OtherNamesAsImplicitTargetsAreWholeWritesInEveryMode) {
    for (const Mode mode : {PLAIN, SLICED, ANS}) {
        EXPECT_EQ(effects(expressionStatement(id("y"), number()), MAY, mode), "kill y");
        EXPECT_EQ(effects(command(id("y"), number(), {}), MAY, mode), "kill y");
    }
}

// The collector's own state

TEST_F(ReadWriteCollector, CollectAddsToWhatIsThereAndClearEmpties) {
    flow::internal::GenKillSets sets(universe, MAY, PLAIN);
    flow::internal::HeadEffects effects(universe, PLAIN, {}, sets);
    effects.report(assign(id("a"), id("b")));
    effects.report(assign(id("c"), id("d")));
    EXPECT_EQ(namesOf(sets.gen()), "b d");
    EXPECT_EQ(namesOf(sets.kill()), "a c");
    sets.clear();
    EXPECT_EQ(namesOf(sets.gen()), "");
    EXPECT_EQ(namesOf(sets.kill()), "");
}

// A tree that changes its answers

class ChangingTree : public AnalysisFixture {
protected:
    // Makes `node` a number once the `asked`th question for its kind has been answered.
    void changeAfter(const NodeView& node, std::size_t asked) {
        ast.onCall = [this, node, asked, seen = std::size_t(0)](const Call& call) mutable {
            if (call.operation != Operation::getNodeKind || call.arguments[0] != node.node) return;
            if (++seen > asked) ast.setKind(node, NodeKind::NumberLiteral);
        };
    }

    // What comes of the change at each question but the first ones, until none is left to change.
    std::set<std::string> messagesOfChanges(const NodeView& statement, const NodeView& node,
                                            NodeKind kind, Mode mode = PLAIN) {
        std::set<std::string> messages;
        for (std::size_t asked = 1; asked < 12; ++asked) {
            ast.setKind(node, kind);
            changeAfter(node, asked);
            try {
                effects(statement, MAY, mode, "k");
            } catch (const std::logic_error& error) {
                messages.insert(error.what());
            }
            ast.onCall = nullptr;
        }
        return messages;
    }
};

TEST_F(ChangingTree, BinaryOperationInACondition) {
    const NodeView operation = elementOr(id("a"), id("b"));
    EXPECT_THAT(
        messagesOfChanges(ifStatement(operation, {}), operation, NodeKind::BinaryOperation),
        ::testing::Contains("BinaryOperationView type is expected in the downcast argument."));
}

TEST_F(ChangingTree, MatrixInACondition) {
    const NodeView wrapped = matrix({row({elementOr(id("a"), id("b"))})});
    EXPECT_THAT(messagesOfChanges(ifStatement(wrapped, {}), wrapped, NodeKind::Matrix),
                ::testing::ElementsAre("MatrixView type is expected in the downcast argument."));
}

TEST_F(ChangingTree, IndexedTargets) {
    const NodeView call = paren(id("x"), {id("n")});
    EXPECT_THAT(
        messagesOfChanges(assign(call, number()), call, NodeKind::ParenOperation, SLICED),
        ::testing::ElementsAre("ParenOperationView type is expected in the downcast argument."));
    const NodeView braces = brace(id("x"), {id("n")});
    EXPECT_THAT(
        messagesOfChanges(assign(braces, number()), braces, NodeKind::BraceOperation, SLICED),
        ::testing::ElementsAre("BraceOperationView type is expected in the downcast argument."));
}

TEST_F(ChangingTree, SubscriptsOfATarget) {
    const NodeView subscript = id("k");
    EXPECT_THAT(
        messagesOfChanges(assign(paren(id("x"), {subscript}), number()), subscript,
                          NodeKind::Identifier, SLICED),
        ::testing::ElementsAre("IdentifierView type is expected in the downcast argument."));
    const NodeView inner = parenthesized(id("k"));
    EXPECT_THAT(messagesOfChanges(assign(paren(id("x"), {inner}), number()), inner,
                                  NodeKind::ParenthesizedExpression, SLICED),
                ::testing::ElementsAre(
                    "ParenthesizedExpressionView type is expected in the downcast argument."));
}

} // namespace
} // namespace zt::orvex::testing
