#pragma once

#include "report/program/FileReport.h"
#include "report/program/Options.h"

#include <string>
#include <vector>

namespace ostrel::report {

/// The values of `--format`, the default first.
std::vector<std::string> formatNames();

/// Reads the files, writes the report, and returns the exit status. A file that can't be read or
/// written, or whose tree is wrong, gets messages on standard error; the other files are still
/// reported.
///
/// Each file is written when those before it are, and then dropped. What is written, and the order
/// of the messages, doesn't depend on the number of jobs.
int run(const Options& options);

/// As above, with files from elsewhere.
int run(const Options& options, const FileReader& read);

} // namespace ostrel::report
