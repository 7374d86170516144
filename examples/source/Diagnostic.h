#pragma once

#include "source/Place.h"

#include <string>

namespace ostrel {

enum class Severity { Error, Warning };

/// What is wrong with a source text, and where.
struct Diagnostic {
    Place place;
    Severity severity = Severity::Error;
    std::string message; ///< UTF-8, one line, no full stop.
    std::string help;    ///< What was probably meant, likewise; may be empty.
};

} // namespace ostrel
