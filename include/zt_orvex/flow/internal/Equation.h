#pragma once

#include <zt_orvex/flow/Terms.h>
#include <zt_orvex/flow/internal/PooledSequence.h>

#include <cstdint>

namespace zt::orvex::flow::internal {

/// The terms of a right-hand side, not owned.
template <typename V>
using TermSequence = PooledSequence<Term<V>*>;

/// One variable and its right-hand side, which is never empty. Owns neither.
template <typename V>
class Equation {
public:
    explicit Equation(Variable<V>* defined) : variable(defined) {}

    /// The variables that the right-hand side reads, each once, in the order of its terms.
    DependencySet<V> dependencies() const {
        DependencySet<V> read;
        for (Term<V>* term : rightHandSide)
            term->collectDependencies(read);
        return read;
    }

    Variable<V>* variable;
    TermSequence<V> rightHandSide;
    std::uint32_t number = 0; ///< Its place in its builder's order of creation.
};

/// Applies the terms to the variable, from first to last.
template <typename V>
void applyTerms(const TermSequence<V>& terms, Variable<V>& variable, const Lattice<V>& lattice) {
    for (const Term<V>* term : terms)
        term->applyTo(variable, lattice);
}

} // namespace zt::orvex::flow::internal
