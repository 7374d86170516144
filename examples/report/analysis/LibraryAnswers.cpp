#include "report/analysis/LibraryAnswers.h"

#include <zt_orvex/analysis/AnsAnalysis.h>
#include <zt_orvex/analysis/LiveVariables.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>

namespace ostrel::report {

using namespace zt::orvex;

ConstructKind kindOf(const ostrel::Construct& construct) {
    return construct.node.getKind() == NodeKind::ParforStatement ? ConstructKind::Parfor
                                                                 : ConstructKind::Spmd;
}

StatementRangeView bodyOf(const ostrel::Construct& construct) {
    return kindOf(construct) == ConstructKind::Parfor
               ? ParforStatementView(construct.node).getParforBody()
               : SpmdStatementView(construct.node).getSpmdBody();
}

namespace {

/// A body that doesn't name `ans` can't read it, so the library needn't be asked.
template <typename ConstructView>
bool readsAnsFirst(ConstructView construct, const flow::OrderedSet<SymbolView>& universe,
                   SymbolView ans) {
    return universe.contains(ans) && flow::isAnsPossiblyReadBeforeBeingWritten(construct, ans, {});
}

} // namespace

LibraryAnswers askLibrary(const ostrel::Construct& construct,
                          const flow::OrderedSet<SymbolView>& universe, SymbolView ans) {
    LibraryAnswers answers;
    if (kindOf(construct) == ConstructKind::Parfor) {
        const ParforStatementView loop(construct.node);
        answers.liveAsTemporary = flow::computeLiveAsTemporaryVariables(loop, universe, {});
        answers.maybeLiveAsTemporary =
            flow::computeMaybeLiveAsTemporaryVariables(loop, universe, {});
        answers.notLiveAsSliced = flow::computeNotLiveAsSlicedVariables(loop, universe, {});
        answers.ansPossiblyReadBeforeBeingWritten = readsAnsFirst(loop, universe, ans);
    } else {
        const SpmdStatementView block(construct.node);
        answers.outputs = flow::computeSpmdOutputVariables(block, universe, {});
        answers.ansPossiblyReadBeforeBeingWritten = readsAnsFirst(block, universe, ans);
    }
    return answers;
}

} // namespace ostrel::report
