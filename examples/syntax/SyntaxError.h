#pragma once

#include "tree/TreeBuilder.h"

#include <string>

namespace ostrel {

/// Thrown inside the parser where a statement can't continue; caught where the next one begins.
struct SyntaxError {
    Extent place;
    std::string message;
    std::string help{};
};

} // namespace ostrel
