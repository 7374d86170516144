#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ostrel {

/// A text as a terminal shows it, and its width in columns.
struct DisplayText {
    std::string utf8;
    std::size_t width = 0;
};

constexpr std::size_t TAB_WIDTH = 4;

/// The width, at `column` counted from 0, of what `appendForDisplay` appends for a character: 0 for
/// combining marks and the like, 2 for East Asian wide characters and emoji, up to TAB_WIDTH for a
/// tab, the length of the name for a character that is named, and 1 otherwise.
std::size_t widthAt(std::size_t column, char32_t character);

/// The code point at `at`, and its length in units; a lone surrogate stands for itself.
struct CodePoint {
    char32_t value;
    std::size_t length;
};
CodePoint codePointAt(std::u16string_view text, std::size_t at);

/// Appends a character in a form that is safe for a terminal: a tab becomes blanks up to the next
/// multiple of TAB_WIDTH columns; a character that changes the direction of writing, or that Unicode
/// hasn't assigned, becomes its name, such as `<U+202E>`; control characters, separators of lines
/// and lone surrogates become U+FFFD.
void appendForDisplay(DisplayText& text, char32_t character);

/// A text in that form: a message, or the name of a file. Each byte that isn't UTF-8 becomes U+FFFD.
DisplayText displayText(std::string_view utf8);

/// The same without the width.
std::string displayed(std::string_view utf8);

/// A text of several lines in that form: line feeds stay.
std::string displayedLines(std::string_view utf8);

/// Whether a text has a character that must not reach a terminal (see source/UnsafeCharacters.h);
/// line feeds may.
bool hasUnsafeCharacter(std::string_view utf8);

/// Such as `U+202E`.
std::string codePointName(char32_t character);

/// The code point at `at`, and its length in bytes; U+FFFD for a byte that isn't UTF-8.
struct Utf8Piece {
    char32_t value;
    std::size_t length;
    bool isValid;
};
Utf8Piece utf8PieceAt(std::string_view utf8, std::size_t at);

} // namespace ostrel
