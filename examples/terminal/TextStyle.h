#pragma once

#include "terminal/ColorChoice.h"

#include <cstddef>
#include <cstdio>

namespace ostrel {

/// How text for people is laid out.
struct TextStyle {
    bool isColored = false;
    std::size_t width = 100; ///< In columns; what must not be broken may be wider.
};

/// The style of text for a stream such as `stdout`: as wide as the terminal, if it is one.
TextStyle styleFor(std::FILE* stream, ColorChoice choice);

/// The style of text for a file that the user has named.
TextStyle styleForFile(ColorChoice choice);

} // namespace ostrel
