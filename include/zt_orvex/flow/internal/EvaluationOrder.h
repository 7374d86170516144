#pragma once

#include <zt_orvex/flow/internal/Equation.h>
#include <zt_orvex/flow/internal/EquationTable.h>
#include <zt_orvex/flow/internal/IndexGraph.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace zt::orvex::flow::internal {

/// The order in which equations are evaluated: constant ones first, which read no other, then each
/// as a depth-first search along what equations read leaves it. Wherever there is no cycle, an
/// equation thus comes after those that it reads. Linear in equations and terms.
///
/// Any order gives the same solution, but the number of sweeps depends on where the search enters
/// the cycles. It begins with equations that no other reads, oldest first: where an analysis ends,
/// which is the entry of a program if the analysis runs backward. From there, a loop can only be
/// entered by its head, however control leaves it. So values run against the order on the back edges
/// of loops alone: loops in a row add no sweep, and nested ones add one for each level.
///
/// The order of creation is the same in every run, unlike that of pointers in a hash map.
template <typename V>
class EvaluationOrder {
public:
    explicit EvaluationOrder(const EquationTable<V>& of)
        : equations(of), readsOthers(of.size()), nodeOfEquation(of.size()) {
        findEdges();
        numberNodes();
        for (const Edge& edge : edges)
            graph.addEdge(nodeOfEquation[edge.reader], nodeOfEquation[edge.definition]);
    }

    std::vector<Equation<V>*> compute() const {
        std::vector<Equation<V>*> order;
        order.reserve(equations.size());
        for (Number number = 0; number < equations.size(); ++number) {
            if (!readsOthers[number]) order.push_back(equations[number]);
        }
        graph.traverseDepthFirst(
            [](std::uint64_t) {},
            [&](std::uint64_t node) { order.push_back(equations[equationOfNode[node]]); });
        return order;
    }

private:
    using Number = std::uint32_t; // of an equation, in order of creation
    using Flag = std::uint8_t;    // a byte is asked faster than a bit

    struct Edge {
        Number reader;
        Number definition;
    };

    /// All edges but those to constant equations, which take no part in the search.
    void findEdges() {
        edges.reserve(2 * equations.size());
        DependencySet<V> read;
        for (Number reader = 0; reader < equations.size(); ++reader) {
            read.clear();
            for (Term<V>* term : equations[reader]->rightHandSide)
                term->collectDependencies(read);
            for (const Variable<V>* variable : read) {
                const Equation<V>* const definition = equations.find(variable);
                if (definition == nullptr) continue;
                edges.push_back({reader, definition->number});
                readsOthers[reader] = true;
            }
        }
        const auto leadsToConstant = [this](const Edge& edge) {
            return !readsOthers[edge.definition];
        };
        edges.erase(std::remove_if(edges.begin(), edges.end(), leadsToConstant), edges.end());
    }

    /// Roots of the search have the lowest numbers.
    void numberNodes() {
        std::vector<Flag> isRead(equations.size());
        for (const Edge& edge : edges)
            isRead[edge.definition] = true;
        graph.reserve(equations.size());
        equationOfNode.reserve(equations.size());
        for (const Flag read : {false, true}) {
            for (Number number = 0; number < equations.size(); ++number) {
                if (readsOthers[number] && isRead[number] == read) addNode(number);
            }
        }
    }

    void addNode(Number number) {
        nodeOfEquation[number] = static_cast<Number>(graph.addNode());
        equationOfNode.push_back(number);
    }

    const EquationTable<V>& equations;
    std::vector<Flag> readsOthers; // by equation
    std::vector<Edge> edges;
    IndexGraph graph;
    std::vector<Number> nodeOfEquation;
    std::vector<Number> equationOfNode;
};

} // namespace zt::orvex::flow::internal
