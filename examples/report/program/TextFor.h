#pragma once

#include "report/model/ReportWriter.h"
#include "report/program/Options.h"

#include <memory>
#include <ostream>

namespace ostrel::report {

/// The writer of the text, as the options and the terminal want it.
std::unique_ptr<ReportWriter> makeTextWriterFor(std::ostream& out, const Options& options);

} // namespace ostrel::report
