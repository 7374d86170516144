#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ostrel::report {

/// A text as a terminal shows it, and its width in columns.
struct DisplayText {
    std::string utf8;
    std::size_t width = 0;
};

constexpr std::size_t TAB_WIDTH = 4;

/// The width of a character at `column`, counted from 0: 0 for combining marks and the like, 2 for
/// East Asian wide characters and emoji, up to TAB_WIDTH for a tab, and 1 otherwise.
std::size_t widthAt(std::size_t column, char32_t character);

/// The code point at `at`, and its length in units; a lone surrogate stands for itself.
struct CodePoint {
    char32_t value;
    std::size_t length;
};
CodePoint codePointAt(std::u16string_view text, std::size_t at);

/// Appends a character in a form that is safe for a terminal: a tab becomes blanks up to the next
/// multiple of TAB_WIDTH columns; control characters, and those that change the direction of
/// writing, become U+FFFD.
void appendForDisplay(DisplayText& text, char32_t character);

} // namespace ostrel::report
