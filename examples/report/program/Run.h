#pragma once

#include "frontend/ParsedFile.h"
#include "report/program/Options.h"

#include <functional>
#include <string>
#include <vector>

namespace ostrel::report {

/// Exit statuses; the highest that applies wins.
constexpr int EXIT_READ = 0;
constexpr int EXIT_FILE_HAS_ERRORS = 1; ///< Or a remark of `--fail-on`, or a wrong tree.
constexpr int EXIT_CANNOT_DO = 2;

/// The values of `--format`, the default first.
std::vector<std::string> formatNames();

/// Reads the files, writes the report, and returns the exit status. A file that can't be read or
/// written, or whose tree is wrong, gets messages on standard error; the other files are still
/// reported.
int run(const Options& options);

/// The parsed file at a path. Throws std::runtime_error if it can't be read.
using FileReader = std::function<ParsedFile(const std::string& path)>;

/// As above, with files from elsewhere.
int run(const Options& options, const FileReader& read);

} // namespace ostrel::report
