#pragma once

#include "report/ReportModel.h"

#include <ostream>

namespace ostrel::report {

/// Writes the report as one indented JSON object and a line end. Bytes of a path that aren't UTF-8
/// become U+FFFD.
void writeJsonReport(std::ostream& out, const Report& report);

} // namespace ostrel::report
