#pragma once

#include "report/model/Report.h"

#include <string>

namespace ostrel::report {

/// The name of a role in a report.
const char* nameOf(Role role);

/// The role of a variable in a table: its name and, for a reduction, by what: `reduction by +`.
std::string roleText(const Variable& variable);

/// Why a variable has its role, with places as `line:column`: one line, no full stop. May be empty.
std::string noteOf(const Variable& variable);

} // namespace ostrel::report
