#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ostrel::report {

enum class ColorChoice { Auto, Always, Never };

struct Options {
    std::string format = "text";
    std::string output; ///< A path; empty for standard output.
    ColorChoice color = ColorChoice::Auto;
    std::vector<std::string> files; ///< At least one; `-` is standard input.
};

/// Either what to do, or that the program is done, with this exit status.
struct ParsedOptions {
    Options options;
    std::optional<int> exitStatus;
};

/// Reads the command line. Help and version go to standard output with status 0; what is wrong goes
/// to standard error with status 2.
ParsedOptions parseOptions(int count, const char* const* arguments,
                           const std::vector<std::string>& formats);

} // namespace ostrel::report
