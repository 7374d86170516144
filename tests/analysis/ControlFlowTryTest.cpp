#include "analysis/ControlFlowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zt::orvex::testing {
namespace {

using ::testing::Contains;
using ::testing::IsSupersetOf;
using ::testing::UnorderedElementsAre;
using ::testing::UnorderedElementsAreArray;

class ControlFlowTry : public ControlFlowFixture {};

TEST_F(ControlFlowTry, EveryThrowPointOfATryBodyLeadsToTheCatch) {
    // A, try, B, C, catch e, D, end, E
    const NodeView clause = named("K", catchClause(NodeView(id("e")), {step("D")}));
    EXPECT_THAT(
        edges({step("A"), named("T", tryStatement({step("B"), step("C")}, clause)), step("E")}),
        UnorderedElementsAre("entry -> A", "A -> T", "T -> B", "B -> C", "T -> K", "B -> K",
                             "C -> K", "K -> D", "D -> E", "C -> E", "E -> exit"));
}

TEST_F(ControlFlowTry, TryWithoutCatchSwallowsErrors) {
    // try, A, B, end, C
    EXPECT_THAT(edges({named("T", tryStatement({step("A"), step("B")})), step("C")}),
                UnorderedElementsAre("entry -> T", "T -> A", "A -> B", "T -> C", "A -> C", "B -> C",
                                     "C -> exit"));
}

TEST_F(ControlFlowTry, EmptyTryBodyWithACatch) {
    // try, catch, A, end, B
    EXPECT_THAT(
        edges({named("T", tryStatement({}, NodeView(named("K", catchClause({}, {step("A")}))))),
               step("B")}),
        UnorderedElementsAre("entry -> T", "T -> K", "K -> A", "A -> B", "T -> B", "B -> exit"));
}

TEST_F(ControlFlowTry, EmptyTryWithoutCatchIsOneNode) {
    EXPECT_THAT(edges({named("T", tryStatement({})), step("B")}),
                UnorderedElementsAre("entry -> T", "T -> B", "B -> exit"));
}

TEST_F(ControlFlowTry, EmptyCatchBodyLeadsOn) {
    EXPECT_THAT(
        edges({named("T", tryStatement({step("A")}, NodeView(named("K", catchClause({}, {}))))),
               step("B")}),
        UnorderedElementsAre("entry -> T", "T -> A", "T -> K", "A -> K", "A -> B", "K -> B",
                             "B -> exit"));
}

TEST_F(ControlFlowTry, StatementsThatCannotThrowDoNotLeadToTheCatch) {
    // try, Q, catch, end: neither the quiet statements nor the print nor the jump
    const NodeView clause = named("K", catchClause({}, {}));
    const Nodes body = {named("global", global({id("x")})), named("persistent", persistent({})),
                        named("implicit", implicitCommand(id("x"), {})), quiet("empty"),
                        named("R", returnStatement())};
    EXPECT_THAT(edges({named("T", tryStatement(body, clause))}),
                UnorderedElementsAre("entry -> T", "T -> global", "global -> persistent",
                                     "persistent -> implicit", "implicit -> empty", "empty -> R",
                                     "R -> exit", "T -> K", "K -> exit"));
}

TEST_F(ControlFlowTry, StatementThatCannotThrowLeadsToTheCatchAsThePredecessorOfOneThatCan) {
    // try, Q, A, Q2, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({quiet("Q"), step("A"), quiet("Q2")}, clause))}),
                UnorderedElementsAre("entry -> T", "T -> Q", "Q -> A", "A -> Q2", "Q2 -> exit",
                                     "T -> K", "Q -> K", "A -> K", "K -> exit"));
}

TEST_F(ControlFlowTry, PrintedStatementIsAThrowPointAndThePrintIsNot) {
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({named("P", print(step("A")))}, clause))}),
                UnorderedElementsAre("entry -> T", "T -> A", "A -> P", "P -> exit", "T -> K",
                                     "A -> K", "K -> exit"));
}

TEST_F(ControlFlowTry, JumpInATryBodyIsNotAThrowPointButItsPredecessorIs) {
    // try, A, return, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(
        edges({named("T", tryStatement({step("A"), named("R", returnStatement())}, clause))}),
        UnorderedElementsAre("entry -> T", "T -> A", "A -> R", "R -> exit", "T -> K", "A -> K",
                             "K -> exit"));
}

TEST_F(ControlFlowTry, BreakThatLeadsToAStatementOfTheTryBodyIsAThrowPoint) {
    // try, while c, break, end, A, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(
        edges({named("T",
                     tryStatement({named("W", whileLoop(id("c"), {named("X", breakStatement())})),
                                   step("A")},
                                  clause))}),
        UnorderedElementsAre("entry -> T", "T -> W", "W -> X", "W -> A", "X -> A", "A -> exit",
                             "T -> K", "W -> K", "X -> K", "A -> K", "K -> exit"));
}

