#include <zt_orvex/flow/internal/Factory.h>

#include "flow/ExpectThrows.h"
#include "flow/TestElements.h"

#include <zt_orvex/flow/PowerSetLattice.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace zt::orvex::flow::internal {
namespace {

using zt::orvex::testing::expectThrows;

using Indices = std::set<int>;
using Set = BitSet<int>;

TEST(Factory, BothHalvesOfAVariableAreCopiesOfTheInitialValue) {
    const OrderedSet<int> universe = numbers(70);
    Factory<Set> factory;
    Set initial = setOf(universe, {1, 69});
    Variable<Set>* const variable = factory.createVariable("v", initial);
    initial.clear();
    EXPECT_EQ(indicesOf(variable->value()), Indices({1, 69}));
    EXPECT_EQ(indicesOf(variable->previousValue()), Indices({1, 69}));
    EXPECT_EQ(variable->currentHalf(), 0);
    variable->value().clear();
    EXPECT_EQ(indicesOf(variable->previousValue()), Indices({1, 69})) << "two values, not one";
}

TEST(Factory, FlippingSelectsTheOtherHalf) {
    const OrderedSet<int> universe = numbers(3);
    Factory<Set> factory;
    Variable<Set>* const variable = factory.createVariable("v", Set(universe));
    Set* const first = &variable->value();
    VariableAccess::flip(*variable);
    EXPECT_EQ(variable->currentHalf(), 1);
    EXPECT_NE(&variable->value(), first);
    EXPECT_EQ(&variable->previousValue(), first);
    VariableAccess::flip(*variable);
    EXPECT_EQ(variable->currentHalf(), 0);
    EXPECT_EQ(&variable->value(), first);
}

TEST(Factory, NamesAreCopied) {
    const OrderedSet<int> universe;
    Factory<Set> factory;
    std::string name = "a name too long to be kept within a string object";
    const std::string copy = name;
    Variable<Set>* const variable = factory.createVariable(name, Set(universe));
    Constant<Set>* const constant = factory.createConstant(name, Set(universe));
    name.assign(name.size(), '?');
    EXPECT_EQ(variable->toString(), copy);
    EXPECT_EQ(constant->toString(), copy);
}

TEST(Factory, ConstantKeepsACopyOfItsValue) {
    const OrderedSet<int> universe = numbers(70);
    const PowerSetLattice<int> lattice(universe);
    Factory<Set> factory;
    Set value = setOf(universe, {69});
    const Constant<Set>* const constant = factory.createConstant("c", value);
    value.clear();
    Variable<Set>* const target = factory.createVariable("t", value);
    constant->applyTo(*target, lattice);
    EXPECT_EQ(indicesOf(target->value()), Indices({69}));
}

TEST(Factory, EquationCopiesTheSequenceOfTerms) {
    const OrderedSet<int> universe;
    Factory<Set> factory;
    Variable<Set>* const x = factory.createVariable("x", Set(universe));
    Variable<Set>* const y = factory.createVariable("y", Set(universe));
    std::vector<Term<Set>*> terms = {y, factory.createJoin(x), factory.createMinus(y),
                                     factory.createMeet(x)};
    const Equation<Set>* const equation =
        factory.createEquation(x, terms.data(), terms.data() + terms.size());
    const std::vector<Term<Set>*> copy = terms;
    std::fill(terms.begin(), terms.end(), nullptr);
    EXPECT_EQ(equation->variable, x);
    EXPECT_TRUE(std::equal(copy.begin(), copy.end(), equation->rightHandSide.begin(),
                           equation->rightHandSide.end()));
}

TEST(Factory, EquationDependsOnWhatItsTermsRead) {
    const OrderedSet<int> universe;
    Factory<Set> factory;
    Variable<Set>* const x = factory.createVariable("x", Set(universe));
    Variable<Set>* const y = factory.createVariable("y", Set(universe));
    Variable<Set>* const z = factory.createVariable("z", Set(universe));
    Constant<Set>* const c = factory.createConstant("c", Set(universe));
    Term<Set>* const terms[] = {z, factory.createJoin(x), factory.createMinus(z)};
    const auto read = factory.createEquation(y, terms, terms + 3)->dependencies();
    EXPECT_EQ(std::vector<Variable<Set>*>(read.begin(), read.end()),
              std::vector<Variable<Set>*>({z, x}));
    Term<Set>* const constant[] = {c};
    EXPECT_TRUE(factory.createEquation(x, constant, constant + 1)->dependencies().empty());
}

TEST(Factory, ManyObjectsStayWhereTheyAre) {
    const OrderedSet<int> universe = numbers(130);
    Factory<Set> factory;
    std::vector<Variable<Set>*> variables;
    for (int i = 0; i < 5000; ++i) {
        variables.push_back(factory.createVariable(std::to_string(i), setOf(universe, {i % 130})));
    }
    for (int i = 0; i < 5000; ++i) {
        const Variable<Set>* const variable = variables[static_cast<std::size_t>(i)];
        ASSERT_EQ(variable->toString(), std::to_string(i));
        ASSERT_EQ(indicesOf(variable->value()), Indices({i % 130}));
        ASSERT_EQ(indicesOf(variable->previousValue()), Indices({i % 130}));
    }
    EXPECT_EQ(std::set<Variable<Set>*>(variables.begin(), variables.end()).size(), 5000u);
}

/// A value that writes down its destruction, and whose copying can be made to fail.
struct Mortal {
    char kind;

