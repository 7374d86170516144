#pragma once

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/flow/Digraph.h>
#include <zt_orvex/flow/ElementHash.h>
#include <zt_orvex/flow/Factory.h>
#include <zt_orvex/flow/SystemOfEquations.h>
#include <zt_orvex/flow/VariableFamily.h>

#include <boost/unordered/unordered_flat_map.hpp>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::flow {

/// Collects the equations of a system, at most one for each variable, and sorts them once.
///
/// The lattice must outlive the builder and what it builds; `nodeNamer`, which is not owned and may
/// be null, must outlive the builder. Belongs to one thread at a time.
///
///     OrderedSet<int> universe({1, 2});
///     PowerSetLattice<int> lattice(universe);
///     SystemOfEquationsBuilder<PowerSetLattice<int>> builder(lattice, nullptr);
///     auto* const x = builder.createVariable("x");
///     auto* const y = builder.createVariable("y");
///     builder.addEquation(x, {builder.createConstant(someSet)});
///     builder.addEquation(y, {x});
///     builder.build()->solve();  // y->value() is someSet
template <typename L>
class SystemOfEquationsBuilder {
public:
    using V = typename L::Value;
    using NodeNamer = std::function<std::string(NodeView)>;

    SystemOfEquationsBuilder(L& over, const NodeNamer* namer)
        : lattice(over), factory(std::make_shared<internal::Factory<V>>()), nodeNamer(namer),
          initialValue(over.bottom()) {}
    SystemOfEquationsBuilder(const SystemOfEquationsBuilder&) = delete;
    SystemOfEquationsBuilder& operator=(const SystemOfEquationsBuilder&) = delete;

    /// A family whose variables begin at bottom. `describesNodes` is for builds that name
    /// variables; it has no effect here. The family must not be used after the builder has gone.
    VariableFamily<V> createVariableFamily(std::string name, bool describesNodes) {
        static_cast<void>(describesNodes);
        return VariableFamily<V>(std::move(name), [this](NodeView) {
            static const std::string omitted = "<names omitted in non-asserted builds>";
            return factory->createVariable(omitted, initialValue);
        });
    }

    /// A variable that begins at bottom. One without an equation keeps that value.
    Variable<V>* createVariable(const std::string& name) {
        return factory->createVariable(name, initialValue);
    }

    Constant<V>* createConstant(const V& value) {
        // Deliberate: this text, unlike that of the families, has no closing bracket.
        static const std::string omitted = "<names omitted in non-asserted builds";
        return factory->createConstant(omitted, value);
    }

    Join<V>* createJoin(Variable<V>* operand) { return factory->createJoin(operand); }
    Meet<V>* createMeet(Variable<V>* operand) { return factory->createMeet(operand); }
    Minus<V>* createMinus(Variable<V>* operand) { return factory->createMinus(operand); }

    /// Makes room for `count` equations in one step.
    void reserve(std::size_t count) { inOrderOfCreation.reserve(count); }

    /// Adds the equation `variable` = the terms, whose pointers are copied. The first term must be
    /// a variable or a constant; that is not checked.
    ///
    /// Throws std::invalid_argument("Equation already exists for this variable"), else
    /// std::invalid_argument("The right-hand side of an equation cannot be empty"); nothing changes
    /// then, nor where memory runs out.
    void addEquation(Variable<V>* variable, Term<V>* const* begin, Term<V>* const* end) {
        if (hasEquation(variable)) {
            throw std::invalid_argument("Equation already exists for this variable");
        }
        if (begin == end) {
            throw std::invalid_argument("The right-hand side of an equation cannot be empty");
        }
        Equation* const equation = factory->createEquation(variable, begin, end);
        if (equation == nullptr) throw std::bad_alloc(); // the pool got no block
        equation->number = static_cast<std::uint32_t>(inOrderOfCreation.size());
        inOrderOfCreation.push_back(equation);
        variable->equationNumber = equation->number;
    }
    void addEquation(Variable<V>* variable, std::initializer_list<Term<V>*> terms) {
        addEquation(variable, terms.begin(), terms.end());
    }

