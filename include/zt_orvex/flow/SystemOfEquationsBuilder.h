#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/flow/SystemOfEquations.h>
#include <zt_orvex/flow/VariableFamily.h>
#include <zt_orvex/flow/internal/EquationTable.h>
#include <zt_orvex/flow/internal/EvaluationOrder.h>
#include <zt_orvex/flow/internal/Factory.h>

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace zt::orvex::flow {

/// Collects the equations of a system, at most one for each variable, and sorts them once.
///
/// It makes the variables, constants and steps of which the equations consist, and shares their
/// ownership with the systems that it builds: what it returns lasts as long as one of them. The
/// lattice must outlive the builder and what it builds; the namer of nodes, which is not owned and
/// may be null, must outlive the builder. Belongs to one thread at a time.
///
/// Every operation throws std::bad_alloc where memory runs out, and nothing has changed then.
///
///     OrderedSet<int> universe({1, 2});
///     PowerSetLattice<int> lattice(universe);
///     SystemOfEquationsBuilder<PowerSetLattice<int>> builder(lattice, nullptr);
///     auto* const x = builder.createVariable("x");
///     auto* const y = builder.createVariable("y");
///     builder.addEquation(x, {builder.createConstant(someSet)});
///     builder.addEquation(y, {x});
///     builder.build()->solve();  // y->value() is someSet
template <typename L>
class SystemOfEquationsBuilder {
public:
    using V = typename L::Value; ///< The type of the values.
    /// Gives a node a name, for builds that name variables.
    using NodeNamer = std::function<std::string(NodeView)>;

    /// A builder without equations. Nothing calls `namer` here.
    SystemOfEquationsBuilder(L& over, const NodeNamer* namer)
        : lattice(over), factory(std::make_shared<internal::Factory<V>>()), nodeNamer(namer),
          initialValue(over.bottom()) {}
    SystemOfEquationsBuilder(const SystemOfEquationsBuilder&) = delete;
    SystemOfEquationsBuilder& operator=(const SystemOfEquationsBuilder&) = delete;

    /// A family whose variables begin at bottom. `describesNodes` is for builds that name
    /// variables; it has no effect here. The family must not be used after the builder has gone.
    VariableFamily<V> createVariableFamily(std::string name, bool describesNodes) {
        static_cast<void>(describesNodes);
        return VariableFamily<V>(std::move(name), [this](NodeView) {
            static const std::string omitted = "<names omitted in non-asserted builds>";
            return createVariable(omitted);
        });
    }

    /// A variable that begins at bottom. One without an equation keeps that value.
    Variable<V>* createVariable(const std::string& name) {
        return made(factory->createVariable(name, initialValue));
    }

    /// A constant with a copy of `value`, to stand first in a right-hand side.
    Constant<V>* createConstant(const V& value) {
        // Deliberate: this text, unlike that of the families, has no closing bracket.
        static const std::string omitted = "<names omitted in non-asserted builds";
        return made(factory->createConstant(omitted, value));
    }

    /// A step that joins the value of `operand` into the variable of the equation.
    Join<V>* createJoin(Variable<V>* operand) { return made(factory->createJoin(operand)); }
    /// A step that meets the variable of the equation with the value of `operand`.
    Meet<V>* createMeet(Variable<V>* operand) { return made(factory->createMeet(operand)); }
    /// A step that takes the value of `operand` from the variable of the equation.
    Minus<V>* createMinus(Variable<V>* operand) { return made(factory->createMinus(operand)); }

    /// Makes room for `count` equations in one step.
    void reserve(std::size_t count) { equations.reserve(count); }

    /// @{
    /// Adds the equation `variable` = the terms, whose pointers are copied. The first term must be
    /// a variable or a constant; that isn't checked.
    ///
    /// Throws std::invalid_argument("Equation already exists for this variable"), else
    /// std::invalid_argument("The right-hand side of an equation cannot be empty"); nothing changes
    /// then, nor where memory runs out.
    void addEquation(Variable<V>* variable, Term<V>* const* begin, Term<V>* const* end) {
        if (hasEquation(variable)) {
            throw std::invalid_argument("Equation already exists for this variable");
        }
        if (begin == end) {
            throw std::invalid_argument("The right-hand side of an equation cannot be empty");
        }
        equations.add(made(factory->createEquation(variable, begin, end)));
    }
    void addEquation(Variable<V>* variable, std::initializer_list<Term<V>*> terms) {
        addEquation(variable, terms.begin(), terms.end());
    }
    /// @}

    /// @{
    /// Appends the terms to the equation of `variable`, in order; their number may be 0. A system
    /// that has been built evaluates them, too, in the order that it has. Throws
    /// std::invalid_argument("Equation does not exist for this variable").
    void extendEquation(Variable<V>* variable, Term<V>* const* begin, Term<V>* const* end) {
        internal::Equation<V>* const equation = equations.find(variable);
        if (equation == nullptr) {
            throw std::invalid_argument("Equation does not exist for this variable");
        }
        factory->extend(*equation, begin, end);
    }
    void extendEquation(Variable<V>* variable, std::initializer_list<Term<V>*> terms) {
        extendEquation(variable, terms.begin(), terms.end());
    }
    /// @}

    /// Whether the variable has an equation in this builder.
    bool hasEquation(const Variable<V>* variable) const {
        return equations.find(variable) != nullptr;
    }

    /// The variable's equation, or null.
    const internal::Equation<V>* equationOf(const Variable<V>* variable) const {
        return equations.find(variable);
    }

    /// Fixes the evaluation order: wherever there is no cycle, an equation comes after those that it
    /// reads. Equations that are added later aren't in the system. Linear in equations and terms.
    std::shared_ptr<SystemOfEquations<L>> build() {
        using Order = typename SystemOfEquations<L>::Order;
        return std::shared_ptr<SystemOfEquations<L>>(new SystemOfEquations<L>(
            lattice, factory,
            std::make_shared<Order>(internal::EvaluationOrder<V>(equations).compute())));
    }

private:
    /// What the factory has made; it returns null where its pool got no block.
    template <typename Made>
    static Made* made(Made* object) {
        if (object == nullptr) throw std::bad_alloc();
        return object;
    }

    L& lattice;
    std::shared_ptr<internal::Factory<V>> factory;
    internal::EquationTable<V> equations;
    const NodeNamer* nodeNamer;
    V initialValue; // bottom, made once: each variable copies it
};

} // namespace zt::orvex::flow
