#pragma once

#include <zt_orvex/flow/Lattice.h>
#include <zt_orvex/flow/internal/BitSetEvaluator.h>
#include <zt_orvex/flow/internal/Equation.h>
#include <zt_orvex/flow/internal/Factory.h>
#include <zt_orvex/flow/internal/TermEvaluator.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace zt::orvex::flow {

/// A fixed set of equations in the order in which they are evaluated. Made by a
/// `SystemOfEquationsBuilder`.
///
/// The lattice must outlive it. The equations and terms live as long as this object or the builder.
/// Belongs to one thread at a time.
template <typename L>
class SystemOfEquations {
public:
    using V = typename L::Value; ///< The type of the values.
    /// Equations in the order of their evaluation, not owned.
    using Order = std::vector<internal::Equation<V>*>;

    /// Evaluates all equations in order, sweep after sweep, until a sweep changes nothing, and
    /// returns the number of sweeps. An equation sees what earlier ones of the same sweep have
    /// computed. The solution stays in the variables: read it with `value()`. May be called again,
    /// and starts over.
    ///
    /// Cost: the sweeps times the terms, and no allocation, unless sets have to grow or right-hand
    /// sides have been extended. An acyclic system takes two sweeps at most.
    ///
    /// Throws std::logic_error("Maximum iterations exceeded in SystemOfEquations::solve") at the
    /// thousandth sweep, and std::bad_alloc where memory runs out. The variables then hold what the
    /// last sweep left, and it may be called again.
    ///
    /// Deliberate: every variable that has an equation starts at bottom, also where equations meet.
    /// Deliberate: a variable in its own right-hand side reads the half that is being written.
    /// Deliberate: a thousandth sweep fails even if it changes nothing.
    std::uint64_t solve() {
        for (internal::Equation<V>* equation : *equationsInOrder)
            lattice.setToBottom(equation->variable->value());
        evaluator.prepare();
        std::uint64_t sweeps = 0;
        bool changed = true;
        while (changed && sweeps < MAXIMUM_SWEEPS) {
            changed = evaluator.sweep();
            ++sweeps;
        }
        if (sweeps == MAXIMUM_SWEEPS) {
            throw std::logic_error("Maximum iterations exceeded in SystemOfEquations::solve");
        }
        return sweeps;
    }

    /// Applies the terms to the variable, from first to last, on its active half.
    void evaluateRightHandSide(Variable<V>& variable,
                               const internal::TermSequence<V>& rightHandSide) const {
        internal::applyTerms(rightHandSide, variable, lattice);
    }

    /// The evaluation order.
    const Order& equations() const { return *equationsInOrder; }

private:
    template <typename>
    friend class SystemOfEquationsBuilder;

    SystemOfEquations(L& over, std::shared_ptr<internal::Factory<V>> owner,
                      std::shared_ptr<Order> order)
        : lattice(over), factory(std::move(owner)), equationsInOrder(std::move(order)),
          evaluator(over, *equationsInOrder) {}

    static constexpr std::uint64_t MAXIMUM_SWEEPS = 1000;

    L& lattice;
    std::shared_ptr<internal::Factory<V>> factory;
    std::shared_ptr<Order> equationsInOrder;
    typename EvaluatorFor<L>::Type evaluator;
};

} // namespace zt::orvex::flow
