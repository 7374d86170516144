#pragma once

#include <zt_orvex/flow/Lattice.h>
#include <zt_orvex/flow/Terms.h>
#include <zt_orvex/flow/internal/Equation.h>
#include <zt_orvex/flow/internal/VariableAccess.h>

#include <vector>

namespace zt::orvex::flow::internal {

/// Sweeps over equations by applying their terms: the meaning of a sweep, for any lattice.
template <typename L>
class TermEvaluator {
public:
    using V = typename L::Value;

    TermEvaluator(const L& over, const std::vector<Equation<V>*>& order)
        : lattice(over), equations(order) {}

    /// To be called before the first of a row of sweeps. There is nothing to prepare here.
    void prepare() {}

    /// Evaluates all equations in order. Whether a value changed.
    bool sweep() const {
        bool changed = false;
        for (const Equation<V>* equation : equations) {
            Variable<V>& variable = *equation->variable;
            VariableAccess::flip(variable);
            applyTerms(equation->rightHandSide, variable, lattice);
            if (variable.value() != variable.previousValue()) changed = true;
        }
        return changed;
    }

private:
    const L& lattice;
    const std::vector<Equation<V>*>& equations;
};

} // namespace zt::orvex::flow::internal
