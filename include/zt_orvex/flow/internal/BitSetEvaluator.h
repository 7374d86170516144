#pragma once

#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/Terms.h>
#include <zt_orvex/flow/internal/BitSetAccess.h>
#include <zt_orvex/flow/internal/Equation.h>
#include <zt_orvex/flow/internal/TermClass.h>
#include <zt_orvex/flow/internal/TermEvaluator.h>
#include <zt_orvex/flow/internal/VariableAccess.h>
#include <zt_orvex/flow/internal/WordLoops.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zt::orvex::flow::internal {

/// A compiled form of equations over the subsets of a universe: all right-hand sides in one array of
/// steps.
///
/// A sweep leaves every variable as its terms would: the same values in the same half, and the same
/// answer. It differs in how it gets there. No step costs a virtual call, and a right-hand side is
/// gone through once for a few words at a time, which stay in registers from the first step to the
/// comparison with the previous half.
///
/// That needs sets of one size. Where a term is of a caller's class, or a set isn't as large as the
/// universe and has to grow, the terms are applied instead. `prepare` decides, at the beginning of
/// each `solve`; nothing can change while it sweeps.
template <typename T>
class BitSetEvaluator {
public:
    using V = BitSet<T>;

    /// Makes room for all steps. The equations must outlive the evaluator.
    BitSetEvaluator(const PowerSetLattice<T>& lattice, const std::vector<Equation<V>*>& order)
        : terms(lattice, order), equations(order) {
        std::size_t termCount = 0;
        for (const Equation<V>* equation : order)
            termCount += equation->rightHandSide.size();
        targets.reserve(order.size());
        steps.reserve(termCount);
    }

    /// Compiles the equations as they are now. Linear in terms.
    void prepare() {
        targets.clear();
        steps.clear();
        if (equations.empty()) return;
        universe = BitSetAccess::universe(equations.front()->variable->value());
        size = universe->size();
        isCompiled = true;
        for (const Equation<V>* equation : equations)
            compile(*equation);
    }

    /// Evaluates all equations in order. Whether a value changed.
    bool sweep() const {
        return isCompiled ? runLoop<SweepLoop>((size + 63) / 64, this) : terms.sweep();
    }

private:
    enum class Operation { AssignVariable, AssignConstant, Join, Meet, Minus, Clear };

    // Constructed in place: a copy of one that was just made waits for its two halves to reach
    // memory.
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
        Target(Variable<V>* defined, std::size_t its) : variable(defined), stepCount(its) {}

