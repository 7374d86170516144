#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

#include "flow/ExpectThrows.h"
#include "flow/TestSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace zt::orvex::flow {
namespace {

using testing::expectThrows;

constexpr const char* EXISTS = "Equation already exists for this variable";
constexpr const char* IS_EMPTY = "The right-hand side of an equation cannot be empty";
constexpr const char* DOES_NOT_EXIST = "Equation does not exist for this variable";

using Builder = SystemTest;

TEST_F(Builder, IsNotPolymorphicAndNeitherIsItsSystem) {
    static_assert(!std::is_polymorphic_v<IntBuilder>);
    static_assert(!std::is_polymorphic_v<SystemOfEquations<IntLattice>>);
    static_assert(
        std::is_same_v<decltype(builder.build()), std::shared_ptr<SystemOfEquations<IntLattice>>>);
}

TEST_F(Builder, VariablesBeginAtBottomInBothHalves) {
    const IntVariable* const x = variable("x");
    EXPECT_EQ(valueOf(x), Indices());
    EXPECT_TRUE(x->previousValue().isEmpty());
    EXPECT_EQ(x->value().bitCount(), 10u);
    EXPECT_EQ(x->currentHalf(), 0);
    EXPECT_EQ(x->toString(), "x");
}

TEST_F(Builder, VariablesMadeAfterTheUniverseGrewHaveItsSize) {
    growTo(universe, 100);
    EXPECT_EQ(variable()->value().bitCount(), 100u);
    EXPECT_TRUE(variable()->value().isEmpty());
}

// Deliberate: the texts are two, of different lengths; that of constants has no closing bracket.
TEST_F(Builder, PlaceholderNamesDifferByTheirClosingBracket) {
    const std::string ofFamilies =
        builder.createVariableFamily("liveIn", false).at(NodeView{1, nullptr})->toString();
    const std::string ofConstants = constant({})->toString();
    EXPECT_EQ(ofFamilies, "<names omitted in non-asserted builds>");
    EXPECT_EQ(ofFamilies.size(), 38u);
    EXPECT_EQ(ofConstants, "<names omitted in non-asserted builds");
    EXPECT_EQ(ofConstants.size(), 37u);
}

TEST_F(Builder, VariableHasAnEquationOnceOneIsAdded) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    EXPECT_FALSE(builder.hasEquation(x));
    EXPECT_EQ(builder.equationOf(x), nullptr);
    add(y, {x});
    EXPECT_FALSE(builder.hasEquation(x)) << "being read is not being defined";
    EXPECT_TRUE(builder.hasEquation(y));
    add(x, {constant({})});
    EXPECT_TRUE(builder.hasEquation(x));
    ASSERT_NE(builder.equationOf(x), nullptr);
    EXPECT_EQ(builder.equationOf(x)->variable, x);
}

TEST_F(Builder, SecondEquationIsAnErrorAndChangesNothing) {
    IntVariable* const x = variable();
    add(x, {constant({1})});
    const Terms second = {constant({2})};
    expectThrows<std::invalid_argument>([&] { add(x, second); }, EXISTS);
    EXPECT_TRUE(builder.hasEquation(x));
    EXPECT_EQ(solve(), 2u);
    EXPECT_EQ(valueOf(x), Indices({1}));
}

TEST_F(Builder, EmptyRightHandSideIsAnErrorAndChangesNothing) {
    IntVariable* const x = variable();
    expectThrows<std::invalid_argument>([&] { add(x, {}); }, IS_EMPTY);
    EXPECT_FALSE(builder.hasEquation(x));
    EXPECT_EQ(solve(), 1u) << "the system is still empty";
    expectThrows<std::invalid_argument>([&] { extend(x, {}); }, DOES_NOT_EXIST);
    add(x, {constant({1})});
    EXPECT_EQ(solve(), 2u);
    EXPECT_EQ(valueOf(x), Indices({1}));
}

