#pragma once

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/ast/NodeView.h>

#include <cstdint>
#include <set>

namespace zt::orvex::testing {

/// Handles of symbols. Plain and slow on purpose.
using Symbols = std::set<std::uint64_t>;

/// What an analysis is told.
struct ReferenceSettings {
    flow::AnalysisTypeView type = flow::AnalysisTypeView::May;
    flow::AnalysisModeView mode = flow::AnalysisModeView::Plain;
    Symbols universe;
    Symbols subscriptVariables;
};

/// What one node of the flow does to the variables: it reads `gen` and overwrites all of `kill`.
struct Effects {
    Symbols gen;
    Symbols kill;
};

/// A second opinion on what the head of a statement or clause reads and writes. It was written
/// without looking at the library's code, and shares nothing with it but the handles.
Effects effectsOf(const NodeView& statement, const ReferenceSettings& settings);

} // namespace zt::orvex::testing