        Variable<V>* variable;
        std::size_t stepCount;
    };

    void compile(const Equation<V>& equation) {
        Variable<V>* const target = equation.variable;
        const std::size_t before = steps.size();
        requireFullSize(target->value());
        requireFullSize(target->previousValue());
        for (const Term<V>* term : equation.rightHandSide)
            compileTerm(*term, *target);
        targets.emplace_back(target, steps.size() - before);
    }

    void compileTerm(const Term<V>& term, const Variable<V>& target) {
        switch (classOf(term)) {
        case TermClass::Variable:
            return addStep(Operation::AssignVariable, static_cast<const Variable<V>&>(term),
                           target);
        case TermClass::Constant: {
            const V& value = static_cast<const Constant<V>&>(term).value();
            requireFullSize(value);
            steps.emplace_back(value);
            return;
        }
        case TermClass::Join:
            return addStep(Operation::Join, operandOf(term), target);
        case TermClass::Meet:
            return addStep(Operation::Meet, operandOf(term), target);
        case TermClass::Minus:
            return addStep(Operation::Minus, operandOf(term), target);
        case TermClass::Foreign:
            isCompiled = false;
        }
    }

    /// A step whose operand is the target reads what the steps before it have made: minus itself it
    /// is empty, and any other such step leaves it as it is.
    void addStep(Operation operation, const Variable<V>& operand, const Variable<V>& target) {
        if (&operand == &target && operation != Operation::Minus) return;
        requireFullSize(operand.value());
        steps.emplace_back(&operand == &target ? Operation::Clear : operation, operand);
    }

    static const Variable<V>& operandOf(const Term<V>& term) {
        return static_cast<const ApplyOperationTerm<V>&>(term).operand();
    }

    void requireFullSize(const V& set) {
        if (BitSetAccess::universe(set) != universe || set.bitCount() != size) isCompiled = false;
    }

    struct SweepLoop {
        static constexpr std::uint64_t BLOCKS_FROM = WORDS_IN<WordBlock>;

        template <typename Words>
        [[gnu::always_inline]] static inline bool run(const BitSetEvaluator* evaluator,
                                                      std::uint64_t count) {
            bool changed = false;
            const Step* first = evaluator->steps.data();
            for (const Target& target : evaluator->targets) {
                const Step* const last = first + target.stepCount;
                VariableAccess::flip(*target.variable);
                if (evaluate<Words>(*target.variable, count, first, last)) changed = true;
                first = last;
            }
            return changed;
        }

    private:
        /// Whether the value differs from the previous one.
        template <typename Words>
        [[gnu::always_inline]] static inline bool evaluate(Variable<V>& target, std::uint64_t count,
                                                           const Step* first, const Step* last) {
            constexpr std::uint64_t STEP = WORDS_IN<Words>;
            std::uint64_t* const value = BitSetAccess::words(target.value());
            const std::uint64_t* const previous = BitSetAccess::words(target.previousValue());
            bool differs = false;
            std::uint64_t at = 0;
            // Four at once share the choice of an operation (the row "solve alone, V 4096").
            for (; at + 4 * STEP <= count; at += 4 * STEP)
                differs |= evaluateWords<Words, 4>(value, previous, at, first, last);
            for (; at + STEP <= count; at += STEP)
                differs |= evaluateWords<Words, 1>(value, previous, at, first, last);
            for (; at < count; ++at)
                differs |= evaluateWords<std::uint64_t, 1>(value, previous, at, first, last);
            return differs;
        }

        /// The same for `COUNT` blocks or words, the first at word `at`.
        template <typename Words, std::size_t COUNT>
        [[gnu::always_inline]] static inline bool
        evaluateWords(std::uint64_t* value, const std::uint64_t* previous, std::uint64_t at,
                      const Step* first, const Step* last) {
            Words words[COUNT];
            loadAll(words, value + at);
            for (const Step* step = first; step != last; ++step)
                take(*step, at, words);
            Words before[COUNT];
            loadAll(before, previous + at);
            Words difference = {};
            for (std::size_t i = 0; i < COUNT; ++i) {
                store(value + at + i * WORDS_IN<Words>, words[i]);
                difference |= words[i] ^ before[i];
            }
            return hasBits(difference);
        }

        template <typename Words, std::size_t COUNT>
        [[gnu::always_inline]] static inline void loadAll(Words (&words)[COUNT],
                                                          const std::uint64_t* from) {
            for (std::size_t i = 0; i < COUNT; ++i)
                load(words[i], from + i * WORDS_IN<Words>);
        }

        template <typename Words, std::size_t COUNT>
        [[gnu::always_inline]] static inline void take(const Step& step, std::uint64_t at,
                                                       Words (&words)[COUNT]) {
            Words operands[COUNT];
            loadAll(operands, wordsOf(step) + at);
            switch (step.operation) {
            case Operation::AssignVariable:
            case Operation::AssignConstant:
                return combineAll<Copy>(words, operands);
            case Operation::Join:
                return combineAll<Union>(words, operands);
            case Operation::Meet:
                return combineAll<Intersection>(words, operands);
            case Operation::Minus:
                return combineAll<Difference>(words, operands);
            case Operation::Clear:
                return combineAll<Clear>(words, operands);
            }
        }

        template <typename WordOperation, typename Words, std::size_t COUNT>
        [[gnu::always_inline]] static inline void combineAll(Words (&words)[COUNT],
                                                             const Words (&operands)[COUNT]) {
            for (std::size_t i = 0; i < COUNT; ++i)
                WordOperation::apply(words[i], operands[i]);
        }

        [[gnu::always_inline]] static inline const std::uint64_t* wordsOf(const Step& step) {
            return BitSetAccess::words(step.operation == Operation::AssignConstant
                                           ? *step.constant
                                           : step.variable->value());
        }
    };

    TermEvaluator<PowerSetLattice<T>> terms;
    const std::vector<Equation<V>*>& equations;
    const OrderedSet<T>* universe = nullptr;
    std::uint64_t size = 0; // of the universe
    bool isCompiled = true;
    std::vector<Target> targets; // in order of evaluation
    std::vector<Step> steps;     // of the first target, then of the second, ...
};

} // namespace zt::orvex::flow::internal
