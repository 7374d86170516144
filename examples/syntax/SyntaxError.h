#pragma once

#include <cstddef>
#include <string>

namespace ostrel {

/// Thrown inside the parser where a statement can't continue; caught where the next one begins.
struct SyntaxError {
    std::size_t offset;
    std::string message;
};

} // namespace ostrel
