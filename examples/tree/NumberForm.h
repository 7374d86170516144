#pragma once

#include <string_view>

namespace ostrel {

/// The ways in which a number is spelled.
enum class NumberForm { Binary, Hexadecimal, Decimal, Imaginary };

/// The form of a text that begins like a number, by its first two characters and its last.
inline NumberForm numberForm(std::u16string_view text) {
    const auto isOneOf = [](char16_t unit, std::u16string_view set) {
        return set.find(unit) != std::u16string_view::npos;
    };
    if (text.size() >= 2 && text[0] == u'0') {
        if (isOneOf(text[1], u"bB")) return NumberForm::Binary;
        if (isOneOf(text[1], u"xX")) return NumberForm::Hexadecimal;
    }
    const bool isImaginary = !text.empty() && isOneOf(text.back(), u"ij");
    return isImaginary ? NumberForm::Imaginary : NumberForm::Decimal;
}

} // namespace ostrel