TEST_F(Builder, ExistingEquationIsReportedBeforeAnEmptyRightHandSide) {
    IntVariable* const x = variable();
    add(x, {constant({1})});
    expectThrows<std::invalid_argument>([&] { add(x, {}); }, EXISTS);
}

TEST_F(Builder, ExtendingNoEquationIsAnErrorAndChangesNothing) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    const Terms further = {join(y)};
    expectThrows<std::invalid_argument>([&] { extend(x, further); }, DOES_NOT_EXIST);
    EXPECT_FALSE(builder.hasEquation(x));
    add(y, {constant({1})});
    expectThrows<std::invalid_argument>([&] { extend(x, further); }, DOES_NOT_EXIST);
    expectThrows<std::invalid_argument>([&] { extend(x, {}); }, DOES_NOT_EXIST);
    EXPECT_FALSE(builder.hasEquation(x));
    EXPECT_EQ(builder.equationOf(y)->rightHandSide.size(), 1u);
}

TEST_F(Builder, FailuresAmongManyEquationsLeaveTheOthersAlone) {
    std::vector<IntVariable*> variables;
    for (int i = 0; i < 50; ++i) {
        variables.push_back(variable());
        IntVariable* const unused = variable();
        add(variables.back(), {constant({i % 10})});
        expectThrows<std::invalid_argument>([&] { add(variables.front(), {}); }, EXISTS);
        expectThrows<std::invalid_argument>([&] { add(unused, {}); }, IS_EMPTY);
        expectThrows<std::invalid_argument>([&] { extend(unused, {}); }, DOES_NOT_EXIST);
    }
    EXPECT_EQ(builder.build()->equations().size(), 50u);
    EXPECT_EQ(solve(), 2u);
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(valueOf(variables[static_cast<std::size_t>(i)]), Indices({i % 10}));
    }
}

TEST_F(Builder, TermsAreAppendedInOrder) {
    IntVariable* const a = variable();
    IntVariable* const b = variable();
    IntVariable* const x = variable();
    add(a, {constant({1, 2, 3})});
    add(b, {constant({3, 4})});
    add(x, {a});
    extend(x, {minus(b), join(b)});
    extend(x, {minus(a)});
    solve();
    EXPECT_EQ(valueOf(x), Indices({4})) << "(((a - b) U b) - a)";
    const auto& terms = builder.equationOf(x)->rightHandSide;
    std::string text;
    for (const Term<IntSet>* term : terms)
        text += term->toString() + ";";
    EXPECT_EQ(text, "; - ; U ; - ;");
}

TEST_F(Builder, ExtendingByNothingDoesNothing) {
    IntVariable* const x = variable();
    add(x, {constant({1})});
    extend(x, {});
    EXPECT_EQ(builder.equationOf(x)->rightHandSide.size(), 1u);
    EXPECT_EQ(solve(), 2u);
    EXPECT_EQ(valueOf(x), Indices({1}));
}

TEST_F(Builder, RightHandSidesAreCopied) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    Terms first = {constant({1})};
    Terms further = {join(y)};
    add(x, first);
    extend(x, further);
    first[0] = nullptr;
    further[0] = nullptr;
    add(y, {constant({2})});
    solve();
    EXPECT_EQ(valueOf(x), Indices({1, 2}));
}

TEST_F(Builder, RightHandSidesCanBeWrittenAsLists) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    builder.addEquation(x, {constant({1}), join(y)});
    builder.addEquation(y, {constant({2})});
    builder.extendEquation(x, {minus(y)});
    solve();
    EXPECT_EQ(valueOf(x), Indices({1}));
}

TEST_F(Builder, EquationAddedAfterBuildIsNotInTheSystem) {
    IntVariable* const x = variable();
    IntVariable* const y = variable();
    add(x, {constant({1})});
    const auto system = builder.build();
    add(y, {constant({2})});
    EXPECT_EQ(system->solve(), 2u);
    EXPECT_EQ(valueOf(x), Indices({1}));
    EXPECT_EQ(valueOf(y), Indices());
    EXPECT_EQ(y->currentHalf(), 0);
    EXPECT_TRUE(builder.hasEquation(y));
    EXPECT_EQ(solve(), 2u) << "a system built later has both";
    EXPECT_EQ(valueOf(y), Indices({2}));
}

