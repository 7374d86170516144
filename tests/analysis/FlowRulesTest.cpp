#include "analysis/AnalysisFixture.h"
#include "testing/FlowDump.h"

#include <zt_orvex/ast/ControlFlow.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::testing {
namespace {

using ::testing::UnorderedElementsAre;
using ::testing::UnorderedElementsAreArray;

// Programs, and the edges that their equations stand for: I -> S says that liveOut(I) takes in
// liveIn(S). Many of these edges show in no result, since all that they carry comes another way
// too.
class FlowRules : public AnalysisFixture {
protected:
    template <typename View>
    View named(const std::string& name, View node) {
        names.emplace_back(name, node);
        return node;
    }

    // A statement that can fail, and does nothing that matters here.
    NodeView step(const std::string& name) { return named(name, assign(number(), number())); }
    // A statement that cannot fail.
    NodeView quiet(const std::string& name) { return named(name, emptyStatement()); }

    std::vector<std::string> edges(const Nodes& statements, Type type = MAY) {
        const FlowDump::Analysis analysis(universe, block(statements), type, PLAIN, {}, nullptr);
        FlowDump dump(analysis);
        for (const auto& [name, node] : names)
            dump.name(node, name);
        return dump.describeEdges();
    }

    std::string merge(const Nodes& statements, const NodeView& at, Type type) {
        const FlowDump::Analysis analysis(universe, block(statements), type, PLAIN, {}, nullptr);
        FlowDump dump(analysis);
        for (const auto& [name, node] : names)
            dump.name(node, name);
        return dump.describeMerge(at);
    }

