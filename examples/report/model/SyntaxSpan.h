#pragma once

#include <cstddef>

namespace ostrel::report {

enum class SyntaxKind { Keyword, Number, Text, Comment };

/// A piece of the source text to colour by its kind. Offsets are in UTF-16 units.
struct SyntaxSpan {
    SyntaxKind kind;
    std::size_t offset;
    std::size_t length;
};

} // namespace ostrel::report
