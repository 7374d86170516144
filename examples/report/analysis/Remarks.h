#pragma once

#include "report/model/Report.h"

#include <string>

namespace ostrel::report {

// The remarks that need no path; all writers use these texts.

Remark remarkOnAns(ConstructKind kind, const Place& place);
Remark remarkOnRestricted(ConstructKind kind, const std::string& name, const Place& place);
Remark remarkOnUnknownPragma(const PragmaEntry& pragma);

} // namespace ostrel::report
