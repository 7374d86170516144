#pragma once

#include <cstddef>
#include <vector>

namespace ostrel {
struct ParsedFile;
}

namespace ostrel::report {

enum class SyntaxKind { Keyword, Number, Text, Comment };

/// A piece of the source text to colour by its kind. Offsets are in UTF-16 units.
struct SyntaxSpan {
    SyntaxKind kind;
    std::size_t offset;
    std::size_t length;
};

/// The keywords, numbers, quoted texts, command words and comments of a file, in source order and
/// without overlap. Linear in the text.
std::vector<SyntaxSpan> findSyntaxSpans(const ParsedFile& file);

} // namespace ostrel::report
