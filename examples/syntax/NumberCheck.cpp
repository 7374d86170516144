#include "syntax/NumberCheck.h"

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

} // namespace

const char* checkNumber(std::u16string_view text) {
    switch (validate(text)) {
    case LiteralValidationResult::Valid:
        return nullptr;
    case LiteralValidationResult::TooManyDigits:
        return "the number has more digits than its type can hold";
    case LiteralValidationResult::Malformed:
        break;
    }
    return "malformed number";
}

} // namespace ostrel
