#include <zt_orvex/flow/SystemOfEquations.h>

#include "flow/ExpectThrows.h"
#include "flow/MaxLattice.h"
#include "flow/TestSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace zt::orvex::flow {
namespace {

using testing::expectThrows;

constexpr const char* LIMIT = "Maximum iterations exceeded in SystemOfEquations::solve";

using Solver = SystemTest;

TEST_F(Solver, EmptySystemTakesOneSweepOfNothing) {
    EXPECT_EQ(solve(), 1u);
    variable();
    EXPECT_EQ(solve(), 1u) << "a variable without an equation is no part of it";
}

TEST_F(Solver, ConstantTakesTwoSweeps) {
    IntVariable* const x = variable();
    add(x, {constant({1, 9})});
    EXPECT_EQ(solve(), 2u);
    EXPECT_EQ(valueOf(x), Indices({1, 9}));
}

TEST_F(Solver, RightHandSideExtendedBehindBuildIsEvaluatedWhole) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    add(x, {constant({1})});
    add(y, {constant({2})});
    const auto system = builder.build();
    EXPECT_EQ(system->solve(), 2u);
    builder.extendEquation(y, {join(x)});
    system->solve();
    EXPECT_EQ(valueOf(y), Indices({1, 2}));
}

TEST_F(Solver, EmptyConstantTakesOneSweep) {
    IntVariable* const x = variable();
    add(x, {constant({})});
    EXPECT_EQ(solve(), 1u);
    EXPECT_EQ(valueOf(x), Indices());
}

TEST_F(Solver, VariableWithoutEquationKeepsItsValue) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    y->value() = setOf(universe, {3});
    add(x, {y, join(variable())});
    const auto system = builder.build();
    EXPECT_EQ(system->equations().size(), 1u);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(system->solve(), 2u);
        EXPECT_EQ(valueOf(x), Indices({3}));
        EXPECT_EQ(valueOf(y), Indices({3}));
        EXPECT_TRUE(y->previousValue().isEmpty());
        EXPECT_EQ(y->currentHalf(), 0);
    }
}

TEST_F(Solver, VariableWithoutEquationIsReadAlikeInEverySweep) {
    IntVariable* const y = variable();
    y->value() = setOf(universe, {3});
    IntVariable* const a = variable();
    IntVariable* const b = variable();
    // b reaches a a sweep late, in which y still has to be what it was.
    add(a, {y, join(b)});
    add(b, {constant({1}), join(a), join(y)});
    solve();
    EXPECT_EQ(valueOf(a), Indices({1, 3}));
    EXPECT_EQ(valueOf(b), Indices({1, 3}));
}

TEST_F(Solver, IndependentEquationsGiveTheSameInEitherOrder) {
    for (const bool xFirst : {true, false}) {
        IntVariable* const x = variable();
        IntVariable* const y = variable();
        const Terms one = {constant({1})};
        const Terms two = {constant({2})};
        add(xFirst ? x : y, xFirst ? one : two);
        add(xFirst ? y : x, xFirst ? two : one);
        EXPECT_EQ(solve(), 2u);
        EXPECT_EQ(valueOf(x), Indices({1}));
        EXPECT_EQ(valueOf(y), Indices({2}));
    }
}

TEST_F(Solver, EquationThatSettlesDoesNotHideOneThatChanged) {
    for (const bool changingFirst : {true, false}) {
        IntBuilder own(lattice, nullptr);
        IntVariable* const changing = own.createVariable("");
        IntVariable* const quiet = own.createVariable("");
        const auto addChanging = [&] {
            own.addEquation(changing, {own.createConstant(setOf(universe, {1}))});
        };
        if (changingFirst) addChanging();
        own.addEquation(quiet, {own.createConstant(setOf(universe, {}))});
        if (!changingFirst) addChanging();
        EXPECT_EQ(own.build()->solve(), 2u);
    }
}

TEST_F(Solver, CycleWithoutInputStaysAtBottom) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    add(x, {y});
    add(y, {x});
    EXPECT_EQ(solve(), 1u);
    EXPECT_EQ(valueOf(x), Indices());
    EXPECT_EQ(valueOf(y), Indices());
}

