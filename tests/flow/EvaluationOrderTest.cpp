#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

#include "flow/RandomSystem.h"
#include "flow/TestSystem.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace zt::orvex::flow {
namespace {

using testing::Random;
using testing::rounds;

class EvaluationOrder : public SystemTest {
protected:
    /// The names of the variables in the order of their equations.
    std::string order() {
        const auto system = builder.build();
        std::string text;
        for (const auto* equation : system->equations())
            text += equation->variable->toString();
        return text;
    }
};

TEST_F(EvaluationOrder, EquationComesAfterAllThatItReads) {
    IntVariable* const a = variable("a");
    IntVariable* const b = variable("b");
    IntVariable* const c = variable("c");
    IntVariable* const d = variable("d");
    add(d, {b, join(c)});
    add(b, {a});
    add(a, {constant({1})});
    add(c, {a, minus(b)});
    EXPECT_EQ(order(), "abcd");
}

TEST_F(EvaluationOrder, IndependentEquationsComeInOrderOfCreation) {
    for (const char* name : {"a", "b", "c"})
        add(variable(name), {constant({1})});
    EXPECT_EQ(order(), "abc");
}

TEST_F(EvaluationOrder, CycleIsEnteredByItsOldestEquation) {
    IntVariable* const a = variable("a");
    IntVariable* const b = variable("b");
    IntVariable* const c = variable("c");
    add(a, {c});
    add(b, {a});
    add(c, {b});
    EXPECT_EQ(order(), "bca");
}

// The equations of a backward analysis of s; while h, if i, b: break, end, m, end, y. They are
// created as a walk over the program would.
TEST_F(EvaluationOrder, LoopRunsAgainstTheOrderOnItsBackEdgeAlone) {
    std::map<std::string, IntVariable*> at;
    for (const char* name : {"s", "h", "i", "b", "m", "y"})
        at[name] = variable(name);
    add(at["s"], {at["h"]});
    add(at["h"], {at["i"], join(at["y"])});
    add(at["i"], {at["b"], join(at["m"])});
    add(at["m"], {at["h"]});
    add(at["b"], {at["y"]});
    add(at["y"], {constant({1})});
    EXPECT_EQ(order(), "ybmihs") << "m alone comes before what it reads";
}

TEST_F(EvaluationOrder, EquationThatNoOtherReadsIsWhereTheSearchBegins) {
    IntVariable* const a = variable("a");
    IntVariable* const b = variable("b");
    IntVariable* const end = variable("e");
    add(a, {b});
    add(b, {a});
    add(end, {b});
    EXPECT_EQ(order(), "abe") << "so b is entered first, though a is older";
}

TEST_F(EvaluationOrder, ConstantEquationsComeFirst) {
    IntVariable* const a = variable("a");
    IntVariable* const b = variable("b");
    IntVariable* const c = variable("c");
    IntVariable* const d = variable("d");
    add(a, {b});
    add(b, {c});
    add(c, {constant({1})});
    add(d, {constant({1}), minus(variable("without an equation"))});
    EXPECT_EQ(order(), "cdba");
}

TEST_F(EvaluationOrder, SelfReferenceDoesNotMoveAnEquation) {
    IntVariable* const a = variable("a");
    IntVariable* const b = variable("b");
    add(a, {a});
    add(b, {a, join(b)});
    EXPECT_EQ(order(), "ab");
}

TEST_F(EvaluationOrder, VariablesWithoutEquationsTakeNoPart) {
    IntVariable* const a = variable("a");
    IntVariable* const b = variable("b");
    add(b, {a, join(variable("x")), minus(variable("y"))});
    EXPECT_EQ(order(), "b");
}

TEST_F(EvaluationOrder, CreationOfVariablesDoesNotMatterOnlyThatOfEquations) {
    IntVariable* const b = variable("b");
    IntVariable* const a = variable("a");
    add(a, {b});
    add(b, {a});
    EXPECT_EQ(order(), "ba");
}

TEST(EvaluationOrderRandom, AgreesWithPlainRecursion) {
    Random random;
    SCOPED_TRACE(random.describe());
    const OrderedSet<int> universe = numbers(128);
    IntLattice lattice(universe);
    for (std::size_t round = 0; round < rounds(500); ++round) {
        const PlainSystem plain =
            randomSystem(random, random.between(1, random.oneIn(9) ? 90 : 12));
        const BuiltSystem built(plain, universe, lattice);
        ASSERT_EQ(built.evaluationOrder(), plain.evaluationOrder()) << "round " << round;
    }
}

TEST(EvaluationOrderRandom, DoesNotDependOnAddresses) {
    Random random;
    SCOPED_TRACE(random.describe());
    const OrderedSet<int> universe = numbers(128);
    IntLattice lattice(universe);
    for (std::size_t round = 0; round < rounds(30); ++round) {
        const PlainSystem plain = randomSystem(random, 60);
        std::vector<std::unique_ptr<char[]>> garbage;
        std::vector<std::unique_ptr<BuiltSystem>> built;
        for (int layout = 0; layout < 8; ++layout) {
            // Earlier systems and blocks of odd sizes stay alive, so that everything lies
            // elsewhere.
            garbage.emplace_back(new char[random.between(1, 100000)]);
            built.push_back(std::make_unique<BuiltSystem>(plain, universe, lattice));
            ASSERT_EQ(built.back()->evaluationOrder(), built.front()->evaluationOrder());
        }
        const std::uint64_t sweeps = built.front()->solve();
        for (std::size_t layout = 1; layout < built.size(); ++layout) {
            ASSERT_EQ(built[layout]->solve(), sweeps);
            for (std::size_t i = 0; i < plain.variables.size(); ++i) {
                ASSERT_EQ(built[layout]->valueOf(i), built.front()->valueOf(i));
            }
        }
    }
}

/// Sets of two words, and of so many that they are gone over in another way: a multiple of all that
/// a loop takes at once, and not.
class SolverRandom : public ::testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Sizes, SolverRandom, ::testing::Values(128, 1024, 1700));

