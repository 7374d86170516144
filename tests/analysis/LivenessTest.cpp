#include "analysis/AnalysisFixture.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>

#include <gtest/gtest.h>

#include <string>

namespace zt::orvex::testing {
namespace {

class Liveness : public AnalysisFixture {};

TEST_F(Liveness, VariableReadAndWrittenByOneStatementIsLive) {
    // x = x + 1
    EXPECT_EQ(live({assign(id("x"), add(id("x"), number()))}, MAY), "x");
    EXPECT_EQ(live({assign(id("x"), add(id("x"), number()))}, MUST), "x");
}

TEST_F(Liveness, VariableReadAfterAWriteIsNotLive) {
    EXPECT_EQ(live({assign(id("x"), number()), assign(id("y"), id("x"))}), "");
}

TEST_F(Liveness, NothingIsLiveAtTheEndOfTheRange) {
    EXPECT_EQ(live({assign(id("x"), number())}), "");
}

TEST_F(Liveness, VariableReadAfterALoopIsLiveUnderMayOnly) {
    // for k = 1:3, a = 1; end, y = x;
    const auto body = [&] {
        return Nodes{
            forLoop(id("k"), colonOperation(number(), {}, number()), {assign(id("a"), number())}),
            assign(id("y"), id("x"))};
    };
    EXPECT_EQ(live(body(), MUST), "");
    EXPECT_EQ(live(body(), MAY), "x");
}

TEST_F(Liveness, VariableReadAfterAParforIsLiveUnderMustAsWell) {
    const Nodes body = {parforLoop(id("k"), number(), {assign(id("a"), number())}),
                        assign(id("y"), id("x"))};
    EXPECT_EQ(live(body, MUST), "x");
}

TEST_F(Liveness, VariableReadByTheHeadOfALoopIsLiveUnderMust) {
    EXPECT_EQ(live({whileLoop(id("c"), {assign(id("c"), number())})}, MUST), "c");
}

TEST_F(Liveness, LoopVariableReadAfterTheLoopIsNotLiveBeforeIt) {
    EXPECT_EQ(live({forLoop(id("k"), id("n"), {}), assign(id("y"), id("k"))}), "n");
}

TEST_F(Liveness, LoopVariableOfANestedParforReadAfterItIsNotLiveBeforeIt) {
    EXPECT_EQ(live({parforLoop(id("k"), id("n"), {}), assign(id("y"), id("k"))}), "n");
}

TEST_F(Liveness, BodyOfALoopReadsWhatThePreviousIterationWrote) {
    // while c, y = x; x = 1; end
    EXPECT_EQ(live({whileLoop(id("c"), {assign(id("y"), id("x")), assign(id("x"), number())})}),
              "c x");
}

TEST_F(Liveness, ContinueInANestedParforLeadsToTheReadAfterIt) {
    // parfor k = n, if c, continue; end, x = 1; end, y = x;
    const Nodes body = {
        parforLoop(id("k"), id("n"),
                   {ifStatement(id("c"), {continueStatement()}), assign(id("x"), number())}),
        assign(id("y"), id("x"))};
    EXPECT_EQ(live(body, MAY), "c n x");
    EXPECT_EQ(live(body, MUST), "n");
}

TEST_F(Liveness, ReadOnOneBranchIsLiveUnderMayOnly) {
    const Nodes body = {ifStatement(id("c"), {assign(id("y"), id("x"))})};
    EXPECT_EQ(live(body, MAY), "c x");
    EXPECT_EQ(live(body, MUST), "c");
}

TEST_F(Liveness, ReadOnEveryBranchIsLiveUnderMust) {
    const Nodes body = {ifStatement(id("c"), {assign(id("y"), id("x"))}, {},
                                    NodeView(elseClause({assign(id("z"), id("x"))})))};
    EXPECT_EQ(live(body, MUST), "c x");
}

TEST_F(Liveness, ConditionOfAnElseIfIsReadOnSomePathsOnly) {
    const Nodes body = {ifStatement(id("a"), {}, {elseIfClause(id("b"), {})})};
    EXPECT_EQ(live(body, MAY), "a b");
    EXPECT_EQ(live(body, MUST), "a");
}

TEST_F(Liveness, FirstCaseIsAlwaysReadAndLaterOnesAreNot) {
    const Nodes body = {
        switchStatement(id("x"), {caseClause(id("a"), {}), caseClause(id("b"), {})})};
    EXPECT_EQ(live(body, MAY), "a b x");
    EXPECT_EQ(live(body, MUST), "a x");
}

TEST_F(Liveness, WriteInATryBodyCanThrowBeforeItHappens) {
    // try, x = 1; catch, y = x; end
    const Nodes body = {tryStatement({assign(id("x"), number())},
                                     NodeView(catchClause({}, {assign(id("y"), id("x"))})))};
    EXPECT_EQ(live(body, MAY), "x");
    EXPECT_EQ(live(body, MUST), "");
}

TEST_F(Liveness, CatchIdentifierIsWritten) {
    // try, y = 1; catch e, z = e; end
    EXPECT_EQ(
        live({tryStatement({assign(id("y"), number())},
                           NodeView(catchClause(NodeView(id("e")), {assign(id("z"), id("e"))})))}),
        "");
}

TEST_F(Liveness, CodeAfterAJumpDoesNotCount) {
    EXPECT_EQ(live({assign(id("x"), id("a")), returnStatement(), assign(id("y"), id("b"))}), "a");
}

TEST_F(Liveness, OptionsOfANestedParforAndSpmdAreRead) {
    EXPECT_EQ(live({parforLoop(id("k"), id("n"), {}, {id("a")}), spmd({}, {id("b")})}), "a b n");
}

TEST_F(Liveness, DeclarationsNeitherReadNorWrite) {
    EXPECT_EQ(
        live({global({id("x")}), persistent({id("y")}), assign(id("z"), add(id("x"), id("y")))}),
        "x y");
}

TEST_F(Liveness, UniverseOfManyWordsIsTracked) {
    universe = Universe();
    Nodes body;
    for (int i = 0; i < 300; ++i) {
        const std::string name = "v" + std::to_string(i);
        universe.add(symbol(name));
        body.push_back(i % 3 == 0 ? assign(number(), id(name)) : assign(id(name), number()));
    }
    flow::TransparentLiveVariablesAnalyzerView analyzer(universe, block(body), MUST, PLAIN,
                                                        nullptr);
    const Symbols found = analyzer.getVariablesLiveAtEntry();
    EXPECT_EQ(found.size(), 100u);
    for (int i = 0; i < 300; ++i)
        EXPECT_EQ(found.count(symbol("v" + std::to_string(i))), i % 3 == 0 ? 1u : 0u) << i;
}

} // namespace
} // namespace zt::orvex::testing
