#pragma once

#include "frontend/ParsedFile.h"
#include "report/ReportModel.h"

#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>

#include <unordered_set>

namespace ostrel::report {

using SymbolSet = std::unordered_set<zt::orvex::SymbolView>;

/// What the library says about one construct. The first three are of a `parfor`, `outputs` is of a
/// `spmd`; what does not apply is empty.
struct LibraryAnswers {
    SymbolSet liveAsTemporary;
    SymbolSet maybeLiveAsTemporary;
    SymbolSet notLiveAsSliced;
    SymbolSet outputs;
    bool ansPossiblyReadBeforeBeingWritten = false;
};

/// Asks all questions about a construct. What the library throws passes out.
LibraryAnswers askLibrary(const ostrel::Construct& construct, const Scope& scope);

ConstructKind kindOf(const ostrel::Construct& construct);
zt::orvex::StatementRangeView bodyOf(const ostrel::Construct& construct);

} // namespace ostrel::report
