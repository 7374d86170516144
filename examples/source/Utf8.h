#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ostrel {

inline bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
inline bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Decodes the code point that begins at `at`. Returns its length in bytes, or 0 if the bytes there
/// aren't UTF-8: an overlong form, a surrogate, a value above U+10FFFF or a truncated sequence.
std::size_t readCodePoint(std::string_view utf8, std::size_t at, char32_t& value);

bool isUtf8(std::string_view text);

/// Appends a code point as UTF-8.
void appendUtf8(std::string& utf8, char32_t value);

/// UTF-16 as UTF-8; a lone surrogate becomes U+FFFD.
std::string toUtf8(std::u16string_view text);

} // namespace ostrel
