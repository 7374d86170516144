#pragma once

#include "report/model/Report.h"
#include "report/model/Variable.h"

namespace ostrel::report {

/// The facts that decide a variable's role in a construct.
struct Evidence {
    ConstructKind kind = ConstructKind::Parfor;
    bool isLoopVariable = false;
    bool isReadByHead = false;
    bool isWritten = false;      ///< Whole or in part, by a reachable statement.
    bool isLive = false;         ///< The library's answer: some path reads it before a whole write.
    bool isLiveAsSliced = false; ///< Likewise, if an indexed write counts as a whole one.
    bool hasOwnElements = false;
    bool isReduction = false;
};

/// Decides a role; nothing else does. `Role` says what each one means.
Role roleOf(const Evidence& evidence);

} // namespace ostrel::report
