#include "literals/ConvertDigits.h"

#include <zt_orvex/literals/NumberConversionError.h>

#include <string>

namespace zt::orvex::internal {

void throwConversionError(std::string_view digits) {
    throw NumberConversionError(std::string(digits));
}

void throwConversionError(std::u16string_view digits) {
    std::string narrow;
    narrow.reserve(digits.size());
    for (const char16_t unit : digits)
        narrow.push_back(static_cast<char>(unit));
    throw NumberConversionError(narrow);
}

} // namespace zt::orvex::internal
