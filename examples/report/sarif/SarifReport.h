#pragma once

#include "report/model/ReportWriter.h"

#include <memory>
#include <ostream>

namespace ostrel::report {

/// A writer of the report in the Static Analysis Results Interchange Format 2.1.0, for code scanning
/// services and editors: a rule for each code of a remark and one for errors, a result for each
/// remark and error, and the paths of a remark as its code flows. Results are written one by one.
///
/// Columns are Unicode code points, and the log says so. A file that could not be read becomes a
/// notification, and the run counts as failed.
///
/// Cost: linear in what is written and in the text of the lines that have results; memory for one
/// result, a number for each remark and error of a file, and the files that could not be read. The
/// stream must outlive the writer.
std::unique_ptr<ReportWriter> makeSarifWriter(std::ostream& out);

/// Writes a report that is at hand as a whole.
void writeSarifReport(std::ostream& out, const Report& report);

} // namespace ostrel::report
