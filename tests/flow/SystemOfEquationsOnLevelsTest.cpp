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

/// Counts the calls of the operations, and notes which variables were set to bottom.
class CountingLattice final : public Lattice<Level> {
public:
    bool isLessOrEqual(const Level& a, const Level& b) const override {
        ++comparisons;
        return inner.isLessOrEqual(a, b);
    }
    Level bottom() const override {
        ++bottoms;
        return inner.bottom();
    }
    void setToBottom(Level& value) const override {
        cleared.push_back(&value);
        inner.setToBottom(value);
    }
    void assign(Level& target, const Level& source) const override {
        ++assigns;
        inner.assign(target, source);
    }
    void joinInto(Level& target, const Level& other) const override {
        ++folds;
        inner.joinInto(target, other);
    }
    void meetInto(Level& target, const Level& other) const override {
        ++folds;
        inner.meetInto(target, other);
    }
    void minusInto(Level& target, const Level& other) const override {
        ++folds;
        inner.minusInto(target, other);
    }

    MaxLattice inner;
    mutable int comparisons = 0;
    mutable int bottoms = 0;
    mutable int assigns = 0;
    mutable int folds = 0;
    mutable std::vector<const Level*> cleared;
};

TEST(SolverOnLevels, EveryEquationIsEvaluatedInEverySweep) {
    CountingLattice lattice;
    SystemOfEquationsBuilder<CountingLattice> builder(lattice, nullptr);
    auto* const a = builder.createVariable("a");
    auto* const b = builder.createVariable("b");
    auto* const c = builder.createVariable("c");
    auto* const free = builder.createVariable("free");
    builder.addEquation(a, {builder.createConstant({3}), builder.createJoin(b)});
    builder.addEquation(b, {a, builder.createMinus(free), builder.createJoin(c)});
    builder.addEquation(c, {builder.createConstant({0}), builder.createMeet(a)});
    const auto system = builder.build();
    const int bottomsBefore = lattice.bottoms;
    const auto sweeps = static_cast<int>(system->solve());
    EXPECT_GE(sweeps, 2);
    EXPECT_EQ(lattice.assigns, 3 * sweeps);
    EXPECT_EQ(lattice.folds, 4 * sweeps);
    EXPECT_EQ(lattice.comparisons, 0) << "the solver asks for inequality, not for the order";
    EXPECT_EQ(lattice.bottoms, bottomsBefore) << "solving makes no value";
    EXPECT_EQ(a->value().height, 3);
    EXPECT_EQ(b->value().height, 3);
    EXPECT_EQ(c->value().height, 0);
}

TEST(SolverOnLevels, OnlyActiveHalvesOfDefinedVariablesStartAtBottom) {
    CountingLattice lattice;
    SystemOfEquationsBuilder<CountingLattice> builder(lattice, nullptr);
    auto* const a = builder.createVariable("a");
    auto* const b = builder.createVariable("b");
    builder.createVariable("free");
    builder.addEquation(a, {builder.createConstant({0})});
    builder.addEquation(b, {a});
    const auto system = builder.build();
    const auto activeHalves = [&] {
        std::set<const Level*> halves;
        for (const auto* variable : {a, b})
            halves.insert(&variable->value());
        return halves;
    };
    for (int i = 0; i < 3; ++i) {
        const std::set<const Level*> active = activeHalves();
        lattice.cleared.clear();
        ASSERT_EQ(system->solve(), 1u) << "so the halves change roles each time";
        EXPECT_EQ(lattice.cleared.size(), 2u);
        EXPECT_EQ(std::set<const Level*>(lattice.cleared.begin(), lattice.cleared.end()), active);
    }
}

TEST(SolverOnLevels, ThousandSweepsAreMadeBeforeTheLimitIsReported) {
    CountingLattice lattice;
    SystemOfEquationsBuilder<CountingLattice> builder(lattice, nullptr);
    auto* const x = builder.createVariable("x");
    auto* const y = builder.createVariable("y");
    builder.addEquation(x, {builder.createConstant({1}), builder.createMinus(y)});
    builder.addEquation(y, {x});
    const auto system = builder.build();
    expectThrows<std::logic_error>([&] { system->solve(); }, LIMIT);
    EXPECT_EQ(lattice.assigns, 2000);
    EXPECT_EQ(lattice.cleared.size(), 2u);
}

/// A "join" that adds: it climbs by steps, which no set would do.
class AddingLattice final : public Lattice<Level> {
public:
    explicit AddingLattice(int topToUse) : top(topToUse) {}
    bool isLessOrEqual(const Level& a, const Level& b) const override {
        return a.height <= b.height;
    }
    Level bottom() const override { return {}; }
    void setToBottom(Level& value) const override { value = {}; }
    void assign(Level& target, const Level& source) const override { target = source; }
    void joinInto(Level& target, const Level& other) const override {
        target.height = std::min(top, target.height + other.height);
    }
    void meetInto(Level&, const Level&) const override {}
    void minusInto(Level&, const Level&) const override {}

private:
    int top;
};

TEST(SolverOnLevels, SweepsFollowTheHeightOfTheLattice) {
    for (const int top : {1, 2, 17, 996, 997, 998, 999}) {
        SCOPED_TRACE(top);
        AddingLattice lattice(top);
        SystemOfEquationsBuilder<AddingLattice> builder(lattice, nullptr);
        auto* const one = builder.createVariable("one");
        auto* const x = builder.createVariable("x");
        auto* const y = builder.createVariable("y");
        builder.addEquation(one, {builder.createConstant({1})});
        builder.addEquation(y, {x});
        builder.addEquation(x, {y, builder.createJoin(one)});
        // In the order one, x, y both reach `top` in sweep `top`; in the order x, y, one or
        // y, one, x it takes a sweep more.
        const auto system = builder.build();
        std::string order;
        for (const auto* equation : system->equations())
            order += equation->variable->toString();
        const int late = order == "onexy" ? 0 : 1;
        const int sweeps = top + late + 1;
        if (sweeps < 1000) {
            EXPECT_EQ(system->solve(), static_cast<std::uint64_t>(sweeps)) << order;
        } else {
            expectThrows<std::logic_error>([&] { system->solve(); }, LIMIT);
        }
        EXPECT_EQ(x->value().height, top);
        EXPECT_EQ(y->value().height, top);
    }
}

} // namespace
} // namespace zt::orvex::flow
