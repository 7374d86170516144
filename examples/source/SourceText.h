#pragma once

#include "source/Place.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {

/// A place as a person counts: both from 1, columns in Unicode code points.
struct Position {
    std::size_t line;
    std::size_t column;
};

/// A source text in UTF-16, with its lines.
///
/// Offsets are in UTF-16 units. Line ends are LF, CRLF and CR. A byte order mark at the beginning
/// of the UTF-8 text isn't part of the source text. Immutable, so any thread may read it.
class SourceText {
public:
    SourceText() : SourceText(std::u16string()) {}
    explicit SourceText(std::u16string utf16);

    /// Cost: one pass over the text. Empty if the text isn't UTF-8: if it has an overlong form, a
    /// surrogate, a value above U+10FFFF or a truncated sequence.
    static std::optional<SourceText> fromUtf8(std::string_view utf8);

    /// The length of the longest valid prefix of `utf8`: its size if all of it is UTF-8.
    static std::size_t validUtf8Prefix(std::string_view utf8);

    const std::u16string& text() const { return units; }
    std::size_t size() const { return units.size(); }

    /// The unit at `offset`; 0 at the end and beyond, which spares callers a bounds check.
    char16_t at(std::size_t offset) const { return offset < units.size() ? units[offset] : u'\0'; }

    std::size_t lineCount() const { return lineStarts.size(); }

    /// A line's text without its line end; `line` counts from 1.
    std::u16string_view line(std::size_t line) const;

    /// Cost: logarithmic in the number of lines and of surrogate pairs, however long the line is.
    Position position(std::size_t offset) const;

    /// A piece of the text. Cost: that of two positions.
    Place place(std::size_t offset, std::size_t length) const;

private:
    std::u16string units;
    std::vector<std::size_t> lineStarts;
    std::vector<std::size_t> lowSurrogates; ///< Their offsets: units that don't begin a column.
};

} // namespace ostrel
