// The evaluator of sets against the evaluator of terms, which is the meaning.

#include <zt_orvex/flow/internal/BitSetEvaluator.h>

#include "flow/TestElements.h"
#include "testing/Random.h"

#include <zt_orvex/flow/SystemOfEquationsBuilder.h>
#include <zt_orvex/flow/internal/BitSetAccess.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace zt::orvex::flow::internal {
namespace {

using testing::Random;
using testing::rounds;

using Set = BitSet<int>;
using Indices = std::set<int>;
using Sets = PowerSetLattice<int>;

/// The subsets of a universe as a lattice of the caller's, for which the framework has no evaluator
/// but that of terms.
class CallersLattice final : public Lattice<Set> {
public:
    explicit CallersLattice(const OrderedSet<int>& universe) : sets(universe) {}

    bool isLessOrEqual(const Set& a, const Set& b) const override {
        return sets.isLessOrEqual(a, b);
    }
    Set bottom() const override { return sets.bottom(); }
    void setToBottom(Set& value) const override { sets.setToBottom(value); }
    void assign(Set& target, const Set& source) const override { sets.assign(target, source); }
    void joinInto(Set& target, const Set& other) const override { sets.joinInto(target, other); }
    void meetInto(Set& target, const Set& other) const override { sets.meetInto(target, other); }
    void minusInto(Set& target, const Set& other) const override { sets.minusInto(target, other); }

private:
    Sets sets;
};

static_assert(std::is_same_v<EvaluatorFor<Sets>::Type, BitSetEvaluator<int>>);
static_assert(std::is_same_v<EvaluatorFor<CallersLattice>::Type, TermEvaluator<CallersLattice>>);

/// A term of the caller's: joins the value that its operand had in the sweep before.
class JoinPrevious final : public Term<Set> {
public:
    explicit JoinPrevious(Variable<Set>* from) : operand(from) {}

    void applyTo(Variable<Set>& target, const Lattice<Set>& lattice) const override {
        lattice.joinInto(target.value(), operand->previousValue());
    }
    void collectDependencies(DependencySet<Set>& out) override { out.insert(operand); }
    std::string toString() const override { return ""; }

private:
    Variable<Set>* operand;
};

/// One system over one lattice.
template <typename L>
struct System {
    System(const OrderedSet<int>& over, std::size_t variableCount)
        : universe(over), lattice(over), builder(lattice, nullptr) {
        for (std::size_t i = 0; i < variableCount; ++i)
            variables.push_back(builder.createVariable(""));
    }

    Set& valueOf(std::size_t variable) { return variables[variable]->value(); }

    /// The sweeps, or nothing where the limit is reached.
    std::optional<std::uint64_t> solve() {
        try {
            return system->solve();
        } catch (const std::logic_error&) {
            return {};
        }
    }

    const OrderedSet<int>& universe;
    L lattice;
    SystemOfEquationsBuilder<L> builder;
    std::vector<Variable<Set>*> variables;
    std::vector<std::unique_ptr<JoinPrevious>> foreignTerms;
    std::vector<Set> outside; // sets that values are exchanged with
    std::shared_ptr<SystemOfEquations<L>> system;
};

/// The same random system over both evaluators, and the same mishaps to both.
class Twins {
public:
    Twins(Random& source, int universeSize)
        : random(source), universe(numbers(universeSize)), compiled(universe, VARIABLES),
          applied(universe, VARIABLES) {
        for (std::size_t i = 0; i < VARIABLES; ++i)
            setValue(i);
        for (std::size_t i = 0; i < EQUATIONS; ++i)
            addEquation(i);
        for (std::size_t i = 0; i < 3; ++i) {
            const Indices members = randomIndices();
            onBoth([&](auto& twin) { twin.outside.push_back(setOf(universe, members)); });
        }
        onBoth([](auto& twin) { twin.system = twin.builder.build(); });
    }

    void mishap() {
        switch (random.below(10)) {
        case 0:
            grow(1 + random.below(3));
            break;
        case 1:
            grow(64 + random.below(80));
            break;
        case 2:
            extend();
            break;
        case 3:
            shrink();
            break;
        case 4:
            moveIn();
            break;
        case 5:
            moveOut();
            break;
        case 6:
            swapWithOutside();
            break;
        case 7:
            swapVariables();
            break;
        case 8:
            setValue(random.below(VARIABLES));
            break;
        case 9:
            if (random.oneIn(4)) extendByForeignTerm();
            break;
        }
    }

