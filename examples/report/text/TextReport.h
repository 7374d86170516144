#pragma once

#include "report/model/ReportWriter.h"
#include "terminal/TextStyle.h"

#include <memory>
#include <ostream>

namespace ostrel::report {

enum class Detail {
    Full,
    Quiet, ///< Errors and remarks only, so nothing for a file that has none.
};

/// A writer of the report for a person at a terminal. For each file, the errors come first, then
/// each construct with a table of its variables and its remarks, then the remarks on no construct.
/// For several files, a summary comes at the end. The stream must outlive the writer.
std::unique_ptr<ReportWriter> makeTextWriter(std::ostream& out, const TextStyle& style,
                                             Detail detail = Detail::Full);

/// Writes a report that is at hand as a whole.
void writeTextReport(std::ostream& out, const Report& report, const TextStyle& style,
                     Detail detail = Detail::Full);

} // namespace ostrel::report
