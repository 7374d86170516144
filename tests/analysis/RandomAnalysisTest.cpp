#include "analysis/Liveness.h"
#include "analysis/RandomTree.h"
#include "analysis/ReferenceAnalysis.h"
#include "analysis/ReferenceFlowGraph.h"
#include "testing/FlowDump.h"
#include "testing/Random.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <unordered_set>

namespace zt::orvex::testing {
namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;
using flow::internal::Liveness;

constexpr AnalysisTypeView TYPES[] = {AnalysisTypeView::May, AnalysisTypeView::Must};
constexpr AnalysisModeView MODES[] = {AnalysisModeView::Plain, AnalysisModeView::Sliced,
                                      AnalysisModeView::Ans};
constexpr std::size_t PATH_LIMIT = 500;

Symbols handlesOf(const std::unordered_set<SymbolView>& symbols) {
    Symbols handles;
    for (const SymbolView& symbol : symbols)
        handles.insert(symbol.symbol);
    return handles;
}

std::unordered_set<SymbolView> viewsOf(const Symbols& handles, const IAstView& ast) {
    std::unordered_set<SymbolView> symbols;
    for (const std::uint64_t handle : handles)
        symbols.insert(SymbolView{handle, &ast});
    return symbols;
}

// One tree, for one analysis after another.
class Trial {
public:
    Trial(Random& from, const RandomTreeShape& shape)
        : random(from), range(grow(shape)), graph(range) {
        for (const std::string& name : RandomTree::names()) {
            if (name != "outside") universe.add(builder.symbol(name));
            // Also names outside of the universe, and sometimes none at all.
            if (random.oneIn(3)) subscriptVariables.insert(builder.symbol(name).symbol);
        }
    }

    void expectSameEdges() const {
        const Liveness analysis(universe, range, AnalysisTypeView::May, AnalysisModeView::Plain, {},
                                nullptr);
        ASSERT_EQ(FlowDump(analysis).getEdges(), graph.getEdges());
        ASSERT_EQ(analysis.nodes().size(), graph.getNodes().size());
    }

    void expectSameSolution(AnalysisTypeView type, AnalysisModeView mode) {
        const ReferenceAnalysis reference = refer(type, mode);
        const Liveness analysis(universe, range, type, mode,
                                viewsOf(subscriptVariables, builder.ast), nullptr);
        for (const Liveness::NodeVariables& node : analysis.nodes()) {
            const Effects& effects = reference.getEffects(node.node.node);
            ASSERT_EQ(handlesOf(node.gen->value().toElementSet()), effects.gen)
                << label(node.node) << '\n'
                << reference.describe();
            ASSERT_EQ(handlesOf(node.kill->value().toElementSet()), effects.kill)
                << label(node.node) << '\n'
                << reference.describe();
        }
        ASSERT_EQ(handlesOf(analysis.liveAtEntry().toElementSet()),
                  reference.getLiveAtEntry(random))
            << reference.describe();
    }

    void expectSameAnswersOfTheInterface(AnalysisTypeView type, AnalysisModeView mode) {
        flow::TransparentLiveVariablesAnalyzerView analyzer(
            universe, range, type, mode, viewsOf(subscriptVariables, builder.ast), nullptr);
        const Symbols live = refer(type, mode).getLiveAtEntry(random);
        ASSERT_EQ(handlesOf(analyzer.getVariablesLiveAtEntry()), live);
        Symbols notLive;
        for (const SymbolView& symbol : universe)
            if (live.count(symbol.symbol) == 0) notLive.insert(symbol.symbol);
        ASSERT_EQ(handlesOf(analyzer.getVariablesNotLiveAtEntry()), notLive);
    }

    // Whether there were few enough paths to walk them all.
    bool expectPathsToAgree(AnalysisModeView mode) const {
        EXPECT_FALSE(graph.hasCycle());
        const ReferenceAnalysis reference = refer(AnalysisTypeView::May, mode);
        const auto readFirst = reference.getReadFirstOnSomePath(PATH_LIMIT);
        if (!readFirst) return false;
        const Liveness analysis(universe, range, AnalysisTypeView::May, mode,
                                viewsOf(subscriptVariables, builder.ast), nullptr);
        EXPECT_EQ(handlesOf(analysis.liveAtEntry().toElementSet()), *readFirst)
            << reference.describe();
        return true;
    }

private:
    StatementRangeView grow(const RandomTreeShape& shape) {
        RandomTree grower(builder, random, shape);
        return builder.block(grower.statements());
    }