TEST_F(Solver, EarlierContentsDoNotFeedACycle) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    x->value() = setOf(universe, {4});
    y->value() = setOf(universe, {4});
    add(x, {y});
    add(y, {x});
    EXPECT_EQ(solve(), 1u) << "the active halves begin at bottom";
    EXPECT_EQ(valueOf(x), Indices());
}

TEST_F(Solver, ChainCreatedInAnyOrderTakesTwoSweeps) {
    std::array<int, 5> order = {0, 1, 2, 3, 4};
    do {
        IntBuilder own(lattice, nullptr);
        std::vector<IntVariable*> links;
        for (int i = 0; i < 5; ++i)
            links.push_back(own.createVariable(""));
        for (const int i : order) {
            const auto link = static_cast<std::size_t>(i);
            if (i == 0) {
                own.addEquation(links[0], {own.createConstant(setOf(universe, {1}))});
            } else {
                own.addEquation(links[link], {links[link - 1]});
            }
        }
        ASSERT_EQ(own.build()->solve(), 2u);
        ASSERT_EQ(valueOf(links[4]), Indices({1}));
    } while (std::next_permutation(order.begin(), order.end()));
}

// Deliberate: the solver starts at bottom also where equations meet, so what is true on every path
// round a loop and out of it is still lost if it has to come in through the loop itself.
TEST_F(Solver, MeetInALoopIsSolvedFromBottom) {
    IntVariable* const head = variable();
    IntVariable* const body = variable();
    IntVariable* const exit = variable();
    add(exit, {constant({1})});
    add(head, {body, meet(exit)});
    add(body, {head});
    solve();
    EXPECT_EQ(valueOf(exit), Indices({1}));
    EXPECT_EQ(valueOf(head), Indices()) << "the greatest solution would be {1}";
    EXPECT_EQ(valueOf(body), Indices());
}

// Deliberate: the variable's `current` is flipped before its right-hand side is evaluated.
TEST_F(Solver, VariableReadsItsOwnHalfThatIsBeingWritten) {
    IntVariable* const x = variable();
    IntVariable* const p = variable();
    IntVariable* const q = variable();
    // p comes and goes from sweep to sweep. If x kept what it had it would hold on to it.
    add(p, {constant({1}), minus(q)});
    add(q, {p});
    add(x, {p, join(x)});
    EXPECT_THROW(solve(), std::logic_error);
    EXPECT_EQ(x->value(), p->value());
    EXPECT_NE(x->value(), x->previousValue()) << "[p, Join x] is simply p";
}

TEST_F(Solver, VariableMinusItselfIsEmpty) {
    IntVariable* const x = variable();
    add(x, {constant({1}), minus(x)});
    EXPECT_EQ(solve(), 1u);
    EXPECT_EQ(valueOf(x), Indices());
}

TEST_F(Solver, SelfReferenceFirstStartsFromTheValueOfTwoSweepsAgo) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    y->value() = setOf(universe, {1});
    add(x, {x, join(y)});
    const auto system = builder.build();
    EXPECT_EQ(system->solve(), 2u);
    EXPECT_EQ(valueOf(x), Indices({1}));
    EXPECT_EQ(system->solve(), 2u);
    EXPECT_EQ(valueOf(x), Indices({1}));
    // Only the active half is cleared; the other still holds {1}. So the two halves never agree.
    y->value() = setOf(universe, {2});
    expectThrows<std::logic_error>([&] { system->solve(); }, LIMIT);
    EXPECT_EQ(valueOf(x), Indices({2}));
    EXPECT_EQ(indicesOf(x->previousValue()), Indices({1, 2}));
}

