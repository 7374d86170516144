#pragma once

#include "report/ReportModel.h"

#include <string>

namespace ostrel::report {

/// The warnings; all writers use these texts.
Warning warnOfAns(ConstructKind kind, const Place& place);
Warning warnOfRestricted(ConstructKind kind, const std::string& name, const Place& place);
Warning warnOfUnknownPragma(const PragmaEntry& pragma);

/// `parfor` or `spmd`.
const char* keywordOf(ConstructKind kind);

} // namespace ostrel::report
