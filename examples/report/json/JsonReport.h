#pragma once

#include "report/model/Report.h"

#include <ostream>

namespace ostrel::report {

/// Writes the report as one indented JSON object and a line end, construct by construct. Bytes of a
/// path that aren't UTF-8 become U+FFFD; such a path has a mark.
///
/// Cost: linear in what is written, which has the whole universe for each construct; memory for the
/// names of each scope.
void writeJsonReport(std::ostream& out, const Report& report);

} // namespace ostrel::report
