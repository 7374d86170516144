#include "analysis/ControlFlowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zt::orvex::testing {
namespace {

using ::testing::UnorderedElementsAre;

class ControlFlowBranch : public ControlFlowFixture {};

TEST_F(ControlFlowBranch, IfWithoutElseCanBeBypassed) {
    // if c, A, end, B
    EXPECT_THAT(edges({named("I", ifStatement(id("c"), {step("A")})), step("B")}),
                UnorderedElementsAre("entry -> I", "I -> A", "A -> B", "I -> B", "B -> exit"));
}

TEST_F(ControlFlowBranch, IfWithElseCannotBeBypassed) {
    // if c, A, else, B, end, C
    EXPECT_THAT(
        edges({named("I", ifStatement(id("c"), {step("A")}, {}, NodeView(elseClause({step("B")})))),
               step("C")}),
        UnorderedElementsAre("entry -> I", "I -> A", "I -> B", "A -> C", "B -> C", "C -> exit"));
}

TEST_F(ControlFlowBranch, ConditionsOfElseIfsFormAChain) {
    // if a, A, elseif b, B, elseif c, C, else, D, end, E
    const NodeView statement =
        named("I", ifStatement(id("a"), {step("A")},
                               {named("J", elseIfClause(id("b"), {step("B")})),
                                named("K", elseIfClause(id("c"), {step("C")}))},
                               NodeView(elseClause({step("D")}))));
    EXPECT_THAT(edges({statement, step("E")}),
                UnorderedElementsAre("entry -> I", "I -> A", "I -> J", "J -> B", "J -> K", "K -> C",
                                     "K -> D", "A -> E", "B -> E", "C -> E", "D -> E",
                                     "E -> exit"));
}

TEST_F(ControlFlowBranch, LastElseIfWithoutElseCanBeBypassed) {
    const NodeView statement = named(
        "I", ifStatement(id("a"), {step("A")}, {named("J", elseIfClause(id("b"), {step("B")}))}));
    EXPECT_THAT(edges({statement, step("E")}),
                UnorderedElementsAre("entry -> I", "I -> A", "I -> J", "J -> B", "J -> E", "A -> E",
                                     "B -> E", "E -> exit"));
}

TEST_F(ControlFlowBranch, EmptyIfHasOneEdgeToWhatFollows) {
    const NodeView statement = named("I", ifStatement(id("c"), {}));
    EXPECT_THAT(edges({statement, step("A")}),
                UnorderedElementsAre("entry -> I", "I -> A", "A -> exit"));
    EXPECT_EQ(merge({statement, step("A")}, statement, MAY), "liveIn(A)");
}

TEST_F(ControlFlowBranch, EmptyElseLeadsFromTheConditionToWhatFollows) {
    EXPECT_THAT(edges({named("I", ifStatement(id("c"), {step("A")}, {}, NodeView(elseClause({})))),
                       step("B")}),
                UnorderedElementsAre("entry -> I", "I -> A", "I -> B", "A -> B", "B -> exit"));
}

TEST_F(ControlFlowBranch, CasesFormAChainWithoutFallThrough) {
    // switch x, case a, A, case b, B, otherwise, C, end, D
    const NodeView statement =
        named("S", switchStatement(id("x"),
                                   {named("J", caseClause(id("a"), {step("A")})),
                                    named("K", caseClause(id("b"), {step("B")}))},
                                   NodeView(otherwiseClause({step("C")}))));
    EXPECT_THAT(edges({statement, step("D")}),
                UnorderedElementsAre("entry -> S", "S -> J", "J -> A", "J -> K", "K -> B", "K -> C",
                                     "A -> D", "B -> D", "C -> D", "D -> exit"));
}

TEST_F(ControlFlowBranch, SwitchWithoutOtherwiseCanBeBypassedAfterItsLastCase) {
    EXPECT_THAT(
        edges({named("S", switchStatement(id("x"), {named("J", caseClause(id("a"), {step("A")}))})),
               step("D")}),
        UnorderedElementsAre("entry -> S", "S -> J", "J -> A", "J -> D", "A -> D", "D -> exit"));
}

TEST_F(ControlFlowBranch, SwitchWithoutCasesIsOneNode) {
    EXPECT_THAT(edges({named("S", switchStatement(id("x"), {})), step("D")}),
                UnorderedElementsAre("entry -> S", "S -> D", "D -> exit"));
}

TEST_F(ControlFlowBranch, SwitchWithOtherwiseAloneRunsIt) {
    EXPECT_THAT(
        edges({named("S", switchStatement(id("x"), {}, NodeView(otherwiseClause({step("C")})))),
               step("D")}),
        UnorderedElementsAre("entry -> S", "S -> C", "C -> D", "D -> exit"));
}

} // namespace
} // namespace zt::orvex::testing
