#pragma once

#include "report/model/ReportWriter.h"

#include <memory>
#include <ostream>

namespace ostrel::report {

/// A writer of the report as one indented JSON object and a line end, construct by construct. Bytes
/// of a path that aren't UTF-8 become U+FFFD; such a path has a mark.
///
/// Cost: linear in what is written, which has the whole universe for each construct; memory for the
/// names of each scope. The stream must outlive the writer.
std::unique_ptr<ReportWriter> makeJsonWriter(std::ostream& out);

/// Writes a report that is at hand as a whole.
void writeJsonReport(std::ostream& out, const Report& report);

} // namespace ostrel::report
