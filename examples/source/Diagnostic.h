#pragma once

#include <cstddef>
#include <string>

namespace ostrel {

enum class Severity { Error, Warning };

/// What is wrong with a source text, and where.
struct Diagnostic {
    std::size_t offset = 0; ///< In UTF-16 units, from the beginning of the text.
    std::size_t line = 1;   ///< From 1.
    std::size_t column = 1; ///< From 1, in Unicode code points.
    Severity severity = Severity::Error;
    std::string message; ///< UTF-8, one line, no full stop.
};

} // namespace ostrel
