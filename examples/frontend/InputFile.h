#pragma once

#include <string>

namespace ostrel {

/// All bytes of a file, or of standard input if `path` is `-`. Throws std::runtime_error with the
/// reason if reading fails.
std::string readInput(const std::string& path);

} // namespace ostrel
