#include "syntax/NumberCheck.h"

#include <zt_orvex/literals/LiteralValidation.h>

namespace ostrel {

using zt::orvex::internal::LiteralValidationResult;

namespace {

bool isOneOf(char16_t unit, std::u16string_view set) {
    return set.find(unit) != std::u16string_view::npos;
}

bool hasRadix(std::u16string_view text, std::u16string_view marks) {
    return text.size() >= 2 && text[0] == u'0' && isOneOf(text[1], marks);
}

LiteralValidationResult validate(std::u16string_view text) {
    using namespace zt::orvex::internal;
    if (hasRadix(text, u"bB")) return validateBinaryLiteral(text);
    if (hasRadix(text, u"xX")) return validateHexLiteral(text);
    const bool isImaginary = !text.empty() && isOneOf(text.back(), u"ij");
    return validateDoubleLiteral(isImaginary ? text.substr(0, text.size() - 1) : text);
}

} // namespace

const char* checkNumber(std::u16string_view text) {
    switch (validate(text)) {
    case LiteralValidationResult::Valid:
        return nullptr;
    case LiteralValidationResult::TooManyDigits:
        return "the number has more digits than its type holds";
    case LiteralValidationResult::Malformed:
        break;
    }
    return "malformed number";
}

} // namespace ostrel
