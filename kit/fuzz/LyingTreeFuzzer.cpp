// A tree that lies as the input says, through the check, and what the check accepts through the walks,
// the dumps and the flow graph. The check must end, and what it accepts must be safe.
#include "LyingTree.h"

#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex_kit/body/FlowText.h>
#include <zt_orvex_kit/reasons/CheckExplanation.h>
#include <zt_orvex_kit/reasons/Explain.h>
#include <zt_orvex_kit/tree/CheckTree.h>
#include <zt_orvex_kit/tree/DumpTree.h>
#include <zt_orvex_kit/tree/SymbolNames.h>
#include <zt_orvex_kit/tree/Traversal.h>

#include <cstdlib>

using namespace zt::orvex;

namespace {

void require(bool condition) {
    if (!condition) std::abort();
}

std::size_t countVisits(const NodeView& root) {
    std::size_t entered = 0;
    std::size_t left = 0;
    kit::traverse(root, {[&](const kit::Visit&) {
                             ++entered;
                             return kit::Next::Descend;
                         },
                         [&](const kit::Visit&) { ++left; }});
    require(entered == left);
    return entered;
}

/// The graph of the body gives the library's answer, and a proof for each symbol.
void useBody(const ParforStatementView& loop, const flow::OrderedSet<SymbolView>& universe) {
    const kit::FlowGraph graph(universe, loop.getParforBody(), flow::AnalysisTypeView::May,
                               flow::AnalysisModeView::Plain);
    require(!kit::toText(graph).empty() && !kit::toDot(graph).empty());
    require(graph.liveAtEntry() == flow::computeMaybeLiveAsTemporaryVariables(loop, universe, {}));
    for (const SymbolView& symbol : universe) {
        require(kit::checkExplanation(graph, symbol, kit::explain(graph, symbol)).isProof());
        const auto carried = kit::explainCarried(graph, symbol);
        require(!carried || kit::checkCarried(graph, symbol, *carried).isProof());
    }
}

void useAccepted(const NodeView& root) {
    std::size_t walked = 0;
    forEachNodeIn(root, [&walked](NodeView) { ++walked; });
    require(countVisits(root) == walked);
    for (const kit::DumpFormat format :
         {kit::DumpFormat::Text, kit::DumpFormat::Dot, kit::DumpFormat::Json}) {
        kit::DumpOptions options;
        options.format = format;
        require(!kit::dumpTree(root, options).empty());
    }
    const kit::SymbolNames names(root);
    flow::OrderedSet<SymbolView> universe;
    for (std::uint64_t symbol = 0; symbol < 3; ++symbol)
        universe.add({symbol, root.view});
    useBody(ParforStatementView(root), universe);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const kit::fuzz::LyingTree tree(data, size);
    kit::CheckTreeOptions options;
    options.maxNodes = 20'000;
    options.maxDepth = 200;
    options.maxRangeSize = 1'000;
    options.maxFindings = 20;
    const auto findings = kit::checkTree(tree.root(), options);
    require(findings.size() <= options.maxFindings + 1);
    // Nobody can check a tree that answers otherwise the next time.
    if (findings.empty() && !tree.isFickleTree()) useAccepted(tree.root());
    return 0;
}
