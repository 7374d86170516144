#pragma once

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
#include <utility>
#include <vector>

namespace zt::orvex::flow::internal {

/// The subsets of a universe as a lattice of the caller's, for which the framework has no evaluator
/// but that of terms.
class CallersLattice final : public Lattice<BitSet<int>> {
public:
    explicit CallersLattice(const OrderedSet<int>& universe) : sets(universe) {}

    bool isLessOrEqual(const BitSet<int>& a, const BitSet<int>& b) const override {
        return sets.isLessOrEqual(a, b);
    }
    BitSet<int> bottom() const override { return sets.bottom(); }
    void setToBottom(BitSet<int>& value) const override { sets.setToBottom(value); }
    void assign(BitSet<int>& target, const BitSet<int>& source) const override {
        sets.assign(target, source);
    }
    void joinInto(BitSet<int>& target, const BitSet<int>& other) const override {
        sets.joinInto(target, other);
    }
    void meetInto(BitSet<int>& target, const BitSet<int>& other) const override {
        sets.meetInto(target, other);
    }
    void minusInto(BitSet<int>& target, const BitSet<int>& other) const override {
        sets.minusInto(target, other);
    }

private:
    PowerSetLattice<int> sets;
};

/// A term of the caller's: joins the value that its operand had in the sweep before.
class JoinPrevious final : public Term<BitSet<int>> {
public:
    explicit JoinPrevious(Variable<BitSet<int>>* from) : operand(from) {}

    void applyTo(Variable<BitSet<int>>& target,
                 const Lattice<BitSet<int>>& lattice) const override {
        lattice.joinInto(target.value(), operand->previousValue());
    }
    void collectDependencies(DependencySet<BitSet<int>>& out) override { out.insert(operand); }
    std::string toString() const override { return ""; }

private:
    Variable<BitSet<int>>* operand;
};

/// One system over one lattice.
template <typename L>
struct TwinSystem {
    TwinSystem(const OrderedSet<int>& over, std::size_t variableCount)
        : universe(over), lattice(over), builder(lattice, nullptr) {
        for (std::size_t i = 0; i < variableCount; ++i)
            variables.push_back(builder.createVariable(""));
    }

    BitSet<int>& valueOf(std::size_t variable) { return variables[variable]->value(); }

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
    std::vector<Variable<BitSet<int>>*> variables;
    std::vector<std::unique_ptr<JoinPrevious>> foreignTerms;
    std::vector<BitSet<int>> outside; // sets that values are exchanged with
    std::shared_ptr<SystemOfEquations<L>> system;
};

/// The same random system over both evaluators, and the same mishaps to both.
class EvaluatorTwins {
public:
    EvaluatorTwins(testing::Random& source, int universeSize)
        : random(source), universe(numbers(universeSize)), compiled(universe, VARIABLES),
          applied(universe, VARIABLES) {
        for (std::size_t i = 0; i < VARIABLES; ++i)
            setValue(i);
        for (std::size_t i = 0; i < EQUATIONS; ++i)
            addEquation(i);
        for (std::size_t i = 0; i < 3; ++i) {
            const std::set<int> members = randomIndices();
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
            const Variable<BitSet<int>>& a = *compiled.variables[i];
            const Variable<BitSet<int>>& b = *applied.variables[i];
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
    static bool areSame(const BitSet<int>& a, const BitSet<int>& b) {
        return a.bitCount() == b.bitCount() &&
               std::equal(BitSetAccess::words(a), BitSetAccess::words(a) + (a.bitCount() + 63) / 64,
                          BitSetAccess::words(b));
    }

    /// Few elements, so that a single bit anywhere in a block can decide.
    std::set<int> randomIndices() {
        std::set<int> indices;
        for (std::size_t i = random.below(6); i > 0; --i)
            indices.insert(static_cast<int>(random.below(universe.size())));
        return indices;
    }

    void setValue(std::size_t variable) {
        const std::set<int> members = randomIndices();
        onBoth([&](auto& twin) { twin.valueOf(variable) = setOf(universe, members); });
    }

    void addEquation(std::size_t variable) {
        const bool isConstant = random.oneIn(3);
        const std::set<int> members = randomIndices();
        const std::size_t first = random.below(VARIABLES);
        onBoth([&](auto& twin) {
            Term<BitSet<int>>* term = twin.variables[first];
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
            Variable<BitSet<int>>* const with = twin.variables[operand];
            Term<BitSet<int>>* term = with;
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
        const std::set<int> members = randomIndices();
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

    testing::Random& random;
    OrderedSet<int> universe;
    TwinSystem<PowerSetLattice<int>> compiled;
    TwinSystem<CallersLattice> applied;
};

} // namespace zt::orvex::flow::internal
