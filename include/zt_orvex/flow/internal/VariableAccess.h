#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <cstdint>

namespace zt::orvex::flow {

template <typename V>
class Variable;

} // namespace zt::orvex::flow

namespace zt::orvex::flow::internal {

/// What builders and evaluators do with a variable beyond its interface.
struct VariableAccess {
    /// Makes the other half the active one.
    template <typename V>
    static void flip(Variable<V>& variable) {
        variable.current ^= 1;
    }

    /// Where a builder has entered the variable's equation: a hint that spares a hash lookup. A
    /// variable may have equations in several builders, and remembers the latest.
    template <typename V>
    static std::uint32_t equationNumber(const Variable<V>& variable) {
        return variable.equationNumber;
    }
    template <typename V>
    static void setEquationNumber(Variable<V>& variable, std::uint32_t number) {
        variable.equationNumber = number;
    }

    static constexpr std::uint32_t NO_EQUATION = ~std::uint32_t{0};
};

} // namespace zt::orvex::flow::internal
