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
    /// Equations that read no other come first, as they were created. The others are numbered: first
    /// those that no other of them reads, then the rest, each as they were created. The order is the
    /// post-order of a search from reader to read that begins with the lowest number and enters the
    /// highest first.
    std::vector<int> evaluationOrder() const {
        const std::size_t count = equations.size();
        const auto reads = [this](std::size_t reader, std::size_t read) {
            for (const Term& term : equations[reader].terms) {
                if (term.kind != Kind::Constant && term.operand == equations[read].variable) {
                    return true;
                }
            }
            return false;
        };
        std::vector<int> order;
        std::vector<std::size_t> others;
        for (std::size_t i = 0; i < count; ++i) {
            bool readsAny = false;
            for (std::size_t j = 0; j < count; ++j)
                readsAny = readsAny || reads(i, j);
            if (readsAny) {
                others.push_back(i);
            } else {
                order.push_back(equations[i].variable);
            }
        }
        std::vector<std::size_t> equationAt;
        for (const bool wanted : {false, true}) {
            for (const std::size_t i : others) {
                bool isRead = false;
                for (const std::size_t j : others)
                    isRead = isRead || reads(j, i);
                if (isRead == wanted) equationAt.push_back(i);
            }
        }
        std::vector<std::set<std::size_t>> definitions(equationAt.size()); // by number
        for (std::size_t reader = 0; reader < equationAt.size(); ++reader) {
            for (std::size_t read = 0; read < equationAt.size(); ++read) {
                if (reads(equationAt[reader], equationAt[read])) definitions[reader].insert(read);
            }
        }
        std::vector<bool> visited(equationAt.size());
        for (std::size_t root = 0; root < equationAt.size(); ++root)
            search(root, definitions, equationAt, visited, order);
        return order;
    }

    /// The number of sweeps, or 0 where the thousandth is reached.
    std::uint64_t solve() { return solve(evaluationOrder()); }

    /// The same in another order of evaluation.
    std::uint64_t solve(const std::vector<int>& order) {
        std::vector<const Equation*> inOrder;
        for (const int variable : order) {
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

    void search(std::size_t node, const std::vector<std::set<std::size_t>>& definitions,
                const std::vector<std::size_t>& equationAt, std::vector<bool>& visited,
                std::vector<int>& postOrder) const {
        if (visited[node]) return;
        visited[node] = true;
        for (auto next = definitions[node].rbegin(); next != definitions[node].rend(); ++next) {
            search(*next, definitions, equationAt, visited, postOrder);
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
