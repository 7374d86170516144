// A program of its own: it replaces the global allocation functions.

#include "flow/MaxLattice.h"
#include "flow/TestSystem.h"
#include "testing/AllocationCounter.h"

#include <zt_orvex/flow/internal/Factory.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <vector>

namespace zt::orvex::flow {
namespace {

using testing::AllocationCounts;
using testing::allocationsOf;
using testing::costOf;

/// A compiler may leave out an allocation for an object that nothing sees. This one is seen.
template <typename T>
void see(const T& object) {
    static const void* volatile place;
    place = &object;
    static_cast<void>(place);
}

TEST(Allocation, BitSetTakesExactlyTheWordsInUse) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        const auto words = (static_cast<std::size_t>(size) + 63) / 64;
        EXPECT_EQ(costOf([&] { see(BitSet<int>(universe)); }).bytes, 8 * words);
        const BitSet<int> source(universe);
        EXPECT_EQ(costOf([&] { see(BitSet<int>(source)); }).bytes, 8 * words);
    }
}

TEST(Allocation, GrowthAllocatesOnlyAcrossAWordBoundary) {
    for (const int size : WORD_EDGE_SIZES) {
        OrderedSet<int> universe = numbers(size);
        for (const int added : {1, 62, 63, 64, 65, 200}) {
            SCOPED_TRACE(std::to_string(size) + " and " + std::to_string(added));
            const int before = static_cast<int>(universe.size());
            BitSet<int> set(universe);
            growTo(universe, before + added);
            const auto wordsBefore = static_cast<std::size_t>(before + 63) / 64;
            const auto words = static_cast<std::size_t>(before + added + 63) / 64;
            const AllocationCounts cost = costOf([&] { set.growToUniverse(); });
            EXPECT_EQ(cost.allocations, words > wordsBefore ? 1u : 0u);
            EXPECT_EQ(cost.bytes, words > wordsBefore ? 8 * words : 0u);
            EXPECT_EQ(allocationsOf([&] { set.growToUniverse(); }), 0u);
        }
    }
}

TEST(Allocation, GrowthOfTheUniverseCostsItsSetsNothing) {
    OrderedSet<int> universe = numbers(10);
    universe.reserve(1000);
    std::vector<BitSet<int>> sets(100, BitSet<int>(universe));
    EXPECT_EQ(allocationsOf([&] { growTo(universe, 1000); }), 0u);
    EXPECT_EQ(sets.front().bitCount(), 10u);
}

TEST(Allocation, OperationsOnBitSetsAllocateNothing) {
    const OrderedSet<int> universe = numbers(200);
    BitSet<int> a = setOf(universe, {0, 100});
    const BitSet<int> b = setOf(universe, {100, 199});
    const PowerSetLattice<int> lattice(universe);
    EXPECT_EQ(allocationsOf([&] {
                  a.add(number(3));
                  a.remove(number(3));
                  (void)a.contains(number(3));
                  (void)a.isEmpty();
                  (void)a.getSmallestElement();
                  (void)(a == b);
                  (void)(a != b);
                  (void)a.isSubsetOf(b);
                  a.unionWith(b);
                  a.intersectWith(b);
                  a.subtract(b);
                  a.addAll();
                  a.clear();
                  lattice.assign(a, b);
                  lattice.joinInto(a, b);
                  lattice.meetInto(a, b);
                  lattice.minusInto(a, b);
                  lattice.setToBottom(a);
                  (void)lattice.isLessOrEqual(a, b);
              }),
              0u);
    EXPECT_EQ(allocationsOf([&] { see(lattice.bottom()); }), 1u);
}

TEST(Allocation, SolvingAllocatesNothingHoweverManySweeps) {
    const OrderedSet<int> universe = numbers(200);
    IntLattice lattice(universe);
    for (const std::size_t length : {1u, 10u, 500u}) {
        SCOPED_TRACE(length);
        IntBuilder builder(lattice, nullptr);
        std::vector<IntVariable*> links;
        for (std::size_t i = 0; i < length; ++i)
            links.push_back(builder.createVariable(""));
        for (std::size_t i = 0; i < length; ++i) {
            if (i == 0) {
                builder.addEquation(links[0], {builder.createConstant(setOf(universe, {1, 199}))});
            } else {
                builder.addEquation(links[i], {links[i - 1], builder.createMeet(links[i - 1])});
            }
            if (i + 1 < length) {
                builder.extendEquation(links[i], {builder.createJoin(links[i + 1])});
            }
        }
        IntVariable* const rest = builder.createVariable("");
        builder.addEquation(rest, {links.front(), builder.createMinus(links.front())});
        const auto system = builder.build();
        std::uint64_t sweeps = 0;
        EXPECT_EQ(allocationsOf([&] { sweeps = system->solve(); }), 0u);
        EXPECT_GE(sweeps, length + 1);
    }
}

