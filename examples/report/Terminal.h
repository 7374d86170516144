#pragma once

#include <cstddef>
#include <cstdio>

namespace ostrel::report {

/// Whether a stream such as `stdout` ends at a terminal.
bool isTerminal(std::FILE* stream);

/// How many columns the terminal of a stream has, or `otherwise` where that cannot be told.
std::size_t terminalWidth(std::FILE* stream, std::size_t otherwise);

} // namespace ostrel::report
