#pragma once

#include "examples/RunProgram.h"

#include <cstddef>
#include <string>
#include <vector>

namespace ostrel::report::testing {

using ostrel::testing::HAS_POSIX_SHELL;
using ostrel::testing::Outcome;
using ostrel::testing::readFile;
using ostrel::testing::runProgram;
using ostrel::testing::ScratchFolder;

/// Runs the built program in a folder, with `input` on its standard input.
Outcome runReport(const std::vector<std::string>& arguments, const std::string& input = "",
                  const std::string& folder = ".");

/// Runs `orvex-report` with that much address space, `kib` times 1024 bytes, by a shell.
Outcome runReportWithin(std::size_t kib, std::vector<std::string> arguments);

/// Whether `runReportAtTerminal` has a terminal to open.
#if defined(_WIN32)
constexpr bool HAS_TERMINAL = false;
#else
constexpr bool HAS_TERMINAL = true;
#endif

/// Runs `orvex-report` at a terminal of that many columns. Standard output and standard error both go to
/// `output`.
Outcome runReportAtTerminal(const std::vector<std::string>& arguments, unsigned short columns);

} // namespace ostrel::report::testing
