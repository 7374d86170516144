// Input: the decisions from which a range of statements is grown. All
// analyses of the range are compared with a second implementation.
#include "Require.h"
#include "analysis/RandomTree.h"
#include "analysis/ReferenceAnalysis.h"
#include "analysis/ReferenceFlowGraph.h"
#include "testing/FlowDump.h"

#include <zt_orvex/analysis/AnsAnalysis.h>
#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex/ast/ForEachNodeIn.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <unordered_set>

using namespace zt::orvex;
using namespace zt::orvex::testing;
using flow::AnalysisModeView;
using flow::AnalysisTypeView;
using fuzz::require;

namespace {

constexpr AnalysisTypeView TYPES[] = {AnalysisTypeView::May, AnalysisTypeView::Must};
constexpr AnalysisModeView MODES[] = {AnalysisModeView::Plain, AnalysisModeView::Sliced,
                                      AnalysisModeView::Ans};
constexpr std::size_t MAXIMUM_NODES = 4000;

/// What is drawn before the tree, which may use the input up: one setting and one computation, since
/// inputs are many, and the tree's shape.
struct Plan {
    explicit Plan(Random& random)
        : type(random.pick(TYPES)), mode(random.pick(MODES)), computation(random.below(6)),
          subscripts(random.below(0x400)) {
        shape.isWeird = random.oneIn(2);
        shape.statementDepth = random.between(1, 7);
        shape.expressionDepth = random.between(0, 3);
        shape.breadth = random.between(2, 5);
    }

    AnalysisTypeView type;
    AnalysisModeView mode;
    std::size_t computation;
    std::size_t subscripts; // a bit for each name
    RandomTreeShape shape;
};

Symbols handlesOf(const std::unordered_set<SymbolView>& symbols) {
    Symbols handles;
    for (const SymbolView& symbol : symbols)
        handles.insert(symbol.symbol);
    return handles;
}

/// One range of statements, and what both implementations say about it.
class Comparison {
public:
    explicit Comparison(Random& from)
        : plan(from), statements(grow(from)), range(builder.block(statements)), graph(range) {
        std::size_t bits = plan.subscripts;
        for (const std::string& name : RandomTree::names()) {
            const SymbolView symbol = builder.symbol(name);
            if (name != "outside") universe.add(symbol);
            if (bits % 2 != 0) subscriptVariables.insert(symbol);
            bits /= 2;
        }
    }

    void run() {
        if (builder.ast.size() > MAXIMUM_NODES) return;
        compareEdges();
        compareAnalyzer(plan.type, plan.mode);
        compareComputation();
    }

private:
    Nodes grow(Random& random) {
        RandomTree tree(builder, random, plan.shape);
        return tree.statements();
    }

    void compareEdges() const {
        const flow::internal::Liveness analysis(universe, range, AnalysisTypeView::May,
                                                AnalysisModeView::Plain, {}, nullptr);
        require(FlowDump(analysis).getEdges() == graph.getEdges(), "equal edges");
    }

    void compareAnalyzer(AnalysisTypeView type, AnalysisModeView mode) {
        flow::TransparentLiveVariablesAnalyzerView analyzer(universe, range, type, mode,
                                                            subscriptVariables, nullptr);
        const Symbols live = liveAtEntry(type, mode, handlesOf(subscriptVariables));
        require(handlesOf(analyzer.getVariablesLiveAtEntry()) == live, "equal live variables");
        require(handlesOf(analyzer.getVariablesNotLiveAtEntry()) == without(live),
                "the others are not live");
        require(analyzer.toString() == "<description omitted in non-asserted builds>", "its text");
    }

    void compareComputation() {
        const ParforStatementView parfor =
            builder.parforLoop(builder.id("k"), builder.id("x"), statements);
        const SpmdStatementView spmd = builder.spmd(statements);
        switch (plan.computation) {
        case 0:
            require(handlesOf(flow::computeLiveAsTemporaryVariables(parfor, universe, nullptr)) ==
                        liveAtEntry(AnalysisTypeView::Must, AnalysisModeView::Plain, {}),
                    "live as temporary");
            break;
        case 1:
            require(
                handlesOf(flow::computeMaybeLiveAsTemporaryVariables(parfor, universe, nullptr)) ==
                    liveAtEntry(AnalysisTypeView::May, AnalysisModeView::Plain, {}),
                "maybe live as temporary");
            break;
        case 2:
            compareSliced(parfor);
            break;
        case 3:
            require(handlesOf(flow::computeSpmdOutputVariables(spmd, universe, nullptr)) ==
                        without(liveAtEntry(AnalysisTypeView::May, AnalysisModeView::Plain, {})),
                    "outputs of spmd");
            break;
        case 4:
            compareAns(parfor);
            break;
        default:
            compareAns(spmd);
        }
    }

    /// The variable of a loop is asked for its symbol without asking for its kind. The tree refuses
    /// that where the variable isn't an identifier.
    void compareSliced(const ParforStatementView& parfor) {
        Symbols loopVariables;
        bool isRefused = false;
        forEachNodeIn(parfor, [&](const NodeView& node) {
            if (node.getKind() != NodeKind::ForStatement) return;
            const NodeView variable = ForStatementView(node).getForVariable();
            if (variable.getKind() == NodeKind::Identifier) {
                loopVariables.insert(IdentifierView(variable).getIdentifierSymbol().symbol);
            } else {
                isRefused = true;
            }
        });
        try {
            const auto answer = flow::computeNotLiveAsSlicedVariables(parfor, universe, nullptr);
            require(!isRefused, "the loop variable was asked for its symbol");
            require(handlesOf(answer) ==
                        without(liveAtEntry(AnalysisTypeView::May, AnalysisModeView::Sliced,
                                            loopVariables)),
                    "not live as sliced");
        } catch (const std::logic_error&) {
            require(isRefused, "nothing else is refused");
        }
    }

    template <typename Construct>
    void compareAns(Construct construct) {
        const SymbolView ans = builder.symbol("ans");
        const Symbols live = liveAtEntry(AnalysisTypeView::May, AnalysisModeView::Ans, {});
        require(flow::isAnsPossiblyReadBeforeBeingWritten(construct, ans, nullptr) ==
                    (live.count(ans.symbol) != 0),
                "ans read before it is written");
    }

    Symbols liveAtEntry(AnalysisTypeView type, AnalysisModeView mode,
                        const Symbols& subscripts) const {
        ReferenceSettings settings;
        settings.type = type;
        settings.mode = mode;
        settings.subscriptVariables = subscripts;
        for (const SymbolView& symbol : universe)
            settings.universe.insert(symbol.symbol);
        Random order(1);
        return ReferenceAnalysis(graph, settings).getLiveAtEntry(order);
    }

    Symbols without(const Symbols& live) const {
        Symbols rest;
        for (const SymbolView& symbol : universe) {
            if (live.count(symbol.symbol) == 0) rest.insert(symbol.symbol);
        }
        return rest;
    }

    Plan plan;
    TreeBuilder builder;
    Nodes statements;
    StatementRangeView range;
    ReferenceFlowGraph graph;
    flow::OrderedSet<SymbolView> universe;
    std::unordered_set<SymbolView> subscriptVariables;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Random random(data, size);
    Comparison(random).run();
    return 0;
}
