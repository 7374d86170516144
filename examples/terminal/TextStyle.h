#pragma once

#include <cstddef>

namespace ostrel {

/// How text for people is laid out.
struct TextStyle {
    bool isColored = false;
    std::size_t width = 100; ///< In columns; what must not be broken may be wider.
};

} // namespace ostrel