    std::vector<std::pair<std::string, NodeView>> names;
};

// Straight lines

TEST_F(FlowRules, EmptyRangeLeadsFromEntryToExit) {
    EXPECT_THAT(edges({}), UnorderedElementsAre("entry -> exit"));
}

TEST_F(FlowRules, SimpleStatementsFollowOneAnother) {
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

TEST_F(FlowRules, KindsThatAreNoStatementsAreTransparent) {
    // DiscardedStatement, ElseClause, OtherwiseClause, CatchClause, an expression, kinds 0 and 67
    EXPECT_THAT(edges({step("A"), discardedStatement(), elseClause({step("skipped")}),
                       otherwiseClause({}), catchClause(NodeView(id("x")), {}), id("x"), filler(),
                       unknown(0), unknown(67), unknown(255), step("B")}),
                UnorderedElementsAre("entry -> A", "A -> B", "B -> exit"));
}

TEST_F(FlowRules, DiscardedStatementIsAFlowNodeByKindAndIgnoredAllTheSame) {
    const NodeView discarded = discardedStatement();
    EXPECT_TRUE(flow::isControlFlowNode(discarded));
    EXPECT_THAT(edges({discarded}), UnorderedElementsAre("entry -> exit"));
}

TEST_F(FlowRules, PrintedStatementComesBeforeItsPrint) {
    // x = y
    const NodeView inner = named("A", assign(id("x"), id("y")));
    const Nodes statements = {named("print", print(inner)), step("B")};
    EXPECT_THAT(edges(statements),
                UnorderedElementsAre("entry -> A", "A -> print", "print -> B", "B -> exit"));
    EXPECT_EQ(live({print(assign(id("x"), id("y")))}), "y");
}

TEST_F(FlowRules, PrintedStatementThatIsNoneLeavesThePrintAlone) {
    EXPECT_THAT(edges({named("P", print(unknown(0))), named("Q", print(discardedStatement()))}),
                UnorderedElementsAre("entry -> P", "P -> Q", "Q -> exit"));
}

TEST_F(FlowRules, PrintedJumpLeavesThePrintUnreached) {
    EXPECT_THAT(edges({named("P", print(named("R", returnStatement()))), step("A")}),
                UnorderedElementsAre("entry -> R", "R -> exit", "P -> A", "A -> exit"));
}

TEST_F(FlowRules, NestedSpmdIsAStraightBlock) {
    // spmd, A, end, B
    EXPECT_THAT(edges({named("S", spmd({step("A")})), step("B")}),
                UnorderedElementsAre("entry -> S", "S -> A", "A -> B", "B -> exit"));
}

TEST_F(FlowRules, JumpsInANestedSpmdBelongToTheLoopAround) {
    // while c, spmd, break, end, A, end, B
    EXPECT_THAT(
        edges({named("W", whileLoop(id("c"),
                                    {named("S", spmd({named("X", breakStatement())})), step("A")})),
               step("B")}),
        UnorderedElementsAre("entry -> W", "W -> S", "S -> X", "X -> B", "A -> W", "W -> B",
                             "B -> exit"));
}

TEST_F(FlowRules, ClausesThatStandDirectlyInARangeRunStraightThrough) {
    EXPECT_THAT(
        edges({named("C", caseClause(id("x"), {step("A")})),
               named("E", elseIfClause(id("y"), {step("B")})), step("D")}),
        UnorderedElementsAre("entry -> C", "C -> A", "A -> E", "E -> B", "B -> D", "D -> exit"));
}

// Jumps

TEST_F(FlowRules, JumpsWithoutALoopLeadToTheExit) {
    for (const NodeView& jump :
         {NodeView(breakStatement()), NodeView(continueStatement()), NodeView(returnStatement())}) {
        named("J", jump);
        EXPECT_THAT(edges({step("A"), jump}),
                    UnorderedElementsAre("entry -> A", "A -> J", "J -> exit"));
    }
}

TEST_F(FlowRules, CodeBehindAJumpIsUnreachedAndKeepsItsOwnEdges) {
    for (const NodeView& jump :
         {NodeView(breakStatement()), NodeView(continueStatement()), NodeView(returnStatement())}) {
        named("J", jump);
        EXPECT_THAT(edges({jump, step("A"), step("B")}),
                    UnorderedElementsAre("entry -> J", "J -> exit", "A -> B", "B -> exit"));
        EXPECT_EQ(live({jump, assign(id("x"), id("y"))}), "");
    }
}

TEST_F(FlowRules, SecondJumpInARowIsUnreached) {
    EXPECT_THAT(edges({named("J", returnStatement()), named("K", returnStatement())}),
                UnorderedElementsAre("entry -> J", "J -> exit", "K -> exit"));
}

// Loops

TEST_F(FlowRules, LoopFlowsBackToItsHeadAndLeavesFromThere) {
    // for k = n, A, B, end, C
    EXPECT_THAT(
        edges({named("F", forLoop(id("k"), id("n"), {step("A"), step("B")})), step("C")}),
        UnorderedElementsAre("entry -> F", "F -> A", "A -> B", "B -> F", "F -> C", "C -> exit"));
    EXPECT_THAT(edges({named("W", whileLoop(id("c"), {step("D")}))}),
                UnorderedElementsAre("entry -> W", "W -> D", "D -> W", "W -> exit"));
}

TEST_F(FlowRules, EmptyLoopIsItsOwnPredecessor) {
    EXPECT_THAT(edges({named("F", forLoop(id("k"), id("n"), {}))}),
                UnorderedElementsAre("entry -> F", "F -> F", "F -> exit"));
    EXPECT_EQ(live({forLoop(id("k"), id("n"), {})}), "n");
    EXPECT_THAT(edges({named("W", whileLoop(id("c"), {}))}),
                UnorderedElementsAre("entry -> W", "W -> W", "W -> exit"));
    EXPECT_EQ(live({whileLoop(id("c"), {})}), "c");
}

TEST_F(FlowRules, BreakLeavesTheLoopAndContinueGoesToItsHead) {
    // while c, A, continue, B, break, C, end, D
    EXPECT_THAT(
        edges({named("W", whileLoop(id("c"), {step("A"), named("N", continueStatement()), step("B"),
                                              named("X", breakStatement()), step("C")})),
               step("D")}),
        UnorderedElementsAre("entry -> W", "W -> A", "A -> N", "N -> W", "B -> X", "X -> D",
                             "C -> W", "W -> D", "D -> exit"));
}

TEST_F(FlowRules, BreakInsideAnIfInsideAForPassesThroughTheIf) {
    // for k = n, if c, break, end, A, end, B
    const NodeView leave = named("X", breakStatement());
    EXPECT_THAT(edges({named("F", forLoop(id("k"), id("n"),
                                          {named("I", ifStatement(id("c"), {leave})), step("A")})),
                       step("B")}),
                UnorderedElementsAre("entry -> F", "F -> I", "I -> X", "I -> A", "A -> F", "F -> B",
                                     "X -> B", "B -> exit"));
}

TEST_F(FlowRules, InnerLoopTakesItsJumpsAndPassesReturnsOn) {
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

TEST_F(FlowRules, BodyThatOnlyBreaksHasNoWayBack) {
    EXPECT_THAT(edges({named("W", whileLoop(id("c"), {named("X", breakStatement())}))}),
                UnorderedElementsAre("entry -> W", "W -> X", "W -> exit", "X -> exit"));
}

TEST_F(FlowRules, NestedParforHasNoWayBack) {
    // parfor k = n, A, end, B
    EXPECT_THAT(edges({named("P", parforLoop(id("k"), id("n"), {step("A")})), step("B")}),
                UnorderedElementsAre("entry -> P", "P -> A", "A -> B", "P -> B", "B -> exit"));
}

TEST_F(FlowRules, EmptyParforLeadsOnOnce) {
    EXPECT_THAT(edges({named("P", parforLoop(id("k"), id("n"), {})), step("B")}),
                UnorderedElementsAre("entry -> P", "P -> B", "B -> exit"));
}

TEST_F(FlowRules, ContinueInAParforFlowsForwardLikeABreak) {
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

TEST_F(FlowRules, ContinueInAParforAtTheEndLeadsToTheExit) {
    EXPECT_THAT(
        edges({named("P", parforLoop(id("k"), id("n"), {named("N", continueStatement())}))}),
        UnorderedElementsAre("entry -> P", "P -> N", "N -> exit", "P -> exit"));
}

TEST_F(FlowRules, ParforInsideALoopFlowsBackThroughTheLoop) {
    // while c, parfor k = n, continue, end, end
    EXPECT_THAT(
        edges({named(
            "W", whileLoop(id("c"), {named("P", parforLoop(id("k"), id("n"),
                                                           {named("N", continueStatement())}))}))}),
        UnorderedElementsAre("entry -> W", "W -> P", "P -> N", "P -> W", "N -> W", "W -> exit"));
}

// Branches

TEST_F(FlowRules, IfWithoutElseMayBePassedBy) {
    // if c, A, end, B
    EXPECT_THAT(edges({named("I", ifStatement(id("c"), {step("A")})), step("B")}),
                UnorderedElementsAre("entry -> I", "I -> A", "A -> B", "I -> B", "B -> exit"));
}

TEST_F(FlowRules, IfWithElseMayNotBePassedBy) {
    // if c, A, else, B, end, C
    EXPECT_THAT(
        edges({named("I", ifStatement(id("c"), {step("A")}, {}, NodeView(elseClause({step("B")})))),
               step("C")}),
        UnorderedElementsAre("entry -> I", "I -> A", "I -> B", "A -> C", "B -> C", "C -> exit"));
}

TEST_F(FlowRules, ConditionsOfElseIfsFormAChain) {
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

TEST_F(FlowRules, LastElseIfWithoutElseMayBePassedBy) {
    const NodeView statement = named(
        "I", ifStatement(id("a"), {step("A")}, {named("J", elseIfClause(id("b"), {step("B")}))}));
    EXPECT_THAT(edges({statement, step("E")}),
                UnorderedElementsAre("entry -> I", "I -> A", "I -> J", "J -> B", "J -> E", "A -> E",
                                     "B -> E", "E -> exit"));
}

TEST_F(FlowRules, EmptyIfStandsOnceBeforeWhatFollows) {
    const NodeView statement = named("I", ifStatement(id("c"), {}));
    EXPECT_THAT(edges({statement, step("A")}),
                UnorderedElementsAre("entry -> I", "I -> A", "A -> exit"));
    EXPECT_EQ(merge({statement, step("A")}, statement, MAY), "liveIn(A)");
}

TEST_F(FlowRules, EmptyElseLeadsFromTheConditionOn) {
    EXPECT_THAT(edges({named("I", ifStatement(id("c"), {step("A")}, {}, NodeView(elseClause({})))),
                       step("B")}),
                UnorderedElementsAre("entry -> I", "I -> A", "I -> B", "A -> B", "B -> exit"));
}

TEST_F(FlowRules, CasesFormAChainWithoutFallThrough) {
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

TEST_F(FlowRules, SwitchWithoutOtherwiseMayBePassedByBehindItsLastCase) {
    EXPECT_THAT(
        edges({named("S", switchStatement(id("x"), {named("J", caseClause(id("a"), {step("A")}))})),
               step("D")}),
        UnorderedElementsAre("entry -> S", "S -> J", "J -> A", "J -> D", "A -> D", "D -> exit"));
}

TEST_F(FlowRules, SwitchWithoutCasesIsOneNode) {
    EXPECT_THAT(edges({named("S", switchStatement(id("x"), {})), step("D")}),
                UnorderedElementsAre("entry -> S", "S -> D", "D -> exit"));
}

TEST_F(FlowRules, SwitchWithOtherwiseAloneRunsIt) {
    EXPECT_THAT(
        edges({named("S", switchStatement(id("x"), {}, NodeView(otherwiseClause({step("C")})))),
               step("D")}),
        UnorderedElementsAre("entry -> S", "S -> C", "C -> D", "D -> exit"));
}

// Failures

TEST_F(FlowRules, EveryPointOfATryBodyLeadsToTheCatch) {
    // A, try, B, C, catch e, D, end, E
    const NodeView clause = named("K", catchClause(NodeView(id("e")), {step("D")}));
    EXPECT_THAT(
        edges({step("A"), named("T", tryStatement({step("B"), step("C")}, clause)), step("E")}),
        UnorderedElementsAre("entry -> A", "A -> T", "T -> B", "B -> C", "T -> K", "B -> K",
                             "C -> K", "K -> D", "D -> E", "C -> E", "E -> exit"));
}

TEST_F(FlowRules, TryWithoutCatchSwallowsFailures) {
    // try, A, B, end, C
    EXPECT_THAT(edges({named("T", tryStatement({step("A"), step("B")})), step("C")}),
                UnorderedElementsAre("entry -> T", "T -> A", "A -> B", "T -> C", "A -> C", "B -> C",
                                     "C -> exit"));
}

TEST_F(FlowRules, EmptyTryBodyWithACatch) {
    // try, catch, A, end, B
    EXPECT_THAT(
        edges({named("T", tryStatement({}, NodeView(named("K", catchClause({}, {step("A")}))))),
               step("B")}),
        UnorderedElementsAre("entry -> T", "T -> K", "K -> A", "A -> B", "T -> B", "B -> exit"));
}

TEST_F(FlowRules, EmptyTryWithoutCatchIsOneNode) {
    EXPECT_THAT(edges({named("T", tryStatement({})), step("B")}),
                UnorderedElementsAre("entry -> T", "T -> B", "B -> exit"));
}

TEST_F(FlowRules, EmptyCatchBodyLeadsOn) {
    EXPECT_THAT(
        edges({named("T", tryStatement({step("A")}, NodeView(named("K", catchClause({}, {}))))),
               step("B")}),
        UnorderedElementsAre("entry -> T", "T -> A", "T -> K", "A -> K", "A -> B", "K -> B",
                             "B -> exit"));
}

TEST_F(FlowRules, StatementsThatCannotFailDoNotLeadToTheCatch) {
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

TEST_F(FlowRules, StatementThatCannotFailLeadsToTheCatchAsThePredecessorOfOneThatCan) {
    // try, Q, A, Q2, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({quiet("Q"), step("A"), quiet("Q2")}, clause))}),
                UnorderedElementsAre("entry -> T", "T -> Q", "Q -> A", "A -> Q2", "Q2 -> exit",
                                     "T -> K", "Q -> K", "A -> K", "K -> exit"));
}

TEST_F(FlowRules, PrintInATryReportsItsStatementAndNotItself) {
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({named("P", print(step("A")))}, clause))}),
                UnorderedElementsAre("entry -> T", "T -> A", "A -> P", "P -> exit", "T -> K",
                                     "A -> K", "K -> exit"));
}

TEST_F(FlowRules, JumpInATryBodyDoesNotReportButWhatIsBeforeItDoes) {
    // try, A, return, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(
        edges({named("T", tryStatement({step("A"), named("R", returnStatement())}, clause))}),
        UnorderedElementsAre("entry -> T", "T -> A", "A -> R", "R -> exit", "T -> K", "A -> K",
                             "K -> exit"));
}

TEST_F(FlowRules, BreakThatLeadsToAStatementOfTheTryBodyReportsAsItsPredecessor) {
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

TEST_F(FlowRules, ContinueDoesNotReportAlthoughItLeadsToALoopThatDoes) {
    // try, while c, continue, end, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    const NodeView loop = named("W", whileLoop(id("c"), {named("N", continueStatement())}));
    EXPECT_THAT(edges({named("T", tryStatement({loop}, clause))}),
                UnorderedElementsAre("entry -> T", "T -> W", "W -> N", "N -> W", "W -> exit",
                                     "T -> K", "W -> K", "K -> exit"));
}

TEST_F(FlowRules, QuietEndOfALoopBodyDoesNotReportThroughTheWayBack) {
    // try, while c, Q, end, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(
        edges({named("T", tryStatement({named("W", whileLoop(id("c"), {quiet("Q")}))}, clause))}),
        UnorderedElementsAre("entry -> T", "T -> W", "W -> Q", "Q -> W", "W -> exit", "T -> K",
                             "W -> K", "K -> exit"));
}

TEST_F(FlowRules, AllThatNestsInATryBodyReportsToIt) {
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

TEST_F(FlowRules, ClausesDirectlyInATryBodyReport) {
    const NodeView clause = named("K", catchClause({}, {}));
    const Nodes body = {named("C", caseClause(id("x"), {})), named("E", elseIfClause(id("y"), {}))};
    EXPECT_THAT(edges({named("T", tryStatement(body, clause))}),
                UnorderedElementsAre("entry -> T", "T -> C", "C -> E", "E -> exit", "T -> K",
                                     "C -> K", "E -> K", "K -> exit"));
}

TEST_F(FlowRules, InnerTryBodyReportsToTheInnerTryOnly) {
    // try, try, A, catch, end, catch, end
    const NodeView innerClause = named("k", catchClause({}, {}));
    const NodeView inner = named("t", tryStatement({step("A")}, innerClause));
    const NodeView outerClause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({inner}, outerClause))}),
                UnorderedElementsAre("entry -> T", "T -> t", "t -> A", "t -> k", "A -> k",
                                     "A -> exit", "k -> exit", "T -> K", "K -> exit"));
}

