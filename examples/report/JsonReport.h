#pragma once

#include "report/ReportModel.h"

#include <ostream>

namespace ostrel::report {

/// The report as one JSON object, indented, with a line end behind it. Bytes of a path that are no
/// UTF-8 become U+FFFD.
void writeJsonReport(std::ostream& out, const Report& report);

} // namespace ostrel::report
