// The evaluator of sets against the evaluator of terms, which is the meaning.

#include <zt_orvex/flow/internal/BitSetEvaluator.h>

#include "flow/TestElements.h"
#include "flow/internal/EvaluatorTwins.h"
#include "testing/Random.h"

#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <type_traits>
#include <utility>

namespace zt::orvex::flow::internal {
namespace {

using testing::Random;
using testing::rounds;

using Set = BitSet<int>;
using Indices = std::set<int>;
using Sets = PowerSetLattice<int>;

static_assert(std::is_same_v<EvaluatorFor<Sets>::Type, BitSetEvaluator<int>>);
static_assert(std::is_same_v<EvaluatorFor<CallersLattice>::Type, TermEvaluator<CallersLattice>>);

TEST(BitSetEvaluatorRandom, AgreesWithTheTermsThroughEveryMishap) {
    Random random;
    SCOPED_TRACE(random.describe());
    struct Universe {
        int size;
        std::size_t systems;
    };
    for (const auto [size, systems] :
         {Universe{1, 150}, Universe{63, 200}, Universe{64, 200}, Universe{65, 200},
          Universe{193, 200}, Universe{256, 200}, Universe{448, 150}, Universe{960, 100},
          Universe{1024, 100}, Universe{1700, 60}, Universe{140000, 2}}) {
        for (std::size_t i = 0; i < rounds(systems); ++i) {
            SCOPED_TRACE(std::to_string(size) + ", system " + std::to_string(i));
            EvaluatorTwins twins(random, size);
            ASSERT_NO_FATAL_FAILURE(twins.solveAndCompare());
            for (int round = 0; round < 6; ++round) {
                for (std::size_t mishaps = random.below(3); mishaps > 0; --mishaps)
                    twins.mishap();
                ASSERT_NO_FATAL_FAILURE(twins.solveAndCompare()) << "round " << round;
            }
        }
    }
}

/// in, without an equation, and x = [in], over 64 elements.
class InputTest : public ::testing::Test {
protected:
    InputTest() { builder.addEquation(x, {in}); }

    OrderedSet<int> universe = numbers(64);
    Sets lattice{universe};
    SystemOfEquationsBuilder<Sets> builder{lattice, nullptr};
    Variable<Set>* in = builder.createVariable("in");
    Variable<Set>* x = builder.createVariable("x");
};

TEST_F(InputTest, MovedInFromBeforeTheUniverseGrewIsReadWithinItsWords) {
    Set input = setOf(universe, {1});
    growTo(universe, 65);
    const auto system = builder.build();
    in->value() = std::move(input);
    system->solve();
    EXPECT_EQ(indicesOf(x->value()), Indices({1}));
}

TEST_F(InputTest, MovedOutBetweenSolutionsIsEmpty) {
    in->value() = setOf(universe, {1});
    const auto system = builder.build();
    system->solve();
    const Set taken = std::move(in->value());
    EXPECT_EQ(system->solve(), 1u);
    EXPECT_EQ(indicesOf(x->value()), Indices());
    EXPECT_EQ(indicesOf(taken), Indices({1}));
}

TEST_F(InputTest, ShrunkByAssignmentLosesWhatItHadBeyond) {
    const Set stale = setOf(universe, {1});
    growTo(universe, 65);
    in->value().add(number(64));
    const auto system = builder.build();
    lattice.assign(in->value(), stale);
    system->solve();
    EXPECT_EQ(indicesOf(x->value()), Indices({1}));
}

TEST_F(InputTest, SolutionCanBeMovedOutOfItsSystem) {
    const auto solution = [this] {
        SystemOfEquationsBuilder<Sets> own(lattice, nullptr);
        Variable<Set>* const y = own.createVariable("y");
        own.addEquation(y, {own.createConstant(setOf(universe, {1, 63}))});
        own.build()->solve();
        return std::move(y->value());
    };
    EXPECT_EQ(indicesOf(solution()), Indices({1, 63}));
}

TEST_F(InputTest, SystemOverNoElementsTakesOneSweep) {
    const OrderedSet<int> none;
    Sets sets(none);
    SystemOfEquationsBuilder<Sets> own(sets, nullptr);
    Variable<Set>* const y = own.createVariable("y");
    own.addEquation(y, {own.createConstant(Set(none)), own.createJoin(y)});
    EXPECT_EQ(own.build()->solve(), 1u);
    EXPECT_TRUE(y->value().isEmpty());
}

} // namespace
} // namespace zt::orvex::flow::internal