TEST_F(FlowRules, LaterStatementOfTheOuterBodyBringsTheInnerEndsIn) {
    // try, try, A, catch, end, B, catch, end
    const NodeView innerClause = named("k", catchClause({}, {}));
    const NodeView inner = named("t", tryStatement({step("A")}, innerClause));
    const NodeView outerClause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({inner, step("B")}, outerClause))}),
                UnorderedElementsAre("entry -> T", "T -> t", "t -> A", "t -> k", "A -> k", "A -> B",
                                     "k -> B", "B -> exit", "T -> K", "A -> K", "k -> K", "B -> K",
                                     "K -> exit"));
}

TEST_F(FlowRules, InnerTryWithoutCatchBringsItsFailuresInThroughALaterStatement) {
    // try, try, A, end, B, catch, end
    const NodeView inner = named("t", tryStatement({step("A")}));
    const NodeView outerClause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({inner, step("B")}, outerClause))}),
                UnorderedElementsAre("entry -> T", "T -> t", "t -> A", "t -> B", "A -> B",
                                     "B -> exit", "T -> K", "t -> K", "A -> K", "B -> K",
                                     "K -> exit"));
}

TEST_F(FlowRules, InnerCatchBodyReportsToTheOuterTry) {
    // try, try, A, catch, B, end, catch, end
    const NodeView innerClause = named("k", catchClause({}, {step("B")}));
    const NodeView inner = named("t", tryStatement({step("A")}, innerClause));
    const NodeView outerClause = named("K", catchClause({}, {}));
    EXPECT_THAT(edges({named("T", tryStatement({inner}, outerClause))}),
                UnorderedElementsAre("entry -> T", "T -> t", "t -> A", "t -> k", "A -> k", "k -> B",
                                     "A -> exit", "B -> exit", "T -> K", "k -> K", "B -> K",
                                     "K -> exit"));
}

