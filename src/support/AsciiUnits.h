#pragma once

#include "support/WidenAscii.h"

#include <locale>

// What the facet std::ctype<char16_t> knows of a 16-bit character: as much as the classic locale
// knows of ASCII.
namespace zt::orvex::internal {

constexpr char16_t ASCII_END = 0x80;

inline const std::ctype<char>& asciiFacet() {
    return std::use_facet<std::ctype<char>>(std::locale::classic());
}

inline bool hasMask(std::ctype_base::mask mask, char16_t unit) {
    return unit < ASCII_END && asciiFacet().is(mask, static_cast<char>(unit));
}

/// All classes of `unit` at once.
inline std::ctype_base::mask classesOf(char16_t unit) {
    return unit < ASCII_END ? std::ctype<char>::classic_table()[unit] : std::ctype_base::mask();
}

inline char16_t toUpper(char16_t unit) {
    return hasMask(std::ctype_base::lower, unit) ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
}

inline char16_t toLower(char16_t unit) {
    return hasMask(std::ctype_base::upper, unit) ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

inline char narrowed(char16_t unit, char fallback) {
    return unit < ASCII_END ? static_cast<char>(unit) : fallback;
}

} // namespace zt::orvex::internal
