#pragma once

#include <cstddef>
#include <string>

namespace ostrel {

/// Thrown within the parser where a statement cannot go on; caught where the next one begins.
struct SyntaxError {
    std::size_t offset;
    std::string message;
};

} // namespace ostrel
