#pragma once

#include "frontend/ParsedFile.h"
#include "report/model/Report.h"

#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <unordered_set>

namespace ostrel::report {

using SymbolSet = std::unordered_set<zt::orvex::SymbolView>;

/// The library's answers about one construct, subsets of the universe in the question. The first
/// three sets are for a `parfor`, `outputs` is for an `spmd`; what doesn't apply is empty.
struct LibraryAnswers {
    SymbolSet liveAsTemporary;
    SymbolSet maybeLiveAsTemporary;
    SymbolSet notLiveAsSliced;
    SymbolSet outputs;
    bool ansPossiblyReadBeforeBeingWritten = false;
};

/// Asks the library all questions about a construct, for the variables in `universe`; `ans` is that
/// of its scope. Exceptions of the library pass through.
LibraryAnswers askLibrary(const ostrel::Construct& construct,
                          const zt::orvex::flow::OrderedSet<zt::orvex::SymbolView>& universe,
                          zt::orvex::SymbolView ans);

ConstructKind kindOf(const ostrel::Construct& construct);
zt::orvex::StatementRangeView bodyOf(const ostrel::Construct& construct);

} // namespace ostrel::report
