#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

namespace zt::orvex::flow {

/// A second opinion on systems of equations over at most 128 elements. It shares no code with the
/// framework: equations are plain data, the order comes from plain recursion, and a value is a
/// `std::bitset`.
struct PlainSystem {
    using Value = std::bitset<128>;

    enum class Kind { Constant, Variable, Join, Meet, Minus };

    struct Term {
        Kind kind;
        int operand;    // the number of a variable
        Value constant; // of a constant
    };

    struct Equation {
        int variable;
        std::vector<Term> terms;
    };

    struct Variable {
        Value halves[2];
        int current = 0;
        Value& value() { return halves[current]; }
        const Value& value() const { return halves[current]; }
    };

    std::vector<Variable> variables;
    std::vector<Equation> equations; // in order of creation

    int addVariable(const Value& initial = {}) {
        Variable variable;
        variable.halves[0] = variable.halves[1] = initial;
        variables.push_back(variable);
        return static_cast<int>(variables.size()) - 1;
    }

    void addEquation(int variable, std::vector<Term> terms) {
        equations.push_back({variable, std::move(terms)});
    }

    static Term constant(const Value& value) { return {Kind::Constant, -1, value}; }
    static Term variable(int operand) { return {Kind::Variable, operand, {}}; }
    static Term join(int operand) { return {Kind::Join, operand, {}}; }
    static Term meet(int operand) { return {Kind::Meet, operand, {}}; }
    static Term minus(int operand) { return {Kind::Minus, operand, {}}; }

    /// The numbers of the equations' variables in the order in which they are to be evaluated.
    ///
    /// Equations join the graph from the last created to the first, each followed by those that it
    /// reads, in order of its terms. Of the successors of a node the one numbered last is searched
    /// first.
    std::vector<int> evaluationOrder() const {
        constexpr std::size_t NONE = ~std::size_t{0};
        std::vector<std::size_t> definition(variables.size(), NONE);
        for (std::size_t i = 0; i < equations.size(); ++i)
            definition[at(equations[i].variable)] = i;

        std::vector<std::size_t> numberOf(equations.size(), NONE);
        std::vector<std::size_t> equationAt;
        std::vector<std::set<std::size_t>> readers(equations.size()); // by number
        const auto numbered = [&](std::size_t equation) {
            if (numberOf[equation] == NONE) {
                numberOf[equation] = equationAt.size();
                equationAt.push_back(equation);
            }
            return numberOf[equation];
        };
        for (std::size_t i = equations.size(); i-- > 0;) {
            numbered(i);
            for (const Term& term : equations[i].terms) {
                if (term.kind == Kind::Constant || definition[at(term.operand)] == NONE) continue;
                readers[numbered(definition[at(term.operand)])].insert(numberOf[i]);
            }
        }

        std::vector<bool> visited(equations.size());
        std::vector<int> postOrder;
        for (std::size_t root = 0; root < equationAt.size(); ++root) {
            search(root, readers, equationAt, visited, postOrder);
        }
        return {postOrder.rbegin(), postOrder.rend()};
    }

    /// The number of sweeps, or 0 where the thousandth is reached.
    std::uint64_t solve() {
        std::vector<const Equation*> inOrder;
        for (const int variable : evaluationOrder()) {
            for (const Equation& equation : equations) {
                if (equation.variable == variable) inOrder.push_back(&equation);
            }
        }
        for (const Equation* equation : inOrder)
            variables[at(equation->variable)].value().reset();
        for (std::uint64_t sweeps = 1; sweeps < 1000; ++sweeps) {
            if (!sweep(inOrder)) return sweeps;
        }
        sweep(inOrder);
        return 0;
    }

private:
    static std::size_t at(int number) { return static_cast<std::size_t>(number); }

    void search(std::size_t node, const std::vector<std::set<std::size_t>>& readers,
                const std::vector<std::size_t>& equationAt, std::vector<bool>& visited,
                std::vector<int>& postOrder) const {
        if (visited[node]) return;
        visited[node] = true;
        for (auto next = readers[node].rbegin(); next != readers[node].rend(); ++next) {
            search(*next, readers, equationAt, visited, postOrder);
        }
        postOrder.push_back(equations[equationAt[node]].variable);
    }

    bool sweep(const std::vector<const Equation*>& inOrder) {
        bool changed = false;
        for (const Equation* equation : inOrder) {
            Variable& target = variables[at(equation->variable)];
            target.current = 1 - target.current;
            for (const Term& term : equation->terms)
                apply(term, target);
            if (target.halves[0] != target.halves[1]) changed = true;
        }
        return changed;
    }

    void apply(const Term& term, Variable& target) const {
        if (term.kind == Kind::Constant) {
            target.value() = term.constant;
            return;
        }
        // A copy, so that a term on the target itself needs no thought.
        const Value operand = variables[at(term.operand)].value();
        switch (term.kind) {
        case Kind::Constant:
            break;
        case Kind::Variable:
            target.value() = operand;
            break;
        case Kind::Join:
            target.value() |= operand;
            break;
        case Kind::Meet:
            target.value() &= operand;
            break;
        case Kind::Minus:
            target.value() &= ~operand;
            break;
        }
    }
};

} // namespace zt::orvex::flow
