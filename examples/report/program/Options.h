#pragma once

#include "report/model/Remark.h"
#include "terminal/ColorChoice.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace ostrel::report {

using RemarkCodes = std::set<RemarkCode>;

struct Options {
    std::string format = "text";
    std::string output; ///< A path; empty for standard output.
    ColorChoice color = ColorChoice::Auto;
    RemarkCodes failOn;       ///< The remarks that make the program fail.
    bool isQuiet = false;     ///< Whether the text has errors and remarks only.
    std::size_t jobs = 0;     ///< Files at once; 0 for one for each processor.
    bool checksTrees = false; ///< Whether the front end's trees are checked before they are used.
    std::vector<std::string> files; ///< At least one; `-` is standard input, a folder its files.
};

/// The options, or the exit status if the program is already done.
struct ParsedOptions {
    Options options;
    std::optional<int> exitStatus;
};

/// Parses the command line. Help and version go to standard output, with status 0; errors go to
/// standard error, with status 2.
ParsedOptions parseOptions(int count, const char* const* arguments,
                           const std::vector<std::string>& formats);

} // namespace ostrel::report