TEST_F(Builder, BuildingChangesNothing) {
    IntVariable* const x = variable();
    add(x, {constant({1})});
    const auto first = builder.build();
    const auto second = builder.build();
    EXPECT_NE(first, second);
    EXPECT_EQ(first->equations(), second->equations());
    EXPECT_EQ(valueOf(x), Indices());
}

TEST_F(Builder, SystemOutlivesItsBuilder) {
    auto own = std::make_unique<IntBuilder>(lattice, nullptr);
    IntVariable* const x = own->createVariable("x");
    IntVariable* const y = own->createVariable("y");
    own->addEquation(x, {own->createConstant(setOf(universe, {1})), own->createJoin(y)});
    own->addEquation(y, {own->createConstant(setOf(universe, {2})), own->createMinus(x)});
    const auto system = own->build();
    own.reset();
    EXPECT_THROW(system->solve(), std::logic_error) << "x and y chase each other";
    EXPECT_EQ(x->toString(), "x");
    EXPECT_EQ(indicesOf(x->value()).count(1), 1u);
}

TEST_F(Builder, BuilderOutlivesItsSystem) {
    IntVariable* const x = variable();
    add(x, {constant({1})});
    builder.build().reset();
    EXPECT_EQ(solve(), 2u);
    EXPECT_EQ(valueOf(x), Indices({1}));
}

TEST_F(Builder, NodeNamerIsNeverCalled) {
    const std::function<std::string(NodeView)> failing = [](NodeView) -> std::string {
        throw std::runtime_error("a node was named");
    };
    const std::function<std::string(NodeView)> empty;
    for (const auto* namer : {&failing, &empty}) {
        IntBuilder own(lattice, namer);
        for (const bool describesNodes : {false, true}) {
            auto family = own.createVariableFamily("f", describesNodes);
            IntVariable* const x = family.at(NodeView{1, nullptr});
            own.addEquation(x, {own.createConstant(setOf(universe, {1}))});
            EXPECT_EQ(x->toString(), "<names omitted in non-asserted builds>");
        }
        EXPECT_EQ(own.build()->solve(), 2u);
    }
}

TEST_F(Builder, BuildersDoNotConfuseEachOthersVariables) {
    IntBuilder other(lattice, nullptr);
    std::vector<IntVariable*> shared;
    for (int i = 0; i < 4; ++i)
        shared.push_back(variable(std::to_string(i)));
    // Defined here in one order, there in another, and one of them only on one side.
    for (const std::size_t i : {0u, 1u, 2u})
        add(shared[i], {constant({static_cast<int>(i)})});
    for (const std::size_t i : {3u, 2u, 1u}) {
        EXPECT_FALSE(other.hasEquation(shared[i]));
        other.addEquation(
            shared[i], {other.createConstant(setOf(universe, {5})), other.createJoin(shared[0])});
    }
    EXPECT_FALSE(other.hasEquation(shared[0]));
    EXPECT_FALSE(builder.hasEquation(shared[3]));
    for (const std::size_t i : {0u, 1u, 2u}) {
        EXPECT_TRUE(builder.hasEquation(shared[i]));
        EXPECT_EQ(builder.equationOf(shared[i])->variable, shared[i]);
        expectThrows<std::invalid_argument>([&] { add(shared[i], {}); }, EXISTS);
    }
    extend(shared[1], {join(shared[2])});
    EXPECT_EQ(solve(), 2u);
    EXPECT_EQ(valueOf(shared[1]), Indices({1, 2}));
    EXPECT_EQ(other.build()->solve(), 2u);
    EXPECT_EQ(valueOf(shared[1]), Indices({0, 5}));
    EXPECT_EQ(valueOf(shared[3]), Indices({0, 5}));
}

} // namespace
} // namespace zt::orvex::flow