TEST_F(FlowRules, CatchBodyOutsideOfAnyTryReportsNowhere) {
    // try, catch, A, B, end
    const NodeView clause = named("K", catchClause({}, {step("A"), step("B")}));
    EXPECT_THAT(
        edges({named("T", tryStatement({}, clause))}),
        UnorderedElementsAre("entry -> T", "T -> K", "T -> exit", "K -> A", "A -> B", "B -> exit"));
}

TEST_F(FlowRules, JumpsInATryAndInItsCatchBelongToTheLoopAround) {
    // while c, try, A, break, catch, continue, end, end, B
    const NodeView clause = named("K", catchClause({}, {named("N", continueStatement())}));
    const NodeView body =
        named("T", tryStatement({step("A"), named("X", breakStatement())}, clause));
    EXPECT_THAT(edges({named("W", whileLoop(id("c"), {body})), step("B")}),
                UnorderedElementsAre("entry -> W", "W -> T", "T -> A", "A -> X", "X -> B", "T -> K",
                                     "A -> K", "K -> N", "N -> W", "W -> B", "B -> exit"));
}

TEST_F(FlowRules, TryWithoutCatchAtTheEndOfALoopFlowsBackFromEveryFailure) {
    // while c, try, A, B, end, end
    EXPECT_THAT(
        edges({named("W", whileLoop(id("c"), {named("T", tryStatement({step("A"), step("B")}))}))}),
        UnorderedElementsAre("entry -> W", "W -> T", "T -> A", "A -> B", "T -> W", "A -> W",
                             "B -> W", "W -> exit"));
}

