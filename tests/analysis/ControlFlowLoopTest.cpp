#include "analysis/ControlFlowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt::orvex::testing {
namespace {

using ::testing::UnorderedElementsAre;

class ControlFlowLoop : public ControlFlowFixture {};

TEST_F(ControlFlowLoop, LoopHasABackEdgeToItsHeadAndExitsFromThere) {
    // for k = n, A, B, end, C
    EXPECT_THAT(
        edges({named("F", forLoop(id("k"), id("n"), {step("A"), step("B")})), step("C")}),
        UnorderedElementsAre("entry -> F", "F -> A", "A -> B", "B -> F", "F -> C", "C -> exit"));
    EXPECT_THAT(edges({named("W", whileLoop(id("c"), {step("D")}))}),
                UnorderedElementsAre("entry -> W", "W -> D", "D -> W", "W -> exit"));
}

TEST_F(ControlFlowLoop, EmptyLoopIsItsOwnPredecessor) {
    EXPECT_THAT(edges({named("F", forLoop(id("k"), id("n"), {}))}),
                UnorderedElementsAre("entry -> F", "F -> F", "F -> exit"));
    EXPECT_EQ(live({forLoop(id("k"), id("n"), {})}), "n");
    EXPECT_THAT(edges({named("W", whileLoop(id("c"), {}))}),
                UnorderedElementsAre("entry -> W", "W -> W", "W -> exit"));
    EXPECT_EQ(live({whileLoop(id("c"), {})}), "c");
}

TEST_F(ControlFlowLoop, BreakLeavesTheLoopAndContinueGoesToItsHead) {
    // while c, A, continue, B, break, C, end, D
    EXPECT_THAT(
        edges({named("W", whileLoop(id("c"), {step("A"), named("N", continueStatement()), step("B"),
                                              named("X", breakStatement()), step("C")})),
               step("D")}),
        UnorderedElementsAre("entry -> W", "W -> A", "A -> N", "N -> W", "B -> X", "X -> D",
                             "C -> W", "W -> D", "D -> exit"));
}

TEST_F(ControlFlowLoop, BreakInsideAnIfInsideAForPassesThroughTheIf) {
    // for k = n, if c, break, end, A, end, B
    const NodeView leave = named("X", breakStatement());
    EXPECT_THAT(edges({named("F", forLoop(id("k"), id("n"),
                                          {named("I", ifStatement(id("c"), {leave})), step("A")})),
                       step("B")}),
                UnorderedElementsAre("entry -> F", "F -> I", "I -> X", "I -> A", "A -> F", "F -> B",
                                     "X -> B", "B -> exit"));
}

TEST_F(ControlFlowLoop, InnerLoopTakesItsJumpsAndPassesReturnsOn) {
    // for k = n, while c, if a, break, elseif b, continue, else, return, end, end, A, end, B
    const NodeView branches = named(
        "I", ifStatement(id("a"), {named("X", breakStatement())},
                         {named("E", elseIfClause(id("b"), {named("N", continueStatement())}))},
                         NodeView(elseClause({named("R", returnStatement())}))));
    const NodeView inner = named("W", whileLoop(id("c"), {branches}));
    EXPECT_THAT(edges({named("F", forLoop(id("k"), id("n"), {inner, step("A")})), step("B")}),
                UnorderedElementsAre("entry -> F", "F -> W", "W -> I", "I -> X", "I -> E", "E -> N",
                                     "E -> R", "N -> W", "W -> A", "X -> A", "R -> exit", "A -> F",
                                     "F -> B", "B -> exit"));
}

TEST_F(ControlFlowLoop, BodyThatOnlyBreaksHasNoBackEdge) {
    EXPECT_THAT(edges({named("W", whileLoop(id("c"), {named("X", breakStatement())}))}),
                UnorderedElementsAre("entry -> W", "W -> X", "W -> exit", "X -> exit"));
}

TEST_F(ControlFlowLoop, NestedParforHasNoBackEdge) {
    // parfor k = n, A, end, B
    EXPECT_THAT(edges({named("P", parforLoop(id("k"), id("n"), {step("A")})), step("B")}),
                UnorderedElementsAre("entry -> P", "P -> A", "A -> B", "P -> B", "B -> exit"));
}

TEST_F(ControlFlowLoop, EmptyParforHasOneEdgeToWhatFollows) {
    EXPECT_THAT(edges({named("P", parforLoop(id("k"), id("n"), {})), step("B")}),
                UnorderedElementsAre("entry -> P", "P -> B", "B -> exit"));
}

TEST_F(ControlFlowLoop, ContinueInAParforFlowsForwardLikeABreak) {
    // parfor k = n, if a, break, elseif b, continue, else, return, end, end, B
    const NodeView branches = named(
        "I", ifStatement(id("a"), {named("X", breakStatement())},
                         {named("E", elseIfClause(id("b"), {named("N", continueStatement())}))},
                         NodeView(elseClause({named("R", returnStatement())}))));
    const NodeView loop = named("P", parforLoop(id("k"), id("n"), {branches}));
    EXPECT_THAT(edges({loop, step("B")}),
                UnorderedElementsAre("entry -> P", "P -> I", "I -> X", "I -> E", "E -> N", "E -> R",
                                     "X -> B", "N -> B", "R -> exit", "P -> B", "B -> exit"));
}

TEST_F(ControlFlowLoop, ContinueInAParforAtTheEndLeadsToTheExit) {
    EXPECT_THAT(
        edges({named("P", parforLoop(id("k"), id("n"), {named("N", continueStatement())}))}),
        UnorderedElementsAre("entry -> P", "P -> N", "N -> exit", "P -> exit"));
}

TEST_F(ControlFlowLoop, ParforInsideALoopFlowsBackThroughTheLoop) {
    // while c, parfor k = n, continue, end, end
    EXPECT_THAT(
        edges({named(
            "W", whileLoop(id("c"), {named("P", parforLoop(id("k"), id("n"),
                                                           {named("N", continueStatement())}))}))}),
        UnorderedElementsAre("entry -> W", "W -> P", "P -> N", "P -> W", "N -> W", "W -> exit"));
}

} // namespace
} // namespace zt::orvex::testing
