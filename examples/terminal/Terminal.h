#pragma once

#include <cstddef>
#include <cstdio>

namespace ostrel {

/// Whether a stream such as `stdout` is a terminal.
bool isTerminal(std::FILE* stream);

/// The width of the terminal in columns, or `otherwise` if that can't be determined.
std::size_t terminalWidth(std::FILE* stream, std::size_t otherwise);

} // namespace ostrel
