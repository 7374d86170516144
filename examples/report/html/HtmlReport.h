#pragma once

#include "report/model/ReportWriter.h"

#include <iosfwd>
#include <memory>

namespace ostrel::report {

/// A writer of the report as one self-contained page: no network, no other file.
///
/// The page shows the source with line numbers. Inside a construct, each variable is coloured by
/// its role in the innermost construct that names it, and underlined in a style that shows the role
/// without colour too. Beside the source are a legend and, for each construct, a table of its
/// variables; a click on a variable or a row, or Enter on a row, marks all places of that variable.
/// Linear in the report. The stream must outlive the writer.
std::unique_ptr<ReportWriter> makeHtmlWriter(std::ostream& out);

/// Writes a report that is at hand as a whole.
void writeHtmlReport(std::ostream& out, const Report& report);

} // namespace ostrel::report
