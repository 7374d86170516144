// The analyses of bodies, and what the kit says of them.
#include "analysis/RandomTree.h"
#include "platform/Lines.h"
#include "platform/Sections.h"
#include "testing/Random.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/analysis/AnsAnalysis.h>
#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex_kit/body/FlowGraph.h>
#include <zt_orvex_kit/body/FlowText.h>
#include <zt_orvex_kit/reasons/CheckExplanation.h>
#include <zt_orvex_kit/reasons/Explain.h>

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

namespace zt::orvex::testing {

namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;

constexpr AnalysisTypeView TYPES[] = {AnalysisTypeView::May, AnalysisTypeView::Must};
constexpr AnalysisModeView MODES[] = {AnalysisModeView::Plain, AnalysisModeView::Sliced,
                                      AnalysisModeView::Ans};

const char* nameOf(AnalysisTypeView type) { return type == AnalysisTypeView::May ? "may" : "must"; }

const char* nameOf(AnalysisModeView mode) {
    switch (mode) {
    case AnalysisModeView::Plain:
        return "plain";
    case AnalysisModeView::Sliced:
        return "sliced";
    case AnalysisModeView::Ans:
        return "ans";
    }
    return "unknown";
}

/// A body with random statements, and a universe of its variables.
class Body {
public:
    Body(Random& random, std::size_t number) : name("body " + std::to_string(number)) {
        RandomTreeShape shape;
        shape.statementDepth = 1 + number % 3;
        shape.isWeird = number % 5 == 4;
        statements = RandomTree(t, random, shape).statements();
        for (const std::string& variable : RandomTree::names()) {
            if (variable != "outside" && variable != "sin") universe.add(t.symbol(variable));
        }
    }

    TreeBuilder t;
    Nodes statements;
    flow::OrderedSet<SymbolView> universe;
    std::string name;
};

void probeSettings(Body& body) {
    const std::function<std::string(NodeView)> printer;
    const std::unordered_set<SymbolView> subscripts = {body.t.symbol("k")};
    for (const AnalysisTypeView type : TYPES) {
        for (const AnalysisModeView mode : MODES) {
            line(body.name + " " + nameOf(type) + " " + nameOf(mode), outcome([&] {
                     flow::TransparentLiveVariablesAnalyzerView analyzer(
                         body.universe, body.t.block(body.statements), type, mode, subscripts,
                         printer);
                     return "live " + namesOf(analyzer.getVariablesLiveAtEntry()) + " not " +
                            namesOf(analyzer.getVariablesNotLiveAtEntry()) + " " +
                            analyzer.toString();
                 }));
        }
    }
}

void probeConstructs(Body& body) {
    const std::function<std::string(NodeView)> printer;
    const SymbolView ans = body.t.symbol("ans");
    const IdentifierView variable = body.t.id("k");
    const IdentifierView range = body.t.id("x");
    const ParforStatementView loop = body.t.parforLoop(variable, range, body.statements);
    const auto parfor = [&](const char* asked, auto compute) {
        line(body.name + " " + asked,
             outcome([&] { return namesOf(compute(loop, body.universe, printer)); }));
    };
    parfor("temporary", flow::computeLiveAsTemporaryVariables);
    parfor("maybe temporary", flow::computeMaybeLiveAsTemporaryVariables);
    parfor("sliced", flow::computeNotLiveAsSlicedVariables);
    line(body.name + " reads ans", outcome([&] {
             return shown(flow::isAnsPossiblyReadBeforeBeingWritten(loop, ans, printer));
         }));
    const SpmdStatementView block = body.t.spmd(body.statements);
    line(body.name + " spmd", outcome([&] {
             return namesOf(flow::computeSpmdOutputVariables(block, body.universe, printer)) +
                    " reads ans " +
                    shown(flow::isAnsPossiblyReadBeforeBeingWritten(block, ans, printer));
         }));
}

/// The nodes of a path by their places in the graph.
std::string textOf(const std::vector<kit::FlowNode>& nodes) {
    std::vector<std::string> texts;
    for (const kit::FlowNode node : nodes)
        texts.push_back(std::to_string(node));
    return joined(texts);
}

std::string textOf(const kit::FlowPath& path) {
    return "path " + textOf(path.nodes) + " end " + std::to_string(static_cast<int>(path.end)) +
           (path.access ? " " + std::string(kit::toText(path.access->kind)) : "");
}

std::string textOf(const kit::Explanation& reason) {
    std::vector<std::string> ranks;
    for (const kit::RankedNode& ranked : reason.ranks)
        ranks.push_back(std::to_string(ranked.node) + "@" + std::to_string(ranked.rank));
    return std::to_string(static_cast<int>(reason.kind)) + " live " + shown(reason.isLive) + " " +
           textOf(reason.path) + " writes " + textOf(reason.writes) + " ranks " + joined(ranks);
}

void probeReasons(const Body& body, const kit::FlowGraph& graph) {
    const std::string name = body.name + " " + nameOf(graph.type());
    for (const SymbolView& symbol : body.universe) {
        const kit::Explanation reason = kit::explain(graph, symbol);
        line(name + " " + label(symbol),
             textOf(reason) + " proof " +
                 shown(kit::checkExplanation(graph, symbol, reason).isProof()));
        if (graph.type() == AnalysisTypeView::Must) continue;
        if (const auto carried = kit::explainCarried(graph, symbol)) {
            line(name + " " + label(symbol) + " carried",
                 textOf(carried->write) + " then " + textOf(carried->read) + " proof " +
                     shown(kit::checkCarried(graph, symbol, *carried).isProof()));
        }
    }
}

} // namespace

void probeAnalyses() {
    Random random(4);
    for (std::size_t number = 0; number < 40; ++number) {
        Body body(random, number);
        probeSettings(body);
        probeConstructs(body);
    }
}

void probeExplanations() {
    Random random(5);
    for (std::size_t number = 0; number < 12; ++number) {
        Body body(random, number);
        for (const AnalysisTypeView type : TYPES) {
            const kit::FlowGraph graph(body.universe, body.t.block(body.statements), type,
                                       AnalysisModeView::Plain);
            if (type == AnalysisTypeView::May)
                lines(body.name + " flow", withoutHandles(kit::toText(graph)));
            probeReasons(body, graph);
        }
    }
}

} // namespace zt::orvex::testing
