#pragma once

#include <zt_orvex/flow/Equation.h>
#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/Terms.h>
#include <zt_orvex/flow/WordBlock.h>
#include <zt_orvex/flow/WordLoops.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <typeinfo>
#include <vector>

namespace zt::orvex::flow::internal {

/// The equations of a system once more, in the form in which they are evaluated fastest, for
/// lattices that have one. Others sweep over the terms themselves.
template <typename L>
class SweepTape {
public:
    using V = typename L::Value;

    SweepTape(const L&, const std::vector<Equation<V>*>&) {}

    bool isUsableFor(const std::vector<Equation<V>*>&) const { return false; }
    bool sweep() const { return false; }
};

/// All right-hand sides over the subsets of a universe, in one array of steps.
///
/// A sweep gives every variable what its terms would: the same values in the same half, and the
/// same answer. It differs in how it gets there. No step costs virtual calls. In short sets it goes
/// through a right-hand side once for each block of words, and keeps the block in registers from
/// the first step to the comparison with the previous half. In long ones it goes over all words
/// once for each step, but not for an assignment, and compares in the last step. Terms would read
/// and write the set for each step, and read both halves once more to compare them. Solving takes
/// half of the time.
///
/// Not usable, so that the terms are asked, where that could make a difference: when a term is of a
/// class of the caller's, when a set is not of the universe's size and so has to grow, and when a
/// right-hand side has been extended behind the tape's back.
template <typename T>
class SweepTape<PowerSetLattice<T>> {
public:
    using V = BitSet<T>;

    SweepTape(const PowerSetLattice<T>& lattice, const std::vector<Equation<V>*>& order)
        : universe(lattice.universe), size(universe->size()) {
        targets.reserve(order.size());
        steps.reserve(2 * order.size());
        for (const Equation<V>* equation : order)
            append(*equation);
    }

    /// Must be asked before sweeping over `order`, from which the tape was made: the universe may
    /// have grown since, and right-hand sides may have been extended.
    bool isUsableFor(const std::vector<Equation<V>*>& order) const {
        const auto isCurrent = [](const Target& target, const Equation<V>* equation) {
            return target.termCount == equation->rightHandSide.size();
        };
        return isComplete && universe->size() == size &&
               std::equal(targets.begin(), targets.end(), order.begin(), order.end(), isCurrent);
    }

    /// Evaluates all equations. Whether a value changed.
    bool sweep() const {
        bool changed = false;
        const Step* first = steps.data();
        for (const Target& target : targets) {
            const Step* const last = first + target.stepCount;
            target.variable->flip();
            if (evaluate(*target.variable, first, last)) changed = true;
            first = last;
        }
        return changed;
    }

private:
    enum class Operation { AssignVariable, AssignConstant, Join, Meet, Minus, Clear };

    // Constructed in place: a copy of one just made waits for its two halves to reach memory, and
    // building a tape then takes twice as long.
    struct Step {
        Step(Operation does, const Variable<V>& with) : operation(does), variable(&with) {}
        explicit Step(const V& assigned)
            : operation(Operation::AssignConstant), constant(&assigned) {}

        Operation operation;
        union {
            const Variable<V>* variable;
            const V* constant;
        };
    };
    struct Target {
        Target(Variable<V>* defined, std::size_t stepsOfIt, std::size_t termsOfIt)
            : variable(defined), stepCount(static_cast<std::uint32_t>(stepsOfIt)),
              termCount(static_cast<std::uint32_t>(termsOfIt)) {}

        Variable<V>* variable;
        std::uint32_t stepCount;
        std::uint32_t termCount; // self-applications are terms, but mostly no steps
    };

    void append(const Equation<V>& equation) {
        Variable<V>* const target = equation.variable;
        const std::size_t before = steps.size();
        requireFullSize(target->value());
        requireFullSize(target->previousValue());
        for (const Term<V>* term : equation.rightHandSide)
            appendTerm(*term, *target);
        targets.emplace_back(target, steps.size() - before, equation.rightHandSide.size());
    }

    void appendTerm(const Term<V>& term, const Variable<V>& target) {
        // Addresses suffice: a type_info that another module has a copy of is an unknown class.
        const std::type_info* const type = &typeid(term);
        if (type == &typeid(Variable<V>)) {
            appendStep(Operation::AssignVariable, static_cast<const Variable<V>&>(term), target);
        } else if (type == &typeid(Join<V>)) {
            appendStep(Operation::Join, operandOf(term), target);
        } else if (type == &typeid(Minus<V>)) {
            appendStep(Operation::Minus, operandOf(term), target);
        } else if (type == &typeid(Constant<V>)) {
            const V& value = static_cast<const Constant<V>&>(term).value;
            requireFullSize(value);
            steps.emplace_back(value);
        } else if (type == &typeid(Meet<V>)) {
            appendStep(Operation::Meet, operandOf(term), target);
        } else {
            isComplete = false;
        }
    }

