#pragma once

#include "frontend/ParsedFile.h"
#include "report/LibraryAnswers.h"
#include "report/PlaceFinder.h"
#include "report/ReportModel.h"

#include <vector>

namespace ostrel::report {

/// What decides a variable's role in a construct.
struct Evidence {
    ConstructKind kind = ConstructKind::Parfor;
    bool isLoopVariable = false;
    bool isWritten = false;      ///< Wholly or in part, where control comes.
    bool isLive = false;         ///< Some path reads it before a whole write.
    bool isLiveAsSliced = false; ///< Likewise, where one index or field makes no difference.
    bool hasOwnElements = false;
};

/// The one place where roles are decided; `Role` tells what each means.
Role roleOf(const Evidence& evidence);

/// The variables that a construct names, in the order of the scope's universe.
std::vector<Variable> classify(const ParsedFile& file, const ostrel::Construct& construct,
                               const LibraryAnswers& answers, PlaceFinder& places);

} // namespace ostrel::report
