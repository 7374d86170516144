#include "analysis/ControlFlowFixture.h"

#include <zt_orvex/ast/ControlFlow.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt::orvex::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class ControlFlowStatement : public ControlFlowFixture {};

TEST_F(ControlFlowStatement, EmptyRangeLeadsFromEntryToExit) {
    EXPECT_THAT(edges({}), UnorderedElementsAre("entry -> exit"));
}

TEST_F(ControlFlowStatement, SimpleStatementsFollowOneAnother) {
    const Nodes statements = {named("assignment", assign(id("x"), id("y"))),
                              named("bare", bareIdentifier(id("x"))),
                              named("command", command(id("ans"), id("f"), {})),
                              named("expression", expressionStatement(id("ans"), id("x"))),
                              named("multi", multiAssign({id("x")}, id("y"))),
                              named("empty", emptyStatement()),
                              named("global", global({id("x")})),
                              named("implicit", implicitCommand(id("ans"), {})),
                              named("persistent", persistent({id("x")}))};
    EXPECT_THAT(edges(statements),
                UnorderedElementsAre("entry -> assignment", "assignment -> bare", "bare -> command",
                                     "command -> expression", "expression -> multi",
                                     "multi -> empty", "empty -> global", "global -> implicit",
                                     "implicit -> persistent", "persistent -> exit"));
}

TEST_F(ControlFlowStatement, OtherKindsArePassedOver) {
    // DiscardedStatement, ElseClause, OtherwiseClause, CatchClause, an expression, unknown kinds
    EXPECT_THAT(edges({step("A"), discardedStatement(), elseClause({step("skipped")}),
                       otherwiseClause({}), catchClause(NodeView(id("x")), {}), id("x"), filler(),
                       unknown(0), unknown(128), unknown(255), step("B")}),
                UnorderedElementsAre("entry -> A", "A -> B", "B -> exit"));
}

TEST_F(ControlFlowStatement, DiscardedStatementIsPassedOverAlthoughItsKindIsThatOfAFlowNode) {
    const NodeView discarded = discardedStatement();
    EXPECT_TRUE(flow::isControlFlowNode(discarded));
    EXPECT_THAT(edges({discarded}), UnorderedElementsAre("entry -> exit"));
}

TEST_F(ControlFlowStatement, PrintedStatementComesBeforeItsPrint) {
    // x = y
    const NodeView inner = named("A", assign(id("x"), id("y")));
    const Nodes statements = {named("print", print(inner)), step("B")};
    EXPECT_THAT(edges(statements),
                UnorderedElementsAre("entry -> A", "A -> print", "print -> B", "B -> exit"));
    EXPECT_EQ(live({print(assign(id("x"), id("y")))}), "y");
}

TEST_F(ControlFlowStatement, PrintOfAKindThatIsPassedOverIsASingleNode) {
    EXPECT_THAT(edges({named("P", print(unknown(0))), named("Q", print(discardedStatement()))}),
                UnorderedElementsAre("entry -> P", "P -> Q", "Q -> exit"));
}

TEST_F(ControlFlowStatement, PrintOfAJumpIsUnreachable) {
    EXPECT_THAT(edges({named("P", print(named("R", returnStatement()))), step("A")}),
                UnorderedElementsAre("entry -> R", "R -> exit", "P -> A", "A -> exit"));
}

TEST_F(ControlFlowStatement, NestedSpmdIsAStraightBlock) {
    // spmd, A, end, B
    EXPECT_THAT(edges({named("S", spmd({step("A")})), step("B")}),
                UnorderedElementsAre("entry -> S", "S -> A", "A -> B", "B -> exit"));
}

TEST_F(ControlFlowStatement, JumpsInANestedSpmdBelongToTheEnclosingLoop) {
    // while c, spmd, break, end, A, end, B
    EXPECT_THAT(
        edges({named("W", whileLoop(id("c"),
                                    {named("S", spmd({named("X", breakStatement())})), step("A")})),
               step("B")}),
        UnorderedElementsAre("entry -> W", "W -> S", "S -> X", "X -> B", "A -> W", "W -> B",
                             "B -> exit"));
}

TEST_F(ControlFlowStatement, ClausesDirectlyInARangeRunStraightThrough) {
    EXPECT_THAT(
        edges({named("C", caseClause(id("x"), {step("A")})),
               named("E", elseIfClause(id("y"), {step("B")})), step("D")}),
        UnorderedElementsAre("entry -> C", "C -> A", "A -> E", "E -> B", "B -> D", "D -> exit"));
}

// Jumps

TEST_F(ControlFlowStatement, JumpsWithoutALoopLeadToTheExit) {
    for (const NodeView& jump :
         {NodeView(breakStatement()), NodeView(continueStatement()), NodeView(returnStatement())}) {
        named("J", jump);
        EXPECT_THAT(edges({step("A"), jump}),
                    UnorderedElementsAre("entry -> A", "A -> J", "J -> exit"));
    }
}

TEST_F(ControlFlowStatement, CodeAfterAJumpIsUnreachableAndKeepsItsOwnEdges) {
    for (const NodeView& jump :
         {NodeView(breakStatement()), NodeView(continueStatement()), NodeView(returnStatement())}) {
        named("J", jump);
        EXPECT_THAT(edges({jump, step("A"), step("B")}),
                    UnorderedElementsAre("entry -> J", "J -> exit", "A -> B", "B -> exit"));
        EXPECT_EQ(live({jump, assign(id("x"), id("y"))}), "");
    }
}

TEST_F(ControlFlowStatement, SecondJumpInARowIsUnreachable) {
    EXPECT_THAT(edges({named("J", returnStatement()), named("K", returnStatement())}),
                UnorderedElementsAre("entry -> J", "J -> exit", "K -> exit"));
}

// The order in which nodes and edges are reported

TEST_F(ControlFlowStatement, NodesComeInSourceOrderAndAPrintBeforeWhatItPrints) {
    // A, while c, B, end, print C, if c, D, elseif c, E, else, F, end
    const Nodes statements = {
        step("A"), named("W", whileLoop(id("c"), {step("B")})), named("P", print(step("C"))),
        named("I",
              ifStatement(id("c"), {step("D")}, {named("J", elseIfClause(id("c"), {step("E")}))},
                          NodeView(elseClause({step("F")}))))};
    RecordedControlFlow recorded(block(statements));
    EXPECT_THAT(named(recorded).describeNodes(),
                ElementsAre("entry", "A", "W", "B", "P", "C", "I", "D", "J", "E", "F", "exit"));
}

TEST_F(ControlFlowStatement, EntryAndExitAloneArePseudoNodes) {
    EXPECT_THAT(RecordedControlFlow(block({step("A"), returnStatement()})).describePseudoNodes(),
                ElementsAre("entry", "exit"));
}

TEST_F(ControlFlowStatement, EdgesComeAsSoonAsTheirEndsAreKnown) {
    // while c, if a, continue, end, if b, break, end, A, end, return
    const NodeView loop =
        named("W", whileLoop(id("c"),
                             {named("I", ifStatement(id("a"), {named("N", continueStatement())})),
                              named("J", ifStatement(id("b"), {named("X", breakStatement())})),
                              step("A")}));
    EXPECT_THAT(edges({loop, named("R", returnStatement())}),
                ElementsAre("entry -> W", "W -> I", "I -> N", "I -> J", "J -> X", "J -> A",
                            "A -> W", "N -> W", "W -> R", "X -> R", "R -> exit"));
}

} // namespace
} // namespace zt::orvex::testing
