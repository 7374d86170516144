#pragma once

#include <zt_orvex/flow/internal/Equation.h>
#include <zt_orvex/flow/internal/EquationTable.h>
#include <zt_orvex/flow/internal/IndexGraph.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zt::orvex::flow::internal {

/// The reverse post-order of the graph whose edges run from the equation that defines a variable to
/// those that read it. Linear in equations and terms.
///
/// The newest equations join the graph first. Any order gives the same solution, but sweeps depend
/// on it: where a program has many loops in a row, a backward analysis that enters its equations in
/// source order would carry a value across only one of them in a sweep. The order of creation is
/// also the same in every run, unlike that of a hash map of pointers.
template <typename V>
class EvaluationOrder {
public:
    explicit EvaluationOrder(const EquationTable<V>& of)
        : equations(of), nodeOfNumber(of.size(), NO_NODE) {
        graph.reserve(equations.size());
        equationOfNode.reserve(equations.size());
        for (std::size_t number = equations.size(); number-- > 0;)
            addReader(equations[number]);
    }

    std::shared_ptr<std::vector<Equation<V>*>> inReversePostOrder() const {
        auto order = std::make_shared<std::vector<Equation<V>*>>(equationOfNode.size());
        auto cursor = order->end();
        graph.traverseDepthFirst([](std::uint64_t) {},
                                 [&](std::uint64_t node) { *--cursor = equationOfNode[node]; });
        return order;
    }

private:
    static constexpr std::uint32_t NO_NODE = ~std::uint32_t{0};

    void addReader(Equation<V>* equation) {
        const std::uint32_t reader = nodeOf(equation);
        read.clear();
        for (Term<V>* term : equation->rightHandSide)
            term->collectDependencies(read);
        for (const Variable<V>* variable : read) {
            Equation<V>* const definition = equations.find(variable);
            if (definition != nullptr) graph.addEdge(nodeOf(definition), reader);
        }
    }

    /// Equations have dense numbers, so that none needs to be hashed to find its node.
    std::uint32_t nodeOf(Equation<V>* equation) {
        std::uint32_t& node = nodeOfNumber[equation->number];
        if (node == NO_NODE) {
            node = static_cast<std::uint32_t>(graph.addNode());
            equationOfNode.push_back(equation);
        }
        return node;
    }

    const EquationTable<V>& equations;
    IndexGraph graph;
    std::vector<std::uint32_t> nodeOfNumber;
    std::vector<Equation<V>*> equationOfNode;
    DependencySet<V> read; // by the equation in hand
};

} // namespace zt::orvex::flow::internal
