#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ostrel::report {

/// A text as a terminal shows it, and the columns that it takes.
struct DisplayText {
    std::string utf8;
    std::size_t width = 0;
};

constexpr std::size_t TAB_WIDTH = 4;

/// How many columns a character takes at `column`, which counts from 0: 0 for combining marks and
/// the like, 2 for East Asian wide characters and emoji, up to TAB_WIDTH for a tab, else 1.
std::size_t widthAt(std::size_t column, char32_t character);

/// The code point at `at`, and the units that it takes; a lone surrogate is itself.
struct CodePoint {
    char32_t value;
    std::size_t length;
};
CodePoint codePointAt(std::u16string_view text, std::size_t at);

/// Appends a character so that it cannot play tricks on a terminal: tabs become blanks up to the
/// next multiple of TAB_WIDTH columns; control characters, and those that turn the direction of
/// writing, become U+FFFD.
void appendForDisplay(DisplayText& text, char32_t character);

} // namespace ostrel::report