    void solveAndCompare() {
        ASSERT_EQ(compiled.solve(), applied.solve());
        for (std::size_t i = 0; i < VARIABLES; ++i) {
            const Variable<Set>& a = *compiled.variables[i];
            const Variable<Set>& b = *applied.variables[i];
            ASSERT_EQ(a.currentHalf(), b.currentHalf()) << "variable " << i;
            ASSERT_TRUE(areSame(a.value(), b.value())) << "variable " << i;
            ASSERT_TRUE(areSame(a.previousValue(), b.previousValue())) << "variable " << i;
        }
    }

private:
    static constexpr std::size_t VARIABLES = 7;
    static constexpr std::size_t EQUATIONS = 5; // the other variables have none

    template <typename Action>
    void onBoth(Action action) {
        action(compiled);
        action(applied);
    }

    /// Size and words, so that neither iteration nor growth takes part.
    static bool areSame(const Set& a, const Set& b) {
        return a.bitCount() == b.bitCount() &&
               std::equal(BitSetAccess::words(a), BitSetAccess::words(a) + (a.bitCount() + 63) / 64,
                          BitSetAccess::words(b));
    }

    /// Few elements, so that a single bit anywhere in a block can decide.
    Indices randomIndices() {
        Indices indices;
        for (std::size_t i = random.below(6); i > 0; --i)
            indices.insert(static_cast<int>(random.below(universe.size())));
        return indices;
    }

    void setValue(std::size_t variable) {
        const Indices members = randomIndices();
        onBoth([&](auto& twin) { twin.valueOf(variable) = setOf(universe, members); });
    }

    void addEquation(std::size_t variable) {
        const bool isConstant = random.oneIn(3);
        const Indices members = randomIndices();
        const std::size_t first = random.below(VARIABLES);
        onBoth([&](auto& twin) {
            Term<Set>* term = twin.variables[first];
            if (isConstant) term = twin.builder.createConstant(setOf(universe, members));
            twin.builder.addEquation(twin.variables[variable], {term});
        });
        for (std::size_t i = random.below(4); i > 0; --i)
            extend(variable);
    }

    void extend() { extend(random.below(EQUATIONS)); }
    void extend(std::size_t variable) {
        const std::size_t kind = random.below(random.oneIn(3) ? 4 : 3);
        const std::size_t operand = random.below(VARIABLES);
        onBoth([&](auto& twin) {
            Variable<Set>* const with = twin.variables[operand];
            Term<Set>* term = with;
            if (kind == 0) term = twin.builder.createJoin(with);
            if (kind == 1) term = twin.builder.createMeet(with);
            if (kind == 3) term = twin.builder.createMinus(with);
            twin.builder.extendEquation(twin.variables[variable], {term});
        });
    }

    void extendByForeignTerm() {
        const std::size_t variable = random.below(EQUATIONS);
        const std::size_t operand = random.below(VARIABLES);
        onBoth([&](auto& twin) {
            twin.foreignTerms.push_back(std::make_unique<JoinPrevious>(twin.variables[operand]));
            twin.builder.extendEquation(twin.variables[variable], {twin.foreignTerms.back().get()});
        });
    }

    void grow(std::size_t count) { growTo(universe, static_cast<int>(universe.size() + count)); }

    /// A value takes the size of a set that the universe has outgrown.
    void shrink() {
        const std::size_t variable = random.below(VARIABLES);
        const std::size_t from = random.below(compiled.outside.size());
        onBoth(
            [&](auto& twin) { twin.lattice.assign(twin.valueOf(variable), twin.outside[from]); });
    }

    void moveIn() {
        const std::size_t variable = random.below(VARIABLES);
        const Indices members = randomIndices();
        const std::size_t added = random.below(2) * (1 + random.below(70));
        onBoth([&](auto& twin) { twin.outside.push_back(setOf(universe, members)); });
        grow(added);
        onBoth([&](auto& twin) {
            twin.valueOf(variable) = std::move(twin.outside.back());
            twin.outside.pop_back();
        });
    }

    void moveOut() {
        const std::size_t variable = random.below(VARIABLES);
        const std::size_t to = random.below(compiled.outside.size());
        onBoth([&](auto& twin) { twin.outside[to] = std::move(twin.valueOf(variable)); });
    }

    void swapWithOutside() {
        const std::size_t variable = random.below(VARIABLES);
        const std::size_t with = random.below(compiled.outside.size());
        onBoth([&](auto& twin) { std::swap(twin.valueOf(variable), twin.outside[with]); });
    }

    void swapVariables() {
        const std::size_t a = random.below(VARIABLES);
        const std::size_t b = random.below(VARIABLES);
        onBoth([&](auto& twin) {
            if (a != b) std::swap(twin.valueOf(a), twin.valueOf(b));
        });
    }

    Random& random;
    OrderedSet<int> universe;
    System<Sets> compiled;
    System<CallersLattice> applied;
};

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
            Twins twins(random, size);
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