TEST_F(Solver, SelfReferenceFirstReadsWhatTheSecondHalfHeldFromCreation) {
    internal::Factory<IntSet> factory;
    IntVariable* const x = factory.createVariable("x", setOf(universe, {5}));
    IntVariable* const y = variable();
    y->value() = setOf(universe, {5});
    add(x, {x, join(y)});
    EXPECT_EQ(solve(), 2u);
    EXPECT_EQ(valueOf(x), Indices({5}));
    y->value().clear();
    x->value().clear();
    expectThrows<std::logic_error>([&] { solve(); }, LIMIT);
    EXPECT_EQ(valueOf(x), Indices());
    EXPECT_EQ(indicesOf(x->previousValue()), Indices({5}));
}

TEST_F(Solver, EquationsSeeValuesOfTheSameSweep) {
    std::vector<IntVariable*> links = {variable()};
    add(links[0], {constant({1})});
    for (int i = 1; i < 500; ++i) {
        links.push_back(variable());
        add(links.back(), {links[links.size() - 2]});
    }
    EXPECT_EQ(solve(), 2u) << "with values of the last sweep it would be 501";
    EXPECT_EQ(valueOf(links.back()), Indices({1}));
}

TEST_F(Solver, OscillationEndsAtTheThousandthSweep) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    add(x, {constant({1}), minus(y)});
    add(y, {x});
    const auto system = builder.build();
    ASSERT_EQ(system->equations()[0]->variable, y);
    expectThrows<std::logic_error>([&] { system->solve(); }, LIMIT);
    // Sweep by sweep y is {}, {1}, {}, {1} and so on, and x the opposite.
    EXPECT_EQ(valueOf(y), Indices({1}));
    EXPECT_EQ(valueOf(x), Indices());
    EXPECT_EQ(indicesOf(y->previousValue()), Indices());
    EXPECT_EQ(indicesOf(x->previousValue()), Indices({1}));
    EXPECT_EQ(x->currentHalf(), 0) << "a thousand flips";
    EXPECT_EQ(y->currentHalf(), 0);
}

TEST_F(Solver, FailureDoesNotSwitchTheHalvesBack) {
    IntVariable* const x = variable();
    add(x, {constant({})});
    EXPECT_EQ(solve(), 1u);
    EXPECT_EQ(x->currentHalf(), 1);
    IntVariable* const y = variable();
    add(y, {constant({1}), minus(x)});
    extend(x, {join(y)});
    // x = y and y = {1} - x
    expectThrows<std::logic_error>([&] { solve(); }, LIMIT);
    EXPECT_EQ(x->currentHalf(), 1);
    EXPECT_NE(x->value(), x->previousValue());
}

TEST_F(Solver, SystemThatFailedCanBeSolvedOnceItsInputAllowsIt) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    IntVariable* const input = variable();
    input->value() = setOf(universe, {1});
    add(x, {input, minus(y)});
    add(y, {x});
    const auto system = builder.build();
    expectThrows<std::logic_error>([&] { system->solve(); }, LIMIT);
    input->value().clear();
    EXPECT_EQ(system->solve(), 1u);
    EXPECT_EQ(valueOf(x), Indices());
    EXPECT_EQ(valueOf(y), Indices());
}

TEST_F(Solver, SolvingAgainStartsOverAndGivesTheSame) {
    IntVariable* const a = variable();
    IntVariable* const b = variable();
    IntVariable* const c = variable();
    add(a, {b, join(c)});
    add(b, {constant({1, 2}), minus(c), join(a)});
    add(c, {constant({2, 3}), meet(a)});
    const auto system = builder.build();
    const std::uint64_t sweeps = system->solve();
    const Indices ofA = valueOf(a);
    const Indices ofB = valueOf(b);
    const Indices ofC = valueOf(c);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(system->solve(), sweeps);
        EXPECT_EQ(valueOf(a), ofA);
        EXPECT_EQ(valueOf(b), ofB);
        EXPECT_EQ(valueOf(c), ofC);
    }
}

TEST_F(Solver, NewInputReplacesTheOldSolution) {
    IntVariable* const input = variable();
    IntVariable* const a = variable();
    IntVariable* const b = variable();
    add(a, {input, join(b)});
    add(b, {a});
    const auto system = builder.build();
    input->value() = setOf(universe, {1});
    system->solve();
    EXPECT_EQ(valueOf(b), Indices({1}));
    input->value() = setOf(universe, {2});
    system->solve();
    EXPECT_EQ(valueOf(b), Indices({2})) << "nothing of the old value goes round in the loop";
}