    /// Appends the terms, in order; none is allowed. Throws
    /// std::invalid_argument("Equation does not exist for this variable").
    void extendEquation(Variable<V>* variable, Term<V>* const* begin, Term<V>* const* end) {
        internal::Equation<V>* const equation = findEquation(variable);
        if (equation == nullptr) {
            throw std::invalid_argument("Equation does not exist for this variable");
        }
        factory->extend(*equation, begin, end);
    }
    void extendEquation(Variable<V>* variable, std::initializer_list<Term<V>*> terms) {
        extendEquation(variable, terms.begin(), terms.end());
    }

    bool hasEquation(const Variable<V>* variable) const {
        return findEquation(variable) != nullptr;
    }

    /// The variable's equation, or null.
    const internal::Equation<V>* equationOf(const Variable<V>* variable) const {
        return findEquation(variable);
    }

    /// Fixes the evaluation order: the reverse post-order of the graph whose edges run from the
    /// equation that defines a variable to those that read it. Equations that are added later are
    /// not in the system. Linear in equations and terms.
    std::shared_ptr<SystemOfEquations<L>> build() {
        return std::shared_ptr<SystemOfEquations<L>>(
            new SystemOfEquations<L>(lattice, factory, evaluationOrder()));
    }

private:
    using Equation = internal::Equation<V>;

    /// The number that the variable carries answers without hashing: nobody has numbered it, or it
    /// was numbered here. Only a variable of another builder's equation takes the hash look-up.
    Equation* findEquation(const Variable<V>* variable) const {
        const std::uint32_t number = variable->equationNumber;
        if (number == Variable<V>::NO_EQUATION) return nullptr;
        if (number < inOrderOfCreation.size() && inOrderOfCreation[number]->variable == variable) {
            return inOrderOfCreation[number];
        }
        return lookUpEquation(variable);
    }

    /// Brings the map up to date first. It lags behind because hardly anybody asks it: filling it
    /// at each equation would take a tenth of the time of an analysis.
    Equation* lookUpEquation(const Variable<V>* variable) const {
        equations.reserve(inOrderOfCreation.size());
        while (equations.size() != inOrderOfCreation.size()) {
            Equation* const equation = inOrderOfCreation[equations.size()];
            equations.emplace(equation->variable, equation);
        }
        const auto entry = equations.find(const_cast<Variable<V>*>(variable));
        return entry == equations.end() ? nullptr : entry->second;
    }

    /// Newest equations join the graph first. Any order gives the same solution, but sweeps depend
    /// on it: where a program has many loops in a row, a backward analysis that enters its
    /// equations in source order would carry a value across only one of them in a sweep. The order
    /// of creation is also the same in every run, which that of a hash map of pointers is not.
    std::shared_ptr<std::vector<Equation*>> evaluationOrder() const {
        Digraph<Equation*> graph;
        graph.reserve(inOrderOfCreation.size());
        // Equations have dense numbers, so that none needs to be hashed to find its node.
        std::vector<std::uint32_t> nodeOfNumber(inOrderOfCreation.size(), NO_NODE);
        const auto nodeOf = [&](Equation* equation) {
            std::uint32_t& node = nodeOfNumber[equation->number];
            if (node == NO_NODE) node = static_cast<std::uint32_t>(graph.addNewNode(equation));
            return node;
        };
        DependencySet<V> read;
        for (auto next = inOrderOfCreation.rbegin(); next != inOrderOfCreation.rend(); ++next) {
            const std::uint32_t reader = nodeOf(*next);
            read.clear();
            for (Term<V>* term : (*next)->rightHandSide)
                term->collectDependencies(read);
            for (Variable<V>* variable : read) {
                Equation* const definition = findEquation(variable);
                if (definition != nullptr) graph.addEdgeBetween(nodeOf(definition), reader);
            }
        }
        return graph.inReversePostOrder();
    }

    static constexpr std::uint32_t NO_NODE = std::numeric_limits<std::uint32_t>::max();

    L& lattice;
    std::shared_ptr<internal::Factory<V>> factory;
    // Lacks the equations that were added since it was last asked.
    mutable boost::unordered_flat_map<Variable<V>*, Equation*, ElementHash<Variable<V>*>> equations;
    const NodeNamer* nodeNamer;
    V initialValue;                           // bottom, made once: a family copies it for each node
    std::vector<Equation*> inOrderOfCreation; // all equations
};

} // namespace zt::orvex::flow
