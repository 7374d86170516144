#pragma once

#include <zt_orvex/flow/Terms.h>
#include <zt_orvex/flow/internal/Equation.h>
#include <zt_orvex/flow/internal/SharedNames.h>
#include <zt_orvex/flow/internal/SystemStorage.h>

#include <boost/pool/object_pool.hpp>

#include <cstddef>
#include <memory_resource>
#include <string>

namespace zt::orvex::flow::internal {

/// Makes and owns all terms and equations of a system, in one pool for each type.
///
/// Nothing is freed singly: everything goes when the factory goes, equations first and variables
/// last. A creating operation returns a null pointer if its pool can't get a block. Names are
/// copied, equal ones once. Belongs to one thread at a time.
template <typename V>
class Factory {
public:
    Factory() = default;
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;

    /// Both halves are copies of `initial`.
    Variable<V>* createVariable(const std::string& name, const V& initial) {
        return variables.construct(names.keep(name), initial, SystemStorage(memory));
    }
    Constant<V>* createConstant(const std::string& name, const V& value) {
        return constants.construct(names.keep(name), value, SystemStorage(memory));
    }
    Join<V>* createJoin(Variable<V>* operand) { return joins.construct(operand); }
    Meet<V>* createMeet(Variable<V>* operand) { return meets.construct(operand); }
    Minus<V>* createMinus(Variable<V>* operand) { return minuses.construct(operand); }

    /// Copies the sequence of pointers.
    Equation<V>* createEquation(Variable<V>* variable, Term<V>* const* begin, Term<V>* const* end) {
        Equation<V>* const equation = equations.construct(variable);
        if (equation != nullptr) extend(*equation, begin, end);
        return equation;
    }

    /// Appends copies of the pointers to the right-hand side.
    void extend(Equation<V>& equation, Term<V>* const* begin, Term<V>* const* end) {
        equation.rightHandSide.append(begin, end, memory);
    }

private:
    // Objects in a pool's first block; blocks double as it grows, with no upper limit.
    static constexpr int FIRST_BLOCK = 32;
    static constexpr int NO_LIMIT = 0;
    static constexpr std::size_t FIRST_BYTES = 2048;

    std::pmr::monotonic_buffer_resource memory{FIRST_BYTES}; // outlives the pools' objects
    SharedNames names;
    boost::object_pool<Variable<V>> variables{FIRST_BLOCK, NO_LIMIT};
    boost::object_pool<Constant<V>> constants{FIRST_BLOCK, NO_LIMIT};
    boost::object_pool<Join<V>> joins{FIRST_BLOCK, NO_LIMIT};
    boost::object_pool<Meet<V>> meets{FIRST_BLOCK, NO_LIMIT};
    boost::object_pool<Minus<V>> minuses{FIRST_BLOCK, NO_LIMIT};
    boost::object_pool<Equation<V>> equations{FIRST_BLOCK, NO_LIMIT};
};

} // namespace zt::orvex::flow::internal