TEST_F(Solver, EvaluationAppliesTermsWithoutSwitchingHalves) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    y->value() = setOf(universe, {2});
    add(x, {constant({1}), join(y)});
    const auto system = builder.build();
    system->evaluateRightHandSide(*x, builder.equationOf(x)->rightHandSide);
    EXPECT_EQ(valueOf(x), Indices({1, 2}));
    EXPECT_TRUE(x->previousValue().isEmpty());
    EXPECT_EQ(x->currentHalf(), 0);
    // Onto another variable than the equation's own, too.
    system->evaluateRightHandSide(*y, builder.equationOf(x)->rightHandSide);
    EXPECT_EQ(valueOf(y), Indices({1})) << "it joins itself after it was assigned";
}

TEST_F(Solver, UniverseMayGrowBetweenBuildAndSolve) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    add(x, {constant({1, 9})});
    add(y, {x, minus(variable()), join(x), meet(x)});
    const auto system = builder.build();
    for (const int size : {11, 64, 65, 300}) {
        growTo(universe, size);
        EXPECT_EQ(system->solve(), 2u);
        EXPECT_EQ(valueOf(y), Indices({1, 9}));
    }
}

/// v(0) reads a constant and v(1); each other link reads its two neighbours. The search starts from
/// the first, so the order runs against the way that the constant takes: it climbs one link in a
/// sweep.
std::vector<IntVariable*> addClimb(IntBuilder& builder, const IntSet& constant,
                                   std::size_t length) {
    std::vector<IntVariable*> links;
    for (std::size_t i = 0; i < length; ++i)
        links.push_back(builder.createVariable(""));
    for (std::size_t i = 0; i < length; ++i) {
        if (i == 0) {
            builder.addEquation(links[0], {builder.createConstant(constant)});
        } else {
            builder.addEquation(links[i], {links[i - 1]});
        }
        if (i + 1 < length) builder.extendEquation(links[i], {builder.createJoin(links[i + 1])});
    }
    return links;
}

TEST_F(Solver, ValueThatRunsAgainstTheOrderTakesASweepForEachStep) {
    for (const std::size_t length : {1u, 2u, 3u, 10u, 500u}) {
        IntBuilder own(lattice, nullptr);
        const auto links = addClimb(own, setOf(universe, {1}), length);
        EXPECT_EQ(own.build()->solve(), length + 1);
        EXPECT_EQ(valueOf(links.back()), Indices({1}));
    }
}

TEST_F(Solver, SystemThatSettlesInExactly999SweepsSucceeds) {
    const auto links = addClimb(builder, setOf(universe, {1}), 998);
    const auto system = builder.build();
    EXPECT_EQ(system->solve(), 999u);
    for (const IntVariable* link : links)
        ASSERT_EQ(valueOf(link), Indices({1}));
    EXPECT_EQ(system->solve(), 999u) << "again";
}

// Deliberate: the limit looks at the count alone.
TEST_F(Solver, ThousandthSweepFailsThoughItChangesNothing) {
    const auto links = addClimb(builder, setOf(universe, {1}), 999);
    const auto system = builder.build();
    expectThrows<std::logic_error>([&] { system->solve(); }, LIMIT);
    for (const IntVariable* link : links) {
        ASSERT_EQ(valueOf(link), Indices({1})) << "the solution is complete";
        ASSERT_EQ(indicesOf(link->previousValue()), Indices({1})) << "and the last sweep quiet";
    }
}

TEST_F(Solver, LimitStopsASystemThatWouldSettleLater) {
    const auto links = addClimb(builder, setOf(universe, {1}), 1200);
    expectThrows<std::logic_error>([&] { solve(); }, LIMIT);
    EXPECT_EQ(valueOf(links[999]), Indices({1})) << "reached by the thousandth sweep";
    EXPECT_EQ(valueOf(links[1000]), Indices());
}

} // namespace
} // namespace zt::orvex::flow
