#include "analysis/Liveness.h"

#include "analysis/ControlFlow.h"
#include "analysis/GenKillSets.h"
#include "analysis/HeadEffects.h"

#include <utility>

namespace zt::orvex::flow::internal {

namespace {

using Builder = SystemOfEquationsBuilder<Liveness::Lattice>;

/// A sink of `ControlFlow` that writes the equations of each node and edge.
class EquationWriter {
public:
    using Node = Liveness::NodeVariables*;

    EquationWriter(Builder& into, std::deque<Liveness::NodeVariables>& variablesOfNodes,
                   const OrderedSet<SymbolView>& universe, AnalysisTypeView analysisType,
                   AnalysisModeView mode, const std::unordered_set<SymbolView>& subscriptVariables)
        : builder(into), variables(variablesOfNodes), type(analysisType),
          liveIn(builder.createVariableFamily("liveIn", false)), sets(universe, type, mode),
          effects(universe, mode, subscriptVariables, sets) {}

    Node addNode(const NodeView& view) {
        sets.clear();
        effects.report(view);
        return addEquations(view);
    }

    Node addPseudoNode(const NodeView& view) {
        sets.clear();
        return addEquations(view);
    }

    /// The first successor of a node assigns, and each further one is merged in.
    void addEdge(Node from, Node to) {
        if (!builder.hasEquation(from->liveOut)) {
            builder.addEquation(from->liveOut, {to->liveIn});
        } else if (type == AnalysisTypeView::Must) {
            builder.extendEquation(from->liveOut, {builder.createMeet(to->liveIn)});
        } else {
            builder.extendEquation(from->liveOut, {builder.createJoin(to->liveIn)});
        }
    }

private:
    Node addEquations(const NodeView& view) {
        // A node that occurs at two places finds the variable of its first place in the family, and
        // the second equation for it is refused. The other three need no such look-up, so they are
        // made outside of any family, under the name that a family gives.
        static const std::string omitted = "<names omitted in non-asserted builds>";
        Variable<Liveness::Value>* const in = liveIn.at(view);
        const Node node = &variables.emplace_back(Liveness::NodeVariables{
            view, in, builder.createVariable(omitted), builder.createVariable(omitted),
            builder.createVariable(omitted)});
        builder.addEquation(node->gen, {builder.createConstant(sets.gen())});
        builder.addEquation(node->kill, {builder.createConstant(sets.kill())});
        builder.addEquation(node->liveIn, {node->liveOut, builder.createMinus(node->kill),
                                           builder.createJoin(node->gen)});
        return node;
    }

    Builder& builder;
    std::deque<Liveness::NodeVariables>& variables;
    AnalysisTypeView type;
    VariableFamily<Liveness::Value> liveIn;
    GenKillSets sets; // of the node that is being added
    HeadEffects<GenKillSets> effects;
};

} // namespace

Liveness::Liveness(const OrderedSet<SymbolView>& universe, const StatementRangeView& statements,
                   AnalysisTypeView type, AnalysisModeView mode,
                   const std::unordered_set<SymbolView>& subscriptVariables,
                   std::function<std::string(NodeView)> printer)
    : nodePrinter(std::move(printer)), lattice(universe), builder(lattice, &nodePrinter) {
    EquationWriter equations(builder, variables, universe, type, mode, subscriptVariables);
    ControlFlow(statements, equations).report();
    system = builder.build();
    sweeps = system->solve();
}

} // namespace zt::orvex::flow::internal
