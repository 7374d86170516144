#pragma once

#include "report/model/ReportWriter.h"
#include "terminal/TextStyle.h"

#include <memory>
#include <ostream>

namespace ostrel::report {

/// A writer of the report for a person at a terminal: errors, then each construct with its variables
/// and its remarks, then the other remarks; for several files, a summary at the end. The stream must
/// outlive the writer.
std::unique_ptr<ReportWriter> makeTextWriter(std::ostream& out, const TextStyle& style);

/// Writes a report that is at hand as a whole.
void writeTextReport(std::ostream& out, const Report& report, const TextStyle& style);

} // namespace ostrel::report
