#include <zt_orvex/flow/Terms.h>

#include "flow/MaxLattice.h"
#include "flow/TestElements.h"

#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/internal/Factory.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace zt::orvex::flow {
namespace {

using Indices = std::set<int>;
using Set = BitSet<int>;

/// Three variables over ten elements: x = {0, 1}, y = {1, 2}, z = {2, 3}.
class Terms : public ::testing::Test {
protected:
    OrderedSet<int> universe = numbers(10);
    PowerSetLattice<int> lattice{universe};
    internal::Factory<Set> factory;
    Variable<Set>* x = factory.createVariable("x", setOf(universe, {0, 1}));
    Variable<Set>* y = factory.createVariable("y", setOf(universe, {1, 2}));
    Variable<Set>* z = factory.createVariable("z", setOf(universe, {2, 3}));
    Constant<Set>* c = factory.createConstant("c", setOf(universe, {7}));

    /// The value of `target` after the terms.
    Indices apply(const std::vector<Term<Set>*>& terms, Variable<Set>* target) const {
        for (const Term<Set>* term : terms)
            term->applyTo(*target, lattice);
        return indicesOf(target->value());
    }

    static std::vector<Variable<Set>*> dependenciesOf(const std::vector<Term<Set>*>& terms) {
        DependencySet<Set> read;
        for (Term<Set>* term : terms)
            term->collectDependencies(read);
        return {read.begin(), read.end()};
    }
};

TEST_F(Terms, ClassesFormTheirTree) {
    static_assert(std::is_empty_v<SupportsToString>);
    static_assert(!std::is_polymorphic_v<SupportsToString>);
    static_assert(std::is_base_of_v<SupportsToString, Term<Set>>);
    static_assert(std::is_base_of_v<Term<Set>, VariableOrConstant<Set>>);
    static_assert(std::is_base_of_v<VariableOrConstant<Set>, Variable<Set>>);
    static_assert(std::is_base_of_v<VariableOrConstant<Set>, Constant<Set>>);
    static_assert(std::is_base_of_v<Term<Set>, ApplyOperationTerm<Set>>);
    static_assert(std::is_base_of_v<ApplyOperationTerm<Set>, Join<Set>>);
    static_assert(std::is_base_of_v<ApplyOperationTerm<Set>, Meet<Set>>);
    static_assert(std::is_base_of_v<ApplyOperationTerm<Set>, Minus<Set>>);
    static_assert(std::is_abstract_v<Term<Set>>);
    static_assert(std::is_abstract_v<VariableOrConstant<Set>>);
    static_assert(std::is_abstract_v<ApplyOperationTerm<Set>>);
    static_assert(std::has_virtual_destructor_v<Term<Set>>);
    EXPECT_EQ(sizeof(Join<Set>), 2 * sizeof(void*)) << "a term holds its operand alone";
    EXPECT_EQ(sizeof(Meet<Set>), 2 * sizeof(void*));
    EXPECT_EQ(sizeof(Minus<Set>), 2 * sizeof(void*));
}

TEST_F(Terms, VariableAssignsItsActiveHalf) {
    EXPECT_EQ(apply({x}, z), Indices({0, 1}));
    EXPECT_EQ(indicesOf(x->value()), Indices({0, 1}));
    internal::VariableAccess::flip(*x);
    x->value() = setOf(universe, {5});
    EXPECT_EQ(apply({x}, z), Indices({5}));
    internal::VariableAccess::flip(*x);
    EXPECT_EQ(apply({x}, z), Indices({0, 1}));
}

TEST_F(Terms, ConstantAssignsItsValue) { EXPECT_EQ(apply({c}, z), Indices({7})); }

TEST_F(Terms, OperationsFoldTheirOperandIn) {
    EXPECT_EQ(apply({x, factory.createJoin(y)}, z), Indices({0, 1, 2}));
    EXPECT_EQ(apply({x, factory.createMeet(y)}, z), Indices({1}));
    EXPECT_EQ(apply({x, factory.createMinus(y)}, z), Indices({0}));
    EXPECT_EQ(indicesOf(y->value()), Indices({1, 2})) << "the operand stays as it is";
}

TEST_F(Terms, OperationsReadTheActiveHalfOfTheirOperand) {
    internal::VariableAccess::flip(*y);
    y->value() = setOf(universe, {1, 5});
    EXPECT_EQ(apply({x, factory.createJoin(y)}, z), Indices({0, 1, 5}));
}

TEST_F(Terms, WritesGoToTheActiveHalfOfTheTarget) {
    internal::VariableAccess::flip(*z);
    EXPECT_EQ(apply({x}, z), Indices({0, 1}));
    EXPECT_EQ(indicesOf(z->previousValue()), Indices({2, 3}));
}

TEST_F(Terms, SequencesAreLeftAssociativeWithoutPrecedence) {
    auto* const t = factory.createVariable("t", lattice.bottom());
    // (x - y) U y, and not x - (y U y)
    EXPECT_EQ(apply({x, factory.createMinus(y), factory.createJoin(y)}, t), Indices({0, 1, 2}));
    // (x U z) & y, and not x U (z & y)
    EXPECT_EQ(apply({x, factory.createJoin(z), factory.createMeet(y)}, t), Indices({1, 2}));
    // (x U y) - x
    EXPECT_EQ(apply({x, factory.createJoin(y), factory.createMinus(x)}, t), Indices({2}));
}

TEST_F(Terms, OperationAsFirstTermCombinesWithWhatTheTargetHolds) {
    EXPECT_EQ(apply({factory.createJoin(x)}, z), Indices({0, 1, 2, 3}));
}

TEST_F(Terms, VariableMeetingItselfIsHarmless) {
    EXPECT_EQ(apply({x}, x), Indices({0, 1}));
    EXPECT_EQ(apply({factory.createJoin(x)}, x), Indices({0, 1}));
    EXPECT_EQ(apply({factory.createMeet(x)}, x), Indices({0, 1}));
    EXPECT_EQ(apply({factory.createMinus(x)}, x), Indices());
}

TEST_F(Terms, DependenciesAreVariablesAndOperands) {
    using List = std::vector<Variable<Set>*>;
    EXPECT_EQ(dependenciesOf({x}), List({x}));
    EXPECT_EQ(dependenciesOf({c}), List());
    EXPECT_EQ(dependenciesOf({factory.createJoin(y)}), List({y}));
    EXPECT_EQ(dependenciesOf({factory.createMeet(y)}), List({y}));
    EXPECT_EQ(dependenciesOf({factory.createMinus(y)}), List({y}));
}

TEST_F(Terms, DependenciesAreGatheredOnceEachInOrderOfTerms) {
    EXPECT_EQ(dependenciesOf({z, factory.createJoin(x), factory.createMinus(z), c,
                              factory.createMeet(y), factory.createJoin(x)}),
              std::vector<Variable<Set>*>({z, x, y}));
}

TEST_F(Terms, ManyDependenciesKeepTheirOrder) {
    std::vector<Variable<Set>*> operands;
    std::vector<Term<Set>*> terms;
    for (int i = 0; i < 100; ++i) {
        operands.push_back(factory.createVariable("v", lattice.bottom()));
        terms.push_back(factory.createJoin(operands.back()));
        terms.push_back(factory.createMinus(operands[static_cast<std::size_t>(i / 2)]));
    }
    EXPECT_EQ(dependenciesOf(terms), operands);
}

TEST_F(Terms, ConstantLeavesGatheredDependenciesAsTheyWere) {
    DependencySet<Set> read;
    x->collectDependencies(read);
    c->collectDependencies(read);
    EXPECT_EQ(read.size(), 1u);
    EXPECT_TRUE(read.contains(x));
}

TEST_F(Terms, PrintAsNamesAndOperators) {
    EXPECT_EQ(x->toString(), "x");
    EXPECT_EQ(c->toString(), "c");
    EXPECT_EQ(factory.createJoin(x)->toString(), " U x");
    EXPECT_EQ(factory.createMeet(x)->toString(), " & x");
    EXPECT_EQ(factory.createMinus(x)->toString(), " - x");
    EXPECT_EQ(factory.createVariable("", lattice.bottom())->toString(), "");
}

TEST_F(Terms, TextsOfARightHandSideCanBePutTogether) {
    const std::vector<const Term<Set>*> terms = {x, factory.createMinus(y), factory.createJoin(z),
                                                 factory.createMeet(x)};
    std::string text;
    for (const Term<Set>* term : terms)
        text += term->toString();
    EXPECT_EQ(text, "x - y U z & x");
}

TEST_F(Terms, TextDoesNotDependOnValues) {
    const std::string before = factory.createJoin(x)->toString();
    internal::VariableAccess::flip(*x);
    x->value().clear();
    EXPECT_EQ(factory.createJoin(x)->toString(), before);
}

TEST_F(Terms, WorkOnAnyValueType) {
    const MaxLattice levels;
    internal::Factory<Level> ofLevels;
    auto* const high = ofLevels.createVariable("high", {5});
    auto* const low = ofLevels.createVariable("low", {2});
    auto* const target = ofLevels.createVariable("target", levels.bottom());
    const std::vector<const Term<Level>*> terms = {
        ofLevels.createConstant("3", {3}), ofLevels.createJoin(high), ofLevels.createMinus(low)};
    for (const Term<Level>* term : terms)
        term->applyTo(*target, levels);
    EXPECT_EQ(target->value().height, 3);
    EXPECT_EQ(target->previousValue().height, 0);
}

} // namespace
} // namespace zt::orvex::flow
