#pragma once

#include "report/Options.h"

namespace ostrel::report {

/// Exit statuses; the highest that applies wins.
constexpr int EXIT_READ = 0;
constexpr int EXIT_FILE_HAS_ERRORS = 1;
constexpr int EXIT_CANNOT_DO = 2;

/// The values of `--format`, the default first.
std::vector<std::string> formatNames();

/// Reads the files, writes the report, and returns the exit status. A file that can't be read or
/// written gets a message on standard error; the other files are still reported.
int run(const Options& options);

} // namespace ostrel::report
