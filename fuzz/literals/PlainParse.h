#pragma once

#include "TextFromBytes.h"

#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>

namespace zt::orvex::fuzz {

/// What becomes of any text that is taken for an integer literal, well-formed or not: which type,
/// and its bits, or the digits that can't be converted. Written without looking at the library.
struct PlainInteger {
    std::size_t width = 8; // in bits
    bool isSigned = false;
    unsigned long long bits = 0;
    bool isRefused = false;
    std::u16string digits;

    /// The index of the type in `IntegerLiteralValue`.
    int which() const {
        const int index = width == 8 ? 0 : width == 16 ? 1 : width == 32 ? 2 : 3;
        return isSigned ? index + 4 : index;
    }
    std::string message() const {
        return "Conversion failed converting '" + lowBytesOf(digits) + "' Reason: Not Specified";
    }
};

namespace plain {

inline bool isSuffixLetter(char16_t unit) {
    return unit == u'u' || unit == u'U' || unit == u's' || unit == u'S';
}

/// The place of the suffix letter, or the text's length without one.
inline std::size_t suffixPlace(std::u16string_view text) {
    if (isSuffixLetter(text[text.size() - 3])) return text.size() - 3;
    if (isSuffixLetter(text[text.size() - 2])) return text.size() - 2;
    return text.size();
}

/// Between the prefix and the suffix. In a text so short that the two overlap, what follows the
/// prefix is both digits and suffix.
inline std::u16string_view digitsOf(std::u16string_view text, std::size_t suffix) {
    return text.substr(2, suffix >= 2 ? suffix - 2 : std::u16string_view::npos);
}

inline std::size_t widthOf(char16_t unit) {
    return unit == u'8' ? 8 : unit == u'1' ? 16 : unit == u'3' ? 32 : 64;
}

inline std::size_t narrowestFor(std::size_t bits) {
    return bits <= 8 ? 8 : bits <= 16 ? 16 : bits <= 32 ? 32 : 64;
}

} // namespace plain

inline PlainInteger plainParse(std::u16string_view text, bool isHex) {
    PlainInteger result;
    if (text.size() < 3) return result;
    const std::size_t digitBits = isHex ? 4 : 1;
    const std::size_t suffix = plain::suffixPlace(text);
    result.digits = plain::digitsOf(text, suffix);
    if (suffix == text.size()) {
        result.width = plain::narrowestFor(result.digits.size() * digitBits);
    } else {
        result.isSigned = text[suffix] == u's' || text[suffix] == u'S';
        result.width = plain::widthOf(text[suffix + 1]);
    }
    std::string significant;
    for (const char16_t unit : result.digits) {
        const std::u16string_view known = isHex ? u"0123456789abcdefABCDEF" : u"01";
        if (known.find(unit) == std::u16string_view::npos) result.isRefused = true;
        if (unit != u'0' || !significant.empty())
            significant.push_back(static_cast<char>(unit & 0xFF));
    }
    if (significant.size() * digitBits > result.width) result.isRefused = true;
    if (!result.isRefused)
        result.bits = std::strtoull(significant.c_str(), nullptr, isHex ? 16 : 2);
    return result;
}

} // namespace zt::orvex::fuzz
