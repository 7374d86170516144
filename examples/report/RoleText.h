#pragma once

#include "report/ReportModel.h"

#include <string>

namespace ostrel::report {

/// What a role is called in a report.
const char* nameOf(Role role);

/// Why a variable has its role, with places as `line:column`: one line without a full stop. May be
/// empty.
std::string noteOf(const Variable& variable);

} // namespace ostrel::report
