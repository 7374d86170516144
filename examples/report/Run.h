#pragma once

#include "report/Options.h"

namespace ostrel::report {

/// Exit statuses; of several the highest counts.
constexpr int EXIT_READ = 0;
constexpr int EXIT_FILE_HAS_ERRORS = 1;
constexpr int EXIT_CANNOT_DO = 2;

/// The names for `--format`, the default first.
std::vector<std::string> formatNames();

/// Reads the files, writes the report, and gives the exit status. What cannot be read or written is
/// told on standard error; the other files are reported all the same.
int run(const Options& options);

} // namespace ostrel::report
