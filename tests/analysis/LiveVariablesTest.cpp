#include "analysis/AnalysisFixture.h"

#include <zt_orvex/analysis/AnsAnalysis.h>
#include <zt_orvex/analysis/LiveVariables.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace zt::orvex::testing {
namespace {

using ::testing::ThrowsMessage;

class LiveVariables : public AnalysisFixture {
protected:
    ParforStatementView parfor(const Nodes& body) { return parforLoop(id("k"), id("n"), body); }

    std::string temporary(const Nodes& body) {
        return namesOf(flow::computeLiveAsTemporaryVariables(parfor(body), universe, nullptr));
    }
    std::string maybeTemporary(const Nodes& body) {
        return namesOf(flow::computeMaybeLiveAsTemporaryVariables(parfor(body), universe, nullptr));
    }
    std::string notSliced(const Nodes& body) {
        return namesOf(flow::computeNotLiveAsSlicedVariables(parfor(body), universe, nullptr));
    }
    std::string outputs(const Nodes& body) {
        return namesOf(flow::computeSpmdOutputVariables(spmd(body), universe, nullptr));
    }
};

TEST_F(LiveVariables, EachHasItsTypeModeAndResult) {
    universe = Universe();
    fill(universe, "a b c x y untouched");
    const auto body = [&] {
        return Nodes{assign(id("y"), id("x")), ifStatement(shortCircuitAnd(id("c"), id("a")), {}),
                     assign(paren(id("b"), {number()}), number())};
    };
    EXPECT_EQ(temporary(body()), "c x");           // Must, Plain, live
    EXPECT_EQ(maybeTemporary(body()), "a b c x");  // May, Plain, live
    EXPECT_EQ(notSliced(body()), "b untouched y"); // May, Sliced, not live
    EXPECT_EQ(outputs(body()), "untouched y");     // May, Plain, not live
}

TEST_F(LiveVariables, EmptyBody) {
    universe = Universe();
    fill(universe, "x y");
    EXPECT_EQ(temporary({}), "");
    EXPECT_EQ(maybeTemporary({}), "");
    EXPECT_EQ(notSliced({}), "x y");
    EXPECT_EQ(outputs({}), "x y");
}

TEST_F(LiveVariables, EmptyUniverse) {
    universe = Universe();
    const auto body = [&] { return Nodes{assign(id("x"), id("y"))}; };
    EXPECT_EQ(temporary(body()), "");
    EXPECT_EQ(maybeTemporary(body()), "");
    EXPECT_EQ(notSliced(body()), "");
    EXPECT_EQ(outputs(body()), "");
}

TEST_F(LiveVariables, HeadOfTheConstructTakesNoPart) {
    universe = Universe();
    fill(universe, "k n a");
    const auto parallel = [&] { return parforLoop(id("k"), id("n"), {}, {id("a")}); };
    EXPECT_TRUE(flow::computeLiveAsTemporaryVariables(parallel(), universe, nullptr).empty());
    EXPECT_TRUE(flow::computeMaybeLiveAsTemporaryVariables(parallel(), universe, nullptr).empty());
    EXPECT_EQ(namesOf(flow::computeNotLiveAsSlicedVariables(parallel(), universe, nullptr)),
              "a k n");
    EXPECT_EQ(namesOf(flow::computeSpmdOutputVariables(spmd({}, {id("a")}), universe, nullptr)),
              "a k n");
}

TEST_F(LiveVariables, PartialWriteIsAReadForMaybeAndAWriteForCertain) {
    universe = Universe();
    fill(universe, "x");
    const auto body = [&] { return Nodes{assign(paren(id("x"), {id("k")}), number())}; };
    EXPECT_EQ(maybeTemporary(body()), "x");
    EXPECT_EQ(temporary(body()), "");
    EXPECT_EQ(outputs(body()), "");
}

TEST_F(LiveVariables, SlicedWriteIsWholeUnlessANestedForVariableIndexesIt) {
    universe = Universe();
    fill(universe, "x");
    // The variable of the parfor itself is not one of them.
    EXPECT_EQ(notSliced({assign(paren(id("x"), {id("k")}), number())}), "x");
    EXPECT_EQ(
        notSliced({forLoop(id("i"), number(), {assign(paren(id("x"), {id("i")}), number())})}), "");
    EXPECT_EQ(
        notSliced({forLoop(id("i"), number(), {assign(paren(id("x"), {id("j")}), number())})}),
        "x");
}

TEST_F(LiveVariables, ForVariablesAreGatheredAtAnyDepthAndAnyPlace) {
    universe = Universe();
    fill(universe, "x");
    const auto write = [&] { return assign(paren(id("x"), {id("i")}), number()); };
    const auto loop = [&] { return forLoop(id("i"), number(), {}); };
    EXPECT_EQ(notSliced({write(), loop()}), ""); // after the write, too
    EXPECT_EQ(notSliced({write(), ifStatement(id("c"), {loop()})}), "");
    EXPECT_EQ(notSliced({write(), ifStatement(id("c"), {}, {}, NodeView(elseClause({loop()})))}),
              "");
    EXPECT_EQ(notSliced({write(), tryStatement({}, NodeView(catchClause({}, {loop()})))}), "");
    EXPECT_EQ(notSliced({write(), tryStatement({loop()})}), "");
    EXPECT_EQ(notSliced({write(), parforLoop(id("m"), number(), {loop()})}), "");
    EXPECT_EQ(notSliced({write(), forLoop(id("j"), number(), {whileLoop(id("c"), {loop()})})}), "");
    EXPECT_EQ(notSliced({write(), spmd({loop()})}), "");
    EXPECT_EQ(notSliced({write(), returnStatement(), loop()}), "");
}

TEST_F(LiveVariables, VariablesOfNestedParforsAreNotGathered) {
    universe = Universe();
    fill(universe, "x");
    EXPECT_EQ(
        notSliced({assign(paren(id("x"), {id("i")}), number()), parforLoop(id("i"), number(), {})}),
        "x");
}

TEST_F(LiveVariables, VariableThatTheBodyNeverTouchesIsNotLive) {
    universe = Universe();
    fill(universe, "untouched y");
    EXPECT_EQ(notSliced({assign(id("x"), id("y"))}), "untouched");
    EXPECT_EQ(outputs({assign(id("x"), id("y"))}), "untouched");
}

TEST_F(LiveVariables, CertainResultLeavesOutAVariableReadOnlyAfterALoop) {
    universe = Universe();
    fill(universe, "x");
    EXPECT_EQ(temporary({forLoop(id("i"), number(), {}), assign(id("y"), id("x"))}), "");
    EXPECT_EQ(maybeTemporary({forLoop(id("i"), number(), {}), assign(id("y"), id("x"))}), "x");
}

TEST_F(LiveVariables, ImplicitWriteOfAnsCountsForTheCertainResultOnly) {
    universe = Universe();
    fill(universe, "ans");
    const auto body = [&] {
        return Nodes{expressionStatement(id("ans"), number()), assign(id("y"), id("ans"))};
    };
    EXPECT_EQ(temporary(body()), "");
    EXPECT_EQ(maybeTemporary(body()), "ans");
    EXPECT_EQ(notSliced(body()), "");
    EXPECT_EQ(outputs(body()), "");
}

TEST_F(LiveVariables, ErrorsPassThrough) {
    const NodeView twice = assign(id("x"), id("y"));
    const auto message =
        ThrowsMessage<std::invalid_argument>("Equation already exists for this variable");
    EXPECT_THAT([&] { temporary({twice, twice}); }, message);
    EXPECT_THAT([&] { maybeTemporary({twice, twice}); }, message);
    EXPECT_THAT([&] { notSliced({twice, twice}); }, message);
    EXPECT_THAT([&] { outputs({twice, twice}); }, message);
}

TEST_F(LiveVariables, NodePrinterIsNeverCalled) {
    int calls = 0;
    const auto printer = [&](NodeView) {
        ++calls;
        return std::string();
    };
    const auto body = [&] { return Nodes{assign(id("x"), id("y"))}; };
    flow::computeLiveAsTemporaryVariables(parfor(body()), universe, printer);
    flow::computeMaybeLiveAsTemporaryVariables(parfor(body()), universe, printer);
    flow::computeNotLiveAsSlicedVariables(parfor(body()), universe, printer);
    flow::computeSpmdOutputVariables(spmd(body()), universe, printer);
    flow::isAnsPossiblyReadBeforeBeingWritten(parfor(body()), symbol("ans"), printer);
    flow::isAnsPossiblyReadBeforeBeingWritten(spmd(body()), symbol("ans"), printer);
    EXPECT_EQ(calls, 0);
}

} // namespace
} // namespace zt::orvex::testing
