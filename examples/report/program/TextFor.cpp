#include "report/program/TextFor.h"

#include "report/text/TextReport.h"
#include "terminal/TextStyle.h"

#include <cstdio>

namespace ostrel::report {

std::unique_ptr<ReportWriter> makeTextWriterFor(std::ostream& out, const Options& options) {
    const TextStyle style =
        options.output.empty() ? styleFor(stdout, options.color) : styleForFile(options.color);
    return makeTextWriter(out, style, options.isQuiet ? Detail::Quiet : Detail::Full);
}

} // namespace ostrel::report
