#include "analysis/ControlFlowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace zt::orvex::testing {
namespace {

using flow::internal::Liveness;
using ::testing::UnorderedElementsAre;

class LivenessEquations : public ControlFlowFixture {};

TEST_F(LivenessEquations, SuccessorsJoinUnderMayAndMeetUnderMust) {
    const NodeView statement = named("I", ifStatement(id("c"), {step("A")}));
    const Nodes statements = {statement, step("B")};
    EXPECT_EQ(merge(statements, statement, MAY), "liveIn(A) U liveIn(B)");
    EXPECT_EQ(merge(statements, statement, MUST), "liveIn(A) & liveIn(B)");
}

TEST_F(LivenessEquations, BackEdgeIsMergedBeforeTheLoopExit) {
    const NodeView loop = named("W", whileLoop(id("c"), {}));
    EXPECT_EQ(merge({loop}, loop, MUST), "liveIn(W) & liveIn(exit)");
}

TEST_F(LivenessEquations, OnlyTheExitHasNoEquationForLiveOut) {
    const NodeView jump = named("R", returnStatement());
    const Liveness analysis(universe, block({jump, step("A")}), MAY, PLAIN, {}, nullptr);
    for (const Liveness::NodeVariables& node : analysis.nodes()) {
        EXPECT_EQ(analysis.equations().hasEquation(node.liveOut),
                  node.node.node != FakeAst::EXIT_NODE)
            << label(node.node);
    }
}

TEST_F(LivenessEquations, LiveInIsLiveOutMinusKillPlusGen) {
    // x = x + y, with z live after it
    const Liveness analysis(
        universe,
        block({assign(id("x"), add(id("x"), id("y"))), assign(id("a"), add(id("x"), id("z")))}),
        MAY, PLAIN, {}, nullptr);
    const Liveness::NodeVariables& first = analysis.nodes()[1];
    EXPECT_EQ(namesOf(first.gen->value()), "x y");
    EXPECT_EQ(namesOf(first.kill->value()), "x");
    EXPECT_EQ(namesOf(first.liveOut->value()), "x z");
    EXPECT_EQ(namesOf(first.liveIn->value()), "x y z");

    const auto* equation = analysis.equations().equationOf(first.liveIn);
    ASSERT_NE(equation, nullptr);
    ASSERT_EQ(equation->rightHandSide.size(), 3u);
    EXPECT_EQ(equation->rightHandSide[0], first.liveOut);
    EXPECT_NE(dynamic_cast<flow::Minus<Liveness::Value>*>(equation->rightHandSide[1]), nullptr);
    EXPECT_NE(dynamic_cast<flow::Join<Liveness::Value>*>(equation->rightHandSide[2]), nullptr);
}

TEST_F(LivenessEquations, PseudoNodesNeitherReadNorWrite) {
    const Liveness analysis(universe, block({}), MUST, PLAIN, {}, nullptr);
    ASSERT_EQ(analysis.nodes().size(), 2u);
    for (const Liveness::NodeVariables& node : analysis.nodes()) {
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
class WorkedExample : public ControlFlowFixture {
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

// A node with five successors. Each error inside is swallowed and leads to the statement after the
// try around it:
//
//     try                        T1
//         try                    T2
//             try                T3
//                 if y           I
//                     A
//                 else
//                     B
//                 end
//             end
//             C
//         end
//         D
//     end
//     E
//
// Each of A to E writes the variable of its own letter, and reads those of the other four and x.
class ManySuccessors : public ControlFlowFixture {
protected:
    NodeView writeAndReadTheOthers(const std::string& name, const std::string& written) {
        NodeView read = id("x");
        for (const char* other : {"a", "b", "c", "d", "e"})
            if (other != written) read = add(read, id(other));
        return named(name, assign(id(written), read));
    }

    NodeView i = named("I", ifStatement(id("y"), {writeAndReadTheOthers("A", "a")}, {},
                                        NodeView(elseClause({writeAndReadTheOthers("B", "b")}))));
    NodeView t2 = tryStatement({tryStatement({i}), writeAndReadTheOthers("C", "c")});
    Nodes body = {tryStatement({t2, writeAndReadTheOthers("D", "d")}),
                  writeAndReadTheOthers("E", "e")};

    std::string liveAfterI(Type type) {
        const Liveness liveness(universe, block(body), type, PLAIN, {}, nullptr);
        for (const Liveness::NodeVariables& node : liveness.nodes())
            if (node.node == i) return namesOf(node.liveOut->value());
        return "no node";
    }
};

TEST_F(ManySuccessors, AllMeetUnderMust) {
    EXPECT_EQ(merge(body, i, MUST), "liveIn(A) & liveIn(B) & liveIn(C) & liveIn(D) & liveIn(E)");
    EXPECT_EQ(liveAfterI(MUST), "x");
}

TEST_F(ManySuccessors, AllJoinUnderMay) {
    EXPECT_EQ(merge(body, i, MAY), "liveIn(A) U liveIn(B) U liveIn(C) U liveIn(D) U liveIn(E)");
    EXPECT_EQ(liveAfterI(MAY), "a b c d e x");
}

TEST_F(LivenessEquations, VariablesOfANodeAllHaveTheNameThatFamiliesGive) {
    const Liveness liveness(universe, block({step("A")}), MAY, PLAIN, {}, nullptr);
    for (const Liveness::NodeVariables& node : liveness.nodes()) {
        for (const auto* variable : {node.liveOut, node.gen, node.kill})
            EXPECT_EQ(variable->toString(), node.liveIn->toString());
    }
}

} // namespace
} // namespace zt::orvex::testing