    /// A step whose operand is the target reads what the steps before it have made: minus itself it
    /// is empty, and any other such step leaves it as it is.
    void appendStep(Operation operation, const Variable<V>& operand, const Variable<V>& target) {
        if (&operand == &target && operation != Operation::Minus) return;
        requireFullSize(operand.value());
        steps.emplace_back(&operand == &target ? Operation::Clear : operation, operand);
    }

    static const Variable<V>& operandOf(const Term<V>& term) {
        return *static_cast<const ApplyOperationTerm<V>&>(term).operand;
    }

    void requireFullSize(const V& set) {
        if (set.universe != universe || set.bitCount() != size) isComplete = false;
    }

    static const V& operandOf(const Step& step) {
        return step.operation == Operation::AssignConstant ? *step.constant
                                                           : step.variable->value();
    }

    struct Arrays {
        std::uint64_t* value;
        const std::uint64_t* previous;
        std::uint64_t count;
    };

    /// Whether the value differs from the previous one.
    static bool evaluate(Variable<V>& target, const Step* first, const Step* last) {
        const Arrays arrays = {target.value().words, target.previousValue().words,
                               target.value().wordCount()};
        return arrays.count < LONG ? evaluateInBlocks(arrays, first, last)
                                   : evaluateInPasses(arrays, first, last);
    }

    /// Goes through the steps once for each block of words.
    static bool evaluateInBlocks(const Arrays& target, const Step* first, const Step* last) {
        bool differs = false;
        std::uint64_t at = 0;
        const auto evaluateBlocksOf = [&](auto block) {
            using Block = decltype(block);
            for (; at + WORDS_OF<Block> <= target.count; at += WORDS_OF<Block>) {
                block = evaluateBlock(first, last, loaded<Block>(target.value + at), at);
                store(target.value + at, block);
                differs |= hasBits(block ^ loaded<Block>(target.previous + at));
            }
        };
        evaluateBlocksOf(FourWords{});
        evaluateBlocksOf(std::uint64_t{});
        return differs;
    }

    /// What the steps make of a block, which holds the target's words from `at` on.
    template <typename Block>
    static Block evaluateBlock(const Step* first, const Step* last, Block block, std::uint64_t at) {
        for (const Step* step = first; step != last; ++step) {
            const auto operand = loaded<Block>(operandOf(*step).words + at);
            switch (step->operation) {
            case Operation::AssignVariable:
            case Operation::AssignConstant:
                block = operand;
                break;
            case Operation::Join:
                block = block | operand;
                break;
            case Operation::Meet:
                block = block & operand;
                break;
            case Operation::Minus:
                block = block & ~operand;
                break;
            case Operation::Clear:
                block = Block{};
                break;
            }
        }
        return block;
    }

    /// Goes over all words once for each step but an assignment: the step that follows reads its
    /// operand in place of the value.
    static bool evaluateInPasses(const Arrays& target, const Step* first, const Step* last) {
        if (first == last) {
            return !std::equal(target.value, target.value + target.count, target.previous);
        }
        const std::uint64_t* source = target.value;
        for (; first + 1 != last; ++first) {
            const std::uint64_t* const operand = operandOf(*first).words;
            if (isAssignment(first->operation)) {
                source = operand;
            } else {
                runStep<CombineLoop>(first->operation, target.count, target.value, source, operand);
                source = target.value;
            }
        }
        return runStep<ChangeLoop>(first->operation, target.count, target.value, source,
                                   operandOf(*first).words, target.previous);
    }

    static bool isAssignment(Operation operation) {
        return operation == Operation::AssignVariable || operation == Operation::AssignConstant;
    }

    template <template <typename> class Loop, typename... Args>
    static auto runStep(Operation operation, std::uint64_t count, Args... args) {
        switch (operation) {
        case Operation::AssignVariable:
        case Operation::AssignConstant:
            break;
        case Operation::Join:
            return runLoop<Loop<Union>>(count, args...);
        case Operation::Meet:
            return runLoop<Loop<Intersection>>(count, args...);
        case Operation::Minus:
            return runLoop<Loop<Difference>>(count, args...);
        case Operation::Clear:
            return runLoop<Loop<Clear>>(count, args...);
        }
        return runLoop<Loop<Copy>>(count, args...);
    }

    static constexpr std::uint64_t LONG = 16; // words, from which on passes are faster

    const OrderedSet<T>* universe;
    std::uint64_t size; ///< of the universe, when the tape was made
    bool isComplete = true;
    std::vector<Target> targets; // in order of evaluation
    std::vector<Step> steps;     // of the first target, then of the second, ...
};

} // namespace zt::orvex::flow::internal
