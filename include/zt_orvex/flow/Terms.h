#pragma once

#include <zt_orvex/flow/Lattice.h>
#include <zt_orvex/flow/SmallOrderedSet.h>
#include <zt_orvex/flow/WordPool.h>

#include <cstdint>
#include <string>
#include <type_traits>

namespace zt::orvex::flow {

namespace internal {

template <typename V>
class Equation;

template <typename L>
class SweepTape;

/// A copy of `value` that keeps its storage in `pool`, if values of its type can.
template <typename V>
V pooledCopy(const V& value, WordPool& pool) {
    if constexpr (std::is_constructible_v<V, const V&, WordPool&>) {
        return V(value, pool);
    } else {
        static_cast<void>(pool);
        return value;
    }
}

} // namespace internal

// A right-hand side is no expression tree. It is a flat sequence of terms, applied from left to
// right onto the variable that it defines: the first gives it a value, each later one folds one
// more variable in. [a, Minus b, Join c] computes (a minus b) join c; no operator binds tighter
// than another. Terms live in a Factory, and everybody else holds plain pointers to them.

template <typename V>
class Variable;

/// The variables that a right-hand side reads, each once, in the order of its terms.
template <typename V>
using DependencySet = SmallOrderedSet<Variable<V>*>;

/// Marks what has a `toString`.
class SupportsToString {};

/// One step of a right-hand side.
template <typename V>
class Term : public SupportsToString {
public:
    virtual ~Term() = default;

    /// Takes this step on the value of `target`, the variable that the right-hand side defines.
    virtual void applyTo(Variable<V>& target, const Lattice<V>& lattice) const = 0;

    /// Adds the variables that this step reads.
    virtual void collectDependencies(DependencySet<V>& out) = 0;

    /// The step as text; later steps begin with a blank, so that texts can be put together.
    virtual std::string toString() const = 0;

protected:
    Term() = default;
    Term(const Term&) = default;
    Term& operator=(const Term&) = default;
};

/// What can open a right-hand side.
template <typename V>
class VariableOrConstant : public Term<V> {
public:
    std::string toString() const override { return name; }

protected:
    /// `named` is not copied: the Factory has done that, and keeps it as long as the term.
    explicit VariableOrConstant(const std::string& named) : name(named) {}

private:
    const std::string& name;
};

/// An unknown of the system, with its value of this sweep and that of the last.
///
/// Two buffers, so that the solver sees what a sweep changed without copying a value to remember
/// it. Only the solver flips between them. Whoever reads a solution reads `value()`.
template <typename V>
class Variable final : public VariableOrConstant<V> {
public:
    /// Both halves are copies of `initial`, in `pool` where values of the type can be.
    Variable(const std::string& named, const V& initial, internal::WordPool& pool)
        : VariableOrConstant<V>(named), values{internal::pooledCopy(initial, pool),
                                               internal::pooledCopy(initial, pool)} {}

    /// The active half.
    V& value() { return values[current]; }
    const V& value() const { return values[current]; }

    /// The other half: during a sweep, the value of the sweep before.
    const V& previousValue() const { return values[current ^ 1]; }

    /// Makes the other half the active one.
    void flip() { current ^= 1; }

    /// Which half is active: 0 or 1.
    std::int32_t currentHalf() const { return current; }

    void applyTo(Variable& target, const Lattice<V>& lattice) const override {
        lattice.assign(target.value(), value());
    }
    void collectDependencies(DependencySet<V>& out) override { out.insert(this); }

private:
    template <typename L>
    friend class SystemOfEquationsBuilder;

    V values[2];
    std::int32_t current = 0;
    // Where a builder that has an equation for this variable has numbered it: a hint that spares a
    // hash look-up. A builder trusts it only where the equation of that number is this variable's.
    static constexpr std::uint32_t NO_EQUATION = ~std::uint32_t{0};
    std::uint32_t equationNumber = NO_EQUATION;
};

/// A fixed value. It can stand only first in a right-hand side: to fold a constant in, fold in a
/// variable whose equation it is.
template <typename V>
class Constant final : public VariableOrConstant<V> {
public:
    Constant(const std::string& named, const V& fixed, internal::WordPool& pool)
        : VariableOrConstant<V>(named), value(internal::pooledCopy(fixed, pool)) {}

    void applyTo(Variable<V>& target, const Lattice<V>& lattice) const override {
        lattice.assign(target.value(), value);
    }
    void collectDependencies(DependencySet<V>&) override {}

private:
    template <typename>
    friend class internal::SweepTape;

    V value;
};

/// A step that folds a variable into the target.
template <typename V>
class ApplyOperationTerm : public Term<V> {
public:
    void collectDependencies(DependencySet<V>& out) override { out.insert(operand); }

protected:
    explicit ApplyOperationTerm(Variable<V>* folded) : operand(folded) {}

    std::string textWith(const std::string& symbol) const {
        return " " + symbol + " " + operand->toString();
    }

    Variable<V>* operand;

private:
    template <typename>
    friend class internal::SweepTape;
};

template <typename V>
class Join final : public ApplyOperationTerm<V> {
public:
    explicit Join(Variable<V>* folded) : ApplyOperationTerm<V>(folded) {}

    void applyTo(Variable<V>& target, const Lattice<V>& lattice) const override {
        lattice.joinInto(target.value(), this->operand->value());
    }
    std::string toString() const override {
        static const std::string symbol = "U";
        return this->textWith(symbol);
    }
};

template <typename V>
class Meet final : public ApplyOperationTerm<V> {
public:
    explicit Meet(Variable<V>* folded) : ApplyOperationTerm<V>(folded) {}

    void applyTo(Variable<V>& target, const Lattice<V>& lattice) const override {
        lattice.meetInto(target.value(), this->operand->value());
    }
    std::string toString() const override {
        static const std::string symbol = "&";
        return this->textWith(symbol);
    }
};

template <typename V>
class Minus final : public ApplyOperationTerm<V> {
public:
    explicit Minus(Variable<V>* folded) : ApplyOperationTerm<V>(folded) {}

    void applyTo(Variable<V>& target, const Lattice<V>& lattice) const override {
        lattice.minusInto(target.value(), this->operand->value());
    }
    std::string toString() const override {
        static const std::string symbol = "-";
        return this->textWith(symbol);
    }
};

} // namespace zt::orvex::flow
