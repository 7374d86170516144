#pragma once

#include "report/model/ReportWriter.h"

#include <iosfwd>
#include <memory>

namespace ostrel::report {

/// A writer of the report as one self-contained page: no network, no other file.
///
/// The page shows the source with line numbers, errors and remarks in it, and beside each construct
/// its table and its remarks. Each variable is coloured by its role in the innermost construct that
/// names it, and underlined in a style that shows the role without colour too. The first files,
/// some thousands of lines, are written as elements; the page keeps the others as text, which a
/// browser reads many times faster, and makes them elements when they come into view.
///
/// Cost: time linear in the report; memory for the largest file and for the index (see FileIndex).
/// The stream must outlive the writer.
std::unique_ptr<ReportWriter> makeHtmlWriter(std::ostream& out);

/// Writes a report that is at hand as a whole.
void writeHtmlReport(std::ostream& out, const Report& report);

} // namespace ostrel::report