    ReferenceAnalysis refer(AnalysisTypeView type, AnalysisModeView mode) const {
        ReferenceSettings settings;
        settings.type = type;
        settings.mode = mode;
        for (const SymbolView& symbol : universe)
            settings.universe.insert(symbol.symbol);
        settings.subscriptVariables = subscriptVariables;
        return ReferenceAnalysis(graph, settings);
    }

    Random& random;
    TreeBuilder builder;
    StatementRangeView range;
    ReferenceFlowGraph graph;
    flow::OrderedSet<SymbolView> universe;
    Symbols subscriptVariables;
};

void runTrials(const RandomTreeShape& shape, std::size_t trees) {
    Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t i = 0; i < rounds(trees); ++i) {
        SCOPED_TRACE("tree " + std::to_string(i));
        Trial trial(random, shape);
        trial.expectSameEdges();
        const AnalysisTypeView someType = random.pick(TYPES);
        trial.expectSameAnswersOfTheInterface(someType, random.pick(MODES));
        for (const AnalysisTypeView type : TYPES) {
            for (const AnalysisModeView mode : MODES) {
                SCOPED_TRACE("type " + std::to_string(static_cast<int>(type)) + " mode " +
                             std::to_string(static_cast<int>(mode)));
                trial.expectSameSolution(type, mode);
            }
        }
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(RandomTree, GrowsEveryKindThatAnAnalysisCanMeet) {
    RandomTreeShape shape;
    shape.isWeird = true;
    Random random;
    SCOPED_TRACE(random.describe());
    std::set<NodeKind> grown;
    for (std::size_t i = 0; i < 300; ++i) {
        TreeBuilder builder;
        RandomTree grower(builder, random, shape);
        for (const NodeView& statement : grower.statements())
            forEachNodeIn(statement, [&](const NodeView& node) { grown.insert(node.getKind()); });
    }
    // The parts of classes and functions don't occur in a range of statements.
    const std::set<NodeKind> elsewhere = {NodeKind::ArgumentDeclaration,
                                          NodeKind::ArgumentsBlock,
                                          NodeKind::Attribute,
                                          NodeKind::ClassDefinition,
                                          NodeKind::EnumerationBlock,
                                          NodeKind::EnumerationMember,
                                          NodeKind::EventDefinition,
                                          NodeKind::EventsBlock,
                                          NodeKind::FunctionDefinition,
                                          NodeKind::MethodDeclaration,
                                          NodeKind::MethodDefinition,
                                          NodeKind::MethodsBlock,
                                          NodeKind::Program,
                                          NodeKind::PropertiesBlock,
                                          NodeKind::PropertyDefinition,
                                          NodeKind::ValidationSpecification};
    for (const NodeKind kind : getAllNodeKinds())
        EXPECT_EQ(grown.count(kind), 1 - elsewhere.count(kind)) << nameOf(kind);
}

TEST(RandomAnalysis, AgreesWithASecondImplementation) {
    RandomTreeShape shape;
    shape.breadth = 3;
    runTrials(shape, 4'000);
}

TEST(RandomAnalysis, AgreesOnTreesThatNoParserMakes) {
    RandomTreeShape shape;
    shape.breadth = 3;
    shape.isWeird = true;
    runTrials(shape, 3'000);
}

TEST(RandomAnalysis, AgreesOnDeeperNests) {
    RandomTreeShape shape;
    shape.statementDepth = 7;
    shape.expressionDepth = 1;
    shape.breadth = 2;
    runTrials(shape, 3'000);
}

TEST(RandomAnalysis, AgreesWithAWalkOfEveryPathWhereNothingLoops) {
    RandomTreeShape shape;
    shape.breadth = 3;
    shape.hasLoops = false;
    const std::size_t trees = rounds(4'000);
    Random random;
    SCOPED_TRACE(random.describe());
    std::size_t walked = 0;
    for (std::size_t i = 0; i < trees; ++i) {
        SCOPED_TRACE("tree " + std::to_string(i));
        shape.isWeird = random.oneIn(4);
        Trial trial(random, shape);
        for (const AnalysisModeView mode : MODES)
            if (trial.expectPathsToAgree(mode)) ++walked;
        if (::testing::Test::HasFailure()) return;
    }
    // Most of them, or the test would show little.
    EXPECT_GT(walked, trees * 3 / 2);
}

} // namespace
} // namespace zt::orvex::testing
