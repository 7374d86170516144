#include "report/program/Options.h"
#include "report/program/Run.h"
#include "terminal/Complaint.h"

#include <ios>

namespace {

int parseAndRun(int count, char** arguments) {
    using namespace ostrel::report;
    std::ios::sync_with_stdio(false); // nothing else writes to standard output
    const ParsedOptions parsed = parseOptions(count, arguments, formatNames());
    return parsed.exitStatus ? *parsed.exitStatus : run(parsed.options);
}

} // namespace

int main(int count, char** arguments) {
    return ostrel::guardMain("orvex-report", ostrel::report::EXIT_CANNOT_DO, parseAndRun, count,
                             arguments);
}