TEST_F(ControlFlowTry, ContinueIsNotAThrowPointAlthoughItLeadsToALoopThatIs) {
    // try, while c, continue, end, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    const NodeView loop = named("W", whileLoop(id("c"), {named("N", continueStatement())}));
    EXPECT_THAT(edges({named("T", tryStatement({loop}, clause))}),
                UnorderedElementsAre("entry -> T", "T -> W", "W -> N", "N -> W", "W -> exit",
                                     "T -> K", "W -> K", "K -> exit"));
}

TEST_F(ControlFlowTry, BackEdgeDoesNotMakeTheEndOfTheLoopBodyAThrowPoint) {
    // try, while c, Q, end, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(
        edges({named("T", tryStatement({named("W", whileLoop(id("c"), {quiet("Q")}))}, clause))}),
        UnorderedElementsAre("entry -> T", "T -> W", "W -> Q", "Q -> W", "W -> exit", "T -> K",
                             "W -> K", "K -> exit"));
}

TEST_F(ControlFlowTry, StatementsNestedInATryBodyAreItsThrowPoints) {
    // try, if, for, parfor, spmd and switch with one step in each, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    const Nodes body = {
        named("I", ifStatement(id("a"), {step("A")}, {named("J", elseIfClause(id("b"), {}))},
                               NodeView(elseClause({step("B")})))),
        named("F", forLoop(id("k"), id("n"), {step("C")})),
        named("P", parforLoop(id("k"), id("n"), {step("D")})), named("M", spmd({step("E")})),
        named("S", switchStatement(id("x"), {named("L", caseClause(id("y"), {step("G")}))},
                                   NodeView(otherwiseClause({step("H")}))))};
    std::vector<std::string> expected = {
        "entry -> T", "T -> I", "I -> A", "I -> J",    "J -> F",    "J -> B",   "A -> F", "B -> F",
        "F -> C",     "C -> F", "F -> P", "P -> D",    "D -> M",    "P -> M",   "M -> E", "E -> S",
        "S -> L",     "L -> G", "L -> H", "G -> exit", "H -> exit", "K -> exit"};
    for (const char* point :
         {"T", "I", "A", "J", "B", "F", "C", "P", "D", "M", "E", "S", "L", "G", "H"})
        expected.push_back(std::string(point) + " -> K");
    EXPECT_THAT(edges({named("T", tryStatement(body, clause))}),
                UnorderedElementsAreArray(expected));
}

TEST_F(ControlFlowTry, ClausesDirectlyInATryBodyAreThrowPoints) {
    const NodeView clause = named("K", catchClause({}, {}));
    const Nodes body = {named("C", caseClause(id("x"), {})), named("E", elseIfClause(id("y"), {}))};
    EXPECT_THAT(edges({named("T", tryStatement(body, clause))}),
                UnorderedElementsAre("entry -> T", "T -> C", "C -> E", "E -> exit", "T -> K",
                                     "C -> K", "E -> K", "K -> exit"));
}

TEST_F(ControlFlowTry, InnerTryBodyThrowsToTheInnerCatchOnly) {
    // try, try, A, catch, end, catch, end
    const NodeView innerClause = named("k", catchClause({}, {}));
    const NodeView inner = named("t", tryStatement({step("A")}, innerClause));
    const NodeView outerClause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({inner}, outerClause))}),
                UnorderedElementsAre("entry -> T", "T -> t", "t -> A", "t -> k", "A -> k",
                                     "A -> exit", "k -> exit", "T -> K", "K -> exit"));
}

TEST_F(ControlFlowTry, LaterStatementOfTheOuterBodyMakesTheInnerEndsThrowPoints) {
    // try, try, A, catch, end, B, catch, end
    const NodeView innerClause = named("k", catchClause({}, {}));
    const NodeView inner = named("t", tryStatement({step("A")}, innerClause));
    const NodeView outerClause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({inner, step("B")}, outerClause))}),
                UnorderedElementsAre("entry -> T", "T -> t", "t -> A", "t -> k", "A -> k", "A -> B",
                                     "k -> B", "B -> exit", "T -> K", "A -> K", "k -> K", "B -> K",
                                     "K -> exit"));
}

TEST_F(ControlFlowTry, LaterStatementOfTheOuterBodyMakesSwallowedErrorsThrowPoints) {
    // try, try, A, end, B, catch, end
    const NodeView inner = named("t", tryStatement({step("A")}));
    const NodeView outerClause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({inner, step("B")}, outerClause))}),
                UnorderedElementsAre("entry -> T", "T -> t", "t -> A", "t -> B", "A -> B",
                                     "B -> exit", "T -> K", "t -> K", "A -> K", "B -> K",
                                     "K -> exit"));
}

