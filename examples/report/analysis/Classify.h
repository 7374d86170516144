#pragma once

#include "frontend/ParsedFile.h"
#include "report/analysis/ConstructFacts.h"
#include "report/analysis/OwnElements.h"
#include "report/analysis/PlaceFinder.h"
#include "report/model/Report.h"

#include <zt_orvex/ast/SymbolView.h>

#include <vector>

namespace ostrel::report {

/// A variable of a construct, as the report and as the library know it.
struct ClassifiedVariable {
    Variable variable;
    zt::orvex::SymbolView symbol;
};

/// What a construct does with the variables of its universe: those that it names in the text, in the
/// order in which it does. `own` is about the body of a `parfor`; null for an `spmd`.
std::vector<ClassifiedVariable> classify(const ParsedFile& file, const ConstructFacts& facts,
                                         const OwnElements* own, const PlaceFinder& places);

} // namespace ostrel::report
