#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace zt::orvex::internal {

/// The parts of an integer literal, as views of the caller's text.
template <class CharT>
struct LiteralParts {
    std::basic_string_view<CharT> literal;
    std::basic_string_view<CharT> prefix; ///< The first two characters, which name the radix.
    std::basic_string_view<CharT> digits;
    std::basic_string_view<CharT> suffix; ///< The type, or empty.
};

template <class CharT>
constexpr bool isSuffixLetter(CharT c) {
    return c == CharT{'S'} || c == CharT{'s'} || c == CharT{'U'} || c == CharT{'u'};
}

/// Splits any text. For a literal that matches its pattern the parts are what their names say.
///
/// Deliberate: only the length of the text and two characters near its end decide; the prefix isn't
/// checked. In a text of 3 or 4 characters the suffix may overlap the prefix and the digits; the
/// length of the digits then wraps around, and the smaller of two lengths is taken.
template <class CharT>
constexpr LiteralParts<CharT> splitLiteral(std::basic_string_view<CharT> text) {
    constexpr std::size_t PREFIX = 2;
    const std::size_t size = text.size();
    LiteralParts<CharT> parts;
    parts.literal = text;
    parts.prefix = text.substr(0, PREFIX);
    if (size <= PREFIX) return parts;

    const bool isInThirdPlace = isSuffixLetter(text[size - 3]);
    const bool isInSecondPlace = isSuffixLetter(text[size - 2]);
    const std::size_t suffix = isInThirdPlace ? 3U : isInSecondPlace ? 2U : 0U;
    const std::size_t digits = std::min(size - PREFIX, size - PREFIX - suffix);
    parts.digits = std::basic_string_view<CharT>(text.data() + PREFIX, digits);
    parts.suffix = std::basic_string_view<CharT>(text.data() + (size - suffix), suffix);
    return parts;
}

} // namespace zt::orvex::internal
