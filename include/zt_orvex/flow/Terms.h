#pragma once

#include <zt_orvex/flow/Lattice.h>
#include <zt_orvex/flow/SmallOrderedSet.h>
#include <zt_orvex/flow/internal/BitSetAccess.h>
#include <zt_orvex/flow/internal/SystemStorage.h>
#include <zt_orvex/flow/internal/VariableAccess.h>

#include <cstdint>
#include <string>

namespace zt::orvex::flow {

template <typename V>
class Variable;

/// The variables that a right-hand side reads, each once, in the order of its terms.
template <typename V>
using DependencySet = SmallOrderedSet<Variable<V>*>;

/// Marks what has a `toString`.
class SupportsToString {};

/// One step of a right-hand side.
///
/// A right-hand side isn't an expression tree. It is a flat sequence of terms, applied from left to
/// right to the variable that it defines: the first gives it a value, each later one folds one more
/// variable in. `[a, Minus b, Join c]` computes (a minus b) join c; no operator binds tighter than
/// another. A `SystemOfEquationsBuilder` makes terms and owns them; everybody else holds plain
/// pointers.
template <typename V>
class Term : public SupportsToString {
public:
    virtual ~Term() = default;

    /// Takes this step on the value of `target`, the variable that the right-hand side defines.
    virtual void applyTo(Variable<V>& target, const Lattice<V>& lattice) const = 0;

    /// Adds the variables that this step reads.
    virtual void collectDependencies(DependencySet<V>& out) = 0;

    /// The step as text; steps after the first begin with a blank, so that texts can be joined.
    virtual std::string toString() const = 0;

protected:
    Term() = default;
    /// @{
    /// Copies nothing: there is nothing to copy.
    Term(const Term&) = default;
    Term& operator=(const Term&) = default;
    /// @}
};

/// What a right-hand side can begin with.
template <typename V>
class VariableOrConstant : public Term<V> {
public:
    /// The name.
    std::string toString() const override { return name; }

protected:
    /// `named` isn't copied, and must outlive the term.
    explicit VariableOrConstant(const std::string& named) : name(named) {}

private:
    const std::string& name;
};

/// An unknown of the system, with its value in this sweep and in the one before.
///
/// Two buffers, so that the solver sees what a sweep changed without copying a value to remember
/// it. Only the solver flips between them. Whoever reads a solution reads `value()`.
template <typename V>
class Variable final : public VariableOrConstant<V> {
public:
    /// For factories. Both halves are copies of `initial`.
    Variable(const std::string& named, const V& initial, const internal::SystemStorage& storage)
        : VariableOrConstant<V>(named), values{internal::copyIn(storage.memory(), initial),
                                               internal::copyIn(storage.memory(), initial)} {}

    /// @{
    /// The active half.
    V& value() { return values[current]; }
    const V& value() const { return values[current]; }
    /// @}

    /// The other half: during a sweep, the value of the sweep before.
    const V& previousValue() const { return values[current ^ 1]; }

    /// Which half is active: 0 or 1.
    std::int32_t currentHalf() const { return current; }

    /// Assigns the active half to that of `target`.
    void applyTo(Variable& target, const Lattice<V>& lattice) const override {
        lattice.assign(target.value(), value());
    }
    /// Adds itself.
    void collectDependencies(DependencySet<V>& out) override { out.insert(this); }

private:
    friend struct internal::VariableAccess;

    V values[2];
    std::int32_t current = 0;
    std::uint32_t equationNumber = internal::VariableAccess::NO_EQUATION;
};

/// A fixed value. It can stand only first in a right-hand side: to fold a constant in, fold in a
/// variable whose equation it is.
template <typename V>
class Constant final : public VariableOrConstant<V> {
public:
    /// For factories. Copies `fixed`.
    Constant(const std::string& named, const V& fixed, const internal::SystemStorage& storage)
        : VariableOrConstant<V>(named), fixedValue(internal::copyIn(storage.memory(), fixed)) {}

    /// The value, which never changes.
    const V& value() const { return fixedValue; }

    /// Assigns the value to the active half of `target`.
    void applyTo(Variable<V>& target, const Lattice<V>& lattice) const override {
        lattice.assign(target.value(), fixedValue);
    }
    /// Adds nothing.
    void collectDependencies(DependencySet<V>&) override {}

private:
    V fixedValue;
};

/// A step that folds a variable into the target.
template <typename V>
class ApplyOperationTerm : public Term<V> {
public:
    /// The variable that is folded in.
    const Variable<V>& operand() const { return *folded; }

    /// Adds the operand.
    void collectDependencies(DependencySet<V>& out) override { out.insert(folded); }

protected:
    /// `with` isn't owned, and must outlive the term.
    explicit ApplyOperationTerm(Variable<V>* with) : folded(with) {}

    /// " U x", for the symbol "U" and an operand named x.
    std::string textWith(const std::string& symbol) const {
        return " " + symbol + " " + folded->toString();
    }

private:
    Variable<V>* folded;
};

/// A step that joins a variable into the target.
template <typename V>
class Join final : public ApplyOperationTerm<V> {
public:
    /// For factories.
    explicit Join(Variable<V>* with) : ApplyOperationTerm<V>(with) {}

    /// Joins the operand's active half into that of `target`.
    void applyTo(Variable<V>& target, const Lattice<V>& lattice) const override {
        lattice.joinInto(target.value(), this->operand().value());
    }
    /// " U x", for an operand named x.
    std::string toString() const override {
        static const std::string symbol = "U";
        return this->textWith(symbol);
    }
};

/// A step that meets the target with a variable.
template <typename V>
class Meet final : public ApplyOperationTerm<V> {
public:
    /// For factories.
    explicit Meet(Variable<V>* with) : ApplyOperationTerm<V>(with) {}

    /// Meets the active half of `target` with that of the operand.
    void applyTo(Variable<V>& target, const Lattice<V>& lattice) const override {
        lattice.meetInto(target.value(), this->operand().value());
    }
    /// " & x", for an operand named x.
    std::string toString() const override {
        static const std::string symbol = "&";
        return this->textWith(symbol);
    }
};

/// A step that takes a variable from the target.
template <typename V>
class Minus final : public ApplyOperationTerm<V> {
public:
    /// For factories.
    explicit Minus(Variable<V>* with) : ApplyOperationTerm<V>(with) {}

    /// Takes the operand's active half from that of `target`.
    void applyTo(Variable<V>& target, const Lattice<V>& lattice) const override {
        lattice.minusInto(target.value(), this->operand().value());
    }
    /// " - x", for an operand named x.
    std::string toString() const override {
        static const std::string symbol = "-";
        return this->textWith(symbol);
    }
};

} // namespace zt::orvex::flow
