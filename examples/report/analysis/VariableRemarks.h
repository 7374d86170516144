#pragma once

#include "frontend/ParsedFile.h"
#include "report/analysis/ConstructFacts.h"
#include "report/analysis/OwnElements.h"
#include "report/analysis/PlaceFinder.h"
#include "report/model/Report.h"

#include <zt_orvex/ast/SymbolView.h>

#include <optional>

namespace ostrel::report {

/// The remark that the role of a variable of a `parfor` calls for: `carried`, `shared`, or
/// `loop-variable-written`. `own` is about the loop's body.
std::optional<Remark> remarkOnRole(const ParsedFile& file, const ConstructFacts& facts,
                                   const OwnElements& own, const Variable& variable,
                                   zt::orvex::SymbolView symbol, const PlaceFinder& places);

} // namespace ostrel::report