TEST_F(FlowRules, UnreachedStatementOfATryBodyStillLeadsToTheCatch) {
    // try, return, A, catch, end
    const NodeView clause = named("K", catchClause({}, {}));
    EXPECT_THAT(
        edges({named("T", tryStatement({named("R", returnStatement()), step("A")}, clause))}),
        UnorderedElementsAre("entry -> T", "T -> R", "R -> exit", "A -> exit", "T -> K", "A -> K",
                             "K -> exit"));
}

// Equations

TEST_F(FlowRules, SuccessorsJoinUnderMayAndMeetUnderMust) {
    const NodeView statement = named("I", ifStatement(id("c"), {step("A")}));
    const Nodes statements = {statement, step("B")};
    EXPECT_EQ(merge(statements, statement, MAY), "liveIn(A) U liveIn(B)");
    EXPECT_EQ(merge(statements, statement, MUST), "liveIn(A) & liveIn(B)");
}

TEST_F(FlowRules, TheWayBackIsConnectedBeforeTheWayOut) {
    const NodeView loop = named("W", whileLoop(id("c"), {}));
    EXPECT_EQ(merge({loop}, loop, MUST), "liveIn(W) & liveIn(exit)");
}

TEST_F(FlowRules, ExitAloneHasNoEquationForWhatIsLiveBehindIt) {
    const NodeView jump = named("R", returnStatement());
    const FlowDump::Analysis analysis(universe, block({jump, step("A")}), MAY, PLAIN, {}, nullptr);
    for (const FlowDump::Analysis::NodeVariables& node : analysis.nodes()) {
        EXPECT_EQ(analysis.equations().hasEquation(node.liveOut),
                  node.node.node != FakeAst::EXIT_NODE)
            << label(node.node);
    }
}

