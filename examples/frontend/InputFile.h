#pragma once

#include <string>

namespace ostrel {

/// All bytes of a file, or of standard input if `path` is `-`. Throws std::runtime_error with the
/// reason if reading fails, or if there are more bytes than MAX_SOURCE_SIZE: before reading if the
/// file has a size, and otherwise as soon as there are too many.
std::string readInput(const std::string& path);

} // namespace ostrel
