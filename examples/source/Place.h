#pragma once

#include <cstddef>

namespace ostrel {

/// A piece of a source text. Offset and length are in UTF-16 units.
struct Place {
    std::size_t offset = 0;
    std::size_t length = 0;
    std::size_t line = 1;      ///< From 1.
    std::size_t column = 1;    ///< From 1, in Unicode code points.
    std::size_t endLine = 1;   ///< Of what follows the last character.
    std::size_t endColumn = 1; ///< Likewise.
};

} // namespace ostrel
