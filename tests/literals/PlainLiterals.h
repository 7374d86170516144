#pragma once

#include <zt_orvex/literals/LiteralValidation.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace zt::orvex::testing {

// A plain second implementation of validation, without patterns.

inline bool isOneOf(char c, std::string_view set) { return set.find(c) != std::string_view::npos; }

/// Removes the longest prefix of `text` that consists of `set`, and returns its length.
inline std::size_t take(std::string_view& text, std::string_view set) {
    const std::size_t count = std::min(text.find_first_not_of(set), text.size());
    text.remove_prefix(count);
    return count;
}

struct PlainLiteral {
    bool isWellFormed = false;
    std::string digits;
    bool isSigned = false;
    std::size_t width = 0; // 0 without a suffix
};

inline PlainLiteral readInteger(std::string_view text, bool isHex) {
    PlainLiteral result;
    if (text.size() < 3 || text[0] != '0' || !isOneOf(text[1], isHex ? "xX" : "bB")) return result;
    text.remove_prefix(2);
    const std::string_view rest = text;
    const std::size_t count = take(text, isHex ? "0123456789ABCDEFabcdef" : "01");
    result.digits = rest.substr(0, count);
    if (count == 0) return result;
    if (!text.empty()) {
        if (!isOneOf(text[0], "uUsS")) return result;
        result.isSigned = isOneOf(text[0], "sS");
        const std::string_view width = text.substr(1);
        for (const std::size_t known : {8U, 16U, 32U, 64U})
            if (width == std::to_string(known)) result.width = known;
        if (result.width == 0) return result;
    }
    result.isWellFormed = true;
    return result;
}

inline bool isDouble(std::string_view text) {
    constexpr std::string_view DIGITS = "0123456789";
    std::size_t count = take(text, DIGITS);
    if (!text.empty() && text[0] == '.') {
        text.remove_prefix(1);
        count += take(text, DIGITS);
    }
    if (count == 0) return false;
    if (text.empty()) return true;
    if (!isOneOf(text[0], "dDeE")) return false;
    text.remove_prefix(1);
    if (!text.empty() && isOneOf(text[0], "+-")) text.remove_prefix(1);
    return take(text, DIGITS) > 0 && text.empty();
}

inline internal::LiteralValidationResult expectedResult(const PlainLiteral& integer, bool isHex) {
    if (!integer.isWellFormed) return internal::LiteralValidationResult::Malformed;
    const std::size_t width = integer.width == 0 ? 64 : integer.width;
    return integer.digits.size() <= width / (isHex ? 4 : 1)
               ? internal::LiteralValidationResult::Valid
               : internal::LiteralValidationResult::TooManyDigits;
}

} // namespace zt::orvex::testing
