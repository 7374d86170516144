#pragma once

#include <zt_orvex/flow/Terms.h>

#include <boost/container/small_vector.hpp>

namespace zt::orvex::flow::internal {

/// The terms of a right-hand side, not owned; room for three without an allocation.
template <typename V>
using TermSequence = boost::container::small_vector<Term<V>*, 3>;

/// One variable and its right-hand side, which is never empty. Owns neither.
template <typename V>
class Equation {
public:
    Equation(Variable<V>* defined, Term<V>* const* begin, Term<V>* const* end)
        : variable(defined), rightHandSide(begin, end) {}

    /// The variables that the right-hand side reads, each once, in the order of its terms.
    DependencySet<V> dependencies() const {
        DependencySet<V> read;
        for (Term<V>* term : rightHandSide)
            term->collectDependencies(read);
        return read;
    }

    Variable<V>* variable;
    TermSequence<V> rightHandSide;
};

} // namespace zt::orvex::flow::internal