    static inline std::string destroyed;
    static inline int alive = 0;
    static inline int failingCopy = 0;

    explicit Mortal(char kindToHold) : kind(kindToHold) { ++alive; }
    Mortal(const Mortal& other) : kind(other.kind) {
        if (failingCopy != 0 && --failingCopy == 0) throw std::runtime_error("copy failed");
        ++alive;
    }
    Mortal& operator=(const Mortal&) = default;
    ~Mortal() {
        --alive;
        destroyed += kind;
    }
};

TEST(Factory, DestroysConstantsBeforeVariablesAndEachOnce) {
    {
        Factory<Mortal> factory;
        const Mortal variable('v');
        const Mortal constant('c');
        for (int i = 0; i < 100; ++i) {
            factory.createVariable("", variable);
            factory.createConstant("", constant);
        }
        EXPECT_EQ(Mortal::alive, 302);
        Mortal::destroyed.clear();
    }
    EXPECT_EQ(Mortal::alive, 0);
    // The two locals were made last and go first.
    EXPECT_EQ(Mortal::destroyed, "cv" + std::string(100, 'c') + std::string(200, 'v'));
}

TEST(Factory, FailedCopyPassesOnAndGivesTheMemoryBack) {
    {
        Factory<Mortal> factory;
        const Mortal value('x');
        for (int round = 0; round < 50; ++round) {
            for (const int failing : {1, 2}) {
                Mortal::failingCopy = failing;
                expectThrows<std::runtime_error>([&] { factory.createVariable("a", value); },
                                                 "copy failed");
            }
            Mortal::failingCopy = 1;
            expectThrows<std::runtime_error>([&] { factory.createConstant("a", value); },
                                             "copy failed");
            Mortal::failingCopy = 0;
            EXPECT_EQ(Mortal::alive, 1 + 3 * round);
            factory.createVariable("b", value);
            factory.createConstant("b", value);
        }
    }
    EXPECT_EQ(Mortal::alive, 0) << "nothing is destroyed twice, nothing is forgotten";
}

TEST(Factory, FailedCopysPlaceServesTheNextObject) {
    Factory<Mortal> factory;
    const Mortal value('x');
    factory.createVariable("", value);
    const auto* const first = factory.createVariable("", value);
    const auto* const second = factory.createVariable("", value);
    const auto stride =
        reinterpret_cast<std::uintptr_t>(second) - reinterpret_cast<std::uintptr_t>(first);
    Mortal::failingCopy = 1;
    expectThrows<std::runtime_error>([&] { factory.createVariable("", value); }, "copy failed");
    const auto* const third = factory.createVariable("", value);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(third) - reinterpret_cast<std::uintptr_t>(second),
              stride);
}

} // namespace
} // namespace zt::orvex::flow::internal