TEST_P(SolverRandom, AgreesWithPlainSolverInValuesAndSweeps) {
    Random random;
    SCOPED_TRACE(random.describe());
    const OrderedSet<int> universe = numbers(GetParam());
    IntLattice lattice(universe);
    std::size_t solved = 0;
    std::size_t failed = 0;
    std::uint64_t most = 0;
    for (std::size_t round = 0; round < rounds(1500); ++round) {
        PlainSystem plain = randomSystem(random, random.between(1, random.oneIn(9) ? 60 : 12));
        BuiltSystem built(plain, universe, lattice);
        // The second time the halves hold what the first left there.
        for (int time = 0; time < 2; ++time) {
            const std::uint64_t sweeps = plain.solve();
            ASSERT_EQ(built.solve(), sweeps) << "round " << round << ", time " << time;
            for (std::size_t i = 0; i < plain.variables.size(); ++i) {
                ASSERT_EQ(built.valueOf(i), plain.variables[i].value())
                    << "round " << round << ", time " << time << ", variable " << i;
            }
            ++(sweeps == 0 ? failed : solved);
            most = std::max(most, sweeps);
        }
    }
    EXPECT_GT(solved, failed) << "a test of failures only would say little";
    EXPECT_GT(failed, 0u);
    EXPECT_GT(most, 9u) << "some have to take many sweeps";
}

/// Loops in a row, as a backward analysis writes them in source order: `liveIn` of a node reads its
/// `liveOut`, `liveOut` reads `liveIn` of the successors. One element is read after the last loop.
PlainSystem loopsInARow(int loops) {
    PlainSystem plain;
    std::vector<int> liveIn;
    std::vector<int> liveOut;
    std::vector<std::size_t> equationOfLiveOut;
    constexpr std::size_t NONE = ~std::size_t{0};
    const auto connect = [&](std::size_t from, std::size_t to) {
        if (equationOfLiveOut[from] == NONE) {
            equationOfLiveOut[from] = plain.equations.size();
            plain.addEquation(liveOut[from], {PlainSystem::variable(liveIn[to])});
        } else {
            plain.equations[equationOfLiveOut[from]].terms.push_back(PlainSystem::join(liveIn[to]));
        }
    };
    const auto enter = [&](const PlainSystem::Value& reads) {
        const int gen = plain.addVariable();
        const int kill = plain.addVariable();
        liveIn.push_back(plain.addVariable());
        liveOut.push_back(plain.addVariable());
        equationOfLiveOut.push_back(NONE);
        plain.addEquation(gen, {PlainSystem::constant(reads)});
        plain.addEquation(kill, {PlainSystem::constant({})});
        plain.addEquation(liveIn.back(), {PlainSystem::variable(liveOut.back()),
                                          PlainSystem::minus(kill), PlainSystem::join(gen)});
        return liveIn.size() - 1;
    };
    std::size_t previous = enter({});
    for (int i = 0; i < loops; ++i) {
        const std::size_t head = enter({});
        connect(previous, head);
        const std::size_t body = enter({});
        connect(head, body);
        connect(body, head);
        previous = head;
    }
    connect(previous, enter(PlainSystem::Value(2)));
    return plain;
}

TEST(EvaluationOrderLarge, LoopsInARowTakeFewSweeps) {
    const OrderedSet<int> universe = numbers(3);
    IntLattice lattice(universe);
    for (const int loops : {1, 10, 2000}) {
        SCOPED_TRACE(loops);
        BuiltSystem built(loopsInARow(loops), universe, lattice);
        const std::uint64_t sweeps = built.solve();
        EXPECT_GE(sweeps, 2u);
        EXPECT_LE(sweeps, 4u);
        const std::size_t liveInOfEntry = 2;
        EXPECT_EQ(built.valueOf(liveInOfEntry), PlainSystem::Value(2)) << "through all loops";
    }
}

TEST(EvaluationOrderLarge, LoopsInARowAgreeWithPlainSolver) {
    const OrderedSet<int> universe = numbers(3);
    IntLattice lattice(universe);
    PlainSystem plain = loopsInARow(200);
    BuiltSystem built(plain, universe, lattice);
    EXPECT_EQ(built.evaluationOrder(), plain.evaluationOrder());
    EXPECT_EQ(built.solve(), plain.solve());
    for (std::size_t i = 0; i < plain.variables.size(); ++i) {
        ASSERT_EQ(built.valueOf(i), plain.variables[i].value());
    }
}

} // namespace
} // namespace zt::orvex::flow