TEST_F(ControlFlowTry, InnerCatchBodyThrowsToTheOuterCatch) {
    // try, try, A, catch, B, end, catch, end
    const NodeView innerClause = named("k", catchClause({}, {step("B")}));
    const NodeView inner = named("t", tryStatement({step("A")}, innerClause));
    const NodeView outerClause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({inner}, outerClause))}),
                UnorderedElementsAre("entry -> T", "T -> t", "t -> A", "t -> k", "A -> k", "k -> B",
                                     "A -> exit", "B -> exit", "T -> K", "k -> K", "B -> K",
                                     "K -> exit"));
}

TEST_F(ControlFlowTry, CatchBodyOutsideOfEveryTryHasNoThrowPoints) {
    // try, catch, A, B, end
    const NodeView clause = named("K", catchClause({}, {step("A"), step("B")}));
    EXPECT_THAT(
        edges({named("T", tryStatement({}, clause))}),
        UnorderedElementsAre("entry -> T", "T -> K", "T -> exit", "K -> A", "A -> B", "B -> exit"));
}

TEST_F(ControlFlowTry, JumpsInATryAndInItsCatchBelongToTheEnclosingLoop) {
    // while c, try, A, break, catch, continue, end, end, B
    const NodeView clause = named("K", catchClause({}, {named("N", continueStatement())}));
    const NodeView body =
        named("T", tryStatement({step("A"), named("X", breakStatement())}, clause));
    EXPECT_THAT(edges({named("W", whileLoop(id("c"), {body})), step("B")}),
                UnorderedElementsAre("entry -> W", "W -> T", "T -> A", "A -> X", "X -> B", "T -> K",
                                     "A -> K", "K -> N", "N -> W", "W -> B", "B -> exit"));
}

TEST_F(ControlFlowTry, TryWithoutCatchAtTheEndOfALoopHasABackEdgeFromEveryThrowPoint) {
    // while c, try, A, B, end, end
    EXPECT_THAT(
        edges({named("W", whileLoop(id("c"), {named("T", tryStatement({step("A"), step("B")}))}))}),
        UnorderedElementsAre("entry -> W", "W -> T", "T -> A", "A -> B", "T -> W", "A -> W",
                             "B -> W", "W -> exit"));
}

TEST_F(ControlFlowTry, UnreachableStatementOfATryBodyStillLeadsToTheCatch) {
    // try, return, A, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(
        edges({named("T", tryStatement({named("R", returnStatement()), step("A")}, clause))}),
        UnorderedElementsAre("entry -> T", "T -> R", "R -> exit", "A -> exit", "T -> K", "A -> K",
                             "K -> exit"));
}

TEST_F(ControlFlowTry, StatementsThatEvaluateSomethingAreThrowPoints) {
    const std::vector<NodeView> statements = {
        assign(id("x"), id("y")),         bareIdentifier(id("x")),
        command(id("ans"), id("f"), {}),  expressionStatement(id("ans"), id("x")),
        multiAssign({id("x")}, id("y")),  spmd({}),
        caseClause(id("x"), {}),          elseIfClause(id("x"), {}),
        whileLoop(id("c"), {}),           forLoop(id("k"), id("n"), {}),
        parforLoop(id("k"), id("n"), {}), ifStatement(id("c"), {}),
        switchStatement(id("x"), {})};
    for (const NodeView& statement : statements) {
        const NodeView clause = named("K", catchClause({}, {}));
        EXPECT_THAT(edges({tryStatement({named("S", statement)}, clause)}), Contains("S -> K"))
            << nameOf(statement.getKind());
    }
}

TEST_F(ControlFlowTry, BareIdentifierIsAThrowPoint) {
    // try, x, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(
        edges({named("T", tryStatement({named("B", bareIdentifier(id("x")))}, clause))}),
        UnorderedElementsAre("entry -> T", "T -> B", "B -> exit", "T -> K", "B -> K", "K -> exit"));
}

TEST_F(ControlFlowTry, StatementsOfALoopBodyAreThrowPoints) {
    // try, while c, Q, A, end, catch, end: also with for and parfor
    const NodeView clause = catchClause({}, {});
    const Nodes body = {quiet("Q"), step("A")};
    for (const NodeView& loop :
         {NodeView(whileLoop(id("c"), body)), NodeView(forLoop(id("k"), id("n"), body)),
          NodeView(parforLoop(id("k"), id("n"), body))}) {
        named("K", clause);
        EXPECT_THAT(edges({tryStatement({loop}, clause)}), IsSupersetOf({"Q -> K", "A -> K"}))
            << nameOf(loop.getKind());
    }
}

TEST_F(ControlFlowTry, NormalEndsSurviveACatchThatJumps) {
    // try, A, catch, return, end, B
    const NodeView clause = named("K", catchClause({}, {named("R", returnStatement())}));
    EXPECT_THAT(edges({named("T", tryStatement({step("A")}, clause)), step("B")}),
                UnorderedElementsAre("entry -> T", "T -> A", "T -> K", "A -> K", "K -> R",
                                     "R -> exit", "A -> B", "B -> exit"));
}

} // namespace
} // namespace zt::orvex::testing
