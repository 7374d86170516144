#pragma once

#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/Lattice.h>

namespace zt::orvex::flow {

namespace internal {

template <typename T>
class BitSetEvaluator;

} // namespace internal

/// The subsets of a universe, ordered by inclusion:
///
///         {a, b}        join  is union
///        /      \       meet  is intersection
///      {a}      {b}     minus is difference
///        \      /
///           {}          bottom is the empty set
///
/// Holds a pointer to the universe, which must outlive it and its values.
template <typename T>
class PowerSetLattice final : public Lattice<BitSet<T>> {
public:
    /// The subsets of `over`, which isn't copied.
    explicit PowerSetLattice(const OrderedSet<T>& over) : universe(&over) {}

    /// Whether `a` is a subset of `b`. Grows `a` only.
    bool isLessOrEqual(const BitSet<T>& a, const BitSet<T>& b) const override {
        return a.isSubsetOf(b);
    }
    /// The empty set, of the universe's current size.
    BitSet<T> bottom() const override { return BitSet<T>(*universe); }
    /// Empties `value`, after growing it.
    void setToBottom(BitSet<T>& value) const override { value.clear(); }
    /// Deliberate: unlike the other operations it grows neither value, and takes the source's size.
    void assign(BitSet<T>& target, const BitSet<T>& source) const override {
        target.assign(source);
    }
    /// Adds the members of `other`. Grows both.
    void joinInto(BitSet<T>& target, const BitSet<T>& other) const override {
        target.unionWith(other);
    }
    /// Keeps only what is a member of `other`, too. Grows both.
    void meetInto(BitSet<T>& target, const BitSet<T>& other) const override {
        target.intersectWith(other);
    }
    /// Removes the members of `other`. Grows both.
    void minusInto(BitSet<T>& target, const BitSet<T>& other) const override {
        target.subtract(other);
    }

private:
    const OrderedSet<T>* universe;
};

/// Sets are evaluated by words.
template <typename T>
struct EvaluatorFor<PowerSetLattice<T>> {
    /// An evaluator that compiles the equations to operations on words, to the same values.
    using Type = internal::BitSetEvaluator<T>;
};

} // namespace zt::orvex::flow
