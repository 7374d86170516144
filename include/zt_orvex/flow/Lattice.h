#pragma once

#include <zt_orvex/support/internal/Requirements.h>

namespace zt::orvex::flow {

namespace internal {

template <typename L>
class TermEvaluator;

} // namespace internal

/// The algebra of an equation system's values. The solver and the terms touch a value only through
/// it.
///
/// The operations work in place on values that the caller owns; only `bottom` makes one. There is
/// no top: a solution is reached from the bottom. Applied to a value and itself, `assign`,
/// `joinInto` and `meetInto` must leave it as it is.
template <typename V>
class Lattice {
public:
    using Value = V; ///< The type of the values; two of them must compare with `!=`.

    virtual ~Lattice() = default;

    /// Whether `a` is below `b` in the lattice's order, or equal to it. The solver doesn't ask.
    virtual bool isLessOrEqual(const V& a, const V& b) const = 0;
    /// A new value, the least element.
    virtual V bottom() const = 0;
    /// `value` becomes the least element.
    virtual void setToBottom(V& value) const = 0;
    /// `target` becomes a copy of `source`.
    virtual void assign(V& target, const V& source) const = 0;
    /// `target` becomes the least upper bound of both.
    virtual void joinInto(V& target, const V& other) const = 0;
    /// `target` becomes the greatest lower bound of both.
    virtual void meetInto(V& target, const V& other) const = 0;
    /// `target` loses what `other` has.
    virtual void minusInto(V& target, const V& other) const = 0;

protected:
    Lattice() = default;
    /// Copies nothing: there is nothing to copy.
    Lattice(const Lattice&) = default;
    /// Copies nothing, either.
    Lattice& operator=(const Lattice&) = default;
};

/// Names the class that sweeps over a system's equations with values of lattice `L`. By default it
/// applies one term after the other.
template <typename L>
struct EvaluatorFor {
    /// Made of a lattice and the equations in their order. `prepare()` is called before the first
    /// of a row of sweeps; `sweep()` evaluates all equations and tells whether a value changed.
    using Type = internal::TermEvaluator<L>;
};

} // namespace zt::orvex::flow
