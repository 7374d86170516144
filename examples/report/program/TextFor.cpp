#include "report/program/TextFor.h"

#include "report/text/TextReport.h"
#include "terminal/ColorChoice.h"
#include "terminal/Terminal.h"

#include <cstdio>

namespace ostrel::report {

std::unique_ptr<ReportWriter> makeTextWriterFor(std::ostream& out, const Options& options) {
    const bool isFile = !options.output.empty();
    const bool toTerminal = !isFile && isTerminal(stdout);
    TextStyle style;
    style.isColored = wantsColor(options.color, colorSurroundings(isFile, toTerminal));
    if (toTerminal) style.width = terminalWidth(stdout, style.width);
    return makeTextWriter(out, style, options.isQuiet ? Detail::Quiet : Detail::Full);
}

} // namespace ostrel::report
