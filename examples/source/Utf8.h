#pragma once

#include <string>
#include <string_view>

namespace ostrel {

inline bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
inline bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// UTF-16 as UTF-8; a lone surrogate becomes U+FFFD.
std::string toUtf8(std::u16string_view text);

} // namespace ostrel