TEST_F(FlowRules, NodeIsLiveBeforeWhatIsLiveBehindLessItsWritesPlusItsReads) {
    // x = x + y, with z live behind
    const FlowDump::Analysis analysis(
        universe,
        block({assign(id("x"), add(id("x"), id("y"))), assign(id("a"), add(id("x"), id("z")))}),
        MAY, PLAIN, {}, nullptr);
    const FlowDump::Analysis::NodeVariables& first = analysis.nodes()[1];
    EXPECT_EQ(namesOf(first.gen->value()), "x y");
    EXPECT_EQ(namesOf(first.kill->value()), "x");
    EXPECT_EQ(namesOf(first.liveOut->value()), "x z");
    EXPECT_EQ(namesOf(first.liveIn->value()), "x y z");

    const auto* equation = analysis.equations().equationOf(first.liveIn);
    ASSERT_NE(equation, nullptr);
    ASSERT_EQ(equation->rightHandSide.size(), 3u);
    EXPECT_EQ(equation->rightHandSide[0], first.liveOut);
    EXPECT_NE(dynamic_cast<flow::Minus<FlowDump::Analysis::Value>*>(equation->rightHandSide[1]),
              nullptr);
    EXPECT_NE(dynamic_cast<flow::Join<FlowDump::Analysis::Value>*>(equation->rightHandSide[2]),
              nullptr);
}

