// Input: the answers of a tree that doesn't exist, and changes them. Nothing but the documented
// exceptions may come of walking and analysing it.
#include "LyingTree.h"
#include "Require.h"

#include <zt_orvex/analysis/AnsAnalysis.h>
#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex/ast/ControlFlow.h>
#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/TypedViews.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <unordered_set>

using namespace zt::orvex;
using fuzz::LyingTree;
using fuzz::require;

namespace {

bool isDocumented(std::string_view message) {
    constexpr std::string_view DOWNCAST = "View type is expected in the downcast argument.";
    return message == "Equation already exists for this variable" ||
           message == "Maximum iterations exceeded in SystemOfEquations::solve" ||
           (message.size() > DOWNCAST.size() &&
            message.substr(message.size() - DOWNCAST.size()) == DOWNCAST);
}

template <typename Call>
void expectOnlyDocumentedErrors(Call call) {
    try {
        call();
    } catch (const std::logic_error& error) {
        require(isDocumented(error.what()), error.what());
    }
}

void analyze(const StatementRangeView& statements, const flow::OrderedSet<SymbolView>& universe,
             testing::Random& random) {
    const auto type = static_cast<flow::AnalysisTypeView>(random.below(2));
    const auto mode = static_cast<flow::AnalysisModeView>(random.below(3));
    flow::TransparentLiveVariablesAnalyzerView analyzer(
        universe, statements, type, mode, {universe.elementAt(0), universe.elementAt(1)}, nullptr);
    const std::size_t live = analyzer.getVariablesLiveAtEntry().size();
    require(live + analyzer.getVariablesNotLiveAtEntry().size() == universe.size(),
            "each variable is live or not");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    testing::Random random(data, size);
    LyingTree tree(random);
    flow::OrderedSet<SymbolView> universe;
    for (std::uint64_t symbol = 0; symbol < 6; ++symbol)
        universe.add(SymbolView{symbol, &tree});

    const auto kind = static_cast<NodeKind>(random.below(80));
    const ParforStatementView parfor(tree.root(NodeKind::ParforStatement));
    const SpmdStatementView spmd(tree.root(NodeKind::SpmdStatement));
    switch (random.below(7)) {
    case 0:
        forEachNodeIn(tree.root(kind), [](const NodeView& node) {
            static_cast<void>(flow::isControlFlowNode(node));
        });
        break;
    case 1:
        expectOnlyDocumentedErrors(
            [&] { flow::computeLiveAsTemporaryVariables(parfor, universe, nullptr); });
        break;
    case 2:
        expectOnlyDocumentedErrors(
            [&] { flow::computeNotLiveAsSlicedVariables(parfor, universe, nullptr); });
        break;
    case 3:
        expectOnlyDocumentedErrors(
            [&] { flow::computeSpmdOutputVariables(spmd, universe, nullptr); });
        break;
    case 4:
        expectOnlyDocumentedErrors([&] {
            flow::isAnsPossiblyReadBeforeBeingWritten(parfor, universe.elementAt(2), nullptr);
        });
        break;
    default:
        expectOnlyDocumentedErrors([&] { analyze(parfor.getParforBody(), universe, random); });
    }
    return 0;
}
