#pragma once

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
/// Offsets are in UTF-16 units. Line ends are LF, CRLF and CR. A byte order mark at the begin of
/// the UTF-8 text is no part of the source text. Immutable, so any thread may read it.
class SourceText {
public:
    SourceText() : SourceText(std::u16string()) {}
    explicit SourceText(std::u16string utf16);

    /// Cost: one pass over the text. Empty when it is not UTF-8: an overlong form, a surrogate, a
    /// value above U+10FFFF or a sequence that breaks off.
    static std::optional<SourceText> fromUtf8(std::string_view utf8);

    /// Where the longest valid beginning of `utf8` ends: its size when all of it is UTF-8.
    static std::size_t validUtf8Prefix(std::string_view utf8);

    const std::u16string& text() const { return units; }
    std::size_t size() const { return units.size(); }

    /// The unit at `offset`, and 0 at the end and beyond, which spares the reader a test.
    char16_t at(std::size_t offset) const { return offset < units.size() ? units[offset] : u'\0'; }

    std::size_t lineCount() const { return lineStarts.size(); }

    /// A line's text without its line end; `line` counts from 1.
    std::u16string_view line(std::size_t line) const;

    /// Cost: logarithmic in the number of lines, and linear in the length of the line.
    Position position(std::size_t offset) const;

private:
    friend class PositionCursor;

    std::u16string units;
    std::vector<std::size_t> lineStarts;
};

/// Gives the positions of many offsets, which must not descend, in one pass over the text: many
/// places may be on one long line.
class PositionCursor {
public:
    explicit PositionCursor(const SourceText& text) : source(text) {}

    Position position(std::size_t offset);

private:
    const SourceText& source;
    std::size_t at = 0;
    Position current{1, 1};
};

} // namespace ostrel