TEST_F(FlowRules, PseudoNodesNeitherReadNorWrite) {
    const FlowDump::Analysis analysis(universe, block({}), MUST, PLAIN, {}, nullptr);
    ASSERT_EQ(analysis.nodes().size(), 2u);
    for (const FlowDump::Analysis::NodeVariables& node : analysis.nodes()) {
        EXPECT_TRUE(node.gen->value().isEmpty());
        EXPECT_TRUE(node.kill->value().isEmpty());
    }
}

// The worked example:
//
//     s = 0;             A
//     for k = 1:n        F
//         if c           I
//             break;     B
//         end
//         s = s + x(k);  S
//     end
//     y = s;             Y
class WorkedExample : public FlowRules {
protected:
    NodeView a = named("A", assign(id("s"), number()));
    NodeView b = named("B", breakStatement());
    NodeView i = named("I", ifStatement(id("c"), {b}));
    NodeView s = named("S", assign(id("s"), add(id("s"), paren(id("x"), {id("k")}))));
    NodeView f = named("F", forLoop(id("k"), colonOperation(number(), {}, id("n")), {i, s}));
    NodeView y = named("Y", assign(id("y"), id("s")));
    Nodes body = {a, f, y};
};

TEST_F(WorkedExample, Edges) {
    EXPECT_THAT(edges(body),
                UnorderedElementsAre("entry -> A", "A -> F", "F -> I", "I -> B", "I -> S", "S -> F",
                                     "F -> Y", "B -> Y", "Y -> exit"));
    EXPECT_EQ(merge(body, i, MAY), "liveIn(B) U liveIn(S)");
    EXPECT_EQ(merge(body, f, MAY), "liveIn(I) U liveIn(Y)");
    EXPECT_EQ(merge(body, b, MAY), "liveIn(Y)");
}

TEST_F(WorkedExample, EffectsOfEachNode) {
    EXPECT_EQ(effects(a), "kill s");
    EXPECT_EQ(effects(f), "gen n kill k");
    EXPECT_EQ(effects(i), "gen c");
    EXPECT_EQ(effects(b), "");
    EXPECT_EQ(effects(s), "gen k s x kill s");
    EXPECT_EQ(effects(y), "gen s kill y");
}

TEST_F(WorkedExample, LiveAtEntry) {
    EXPECT_EQ(live(body, MAY), "c n x");
    EXPECT_EQ(live(body, MUST), "n");
}

} // namespace
} // namespace zt::orvex::testing
