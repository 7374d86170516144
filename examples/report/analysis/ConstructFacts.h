#pragma once

#include "frontend/ParsedFile.h"
#include "report/analysis/LibraryAnswers.h"
#include "report/analysis/UnwrittenVariables.h"

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex_kit/body/FlowGraph.h>

#include <vector>

namespace ostrel::report {

/// What the roles and remarks of one construct are decided by.
struct ConstructFacts {
    /// `variables` are those that the construct names, in order; `ans` is that of its scope.
    /// Exceptions of the library pass through. Cost: the analyses of the construct.
    ConstructFacts(const ostrel::Construct& of, const std::vector<zt::orvex::SymbolView>& variables,
                   zt::orvex::SymbolView ans)
        : construct(of), universe(variables.begin(), variables.end()),
          answers(askLibrary(of, universe, ans)),
          // For every variable but `ans`, this mode is the same as Plain.
          graph(universe, bodyOf(of), zt::orvex::flow::AnalysisTypeView::May,
                zt::orvex::flow::AnalysisModeView::Ans),
          unwritten(graph) {}

    ConstructFacts(const ConstructFacts&) = delete;
    ConstructFacts& operator=(const ConstructFacts&) = delete;

    const ostrel::Construct& construct;
    const zt::orvex::flow::OrderedSet<zt::orvex::SymbolView> universe;
    const LibraryAnswers answers;
    const zt::orvex::kit::FlowGraph graph; ///< Of the body.
    const UnwrittenVariables unwritten;    ///< In the graph.
};

} // namespace ostrel::report
