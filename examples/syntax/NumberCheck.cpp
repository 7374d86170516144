#include "syntax/NumberCheck.h"

#include "source/Utf8.h"
#include "syntax/Characters.h"
#include "tree/NumberForm.h"

#include <zt_orvex/literals/LiteralValidation.h>

namespace ostrel {

using zt::orvex::internal::LiteralValidationResult;

namespace {

LiteralValidationResult validate(std::u16string_view text) {
    using namespace zt::orvex::internal;
    switch (numberForm(text)) {
    case NumberForm::Binary:
        return validateBinaryLiteral(text);
    case NumberForm::Hexadecimal:
        return validateHexLiteral(text);
    case NumberForm::Imaginary:
        return validateDoubleLiteral(text.substr(0, text.size() - 1));
    case NumberForm::Decimal:
        break;
    }
    return validateDoubleLiteral(text);
}

bool isOneOf(char16_t unit, std::u16string_view set) {
    return set.find(unit) != std::u16string_view::npos;
}

NumberMistake malformed(std::size_t begin, std::size_t end, const std::string& why) {
    return {begin, end, "malformed number: " + why};
}

std::string quoted(std::u16string_view text) { return "'" + toUtf8(text) + "'"; }

/// The first mistake of a malformed number of the form `0b101u8` or `0x1Fs16`.
NumberMistake integerMistake(std::u16string_view text, std::u16string_view digits,
                             const std::string& kind) {
    std::size_t at = 2;
    while (at < text.size() && isOneOf(text[at], digits))
        ++at;
    if (at == text.size()) {
        return malformed(0, at, "no digit follows " + quoted(text));
    }
    const bool isType = at > 2 && isOneOf(text[at], u"uUsS");
    if (!isType) return malformed(at, at + 1, quoted(text.substr(at, 1)) + " is not " + kind);
    return malformed(at, text.size(),
                     quoted(text.substr(at)) + " is not a type such as 'u8' or 's64'");
}

/// The first mistake of a malformed number of the form `1.5e-3` or `2i`.
NumberMistake decimalMistake(std::u16string_view text) {
    std::size_t at = 0;
    const auto unit = [&] { return at < text.size() ? text[at] : u'\0'; };
    const auto skipDigits = [&] {
        const std::size_t begin = at;
        while (isDigit(unit()))
            ++at;
        return at > begin;
    };
    skipDigits();
    const bool hasPoint = unit() == u'.';
    if (hasPoint) ++at;
    skipDigits();
    const std::size_t mark = at;
    const bool hasExponent = isOneOf(unit(), u"dDeE");
    if (hasExponent) {
        ++at;
        if (isOneOf(unit(), u"+-")) ++at;
        if (!skipDigits()) {
            NumberMistake mistake = malformed(mark, at, "the exponent has no digits");
            mistake.isOpenExponent = at == text.size();
            return mistake;
        }
    }
    if (isOneOf(unit(), u"ij")) ++at;
    if (at == text.size()) return {0, at, "malformed number"};
    if (unit() != u'.')
        return malformed(at, at + 1, quoted(text.substr(at, 1)) + " can't be part of it");
    if (hasExponent) return malformed(at, at + 1, "an exponent has no point");
    return malformed(at, at + 1, hasPoint ? "it has a second point" : "'.' can't be part of it");
}

NumberMistake mistakeOf(std::u16string_view text) {
    switch (numberForm(text)) {
    case NumberForm::Binary:
        return integerMistake(text, u"01", "a binary digit");
    case NumberForm::Hexadecimal:
        return integerMistake(text, u"0123456789abcdefABCDEF", "a hexadecimal digit");
    case NumberForm::Decimal:
    case NumberForm::Imaginary:
        break;
    }
    return decimalMistake(text);
}

} // namespace

std::optional<NumberMistake> checkNumber(std::u16string_view text) {
    switch (validate(text)) {
    case LiteralValidationResult::Valid:
        return {};
    case LiteralValidationResult::TooManyDigits:
        return NumberMistake{0, text.size(), "the number has more digits than its type can hold"};
    case LiteralValidationResult::Malformed:
        break;
    }
    return mistakeOf(text);
}

} // namespace ostrel
