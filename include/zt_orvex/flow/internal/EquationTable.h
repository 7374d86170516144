#pragma once

#include <zt_orvex/flow/internal/Equation.h>
#include <zt_orvex/flow/internal/HashIndex.h>
#include <zt_orvex/flow/internal/VariableAccess.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zt::orvex::flow::internal {

/// The equations of a builder, at most one for each variable, in order of creation. Owns none.
template <typename V>
class EquationTable {
public:
    std::size_t size() const { return equations.size(); }
    Equation<V>* operator[](std::size_t number) const { return equations[number]; }

    /// Makes room for `count` equations in all.
    void reserve(std::size_t count) { equations.reserve(count); }

    /// Adds the equation of a variable that has none here. If it throws, nothing has changed.
    void add(Equation<V>* equation) {
        equation->number = static_cast<std::uint32_t>(equations.size());
        equations.push_back(equation);
        VariableAccess::setEquationNumber(*equation->variable, equation->number);
    }

    /// The variable's equation, or null. The number that the variable remembers answers without
    /// hashing, unless another builder has given the variable an equation, too.
    Equation<V>* find(const Variable<V>* variable) const {
        const std::uint32_t number = VariableAccess::equationNumber(*variable);
        if (number == VariableAccess::NO_EQUATION) return nullptr;
        if (number < equations.size() && equations[number]->variable == variable) {
            return equations[number];
        }
        return lookUp(variable);
    }

private:
    using Index = HashIndex<const Variable<V>*>;

    /// Enters first what has been added since the last lookup. The index lags because hardly
    /// anybody needs it.
    Equation<V>* lookUp(const Variable<V>* variable) const {
        byVariable.reserve(equations.size());
        for (; indexed != equations.size(); ++indexed)
            byVariable.insert(Index::keyOf(equations[indexed]->variable), indexed);
        const auto isAt = [&](std::uint64_t place) {
            return equations[place]->variable == variable;
        };
        const std::uint64_t place = byVariable.find(Index::keyOf(variable), isAt);
        return place == Index::NONE ? nullptr : equations[place];
    }

    std::vector<Equation<V>*> equations;
    mutable Index byVariable;
    mutable std::size_t indexed = 0; // how many of the equations, from the first, the index has
};

} // namespace zt::orvex::flow::internal