TEST(Allocation, SolvingAgainAllocatesNothingAfterTheUniverseGrew) {
    OrderedSet<int> universe = numbers(10);
    IntLattice lattice(universe);
    IntBuilder builder(lattice, nullptr);
    IntVariable* const x = builder.createVariable("");
    IntVariable* const y = builder.createVariable("");
    builder.addEquation(x, {y, builder.createJoin(x)});
    builder.addEquation(y, {x, builder.createMinus(builder.createVariable(""))});
    const auto system = builder.build();
    growTo(universe, 1000);
    system->solve();
    system->solve();
    EXPECT_EQ(allocationsOf([&] { system->solve(); }), 0u);
}

TEST(Allocation, PoolsBeginWith32ObjectsAndDouble) {
    internal::Factory<Level> factory;
    auto* const operand = factory.createVariable("", {0});
    const auto blocksFor = [&](int objects, auto create) {
        return allocationsOf([&] {
            for (int i = 0; i < objects; ++i)
                create();
        });
    };
    const auto expectDoubling = [&](auto create, int already) {
        EXPECT_EQ(blocksFor(32 - already, create), already == 0 ? 1u : 0u);
        EXPECT_EQ(blocksFor(1, create), 1u);
        EXPECT_EQ(blocksFor(63, create), 0u);
        EXPECT_EQ(blocksFor(1, create), 1u);
        EXPECT_EQ(blocksFor(127, create), 0u);
        EXPECT_EQ(blocksFor(256, create), 1u);
        EXPECT_EQ(blocksFor(512, create), 1u);
        EXPECT_EQ(blocksFor(1024, create), 1u);
        EXPECT_EQ(blocksFor(1, create), 1u) << "without an upper limit";
    };
    const std::string name;
    Term<Level>* const terms[] = {operand};
    expectDoubling([&] { factory.createVariable(name, {0}); }, 1);
    expectDoubling([&] { factory.createConstant(name, {0}); }, 0);
    expectDoubling([&] { factory.createJoin(operand); }, 0);
    expectDoubling([&] { factory.createMeet(operand); }, 0);
    expectDoubling([&] { factory.createMinus(operand); }, 0);
    // Without terms: those take their room from the pool of words.
    expectDoubling([&] { factory.createEquation(operand, terms, terms); }, 0);
}

TEST(Allocation, PoolWithoutMemoryYieldsNull) {
    internal::Factory<Level> factory;
    internal::Factory<Level> other;
    auto* const operand = other.createVariable("", {0});
    const std::string name;
    Term<Level>* const terms[] = {operand};
    auto failure = std::make_unique<testing::NoThrowAllocationFailure>();
    const auto* const variable = factory.createVariable(name, {0});
    const auto* const constant = factory.createConstant(name, {0});
    const auto* const join = factory.createJoin(operand);
    const auto* const meet = factory.createMeet(operand);
    const auto* const minus = factory.createMinus(operand);
    const auto* const equation = factory.createEquation(operand, terms, terms + 1);
    failure.reset();
    EXPECT_EQ(variable, nullptr);
    EXPECT_EQ(constant, nullptr);
    EXPECT_EQ(join, nullptr);
    EXPECT_EQ(meet, nullptr);
    EXPECT_EQ(minus, nullptr);
    EXPECT_EQ(equation, nullptr);
    EXPECT_NE(factory.createVariable(name, {0}), nullptr) << "memory may come back";
}

TEST(Allocation, EquationWithoutMemoryIsNotAdded) {
    const OrderedSet<int> universe = numbers(3);
    IntLattice lattice(universe);
    IntBuilder builder(lattice, nullptr);
    IntVariable* const x = builder.createVariable("");
    Term<IntSet>* const terms[] = {builder.createConstant(setOf(universe, {1}))};
    {
        const testing::NoThrowAllocationFailure failure;
        EXPECT_THROW(builder.addEquation(x, terms, terms + 1), std::bad_alloc);
    }
    EXPECT_FALSE(builder.hasEquation(x));
    EXPECT_TRUE(builder.build()->equations().empty());
    builder.addEquation(x, terms, terms + 1);
    EXPECT_EQ(builder.build()->solve(), 2u);
    EXPECT_EQ(indicesOf(x->value()), std::set<int>({1}));
}

} // namespace
} // namespace zt::orvex::flow
