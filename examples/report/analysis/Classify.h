#pragma once

#include "frontend/ParsedFile.h"
#include "report/analysis/LibraryAnswers.h"
#include "report/analysis/PlaceFinder.h"
#include "report/model/Report.h"

#include <vector>

namespace ostrel::report {

/// The facts that decide a variable's role in a construct.
struct Evidence {
    ConstructKind kind = ConstructKind::Parfor;
    bool isLoopVariable = false;
    bool isWritten = false;      ///< Whole or in part, by a reachable statement.
    bool isLive = false;         ///< Some path reads it before a whole write.
    bool isLiveAsSliced = false; ///< Likewise, if a single index or field is ignored.
    bool hasOwnElements = false;
};

/// Decides a role; nothing else does. `Role` says what each one means.
Role roleOf(const Evidence& evidence);

/// What a construct does with the variables in `universe`: those that it names in the text, in
/// order. The answers must be about the same variables.
std::vector<Variable> classify(const ParsedFile& file, const ostrel::Construct& construct,
                               const std::vector<zt::orvex::SymbolView>& universe,
                               const LibraryAnswers& answers, const PlaceFinder& places);

} // namespace ostrel::report
