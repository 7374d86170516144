#pragma once

#include "flow/PlainSystem.h"
#include "flow/TestElements.h"

#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

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

using IntSet = BitSet<int>;
using IntLattice = PowerSetLattice<int>;
using IntBuilder = SystemOfEquationsBuilder<IntLattice>;
using IntVariable = Variable<IntSet>;

/// A builder over ten elements, and short words for what tests write most.
class SystemTest : public ::testing::Test {
protected:
    using Indices = std::set<int>;
    using Terms = std::vector<Term<IntSet>*>;

    IntVariable* variable(const std::string& name = "") { return builder.createVariable(name); }
    Constant<IntSet>* constant(const Indices& indices) {
        return builder.createConstant(setOf(universe, indices));
    }
    Join<IntSet>* join(IntVariable* operand) { return builder.createJoin(operand); }
    Meet<IntSet>* meet(IntVariable* operand) { return builder.createMeet(operand); }
    Minus<IntSet>* minus(IntVariable* operand) { return builder.createMinus(operand); }

    void add(IntVariable* defined, const Terms& terms) {
        builder.addEquation(defined, terms.data(), terms.data() + terms.size());
    }
    void extend(IntVariable* defined, const Terms& terms) {
        builder.extendEquation(defined, terms.data(), terms.data() + terms.size());
    }
    std::uint64_t solve() { return builder.build()->solve(); }

    static Indices valueOf(const IntVariable* read) { return indicesOf(read->value()); }

    OrderedSet<int> universe = numbers(10);
    IntLattice lattice{universe};
    IntBuilder builder{lattice, nullptr};
};

/// A plain system, built with the framework. In a universe of more than 128 elements, those of the
/// system lie evenly spread.
class BuiltSystem {
public:
    BuiltSystem(const PlainSystem& plain, const OrderedSet<int>& universe, IntLattice& lattice)
        : spread(std::max(1, static_cast<int>(universe.size() / PlainSystem::Value().size()))),
          builder(lattice, nullptr) {
        for (const PlainSystem::Variable& variable : plain.variables) {
            variables.push_back(builder.createVariable(""));
            variables.back()->value() = setFrom(variable.value(), universe);
            internal::VariableAccess::flip(*variables.back());
            variables.back()->value() = setFrom(variable.value(), universe);
            internal::VariableAccess::flip(*variables.back());
        }
        for (const PlainSystem::Equation& equation : plain.equations) {
            std::vector<Term<IntSet>*> terms;
            for (const PlainSystem::Term& term : equation.terms) {
                terms.push_back(termFrom(term, universe));
            }
            add(variables[static_cast<std::size_t>(equation.variable)], terms);
        }
        system = builder.build();
    }

    /// The number of sweeps, or 0 where the thousandth is reached.
    std::uint64_t solve() {
        try {
            return system->solve();
        } catch (const std::logic_error&) {
            return 0;
        }
    }

    PlainSystem::Value valueOf(std::size_t variable) const {
        PlainSystem::Value value;
        for (const int index : indicesOf(variables[variable]->value())) {
            EXPECT_EQ(index % spread, 0) << "no element of the system";
            value.set(static_cast<std::size_t>(index / spread));
        }
        return value;
    }

    /// The numbers of the variables in the order in which their equations are evaluated.
    std::vector<int> evaluationOrder() const {
        std::map<const IntVariable*, int> numbers;
        for (std::size_t i = 0; i < variables.size(); ++i) {
            numbers[variables[i]] = static_cast<int>(i);
        }
        std::vector<int> order;
        for (const auto* equation : system->equations()) {
            order.push_back(numbers.at(equation->variable));
        }
        return order;
    }

private:
    IntSet setFrom(const PlainSystem::Value& value, const OrderedSet<int>& universe) const {
        IntSet set(universe);
        for (std::size_t i = 0; i < value.size(); ++i) {
            if (value.test(i)) set.add(number(static_cast<int>(i) * spread));
        }
        return set;
    }

    Term<IntSet>* termFrom(const PlainSystem::Term& term, const OrderedSet<int>& universe) {
        using Kind = PlainSystem::Kind;
        if (term.kind == Kind::Constant) {
            return builder.createConstant(setFrom(term.constant, universe));
        }
        IntVariable* const operand = variables[static_cast<std::size_t>(term.operand)];
        switch (term.kind) {
        case Kind::Join:
            return builder.createJoin(operand);
        case Kind::Meet:
            return builder.createMeet(operand);
        case Kind::Minus:
            return builder.createMinus(operand);
        case Kind::Constant:
        case Kind::Variable:
            break;
        }
        return operand;
    }

    /// The first two terms at once, the rest one by one, as an analysis does it.
    void add(IntVariable* defined, const std::vector<Term<IntSet>*>& terms) {
        Term<IntSet>* const* const end = terms.data() + terms.size();
        Term<IntSet>* const* next = terms.data() + (terms.size() < 2 ? terms.size() : 2);
        builder.addEquation(defined, terms.data(), next);
        for (; next != end; ++next)
            builder.extendEquation(defined, next, next + 1);
    }

    int spread; // of the elements, over the indices of the universe
    IntBuilder builder;
    std::vector<IntVariable*> variables;
    std::shared_ptr<SystemOfEquations<IntLattice>> system;
};

} // namespace zt::orvex::flow
